// What the editing methods share, without a virtual machine: texts in fixed fields, the
// read-modify-write of one member's record, and the addition of a member.
#pragma once

#include <cstring>

#include "bridge/guards.h"

namespace kepotl {

// Stores a text with its NUL in a fixed field that allows at most `limit` characters; what stands
// behind the NUL stays. False, and the field untouched, when it does not fit: texts are never cut.
template <size_t Size>
bool store_text(char (&field)[Size], size_t limit, const char* text) {
  const size_t length = std::strlen(text);
  if (length > limit || length >= Size) return false;
  std::memcpy(field, text, length + 1);
  return true;
}

// Reads the record of a member, calls change(record), writes the whole record back and releases
// it. The status of the write, or of the read when that gives no record.
template <typename Change>
int update_member(HOutline outline, HMember member, Change change) {
  MemberRecord record(outline);
  const int status = record.read(member);
  if (!record) return status_without_record(status);
  change(*record);
  return OlvOtlSetMemberInfoEx(outline, member, record.get(), kMemberOption);
}

// Category of a dimension; none for one that cannot be read.
inline int16_t category_of(HOutline outline, HMember dimension) {
  MemberRecord record(outline);
  record.read(dimension);
  return record ? record->dimensionCategory : kCategoryNone;
}

// Where a new member goes: below `parent` and behind `sibling`, each where it is not 0.
struct Place {
  HMember parent;
  HMember sibling;
};

// Adds a member under a parent, or behind a sibling. `handle` may be 0 after a success, too.
GivenHandle add_member(HOutline outline, const MemberInfoRecord& info, Place place);

// Adds a member with the defaults of its place, or a dimension where there is no parent. A member
// whose name is in use is added under a temporary name and renamed; nothing is left behind when
// that is refused. `name` has at most kMaxMemberName characters. `handle` may be 0 after a success,
// too.
GivenHandle add_with_defaults(HOutline outline, Place place, const char* name);
// The same for a place below a parent whose dimension is known.
GivenHandle add_in_dimension(HOutline outline, Place place, HMember dimension, const char* name);

// What makes a dimension an attribute dimension.
void set_attribute_dimension_defaults(MemberInfoRecord* info, int16_t attribute_type);

// Moves a dimension that has just become an attribute dimension behind the regular dimensions that
// follow it; one with none behind it stays where it is. The status of the move, 0 when none.
int place_attribute_dimension(HOutline outline, HMember dimension);

}  // namespace kepotl
