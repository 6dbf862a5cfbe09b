// A member's ancestors, child count and level.
#include "bridge/native.h"
#include "browse/browse.h"

namespace kepotl {
namespace {

// Adds to the collection what create(record) makes of the member's record.
template <typename Create>
jint add_of_record(JNIEnv* env, jobject jinst, jobject joutline, jstring jname, jint handle,
                   jobject collection, Create create) {
  TextContext text;
  JavaText name;
  RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusOk;
  HMember member = 0;
  int status = find_by_handle_or_name(env, text, outline, handle, jname, &name, &member);
  if (status != kStatusOk || member == 0) return status;
  MemberRecord record(outline);
  status = record.read(member);
  if (status != kStatusOk) return status;
  jobject object = create(*record);
  if (object != nullptr) CallCollectionAddObject(env, collection, object);
  return status;
}

}  // namespace
}  // namespace kepotl

using namespace kepotl;

KEPOTL_NATIVE(jint, getMemberAncestors)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jstring jname, jint handle,
 jobject collection) {
  TextContext text;
  JavaText name;
  RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusOk;
  HMember member = 0;
  int status = find_by_handle_or_name(env, text, outline, handle, jname, &name, &member);
  while (status == kStatusOk && member != 0) {
    HMember parent = 0;
    status = OlvOtlGetParent(outline, member, &parent);
    if (status != kStatusOk) break;
    member = parent;
    jobject object = CreateMemberObject(env, outline, member);
    if (object != nullptr) CallCollectionAddObject(env, collection, object);
  }
  return status;
}

KEPOTL_NATIVE(jint, getMemberChildCount)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jstring jname, jint handle,
 jobject collection) {
  return add_of_record(
      env, jinst, joutline, jname, handle, collection,
      [&](const MemberInfoRecord& info) { return CreateJavaLong(env, info.childCount); });
}

KEPOTL_NATIVE(jint, getMemberLevel)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jstring jname, jint handle,
 jobject collection) {
  return add_of_record(
      env, jinst, joutline, jname, handle, collection,
      [&](const MemberInfoRecord& info) { return CreateJavaShort(env, info.level); });
}
