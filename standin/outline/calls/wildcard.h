// The search text of member queries.
#pragma once

#include <string_view>

namespace standin {

// True when the whole text fits the pattern: `*` stands for any characters, `?` for one (a whole
// UTF-8 sequence counts as one). No character takes away the meaning of these two.
bool matches_wildcards(std::string_view pattern, std::string_view text, bool case_sensitive);

}  // namespace standin
