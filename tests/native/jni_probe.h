// A JNIEnv that watches its user: calls of the JNI functions that the library may
// use are written to the journal and passed on; every other one is a fault. Strings and local
// references are followed until they are given back.
#pragma once

#include <jni.h>

#include <map>
#include <string>

// The environment to hand to a native method in place of the real one. For one
// thread and one call at a time.
class JniProbe : public JNIEnv_ {
 public:
  // `real` is the calling thread's environment; it does the work.
  explicit JniProbe(JNIEnv* real);
  JniProbe(const JniProbe&) = delete;
  JniProbe& operator=(const JniProbe&) = delete;

  // Ends the watch: notes what was not given back and what -Xcheck:jni
  // complained of as faults, and clears a pending exception.
  void finish();

  // Whether the virtual machine has memory for the characters of strings, and how many it has
  // refused for want of it.
  bool has_memory = true;
  int texts_lost = 0;

  // Calls so far of the functions that look classes and methods up and make objects.
  int find_class_calls = 0;
  int get_method_id_calls = 0;
  int new_object_calls = 0;

  // Java strings made and still referenced; meaningful until finish().
  int live_strings() const;
  // The pending exception that finish() cleared, as text; empty when there was
  // none.
  const std::string& exception() const { return exception_; }

 private:
  friend struct ProbeFunctions;

  struct Method {
    std::string name;
    std::string signature;
  };

  JNIEnv* real_;
  std::map<jmethodID, Method> methods_;
  std::map<const char*, jstring> chars_;  // held, and whose they are
  std::map<jobject, bool> references_;    // live local references made; whether it is a string made
  std::string exception_;
};
