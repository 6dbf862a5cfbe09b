// Which members of two outlines are the same one.
#pragma once

#include <unordered_set>
#include <vector>

#include "command/layer/outline.h"

namespace command {

// The members of a first outline that those of a second one were, and the other way round. A member
// whose name nobody else bears is the one of that name wherever it is; others are told by their
// order below the same parent. What is left over is the same when it stands beside the same
// neighbour and has the same fields but for the name: it was renamed.
class Match {
 public:
  Match(const Outline& before, const Outline& after);

  // False when there is none. The roots match each other.
  Member after_of(Member before) const { return other(after_, before, after_outline_); }
  Member before_of(Member after) const { return other(before_, after, before_outline_); }
  // True when some member of the first outline has none.
  bool lacks_some() const { return left_before_ > 0; }

 private:
  static Member other(const std::vector<HMember>& others, Member member, const Outline& outline) {
    const HMember handle = member.handle();
    return outline.member(handle < others.size() ? others[handle] : 0);
  }
  void pair(Member before, Member after);
  // Pairs what bears the same name, if there is anything and it can be the same: a dimension stays
  // one.
  bool pair_named(Member before, const Subtree::Iterator& after);
  // Pairs members by name and answers true, unless a name is repeated in either outline.
  bool pair_unique_names();
  void pair_repeated_names();
  void pair_by_order();
  void pair_renamed();
  Member between_same_neighbours(Member after, Member before_parent) const;

  const Outline& before_outline_;
  const Outline& after_outline_;
  std::unordered_set<HMember> before_dimensions_;
  size_t left_before_ = 0;  // members that match none
  size_t left_after_ = 0;
  std::vector<HMember> after_;   // by handle of the first outline
  std::vector<HMember> before_;  // by handle of the second outline
};

}  // namespace command
