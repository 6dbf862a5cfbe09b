// Matching the members of two outlines.
#include "command/compare/match.h"

#include <map>

#include "command/compare/fields.h"
#include "command/layer/text.h"

namespace command {
namespace {

void set(std::vector<HMember>* list, HMember at, HMember value) {
  if (at >= list->size()) list->resize(at + at / 2 + 64);
  (*list)[at] = value;
}

// The only member of a name, when it is not shared; false when there is none or several.
Member sole_holder(const Outline& outline, const std::string& name) {
  const std::vector<Member> holders = outline.holders(name);
  return holders.size() == 1 && !holders.front().shared() ? holders.front() : Member();
}

}  // namespace

Match::Match(const Outline& before, const Outline& after)
    : before_outline_(before), after_outline_(after) {
  for (const Member dimension : children(before.root())) {
    before_dimensions_.insert(dimension.handle());
  }
  if (!pair_unique_names()) pair_repeated_names();
  if (left_before_ > 0 && left_after_ > 0) pair_renamed();
}

void Match::pair(Member before, Member after) {
  set(&after_, before.handle(), after.handle());
  set(&before_, after.handle(), before.handle());
}

bool Match::pair_named(Member before, const Subtree::Iterator& after) {
  const bool dimension = after.depth() == 0;
  if (!before || (before_dimensions_.count(before.handle()) != 0) != dimension) return false;
  pair(before, *after);
  return true;
}

bool Match::pair_unique_names() {
  MemberInfoRecord record;
  for (auto at = subtree(after_outline_.root()).begin(); at; at.advance(record)) {
    record = (*at).record();
    const std::string name = outside(record.name);
    const Member before = before_outline_.find(name);
    // Of two members with a name the second finds the first one's match, or is not found itself.
    const bool repeated =
        before ? static_cast<bool>(after_of(before)) : after_outline_.find(name) != *at;
    if (repeated) return false;
    if (!pair_named(before, at)) ++left_after_;
  }
  // Of two members with a name one was not found by it, so one is left over.
  for (const Member before : subtree(before_outline_.root())) {
    if (after_of(before)) continue;
    if (before_outline_.find(before.name()) != before) return false;
    ++left_before_;
  }
  return true;
}

void Match::pair_repeated_names() {
  after_.clear();
  before_.clear();
  for (auto at = subtree(after_outline_.root()).begin(); at; ++at) {
    const std::string name = (*at).name();
    if (sole_holder(after_outline_, name) == *at) {
      pair_named(sole_holder(before_outline_, name), at);
    }
  }
  pair_by_order();
  left_before_ = left_after_ = 0;
  for (const Member before : subtree(before_outline_.root()))
    left_before_ += after_of(before) ? 0 : 1;
  for (const Member after : subtree(after_outline_.root())) left_after_ += before_of(after) ? 0 : 1;
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
    if (before && !after_of(before) && fields.equal_but_name(before, after)) {
      pair(before, after);
      --left_before_;
    }
  }
}

}  // namespace command
