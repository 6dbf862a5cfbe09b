// Makes and reads the Java objects of test cases, through the real JNI environment.
#pragma once

#include <jni.h>

#include <initializer_list>
#include <string>
#include <type_traits>

#include "tests/native/api_double.h"

class JavaObjects {
 public:
  explicit JavaObjects(JNIEnv* env) : env_(env) {}

  // Handle wrappers.
  jobject instance(INST value = kInst);
  jobject context(HCTX value = kContext);
  jobject outline(HOutline value = kOutline);

  // A handle of the sample outline as Java passes it, by member name.
  static jint handle(const char* name) { return static_cast<jint>(api().find(name)); }

  jstring text(const char* utf);  // null for null
  jobject list();
  jobject list(std::initializer_list<jobject> items);
  jobject buffer(const char* utf);  // a StringBuffer
  // A request of the Block methods.
  jobject request(jint handle);
  jobject request(const char* name);
  // An object by its no-argument constructor; `class_name` below com/olvane/kep/olvane/.
  jobject make(const char* class_name);
  // A value object that holds a code.
  jobject code(const char* class_name, jshort value);

  // An argument for a parameter of a native method: a text becomes a Java string, what makes
  // objects makes one, and anything else is converted as it is.
  template <typename Parameter, typename Value>
  Parameter argument(const Value& value) {
    if constexpr (std::is_invocable_v<Value, JavaObjects&>) {
      return static_cast<Parameter>(value(*this));
    } else if constexpr (std::is_same_v<Value, const char*>) {
      return text(value);
    } else if constexpr (std::is_same_v<Value, std::string>) {
      return text(value.c_str());
    } else {
      return static_cast<Parameter>(value);
    }
  }

  // The calls that tests make on their own objects.
  template <typename... Arguments>
  void set(jobject object, const char* name, const char* signature, Arguments... arguments) {
    env_->CallVoidMethod(object, method(object, name, signature), arguments...);
    expect_no_exception(name);
  }
  jint number(jobject object, const char* getter);
  std::string string(jobject object, const char* getter = "toString");
  // The elements of a list of strings, or of anything as toString tells.
  std::string elements(jobject list);
  bool is(jobject object, const char* class_name);

 private:
  jclass type(const std::string& name);
  jmethodID method(jobject object, const char* name, const char* signature);
  void expect_no_exception(const char* what);
  template <typename... Arguments>
  jobject construct(const std::string& name, const char* signature, Arguments... arguments) {
    jclass found = type(name);
    return env_->NewObject(found, env_->GetMethodID(found, "<init>", signature), arguments...);
  }

  JNIEnv* env_;
};
