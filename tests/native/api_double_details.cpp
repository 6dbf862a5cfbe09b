// The double's member details, outline settings, names of generations and
// levels, and dynamic time series.
#include <algorithm>
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

// Texts in fixed entries, one behind the other.
char* give_packed(const std::vector<std::string>& texts) {
  auto* block =
      static_cast<char*>(api().hand_out("UDAs", Release::kFree, texts.size() * kUdaStride));
  // What stands behind the end of a text means nothing.
  std::memset(block, 'x', texts.size() * kUdaStride);
  for (size_t i = 0; i < texts.size(); ++i) std::strcpy(block + i * kUdaStride, texts[i].c_str());
  return block;
}

template <typename Entry>
Entry* give_array(const char* kind, const std::vector<Entry>& entries) {
  auto* block =
      static_cast<Entry*>(api().hand_out(kind, Release::kFree, entries.size() * sizeof(Entry)));
  std::copy(entries.begin(), entries.end(), block);
  return block;
}

int on_table(const char* function, HOutline h, const char* table) {
  const int status = api().call(function, {handle_name(h), needed(table)});
  if (status != kStatusOk) return status;
  return table_name(table) == nullptr ? kNoSuchTable : kStatusOk;
}

int list_names(const char* function, HOutline h, const char* dimension, uint32_t option,
               std::map<std::string, std::vector<GenLevelNameEntry>>& names, uint32_t* count,
               GenLevelNameEntry** entries) {
  const int status =
      api().call(function, {handle_name(h), needed(dimension), std::to_string(option)});
  if (status != kStatusOk) return status;
  if (api().find(dimension) == 0) return kNoSuchMember;
  *count = static_cast<uint32_t>(names[dimension].size());
  *entries = give_array("names", names[dimension]);
  return kStatusOk;
}

int associate(HMember base, HMember attribute) {
  if (!api().exists(attribute)) return kNoSuchMember;
  api().member(base).attributes.push_back(attribute);
  return kStatusOk;
}

int dissociate(HMember base, HMember attribute) {
  std::vector<HMember>& list = api().member(base).attributes;
  const auto found = std::find(list.begin(), list.end(), attribute);
  if (found == list.end()) return kNoSuchMember;
  list.erase(found);
  return kStatusOk;
}

}  // namespace

// ---- Formulas, aliases, UDAs, comments ----

int OlvOtlGetMemberFormula(HOutline h, HMember member, char** formula) {
  const int status = api().call_on("OlvOtlGetMemberFormula", h, member);
  if (status == kStatusOk) *formula = give_optional("formula", api().member(member).formula);
  return status;
}

int OlvOtlSetMemberFormula(HOutline h, HMember member, const char* formula) {
  const int status = api().call_on("OlvOtlSetMemberFormula", h, member, {needed(formula)});
  if (status == kStatusOk) api().member(member).formula = formula;
  return status;
}

int OlvOtlDeleteMemberFormula(HOutline h, HMember member) {
  const int status = api().call_on("OlvOtlDeleteMemberFormula", h, member);
  if (status == kStatusOk) api().member(member).formula.reset();
  return status;
}

int OlvOtlGetMemberAlias(HOutline h, HMember member, const char* table, char** alias) {
  const int status = api().call_on("OlvOtlGetMemberAlias", h, member, {quoted(table)});
  if (status != kStatusOk) return status;
  const std::string* name = table_name(table);
  if (name == nullptr) return kNoSuchTable;
  const auto found = api().member(member).aliases.find(*name);
  const bool has_alias = found != api().member(member).aliases.end();
  *alias = has_alias ? api().hand_out_text("alias", found->second) : nullptr;
  return kStatusOk;
}

int OlvOtlSetMemberAlias(HOutline h, HMember member, const char* table, const char* alias) {
  const int status =
      api().call_on("OlvOtlSetMemberAlias", h, member, {quoted(table), needed(alias)});
  if (status != kStatusOk) return status;
  const std::string* name = table_name(table);
  if (name == nullptr) return kNoSuchTable;
  api().member(member).aliases[*name] = alias;
  return kStatusOk;
}

int OlvOtlDeleteMemberAlias(HOutline h, HMember member, const char* table) {
  const int status = api().call_on("OlvOtlDeleteMemberAlias", h, member, {quoted(table)});
  if (status != kStatusOk) return status;
  const std::string* name = table_name(table);
  if (name == nullptr) return kNoSuchTable;
  api().member(member).aliases.erase(*name);
  return kStatusOk;
}

int OlvOtlGetUserAttributes(HOutline h, HMember member, uint16_t* count, char** udas) {
  const int status = api().call_on("OlvOtlGetUserAttributes", h, member);
  if (status != kStatusOk) return status;
  *count = static_cast<uint16_t>(api().member(member).udas.size());
  *udas = give_packed(api().member(member).udas);
  return kStatusOk;
}

int OlvOtlSetUserAttribute(HOutline h, HMember member, const char* uda) {
  const int status = api().call_on("OlvOtlSetUserAttribute", h, member, {needed(uda)});
  if (status == kStatusOk) api().member(member).udas.push_back(uda);
  return status;
}

int OlvOtlDeleteUserAttribute(HOutline h, HMember member, const char* uda) {
  return api().call_on("OlvOtlDeleteUserAttribute", h, member, {needed(uda)});
}

int OlvOtlGetDimensionUserAttributes(HOutline h, const MemberQuery* query,
                                     MemberQueryCounts* counts, char** udas) {
  const int status = api().call("OlvOtlGetDimensionUserAttributes",
                                {handle_name(h), describe(query), describe(counts)});
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
  const int status = api().call_on("OlvOtlGetMemberCommentEx", h, member);
  if (status == kStatusOk) *comment = give_optional("comment", api().member(member).comment);
  return status;
}

int OlvOtlSetMemberCommentEx(HOutline h, HMember member, const char* comment) {
  const int status = api().call_on("OlvOtlSetMemberCommentEx", h, member, {needed(comment)});
  if (status == kStatusOk) api().member(member).comment = comment;
  return status;
}

// ---- Attributes ----

int OlvOtlGetAssociatedAttributes(HOutline h, HMember member, uint16_t* count,
                                  HMember** attributes) {
  const int status = api().call_on("OlvOtlGetAssociatedAttributes", h, member);
  if (status != kStatusOk) return status;
  *count = static_cast<uint16_t>(api().member(member).attributes.size());
  *attributes = give_array("associated attributes", api().member(member).attributes);
  return kStatusOk;
}

int OlvOtlAssociateAttributeDimension(HOutline h, HMember base, HMember attribute) {
  const int status =
      api().call_on("OlvOtlAssociateAttributeDimension", h, base, {api().name_of(attribute)});
  return status != kStatusOk ? status : associate(base, attribute);
}

int OlvOtlDisassociateAttributeDimension(HOutline h, HMember base, HMember attribute) {
  const int status =
      api().call_on("OlvOtlDisassociateAttributeDimension", h, base, {api().name_of(attribute)});
  return status != kStatusOk ? status : dissociate(base, attribute);
}

int OlvOtlAssociateAttributeMember(HOutline h, HMember base, HMember attribute) {
  const int status =
      api().call_on("OlvOtlAssociateAttributeMember", h, base, {api().name_of(attribute)});
  return status != kStatusOk ? status : associate(base, attribute);
}

int OlvOtlDisassociateAttributeMember(HOutline h, HMember base, HMember attribute) {
  const int status =
      api().call_on("OlvOtlDisassociateAttributeMember", h, base, {api().name_of(attribute)});
  return status != kStatusOk ? status : dissociate(base, attribute);
}

// ---- Settings and alias tables ----

int OlvOtlGetOutlineInfo(HOutline h, OutlineInfoRecord** info) {
  const int status = api().call("OlvOtlGetOutlineInfo", {handle_name(h)});
  if (status != kStatusOk) return status;
  const size_t tables = api().alias_tables.size();
  *info = static_cast<OutlineInfoRecord*>(api().hand_out(
      "outline info", Release::kFree, sizeof(OutlineInfoRecord) + tables * kAliasTableStride));
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
  const OutlineInfoRecord& before = api().info;
  std::string changes;
  const auto compare = [&](const char* name, int now, int was) {
    if (now != was)
      changes += (changes.empty() ? "" : " ") + std::string(name) + '=' + std::to_string(now);
  };
  compare("caseSensitive", info->caseSensitive, before.caseSensitive);
  compare("reserved1", info->reserved1, before.reserved1);
  compare("outlineType", info->outlineType, before.outlineType);
  compare("configureFlags", info->configureFlags, before.configureFlags);
  compare("reserved5", info->reserved5, before.reserved5);
  compare("aliasTableCount", info->aliasTableCount, static_cast<int>(api().alias_tables.size()));
  for (unsigned i = 0; i < api().alias_tables.size(); ++i) {
    if (api().alias_tables[i] != alias_table_name(info, i)) changes += " alias table";
  }
  const int status = api().call("OlvOtlSetOutlineInfoEx", {handle_name(h), '{' + changes + '}'});
  if (status == kStatusOk) api().info = *info;
  return status;
}

int OlvOtlGetAttributeSpecifications(HOutline h, AttributeSpecRecord** spec) {
  const int status = api().call("OlvOtlGetAttributeSpecifications", {handle_name(h)});
  if (status != kStatusOk) return status;
  *spec = static_cast<AttributeSpecRecord*>(
      api().hand_out("attribute specification", Release::kSpec, sizeof(AttributeSpecRecord)));
  **spec = api().spec;
  return kStatusOk;
}

int OlvOtlSetAttributeSpecifications(HOutline h, const AttributeSpecRecord* spec) {
  const int status =
      api().call("OlvOtlSetAttributeSpecifications", {handle_name(h), describe(*spec, api().spec)});
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
  const int status =
      api().call("OlvOtlRenameAliasTable", {handle_name(h), needed(table1), needed(table2)});
  if (status != kStatusOk) return status;
  return table_name(table2) == nullptr ? kNoSuchTable : kStatusOk;
}

int OlvOtlCopyAliasTable(HOutline h, const char* table1, const char* table2, uint8_t flag) {
  const int status = api().call("OlvOtlCopyAliasTable", {handle_name(h), needed(table1),
                                                         needed(table2), std::to_string(flag)});
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
  return api().call("OlvOtlSetGenName",
                    {handle_name(h), needed(dimension), std::to_string(number), needed(name)});
}

int OlvOtlSetLevelName(HOutline h, const char* dimension, uint16_t number, const char* name) {
  return api().call("OlvOtlSetLevelName",
                    {handle_name(h), needed(dimension), std::to_string(number), needed(name)});
}

int OlvOtlDeleteGenName(HOutline h, const char* dimension, uint16_t number) {
  return api().call("OlvOtlDeleteGenName",
                    {handle_name(h), needed(dimension), std::to_string(number)});
}

int OlvOtlDeleteLevelName(HOutline h, const char* dimension, uint16_t number) {
  return api().call("OlvOtlDeleteLevelName",
                    {handle_name(h), needed(dimension), std::to_string(number)});
}

// ---- Dynamic time series ----

int OlvOtlGetEnabledDTSMembers(HOutline h, uint16_t* count, DtsEntry** entries) {
  const int status = api().call("OlvOtlGetEnabledDTSMembers", {handle_name(h)});
  if (status != kStatusOk) return status;
  *count = static_cast<uint16_t>(api().time_series.size());
  *entries = give_array("time series", api().time_series);
  return kStatusOk;
}

int OlvOtlEnableDTSMember(HOutline h, const char* name, int16_t generation, uint8_t enable) {
  return api().call("OlvOtlEnableDTSMember", {handle_name(h), needed(name),
                                              std::to_string(generation), std::to_string(enable)});
}

int OlvOtlGetDTSMemberAlias(HOutline h, const char* name, const char* table, char** alias) {
  const int status =
      api().call("OlvOtlGetDTSMemberAlias", {handle_name(h), needed(name), needed(table)});
  if (status != kStatusOk) return status;
  const auto found = api().time_series_aliases.find({name, table});
  const bool has_alias = found != api().time_series_aliases.end();
  *alias = has_alias ? api().hand_out_text("time series alias", found->second) : nullptr;
  return kStatusOk;
}

int OlvOtlSetDTSMemberAlias(HOutline h, const char* text1, const char* text2, const char* text3) {
  return api().call("OlvOtlSetDTSMemberAlias",
                    {handle_name(h), needed(text1), needed(text2), needed(text3)});
}

int OlvOtlDeleteDTSMemberAlias(HOutline h, const char* text1, const char* text2) {
  return api().call("OlvOtlDeleteDTSMemberAlias", {handle_name(h), needed(text1), needed(text2)});
}
