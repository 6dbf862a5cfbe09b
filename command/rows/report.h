// What was wrong with the rows of a file.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "command/output.h"
#include "command/rows/fields.h"

namespace command {

// Says the first problems on stderr, counts all, and writes rejected rows to a file.
class Report {
 public:
  // `source` names the input in messages. `rejects` empty: rejected rows are not written.
  Report(std::string source, const std::string& rejects);

  // What is wrong in a line, and what to do about it.
  void problem(uint64_t line, const std::string& message);
  // The same for a row, which is rejected.
  void reject(const std::vector<Field>& fields, const Row& row, const std::string& message);

  uint64_t problems() const { return problems_; }
  // Tells how many problems were not shown; closes the file.
  void finish();

 private:
  std::string source_;
  uint64_t problems_ = 0;
  std::unique_ptr<Output> rejects_;
  bool has_header_ = false;
};

}  // namespace command
