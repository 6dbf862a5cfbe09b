// The pool of texts.
#include "standin/outline/model/text_pool.h"

#include <cstring>
#include <new>
#include <utility>

namespace standin {

size_t TextPool::entry_size(size_t text_size) {
  if (text_size <= kShortest) return 1 + text_size;
  return text_size < kLarge ? 1 + sizeof(uint16_t) + text_size : 1;
}

TextPool TextPool::with_room_for(const TextPool& other) {
  TextPool pool;
  // No block but the last is left with room for the longest entry.
  const uint64_t living = other.used_ - other.dropped_;
  const uint64_t blocks = living / (kBlockSize - entry_size(kLarge - 1)) + 1;
  while (pool.blocks_.size() < blocks) pool.add_block();
  pool.large_.reserve(other.large_.size());
  return pool;
}

void TextPool::add_block() {
  if (blocks_.size() > UINT32_MAX >> kBlockBits) throw std::bad_alloc();
  // Not std::make_unique, which would clear the bytes.
  blocks_.push_back(std::unique_ptr<char[]>(new char[kBlockSize]));
}

// Room for an entry of `size` bytes.
TextRef TextPool::allot(size_t size) {
  if (end_ + size > kBlockSize) {
    const size_t next = used_ == 0 ? 0 : current_ + 1;
    if (next == blocks_.size()) add_block();
    current_ = next;
    end_ = next == 0 ? 1 : 0;  // 0 names no text
  }
  const auto ref = static_cast<TextRef>((current_ << kBlockBits) + end_);
  end_ += size;
  used_ += size;
  return ref;
}

TextRef TextPool::keep(std::string_view text) {
  if (text.empty()) return kNoText;
  if (text.size() >= kLarge) return keep_outside(text);
  const TextRef ref = allot(entry_size(text.size()));
  char* entry = entry_of(ref);
  if (text.size() <= kShortest) {
    *entry = static_cast<char>(text.size());
    text.copy(entry + 1, text.size());
  } else {
    *entry = static_cast<char>(kTwoBytes);
    const auto size = static_cast<uint16_t>(text.size());
    std::memcpy(entry + 1, &size, sizeof size);
    text.copy(entry + 1 + sizeof size, text.size());
  }
  return ref;
}

TextRef TextPool::keep_outside(std::string_view text) {
  LargeText large{std::unique_ptr<char[]>(new char[text.size()]), text.size()};
  text.copy(large.bytes.get(), text.size());
  const TextRef ref = allot(1);
  *entry_of(ref) = static_cast<char>(kOutside);
  try {
    large_.emplace(ref, std::move(large));
  } catch (...) {
    ++dropped_;
    throw;
  }
  return ref;
}

std::string_view TextPool::long_text(TextRef ref, const char* entry) const {
  if (static_cast<unsigned char>(*entry) == kOutside) {
    const LargeText& large = large_.find(ref)->second;
    return {large.bytes.get(), large.size};
  }
  uint16_t size = 0;
  std::memcpy(&size, entry + 1, sizeof size);
  return {entry + 1 + sizeof size, size};
}

void TextPool::drop(TextRef ref) {
  if (ref == kNoText) return;
  dropped_ += entry_size(at(ref).size());
  large_.erase(ref);
}

TextRef TextPool::take(TextPool& from, TextRef ref) {
  auto node = from.large_.extract(ref);
  if (node.empty()) return keep(from.at(ref));
  const TextRef taken = allot(1);
  *entry_of(taken) = static_cast<char>(kOutside);
  node.key() = taken;
  large_.insert(std::move(node));
  return taken;
}

}  // namespace standin
