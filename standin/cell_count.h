// Number of cells in an area of a stored outline.
#pragma once

#include <string>
#include <vector>

namespace standin {

// Splits an area text: member names with commas between them, quoted ("a, ""b""") or not. Blanks
// around a name don't count. An empty text names nothing. Throws kBadArgument for a text that
// isn't formed like this.
std::vector<std::string> parse_area(const std::string& area);

// Cells of the area in the outline stored in `file`. Each name stands for the level-0 members of
// its subtree, none of them counted twice; a dimension without a name counts whole, an attribute
// dimension not at all. The count is the product over the dimensions, 0 for an outline without
// any. Throws kMemberNotFound, kBadArgument for a name in an attribute dimension, kDamagedOutline.
double count_cells(const std::string& file, const std::vector<std::string>& names);

}  // namespace standin
