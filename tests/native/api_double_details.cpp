// The double's member details, outline settings, names of generations and
// levels, and dynamic time series.
#include <cstring>

#include "api/olvotl.h"
#include "tests/native/api_double.h"
#include "tests/native/journal.h"

namespace {

using Release = ApiDouble::Release;

// The name of a table that exists; the default table for null.
const std::string* table_name(const char* table) {
  if (api().alias_tables.empty()) return nullptr;
  if (table == nullptr) return &api().alias_tables.front();
  for (const std::string& name : api().alias_tables) {
    if (name == table) return &name;
  }
  return nullptr;
}

char* give_optional(const char* kind, const std::optional<std::string>& text) {
  return text ? api().hand_out_text(kind, *text) : nullptr;
}

// The text of a key; null where there is none.
template <typename Texts>
char* give_found(const char* kind, const Texts& texts, const typename Texts::key_type& key) {
  const auto found = texts.find(key);
  return found == texts.end() ? nullptr : api().hand_out_text(kind, found->second);
}

// Texts in fixed entries, one behind the other.
char* give_packed(const std::vector<std::string>& texts) {
  // What stands behind the end of a text means nothing.
  char* block = api().hand_out("UDAs", std::vector<char>(texts.size() * kUdaStride, 'x'));
  if (block == nullptr) return nullptr;
  for (size_t i = 0; i < texts.size(); ++i) std::strcpy(block + i * kUdaStride, texts[i].c_str());
  return block;
}

// A call on an alias table, that is, the call itself and whether there is that table.
int on_table(const char* function, HOutline h, const char* table) {
  const int status = api().call(function, {h, table});
  if (status != kStatusOk) return status;
  return table_name(table) == nullptr ? kNoSuchTable : kStatusOk;
}

// The same on a member's alias; the default table for null.
template <typename... Outs>
int on_alias(const char* function, HOutline h, HMember member, const char* table, Arguments rest,
             Outs*... outs) {
  rest.insert(rest.begin(), quoted(table));
  const int status = api().call_on(function, h, member, rest, outs...);
  if (status != kStatusOk) return status;
  return table_name(table) == nullptr ? kNoSuchTable : kStatusOk;
}

int list_names(const char* function, HOutline h, const char* dimension, uint32_t option,
               std::map<std::string, std::vector<GenLevelNameEntry>>& names, uint32_t* count,
               GenLevelNameEntry** entries) {
  const int status = api().call(function, {h, dimension, option}, count, entries);
  if (status != kStatusOk) return status;
  if (api().find(dimension) == 0) return kNoSuchMember;
  *count = static_cast<uint32_t>(names[dimension].size());
  *entries = api().hand_out("names", names[dimension]);
  return kStatusOk;
}

// A change of a member's associations. They stay as they are: nothing reads them afterwards.
int on_association(const char* function, HOutline h, HMember base, HMember attribute) {
  const int status = api().call_on(function, h, base, {attribute});
  if (status != kStatusOk) return status;
  return api().exists(attribute) ? kStatusOk : kNoSuchMember;
}

}  // namespace

// ---- Formulas, aliases, UDAs, comments ----

int OlvOtlGetMemberFormula(HOutline h, HMember member, char** formula) {
  const int status = api().call_on("OlvOtlGetMemberFormula", h, member, {}, formula);
  if (status == kStatusOk) *formula = give_optional("formula", api().member(member).formula);
  return status;
}

int OlvOtlSetMemberFormula(HOutline h, HMember member, const char* formula) {
  const int status = api().call_on("OlvOtlSetMemberFormula", h, member, {formula});
  if (status == kStatusOk) api().member(member).formula = formula;
  return status;
}

int OlvOtlDeleteMemberFormula(HOutline h, HMember member) {
  const int status = api().call_on("OlvOtlDeleteMemberFormula", h, member);
  if (status == kStatusOk) api().member(member).formula.reset();
  return status;
}

int OlvOtlGetMemberAlias(HOutline h, HMember member, const char* table, char** alias) {
  const int status = on_alias("OlvOtlGetMemberAlias", h, member, table, {}, alias);
  if (status != kStatusOk) return status;
  *alias = give_found("alias", api().member(member).aliases, *table_name(table));
  return kStatusOk;
}

int OlvOtlSetMemberAlias(HOutline h, HMember member, const char* table, const char* alias) {
  const int status = on_alias("OlvOtlSetMemberAlias", h, member, table, {alias});
  if (status == kStatusOk) api().member(member).aliases[*table_name(table)] = alias;
  return status;
}

int OlvOtlDeleteMemberAlias(HOutline h, HMember member, const char* table) {
  const int status = on_alias("OlvOtlDeleteMemberAlias", h, member, table, {});
  if (status == kStatusOk) api().member(member).aliases.erase(*table_name(table));
  return status;
}

int OlvOtlGetUserAttributes(HOutline h, HMember member, uint16_t* count, char** udas) {
  const int status = api().call_on("OlvOtlGetUserAttributes", h, member, {}, count, udas);
  if (status != kStatusOk) return status;
  *count = static_cast<uint16_t>(api().member(member).udas.size());
  *udas = give_packed(api().member(member).udas);
  return kStatusOk;
}

int OlvOtlSetUserAttribute(HOutline h, HMember member, const char* uda) {
  const int status = api().call_on("OlvOtlSetUserAttribute", h, member, {uda});
  if (status == kStatusOk) api().member(member).udas.push_back(uda);
  return status;
}

int OlvOtlDeleteUserAttribute(HOutline h, HMember member, const char* uda) {
  return api().call_on("OlvOtlDeleteUserAttribute", h, member, {uda});
}

int OlvOtlGetDimensionUserAttributes(HOutline h, const MemberQuery* query,
                                     MemberQueryCounts* counts, char** udas) {
  const int status = api().call("OlvOtlGetDimensionUserAttributes",
                                {h, describe(query), describe(counts)}, counts, udas);
  if (status != kStatusOk) return status;
  std::vector<std::string> all;
  const HMember dimension = api().find(query->dimension);
  for (HMember child : api().member(dimension).children) {
    const std::vector<std::string>& own = api().member(child).udas;
    all.insert(all.end(), own.begin(), own.end());
  }
  counts->totalCount = counts->returned = static_cast<uint32_t>(all.size());
  *udas = give_packed(all);
  return kStatusOk;
}

int OlvOtlGetMemberCommentEx(HOutline h, HMember member, char** comment) {
  const int status = api().call_on("OlvOtlGetMemberCommentEx", h, member, {}, comment);
  if (status == kStatusOk) *comment = give_optional("comment", api().member(member).comment);
  return status;
}

int OlvOtlSetMemberCommentEx(HOutline h, HMember member, const char* comment) {
  const int status = api().call_on("OlvOtlSetMemberCommentEx", h, member, {comment});
  if (status == kStatusOk) api().member(member).comment = comment;
  return status;
}

// ---- Attributes ----

int OlvOtlGetAssociatedAttributes(HOutline h, HMember member, uint16_t* count,
                                  HMember** attributes) {
  const int status =
      api().call_on("OlvOtlGetAssociatedAttributes", h, member, {}, count, attributes);
  if (status != kStatusOk) return status;
  *count = static_cast<uint16_t>(api().member(member).attributes.size());
  *attributes = api().hand_out("associated attributes", api().member(member).attributes);
  return kStatusOk;
}

int OlvOtlAssociateAttributeDimension(HOutline h, HMember base, HMember attribute) {
  return on_association("OlvOtlAssociateAttributeDimension", h, base, attribute);
}

int OlvOtlDisassociateAttributeDimension(HOutline h, HMember base, HMember attribute) {
  return on_association("OlvOtlDisassociateAttributeDimension", h, base, attribute);
}

int OlvOtlAssociateAttributeMember(HOutline h, HMember base, HMember attribute) {
  return on_association("OlvOtlAssociateAttributeMember", h, base, attribute);
}

int OlvOtlDisassociateAttributeMember(HOutline h, HMember base, HMember attribute) {
  return on_association("OlvOtlDisassociateAttributeMember", h, base, attribute);
}

// ---- Settings and alias tables ----

int OlvOtlGetOutlineInfo(HOutline h, OutlineInfoRecord** info) {
  const int status = api().call("OlvOtlGetOutlineInfo", {h}, info);
  if (status != kStatusOk) return status;
  const size_t tables = api().alias_tables.size();
  *info = static_cast<OutlineInfoRecord*>(api().hand_out(
      "outline info", Release::kFree, sizeof(OutlineInfoRecord) + tables * kAliasTableStride));
  if (*info == nullptr) return kStatusOk;
  **info = api().info;
  (*info)->aliasTableCount = static_cast<uint16_t>(tables);
  char* name = reinterpret_cast<char*>(*info + 1);
  for (const std::string& table : api().alias_tables) {
    std::strcpy(name, table.c_str());
    name += kAliasTableStride;
  }
  return kStatusOk;
}

int OlvOtlSetOutlineInfoEx(HOutline h, const OutlineInfoRecord* info) {
  OutlineInfoRecord before = api().info;
  before.aliasTableCount = static_cast<uint16_t>(api().alias_tables.size());
  for (unsigned i = 0; i < before.aliasTableCount; ++i) {
    if (api().alias_tables[i] != alias_table_name(info, i))
      journal().fault("An alias table changed");
  }
  const int status = api().call("OlvOtlSetOutlineInfoEx", {h, describe(*info, before)});
  if (status == kStatusOk) api().info = *info;
  return status;
}

int OlvOtlGetAttributeSpecifications(HOutline h, AttributeSpecRecord** spec) {
  const int status = api().call("OlvOtlGetAttributeSpecifications", {h}, spec);
  if (status != kStatusOk) return status;
  *spec = api().hand_out("attribute specification", std::vector{api().spec}, Release::kSpec);
  return kStatusOk;
}

int OlvOtlSetAttributeSpecifications(HOutline h, const AttributeSpecRecord* spec) {
  const int status =
      api().call("OlvOtlSetAttributeSpecifications", {h, describe(*spec, api().spec)});
  if (status != kStatusOk) return status;
  api().spec = *spec;
  // The texts are the caller's: they are copied.
  for (const char** text :
       {&api().spec.trueName, &api().spec.falseName, &api().spec.calcDimensionName,
        &api().spec.sumName, &api().spec.countName, &api().spec.averageName,
        &api().spec.minimumName, &api().spec.maximumName}) {
    if (*text == nullptr) continue;
    api().spec_texts.push_back(*text);
    *text = api().spec_texts.back().c_str();
  }
  return kStatusOk;
}

int OlvOtlCreateAliasTable(HOutline h, const char* table) {
  const int status = on_table("OlvOtlCreateAliasTable", h, table);
  if (status == kStatusOk) return kStatusAliasTableExists;
  if (status != kNoSuchTable) return status;
  api().alias_tables.push_back(table);
  return kStatusOk;
}

int OlvOtlDeleteAliasTable(HOutline h, const char* table) {
  return on_table("OlvOtlDeleteAliasTable", h, table);
}

int OlvOtlClearAliasTable(HOutline h, const char* table) {
  return on_table("OlvOtlClearAliasTable", h, table);
}

int OlvOtlRenameAliasTable(HOutline h, const char* table1, const char* table2) {
  const int status = api().call("OlvOtlRenameAliasTable", {h, table1, table2});
  if (status != kStatusOk) return status;
  return table_name(table2) == nullptr ? kNoSuchTable : kStatusOk;
}

int OlvOtlCopyAliasTable(HOutline h, const char* table1, const char* table2, uint8_t flag) {
  const int status = api().call("OlvOtlCopyAliasTable", {h, table1, table2, flag});
  if (status != kStatusOk) return status;
  return table_name(table2) == nullptr ? kNoSuchTable : kStatusOk;
}

// ---- Generation and level names ----

int OlvOtlGetGenNames(HOutline h, const char* dimension, uint32_t option, uint32_t* count,
                      GenLevelNameEntry** names) {
  return list_names("OlvOtlGetGenNames", h, dimension, option, api().generations, count, names);
}

int OlvOtlGetGenNamesEx(HOutline h, const char* dimension, uint32_t option, uint32_t* count,
                        GenLevelNameEntry** names) {
  return list_names("OlvOtlGetGenNamesEx", h, dimension, option, api().generations, count, names);
}

int OlvOtlGetLevelNames(HOutline h, const char* dimension, uint32_t option, uint32_t* count,
                        GenLevelNameEntry** names) {
  return list_names("OlvOtlGetLevelNames", h, dimension, option, api().levels, count, names);
}

int OlvOtlGetLevelNamesEx(HOutline h, const char* dimension, uint32_t option, uint32_t* count,
                          GenLevelNameEntry** names) {
  return list_names("OlvOtlGetLevelNamesEx", h, dimension, option, api().levels, count, names);
}

int OlvOtlSetGenName(HOutline h, const char* dimension, uint16_t number, const char* name) {
  return api().call("OlvOtlSetGenName", {h, dimension, number, name});
}

int OlvOtlSetLevelName(HOutline h, const char* dimension, uint16_t number, const char* name) {
  return api().call("OlvOtlSetLevelName", {h, dimension, number, name});
}

int OlvOtlDeleteGenName(HOutline h, const char* dimension, uint16_t number) {
  return api().call("OlvOtlDeleteGenName", {h, dimension, number});
}

int OlvOtlDeleteLevelName(HOutline h, const char* dimension, uint16_t number) {
  return api().call("OlvOtlDeleteLevelName", {h, dimension, number});
}

// ---- Dynamic time series ----

int OlvOtlGetEnabledDTSMembers(HOutline h, uint16_t* count, DtsEntry** entries) {
  const int status = api().call("OlvOtlGetEnabledDTSMembers", {h}, count, entries);
  if (status != kStatusOk) return status;
  *count = static_cast<uint16_t>(api().time_series.size());
  *entries = api().hand_out("time series", api().time_series);
  return kStatusOk;
}

int OlvOtlEnableDTSMember(HOutline h, const char* name, int16_t generation, uint8_t enable) {
  return api().call("OlvOtlEnableDTSMember", {h, name, generation, enable});
}

int OlvOtlGetDTSMemberAlias(HOutline h, const char* name, const char* table, char** alias) {
  const int status = api().call("OlvOtlGetDTSMemberAlias", {h, name, table}, alias);
  if (status != kStatusOk) return status;
  *alias = give_found("time series alias", api().time_series_aliases, {name, table});
  return kStatusOk;
}

int OlvOtlSetDTSMemberAlias(HOutline h, const char* text1, const char* text2, const char* text3) {
  return api().call("OlvOtlSetDTSMemberAlias", {h, text1, text2, text3});
}

int OlvOtlDeleteDTSMemberAlias(HOutline h, const char* text1, const char* text2) {
  return api().call("OlvOtlDeleteDTSMemberAlias", {h, text1, text2});
}
