// How handles and records read in the journal.
#include <cstring>
#include <type_traits>

#include "tests/native/api_double.h"
#include "tests/native/journal.h"

namespace {

// The fields of a record that differ from those of another, in braces with one blank between them.
template <typename Record>
class Fields {
 public:
  explicit Fields(const Record& record, const Record& baseline = {})
      : record_(record), baseline_(baseline) {}

  void add(const std::string& name, const std::string& value) {
    text_ += (text_.empty() ? "" : " ") + name + '=' + value;
  }

  template <typename Field>
  void compare(const char* name, Field Record::*field) {
    const std::string value = value_text(name, record_.*field);
    if (value == value_text(name, baseline_.*field)) return;
    constexpr bool kReserved = std::is_same_v<std::remove_extent_t<Field>, uint8_t>;
    add(name, std::is_array_v<Field> && kReserved ? "changed" : value);
  }

  std::string text() const { return '{' + text_ + '}'; }

 private:
  template <typename Field>
  static std::string value_text(const char* name, const Field& field) {
    if constexpr (std::is_integral_v<Field>) {
      return std::to_string(field);
    } else if constexpr (std::is_same_v<std::remove_extent_t<Field>, uint8_t>) {
      return std::string(std::begin(field), std::end(field));
    } else {
      if constexpr (std::is_array_v<Field>) {
        if (std::memchr(field, '\0', sizeof field) == nullptr) {
          journal().fault(std::string("A text without an end in the field ") + name);
          return "endless";
        }
      }
      return quoted(field);
    }
  }

  const Record& record_;
  const Record baseline_;
  std::string text_;
};

}  // namespace

std::string needed(const char* text) {
  if (text == nullptr) journal().fault("A null text reaches the API where one is needed");
  return quoted(text);
}

std::string handle_name(uint32_t handle) {
  static const std::map<uint32_t, const char*> kNames = {
      {0, "0"},
      {kInst, "inst"},
      {kContext, "context"},
      {kLocalContext, "local"},
      {kOutline, "outline"},
      {kOpenedOutline, "opened"},
      {kCurrencyOutline, "currency"},
  };
  const auto found = kNames.find(handle);
  return found == kNames.end() ? "unknown" : found->second;
}

Argument::Argument(const char* needed) : text(::needed(needed)) {}

Argument::Argument(uint32_t handle_or_number) {
  const std::string handle = handle_name(handle_or_number);
  const std::string member = api().name_of(handle_or_number);
  text = handle != "unknown"   ? handle
         : member != "unknown" ? member
                               : std::to_string(handle_or_number);
}

std::string ApiDouble::name_of(HMember handle) const {
  if (handle == 0) return "0";
  if (handle < kFirstMember || handle - kFirstMember >= members.size()) return "unknown";
  const DoubleMember& member = members[handle - kFirstMember];
  return std::string(member.deleted ? "deleted " : "") + member.info.name;
}

std::string describe(const MemberInfoRecord& record, const MemberInfoRecord& baseline) {
  Fields<MemberInfoRecord> fields(record, baseline);
  fields.compare("name", &MemberInfoRecord::name);
  fields.compare("level", &MemberInfoRecord::level);
  fields.compare("generation", &MemberInfoRecord::generation);
  fields.compare("consolidation", &MemberInfoRecord::consolidation);
  fields.compare("twoPass", &MemberInfoRecord::twoPass);
  fields.compare("expense", &MemberInfoRecord::expense);
  fields.compare("conversionType", &MemberInfoRecord::conversionType);
  fields.compare("currencyMember", &MemberInfoRecord::currencyMember);
  fields.compare("timeBalance", &MemberInfoRecord::timeBalance);
  fields.compare("timeBalanceSkip", &MemberInfoRecord::timeBalanceSkip);
  fields.compare("shareOption", &MemberInfoRecord::shareOption);
  fields.compare("storageType", &MemberInfoRecord::storageType);
  fields.compare("dimensionCategory", &MemberInfoRecord::dimensionCategory);
  fields.compare("storageCategory", &MemberInfoRecord::storageCategory);
  fields.compare("comment", &MemberInfoRecord::comment);
  fields.compare("childCount", &MemberInfoRecord::childCount);
  fields.compare("dimensionName", &MemberInfoRecord::dimensionName);
  fields.compare("isAttributed", &MemberInfoRecord::isAttributed);
  fields.compare("attributeType", &MemberInfoRecord::attributeType);
  fields.compare("hybridFlag", &MemberInfoRecord::hybridFlag);
  fields.compare("hybridAnalysisEnabled", &MemberInfoRecord::hybridAnalysisEnabled);
  fields.compare("reserved530", &MemberInfoRecord::reserved530);
  fields.compare("reserved534", &MemberInfoRecord::reserved534);
  fields.compare("reserved546", &MemberInfoRecord::reserved546);
  return fields.text();
}

std::string describe(const ObjectDefinitionRecord* object) {
  if (object == nullptr) return "null";
  Fields<ObjectDefinitionRecord> fields(*object);
  if (object->context != 0) fields.add("context", handle_name(object->context));
  fields.compare("type", &ObjectDefinitionRecord::objectType);
  fields.compare("application", &ObjectDefinitionRecord::applicationName);
  fields.compare("database", &ObjectDefinitionRecord::databaseName);
  fields.compare("object", &ObjectDefinitionRecord::objectName);
  return fields.text();
}

std::string describe(const MemberQuery* query) {
  Fields<MemberQuery> fields(*query);
  fields.compare("type", &MemberQuery::queryType);
  fields.compare("options", &MemberQuery::options);
  fields.compare("dimension", &MemberQuery::dimension);
  fields.compare("pattern1", &MemberQuery::pattern1);
  fields.compare("pattern2", &MemberQuery::pattern2);
  return fields.text();
}

std::string describe(const MemberQueryCounts* counts) {
  Fields<MemberQueryCounts> fields(*counts);
  fields.compare("start", &MemberQueryCounts::start);
  fields.compare("max", &MemberQueryCounts::maxCount);
  fields.compare("total", &MemberQueryCounts::totalCount);
  fields.compare("returned", &MemberQueryCounts::returned);
  return fields.text();
}

std::string describe(const AttributeQuery* query) {
  Fields<AttributeQuery> fields(*query);
  fields.compare("usage", &AttributeQuery::usage);
  fields.add("member", api().name_of(query->member));
  fields.compare("input", &AttributeQuery::inputType);
  fields.compare("output", &AttributeQuery::outputType);
  fields.compare("operation", &AttributeQuery::operation);
  fields.compare("reserved12", &AttributeQuery::reserved12);
  return fields.text();
}

std::string describe(const OutlineInfoRecord& record, const OutlineInfoRecord& baseline) {
  Fields<OutlineInfoRecord> fields(record, baseline);
  fields.compare("caseSensitive", &OutlineInfoRecord::caseSensitive);
  fields.compare("reserved1", &OutlineInfoRecord::reserved1);
  fields.compare("outlineType", &OutlineInfoRecord::outlineType);
  fields.compare("configureFlags", &OutlineInfoRecord::configureFlags);
  fields.compare("reserved5", &OutlineInfoRecord::reserved5);
  fields.compare("aliasTableCount", &OutlineInfoRecord::aliasTableCount);
  return fields.text();
}

std::string describe(const AttributeSpecRecord& record, const AttributeSpecRecord& baseline) {
  Fields<AttributeSpecRecord> fields(record, baseline);
  fields.compare("longNameConstructor", &AttributeSpecRecord::longNameConstructor);
  fields.compare("longNameSource", &AttributeSpecRecord::longNameSource);
  fields.compare("longNameDelimiter", &AttributeSpecRecord::longNameDelimiter);
  fields.compare("reserved5", &AttributeSpecRecord::reserved5);
  fields.compare("dateFormat", &AttributeSpecRecord::dateFormat);
  fields.compare("bucketingType", &AttributeSpecRecord::bucketingType);
  fields.compare("reserved10", &AttributeSpecRecord::reserved10);
  fields.compare("trueName", &AttributeSpecRecord::trueName);
  fields.compare("falseName", &AttributeSpecRecord::falseName);
  fields.compare("calcDimensionName", &AttributeSpecRecord::calcDimensionName);
  fields.compare("sumName", &AttributeSpecRecord::sumName);
  fields.compare("countName", &AttributeSpecRecord::countName);
  fields.compare("averageName", &AttributeSpecRecord::averageName);
  fields.compare("minimumName", &AttributeSpecRecord::minimumName);
  fields.compare("maximumName", &AttributeSpecRecord::maximumName);
  return fields.text();
}
