// Changes the shape of an outline: creates, renames, moves, deletes and sorts members.
#include "bridge/native.h"
#include "bridge/scope.h"
#include "edit/edit.h"

using namespace kepotl;

KEPOTL_NATIVE(jint, createMember)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jint jparent, jint jsibling, jstring jname,
 jobject collection) {
  TextContext text;
  RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusOk;
  JavaText name(env, text, jname);
  if (name.lost()) return kStatusRefused;
  if (name.empty()) return kStatusOk;
  if (std::strlen(name.api()) > kMaxMemberName) return kStatusRefused;
  const Place place = {static_cast<HMember>(jparent), static_cast<HMember>(jsibling)};
  const GivenHandle added = add_with_defaults(outline, place, name.api());
  if (added.handle != 0) {
    jobject member = CreateMemberObject(env, outline, added.handle);
    if (member != nullptr) CallCollectionAddObject(env, collection, member);
  }
  return added.status;
}

KEPOTL_NATIVE(jint, renameMember)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jint handle, jstring jname) {
  TextContext text;
  JavaText name(env, text, jname);
  RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0 || handle == 0) return kStatusOk;
  if (name.lost()) return kStatusRefused;
  if (name.empty()) return kStatusOk;
  return OlvOtlRenameMemberEx(outline, static_cast<HMember>(handle), name.api(), kMemberOption);
}

KEPOTL_NATIVE(jint, moveMember)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jint jreference, jint handle,
 jboolean reference_is_sibling) {
  TextContext text;
  RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0 || handle == 0) return kStatusOk;
  const HMember reference = static_cast<HMember>(jreference);
  const HMember parent = reference_is_sibling ? 0 : reference;
  const HMember previous = reference_is_sibling ? reference : 0;
  return OlvOtlMoveMember(outline, static_cast<HMember>(handle), parent, previous);
}

KEPOTL_NATIVE(jint, deleteMember)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jint handle) {
  TextContext text;
  RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0 || handle == 0) return kStatusOk;
  return OlvOtlDeleteMemberEx(outline, static_cast<HMember>(handle), kMemberOption);
}

KEPOTL_NATIVE(jint, sortChildren)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jint jparent, jboolean ascending) {
  TextContext text;
  RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0 || jparent == 0) return kStatusOk;
  return OlvOtlSortChildren(outline, static_cast<HMember>(jparent),
                            ascending ? kSortAscending : kSortDescending, 0, 0);
}
