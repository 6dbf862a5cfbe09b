// A file or stdin, read in pieces.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace command {

class Source {
 public:
  // "-" is stdin. Refused when the file can't be opened or is a folder.
  explicit Source(const std::string& path);
  ~Source();
  Source(const Source&) = delete;
  Source& operator=(const Source&) = delete;

  // How messages name it.
  const std::string& name() const { return name_; }
  // Bytes in all, 0 when that is not known, and bytes read.
  uint64_t size() const { return size_; }
  uint64_t done() const { return done_; }

  // The next piece, without a byte order mark at the beginning; empty at the end.
  const std::string& next();
  // The first line without its end, to look at before next() gives it, too.
  std::string first_line();

 private:
  void fill();

  std::string name_;
  int descriptor_ = -1;
  uint64_t size_ = 0;
  uint64_t done_ = 0;
  bool begun_ = false;
  bool peeked_ = false;
  bool ended_ = false;
  std::string piece_;
};

// Calls take(line, number) for each line, without its end. A line that is not UTF-8 is thrown as a
// Failure.
void read_lines(Source& source,
                const std::function<void(const std::string& line, uint64_t number)>& take);

}  // namespace command
