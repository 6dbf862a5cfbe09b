// An array that grows by chunks and never moves what it holds: no copy while it grows, no moment
// with both the old and the new array in memory.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

namespace standin {

template <typename Element>
class Chunks {
 public:
  uint32_t size() const { return size_; }
  Element& operator[](uint32_t i) { return chunks_[i >> kBits][i & kMask]; }
  const Element& operator[](uint32_t i) const { return chunks_[i >> kBits][i & kMask]; }

  // Makes room for `count` elements in all; grow_to() up to there throws nothing then.
  void reserve(uint32_t count) {
    const size_t needed = (size_t{count} + kMask) >> kBits;
    chunks_.reserve(needed <= chunks_.capacity() ? needed : needed + needed / 2);
    while (chunks_.size() < needed) chunks_.push_back(std::make_unique<Element[]>(kMask + 1));
  }
  // Adds elements of value zero up to a size of `count`.
  void grow_to(uint32_t count) {
    reserve(count);
    if (count > size_) size_ = count;
  }
  // Adds one element and answers its position.
  uint32_t add() {
    grow_to(size_ + 1);
    return size_ - 1;
  }

 private:
  static constexpr uint32_t kBits = 10;
  static constexpr uint32_t kMask = (1u << kBits) - 1;

  std::vector<std::unique_ptr<Element[]>> chunks_;
  uint32_t size_ = 0;
};

}  // namespace standin
