// A JNIEnv that watches its user: the JNI functions that the library may use
// are counted, written to the journal and passed on; every other one is a fault
// that names it. Strings and local references are followed until they are given
// back.
#pragma once

#include <jni.h>

#include <map>
#include <string>
#include <vector>

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

  // Whether the virtual machine has memory for the characters of strings.
  bool has_memory = true;

  // Number of calls of an allowed function, by its name without the V of a
  // va_list variant.
  int count(const std::string& function) const;
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
  struct Chars {
    const char* chars;
    jstring string;
  };

  JNIEnv* real_;
  std::map<std::string, int> counts_;
  std::map<jmethodID, Method> methods_;
  std::vector<Chars> chars_;
  std::map<jobject, bool> references_;  // live local references made; whether it is a string made
  std::string exception_;
};
