// Walking two matched outlines.
#include "command/compare/differences.h"

#include <algorithm>
#include <set>
#include <unordered_set>

#include "command/compare/match.h"
#include "command/layer/naming.h"
#include "command/rows/json_lines.h"

namespace command {
namespace {

void compare_whole(const Outline& before, const Outline& after,
                   const std::function<void(const Difference&)>& take) {
  const auto compare_lines = [&](const std::vector<std::string>& old_lines,
                                 const std::vector<std::string>& new_lines) {
    const std::set<std::string> old_set(old_lines.begin(), old_lines.end());
    const std::set<std::string> new_set(new_lines.begin(), new_lines.end());
    for (const std::string& line : old_lines) {
      if (new_set.count(line) == 0) take({Change::kOutline, "", "", line, ""});
    }
    for (const std::string& line : new_lines) {
      if (old_set.count(line) == 0) take({Change::kOutline, "", "", "", line});
    }
  };
  compare_lines(outline_lines(before), outline_lines(after));
  compare_lines(closing_lines(before), closing_lines(after));
}

void take_changes(const Outline& outline, Member member, std::vector<FieldChange> changes,
                  const std::function<void(const Difference&)>& take) {
  for (FieldChange& change : changes) {
    take({Change::kField, path_of(outline, member), change.field.header(), std::move(change.before),
          std::move(change.after)});
  }
}

// Compares outlines whose members have the same names in the same places: one walk of both, and
// nothing to match. Answers false, and has told nothing, when they are others.
bool compare_in_step(const Outline& before, const Outline& after, const FieldComparison& fields,
                     const std::function<void(const Difference&)>& take) {
  std::vector<std::pair<Member, Member>> unlike;
  auto old = subtree(before.root()).begin();
  for (auto at = subtree(after.root()).begin(); at; ++at, ++old) {
    if (!old || old.depth() != at.depth()) return false;
    if (fields.same(*old, *at)) continue;
    if ((*old).name() != (*at).name() || (*old).shared() != (*at).shared()) return false;
    unlike.emplace_back(*old, *at);
  }
  if (old) return false;
  for (const auto& [was, is] : unlike) take_changes(after, is, fields.changes(was, is), take);
  return true;
}

// Compares outlines of any shape.
class Comparison {
 public:
  Comparison(const Outline& before, const Outline& after, const FieldComparison& fields,
             const std::function<void(const Difference&)>& take)
      : before_(before), after_(after), match_(before, after), fields_(fields), take_(take) {}

  void run() {
    compare_children(after_.root());
    for (auto at = subtree(after_.root()).begin(); at;) {
      const Member member = *at;
      const size_t depth = at.depth();
      compare_member(member);
      ++at;
      if (at && at.depth() > depth) compare_children(member);
    }
    if (!match_.lacks_some()) return;
    for (const Member member : subtree(before_.root())) {
      if (!match_.after_of(member)) {
        take_({Change::kRemoved, path_of(before_, member), "", "", ""});
      }
    }
  }

 private:
  void compare_member(Member after) {
    const Member before = match_.before_of(after);
    if (!before) {
      take_({Change::kAdded, path_of(after_, after), "", "", ""});
      return;
    }
    const bool same = fields_.same(before, after);
    if (!same) compare_name(before, after);
    if (moved_.count(after.handle()) != 0) {
      take_({Change::kMoved, path_of(after_, after), "", path_of(before_, before),
             path_of(after_, after)});
    }
    if (same) return;
    take_changes(after_, after, fields_.changes(before, after), take_);
  }

  void compare_name(Member before, Member after) {
    const std::string old_name = before.name();
    const std::string new_name = after.name();
    if (old_name != new_name) {
      take_({Change::kRenamed, path_of(after_, after), "", old_name, new_name});
    }
  }

  // Tells those of the children that were below another parent, and those that were below the same
  // one and have to move for the new order.
  void compare_children(Member after_parent) {
    const Member before_parent = after_parent ? match_.before_of(after_parent) : before_.root();
    const bool is_new = after_parent && !before_parent;
    std::vector<Member> stayed;  // in the new order
    bool in_order = true;
    Member last;
    for (const Member child : children(after_parent)) {
      const Member before = match_.before_of(child);
      if (!before) continue;
      Member next;  // the one that follows as long as nothing changed
      if (in_order && !is_new) next = last ? last.next() : before_parent.first_child();
      if (next != before) {
        if (is_new || before.parent() != before_parent) {
          moved_.insert(child.handle());
          continue;
        }
        while (next && next != before && stays_elsewhere(next, after_parent)) next = next.next();
        in_order = next == before;
      }
      last = before;
      stayed.push_back(child);
    }
    if (!in_order) report_order(before_parent, stayed);
  }

  bool stays_elsewhere(Member before, Member after_parent) const {
    const Member after = match_.after_of(before);
    return !after || after.parent() != after_parent;
  }

  void report_order(Member before_parent, const std::vector<Member>& stayed) {
    std::vector<size_t> position_of;  // by handle of the first outline
    size_t number = 0;
    for (const Member child : children(before_parent)) {
      if (child.handle() >= position_of.size()) position_of.resize(child.handle() + 1);
      position_of[child.handle()] = number++;
    }
    std::vector<size_t> numbers;
    numbers.reserve(stayed.size());
    for (const Member child : stayed) {
      numbers.push_back(position_of[match_.before_of(child).handle()]);
    }
    const std::vector<bool> kept = longest_rise(numbers);
    for (size_t i = 0; i < stayed.size(); ++i) {
      if (!kept[i]) take_({Change::kReordered, path_of(after_, stayed[i]), "", "", ""});
    }
  }

  const Outline& before_;
  const Outline& after_;
  Match match_;
  const FieldComparison& fields_;
  std::unordered_set<HMember> moved_;  // of the second outline; known from their parents
  const std::function<void(const Difference&)>& take_;
};

}  // namespace

std::vector<bool> longest_rise(const std::vector<size_t>& numbers) {
  constexpr size_t kNone = SIZE_MAX;
  std::vector<size_t> ends;  // by length less 1: where the best run of that length ends
  std::vector<size_t> before(numbers.size(), kNone);
  for (size_t i = 0; i < numbers.size(); ++i) {
    const auto at =
        std::lower_bound(ends.begin(), ends.end(), numbers[i],
                         [&](size_t end, size_t value) { return numbers[end] < value; });
    if (at != ends.begin()) before[i] = *(at - 1);
    if (at == ends.end()) {
      ends.push_back(i);
    } else {
      *at = i;
    }
  }
  std::vector<bool> kept(numbers.size());
  for (size_t i = ends.empty() ? kNone : ends.back(); i != kNone; i = before[i]) kept[i] = true;
  return kept;
}

void compare(const Outline& before, const Outline& after, bool whole,
             const std::function<void(const Difference&)>& take) {
  if (whole) compare_whole(before, after, take);
  const FieldComparison fields(before, after);
  if (!compare_in_step(before, after, fields, take)) Comparison(before, after, fields, take).run();
}

}  // namespace command
