// Rows that wait for their parent. Beyond some megabytes they lie in a temporary file that has no
// name, so that a table in any order needs little memory and leaves nothing behind.
#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "command/rows/fields.h"

namespace command {

class WaitingRows {
 public:
  static constexpr uint32_t kNone = UINT32_MAX;

  WaitingRows() = default;
  ~WaitingRows();
  WaitingRows(const WaitingRows&) = delete;
  WaitingRows& operator=(const WaitingRows&) = delete;

  // Keeps a row under a key, behind those that wait under it.
  void add(uint64_t key, const Row& row);
  // Takes the chain of rows that wait under a key: its first number, kNone when there are none.
  uint32_t take(uint64_t key);
  // Reads a row of a chain and answers the number of the next one.
  uint32_t read(uint32_t number, Row* row);
  // Takes any chain that is left.
  uint32_t take_any();

  size_t count() const { return waiting_; }

 private:
  struct Entry {
    uint64_t offset;
    uint32_t next;
  };
  struct Chain {
    uint32_t first;
    uint32_t last;
    uint32_t length;
  };

  void spill();
  void fetch(uint64_t offset, void* to, size_t size);

  std::vector<Entry> entries_;
  std::unordered_map<uint64_t, Chain> chains_;
  size_t waiting_ = 0;
  std::string tail_;      // what is not in the file
  uint64_t in_file_ = 0;  // bytes in the file
  int file_ = -1;
};

}  // namespace command
