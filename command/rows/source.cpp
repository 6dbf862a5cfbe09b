// Reading input.
#include "command/rows/source.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "command/layer/formatting.h"
#include "command/layer/status.h"
#include "command/layer/text.h"

namespace command {
namespace {

constexpr size_t kPiece = 1 << 16;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

}  // namespace

Source::Source(const std::string& path)
    : name_(path == "-" ? "stdin" : path),
      descriptor_(path == "-" ? 0 : open(path.c_str(), O_RDONLY | O_CLOEXEC)) {
  struct stat state {};
  if (descriptor_ < 0 || fstat(descriptor_, &state) != 0) {
    throw Failure(fmt::format("can't read '{}': {}", name_, std::strerror(errno)));
  }
  if (S_ISREG(state.st_mode)) size_ = static_cast<uint64_t>(state.st_size);
}

Source::~Source() {
  if (descriptor_ > 0) close(descriptor_);
}

// Adds one read to the piece.
void Source::fill() {
  const size_t before = piece_.size();
  piece_.resize(before + kPiece);
  ssize_t got = 0;
  do {
    got = read(descriptor_, piece_.data() + before, kPiece);
  } while (got < 0 && errno == EINTR);
  if (got < 0) {
    throw Failure(fmt::format("can't read '{}': {}", name_, std::strerror(errno)));
  }
  piece_.resize(before + static_cast<size_t>(got));
  done_ += static_cast<uint64_t>(got);
  ended_ = got == 0;
  // A first read may bring only some bytes of the mark.
  if (!begun_ && !ended_ && piece_.size() < kByteOrderMark.size()) return fill();
  if (!begun_ && piece_.rfind(kByteOrderMark, 0) == 0) piece_.erase(0, kByteOrderMark.size());
  begun_ = true;
}

const std::string& Source::next() {
  if (peeked_) {
    peeked_ = false;
    return piece_;
  }
  piece_.clear();
  if (!ended_) fill();
  return piece_;
}

std::string Source::first_line() {
  constexpr size_t kLongest = 1 << 20;
  while (!ended_ && piece_.find_first_of("\r\n") == std::string::npos && piece_.size() < kLongest) {
    fill();
  }
  peeked_ = true;
  return piece_.substr(0, piece_.find_first_of("\r\n"));
}

void read_lines(Source& source, const std::function<void(const std::string&, uint64_t)>& take) {
  std::string line;
  uint64_t number = 0;
  const auto end_line = [&] {
    ++number;
    if (!is_utf8(line)) {
      throw Failure(fmt::format("{}:{}: the line is not UTF-8; save the file as UTF-8",
                                source.name(), number));
    }
    take(line, number);
    line.clear();
  };
  for (;;) {
    const std::string& piece = source.next();
    if (piece.empty()) break;
    for (size_t at = 0; at < piece.size();) {
      const size_t end = piece.find('\n', at);
      line.append(piece, at, end == std::string::npos ? end : end - at);
      if (end == std::string::npos) break;
      end_line();
      at = end + 1;
    }
  }
  if (!line.empty()) end_line();
}

}  // namespace command
