// The Java objects of test cases.
#include "tests/native/java_objects.h"

#include <cstdio>
#include <cstdlib>

namespace {
const std::string kPackage = "com/olvane/kep/olvane/";
}

void JavaObjects::expect_no_exception(const char* what) {
  if (!env_->ExceptionCheck()) return;
  env_->ExceptionDescribe();
  std::fprintf(stderr, "A test's own Java call failed: %s\n", what);
  std::abort();
}

jclass JavaObjects::type(const std::string& name) {
  jclass found = env_->FindClass(name.c_str());
  expect_no_exception(name.c_str());
  return found;
}

jmethodID JavaObjects::method(jobject object, const char* name, const char* signature) {
  jmethodID found = env_->GetMethodID(env_->GetObjectClass(object), name, signature);
  expect_no_exception(name);
  return found;
}

jobject JavaObjects::instance(INST value) {
  return construct(kPackage + "api/InstanceHandle", "(I)V", static_cast<jint>(value));
}

jobject JavaObjects::context(HCTX value) {
  return construct(kPackage + "api/ContextHandle", "(I)V", static_cast<jint>(value));
}

jobject JavaObjects::outline(HOutline value) {
  jobject wrapper = make("api/OutlineHandle");
  set(wrapper, "setValue", "(I)V", static_cast<jint>(value));
  return wrapper;
}

jstring JavaObjects::text(const char* utf) {
  return utf == nullptr ? nullptr : env_->NewStringUTF(utf);
}

jobject JavaObjects::list() {
  return construct("java/util/ArrayList", "()V");
}

jobject JavaObjects::list(std::initializer_list<jobject> items) {
  jobject result = list();
  jmethodID add = method(result, "add", "(Ljava/lang/Object;)Z");
  for (jobject item : items) {
    env_->CallBooleanMethod(result, add, item);
    expect_no_exception("add");
  }
  return result;
}

jobject JavaObjects::buffer(const char* utf) {
  return construct("java/lang/StringBuffer", "(Ljava/lang/String;)V", text(utf));
}

jobject JavaObjects::request(jint handle) {
  return construct(kPackage + "api/outline/MemberRequest", "(I)V", handle);
}

jobject JavaObjects::request(const char* name) {
  return construct(kPackage + "api/outline/MemberRequest", "(Ljava/lang/String;)V", text(name));
}

jobject JavaObjects::make(const char* class_name) {
  jobject object = construct(kPackage + class_name, "()V");
  expect_no_exception(class_name);
  return object;
}

jobject JavaObjects::code(const char* class_name, jshort value) {
  jobject object = make((std::string("defs/outline/") + class_name).c_str());
  set(object, "setValue", "(S)V", value);
  return object;
}

jint JavaObjects::number(jobject object, const char* getter) {
  const jint value = env_->CallIntMethod(object, method(object, getter, "()I"));
  expect_no_exception(getter);
  return value;
}

std::string JavaObjects::string(jobject object, const char* getter) {
  auto result = static_cast<jstring>(
      env_->CallObjectMethod(object, method(object, getter, "()Ljava/lang/String;")));
  expect_no_exception(getter);
  if (result == nullptr) return "null";
  const char* chars = env_->GetStringUTFChars(result, nullptr);
  std::string text = chars;
  env_->ReleaseStringUTFChars(result, chars);
  return text;
}

std::string JavaObjects::elements(jobject list) {
  return string(list, "toString");
}

bool JavaObjects::is(jobject object, const char* class_name) {
  return object != nullptr && env_->IsInstanceOf(object, type(kPackage + class_name));
}
