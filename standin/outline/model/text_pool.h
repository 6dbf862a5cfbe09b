// The texts of an outline, one behind the other in large blocks: each is named by a number of 32
// bits and costs its bytes and one for its length.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace standin {

using TextRef = uint32_t;
inline constexpr TextRef kNoText = 0;  // names the empty text

// Views of texts are good until their text is dropped or the pool is packed.
class TextPool {
 public:
  TextPool() = default;
  // An empty pool with room for the texts that `other` still has: take() throws nothing then.
  static TextPool with_room_for(const TextPool& other);

  // Keeps a copy of a text. Throws std::bad_alloc, also when the pool is full: at 4 GB of texts,
  // those of kLarge bytes or more aside.
  TextRef keep(std::string_view text);
  std::string_view at(TextRef ref) const {
    if (ref == kNoText) return {};
    const char* entry = entry_of(ref);
    const auto size = static_cast<unsigned char>(*entry);
    return size <= kShortest ? std::string_view(entry + 1, size) : long_text(ref, entry);
  }
  // Gives a text up. Its bytes come back when the texts are moved to a new pool.
  void drop(TextRef ref);

  // True when so much was dropped that it is time to move the others to a new pool.
  bool wants_packing() const { return dropped_ > kBlockSize && dropped_ > used_ / 4; }
  // Moves a text here from another pool.
  TextRef take(TextPool& from, TextRef ref);

 private:
  struct LargeText {
    std::unique_ptr<char[]> bytes;
    size_t size = 0;
  };

  static constexpr unsigned kBlockBits = 16;
  static constexpr size_t kBlockSize = size_t{1} << kBlockBits;
  static constexpr size_t kLarge = 4096;  // from here on a text has memory of its own
  // The first byte of an entry: the text's size, or one of these.
  static constexpr unsigned char kShortest = 253;
  static constexpr unsigned char kTwoBytes = 254;  // the size follows in two bytes
  static constexpr unsigned char kOutside = 255;   // the text is in large_

  static size_t entry_size(size_t text_size);
  std::string_view long_text(TextRef ref, const char* entry) const;
  void add_block();
  TextRef allot(size_t size);
  TextRef keep_outside(std::string_view text);
  char* entry_of(TextRef ref) const {
    return blocks_[ref >> kBlockBits].get() + (ref & (kBlockSize - 1));
  }

  std::vector<std::unique_ptr<char[]>> blocks_;
  size_t current_ = 0;       // the block that is being filled
  size_t end_ = kBlockSize;  // of what is filled in it
  uint64_t used_ = 0;        // bytes of all entries
  uint64_t dropped_ = 0;     // of these, those given up
  std::unordered_map<TextRef, LargeText> large_;
};

}  // namespace standin
