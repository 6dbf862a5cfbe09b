// One member of an outline as it lies in memory.
#pragma once

#include <array>
#include <cstdint>

#include "api/types.h"
#include "standin/outline/model/text_pool.h"

namespace standin {

using MemberId = uint32_t;
inline constexpr MemberId kRoot = 0;      // the root above the dimensions
inline constexpr MemberId kNoMember = 0;  // no such link

// Stored codes and flags of a member, under the names of MemberInfoRecord.
struct MemberProperties {
  int16_t consolidation = 0;
  int16_t conversion_type = 0;
  int16_t time_balance = 0;
  int16_t time_balance_skip = 0;
  int16_t share_option = 0;
  int16_t storage_type = 0;
  int16_t dimension_category = 0;
  int16_t storage_category = 0;
  int16_t attribute_type = 0;
  uint8_t two_pass = 0;
  uint8_t expense = 0;
  uint8_t hybrid_flag = 0;
  uint8_t hybrid_analysis_enabled = 0;
  std::array<uint8_t, 22> reserved{};  // reserved530, reserved534 and reserved546, in this order
};

// The texts that a member may have besides its name.
enum class TextKind : uint8_t { kFormula, kComment, kExtendedComment, kCurrencyMember };
inline constexpr size_t kTextKinds = 4;

inline constexpr int32_t kLevelUnknown = -1;

// One member: its place, and where its name and its codes are kept.
struct Member {
  MemberId parent = kRoot;
  MemberId first_child = kNoMember;
  MemberId last_child = kNoMember;
  MemberId next = kNoMember;
  MemberId previous = kNoMember;
  MemberId dimension = kNoMember;  // itself for a dimension
  uint32_t child_count = 0;
  uint32_t generation = 0;    // 1 for a dimension
  mutable int32_t level = 0;  // kLevelUnknown until asked for, not kept for a dimension: read it
                              // with Outline::level
  TextRef name = kNoText;     // none: the root, or a member that was deleted
  uint32_t properties = 0;    // in the outline's PropertySets
};

}  // namespace standin
