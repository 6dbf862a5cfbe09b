// What is done when all rows have been read: rows that could not be placed, attributes, and members
// that a replacement lacks.
#include <algorithm>
#include <unordered_map>

#include "command/layer/formatting.h"
#include "command/layer/naming.h"
#include "command/rows/assign.h"
#include "command/rows/loader.h"

namespace command {

void Loader::finish() {
  retry_blocked();
  place_below_shared();
  reject_waiting();
  associate_attributes();
}

// Rows that were in each other's way come right once the others are placed; those that never do
// form a circle.
void Loader::retry_blocked() {
  for (size_t before = 0; !blocked_.empty() && blocked_.size() != before;) {
    before = blocked_.size();
    std::vector<Row> rows;
    rows.swap(blocked_);
    for (Row& row : rows) take(row);
  }
  for (const Row& row : blocked_) {
    report_.reject(fields_, row,
                   fmt::format("'{}' would lie below itself: its parent '{}' is below it; give one "
                               "of them another parent",
                               row.name, row.parent));
  }
  blocked_.clear();
}

// Takes all rows that wait, in the file's order.
std::vector<Row> Loader::take_waiting() {
  std::vector<Row> rows;
  for (uint32_t chain; (chain = waiting_.take_any()) != WaitingRows::kNone;) {
    while (chain != WaitingRows::kNone) {
      Row row;
      chain = waiting_.read(chain, &row);
      rows.push_back(std::move(row));
    }
  }
  std::sort(rows.begin(), rows.end(), [](const Row& a, const Row& b) { return a.line < b.line; });
  return rows;
}

// A shared member whose name no other member has may have children; verification says so.
void Loader::place_below_shared() {
  if (!shared_ || waiting_.count() == 0) return;
  shared_parents_ = true;
  for (Row& row : take_waiting()) take(row);
}

void Loader::reject_waiting() {
  const std::vector<Row> rows = take_waiting();
  std::unordered_map<uint64_t, size_t> by_name;
  for (size_t i = 0; i < rows.size(); ++i) by_name.emplace(key_of(rows[i].name), i);
  // Where each row's chain of parents ends: at a row whose parent nobody knows, or in a circle.
  enum State : char { kNew, kOnPath, kLost, kCircle };
  std::vector<State> states(rows.size(), kNew);
  for (size_t i = 0; i < rows.size(); ++i) {
    std::vector<size_t> path;
    State end = kLost;
    for (size_t at = i;;) {
      if (states[at] != kNew) {
        end = states[at] == kOnPath ? kCircle : states[at];
        break;
      }
      states[at] = kOnPath;
      path.push_back(at);
      const auto parent = by_name.find(waiting_key(rows[at].parent));
      if (parent == by_name.end()) break;
      at = parent->second;
    }
    for (const size_t one : path) states[one] = end;
  }
  for (size_t i = 0; i < rows.size(); ++i) {
    const Row& row = rows[i];
    const bool known = by_name.count(waiting_key(row.parent)) != 0;
    report_.reject(
        fields_, row,
        states[i] == kCircle
            ? fmt::format("'{}' lies below itself: its parents form a circle, or lead to one; give "
                          "one of them another parent",
                          row.name)
        : known ? fmt::format("the parent '{}' of '{}' could not be placed itself", row.parent,
                              row.name)
                : fmt::format("there is no parent '{}' for '{}'; add a row for it, or correct the "
                              "name",
                              row.parent, row.name));
  }
}

void Loader::associate_attributes() {
  for (const PendingAttribute& pending : attributes_) {
    const Member member = outline_.member(pending.member);
    const std::string& text = attribute_texts_[pending.text];
    try {
      assign_attribute(outline_, member, fields_[pending.field].key, text);
    } catch (const Failure& failure) {
      report_.problem(pending.line, fmt::format("'{}': {}", member.name(), failure.what()));
    }
  }
  attributes_.clear();
}

uint64_t Loader::count_lacking() const {
  uint64_t count = 0;
  for (const Member member : subtree(outline_.root())) count += seen(member) ? 0 : 1;
  return count;
}

void Loader::remove_lacking() {
  Member at = outline_.root().first_child();
  while (at) {
    if (!seen(at)) {
      // All that the file has was moved to where the file has it, so nothing of it lies below.
      Member next = at.next();
      for (Member above = at.parent(); !next && above; above = above.parent()) next = above.next();
      for (auto below = subtree(at).begin(); below; ++below) ++counts_.removed;
      at.remove();
      at = next;
    } else if (const Member child = at.first_child()) {
      at = child;
    } else {
      Member next = at.next();
      for (Member above = at.parent(); !next && above; above = above.parent()) next = above.next();
      at = next;
    }
  }
}

}  // namespace command
