// Reads the API handles that Java keeps in wrapper objects.
#include "bridge/bridge.h"
#include "bridge/jni_calls.h"

namespace kepotl {
namespace {

uint32_t wrapped_value(JNIEnv* env, jobject wrapper) {
  return static_cast<uint32_t>(CallIntegerGetProperty(env, wrapper, "getValue"));
}

}  // namespace
}  // namespace kepotl

using namespace kepotl;

INST RetrieveINST(JNIEnv* env, jobject wrapper) {
  return wrapped_value(env, wrapper);
}

HCTX RetrieveHCTX(JNIEnv* env, jobject wrapper) {
  return wrapped_value(env, wrapper);
}

HOutline RetrieveHOutline(JNIEnv* env, jobject wrapper) {
  return wrapped_value(env, wrapper);
}
