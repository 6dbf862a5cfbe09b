// Comparing the texts of an outline, which may or may not tell letter case.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace standin {

// A byte with its letter case folded. Only ASCII letters have case here, whatever the locale.
inline char fold(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

// The text itself when case is told, else with the case of every byte folded: texts that are the
// same to the outline give the same bytes.
std::string folded(std::string_view text, bool case_sensitive);

// Position behind the character that starts at `at`. A character outside the basic plane, which is
// a pair of three-byte sequences in modified UTF-8, is one; so is a stray byte.
size_t next_character(std::string_view text, size_t at);

// The longest part of a text that has at most `bytes` and ends behind a whole character.
std::string_view cut_to(std::string_view text, size_t bytes);

// True when two texts are equal, telling case or not.
bool equal_text(std::string_view a, std::string_view b, bool case_sensitive);

// A hash that equal texts share, telling case or not.
uint32_t hash_text(std::string_view text, bool case_sensitive);

}  // namespace standin
