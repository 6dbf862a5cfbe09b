// Attribute members that are associated with members.
#include "bridge/native.h"
#include "browse/requests.h"

namespace kepotl {
namespace {

// Calls give(object) with a MemberAttribute for each attribute member associated with `member`.
// One whose record cannot be read is left out. The association list's status.
template <typename Give>
int give_attributes(JNIEnv* env, int context, INST inst, HOutline outline, HMember member,
                    Give give) {
  uint16_t count = 0;
  ApiBlock<HMember> attributes(inst);
  const int status = OlvOtlGetAssociatedAttributes(outline, member, &count, attributes.out());
  if (status != kStatusOk || !attributes) return status;
  for (uint16_t i = 0; i < count; ++i) {
    MemberRecord record(outline);
    if (record.read(attributes[i]) != kStatusOk) continue;
    jobject attribute = CreateSimpleObject(env, CNAME_MEMBER_ATTRIBUTE);
    if (attribute == nullptr) continue;
    CallStringSetProperty(context, env, attribute, "setDimension", record->dimensionName);
    CallStringSetProperty(context, env, attribute, "setMemberName", record->name);
    give(attribute);
  }
  return status;
}

}  // namespace
}  // namespace kepotl

using namespace kepotl;

KEPOTL_NATIVE(jint, getMemberAttributes)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jint handle, jobject collection) {
  TextContext text;
  const INST inst = RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0 || handle == 0) return kStatusOk;
  const HMember member = static_cast<HMember>(handle);
  MemberRecord record(outline);
  const int status = record.read(member);
  if (status != kStatusOk || record->isAttributed == 0) return status;
  return give_attributes(env, text, inst, outline, member, [&](jobject attribute) {
    CallCollectionAddObject(env, collection, attribute);
  });
}

KEPOTL_NATIVE(jint, getMemberAttributesQuery)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jstring jname) {
  TextContext text;
  JavaText name(env, text, jname);
  RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusOk;
  HandleArray members(outline);
  int status = find_by_query(name, &members);
  if (status != kStatusOk || members.size() == 0) return status;
  MemberRecord record(outline);
  status = record.read(members[0]);
  if (status != kStatusOk || record->isAttributed == 0) return status;
  // Only the status is wanted: it tells whether the attributes can be read.
  HandleArray attributes(outline);
  return attributes.query_attributes(attribute_query(members[0], record->generation == 1));
}

KEPOTL_NATIVE(jint, getMemberAttributesBlock)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jobject requests, jobject results) {
  TextContext text;
  const INST inst = RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusOk;
  return for_each_request(
      env, text, outline, requests, [&](HMember member, const JavaText& name, int& status) {
        MemberRecord record(outline);
        status = record.read(member);
        if (status != kStatusOk || record->isAttributed == 0) return;
        jobject result = create_request_result(env, text, member, name);
        if (result == nullptr) return;
        status = give_attributes(env, text, inst, outline, member,
                                 [&](jobject attribute) { add_data(env, result, attribute); });
        CallCollectionAddObject(env, results, result);
      });
}
