// What differs between two outlines.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "command/compare/fields.h"
#include "command/layer/outline.h"

namespace command {

enum class Change { kAdded, kRemoved, kRenamed, kMoved, kReordered, kField, kOutline };

struct Difference {
  Change change;
  std::string member;  // its path, after the change where there is one; empty for kOutline
  std::string field;
  std::string before;
  std::string after;
};

// Calls `take` for each difference, members in the order of the second outline, removed ones last.
// The outline as a whole is compared when `whole` says so.
void compare(const Outline& before, const Outline& after, bool whole,
             const std::function<void(const Difference&)>& take);

// The children that keep their order while the others move: a longest run of rising numbers.
std::vector<bool> longest_rise(const std::vector<size_t>& numbers);

// Turns `before`, which is open for changes, into `after`, calling `take` with each edit as a line
// of a script. Failure when that does not come out equal. `whole` as for compare().
void edits_between(const Outline& before, const Outline& after, bool whole,
                   const std::function<void(const std::string& line)>& take);

}  // namespace command
