// Codes and their words.
#include "command/layer/properties.h"

#include <strings.h>

#include <charconv>
#include <cstring>
#include <limits>

#include "command/layer/formatting.h"
#include "command/layer/text.h"
#include "edit/edit.h"

namespace command {
namespace {

using Record = MemberInfoRecord;

Property number(const char* name, int16_t Record::*field, std::vector<Word> words,
                const char* help) {
  return {name, field, nullptr, std::move(words), help};
}

Property flag(const char* name, uint8_t Record::*field, const char* help) {
  return {name, nullptr, field, {{0, "no"}, {1, "yes"}}, help};
}

bool same_word(std::string_view a, const char* b) {
  return a.size() == std::strlen(b) && strncasecmp(a.data(), b, a.size()) == 0;
}

template <typename Visit>
void for_each_reserved_byte(Visit&& visit) {
  for (size_t i = 0; i < sizeof Record::reserved530; ++i) visit(&Record::reserved530, i);
  for (size_t i = 0; i < sizeof Record::reserved534; ++i) visit(&Record::reserved534, i);
  for (size_t i = 0; i < sizeof Record::reserved546; ++i) visit(&Record::reserved546, i);
}

}  // namespace

const std::vector<Property>& properties() {
  static const std::vector<Property> kAll = {
      number("category", &Record::dimensionCategory,
             {{kCategoryNone, "none"},
              {kCategoryAccounts, "accounts"},
              {kCategoryTime, "time"},
              {3, "country"},
              {kCategoryAttribute, "attribute"}},
             "what a dimension stands for"),
      number("storage", &Record::shareOption,
             {{kShareNone, "stored"},
              {kShareShared, "shared"},
              {3, "label-only"},
              {kShareAttribute, "attribute"}},
             "how the data of a member is stored"),
      number("consolidation", &Record::consolidation,
             {{0, "default"}, {kConsolidationAttribute, "attribute"}},
             "how a member adds to its parent"),
      flag("two-pass", &Record::twoPass, "calculated in a second pass"),
      flag("expense", &Record::expense, "counted as an expense in variances"),
      number("time-balance", &Record::timeBalance, {{0, "none"}}, "how it is balanced over time"),
      number("time-balance-skip", &Record::timeBalanceSkip, {{0, "none"}},
             "which values the time balance leaves out"),
      number("conversion", &Record::conversionType, {{0, "none"}}, "currency conversion"),
      number("dimension-storage", &Record::storageType, {{0, "unset"}, {1, "regular"}},
             "storage type of a dimension"),
      number("storage-category", &Record::storageCategory,
             {{0, "none"}, {kStorageCategoryAttribute, "attribute"}}, "storage category"),
      number(
          "attribute-type", &Record::attributeType,
          {{0, "none"}, {kAttributeTypeDimension, "dimension"}, {kAttributeTypeMember, "member"}},
          "data type of an attribute"),
      flag("hybrid", &Record::hybridFlag, "hybrid flag of a level-0 member"),
      flag("hybrid-analysis", &Record::hybridAnalysisEnabled,
           "hybrid analysis is enabled for the dimension"),
  };
  return kAll;
}

const Property* find_property(std::string_view name) {
  for (const Property& property : properties()) {
    if (same_word(name, property.name)) return &property;
  }
  return nullptr;
}

int Property::get(const MemberInfoRecord& record) const {
  return number != nullptr ? record.*number : record.*flag;
}

void Property::set(MemberInfoRecord* record, int code) const {
  if (number != nullptr) {
    record->*number = static_cast<int16_t>(code);
  } else {
    record->*flag = static_cast<uint8_t>(code);
  }
}

std::string Property::text(int code) const {
  for (const Word& word : words) {
    if (word.code == code) return word.text;
  }
  return std::to_string(code);
}

std::optional<int> Property::code(std::string_view text) const {
  for (const Word& word : words) {
    if (same_word(text, word.text)) return word.code;
  }
  int code = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), code);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  const int least = number != nullptr ? std::numeric_limits<int16_t>::min() : 0;
  const int most = number != nullptr ? std::numeric_limits<int16_t>::max() : UINT8_MAX;
  if (code < least || code > most) return std::nullopt;
  return code;
}

std::string Property::choices() const {
  std::string list;
  for (const Word& word : words) {
    list += word.text;
    list += ", ";
  }
  return list + "or a number";
}

std::string reserved_text(const MemberInfoRecord& record) {
  bool any = false;
  for_each_reserved_byte([&](auto field, size_t i) { any = any || (record.*field)[i] != 0; });
  std::string digits;
  if (!any) return digits;
  for_each_reserved_byte(
      [&](auto field, size_t i) { digits += fmt::format("{:02x}", (record.*field)[i]); });
  return digits;
}

bool set_reserved(MemberInfoRecord* record, std::string_view digits) {
  bool valid = true;
  size_t at = 0;
  for_each_reserved_byte([&](auto field, size_t i) {
    unsigned byte = 0;
    if (!digits.empty()) {
      const char* const from = digits.data() + at;
      valid = valid && at + 2 <= digits.size() &&
              std::from_chars(from, from + 2, byte, 16).ptr == from + 2;
      at += 2;
    }
    if (valid) (record->*field)[i] = static_cast<uint8_t>(byte);
  });
  return valid && at == digits.size();
}

bool new_record(MemberInfoRecord* record, bool dimension, bool attribute, std::string_view name) {
  const std::string text = inside(name);
  *record = {};
  if (text.empty() || !kepotl::store_text(record->name, kMaxMemberName, text.c_str())) return false;
  record->storageType = kStorageTypeRegular;
  if (!attribute) return true;
  record->consolidation = kConsolidationAttribute;
  record->shareOption = kShareAttribute;
  record->dimensionCategory = kCategoryAttribute;
  record->storageCategory = kStorageCategoryAttribute;
  record->attributeType = dimension ? kAttributeTypeDimension : kAttributeTypeMember;
  return true;
}

}  // namespace command
