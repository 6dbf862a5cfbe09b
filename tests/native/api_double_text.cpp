// How handles and records read in the journal.
#include <cstring>

#include "tests/native/api_double.h"
#include "tests/native/journal.h"

namespace {

// A group of texts in braces, one blank between them.
class Fields {
 public:
  void add(const std::string& name, const std::string& value) {
    text_ += (text_.empty() ? "" : " ") + name + '=' + value;
  }
  void add_number(const char* name, long long value) {
    if (value != 0) add(name, std::to_string(value));
  }
  void add_text(const char* name, const char* value) {
    if (value != nullptr) add(name, quoted(value));
  }
  std::string text() const { return '{' + text_ + '}'; }

 private:
  std::string text_;
};

enum class Type { kText, kByte, kShort, kWord };

struct Field {
  const char* name;
  size_t offset;
  Type type;
  size_t size;
};

constexpr Field kMemberFields[] = {
    {"name", offsetof(MemberInfoRecord, name), Type::kText, 82},
    {"level", offsetof(MemberInfoRecord, level), Type::kShort, 2},
    {"generation", offsetof(MemberInfoRecord, generation), Type::kShort, 2},
    {"consolidation", offsetof(MemberInfoRecord, consolidation), Type::kShort, 2},
    {"twoPass", offsetof(MemberInfoRecord, twoPass), Type::kByte, 1},
    {"expense", offsetof(MemberInfoRecord, expense), Type::kByte, 1},
    {"conversionType", offsetof(MemberInfoRecord, conversionType), Type::kShort, 2},
    {"currencyMember", offsetof(MemberInfoRecord, currencyMember), Type::kText, 82},
    {"timeBalance", offsetof(MemberInfoRecord, timeBalance), Type::kShort, 2},
    {"timeBalanceSkip", offsetof(MemberInfoRecord, timeBalanceSkip), Type::kShort, 2},
    {"shareOption", offsetof(MemberInfoRecord, shareOption), Type::kShort, 2},
    {"storageType", offsetof(MemberInfoRecord, storageType), Type::kShort, 2},
    {"dimensionCategory", offsetof(MemberInfoRecord, dimensionCategory), Type::kShort, 2},
    {"storageCategory", offsetof(MemberInfoRecord, storageCategory), Type::kShort, 2},
    {"comment", offsetof(MemberInfoRecord, comment), Type::kText, 258},
    {"childCount", offsetof(MemberInfoRecord, childCount), Type::kWord, 4},
    {"dimensionName", offsetof(MemberInfoRecord, dimensionName), Type::kText, 81},
    {"isAttributed", offsetof(MemberInfoRecord, isAttributed), Type::kByte, 1},
    {"attributeType", offsetof(MemberInfoRecord, attributeType), Type::kShort, 2},
    {"hybridFlag", offsetof(MemberInfoRecord, hybridFlag), Type::kByte, 1},
    {"hybridAnalysisEnabled", offsetof(MemberInfoRecord, hybridAnalysisEnabled), Type::kByte, 1},
};

// Ranges that belong to the API alone.
constexpr Field kReservedFields[] = {
    {"reserved530", offsetof(MemberInfoRecord, reserved530), Type::kByte, 2},
    {"reserved534", offsetof(MemberInfoRecord, reserved534), Type::kByte, 10},
    {"reserved546", offsetof(MemberInfoRecord, reserved546), Type::kByte, 10},
};

template <typename T>
T read(const void* record, size_t offset) {
  T value;
  std::memcpy(&value, static_cast<const char*>(record) + offset, sizeof value);
  return value;
}

std::string value_text(const void* record, const Field& field) {
  switch (field.type) {
    case Type::kText: {
      const char* text = static_cast<const char*>(record) + field.offset;
      if (std::memchr(text, '\0', field.size) == nullptr) {
        journal().fault(std::string("A text without an end in the field ") + field.name);
        return "endless";
      }
      return quoted(text);
    }
    case Type::kByte:
      return std::to_string(read<uint8_t>(record, field.offset));
    case Type::kShort:
      return std::to_string(read<int16_t>(record, field.offset));
    case Type::kWord:
      return std::to_string(read<uint32_t>(record, field.offset));
  }
  return "";
}

}  // namespace

std::string needed(const char* text) {
  if (text == nullptr) journal().fault("A null text reaches the API where one is needed");
  return quoted(text);
}

std::string handle_name(uint32_t handle) {
  switch (handle) {
    case 0:
      return "0";
    case kInst:
      return "inst";
    case kContext:
      return "context";
    case kLocalContext:
      return "local";
    case kOutline:
      return "outline";
    case kOpenedOutline:
      return "opened";
    case kCurrencyOutline:
      return "currency";
    default:
      return "unknown";
  }
}

std::string ApiDouble::name_of(HMember handle) const {
  if (handle == 0) return "0";
  if (handle < kFirstMember || handle - kFirstMember >= members.size()) return "unknown";
  const DoubleMember& member = members[handle - kFirstMember];
  return std::string(member.deleted ? "deleted " : "") + member.info.name;
}

std::string describe(const MemberInfoRecord& record, const MemberInfoRecord& baseline) {
  Fields fields;
  for (const Field& field : kMemberFields) {
    const std::string value = value_text(&record, field);
    if (value != value_text(&baseline, field)) fields.add(field.name, value);
  }
  for (const Field& field : kReservedFields) {
    if (std::memcmp(reinterpret_cast<const char*>(&record) + field.offset,
                    reinterpret_cast<const char*>(&baseline) + field.offset, field.size) != 0) {
      fields.add(field.name, "changed");
    }
  }
  return fields.text();
}

std::string describe(const ObjectDefinitionRecord* object) {
  if (object == nullptr) return "null";
  Fields fields;
  if (object->context != 0) fields.add("context", handle_name(object->context));
  fields.add_number("type", object->objectType);
  fields.add_text("application", object->applicationName);
  fields.add_text("database", object->databaseName);
  fields.add_text("object", object->objectName);
  return fields.text();
}

std::string describe(const MemberQuery* query) {
  Fields fields;
  fields.add_number("type", query->queryType);
  fields.add_number("options", query->options);
  fields.add_text("dimension", query->dimension);
  fields.add_text("pattern1", query->pattern1);
  fields.add_text("pattern2", query->pattern2);
  return fields.text();
}

std::string describe(const MemberQueryCounts* counts) {
  Fields fields;
  fields.add_number("start", counts->start);
  fields.add_number("max", counts->maxCount);
  fields.add_number("total", counts->totalCount);
  fields.add_number("returned", counts->returned);
  return fields.text();
}

std::string describe(const AttributeQuery* query) {
  Fields fields;
  fields.add_number("usage", query->usage);
  fields.add("member", api().name_of(query->member));
  fields.add_number("input", query->inputType);
  fields.add_number("output", query->outputType);
  fields.add_number("operation", query->operation);
  for (uint8_t byte : query->reserved12) fields.add_number("reserved12", byte);
  return fields.text();
}

std::string describe(const AttributeSpecRecord& record, const AttributeSpecRecord& baseline) {
  Fields fields;
  const auto number = [&](const char* name, int now, int before) {
    if (now != before) fields.add(name, std::to_string(now));
  };
  const auto text = [&](const char* name, const char* now, const char* before) {
    if (quoted(now) != quoted(before)) fields.add(name, quoted(now));
  };
  number("longNameConstructor", record.longNameConstructor, baseline.longNameConstructor);
  number("longNameSource", record.longNameSource, baseline.longNameSource);
  number("longNameDelimiter", record.longNameDelimiter, baseline.longNameDelimiter);
  number("reserved5", record.reserved5, baseline.reserved5);
  number("dateFormat", record.dateFormat, baseline.dateFormat);
  number("bucketingType", record.bucketingType, baseline.bucketingType);
  number("reserved10", record.reserved10[0], baseline.reserved10[0]);
  text("trueName", record.trueName, baseline.trueName);
  text("falseName", record.falseName, baseline.falseName);
  text("calcDimensionName", record.calcDimensionName, baseline.calcDimensionName);
  text("sumName", record.sumName, baseline.sumName);
  text("countName", record.countName, baseline.countName);
  text("averageName", record.averageName, baseline.averageName);
  text("minimumName", record.minimumName, baseline.minimumName);
  text("maximumName", record.maximumName, baseline.maximumName);
  return fields.text();
}
