// Dynamic time series: the enabled entries with their aliases, and the latest members.
#include <cstring>
#include <new>
#include <string>

#include "bridge/jni_calls.h"
#include "bridge/native.h"
#include "browse/browse.h"

namespace kepotl {
namespace {

// Disables the entries of a name, so that it can be enabled on another generation.
void disable_entries(INST inst, HOutline outline, const char* name) {
  uint16_t count = 0;
  ApiBlock<DtsEntry> entries(inst);
  const int status = OlvOtlGetEnabledDTSMembers(outline, &count, entries.out());
  if (status != kStatusOk || !entries) return;
  for (uint16_t i = 0; i < count; ++i) {
    if (std::strcmp(entries[i].name, name) == 0) {
      OlvOtlEnableDTSMember(outline, name, entries[i].generation, 0);
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
  if (OlvOtlGetOutlineInfo(outline, info.out()) != kStatusOk || !info) return;
  for (uint16_t i = 0; i < info->aliasTableCount; ++i) {
    const char* table = alias_table_name(info.get(), i);
    ApiBlock<char> alias(inst);
    if (OlvOtlGetDTSMemberAlias(outline, entry, table, alias.out()) != kStatusOk) continue;
    LocalRef jtable(env, NewStringUTFfromAPI(context, env, table));
    LocalRef jalias(env, NewStringUTFfromAPI(context, env, alias ? alias.get() : ""));
    call_void(env, series, set_alias, jtable.get(), jalias.get());
  }
}

KEPOTL_NATIVE(jint, getDTSMembers)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jobject list) {
  TextContext text;
  const INST inst = RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusOk;
  uint16_t count = 0;
  ApiBlock<DtsEntry> entries(inst);
  const int status = OlvOtlGetEnabledDTSMembers(outline, &count, entries.out());
  if (status != kStatusOk || !entries) return status;
  for (uint16_t i = 0; i < count; ++i) add_string(env, text, list, entries[i].name);
  return status;
}

KEPOTL_NATIVE(jint, getDTSMembersEx)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jobject collection) {
  TextContext text;
  const INST inst = RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusOk;
  uint16_t count = 0;
  ApiBlock<DtsEntry> entries(inst);
  const int status = OlvOtlGetEnabledDTSMembers(outline, &count, entries.out());
  if (status != kStatusOk || !entries) return status;
  for (uint16_t i = 0; i < count; ++i) {
    jobject series = CreateSimpleObject(env, CNAME_DTS);
    if (series == nullptr) continue;
    CallStringSetProperty(text, env, series, "setName", entries[i].name);
    CallShortSetProperty(env, series, "setGeneration", entries[i].generation);
    CallBooleanSetProperty(env, series, "setEnabled", JNI_TRUE);
    getDTSAliases(env, text, inst, outline, entries[i].name, series);
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
  if (outline == 0 || name.empty()) return kStatusOk;
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
  if (outline == 0 || first.empty() || second.empty() || third.empty()) return kStatusOk;
  // Java gives entry, alias, table; the API takes entry, table, alias.
  return OlvOtlSetDTSMemberAlias(outline, first.api(), third.api(), second.api());
}

KEPOTL_NATIVE(jint, deleteDTSMemberAlias)
(JNIEnv* env, jclass, jobject /*inst*/, jobject joutline, jstring jfirst, jstring jsecond) {
  TextContext text;
  JavaText first(env, text, jfirst);
  JavaText second(env, text, jsecond);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0 || first.empty() || second.empty()) return kStatusOk;
  return OlvOtlDeleteDTSMemberAlias(outline, first.api(), second.api());
}

KEPOTL_NATIVE(jint, listDTSLatestMembers)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jstring jdimension, jobject list) try {
  TextContext text;
  JavaText dimension(env, text, jdimension);
  const INST inst = RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusRefused;
  const std::string pattern = std::string("lev0,") + dimension.api();
  MemberQuery query = {};
  query.queryType = kQueryTimeSeriesMembers;
  query.dimension = dimension.api();
  query.pattern1 = pattern.c_str();
  HandleArray members(outline);
  // This query takes the address of the name where others take a start member; on 64 bits its low
  // half is what fits.
  const HMember start = static_cast<HMember>(reinterpret_cast<uintptr_t>(dimension.api()));
  int status = members.query(start, query);
  for (uint32_t i = 0; members && i < members.counts.totalCount && status == kStatusOk; ++i) {
    ApiBlock<MemberInfoRecord> info(inst);
    status = OlvOtlGetMemberInfo(outline, members[i], info.out());
    if (status == kStatusOk && !info) status = kStatusRefused;
    if (status == kStatusOk) add_string(env, text, list, info->name);
  }
  return status;
} catch (const std::bad_alloc&) {
  return kStatusRefused;
}
