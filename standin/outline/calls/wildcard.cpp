// Matching without recursion: on a mismatch only the last star has to take one character more.
#include "standin/outline/calls/wildcard.h"

#include "standin/outline/model/text.h"

namespace standin {

namespace {

std::string_view character(std::string_view text, size_t at) {
  return text.substr(at, next_character(text, at) - at);
}

}  // namespace

bool matches_wildcards(std::string_view pattern, std::string_view text, bool case_sensitive) {
  size_t p = 0;
  size_t t = 0;
  size_t star = std::string_view::npos;  // behind the last star of the pattern
  size_t star_end = 0;                   // where that star's part of the text ends
  while (t < text.size()) {
    if (p < pattern.size() && pattern[p] == '*') {
      star = ++p;
      star_end = t;
    } else if (p < pattern.size() && pattern[p] == '?') {
      ++p;
      t = next_character(text, t);
    } else if (p < pattern.size() &&
               equal_text(character(pattern, p), character(text, t), case_sensitive)) {
      p = next_character(pattern, p);
      t = next_character(text, t);
    } else if (star != std::string_view::npos) {
      p = star;
      t = star_end = next_character(text, star_end);
    } else {
      return false;
    }
  }
  while (p < pattern.size() && pattern[p] == '*') ++p;
  return p == pattern.size();
}

}  // namespace standin
