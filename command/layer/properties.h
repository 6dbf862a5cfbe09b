// The codes and flags of a member record under the names and in the words that people read and
// write: one table for showing, exporting, loading, editing and comparing.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "api/records.h"

namespace command {

struct Word {
  int code;
  const char* text;
};

// One code or flag of a record.
struct Property {
  const char* name;
  int16_t MemberInfoRecord::*number;  // null for a flag
  uint8_t MemberInfoRecord::*flag;    // null for a number
  std::vector<Word> words;
  const char* help;

  int get(const MemberInfoRecord& record) const;
  void set(MemberInfoRecord* record, int code) const;
  // The word of a code, or the code in digits where it has none.
  std::string text(int code) const;
  // The code of a word in any case, or of digits within the field's range.
  std::optional<int> code(std::string_view text) const;
  // The words, for a message: "none, accounts or time".
  std::string choices() const;
};

// All of them, in the order in which they are shown.
const std::vector<Property>& properties();
// The property of a name; null when there is none.
const Property* find_property(std::string_view name);

// The reserved bytes of a record as hexadecimal digits, empty when they are all zero.
std::string reserved_text(const MemberInfoRecord& record);
// False when the digits are not as many as there are bytes.
bool set_reserved(MemberInfoRecord* record, std::string_view digits);

// The record of a new member below `parent`, a dimension when that is the root's: what the place
// asks for, and the name. False when the name is empty or has more than 80 bytes inside.
bool new_record(MemberInfoRecord* record, bool dimension, bool attribute, std::string_view name);

}  // namespace command
