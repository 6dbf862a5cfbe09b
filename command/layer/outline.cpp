// Open outlines: members by name, settings, alias tables, names of generations and levels, time
// series.
#include "command/layer/outline.h"

#include <algorithm>
#include <cstring>

#include "api/olvotl.h"
#include "browse/members.h"
#include "command/layer/formatting.h"
#include "command/layer/text.h"
#include "edit/edit.h"

namespace command {
namespace {

using NamesCall = int (*)(HOutline, const char*, uint32_t, uint32_t*, GenLevelNameEntry**);

std::vector<NumberedName> list_names(NamesCall call, HOutline outline, Member dimension, bool all) {
  const std::string name = inside(dimension.name());
  kepotl::ApiArray<GenLevelNameEntry, uint32_t> found(kepotl::kNoInstance);
  check(found.take(call, outline, name.c_str(), all ? kNamesExtended : kNamesPlain),
        "list the names of generations and levels");
  std::vector<NumberedName> names;
  for (uint32_t i = 0; i < found.size(); ++i) {
    names.push_back({found.begin()[i].number, outside(found.begin()[i].name)});
  }
  return names;
}

// Removes the name that is there before one is set: setting alone would keep a taken name refused.
void set_name(int (*set)(HOutline, const char*, uint16_t, const char*),
              int (*remove)(HOutline, const char*, uint16_t), HOutline outline, Member dimension,
              uint16_t number, std::string_view name) {
  const std::string owner = inside(dimension.name());
  const int status = name.empty() ? remove(outline, owner.c_str(), number)
                                  : set(outline, owner.c_str(), number, inside(name).c_str());
  check(status, fmt::format("name number {} of {} '{}'", number, dimension.name(), name));
}

}  // namespace

const char* const kAttributeNamingTexts[8] = {"true",  "false",   "calculations", "sum",
                                              "count", "average", "minimum",      "maximum"};

Outline::Outline(Outline&& other) noexcept : context_(other.context_), handle_(other.handle_) {
  other.handle_ = 0;
}

Outline::~Outline() {
  if (handle_ != 0) OlvOtlCloseOutline(handle_);
}

Member Outline::find(std::string_view name) const {
  return member(kepotl::find_by_name(handle_, inside(name).c_str()).handle);
}

std::vector<Member> Outline::holders(std::string_view name) const {
  std::vector<Member> found;
  if (name.empty()) return found;
  const std::string text = inside(name);
  kepotl::HandleArray handles(handle_);
  check(handles.query(0, kepotl::named_member_query(text.c_str())), "look a name up");
  for (uint32_t i = 0; i < handles.size(); ++i) found.push_back(member(handles[i]));
  return found;
}

uint32_t Outline::count_members() const {
  uint32_t count = 0;
  for (auto at = subtree(root()).begin(); at; ++at) ++count;
  return count;
}

Member Outline::add(const MemberInfoRecord& record, Member parent, Member previous,
                    bool repeat) const {
  HMember added = 0;
  if (!parent) {
    check(OlvOtlAddDimension(handle_, &record, previous.handle(), 0, &added), "add a dimension");
    return member(added);
  }
  int status = OlvOtlAddMemberEx(handle_, &record, parent.handle(), previous.handle(), &added,
                                 kMemberOption);
  if (status == kStatusDuplicateName && repeat) {
    // The engine lets a member take another's name only when it is renamed.
    MemberInfoRecord temporary = record;
    for (int i = 0; status == kStatusDuplicateName; ++i) {
      kepotl::store_text(temporary.name, kMaxMemberName, fmt::format("~outline~{}", i).c_str());
      status = OlvOtlAddMemberEx(handle_, &temporary, parent.handle(), previous.handle(), &added,
                                 kMemberOption);
    }
    if (status == kStatusOk) {
      status = OlvOtlRenameMemberEx(handle_, added, record.name, kMemberOption);
      if (status != kStatusOk) OlvOtlDeleteMemberEx(handle_, added, kMemberOption);
    }
  }
  check(status, "add a member");
  return member(added);
}

Settings Outline::settings() const {
  kepotl::ApiBlock<OutlineInfoRecord> info(kepotl::kNoInstance);
  check(info.take(OlvOtlGetOutlineInfo, handle_), "read the settings");
  return {info->caseSensitive != 0,
          info->outlineType,
          info->configureFlags,
          {info->reserved1, info->reserved5}};
}

void Outline::set_settings(const Settings& settings) const {
  OutlineInfoRecord info = {};
  info.caseSensitive = settings.case_sensitive ? 1 : 0;
  info.outlineType = settings.type;
  info.configureFlags = settings.configure_flags;
  info.reserved1 = settings.reserved[0];
  info.reserved5 = settings.reserved[1];
  check(OlvOtlSetOutlineInfoEx(handle_, &info), "change the settings");
}

namespace {

using NamingText = const char* AttributeSpecRecord::*;
constexpr NamingText kNamingTexts[8] = {
    &AttributeSpecRecord::trueName,          &AttributeSpecRecord::falseName,
    &AttributeSpecRecord::calcDimensionName, &AttributeSpecRecord::sumName,
    &AttributeSpecRecord::countName,         &AttributeSpecRecord::averageName,
    &AttributeSpecRecord::minimumName,       &AttributeSpecRecord::maximumName};

}  // namespace

AttributeNaming Outline::attribute_naming() const {
  kepotl::ApiBlock<AttributeSpecRecord> spec(kepotl::kNoInstance);
  check(spec.take(OlvOtlGetAttributeSpecifications, handle_), "read the attribute settings");
  AttributeNaming naming{spec->longNameConstructor,
                         spec->longNameSource,
                         spec->longNameDelimiter,
                         spec->dateFormat,
                         spec->bucketingType,
                         {spec->reserved5, spec->reserved10[0], spec->reserved10[1]},
                         {}};
  for (size_t i = 0; i < 8; ++i) {
    const char* const text = (*spec).*kNamingTexts[i];
    if (text != nullptr) naming.texts[i] = outside(text);
  }
  return naming;
}

void Outline::set_attribute_naming(const AttributeNaming& naming) const {
  AttributeSpecRecord spec = {};
  spec.longNameConstructor = naming.constructor;
  spec.longNameSource = naming.source;
  spec.longNameDelimiter = naming.delimiter;
  spec.dateFormat = naming.date_format;
  spec.bucketingType = naming.bucketing;
  spec.reserved5 = naming.reserved[0];
  spec.reserved10[0] = naming.reserved[1];
  spec.reserved10[1] = naming.reserved[2];
  std::string texts[8];
  for (size_t i = 0; i < 8; ++i) {
    if (!naming.texts[i]) continue;
    texts[i] = inside(*naming.texts[i]);
    spec.*kNamingTexts[i] = texts[i].c_str();
  }
  check(OlvOtlSetAttributeSpecifications(handle_, &spec), "change the attribute settings");
}

std::vector<std::string> Outline::alias_tables() const {
  kepotl::ApiBlock<OutlineInfoRecord> info(kepotl::kNoInstance);
  check(info.take(OlvOtlGetOutlineInfo, handle_), "list the alias tables");
  std::vector<std::string> tables;
  for (unsigned i = 0; i < info->aliasTableCount; ++i) {
    tables.push_back(outside(alias_table_name(info.get(), i)));
  }
  return tables;
}

bool Outline::has_alias_table(std::string_view name) const {
  const std::string text = inside(name);
  // Asking for the alias of any member tells whether there is such a table, with the engine's own
  // comparison of names; without members the listing has to do.
  if (const Member any = root().first_child()) {
    kepotl::ApiBlock<char> alias(kepotl::kNoInstance);
    return alias.take(OlvOtlGetMemberAlias, handle_, any.handle(), text.c_str()) == kStatusOk;
  }
  const auto tables = alias_tables();
  return std::find(tables.begin(), tables.end(), name) != tables.end();
}

void Outline::create_alias_table(std::string_view name) const {
  check(OlvOtlCreateAliasTable(handle_, inside(name).c_str()),
        fmt::format("create the alias table '{}'", name));
}

void Outline::delete_alias_table(std::string_view name) const {
  check(OlvOtlDeleteAliasTable(handle_, inside(name).c_str()),
        fmt::format("delete the alias table '{}'", name));
}

void Outline::clear_alias_table(std::string_view name) const {
  check(OlvOtlClearAliasTable(handle_, inside(name).c_str()),
        fmt::format("clear the alias table '{}'", name));
}

void Outline::rename_alias_table(std::string_view from, std::string_view to) const {
  check(OlvOtlRenameAliasTable(handle_, inside(to).c_str(), inside(from).c_str()),
        fmt::format("rename the alias table '{}' to '{}'", from, to));
}

void Outline::copy_alias_table(std::string_view from, std::string_view to, bool overwrite) const {
  check(OlvOtlCopyAliasTable(handle_, inside(to).c_str(), inside(from).c_str(), overwrite ? 1 : 0),
        fmt::format("copy the alias table '{}' to '{}'", from, to));
}

std::vector<NumberedName> Outline::generations(Member dimension, bool all) const {
  return list_names(OlvOtlGetGenNamesEx, handle_, dimension, all);
}

std::vector<NumberedName> Outline::levels(Member dimension, bool all) const {
  return list_names(OlvOtlGetLevelNamesEx, handle_, dimension, all);
}

void Outline::set_generation(Member dimension, uint16_t number, std::string_view name) const {
  set_name(OlvOtlSetGenName, OlvOtlDeleteGenName, handle_, dimension, number, name);
}

void Outline::set_level(Member dimension, uint16_t number, std::string_view name) const {
  set_name(OlvOtlSetLevelName, OlvOtlDeleteLevelName, handle_, dimension, number, name);
}

std::vector<Series> Outline::series() const {
  kepotl::ApiArray<DtsEntry, uint16_t> found(kepotl::kNoInstance);
  check(found.take(OlvOtlGetEnabledDTSMembers, handle_), "list the time series");
  std::vector<Series> series;
  for (uint16_t i = 0; i < found.size(); ++i) {
    series.push_back({outside(found.begin()[i].name), found.begin()[i].generation});
  }
  return series;
}

void Outline::enable_series(std::string_view name, int16_t generation, bool enable) const {
  check(OlvOtlEnableDTSMember(handle_, inside(name).c_str(), generation, enable ? 1 : 0),
        fmt::format("{} the time series '{}'", enable ? "enable" : "disable", name));
}

std::string Outline::series_alias(std::string_view name, const char* table) const {
  kepotl::ApiBlock<char> alias(kepotl::kNoInstance);
  check(alias.take(OlvOtlGetDTSMemberAlias, handle_, inside(name).c_str(), table),
        "read the alias of a time series");
  return alias ? outside(alias.get()) : std::string();
}

void Outline::set_series_alias(std::string_view name, const char* table,
                               std::string_view alias) const {
  const std::string entry = inside(name);
  check(alias.empty()
            ? OlvOtlDeleteDTSMemberAlias(handle_, entry.c_str(), table)
            : OlvOtlSetDTSMemberAlias(handle_, entry.c_str(), table, inside(alias).c_str()),
        fmt::format("change the alias of the time series '{}'", name));
}

std::vector<std::string> Outline::udas_of_dimension(Member dimension) const {
  const std::string name = inside(dimension.name());
  MemberQuery query = {};
  query.queryType = kQueryDimensionUdas;
  query.dimension = name.c_str();
  MemberQueryCounts counts = {};
  kepotl::ApiBlock<char> block(kepotl::kNoInstance);
  check(block.take(OlvOtlGetDimensionUserAttributes, handle_, &query, &counts), "list the UDAs");
  std::vector<std::string> udas;
  for (uint32_t i = 0; block && i < counts.returned; ++i) {
    udas.push_back(outside(block.get() + size_t{i} * kUdaStride));
  }
  return udas;
}

Findings Outline::verify() const {
  Findings findings;
  uint32_t count = 0;
  kepotl::ApiBlock<MemberErrorEntry> errors(kepotl::kNoInstance);
  check(errors.take(OlvOtlVerifyOutline, handle_, &findings.global, &count), "verify the outline");
  for (uint32_t i = 0; errors && i < count; ++i) {
    const MemberErrorEntry& entry = errors.get()[i];
    if (entry.member == 0) continue;
    findings.members.push_back({member(entry.member), entry.errorPortion, entry.extendedPortion});
  }
  return findings;
}

Outline Outline::derive_currency() const {
  HOutline derived = 0;
  check(OlvOtlGenerateCurrencyOutline(handle_, &derived), "derive the currency outline");
  return Outline(context_, derived);
}

void Outline::write(const std::string& application, const std::string& database) const {
  const std::string app = inside(application);
  const std::string db = inside(database);
  const ObjectDefinitionRecord object = {context_, kObjectTypeOutline, app.c_str(), db.c_str(),
                                         db.c_str()};
  check(OlvOtlWriteOutline(handle_, &object),
        fmt::format("save the outline of {} {}", application, database));
}

}  // namespace command
