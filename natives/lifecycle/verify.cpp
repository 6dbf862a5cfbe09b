// Verifies an edited outline and hands the errors to Java as objects.
#include "bridge/native.h"
#include "bridge/scope.h"

using namespace kepotl;

KEPOTL_NATIVE(jint, verifyOutlineEdit)
(JNIEnv* env, jclass, jobject jinst, jobject /*unread*/, jobject joutline, jobject errors) {
  TextContext text;
  const INST inst = RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusOk;

  uint32_t global = 0;
  ApiArray<MemberErrorEntry, uint32_t> entries(inst);
  const int status = entries.take(OlvOtlVerifyOutline, outline, &global);
  if (status != kStatusOk) return status;
  if (global != 0) {
    jobject error = CreateLongObject(env, CNAME_GLOBAL_ERROR, global);
    if (error != nullptr) CallCollectionAddObject(env, errors, error);
  }
  for (uint32_t i = 0; i < entries.size(); ++i) {
    jobject error = CreateMemberError(env, outline, entries.begin() + i);
    if (error != nullptr) CallCollectionAddObject(env, errors, error);
  }
  return status;
}

jobject CreateMemberError(JNIEnv* env, HOutline outline, MemberErrorEntry* entry) {
  if (entry == nullptr || entry->member == 0) return nullptr;
  jobject error = CreateSimpleObject(env, CNAME_MEMBER_ERROR);
  if (error == nullptr) return nullptr;
  TextContext text;
  {
    MemberRecord record(outline);
    if (record.read(entry->member) == kStatusOk) {
      if (record) CallStringSetProperty(text, env, error, "setName", record->name);
      CallIntegerSetProperty(env, error, "setHandle", static_cast<jint>(entry->member));
    }
  }
  CallLongSetProperty(env, error, "setErrorPortion", jlong{entry->errorPortion});
  CallLongSetProperty(env, error, "setExtendedPortion", jlong{entry->extendedPortion});
  return error;
}
