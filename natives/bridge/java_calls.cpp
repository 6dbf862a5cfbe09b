// Calls of one method on one Java object: properties, collections, string buffers.
#include "bridge/bridge.h"
#include "bridge/jni_calls.h"
#include "bridge/scope.h"

namespace kepotl {
namespace {

// The method of the object's own class, or null. JNI does not allow the class of a null reference.
jmethodID find_method(JNIEnv* env, jobject object, const char* name, const char* signature) {
  if (object == nullptr || name == nullptr) return nullptr;
  jclass type = env->GetObjectClass(object);
  return type == nullptr ? nullptr : env->GetMethodID(type, name, signature);
}

}  // namespace
}  // namespace kepotl

using namespace kepotl;

jboolean CallBooleanGetProperty(JNIEnv* env, jobject object, const char* name) {
  jmethodID method = find_method(env, object, name, "()Z");
  return method == nullptr ? jboolean{JNI_FALSE} : call_boolean(env, object, method);
}

void CallBooleanSetProperty(JNIEnv* env, jobject object, const char* name, jboolean value) {
  jmethodID method = find_method(env, object, name, "(Z)V");
  if (method != nullptr) call_void(env, object, method, value);
}

jint CallIntegerGetProperty(JNIEnv* env, jobject object, const char* name) {
  jmethodID method = find_method(env, object, name, "()I");
  return method == nullptr ? 0 : call_int(env, object, method);
}

void CallIntegerSetProperty(JNIEnv* env, jobject object, const char* name, jint value) {
  jmethodID method = find_method(env, object, name, "(I)V");
  if (method != nullptr) call_void(env, object, method, value);
}

void CallLongSetProperty(JNIEnv* env, jobject object, const char* name, jlong value) {
  jmethodID method = find_method(env, object, name, "(J)V");
  if (method != nullptr) call_void(env, object, method, value);
}

jshort CallShortGetProperty(JNIEnv* env, jobject object, const char* name) {
  jmethodID method = find_method(env, object, name, "()S");
  return method == nullptr ? jshort{0} : call_short(env, object, method);
}

void CallShortSetProperty(JNIEnv* env, jobject object, const char* name, jshort value) {
  jmethodID method = find_method(env, object, name, "(S)V");
  if (method != nullptr) call_void(env, object, method, value);
}

jstring CallStringGetProperty(JNIEnv* env, jobject object, const char* name) {
  jmethodID method = find_method(env, object, name, "()Ljava/lang/String;");
  return method == nullptr ? nullptr : static_cast<jstring>(call_object(env, object, method));
}

void CallStringSetProperty(int context, JNIEnv* env, jobject object, const char* name,
                           const char* text) {
  if (text == nullptr) return;
  jmethodID method = find_method(env, object, name, "(Ljava/lang/String;)V");
  if (method == nullptr) return;
  LocalRef string(env, NewStringUTFfromAPI(context, env, text));
  call_void(env, object, method, string.get());
}

void CallObjectSetProperty(JNIEnv* env, jobject object, const char* name, const char* signature,
                           jobject value) {
  if (value == nullptr) return;
  jmethodID method = find_method(env, object, name, signature);
  if (method != nullptr) call_void(env, object, method, value);
}

void CallSingleArgumentObjectMethod(JNIEnv* env, jobject object, const char* name,
                                    jobject argument) {
  jmethodID method = find_method(env, object, name, "(Ljava/lang/Object;)V");
  if (method != nullptr) call_void(env, object, method, argument);
}

void CallStringBufferAppend(JNIEnv* env, jobject buffer, const char* text) {
  TextContext context;
  jmethodID method =
      find_method(env, buffer, "append", "(Ljava/lang/String;)Ljava/lang/StringBuffer;");
  if (method == nullptr || text == nullptr) return;
  LocalRef string(env, env->NewStringUTF(getUTFCharsFromAPIChars(context, text)));
  call_object(env, buffer, method, string.get());
}

jboolean CallCollectionAddObject(JNIEnv* env, jobject collection, jobject item) {
  jmethodID method = find_method(env, collection, "add", "(Ljava/lang/Object;)Z");
  return method == nullptr ? jboolean{JNI_FALSE} : call_boolean(env, collection, method, item);
}

jboolean CallListAddObject(JNIEnv* env, jobject list, jobject item) {
  return CallCollectionAddObject(env, list, item);
}

jint CallListGetCount(JNIEnv* env, jobject list) {
  return CallIntegerGetProperty(env, list, "size");
}

jobject CallListGetObject(JNIEnv* env, jobject list, jint index) {
  jmethodID method = find_method(env, list, "get", "(I)Ljava/lang/Object;");
  return method == nullptr ? nullptr : call_object(env, list, method, index);
}
