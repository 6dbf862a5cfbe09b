// The packed format as the C++ side sees it: its constants, which are those of the Java class
// OutlineBulk that describes it, and a reader and a writer that never leave their bytes. Numbers
// are little-endian, as on every machine that this library is built for.
#pragma once

#include <jni.h>

#include <cstdint>
#include <cstring>

#include "com_olvane_kep_olvane_api_jni_OutlineBulk.h"

// Constant of the format, by its name in Java.
#define KEPOTL_FORMAT(name) com_olvane_kep_olvane_api_jni_OutlineBulk_##name

static_assert(__BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__, "numbers would have to be turned around");

namespace bulk {

inline constexpr uint32_t kNoText = static_cast<uint32_t>(KEPOTL_FORMAT(NO_TEXT));

// A number at any address.
template <typename Number>
Number load(const uint8_t* at) {
  Number number;
  std::memcpy(&number, at, sizeof number);
  return number;
}
template <typename Number>
void store(uint8_t* at, Number number) {
  std::memcpy(at, &number, sizeof number);
}

// Reads numbers and texts one behind the other. Once something does not fit or is malformed, ok()
// is false and everything reads as 0 or null.
class Reader {
 public:
  Reader() = default;
  Reader(uint8_t* begin, uint8_t* end) : at_(begin), end_(end) {}

  bool ok() const { return ok_; }
  bool at_end() const { return at_ == end_; }
  size_t left() const { return ok_ ? static_cast<size_t>(end_ - at_) : 0; }
  // The address of the next `size` bytes, which are skipped; null when there are fewer.
  uint8_t* skip(size_t size) {
    if (!ok_ || size > static_cast<size_t>(end_ - at_)) return fail();
    uint8_t* const skipped = at_;
    at_ += size;
    return skipped;
  }
  uint32_t number() {
    const uint8_t* const at = skip(sizeof(uint32_t));
    return at == nullptr ? 0 : load<uint32_t>(at);
  }
  // A text, which lies in the buffer and ends with NUL; null where none is given.
  const char* text() {
    const uint32_t head = number();
    if (!ok_ || head == kNoText) return nullptr;
    const size_t length = head / 2;
    const uint8_t* const bytes = skip(length + 1);
    if (bytes == nullptr) return nullptr;
    if (std::memchr(bytes, 0, length + 1) != bytes + length) return fail<const char>();
    return reinterpret_cast<const char*>(bytes);
  }

 private:
  template <typename T = uint8_t>
  T* fail() {
    ok_ = false;
    return nullptr;
  }

  uint8_t* at_ = nullptr;
  uint8_t* end_ = nullptr;
  bool ok_ = true;
};

// Writes one behind the other. What does not fit is not written but counted, so that size() tells
// what would have been needed.
class Writer {
 public:
  Writer(uint8_t* begin, const uint8_t* end)
      : begin_(begin), room_(static_cast<size_t>(end - begin)) {}

  bool fits() const { return size_ <= room_; }
  size_t size() const { return size_; }
  void bytes(const void* from, size_t count) {
    if (count <= room_ && size_ <= room_ - count) std::memcpy(begin_ + size_, from, count);
    size_ += count;
  }
  void number(uint32_t number) { bytes(&number, sizeof number); }
  // Leaves a place for `count` bytes.
  void gap(size_t count) { size_ += count; }
  // A number in a place that was left.
  template <typename Number>
  void put(size_t offset, Number number) {
    if (offset + sizeof number <= room_) store(begin_ + offset, number);
  }
  void no_text() { number(kNoText); }
  // A text of a given length. Where it was written, or null when it does not fit.
  const char* text(const char* text, size_t length) {
    number(static_cast<uint32_t>(length * 2 + (is_ascii(text, length) ? 0 : 1)));
    const uint8_t* const written = begin_ + size_;
    bytes(text, length);
    bytes("", 1);
    return fits() ? reinterpret_cast<const char*>(written) : nullptr;
  }
  void text(const char* text) { this->text(text, std::strlen(text)); }

 private:
  static bool is_ascii(const char* text, size_t length) {
    unsigned char all = 0;
    for (size_t i = 0; i < length; ++i) all = static_cast<unsigned char>(all | text[i]);
    return all < 0x80;
  }

  uint8_t* begin_;
  size_t room_;
  size_t size_ = 0;
};

}  // namespace bulk
