// One member as it lies in memory, and the arena that holds all members of an outline.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <unordered_set>
#include <vector>

#include "api/types.h"

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

// What few members have. Empty texts mean "none".
struct MemberExtras {
  std::array<std::string, kTextKinds> texts;  // by TextKind
  std::vector<std::string> udas;              // in the order they were given
  std::vector<MemberId> associations;         // attributes of this member, or of this dimension
  std::unordered_set<MemberId> carriers;  // the other direction: who is associated with this one
};

// One member. Links and numbers are kept by Outline; the rest may be changed freely.
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
  bool living = false;
  MemberProperties properties;
  std::string name;
  std::unique_ptr<MemberExtras> extra;  // null while there is nothing to keep

  // The extras, made when missing.
  MemberExtras& extras() {
    if (!extra) extra = std::make_unique<MemberExtras>();
    return *extra;
  }
};

inline constexpr int32_t kLevelUnknown = -1;

// Members by number, in chunks that never move: references stay good while the arena grows.
class MemberArena {
 public:
  uint32_t size() const { return size_; }
  Member& at(MemberId id) { return chunks_[id / kChunk][id % kChunk]; }
  const Member& at(MemberId id) const { return chunks_[id / kChunk][id % kChunk]; }
  // Adds one empty member and answers its number.
  MemberId grow() {
    if (size_ == chunks_.size() * kChunk) chunks_.push_back(std::make_unique<Member[]>(kChunk));
    return size_++;
  }

 private:
  static constexpr uint32_t kChunk = 1024;
  std::vector<std::unique_ptr<Member[]>> chunks_;
  uint32_t size_ = 0;
};

}  // namespace standin
