// What the command writes: data to stdout, everything else to stderr.
#pragma once

#include <string>
#include <string_view>

#include "command/layer/formatting.h"

namespace command {

// Writes to stdout or to a file, in large pieces. A write that fails is thrown as a Failure; when
// the reader of a pipe has gone, the process ends at once and quietly. A file takes its name only
// when it is finished: a write that fails, or is interrupted, leaves what was there.
class Output {
 public:
  // stdout
  Output() = default;
  // A file, written anew; a device or a named pipe is written to as it is.
  explicit Output(const std::string& path);
  ~Output();
  Output(const Output&) = delete;
  Output& operator=(const Output&) = delete;

  void write(std::string_view text) {
    buffer_ += text;
    if (buffer_.size() >= kPiece) flush();
  }
  void line(std::string_view text) {
    buffer_ += text;
    write("\n");
  }
  template <typename... Arguments>
  void print(fmt::format_string<Arguments...> format, Arguments&&... arguments) {
    fmt::format_to(std::back_inserter(buffer_), format, std::forward<Arguments>(arguments)...);
    write("");
  }
  void flush();
  // Flushes, and closes a file; its failure is thrown.
  void finish();

 private:
  static constexpr size_t kPiece = 1 << 16;

  std::string path_;
  std::string pending_;    // name until finish(), empty when that is the path
  bool nameless_ = false;  // has no name yet
  int descriptor_ = 1;
  std::string buffer_;
};

// Writes one message to stderr, as "outline: MESSAGE".
void complain(std::string_view message);

// A text as a JSON string with its quotes. What is not UTF-8 becomes U+FFFD.
std::string json_text(std::string_view text);

// Width of the terminal behind a descriptor; 0 when it is none.
size_t terminal_width(int descriptor);

}  // namespace command
