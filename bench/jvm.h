// The Java virtual machine inside a benchmark program, and the Java objects that the programs hand
// to the native methods.
#pragma once

#include <jni.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace bench {

// The one virtual machine of the process. Its heap has a fixed size, nearly all of it young and
// touched from the start, so that what is timed neither collects garbage nor grows the heap.
class Jvm {
 public:
  // Starts it with room for `young_bytes` of new objects, and with kepotl.jar and `class_path`
  // (may be empty) on its class path. Throws std::runtime_error.
  explicit Jvm(int64_t young_bytes, const std::string& class_path = "",
               const std::vector<std::string>& more_options = {});

  JNIEnv* env() const { return env_; }
  // One line: name, version and mode, and the heap.
  std::string description() const { return description_; }

  // CPU seconds of call(env) inside a frame of local references, like that of a native method
  // that Java calls; leaving the frame counts. Collects garbage beforehand if `bytes` of new
  // objects might not fit. Throws std::runtime_error for a pending Java exception.
  double time_call(int64_t bytes, const std::function<void(JNIEnv*)>& call) const;

  // The same untimed.
  void call(const std::function<void(JNIEnv*)>& work) const;

  // Throws std::runtime_error when a Java exception is pending.
  void check(const char* what) const;

  // ---- Java objects: local references ----

  // An object of a class by the constructor of `signature`.
  template <typename... Arguments>
  jobject make(const char* class_name, const char* signature, Arguments... arguments) const {
    jclass type = env_->FindClass(class_name);
    check(class_name);
    jmethodID constructor = env_->GetMethodID(type, "<init>", signature);
    check(class_name);
    jobject object = env_->NewObject(type, constructor, arguments...);
    check(class_name);
    env_->DeleteLocalRef(type);
    return object;
  }
  // Calls a method that returns nothing.
  template <typename... Arguments>
  void set(jobject object, const char* name, const char* signature, Arguments... arguments) const {
    env_->CallVoidMethod(object, method(object, name, signature), arguments...);
    check(name);
  }
  jint get_int(jobject object, const char* name) const;
  bool get_boolean(jobject object, const char* name) const;
  jobject list() const { return make("java/util/ArrayList", "()V"); }
  jint list_size(jobject list) const { return get_int(list, "size"); }
  // Wrappers of handles; these outlive the frames.
  jobject instance_handle(jint value) const;
  jobject outline_handle(jint value) const;
  // A reference that outlives the frames; never given back.
  jobject keep(jobject local) const;

 private:
  jmethodID method(jobject object, const char* name, const char* signature) const;
  void make_room(int64_t bytes) const;

  JNIEnv* env_ = nullptr;
  int64_t old_bytes_;
  std::string description_;
  jclass runtime_class_ = nullptr;
  jobject runtime_ = nullptr;
};

// Makes objects of one class by the constructor without arguments, looked up once.
class Maker {
 public:
  Maker(const Jvm& jvm, const char* class_name);
  jobject operator()(JNIEnv* env) const { return env->NewObject(type_, constructor_); }

 private:
  jclass type_;
  jmethodID constructor_;
};

// Throws std::runtime_error that names the call unless `status` is 0.
void require(int status, const char* call);

}  // namespace bench
