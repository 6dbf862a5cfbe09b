// Aliases of members: in every alias table of the outline, or of many members in one table.
#include "bridge/native.h"
#include "browse/requests.h"

namespace kepotl {
namespace {

// New MemberAlias of one member in one table (null: the default table, which then stays unnamed).
// The alias call's status goes to `*status`.
jobject create_alias(JNIEnv* env, int context, INST inst, HOutline outline, HMember member,
                     const char* table, int* status) {
  jobject object = CreateSimpleObject(env, CNAME_MEMBER_ALIAS);
  CallStringSetProperty(context, env, object, "setTableName", table);
  *status = give_alias(inst, outline, member, table, [&](const char* alias) {
    CallStringSetProperty(context, env, object, "setAliasName", alias);
  });
  return object;
}

// Calls give(object) with a MemberAlias for each table of `info`, in order, also where the member
// has no alias. The last alias call's status, or `status` when there is no table.
template <typename Give>
int give_all_aliases(JNIEnv* env, int context, INST inst, HOutline outline, HMember member,
                     const OutlineInfoRecord* info, int status, Give give) {
  for (uint16_t i = 0; i < info->aliasTableCount; ++i) {
    jobject alias =
        create_alias(env, context, inst, outline, member, alias_table_name(info, i), &status);
    if (alias != nullptr) give(alias);
  }
  return status;
}

int list_all_aliases(JNIEnv* env, int context, INST inst, HOutline outline, HMember member,
                     jobject collection) {
  ApiBlock<OutlineInfoRecord> info(inst);
  const int status = OlvOtlGetOutlineInfo(outline, info.out());
  if (status != kStatusOk || !info) return status;
  return give_all_aliases(env, context, inst, outline, member, info.get(), status,
                          [&](jobject alias) { CallCollectionAddObject(env, collection, alias); });
}

}  // namespace
}  // namespace kepotl

using namespace kepotl;

KEPOTL_NATIVE(jint, getMemberAliases)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jint handle, jobject collection) {
  TextContext text;
  const INST inst = RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0 || handle == 0) return kStatusOk;
  return list_all_aliases(env, text, inst, outline, static_cast<HMember>(handle), collection);
}

KEPOTL_NATIVE(jint, getMemberAliasesQuery)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jstring jname, jobject collection) {
  TextContext text;
  JavaText name(env, text, jname);
  const INST inst = RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusOk;
  HandleArray members(outline);
  const int status = find_by_query(name, &members);
  if (status != kStatusOk || members.size() == 0) return status;
  return list_all_aliases(env, text, inst, outline, members[0], collection);
}

KEPOTL_NATIVE(jint, getMemberAliasesBlock)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jobject requests, jobject results) {
  TextContext text;
  const INST inst = RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusOk;
  ApiBlock<OutlineInfoRecord> info(inst);
  const int read = OlvOtlGetOutlineInfo(outline, info.out());
  if (read != kStatusOk || !info || info->aliasTableCount == 0) return read;
  return for_each_request(
      env, text, outline, requests, [&](HMember member, const JavaText& name, int& status) {
        jobject result = create_request_result(env, text, member, name);
        if (result == nullptr) return;
        status = give_all_aliases(env, text, inst, outline, member, info.get(), status,
                                  [&](jobject alias) { add_data(env, result, alias); });
        CallCollectionAddObject(env, results, result);
      });
}

KEPOTL_NATIVE(jint, getMemberAliasesForTable)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jstring jtable, jobject names,
 jobject collection, jboolean no_table) {
  TextContext text;
  JavaText table;
  if (!no_table) table = JavaText(env, text, jtable);
  const INST inst = RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusOk;
  const char* table_name = table.is_null() ? nullptr : table.api();
  int status = kStatusOk;
  const jint count = CallListGetCount(env, names);
  for (jint i = 0; i < count; ++i) {
    jobject item = CallListGetObject(env, names, i);
    JavaText name(env, text, CallStringGetProperty(env, item, "toString"));
    if (name.empty()) continue;
    HMember member = 0;
    status = find_by_name(outline, name.api(), &member);
    if (member == 0) continue;
    jobject alias = create_alias(env, text, inst, outline, member, table_name, &status);
    if (alias != nullptr) CallCollectionAddObject(env, collection, alias);
  }
  return status;
}
