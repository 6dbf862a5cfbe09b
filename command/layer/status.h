// What goes wrong, as sentences: the API's statuses and the command's own refusals.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace command {

// A status of the API with its sentence.
class Status {
 public:
  explicit Status(int code) : code_(code) {}
  int code() const { return code_; }
  explicit operator bool() const { return code_ != 0; }  // true for an error
  const char* sentence() const;

 private:
  int code_;
};

// Something was refused or failed: one sentence with what and why, for the person at the terminal.
class Failure : public std::runtime_error {
 public:
  explicit Failure(const std::string& message, int status = 0)
      : std::runtime_error(message), status_(status) {}
  // The API's status behind it; 0 when the command itself refused.
  int status() const { return status_; }

 private:
  int status_;
};

// Throws a Failure that says what could not be done, and why.
[[noreturn]] void fail(int status, std::string_view what);
// The same unless `status` is 0.
void check(int status, std::string_view what);

}  // namespace command
