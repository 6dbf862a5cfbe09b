// Texts on both sides of the API: standard UTF-8 outside, modified UTF-8 inside, where a character
// outside the basic plane takes six bytes and U+0000 two. The locale plays no part.
#pragma once

#include <string>
#include <string_view>

namespace command {

// True for standard UTF-8: no overlong forms, no surrogates.
bool is_utf8(std::string_view text);

// Standard UTF-8 as the API spells it; `text` has to be UTF-8.
std::string inside(std::string_view text);

// An API text as standard UTF-8. Halves of surrogate pairs that stand alone, which only Java can
// have made, stay as they are, so that is_utf8() tells them.
std::string outside(std::string_view text);

// Columns that a text takes on a terminal.
size_t columns(std::string_view text);

// The beginning of a text that fits into `width` columns, with an ellipsis where it was cut.
std::string cut(std::string_view text, size_t width);

// A line broken between words so that it fits into `width` columns where words do; what is broken
// off begins behind `indent` spaces.
std::string wrapped(std::string_view line, size_t width, size_t indent);

// The text with control characters made visible, so that a name can't steer the terminal.
std::string printable(std::string_view text);

}  // namespace command
