// A member's ancestors, child count and level.
#include "bridge/native.h"
#include "browse/member_methods.h"

namespace kepotl {
namespace {

// Adds to the collection what create(record) makes of a member's record.
template <typename Create>
int add_of_record(const Frame& frame, HMember member, jobject collection, Create create) {
  MemberRecord record(frame.outline);
  const int status = record.read(member);
  if (!record) return status;
  jobject object = create(*record);
  if (object != nullptr) CallCollectionAddObject(frame.env, collection, object);
  return status;
}

int list_ancestors(const Frame& frame, HMember member, jobject collection) {
  for (;;) {
    const GivenHandle parent = ask_handle(OlvOtlGetParent, frame.outline, member);
    if (parent.handle == 0) return parent.status;
    member = parent.handle;
    jobject object = CreateMemberObject(frame.env, frame.outline, member);
    if (object != nullptr) CallCollectionAddObject(frame.env, collection, object);
  }
}

}  // namespace
}  // namespace kepotl

using namespace kepotl;

KEPOTL_NATIVE(jint, getMemberAncestors)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jstring jname, jint handle,
 jobject collection) {
  return on_member(env, jinst, joutline, jname, handle, [&](const Frame& frame, HMember member) {
    return list_ancestors(frame, member, collection);
  });
}

KEPOTL_NATIVE(jint, getMemberChildCount)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jstring jname, jint handle,
 jobject collection) {
  return on_member(env, jinst, joutline, jname, handle, [&](const Frame& frame, HMember member) {
    return add_of_record(frame, member, collection, [&](const MemberInfoRecord& info) {
      return CreateJavaLong(env, info.childCount);
    });
  });
}

KEPOTL_NATIVE(jint, getMemberLevel)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jstring jname, jint handle,
 jobject collection) {
  return on_member(env, jinst, joutline, jname, handle, [&](const Frame& frame, HMember member) {
    return add_of_record(frame, member, collection, [&](const MemberInfoRecord& info) {
      return CreateJavaShort(env, info.level);
    });
  });
}
