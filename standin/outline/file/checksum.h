// The checksum of an outline file.
#pragma once

#include <cstdint>
#include <string_view>

namespace standin {

// Checksum over a sequence of numbers and texts. One changed value always changes it.
class Checksum {
 public:
  void add(int64_t value);
  void add(std::string_view text);
  int64_t value() const { return static_cast<int64_t>(state_); }

 private:
  uint64_t state_ = 14695981039346656037u;
};

}  // namespace standin
