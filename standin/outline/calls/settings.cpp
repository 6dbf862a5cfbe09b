// The OlvOtl functions for the outline information and the attribute specifications.
#include <cstring>

#include "api/olvotl.h"
#include "standin/client.h"
#include "standin/outline/calls/open_outlines.h"

namespace standin {
namespace {

// The text fields of an AttributeSpecRecord in the order of AttributeSettings::texts.
using SpecText = const char* AttributeSpecRecord::*;
constexpr SpecText kSpecTexts[] = {
    &AttributeSpecRecord::trueName,          &AttributeSpecRecord::falseName,
    &AttributeSpecRecord::calcDimensionName, &AttributeSpecRecord::sumName,
    &AttributeSpecRecord::countName,         &AttributeSpecRecord::averageName,
    &AttributeSpecRecord::minimumName,       &AttributeSpecRecord::maximumName};

int check_spec_text(const char* text) {
  if (text == nullptr) return kStatusOk;
  if (*text == '\0') return kEmptyName;
  return std::strlen(text) > kMaxMemberName ? kNameTooLong : kStatusOk;
}

}  // namespace
}  // namespace standin

using namespace standin;

extern "C" int OlvOtlGetOutlineInfo(HOutline h, OutlineInfoRecord** info) {
  if (info == nullptr) return kBadArgument;
  return read_outline(h, [&](const Outline& outline) -> int {
    *info = nullptr;
    const size_t tables = outline.alias_tables().size();
    auto* record = static_cast<OutlineInfoRecord*>(
        hand_out(BlockKind::kPlain, sizeof(OutlineInfoRecord) + tables * kAliasTableStride));
    record->caseSensitive = outline.case_sensitive() ? 1 : 0;
    record->reserved1 = outline.reserved_info[0];
    record->outlineType = outline.outline_type;
    record->configureFlags = outline.configure_flags;
    record->reserved5 = outline.reserved_info[1];
    record->aliasTableCount = static_cast<uint16_t>(tables);
    char* slot = reinterpret_cast<char*>(record) + sizeof(OutlineInfoRecord);
    for (const AliasTable& table : outline.alias_tables()) {
      table.name.copy(slot, kMaxAliasTableName);
      slot += kAliasTableStride;
    }
    *info = record;
    return kStatusOk;
  });
}

extern "C" int OlvOtlSetOutlineInfoEx(HOutline h, const OutlineInfoRecord* info) {
  if (info == nullptr) return kBadArgument;
  return edit_outline(h, [&](Outline& outline) -> int {
    // Names that collide from now on stay as they are; verification reports them.
    const bool sensitive = info->caseSensitive != 0;
    if (sensitive != outline.case_sensitive()) outline.set_case_sensitive(sensitive);
    outline.outline_type = info->outlineType;
    outline.configure_flags = info->configureFlags;
    outline.reserved_info = {info->reserved1, info->reserved5};
    return kStatusOk;
  });
}

extern "C" int OlvOtlGetAttributeSpecifications(HOutline h, AttributeSpecRecord** spec) {
  if (spec == nullptr) return kBadArgument;
  return read_outline(h, [&](const Outline& outline) -> int {
    *spec = nullptr;
    const AttributeSettings& settings = outline.attribute_settings;
    // One block with the texts behind the record, so that it goes back in one piece.
    size_t bytes = sizeof(AttributeSpecRecord);
    for (const auto& text : settings.texts) bytes += text ? text->size() + 1 : 0;
    auto* record = static_cast<AttributeSpecRecord*>(
        hand_out(BlockKind::kStructure, bytes, 1, kStructureAttributeSpec));
    record->longNameConstructor = settings.long_name_constructor;
    record->longNameSource = settings.long_name_source;
    record->longNameDelimiter = settings.long_name_delimiter;
    record->reserved5 = settings.reserved5;
    record->dateFormat = settings.date_format;
    record->bucketingType = settings.bucketing_type;
    std::memcpy(record->reserved10, settings.reserved10.data(), settings.reserved10.size());
    char* tail = reinterpret_cast<char*>(record) + sizeof(AttributeSpecRecord);
    for (size_t i = 0; i < settings.texts.size(); ++i) {
      const auto& text = settings.texts[i];
      if (!text) continue;
      std::memcpy(tail, text->c_str(), text->size() + 1);
      record->*kSpecTexts[i] = tail;
      tail += text->size() + 1;
    }
    *spec = record;
    return kStatusOk;
  });
}

extern "C" int OlvOtlSetAttributeSpecifications(HOutline h, const AttributeSpecRecord* spec) {
  if (spec == nullptr) return kBadArgument;
  return edit_outline(h, [&](Outline& outline) -> int {
    AttributeSettings settings;
    settings.long_name_constructor = spec->longNameConstructor;
    settings.long_name_source = spec->longNameSource;
    settings.long_name_delimiter = spec->longNameDelimiter;
    settings.reserved5 = spec->reserved5;
    settings.date_format = spec->dateFormat;
    settings.bucketing_type = spec->bucketingType;
    settings.reserved10 = {spec->reserved10[0], spec->reserved10[1]};
    for (size_t i = 0; i < settings.texts.size(); ++i) {
      const char* const text = spec->*kSpecTexts[i];
      const int status = check_spec_text(text);
      if (status != kStatusOk) return status;
      settings.texts[i].reset();
      if (text != nullptr) settings.texts[i] = text;
    }
    outline.attribute_settings = std::move(settings);
    return kStatusOk;
  });
}
