// Counting cells: one pass over the members of the outline file, which are numbered in pre-order,
// so that a subtree is a range of numbers.
#include "standin/cell_count.h"

#include <sqlite3.h>

#include <algorithm>
#include <unordered_map>

#include "api/types.h"
#include "standin/guard.h"
#include "standin/outline/name_index.h"
#include "standin/outline/schema.h"
#include "standin/sqlite.h"

namespace standin {
namespace {

constexpr char kBlanks[] = " \t\r\n";

std::string trimmed(const std::string& text) {
  const size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::string folded(std::string name, bool case_sensitive) {
  if (!case_sensitive) std::transform(name.begin(), name.end(), name.begin(), fold);
  return name;
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

// The members of an outline file as far as counting needs them, all by member number.
struct Members {
  std::vector<uint32_t> last;                       // last member of the subtree
  std::vector<uint32_t> leaves;                     // level-0 members up to and including this one
  std::vector<uint32_t> dimensions;                 // the dimensions that count
  std::unordered_map<std::string, uint32_t> named;  // the holders of the wanted names, 0: none
};

// A member that was renamed to a name in use stands behind the one that had it first, whatever
// their numbers. The file tells where that matters.
void read_name_order(Connection& file, bool case_sensitive, Members* members) {
  Statement row(file,
                "SELECT member.id, member.name FROM name_order "
                "JOIN member ON member.id = name_order.member ORDER BY name_order.rowid");
  while (row.next()) {
    const auto wanted = members->named.find(folded(row.text(1), case_sensitive));
    if (wanted != members->named.end() && wanted->second == 0) {
      wanted->second = static_cast<uint32_t>(row.number(0));
    }
  }
}

Members read_members(Connection& file, const std::vector<std::string>& names) {
  if (file.number("PRAGMA application_id") != kApplicationId ||
      file.number("PRAGMA user_version") != kSchemaVersion) {
    throw StoreFailure(kDamagedOutline);
  }
  const bool case_sensitive = file.number("SELECT case_sensitive FROM outline") != 0;
  Members members;
  for (const std::string& name : names) members.named.emplace(folded(name, case_sensitive), 0);
  if (!names.empty()) read_name_order(file, case_sensitive, &members);

  std::vector<uint32_t> parents(1);
  std::vector<bool> has_child(1);
  Statement row(file, "SELECT id, parent, dimension_category, name FROM member ORDER BY id");
  while (row.next()) {
    const size_t id = parents.size();
    const int64_t parent = row.number(1);
    if (row.number(0) != static_cast<int64_t>(id) || parent < 0 ||
        parent >= static_cast<int64_t>(id)) {
      throw StoreFailure(kDamagedOutline);
    }
    parents.push_back(static_cast<uint32_t>(parent));
    has_child.push_back(false);
    has_child[static_cast<size_t>(parent)] = true;
    if (parent == 0 && row.number(2) != kCategoryAttribute) {
      members.dimensions.push_back(static_cast<uint32_t>(id));
    }
    if (names.empty()) continue;
    const auto wanted = members.named.find(folded(row.text(3), case_sensitive));
    if (wanted != members.named.end() && wanted->second == 0) {
      wanted->second = static_cast<uint32_t>(id);
    }
  }

  members.leaves.resize(parents.size());
  members.last.resize(parents.size());
  for (size_t id = 1; id < parents.size(); ++id) {
    members.leaves[id] = members.leaves[id - 1] + (has_child[id] ? 0 : 1);
  }
  for (size_t id = parents.size() - 1; id > 0; --id) {
    members.last[id] = std::max(members.last[id], static_cast<uint32_t>(id));
    uint32_t& above = members.last[parents[id]];
    above = std::max(above, members.last[id]);
  }
  return members;
}

// Level-0 members of one dimension below the named ones (sorted by number), or all of them when
// none of the named ones is in it. `*used` grows by the names that are.
double count_leaves(const Members& members, uint32_t dimension, const std::vector<uint32_t>& named,
                    size_t* used) {
  const auto leaves_of = [&](uint32_t id) {
    return static_cast<double>(members.leaves[members.last[id]] - members.leaves[id - 1]);
  };
  double count = 0;
  uint32_t counted_to = 0;
  bool any = false;
  for (const uint32_t id : named) {
    if (id < dimension || id > members.last[dimension]) continue;
    any = true;
    ++*used;
    // A subtree that begins within the one before it lies within it altogether.
    if (id > counted_to) {
      count += leaves_of(id);
      counted_to = members.last[id];
    }
  }
  return any ? count : leaves_of(dimension);
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
  // Written outlines are replaced and never changed, so nothing needs to be locked.
  Connection connection(file, SQLITE_OPEN_READONLY | SQLITE_OPEN_NOFOLLOW, "unix-none");
  Members members;
  try {
    members = read_members(connection, names);
  } catch (const StoreFailure&) {
    const int result = sqlite3_errcode(connection.get()) & 0xff;
    throw StoreFailure(result == SQLITE_IOERR ? kStoreError : kDamagedOutline);
  }

  std::vector<uint32_t> named;
  for (const auto& [name, id] : members.named) {
    if (id == 0) throw StoreFailure(kMemberNotFound);
    named.push_back(id);
  }
  std::sort(named.begin(), named.end());

  double cells = members.dimensions.empty() ? 0 : 1;
  size_t used = 0;
  for (const uint32_t dimension : members.dimensions) {
    cells *= count_leaves(members, dimension, named, &used);
  }
  if (used != named.size()) throw StoreFailure(kBadArgument);
  return cells;
}

}  // namespace standin
