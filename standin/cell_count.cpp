// Counting cells: one pass over the members of each dimension.
#include "standin/cell_count.h"

#include <algorithm>
#include <unordered_set>

#include "api/types.h"
#include "standin/guard.h"
#include "standin/outline/file/stored_outline.h"

namespace standin {
namespace {

constexpr char kBlanks[] = " \t\r\n";

std::string trimmed(const std::string& text) {
  const size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

// Reads a quoted name that starts at `at` and moves `at` behind it and the blanks that follow.
std::string read_quoted(const std::string& area, size_t* at) {
  std::string name;
  for (size_t i = *at + 1; i < area.size(); ++i) {
    if (area[i] != '"') {
      name += area[i];
    } else if (i + 1 < area.size() && area[i + 1] == '"') {
      name += area[i++];
    } else {
      *at = std::min(area.find_first_not_of(kBlanks, i + 1), area.size());
      return name;
    }
  }
  throw StoreFailure(kBadArgument);  // no closing quote
}

using MemberSet = std::unordered_set<MemberId>;

MemberSet find_all(const Outline& outline, const std::vector<std::string>& names) {
  MemberSet found;
  for (const std::string& name : names) {
    const MemberId id = outline.look_up(name);
    if (id == kNoMember) throw StoreFailure(kMemberNotFound);
    found.insert(id);
  }
  return found;
}

// Level-0 members of one dimension below the named ones, or all of them when none of the named
// ones is in it. `*used` grows by the names that are.
double count_leaves(const Outline& outline, MemberId dimension, const MemberSet& named,
                    size_t* used) {
  double all = 0;
  double below_named = 0;
  bool any = false;
  uint32_t within = 0;  // generation of the named member that the walk is below; 0: none
  for (const MemberId id : outline.subtree(dimension)) {
    const Member& member = outline.member(id);
    if (member.generation <= within) within = 0;
    if (named.count(id) != 0) {
      any = true;
      ++*used;
      if (within == 0) within = member.generation;
    }
    if (member.first_child != kNoMember) continue;
    ++all;
    if (within != 0) ++below_named;
  }
  return any ? below_named : all;
}

}  // namespace

std::vector<std::string> parse_area(const std::string& area) {
  std::vector<std::string> names;
  if (trimmed(area).empty()) return names;
  for (size_t at = 0;; ++at) {  // past the comma
    at = std::min(area.find_first_not_of(kBlanks, at), area.size());
    if (at < area.size() && area[at] == '"') {
      names.push_back(read_quoted(area, &at));
    } else {
      const size_t end = std::min(area.find(',', at), area.size());
      names.push_back(trimmed(area.substr(at, end - at)));
      at = end;
    }
    if (names.back().empty()) throw StoreFailure(kBadArgument);
    if (at == area.size()) return names;
    if (area[at] != ',') throw StoreFailure(kBadArgument);
  }
}

double count_cells(const std::string& file, const std::vector<std::string>& names) {
  Outline outline;
  require(load_outline(file, &outline));
  const MemberSet named = find_all(outline, names);
  double cells = 1;
  bool counted = false;
  size_t used = 0;
  for (const MemberId dimension : outline.children(kRoot)) {
    if (outline.properties(dimension).dimension_category == kCategoryAttribute) continue;
    cells *= count_leaves(outline, dimension, named, &used);
    counted = true;
  }
  if (used != named.size()) throw StoreFailure(kBadArgument);
  return counted ? cells : 0;
}

}  // namespace standin
