// Member records of the interface: checking them, and taking over what a caller may set.
#pragma once

#include "standin/outline/model/outline.h"

namespace standin {

// Answers whether a text may be a member's name: kEmptyName, kNameTooLong or 0.
int check_name(std::string_view name);

// The name field of a record, ended by its NUL or by the field's end.
std::string_view record_name(const MemberInfoRecord& info);

// Answers whether the texts of a record, its name aside, fit their fields: kNameTooLong,
// kBadArgument or 0.
int check_record(const MemberInfoRecord& info);

// Gives a member the properties, currency member and comment of a checked record. Name, place and
// computed fields stay. Associations and time-series entries that a new dimension category rules
// out are removed.
void apply_record(Outline& outline, MemberId id, const MemberInfoRecord& info);

}  // namespace standin
