// Sorting many entries by a hash in time that grows with their number alone.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace standin {

// Sorts entries by their member `hash`, keeping the order of equal ones: by a third of the bits at
// a time, from the lowest on, with one pass over the entries for each.
template <typename Entry>
void sort_by_hash(std::vector<Entry>& entries) {
  constexpr unsigned kBits = 11;
  constexpr uint32_t kMask = (1u << kBits) - 1;
  std::vector<Entry> sorted(entries.size());
  for (unsigned shift = 0; shift < 32; shift += kBits) {
    std::array<size_t, kMask + 2> starts{};  // where the entries of each value begin
    for (const Entry& entry : entries) ++starts[(entry.hash >> shift & kMask) + 1];
    for (size_t i = 1; i < starts.size(); ++i) starts[i] += starts[i - 1];
    for (const Entry& entry : entries) sorted[starts[entry.hash >> shift & kMask]++] = entry;
    entries.swap(sorted);
  }
}

}  // namespace standin
