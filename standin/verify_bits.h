// What OlvOtlVerifyOutline reports: the bits of a MemberErrorEntry's two words and of the global
// word. Numbers are never reused for another meaning; programs turn them into sentences.
#pragma once

#include <cstdint>
#include <string_view>

#include "api/types.h"

namespace standin {

// ---- MemberErrorEntry::errorPortion ----

inline constexpr uint32_t kErrorNameEmpty = 1u << 0;      // the name is empty or blanks only
inline constexpr uint32_t kErrorNameTooLong = 1u << 1;    // the name is over kMaxMemberName bytes
inline constexpr uint32_t kErrorNameFirst = 1u << 2;      // begins with one of kForbiddenFirst
inline constexpr uint32_t kErrorNameCharacter = 1u << 3;  // contains a quote, tab or line end
inline constexpr uint32_t kErrorNameSibling = 1u << 4;    // a sibling had the same name before
// The name belongs to a member elsewhere in the outline, and this one is not marked as shared.
inline constexpr uint32_t kErrorNameElsewhere = 1u << 5;
// Marked as shared, but its dimension has no unshared member of that name.
inline constexpr uint32_t kErrorSharedWithoutBase = 1u << 6;
inline constexpr uint32_t kErrorSharedWithChildren = 1u << 7;  // marked as shared, has children
inline constexpr uint32_t kErrorFormulaOnAttribute = 1u << 8;  // attribute member with a formula
inline constexpr uint32_t kErrorLabelOnlyLevel0 = 1u << 9;     // label only, but without children
// An attribute dimension that no base dimension is associated with.
inline constexpr uint32_t kErrorAttributeUnused = 1u << 10;
inline constexpr uint32_t kErrorSecondTime = 1u << 11;      // a further time dimension
inline constexpr uint32_t kErrorSecondAccounts = 1u << 12;  // a further accounts dimension
inline constexpr uint32_t kErrorSecondCountry = 1u << 13;   // a further country dimension

// ---- MemberErrorEntry::extendedPortion ----

// Another member has the same alias in the same table; shared members may repeat one.
inline constexpr uint32_t kExtendedAliasTwice = 1u << 0;
inline constexpr uint32_t kExtendedAliasIsName = 1u << 1;  // the alias is another member's name
inline constexpr uint32_t kExtendedAliasFirst = 1u << 2;   // begins with one of kForbiddenFirst
// A generation or level of this dimension is named twice, or like a member.
inline constexpr uint32_t kExtendedGenLevelName = 1u << 3;
// A dynamic time series is enabled on a generation that this time dimension does not have.
inline constexpr uint32_t kExtendedSeriesGeneration = 1u << 4;
// More generations than a record can tell (32767).
inline constexpr uint32_t kExtendedTooDeep = 1u << 5;

// ---- The global word ----

inline constexpr uint32_t kGlobalNoDimension = 1u << 0;  // no dimension but attribute dimensions
inline constexpr uint32_t kGlobalTwoTime = 1u << 1;      // more than one time dimension
inline constexpr uint32_t kGlobalTwoAccounts = 1u << 2;  // more than one accounts dimension
inline constexpr uint32_t kGlobalTwoCountry = 1u << 3;   // more than one country dimension
inline constexpr uint32_t kGlobalAliasTables = 1u << 4;  // two alias tables of one name

// ---- Names ----

// Characters that a name must not begin with, because formulas and reports read them as syntax.
inline constexpr std::string_view kForbiddenFirst = "@\\(){}<>=,.|+-'\"";
// Characters that a name must not contain: it could not be quoted.
inline constexpr std::string_view kForbiddenAnywhere = "\"\t\r\n";

// The errorPortion bits that a member's name earns by itself.
constexpr uint32_t name_error_bits(std::string_view name) {
  if (name.find_first_not_of(' ') == std::string_view::npos) return kErrorNameEmpty;
  uint32_t bits = 0;
  if (name.size() > static_cast<size_t>(kMaxMemberName)) bits |= kErrorNameTooLong;
  if (kForbiddenFirst.find(name.front()) != std::string_view::npos) bits |= kErrorNameFirst;
  if (name.find_first_of(kForbiddenAnywhere) != std::string_view::npos) bits |= kErrorNameCharacter;
  return bits;
}

}  // namespace standin
