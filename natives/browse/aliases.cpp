// Aliases of members: in every alias table of the outline, or of many members in one table.
#include "bridge/native.h"
#include "browse/member_methods.h"

namespace kepotl {
namespace {

// New MemberAlias of one member in one table (null: the default table, which then stays unnamed).
// The alias call's status goes to `*status`.
jobject create_alias(const Frame& frame, HMember member, const char* table, int* status) {
  jobject object = CreateSimpleObject(frame.env, CNAME_MEMBER_ALIAS);
  CallStringSetProperty(frame.text, frame.env, object, "setTableName", table);
  *status = give_alias(frame.inst, frame.outline, member, table, [&](const char* alias) {
    CallStringSetProperty(frame.text, frame.env, object, "setAliasName", alias);
  });
  return object;
}

// Calls give(object) with a MemberAlias for each table of `info`, in order, also where the member
// has no alias. The last alias call's status, or `status` when there is no table.
template <typename Give>
int give_all_aliases(const Frame& frame, HMember member, const OutlineInfoRecord* info, int status,
                     Give give) {
  for (uint16_t i = 0; i < info->aliasTableCount; ++i) {
    jobject alias = create_alias(frame, member, alias_table_name(info, i), &status);
    if (alias != nullptr) give(alias);
  }
  return status;
}

int list_all_aliases(const Frame& frame, HMember member, jobject collection) {
  ApiBlock<OutlineInfoRecord> info(frame.inst);
  const int status = info.take(OlvOtlGetOutlineInfo, frame.outline);
  if (!info) return status;
  return give_all_aliases(frame, member, info.get(), status, [&](jobject alias) {
    CallCollectionAddObject(frame.env, collection, alias);
  });
}

}  // namespace
}  // namespace kepotl

using namespace kepotl;

KEPOTL_NATIVE(jint, getMemberAliases)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jint handle, jobject collection) {
  return on_member(env, jinst, joutline, nullptr, handle, [&](const Frame& frame, HMember member) {
    return list_all_aliases(frame, member, collection);
  });
}

KEPOTL_NATIVE(jint, getMemberAliasesQuery)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jstring jname, jobject collection) {
  return on_queried_member(env, jinst, joutline, jname, [&](const Frame& frame, HMember member) {
    return list_all_aliases(frame, member, collection);
  });
}

KEPOTL_NATIVE(jint, getMemberAliasesBlock)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jobject requests, jobject results) {
  TextContext text;
  const Frame frame = {env, text, RetrieveINST(env, jinst), RetrieveHOutline(env, joutline)};
  if (frame.outline == 0) return kStatusOk;
  ApiBlock<OutlineInfoRecord> info(frame.inst);
  const int read = info.take(OlvOtlGetOutlineInfo, frame.outline);
  if (!info || info->aliasTableCount == 0) return read;
  return answer_requests(frame, requests, results,
                         [&](HMember member, RequestResult& result, int status) {
                           if (!result.make()) return status;
                           return give_all_aliases(frame, member, info.get(), status,
                                                   [&](jobject alias) { result.add(alias); });
                         });
}

KEPOTL_NATIVE(jint, getMemberAliasesForTable)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jstring jtable, jobject names,
 jobject collection, jboolean no_table) {
  TextContext text;
  JavaText table;
  if (!no_table) table = JavaText(env, text, jtable);
  const Frame frame = {env, text, RetrieveINST(env, jinst), RetrieveHOutline(env, joutline)};
  if (frame.outline == 0) return kStatusOk;
  if (table.lost()) return kStatusRefused;
  int status = kStatusOk;
  const jint count = CallListGetCount(env, names);
  for (jint i = 0; i < count; ++i) {
    jobject item = CallListGetObject(env, names, i);
    JavaText name(env, text, CallStringGetProperty(env, item, "toString"));
    if (name.lost()) return kStatusRefused;
    if (name.empty()) continue;
    const GivenHandle member = find_by_name(frame.outline, name.api());
    status = member.status;
    if (member.handle == 0) continue;
    jobject alias = create_alias(frame, member.handle, table.api_or_null(), &status);
    if (alias != nullptr) CallCollectionAddObject(env, collection, alias);
  }
  return status;
}
