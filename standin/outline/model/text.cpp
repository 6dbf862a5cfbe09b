// Comparing texts with or without letter case.
#include "standin/outline/model/text.h"

#include <algorithm>

namespace standin {
namespace {

bool is_continuation(char c) {
  return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

// Position behind the byte sequence that starts at `at`.
size_t next_sequence(std::string_view text, size_t at) {
  const bool sequence = static_cast<unsigned char>(text[at]) >= 0xC0U;
  ++at;
  while (sequence && at < text.size() && is_continuation(text[at])) ++at;
  return at;
}

// True when a surrogate stands at `at`: a high one for 0xA0, a low one for 0xB0.
bool is_half(std::string_view text, size_t at, unsigned char kind) {
  return at + 2 < text.size() && text[at] == '\xED' &&
         (static_cast<unsigned char>(text[at + 1]) & 0xF0U) == kind;
}

}  // namespace

std::string folded(std::string_view text, bool case_sensitive) {
  std::string result(text);
  if (!case_sensitive) std::transform(result.begin(), result.end(), result.begin(), fold);
  return result;
}

size_t next_character(std::string_view text, size_t at) {
  const size_t end = next_sequence(text, at);
  return is_half(text, at, 0xA0) && is_half(text, end, 0xB0) ? next_sequence(text, end) : end;
}

std::string_view cut_to(std::string_view text, size_t bytes) {
  if (text.size() <= bytes) return text;
  size_t end = 0;
  for (size_t next = next_character(text, 0); next <= bytes; next = next_character(text, end)) {
    end = next;
  }
  return text.substr(0, end);
}

bool equal_text(std::string_view a, std::string_view b, bool case_sensitive) {
  if (a.size() != b.size()) return false;
  if (case_sensitive) return a == b;
  return std::equal(a.begin(), a.end(), b.begin(),
                    [](char x, char y) { return fold(x) == fold(y); });
}

// FNV-1a.
uint32_t hash_text(std::string_view text, bool case_sensitive) {
  uint32_t value = 2166136261U;
  for (const char c : text) {
    value ^= static_cast<unsigned char>(case_sensitive ? c : fold(c));
    value *= 16777619U;
  }
  return value;
}

}  // namespace standin
