// Listings of dimensions and children as DefaultMember objects, by walk and by query.
#include "bridge/native.h"
#include "browse/browse.h"

namespace kepotl {
namespace {

// Adds a member object for `member` and its siblings, with the class and its setters looked up
// once for all.
int list_siblings(JNIEnv* env, HOutline outline, int status, HMember member,
                  MemberInfoIDStruct* ids, jobject collection) {
  return walk_siblings(outline, status, member, [&](HMember current) {
    jobject object = CreateMemberObjectEx(env, outline, current, ids);
    if (object != nullptr) CallCollectionAddObject(env, collection, object);
  });
}

// Adds a member object without a handle for every member of a query.
void list_without_handles(JNIEnv* env, HOutline outline, const HandleArray& members,
                          jobject collection) {
  for (uint32_t i = 0; i < members.size(); ++i) {
    jobject object = CreateMemberObject(env, outline, members[i]);
    if (object == nullptr) continue;
    CallIntegerSetProperty(env, object, "setHandle", 0);
    CallCollectionAddObject(env, collection, object);
  }
}

}  // namespace
}  // namespace kepotl

using namespace kepotl;

KEPOTL_NATIVE(jint, getDimensionsEx)
(JNIEnv* env, jclass, jobject /*inst*/, jobject joutline, jobject collection) {
  TextContext text;
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusOk;
  MemberInfoIDStruct ids;
  populateMemberInfoIDStruct(env, &ids);
  HMember first = 0;
  const int status = OlvOtlGetFirstMember(outline, &first);
  return list_siblings(env, outline, status, first, &ids, collection);
}

KEPOTL_NATIVE(jint, getChildrenEx)
(JNIEnv* env, jclass, jobject /*inst*/, jobject joutline, jstring jname, jint handle,
 jobject collection) {
  TextContext text;
  JavaText name;
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusOk;
  HMember parent = 0;
  int status = find_by_handle_or_name(env, text, outline, handle, jname, &name, &parent);
  if (status != kStatusOk || parent == 0) return status;
  MemberInfoIDStruct ids;
  populateMemberInfoIDStruct(env, &ids);
  HMember child = 0;
  status = OlvOtlGetChild(outline, parent, &child);
  return list_siblings(env, outline, status, child, &ids, collection);
}

KEPOTL_NATIVE(jint, getDimensionsExQuery)
(JNIEnv* env, jclass, jobject joutline, jobject collection) {
  TextContext text;
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusOk;
  HandleArray members(outline);
  const int status = members.query(0, children_query());
  if (status == kStatusOk) list_without_handles(env, outline, members, collection);
  return status;
}

KEPOTL_NATIVE(jint, getChildrenExQuery)
(JNIEnv* env, jclass, jobject joutline, jstring jdimension, jstring jname, jobject collection) {
  TextContext text;
  JavaText dimension(env, text, jdimension);
  JavaText name(env, text, jname);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusOk;
  HandleArray members(outline);
  const int status = members.query_by_name(name.api(), children_query(dimension.api()));
  if (status == kStatusOk) list_without_handles(env, outline, members, collection);
  return status;
}
