// Scope guards of the frame that every native method runs in. Each owns exactly one thing and
// gives it back in its destructor, so the order of the declarations in a method is the order of
// its frame, and everything goes back in reverse on every path. A guard that holds null gives
// nothing back.
#pragma once

#include <jni.h>

#include <utility>

#include "api/olv.h"
#include "api/olvotl.h"
#include "bridge/bridge.h"

namespace kepotl {

// The text-conversion context of a native method.
class TextContext {
 public:
  TextContext() : context_(LoInitialize()) {}
  ~TextContext() { LoUninitialize(context_); }
  TextContext(const TextContext&) = delete;
  TextContext& operator=(const TextContext&) = delete;

  operator int() const { return context_; }

 private:
  int context_;
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
// the empty text; is_null() tells it apart where that matters.
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

  bool is_null() const { return chars_ == nullptr; }
  // True when the virtual machine had no memory for the characters of a string that is there. It
  // reads as empty, too, which must not be taken for a wish to delete something.
  bool lost() const { return string_ != nullptr && chars_ == nullptr; }
  bool empty() const { return chars_ == nullptr || *chars_ == '\0'; }
  // As Java spells it; never null.
  const char* java() const { return chars_ == nullptr ? "" : chars_; }
  // In API characters; never null.
  const char* api() const { return getAPICharsFromUTFChars(context_, java()); }
  // In API characters; null for a null string, and for an empty one.
  const char* api_or_null() const { return empty() ? nullptr : api(); }

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

// A member's record, as the API hands it out.
class MemberRecord {
 public:
  explicit MemberRecord(HOutline outline) : outline_(outline) {}
  ~MemberRecord() { release(); }
  MemberRecord(const MemberRecord&) = delete;
  MemberRecord& operator=(const MemberRecord&) = delete;

  // Reads the record of `member`, giving back the one held. Holds null after a failure, and only
  // then: success without a record counts as kStatusRefused.
  int read(HMember member) {
    release();
    MemberInfoRecord* info = nullptr;
    const int status = OlvOtlGetMemberInfo(outline_, member, &info);
    if (status != kStatusOk) return status;
    info_ = info;
    return info_ == nullptr ? kStatusRefused : kStatusOk;
  }

  void release() {
    if (info_ == nullptr) return;
    OlvOtlFreeStructure(outline_, 1, kStructureMemberInfo, info_);
    info_ = nullptr;
  }

  explicit operator bool() const { return info_ != nullptr; }
  MemberInfoRecord* get() const { return info_; }
  MemberInfoRecord* operator->() const { return info_; }
  MemberInfoRecord& operator*() const { return *info_; }

 private:
  HOutline outline_;
  MemberInfoRecord* info_ = nullptr;
};

// A block that goes back with OlvFree: a text, an information record or an array.
template <typename T>
class ApiBlock {
 public:
  explicit ApiBlock(INST inst) : inst_(inst) {}
  ~ApiBlock() { release(); }
  ApiBlock(const ApiBlock&) = delete;
  ApiBlock& operator=(const ApiBlock&) = delete;

  // Where an API call is to store the block; holds null at that moment.
  T** out() {
    release();
    return &block_;
  }
  // Gives the block back now; the status of that call, 0 when there was none.
  int release() {
    if (block_ == nullptr) return kStatusOk;
    const int status = OlvFree(inst_, block_);
    block_ = nullptr;
    return status;
  }
  // Forgets a pointer that a failed call may have left.
  void forget() { block_ = nullptr; }

  explicit operator bool() const { return block_ != nullptr; }
  T* get() const { return block_; }
  T* operator->() const { return block_; }
  T& operator*() const { return *block_; }
  T& operator[](size_t index) const { return block_[index]; }

 private:
  INST inst_;
  T* block_ = nullptr;
};

// API memory that comes back where no instance is at hand goes back under instance 0.
inline constexpr INST kNoInstance = 0;

// The handles that answered a query, with their counts. Holds one answer: ask once.
class HandleArray {
 public:
  explicit HandleArray(HOutline outline) : outline_(outline) {}
  ~HandleArray() {
    if (handles_ != nullptr) OlvOtlFreeMembers(outline_, counts.returned, handles_);
  }
  HandleArray(const HandleArray&) = delete;
  HandleArray& operator=(const HandleArray&) = delete;

  // The query from a start member given by handle or by name.
  int query(HMember start, const MemberQuery& query) {
    return OlvOtlQueryMembers(outline_, start, &query, &counts, &handles_);
  }
  int query_by_name(const char* start, const MemberQuery& query) {
    return OlvOtlQueryMembersByName(outline_, start, &query, &counts, &handles_);
  }
  // The attribute members asked for.
  int query_attributes(const AttributeQuery& query) {
    return OlvOtlQueryAttributes(outline_, &query, &counts.returned, &handles_);
  }

  explicit operator bool() const { return handles_ != nullptr; }
  // Handles that were returned.
  uint32_t size() const { return handles_ == nullptr ? 0 : counts.returned; }
  HMember operator[](uint32_t index) const { return handles_[index]; }

  // Cleared to zeros; the caller may set start and maxCount before it asks.
  MemberQueryCounts counts = {};

 private:
  HOutline outline_;
  HMember* handles_ = nullptr;
};

}  // namespace kepotl
