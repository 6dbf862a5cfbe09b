// Matching the members of two outlines.
#include "command/compare/match.h"

#include <map>
#include <unordered_map>

#include "command/compare/fields.h"
#include "command/layer/naming.h"

namespace command {
namespace {

void set(std::vector<HMember>* list, HMember at, HMember value) {
  if (at >= list->size()) list->resize(at + at / 2 + 64);
  (*list)[at] = value;
}

// The only member of a name, when it is not shared; false when there is none or several.
Member sole_holder(const Outline& outline, const std::string& name, bool repeats) {
  if (!repeats) {
    const Member member = outline.find(name);
    return member && !member.shared() ? member : Member();
  }
  const std::vector<Member> holders = outline.holders(name);
  return holders.size() == 1 && !holders.front().shared() ? holders.front() : Member();
}

bool has_repeats(const Outline& outline) {
  for (const Member member : subtree(outline.root())) {
    if (outline.find(member.name()) != member) return true;
  }
  return false;
}

}  // namespace

Match::Match(const Outline& before, const Outline& after)
    : before_outline_(before), after_outline_(after) {
  pair_by_name();
  pair_by_order();
  pair_renamed();
}

void Match::pair(Member before, Member after) {
  set(&after_, before.handle(), after.handle());
  set(&before_, after.handle(), before.handle());
}

void Match::pair_by_name() {
  const bool before_repeats = has_repeats(before_outline_);
  const bool after_repeats = has_repeats(after_outline_);
  for (const Member after : subtree(after_outline_.root())) {
    const std::string name = after.name();
    if (after_repeats && sole_holder(after_outline_, name, true) != after) continue;
    if (!after_repeats && after.shared()) continue;
    const Member before = sole_holder(before_outline_, name, before_repeats);
    // A dimension stays one.
    if (before && static_cast<bool>(before.parent()) == static_cast<bool>(after.parent())) {
      pair(before, after);
    }
  }
}

// Parents come before their children, so that theirs are matched by then.
void Match::pair_by_order() {
  const auto pair_children = [&](Member before_parent, Member after_parent) {
    std::map<std::pair<std::string, bool>, std::vector<Member>> waiting;
    bool any = false;
    for (const Member child : children(before_parent)) {
      if (after_of(child)) continue;
      waiting[{child.name(), child.shared()}].push_back(child);
      any = true;
    }
    if (!any) return;
    std::map<std::pair<std::string, bool>, size_t> used;
    for (const Member child : children(after_parent)) {
      if (before_of(child)) continue;
      const std::pair<std::string, bool> key{child.name(), child.shared()};
      const auto found = waiting.find(key);
      size_t& next = used[key];
      if (found != waiting.end() && next < found->second.size()) pair(found->second[next++], child);
    }
  };
  pair_children(before_outline_.root(), after_outline_.root());
  for (const Member after : subtree(after_outline_.root())) {
    if (const Member before = before_of(after)) pair_children(before, after);
  }
}

// The member that stands behind, or before, what the neighbours of `after` were.
Member Match::between_same_neighbours(Member after, Member before_parent) const {
  const Member previous = after.previous();
  const Member before_previous = previous ? before_of(previous) : Member();
  if (!previous) return before_parent.first_child();
  if (before_previous && before_previous.parent() == before_parent) return before_previous.next();
  const Member next = after.next();
  const Member before_next = next ? before_of(next) : Member();
  if (before_next && before_next.parent() == before_parent) return before_next.previous();
  return Member();
}

void Match::pair_renamed() {
  const FieldComparison fields(before_outline_, after_outline_);
  for (const Member after : subtree(after_outline_.root())) {
    if (before_of(after)) continue;
    const Member parent = after.parent();
    const Member before_parent = parent ? before_of(parent) : before_outline_.root();
    if (parent && !before_parent) continue;
    const Member before = between_same_neighbours(after, before_parent);
    if (before && !after_of(before) && fields.equal_but_name(before, after)) pair(before, after);
  }
}

}  // namespace command
