// The OlvOtl functions for the names of generations and levels.
#include <algorithm>
#include <cstring>

#include "api/olvotl.h"
#include "standin/client.h"
#include "standin/outline/calls/open_outlines.h"

namespace standin {
namespace {

// What differs between generations and levels.
struct Kind {
  std::map<uint16_t, std::string> DimensionNames::*names;
  uint16_t first;      // the lowest number
  const char* prefix;  // of generated names
};
constexpr Kind kGenerations = {&DimensionNames::generations, 1, "Gen"};
constexpr Kind kLevels = {&DimensionNames::levels, 0, "Lev"};

// The dimension of a name that may be null; 0 when there is none.
MemberId named_dimension(const Outline& outline, const char* name) {
  return name == nullptr ? kNoMember : outline.find_dimension(name);
}

const std::map<uint16_t, std::string>& names_of(const Outline& outline, MemberId dimension,
                                                const Kind& kind) {
  static const std::map<uint16_t, std::string> kNone;
  const auto found = outline.dimension_names.find(dimension);
  return found == outline.dimension_names.end() ? kNone : found->second.*kind.names;
}

// Highest number of a kind in a dimension: generations are counted from 1, levels from 0.
uint16_t last_number(const Outline& outline, MemberId dimension, const Kind& kind) {
  const uint32_t last = outline.generation_count(dimension) - 1 + kind.first;
  return static_cast<uint16_t>(std::min<uint32_t>(last, UINT16_MAX));
}

// "Gen2,Year": cut after a whole character where the dimension's name leaves no room.
std::string generated_name(const Kind& kind, uint16_t number, std::string_view dimension) {
  constexpr size_t kRoom = sizeof(GenLevelNameEntry::name) - 1;
  std::string name = kind.prefix + std::to_string(number) + ",";
  name += dimension;
  return std::string(cut_to(name, kRoom));
}

struct NumberedName {
  uint16_t number;
  std::string name;
};

std::vector<NumberedName> list_names(const Outline& outline, MemberId dimension, const Kind& kind,
                                     bool extended) {
  std::vector<NumberedName> list;
  const auto& names = names_of(outline, dimension, kind);
  auto named = names.begin();
  if (extended) {
    const uint16_t last = last_number(outline, dimension, kind);
    for (uint32_t number = kind.first; number <= last; ++number) {
      const auto own = static_cast<uint16_t>(number);
      if (named != names.end() && named->first == own) {
        list.push_back({own, (named++)->second});
      } else {
        list.push_back({own, generated_name(kind, own, outline.name(dimension))});
      }
    }
  }
  for (; named != names.end(); ++named) list.push_back({named->first, named->second});
  return list;
}

int get_names(HOutline h, const char* dimension, const Kind& kind, bool extended, uint32_t* count,
              GenLevelNameEntry** names) {
  if (count == nullptr || names == nullptr) return kBadArgument;
  return read_outline(h, [&](const Outline& outline) -> int {
    *count = 0;
    *names = nullptr;
    const MemberId id = named_dimension(outline, dimension);
    if (id == kNoMember) return kNoSuchDimension;
    const std::vector<NumberedName> list = list_names(outline, id, kind, extended);
    if (list.empty()) return kStatusOk;
    auto* entries = hand_out_records<GenLevelNameEntry>(list.size());
    for (const NumberedName& entry : list) {
      GenLevelNameEntry& record = entries[(*count)++];
      record.number = entry.number;
      entry.name.copy(record.name, sizeof record.name - 1);
    }
    *names = entries;
    return kStatusOk;
  });
}

// True when a generation or level of the dimension other than `number` of `kind` has this name.
bool name_taken(const Outline& outline, MemberId dimension, const Kind& kind, uint16_t number,
                const char* name) {
  for (const Kind* other : {&kGenerations, &kLevels}) {
    for (const auto& [taken, text] : names_of(outline, dimension, *other)) {
      const bool itself = other->names == kind.names && taken == number;
      if (!itself && outline.same_text(text, name)) return true;
    }
  }
  return false;
}

int set_name(HOutline h, const char* dimension, const Kind& kind, uint16_t number,
             const char* name) {
  if (name == nullptr) return kBadArgument;
  return edit_outline(h, [&](Outline& outline) -> int {
    const MemberId id = named_dimension(outline, dimension);
    if (id == kNoMember) return kNoSuchDimension;
    if (number < kind.first || number > last_number(outline, id, kind)) return kNoSuchGeneration;
    if (*name == '\0') return kEmptyName;
    if (std::strlen(name) > kMaxMemberName) return kNameTooLong;
    if (name_taken(outline, id, kind, number, name)) return kStatusDuplicateName;
    (outline.dimension_names[id].*kind.names)[number] = name;
    return kStatusOk;
  });
}

int delete_name(HOutline h, const char* dimension, const Kind& kind, uint16_t number) {
  return edit_outline(h, [&](Outline& outline) -> int {
    const MemberId id = named_dimension(outline, dimension);
    if (id == kNoMember) return kNoSuchDimension;
    const auto found = outline.dimension_names.find(id);
    if (found == outline.dimension_names.end()) return kNoSuchGeneration;
    return (found->second.*kind.names).erase(number) != 0 ? kStatusOk : kNoSuchGeneration;
  });
}

// The plain listings know one option; the extended ones serve both.
bool known_option(uint32_t option, uint32_t highest) {
  return option <= highest;
}

}  // namespace
}  // namespace standin

using namespace standin;

extern "C" int OlvOtlGetGenNames(HOutline h, const char* dimension, uint32_t option,
                                 uint32_t* count, GenLevelNameEntry** names) {
  if (!known_option(option, kNamesPlain)) return kBadArgument;
  return get_names(h, dimension, kGenerations, false, count, names);
}

extern "C" int OlvOtlGetGenNamesEx(HOutline h, const char* dimension, uint32_t option,
                                   uint32_t* count, GenLevelNameEntry** names) {
  if (!known_option(option, kNamesExtended)) return kBadArgument;
  return get_names(h, dimension, kGenerations, option == kNamesExtended, count, names);
}

extern "C" int OlvOtlGetLevelNames(HOutline h, const char* dimension, uint32_t option,
                                   uint32_t* count, GenLevelNameEntry** names) {
  if (!known_option(option, kNamesPlain)) return kBadArgument;
  return get_names(h, dimension, kLevels, false, count, names);
}

extern "C" int OlvOtlGetLevelNamesEx(HOutline h, const char* dimension, uint32_t option,
                                     uint32_t* count, GenLevelNameEntry** names) {
  if (!known_option(option, kNamesExtended)) return kBadArgument;
  return get_names(h, dimension, kLevels, option == kNamesExtended, count, names);
}

extern "C" int OlvOtlSetGenName(HOutline h, const char* dimension, uint16_t number,
                                const char* name) {
  return set_name(h, dimension, kGenerations, number, name);
}

extern "C" int OlvOtlSetLevelName(HOutline h, const char* dimension, uint16_t number,
                                  const char* name) {
  return set_name(h, dimension, kLevels, number, name);
}

extern "C" int OlvOtlDeleteGenName(HOutline h, const char* dimension, uint16_t number) {
  return delete_name(h, dimension, kGenerations, number);
}

extern "C" int OlvOtlDeleteLevelName(HOutline h, const char* dimension, uint16_t number) {
  return delete_name(h, dimension, kLevels, number);
}
