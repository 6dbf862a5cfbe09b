// Dynamic time series: the enabled entries with their aliases, and the latest members.
#include <cstring>
#include <new>
#include <string>

#include "bridge/jni_calls.h"
#include "bridge/native.h"
#include "browse/browse.h"

namespace kepotl {
namespace {

using Entries = ApiArray<DtsEntry, uint16_t>;

// Disables the entries of a name, so that it can be enabled on another generation.
void disable_entries(INST inst, HOutline outline, const char* name) {
  Entries entries(inst);
  entries.take(OlvOtlGetEnabledDTSMembers, outline);
  for (const DtsEntry& entry : entries) {
    if (std::strcmp(entry.name, name) == 0) {
      OlvOtlEnableDTSMember(outline, name, entry.generation, 0);
    }
  }
}

}  // namespace
}  // namespace kepotl

using namespace kepotl;

void getDTSAliases(JNIEnv* env, int context, INST inst, HOutline outline, const char* entry,
                   jobject series) {
  if (series == nullptr) return;
  jclass type = env->GetObjectClass(series);
  if (type == nullptr) return;
  jmethodID set_alias =
      env->GetMethodID(type, "setAlias", "(Ljava/lang/String;Ljava/lang/String;)V");
  if (set_alias == nullptr) return;
  ApiBlock<OutlineInfoRecord> info(inst);
  info.take(OlvOtlGetOutlineInfo, outline);
  if (!info) return;
  for (uint16_t i = 0; i < info->aliasTableCount; ++i) {
    const char* table = alias_table_name(info.get(), i);
    ApiBlock<char> alias(inst);
    if (alias.take(OlvOtlGetDTSMemberAlias, outline, entry, table) != kStatusOk) continue;
    LocalRef jtable(env, NewStringUTFfromAPI(context, env, table));
    LocalRef jalias(env, NewStringUTFfromAPI(context, env, alias ? alias.get() : ""));
    call_void(env, series, set_alias, jtable.get(), jalias.get());
  }
}

KEPOTL_NATIVE(jint, getDTSMembers)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jobject list) {
  TextContext text;
  const Frame frame = {env, text, RetrieveINST(env, jinst), RetrieveHOutline(env, joutline)};
  if (frame.outline == 0) return kStatusOk;
  Entries entries(frame.inst);
  const int status = entries.take(OlvOtlGetEnabledDTSMembers, frame.outline);
  for (const DtsEntry& entry : entries) add_string(frame, list, entry.name);
  return status;
}

KEPOTL_NATIVE(jint, getDTSMembersEx)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jobject collection) {
  TextContext text;
  const INST inst = RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusOk;
  Entries entries(inst);
  const int status = entries.take(OlvOtlGetEnabledDTSMembers, outline);
  for (const DtsEntry& entry : entries) {
    jobject series = CreateSimpleObject(env, CNAME_DTS);
    if (series == nullptr) continue;
    CallStringSetProperty(text, env, series, "setName", entry.name);
    CallShortSetProperty(env, series, "setGeneration", entry.generation);
    CallBooleanSetProperty(env, series, "setEnabled", JNI_TRUE);
    getDTSAliases(env, text, inst, outline, entry.name, series);
    CallCollectionAddObject(env, collection, series);
  }
  return status;
}

KEPOTL_NATIVE(jint, enableDTSMember)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jstring jname, jshort generation,
 jboolean enable) {
  TextContext text;
  JavaText name(env, text, jname);
  const INST inst = RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusOk;
  if (name.lost()) return kStatusRefused;
  if (name.empty()) return kStatusOk;
  if (enable) disable_entries(inst, outline, name.api());
  return OlvOtlEnableDTSMember(outline, name.api(), generation, enable ? 1 : 0);
}

KEPOTL_NATIVE(jint, setDTSMemberAlias)
(JNIEnv* env, jclass, jobject /*inst*/, jobject joutline, jstring jfirst, jstring jsecond,
 jstring jthird) {
  TextContext text;
  JavaText first(env, text, jfirst);
  JavaText second(env, text, jsecond);
  JavaText third(env, text, jthird);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusOk;
  if (any_lost(first, second, third)) return kStatusRefused;
  if (first.empty() || second.empty() || third.empty()) return kStatusOk;
  // Java gives entry, alias, table; the API takes entry, table, alias.
  return OlvOtlSetDTSMemberAlias(outline, first.api(), third.api(), second.api());
}

KEPOTL_NATIVE(jint, deleteDTSMemberAlias)
(JNIEnv* env, jclass, jobject /*inst*/, jobject joutline, jstring jfirst, jstring jsecond) {
  TextContext text;
  JavaText first(env, text, jfirst);
  JavaText second(env, text, jsecond);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusOk;
  if (any_lost(first, second)) return kStatusRefused;
  if (first.empty() || second.empty()) return kStatusOk;
  return OlvOtlDeleteDTSMemberAlias(outline, first.api(), second.api());
}

KEPOTL_NATIVE(jint, listDTSLatestMembers)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jstring jdimension, jobject list) try {
  TextContext text;
  JavaText dimension(env, text, jdimension);
  const Frame frame = {env, text, RetrieveINST(env, jinst), RetrieveHOutline(env, joutline)};
  if (frame.outline == 0 || dimension.lost()) return kStatusRefused;
  const std::string pattern = std::string("lev0,") + dimension.api();
  MemberQuery query = {};
  query.queryType = kQueryTimeSeriesMembers;
  query.dimension = dimension.api();
  query.pattern1 = pattern.c_str();
  // This list gives back an array that a failed query has left.
  HandleArray members(frame.outline, AfterFailure::kGiveBack);
  // This query takes the address of the name where others take a start member; on 64 bits its low
  // half is what fits.
  const HMember start = static_cast<HMember>(reinterpret_cast<uintptr_t>(dimension.api()));
  int status = members.query(start, query);
  for (uint32_t i = 0; i < members.total() && status == kStatusOk; ++i) {
    ApiBlock<MemberInfoRecord> info(frame.inst);
    status = info.take(OlvOtlGetMemberInfo, frame.outline, members[i]);
    if (info) add_string(frame, list, info->name);
  }
  return status;
} catch (const std::bad_alloc&) {
  return kStatusRefused;
}
