// Attribute members that are associated with members.
#include "bridge/native.h"
#include "browse/member_methods.h"

namespace kepotl {
namespace {

// Calls give(object) with a MemberAttribute for each attribute member associated with `member`.
// One whose record cannot be read is left out. The association list's status.
template <typename Give>
int give_attributes(const Frame& frame, HMember member, Give give) {
  ApiArray<HMember, uint16_t> attributes(frame.inst);
  const int status = attributes.take(OlvOtlGetAssociatedAttributes, frame.outline, member);
  for (HMember attribute : attributes) {
    MemberRecord record(frame.outline);
    record.read(attribute);
    if (!record) continue;
    jobject object = CreateSimpleObject(frame.env, CNAME_MEMBER_ATTRIBUTE);
    if (object == nullptr) continue;
    CallStringSetProperty(frame.text, frame.env, object, "setDimension", record->dimensionName);
    CallStringSetProperty(frame.text, frame.env, object, "setMemberName", record->name);
    give(object);
  }
  return status;
}

}  // namespace
}  // namespace kepotl

using namespace kepotl;

KEPOTL_NATIVE(jint, getMemberAttributes)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jint handle, jobject collection) {
  return on_member(env, jinst, joutline, nullptr, handle, [&](const Frame& frame, HMember member) {
    MemberRecord record(frame.outline);
    const int status = record.read(member);
    if (!record || record->isAttributed == 0) return status;
    return give_attributes(frame, member, [&](jobject attribute) {
      CallCollectionAddObject(env, collection, attribute);
    });
  });
}

KEPOTL_NATIVE(jint, getMemberAttributesQuery)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jstring jname) {
  return on_queried_member(env, jinst, joutline, jname, [&](const Frame& frame, HMember member) {
    MemberRecord record(frame.outline);
    const int status = record.read(member);
    if (!record || record->isAttributed == 0) return status;
    // Only the status is wanted: it tells whether the attributes can be read.
    HandleArray attributes(frame.outline);
    return attributes.query_attributes(attribute_query(member, record->generation == 1));
  });
}

KEPOTL_NATIVE(jint, getMemberAttributesBlock)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jobject requests, jobject results) {
  TextContext text;
  const Frame frame = {env, text, RetrieveINST(env, jinst), RetrieveHOutline(env, joutline)};
  if (frame.outline == 0) return kStatusOk;
  return answer_requests(frame, requests, results, [&](HMember member, RequestResult& result, int) {
    MemberRecord record(frame.outline);
    const int status = record.read(member);
    if (!record || record->isAttributed == 0 || !result.make()) return status;
    return give_attributes(frame, member, [&](jobject attribute) { result.add(attribute); });
  });
}
