// What the editing methods share: texts in fixed fields, and the read-modify-write of one member's
// record.
#pragma once

#include <cstring>

#include "bridge/scope.h"

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
// it. The status of the write, or of the read when that fails.
template <typename Change>
int update_member(HOutline outline, HMember member, Change change) {
  MemberRecord record(outline);
  const int status = record.read(member);
  if (status != kStatusOk) return status;
  change(*record);
  return OlvOtlSetMemberInfoEx(outline, member, record.get(), kMemberOption);
}

// What makes a dimension an attribute dimension.
void set_attribute_dimension_defaults(MemberInfoRecord* info, int16_t attribute_type);

}  // namespace kepotl
