// The JNI functions with a variable argument list, called through their own slots of the function
// table. Together with the plain ones (FindClass, GetObjectClass, GetMethodID, NewStringUTF,
// GetStringUTFChars, ReleaseStringUTFChars, DeleteLocalRef) these are all that the library uses.
#pragma once

#include <jni.h>

namespace kepotl {

// Each takes the arguments that the method's signature asks for, with their exact JNI types.

template <typename... Arguments>
jobject new_object(JNIEnv* env, jclass type, jmethodID constructor, Arguments... arguments) {
  return env->functions->NewObject(env, type, constructor, arguments...);
}

template <typename... Arguments>
jobject call_object(JNIEnv* env, jobject receiver, jmethodID method, Arguments... arguments) {
  return env->functions->CallObjectMethod(env, receiver, method, arguments...);
}

template <typename... Arguments>
jboolean call_boolean(JNIEnv* env, jobject receiver, jmethodID method, Arguments... arguments) {
  return env->functions->CallBooleanMethod(env, receiver, method, arguments...);
}

template <typename... Arguments>
jshort call_short(JNIEnv* env, jobject receiver, jmethodID method, Arguments... arguments) {
  return env->functions->CallShortMethod(env, receiver, method, arguments...);
}

template <typename... Arguments>
jint call_int(JNIEnv* env, jobject receiver, jmethodID method, Arguments... arguments) {
  return env->functions->CallIntMethod(env, receiver, method, arguments...);
}

template <typename... Arguments>
void call_void(JNIEnv* env, jobject receiver, jmethodID method, Arguments... arguments) {
  env->functions->CallVoidMethod(env, receiver, method, arguments...);
}

}  // namespace kepotl
