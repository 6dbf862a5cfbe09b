// The frame that every native method runs in: its text-conversion context, the characters of its
// strings, and its handles. The order of the declarations in a method is the order of its frame,
// and everything goes back in reverse on every path.
#pragma once

#include <jni.h>

#include <utility>

#include "bridge/bridge.h"
#include "bridge/guards.h"

namespace kepotl {

// What the steps of a native method share once its frame stands.
struct Frame {
  JNIEnv* env;
  int text;  // the text-conversion context
  INST inst;
  HOutline outline;
};

// A local reference that is not needed beyond its scope.
class LocalRef {
 public:
  LocalRef(JNIEnv* env, jobject object) : env_(env), object_(object) {}
  ~LocalRef() {
    if (object_ != nullptr) env_->DeleteLocalRef(object_);
  }
  LocalRef(const LocalRef&) = delete;
  LocalRef& operator=(const LocalRef&) = delete;

  jobject get() const { return object_; }

 private:
  JNIEnv* env_;
  jobject object_;
};

// The characters of a Java string. A null string is neither obtained nor released and reads as
// the empty text; is_null() tells it apart where that matters. A string whose characters the
// virtual machine had no memory for is lost: it reads as the empty text, too, and a method whose
// work depends on it refuses.
class JavaText {
 public:
  JavaText() = default;
  JavaText(JNIEnv* env, int context, jstring string)
      : env_(env),
        context_(context),
        string_(string),
        chars_(string == nullptr ? nullptr : env->GetStringUTFChars(string, nullptr)) {}
  JavaText(JavaText&& other) noexcept { swap(other); }
  JavaText& operator=(JavaText&& other) noexcept {
    swap(other);
    return *this;
  }
  ~JavaText() {
    if (chars_ != nullptr) env_->ReleaseStringUTFChars(string_, chars_);
  }
  JavaText(const JavaText&) = delete;
  JavaText& operator=(const JavaText&) = delete;

  bool is_null() const { return string_ == nullptr; }
  bool lost() const { return string_ != nullptr && chars_ == nullptr; }
  bool empty() const { return chars_ == nullptr || *chars_ == '\0'; }
  // As Java spells it; never null.
  const char* java() const { return chars_ == nullptr ? "" : chars_; }
  // In API characters; never null.
  const char* api() const { return getAPICharsFromUTFChars(context_, java()); }
  // In API characters; null for a null string.
  const char* api_or_null() const { return is_null() ? nullptr : api(); }
  // In API characters; null for a null string, and for an empty one.
  const char* api_if_any() const { return empty() ? nullptr : api(); }

 private:
  void swap(JavaText& other) noexcept {
    std::swap(env_, other.env_);
    std::swap(context_, other.context_);
    std::swap(string_, other.string_);
    std::swap(chars_, other.chars_);
  }

  JNIEnv* env_ = nullptr;
  int context_ = 0;
  jstring string_ = nullptr;
  const char* chars_ = nullptr;
};

// Whether one of a method's texts is lost.
template <typename... Texts>
bool any_lost(const Texts&... texts) {
  return (texts.lost() || ...);
}

}  // namespace kepotl
