// Which members of two outlines are the same one.
#pragma once

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

 private:
  static Member other(const std::vector<HMember>& others, Member member, const Outline& outline) {
    const HMember handle = member.handle();
    return outline.member(handle < others.size() ? others[handle] : 0);
  }
  void pair(Member before, Member after);
  void pair_by_name();
  void pair_by_order();
  void pair_renamed();
  Member between_same_neighbours(Member after, Member before_parent) const;

  const Outline& before_outline_;
  const Outline& after_outline_;
  std::vector<HMember> after_;   // by handle of the first outline
  std::vector<HMember> before_;  // by handle of the second outline
};

}  // namespace command
