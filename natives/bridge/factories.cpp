// Makes the simple Java objects that results are handed over in.
#include "bridge/bridge.h"
#include "bridge/jni_calls.h"
#include "bridge/scope.h"

namespace kepotl {
namespace {

// New object by the one-argument constructor of `signature`, or null.
template <typename Value>
jobject construct(JNIEnv* env, const char* class_name, const char* signature, Value value) {
  jclass type = env->FindClass(class_name);
  if (type == nullptr) return nullptr;
  jmethodID constructor = env->GetMethodID(type, MNAME_CONSTRUCTOR, signature);
  return constructor == nullptr ? nullptr : new_object(env, type, constructor, value);
}

}  // namespace
}  // namespace kepotl

using namespace kepotl;

jobject CreateSimpleObject(JNIEnv* env, const char* class_name) {
  if (class_name == nullptr) return nullptr;
  jclass type = env->FindClass(class_name);
  if (type == nullptr) return nullptr;
  jmethodID constructor = env->GetMethodID(type, MNAME_CONSTRUCTOR, PTYPE_CONSTRUCTOR);
  return constructor == nullptr ? nullptr : new_object(env, type, constructor);
}

jstring NewStringUTFfromAPI(int context, JNIEnv* env, const char* text) {
  if (text == nullptr) return nullptr;
  const bool own = context == 0;
  if (own) context = LoInitialize();
  jstring string = env->NewStringUTF(getUTFCharsFromAPIChars(context, text));
  if (own) LoUninitialize(context);
  return string;
}

jstring CreateStringObject(JNIEnv* env, const char* text) {
  TextContext context;
  return NewStringUTFfromAPI(context, env, text);
}

jobject CreateShortObject(JNIEnv* env, const char* class_name, jshort value) {
  jobject object = CreateSimpleObject(env, class_name);
  if (object != nullptr) CallShortSetProperty(env, object, "setValue", value);
  return object;
}

jobject CreateLongObject(JNIEnv* env, const char* class_name, uint32_t value) {
  jobject object = CreateSimpleObject(env, class_name);
  if (object != nullptr) CallLongSetProperty(env, object, "setValue", jlong{value});
  return object;
}

jobject CreateJavaShort(JNIEnv* env, jshort value) {
  return construct(env, "java/lang/Short", "(S)V", value);
}

jobject CreateJavaLong(JNIEnv* env, uint32_t value) {
  return construct(env, "java/lang/Long", "(J)V", jlong{value});
}
