// The light member object of the calculation-script editor.
#include "bridge/jni_calls.h"
#include "bridge/scope.h"

using namespace kepotl;

jobject CreateMemberInfoObject(JNIEnv* env, MemberInfoRecord* info, jstring parent) {
  if (info == nullptr) return nullptr;
  jclass type = env->FindClass("com/olvane/kep/olvane/defs/calcscript/MemberInfo");
  if (type == nullptr) return nullptr;
  jmethodID constructor =
      env->GetMethodID(type, MNAME_CONSTRUCTOR, "(Ljava/lang/String;Ljava/lang/String;IJZ)V");
  if (constructor == nullptr) return nullptr;
  TextContext context;
  LocalRef name(env, NewStringUTFfromAPI(context, env, info->name));
  const jint category = static_cast<uint16_t>(info->dimensionCategory);
  jobject object = new_object(env, type, constructor, name.get(), parent, category,
                              jlong{info->childCount}, jboolean{info->isAttributed});
  if (object == nullptr) return nullptr;
  if (info->dimensionCategory == kCategoryAttribute) {
    CallShortSetProperty(env, object, "setAttrDimDataType", info->attributeType);
  }
  CallShortSetProperty(env, object, "setGenValue", info->generation);
  if (info->generation == 1) CallShortSetProperty(env, object, "setStorage", info->storageType);
  return object;
}
