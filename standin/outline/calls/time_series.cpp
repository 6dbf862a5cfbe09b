// The OlvOtl functions for dynamic time series. Aliases belong to the entry's name and outlive its
// being disabled, because moving an entry to another generation disables it first.

#include <algorithm>

#include "api/olvotl.h"
#include "standin/client.h"
#include "standin/outline/calls/open_outlines.h"
#include "standin/outline/model/series.h"

namespace standin {
namespace {

// The standard spelling of an entry name, compared as the outline compares names; empty when it is
// none.
std::string_view standard_name(const Outline& outline, const char* name) {
  for (const std::string_view standard : kSeriesNames) {
    if (outline.same_text(standard, name)) return standard;
  }
  return {};
}

// Finds an enabled entry and an alias table for the alias functions.
int locate(const Outline& outline, const char* name, const char* table, std::string* entry,
           size_t* position) {
  if (name == nullptr) return kBadArgument;
  *entry = standard_name(outline, name);
  if (entry->empty()) return kNoSuchSeries;
  if (find_series(outline, *entry) == nullptr) return kSeriesNotEnabled;
  *position = outline.find_table(table);
  return *position == kNoTable ? kNoSuchAliasTable : kStatusOk;
}

int enable(Outline& outline, std::string_view name, int16_t generation) {
  if (find_series(outline, name) != nullptr) return kSeriesEnabled;
  const MemberId time = outline.first_dimension_of(kCategoryTime);
  if (time == kNoMember) return kNotATimeDimension;
  if (generation < 1 || static_cast<uint32_t>(generation) > outline.generation_count(time)) {
    return kNoSuchGeneration;
  }
  outline.series.push_back({std::string(name), generation});
  return kStatusOk;
}

int disable(Outline& outline, std::string_view name) {
  const SeriesEntry* entry = find_series(outline, name);
  if (entry == nullptr) return kSeriesNotEnabled;
  outline.series.erase(outline.series.begin() + (entry - outline.series.data()));
  return kStatusOk;
}

}  // namespace
}  // namespace standin

using namespace standin;

extern "C" int OlvOtlGetEnabledDTSMembers(HOutline h, uint16_t* count, DtsEntry** entries) {
  if (count == nullptr || entries == nullptr) return kBadArgument;
  return read_outline(h, [&](const Outline& outline) -> int {
    *count = 0;
    *entries = nullptr;
    if (outline.series.empty()) return kStatusOk;
    auto* list = hand_out_records<DtsEntry>(outline.series.size());
    for (const SeriesEntry& entry : outline.series) {
      DtsEntry& record = list[(*count)++];
      entry.name.copy(record.name, sizeof record.name - 1);
      record.generation = entry.generation;
    }
    *entries = list;
    return kStatusOk;
  });
}

extern "C" int OlvOtlEnableDTSMember(HOutline h, const char* name, int16_t generation,
                                     uint8_t enabled) {
  if (name == nullptr) return kBadArgument;
  return edit_outline(h, [&](Outline& outline) -> int {
    const std::string_view standard = standard_name(outline, name);
    if (standard.empty()) return kNoSuchSeries;
    return enabled != 0 ? enable(outline, standard, generation) : disable(outline, standard);
  });
}

extern "C" int OlvOtlGetDTSMemberAlias(HOutline h, const char* name, const char* table,
                                       char** alias) {
  if (alias == nullptr) return kBadArgument;
  return read_outline(h, [&](const Outline& outline) -> int {
    *alias = nullptr;
    std::string entry;
    size_t position = 0;
    const int status = locate(outline, name, table, &entry, &position);
    if (status != kStatusOk) return status;
    const auto& aliases = outline.series_aliases(position);
    const auto found = aliases.find(entry);
    if (found == aliases.end()) return kStatusOk;
    *alias = hand_out_text(found->second);
    return kStatusOk;
  });
}

extern "C" int OlvOtlSetDTSMemberAlias(HOutline h, const char* text1, const char* text2,
                                       const char* text3) {
  if (text3 == nullptr) return kBadArgument;
  return edit_outline(h, [&](Outline& outline) -> int {
    std::string entry;
    size_t position = 0;
    const int status = locate(outline, text1, text2, &entry, &position);
    if (status != kStatusOk) return status;
    std::string alias(text3);
    if (alias.empty()) return kEmptyName;
    if (alias.size() > kMaxMemberName) return kAliasTooLong;
    outline.series_aliases(position)[entry] = std::move(alias);
    return kStatusOk;
  });
}

extern "C" int OlvOtlDeleteDTSMemberAlias(HOutline h, const char* text1, const char* text2) {
  return edit_outline(h, [&](Outline& outline) -> int {
    std::string entry;
    size_t position = 0;
    const int status = locate(outline, text1, text2, &entry, &position);
    if (status != kStatusOk) return status;
    outline.series_aliases(position).erase(entry);
    return kStatusOk;
  });
}
