// Finds members, and names the queries that ask for them.
#include "browse/browse.h"

namespace kepotl {

AttributeQuery attribute_query(HMember member, bool is_dimension) {
  AttributeQuery query = {};
  query.usage = kAttributeQueryUsage;
  query.member = member;
  query.inputType = is_dimension ? kAttributeQueryDimensionInput : kAttributeQueryMemberInput;
  query.outputType = is_dimension ? kAttributeQueryDimensionOutput : kAttributeQueryMemberOutput;
  query.operation = kAttributeQueryOperation;
  return query;
}

int find_by_name(HOutline outline, const char* name, HMember* member) {
  *member = 0;
  const int status = OlvOtlFindMember(outline, name, member);
  if (status != kStatusOk) *member = 0;
  return status;
}

int find_by_handle_or_name(JNIEnv* env, int context, HOutline outline, jint handle, jstring name,
                           JavaText* text, HMember* member) {
  *member = static_cast<HMember>(handle);
  if (*member != 0) return kStatusOk;
  *text = JavaText(env, context, name);
  if (text->empty()) return kStatusOk;
  return find_by_name(outline, text->api(), member);
}

}  // namespace kepotl
