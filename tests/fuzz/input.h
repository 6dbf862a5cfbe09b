// The bytes of one run, taken apart.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

namespace fuzz {

// Ends the run as a fault.
inline void demand(bool holds) {
  if (!holds) std::abort();
}

// The input cut at its NUL bytes into `count` texts; what is missing is empty.
inline std::vector<std::string> texts(const uint8_t* data, size_t size, size_t count) {
  std::vector<std::string> all(1);
  for (size_t i = 0; i < size; ++i) {
    if (data[i] == 0 && all.size() < count) {
      all.emplace_back();
    } else if (data[i] != 0) {
      all.back() += static_cast<char>(data[i]);
    }
  }
  all.resize(count);
  return all;
}

}  // namespace fuzz
