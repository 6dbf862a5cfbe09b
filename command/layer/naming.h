// How members are named at the command line and in files: by name, or by the path from the
// dimension, "Geography/Countries/JP". A part of a path that holds a slash, a quote or a number
// sign is quoted ("Salt/Pepper"; a quote within is doubled). Of several children of one name "X#2"
// is the second.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "command/layer/outline.h"

namespace command {

// One part of a path.
struct PathPart {
  std::string name;
  unsigned order = 1;  // among the children of that name
};

// The parts of a path; empty when a quote is left open or a part is empty.
std::vector<PathPart> parse_path(std::string_view text);

// Items separated by `separator`, quoted where they need it, and back. Empty items are left out.
std::string join_quoted(const std::vector<std::string>& items, char separator);
std::vector<std::string> split_quoted(std::string_view text, char separator);

// The path of a member.
std::string path_of(const Outline& outline, Member member);

// Its name when that names it and nothing else, else its path.
std::string reference_to(const Outline& outline, Member member);

// The child number `order` of a name below a parent; false when there are fewer.
Member child_of_name(Member parent, std::string_view name, unsigned order, bool case_sensitive);

// What a text names: nothing, one member, or several.
struct Named {
  Member member;                // false unless exactly one
  std::vector<Member> several;  // the candidates when there are more
};
// A whole name comes before a path. Of several members of a name the only one that is not shared
// is meant.
Named look_up(const Outline& outline, std::string_view text);

// The member; a Failure with the candidates' paths, or with similar names, when there is not
// exactly one.
Member find_member(const Outline& outline, std::string_view text);

// Compares two names as the outline does.
bool same_name(std::string_view a, std::string_view b, bool case_sensitive);

}  // namespace command
