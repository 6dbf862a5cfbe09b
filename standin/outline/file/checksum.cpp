// The checksum of an outline file.
#include "standin/outline/file/checksum.h"

#include <algorithm>
#include <cstring>

namespace standin {

void Checksum::add(int64_t value) {
  // Every step can be undone, so two different values never meet; the rotation brings the high
  // bits to where the multiplication spreads them.
  state_ ^= static_cast<uint64_t>(value);
  state_ = ((state_ << 29) | (state_ >> 35)) * 1099511628211u;
}

void Checksum::add(std::string_view text) {
  add(static_cast<int64_t>(text.size()));
  for (size_t at = 0; at < text.size(); at += sizeof(int64_t)) {
    int64_t word = 0;
    std::memcpy(&word, text.data() + at, std::min(sizeof word, text.size() - at));
    add(word);
  }
}

}  // namespace standin
