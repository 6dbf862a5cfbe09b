// Batched searches: each call of findRequest walks on from where the last one stopped and adds a
// member object for every match, until a limit of the batch or of the search is reached.
#include "search/find_request.h"

#include "bridge/java_int.h"
#include "bridge/native.h"
#include "browse/members.h"

namespace kepotl {
namespace {

// What ends a word in a formula.
constexpr const char* kFormulaDelimiters = " \n();\"'[]{}@+-\\=,.<>";

// The search of one batch: what is looked for, and where.
struct Finder {
  INST inst;
  HOutline outline;
  const FindRequest& request;
  const char* text;         // null matches nothing
  const char* alias_table;  // null: none given
  const OutlineInfoRecord* info;

  // Tries the member's sources in fixed order until one matches. The record is read, and held,
  // when names are searched.
  bool matches(HMember member, MemberRecord* record) const {
    bool match = false;
    if (request.names) record->read(member);
    if (*record) match = compare((*record)->name);
    if (!match && request.alias_table_usage == FindRequest::kOneAliasTable &&
        alias_table != nullptr) {
      match = matches_alias(member, alias_table);
    }
    if (request.alias_table_usage == FindRequest::kAllAliasTables && info != nullptr) {
      for (uint16_t i = 0; i < info->aliasTableCount && !match; ++i) {
        match = matches_alias(member, alias_table_name(info, i));
      }
    }
    if (!match && request.udas) {
      give_udas(inst, outline, member, [&](const char* uda) { match = match || compare(uda); });
    }
    if (!match && request.formulas) {
      give_formula(inst, outline, member,
                   [&](const char* formula) { match = compare(formula, kFormulaDelimiters); });
    }
    return match;
  }

  bool matches_alias(HMember member, const char* table) const {
    bool match = false;
    give_alias(inst, outline, member, table, [&](const char* alias) { match = compare(alias); });
    return match;
  }

  bool compare(const char* candidate, const char* delimiters = nullptr) const {
    return CallCompareStrings(text, candidate, request.match_case, request.whole_words,
                              delimiters) != 0;
  }
};

// Whether the batch is to stop after the member that was handled last.
bool reached_limit(const FindRequest& request, jint visited, jint matched) {
  if (matched >= request.max_matches_per_batch) return true;
  if (visited >= request.max_members_per_batch) return true;
  return request.max_matches_total != 0 &&
         java_sum(request.matches_found, matched) >= request.max_matches_total;
}

// Adds the member's object; false when it cannot be made.
bool add_match(JNIEnv* env, HOutline outline, HMember member, MemberRecord* record,
               jobject results) {
  if (!*record) record->read(member);
  jobject object = CreateMemberObjectWithInfo(env, outline, member, record->get());
  if (object == nullptr) return false;
  CallCollectionAddObject(env, results, object);
  return true;
}

}  // namespace
}  // namespace kepotl

using namespace kepotl;

FindRequest FindRequest::read(JNIEnv* env, jobject request) {
  FindRequest read = {};
  read.dimension_scope = CallShortGetProperty(env, request, "getDimensionScope");
  read.alias_table_usage = CallShortGetProperty(env, request, "getAliasTableUsage");
  read.whole_words = CallBooleanGetProperty(env, request, "getMatchWordsOnly");
  read.match_case = CallBooleanGetProperty(env, request, "getMatchCaseOnly");
  read.names = CallBooleanGetProperty(env, request, "getSearchMemberNames");
  read.formulas = CallBooleanGetProperty(env, request, "getSearchFormulas");
  read.udas = CallBooleanGetProperty(env, request, "getSearchUDAS");
  read.matches_found = CallIntegerGetProperty(env, request, "getMatchesFound");
  read.members_processed = CallIntegerGetProperty(env, request, "getMembersProcessed");
  read.text = CallStringGetProperty(env, request, "getText");
  read.dimension_name = CallStringGetProperty(env, request, "getDimensionName");
  read.alias_table = CallStringGetProperty(env, request, "getAliasTable");
  read.max_matches_per_batch = CallIntegerGetProperty(env, request, "getMaximumMatchesPerBatch");
  read.max_matches_total = CallIntegerGetProperty(env, request, "getMaximumMatchesTotal");
  read.max_members_per_batch = CallIntegerGetProperty(env, request, "getMaximumMembersPerBatch");
  read.last_handle = static_cast<HMember>(CallIntegerGetProperty(env, request, "getLastHandle"));
  return read;
}

KEPOTL_NATIVE(jint, findRequest)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jobject jrequest, jobject results) {
  TextContext context;
  const INST inst = RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusOk;
  const FindRequest request = FindRequest::read(env, jrequest);
  const jboolean one_dimension = request.dimension_scope == FindRequest::kOneDimension;
  // Declared before the record, as strings go back after all API work.
  JavaText dimension;
  JavaText table;
  JavaText text;
  ApiBlock<OutlineInfoRecord> info(inst);
  info.take(OlvOtlGetOutlineInfo, outline);
  if (one_dimension) dimension = JavaText(env, context, request.dimension_name);
  if (request.alias_table_usage == FindRequest::kOneAliasTable) {
    table = JavaText(env, context, request.alias_table);
  }
  text = JavaText(env, context, request.text);
  // Nothing is searched, and the request stays as it is, when what it asks for is lost.
  if (any_lost(dimension, table, text)) return kStatusOk;
  const Finder finder = {inst, outline, request, text.api_if_any(), table.api_if_any(), info.get()};

  jint visited = 0;
  jint matched = 0;
  HMember member = request.last_handle != 0
                       ? findRequestGetNextMember(outline, request.last_handle, one_dimension)
                       : findRequestGetFirstMember(outline, one_dimension, dimension.api_if_any());
  while (member != 0) {
    ++visited;
    {
      MemberRecord record(outline);
      if (finder.matches(member, &record) && add_match(env, outline, member, &record, results)) {
        ++matched;
      }
    }
    if (reached_limit(request, visited, matched)) break;
    member = findRequestGetNextMember(outline, member, one_dimension);
  }

  CallIntegerSetProperty(env, jrequest, "setLastHandle", static_cast<jint>(member));
  CallIntegerSetProperty(env, jrequest, "setMembersProcessed",
                         java_sum(request.members_processed, visited));
  CallIntegerSetProperty(env, jrequest, "setMatchesFound",
                         java_sum(request.matches_found, matched));
  return kStatusOk;
}
