// Writing to stdout, files and the terminal.
#include "command/output.h"

#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <nlohmann/json.hpp>
#include <utility>

#include "command/layer/status.h"

namespace command {
namespace {

constexpr char kOpenFiles[] = "/proc/self/fd";

[[noreturn]] void fail_to_write(const std::string& path, int error) {
  throw Failure(fmt::format("can't write to {}: {}", path.empty() ? "stdout" : "'" + path + "'",
                            std::strerror(error)));
}

}  // namespace

Output::Output(const std::string& path) : path_(path) {
  struct stat state {};
  const bool exists = lstat(path.c_str(), &state) == 0;
  if (exists && !S_ISREG(state.st_mode)) {
    descriptor_ = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  } else if (exists && access(path.c_str(), W_OK) != 0) {
    descriptor_ = -1;
  } else {
    // A new name gets the mode that the user's mask leaves, as any new file does.
    const mode_t mode = exists ? state.st_mode & 0777 : 0666;
    pending_ = fmt::format("{}.{}.tmp", path, getpid());
    // Without a name a file goes with a killed process. Not every file system can do without, and
    // the name is given by way of /proc.
    const std::string folder = path.substr(0, path.rfind('/') + 1);
    descriptor_ = access(kOpenFiles, X_OK) != 0 ? -1
                                                : open(folder.empty() ? "." : folder.c_str(),
                                                       O_WRONLY | O_TMPFILE | O_CLOEXEC, mode);
    nameless_ = descriptor_ >= 0;
    if (!nameless_) {
      descriptor_ =
          open(pending_.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW, mode);
    }
  }
  if (descriptor_ < 0) fail_to_write(path_, errno);
}

Output::~Output() {
  if (path_.empty() || descriptor_ < 0) return;
  close(descriptor_);
  if (!pending_.empty()) unlink(pending_.c_str());
}

void Output::flush() {
  std::string_view left = buffer_;
  while (!left.empty()) {
    const ssize_t put = ::write(descriptor_, left.data(), left.size());
    if (put < 0 && errno == EINTR) continue;
    if (put < 0 && errno == EPIPE) _exit(0);  // the reader has seen enough
    if (put < 0) {
      const int error = errno;
      buffer_.clear();
      fail_to_write(path_, error);
    }
    left.remove_prefix(static_cast<size_t>(put));
  }
  buffer_.clear();
}

void Output::finish() {
  flush();
  if (path_.empty()) return;
  const std::string open_file = fmt::format("{}/{}", kOpenFiles, descriptor_);
  bool written = !nameless_ || linkat(AT_FDCWD, open_file.c_str(), AT_FDCWD, pending_.c_str(),
                                      AT_SYMLINK_FOLLOW) == 0;
  const int descriptor = std::exchange(descriptor_, -1);
  written = close(descriptor) == 0 && written;
  if (written && (pending_.empty() || rename(pending_.c_str(), path_.c_str()) == 0)) return;
  const int error = errno;
  if (!pending_.empty()) unlink(pending_.c_str());
  fail_to_write(path_, error);
}

void complain(std::string_view message) {
  // A line of progress may stand there.
  const char* const clear = terminal_width(2) > 0 ? "\r\033[K" : "";
  const std::string text = fmt::format("{}outline: {}\n", clear, message);
  if (::write(2, text.data(), text.size()) < 0) return;  // there is nobody left to tell
}

std::string json_text(std::string_view text) {
  return nlohmann::json(text).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

size_t terminal_width(int descriptor) {
  winsize size = {};
  if (isatty(descriptor) == 0 || ioctl(descriptor, TIOCGWINSZ, &size) != 0) return 0;
  return size.ws_col;
}

}  // namespace command
