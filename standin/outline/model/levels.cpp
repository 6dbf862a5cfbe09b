// Levels of members. A dimension's is told by counting the members of each of its generations. The
// others are kept where that is cheap, marked unknown where it is not, and worked out when asked
// for; an unknown level makes the levels of all members above unknown as well.
#include <algorithm>

#include "standin/outline/model/outline.h"

namespace standin {

namespace {
// Ancestors whose level is raised at once when a member is added. Beyond it they become unknown,
// so that building a deep chain costs no walk to the top per member.
constexpr int kMostRaised = 64;
}  // namespace

// Lets count_in() of a member of this dimension and generation succeed.
void Outline::make_room(MemberId dimension, uint32_t generation) {
  std::vector<uint32_t>& sizes = generation_sizes_[dimension];
  if (sizes.capacity() < generation) sizes.reserve(size_t{2} * generation);
}

void Outline::count_in(MemberId id) {
  const Member& counted = member(id);
  std::vector<uint32_t>& sizes = generation_sizes_.find(counted.dimension)->second;
  if (sizes.size() < counted.generation) sizes.resize(counted.generation);
  ++sizes[counted.generation - 1];
}

void Outline::count_out(MemberId id) {
  const Member& counted = member(id);
  const auto found = generation_sizes_.find(counted.dimension);
  std::vector<uint32_t>& sizes = found->second;
  --sizes[counted.generation - 1];
  while (!sizes.empty() && sizes.back() == 0) sizes.pop_back();
  if (sizes.empty()) generation_sizes_.erase(found);
}

uint32_t Outline::level(MemberId id) const {
  if (is_dimension(id)) {
    return static_cast<uint32_t>(generation_sizes_.find(id)->second.size()) - 1;
  }
  MemberId node = id;
  MemberId child = member(node).first_child;
  while (member(id).level == kLevelUnknown) {
    while (child != kNoMember && member(child).level != kLevelUnknown) child = member(child).next;
    if (child != kNoMember) {
      node = child;
      child = member(node).first_child;
      continue;
    }
    int32_t highest = -1;
    for (const MemberId below : children(node)) highest = std::max(highest, member(below).level);
    member(node).level = highest + 1;
    child = member(node).next;
    node = member(node).parent;
  }
  return static_cast<uint32_t>(member(id).level);
}

void Outline::invalidate_levels(MemberId id) {
  for (; !is_dimension(id) && member(id).level != kLevelUnknown; id = member(id).parent) {
    member(id).level = kLevelUnknown;
  }
}

// After `child` has been linked below `parent`.
void Outline::level_added(MemberId parent, MemberId child) {
  int32_t needed = member(child).level + 1;
  if (member(child).level == kLevelUnknown) {
    invalidate_levels(parent);
    return;
  }
  for (int step = 0; step < kMostRaised; ++step, ++needed, parent = member(parent).parent) {
    if (is_dimension(parent) || member(parent).level == kLevelUnknown) return;
    if (member(parent).level >= needed) return;
    member(parent).level = needed;
  }
  if (member(parent).level < needed) invalidate_levels(parent);
}

// Before `child` is unlinked from `parent`. A neighbour of the same level spares looking at the
// other children.
void Outline::level_removed(MemberId parent, MemberId child) {
  if (is_dimension(parent) || member(parent).level == kLevelUnknown) return;
  const Member& leaving = member(child);
  if (leaving.level + 1 < member(parent).level) return;
  for (const MemberId neighbour : {leaving.previous, leaving.next}) {
    if (neighbour != kNoMember && member(neighbour).level == leaving.level) return;
  }
  invalidate_levels(parent);
}

}  // namespace standin
