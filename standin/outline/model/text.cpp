// Comparing texts with or without letter case, eight bytes at a time.
#include "standin/outline/model/text.h"

#include <algorithm>
#include <cstring>

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

constexpr uint64_t kEveryByte = 0x0101010101010101u;

// Folds the case of eight bytes: adding to the lower seven bits of a byte carries into its highest
// bit from 'A' on, and from behind 'Z' on.
uint64_t fold_word(uint64_t word) {
  const uint64_t low = word & (0x7f * kEveryByte);
  const uint64_t from_a = low + (0x80 - 'A') * kEveryByte;
  const uint64_t behind_z = low + (0x80 - 'Z' - 1) * kEveryByte;
  const uint64_t upper = from_a & ~behind_z & ~word & (0x80 * kEveryByte);
  return word | (upper >> 2);
}

// The bytes from `at` on, at most eight, zeros behind the end.
uint64_t word_at(std::string_view text, size_t at) {
  uint64_t word = 0;
  std::memcpy(&word, text.data() + at, std::min(sizeof word, text.size() - at));
  return word;
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
  for (size_t at = 0; at < a.size(); at += sizeof(uint64_t)) {
    if (fold_word(word_at(a, at)) != fold_word(word_at(b, at))) return false;
  }
  return true;
}

// Multiplies and mixes word by word, so that all bits of the hash depend on all bytes.
uint32_t hash_text(std::string_view text, bool case_sensitive) {
  constexpr uint64_t kFactor = 0x9E3779B97F4A7C15u;
  uint64_t value = text.size() * kFactor;
  for (size_t at = 0; at < text.size(); at += sizeof(uint64_t)) {
    const uint64_t word = word_at(text, at);
    value = (value ^ (case_sensitive ? word : fold_word(word))) * kFactor;
    value ^= value >> 32;
  }
  value *= kFactor;
  return static_cast<uint32_t>(value >> 32);
}

}  // namespace standin
