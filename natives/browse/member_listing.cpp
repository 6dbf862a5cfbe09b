// Listings of dimensions and children as DefaultMember objects, by walk and by query.
#include "bridge/native.h"
#include "browse/member_methods.h"

namespace kepotl {
namespace {

// Adds a member object for each sibling from what the first step gave, with the class and its
// setters looked up once for all.
int list_siblings(const Frame& frame, GivenHandle first, MemberInfoIDStruct* ids,
                  jobject collection) {
  return walk_siblings(frame.outline, first, [&](HMember member) {
    jobject object = CreateMemberObjectEx(frame.env, frame.outline, member, ids);
    if (object != nullptr) CallCollectionAddObject(frame.env, collection, object);
  });
}

// Adds a member object without a handle for every member of a query.
void list_without_handles(const Frame& frame, const HandleArray& members, jobject collection) {
  for (uint32_t i = 0; i < members.size(); ++i) {
    jobject object = CreateMemberObject(frame.env, frame.outline, members[i]);
    if (object == nullptr) continue;
    CallIntegerSetProperty(frame.env, object, "setHandle", 0);
    CallCollectionAddObject(frame.env, collection, object);
  }
}

}  // namespace
}  // namespace kepotl

using namespace kepotl;

KEPOTL_NATIVE(jint, getDimensionsEx)
(JNIEnv* env, jclass, jobject /*inst*/, jobject joutline, jobject collection) {
  TextContext text;
  const Frame frame = {env, text, kNoInstance, RetrieveHOutline(env, joutline)};
  if (frame.outline == 0) return kStatusOk;
  MemberInfoIDStruct ids;
  populateMemberInfoIDStruct(env, &ids);
  return list_siblings(frame, ask_handle(OlvOtlGetFirstMember, frame.outline), &ids, collection);
}

KEPOTL_NATIVE(jint, getChildrenEx)
(JNIEnv* env, jclass, jobject /*inst*/, jobject joutline, jstring jname, jint handle,
 jobject collection) {
  return on_member(env, nullptr, joutline, jname, handle, [&](const Frame& frame, HMember parent) {
    MemberInfoIDStruct ids;
    populateMemberInfoIDStruct(env, &ids);
    return list_siblings(frame, ask_handle(OlvOtlGetChild, frame.outline, parent), &ids,
                         collection);
  });
}

KEPOTL_NATIVE(jint, getDimensionsExQuery)
(JNIEnv* env, jclass, jobject joutline, jobject collection) {
  TextContext text;
  const Frame frame = {env, text, kNoInstance, RetrieveHOutline(env, joutline)};
  if (frame.outline == 0) return kStatusOk;
  HandleArray members(frame.outline);
  const int status = members.query(0, children_query());
  list_without_handles(frame, members, collection);
  return status;
}

KEPOTL_NATIVE(jint, getChildrenExQuery)
(JNIEnv* env, jclass, jobject joutline, jstring jdimension, jstring jname, jobject collection) {
  TextContext text;
  JavaText dimension(env, text, jdimension);
  JavaText name(env, text, jname);
  const Frame frame = {env, text, kNoInstance, RetrieveHOutline(env, joutline)};
  if (frame.outline == 0) return kStatusOk;
  if (any_lost(dimension, name)) return kStatusRefused;
  HandleArray members(frame.outline);
  const int status = members.query_by_name(name.api(), children_query(dimension.api()));
  list_without_handles(frame, members, collection);
  return status;
}
