// Wildcards against the rule written down as recursion, on texts short enough for it.
#include "standin/outline/calls/wildcard.h"
#include "standin/outline/model/text.h"
#include "tests/fuzz/input.h"

namespace {

using View = std::string_view;

bool model(View pattern, View text) {
  if (pattern.empty()) return text.empty();
  if (pattern[0] == '*') {
    for (size_t at = 0;; at = standin::next_character(text, at)) {
      if (model(pattern.substr(1), text.substr(at))) return true;
      if (at >= text.size()) return false;
    }
  }
  if (text.empty()) return false;
  const size_t wanted = pattern[0] == '?' ? 1 : standin::next_character(pattern, 0);
  const size_t found = standin::next_character(text, 0);
  return (pattern[0] == '?' || pattern.substr(0, wanted) == text.substr(0, found)) &&
         model(pattern.substr(wanted), text.substr(found));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::vector<std::string> texts = fuzz::texts(data, size, 2);
  const bool told = standin::matches_wildcards(texts[0], texts[1], true);
  if (told) fuzz::demand(standin::matches_wildcards(texts[0], texts[1], false));
  if (texts[0].size() <= 8 && texts[1].size() <= 12) {
    fuzz::demand(told == model(texts[0], texts[1]));
  }
  return 0;
}
