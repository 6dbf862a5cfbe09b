// The Levenshtein distance with swapped neighbours counted once, in any case.
#include "command/layer/similar.h"

#include <algorithm>

#include "search/text_match.h"

namespace command {
namespace {

size_t distance(std::string_view a, std::string_view b, size_t most) {
  const size_t apart = a.size() > b.size() ? a.size() - b.size() : b.size() - a.size();
  if (apart > most) return most + 1;
  std::vector<size_t> before;
  std::vector<size_t> last(b.size() + 1);
  for (size_t j = 0; j <= b.size(); ++j) last[j] = j;
  for (size_t i = 1; i <= a.size(); ++i) {
    std::vector<size_t> row(b.size() + 1);
    row[0] = i;
    for (size_t j = 1; j <= b.size(); ++j) {
      const bool same = a[i - 1] == b[j - 1];
      row[j] = std::min({last[j] + 1, row[j - 1] + 1, last[j - 1] + (same ? 0 : 1)});
      if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1]) {
        row[j] = std::min(row[j], before[j - 2] + 1);
      }
    }
    before = std::move(last);
    last = std::move(row);
  }
  return last.back();
}

std::string folded(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), kepotl::lower_ascii);
  return result;
}

}  // namespace

Similar::Similar(std::string_view word)
    : word_(folded(word)), best_(std::max<size_t>(1, word.size() / 3)) {}

void Similar::offer(std::string_view candidate) {
  constexpr size_t kLongest = 80;
  if (word_.size() > kLongest || candidate.size() > kLongest) return;
  const size_t found = distance(word_, folded(candidate), best_);
  if (found > best_) return;
  if (found < best_) nearest_.clear();
  best_ = found;
  if (nearest_.size() < 3) nearest_.emplace_back(candidate);
}

std::string Similar::sentence() const {
  std::string text;
  for (const std::string& word : nearest_) {
    text += text.empty() ? "; did you mean '" : " or '";
    text += word + "'";
  }
  return text.empty() ? text : text + "?";
}

}  // namespace command
