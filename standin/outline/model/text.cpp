// Comparing texts with or without letter case.
#include "standin/outline/model/text.h"

#include <algorithm>

namespace standin {

std::string folded(std::string_view text, bool case_sensitive) {
  std::string result(text);
  if (!case_sensitive) std::transform(result.begin(), result.end(), result.begin(), fold);
  return result;
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
