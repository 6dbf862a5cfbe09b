// Replacing a file whole, with its temporary names, syncs and the removal of what killed processes
// left.
#include "standin/outline/file/pending_file.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstdio>
#include <memory>
#include <string_view>

#include "standin/guard.h"

namespace standin {
namespace {

constexpr std::string_view kSuffix = ".tmp";

[[noreturn]] void fail() {
  throw StoreFailure(status_of_error(errno));
}

class Descriptor {
 public:
  Descriptor(const std::string& path, int flags) : number_(open(path.c_str(), flags | O_CLOEXEC)) {
    if (number_ < 0) fail();
  }
  ~Descriptor() { close(number_); }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  void sync() const {
    if (fsync(number_) != 0) fail();
  }
  // Waits for the lock that ends with the descriptor.
  void lock() const {
    while (flock(number_, LOCK_EX) != 0) {
      if (errno != EINTR) fail();
    }
  }

 private:
  int number_;
};

std::string folder_of(const std::string& path) {
  const size_t slash = path.rfind('/');
  return slash == std::string::npos ? "." : path.substr(0, slash + 1);
}

std::string name_of(const std::string& path) {
  return path.substr(path.rfind('/') + 1);  // npos + 1 is 0
}

// The process in "<name>.<process>.<number>.tmp"; 0 when `entry` is no such name.
pid_t writer_of(std::string_view entry, std::string_view name) {
  if (entry.size() <= name.size() + 1 + kSuffix.size() || entry.substr(0, name.size()) != name ||
      entry[name.size()] != '.' || entry.substr(entry.size() - kSuffix.size()) != kSuffix) {
    return 0;
  }
  entry.remove_prefix(name.size() + 1);
  entry.remove_suffix(kSuffix.size());
  pid_t process = 0;
  unsigned number = 0;
  const char* const end = entry.data() + entry.size();
  const auto first = std::from_chars(entry.data(), end, process);
  if (first.ec != std::errc() || first.ptr == end || *first.ptr != '.') return 0;
  const auto second = std::from_chars(first.ptr + 1, end, number);
  return second.ec == std::errc() && second.ptr == end ? process : 0;
}

// Removes temporary files of `name` whose process is gone. What can't be removed stays.
void remove_leftovers(const std::string& folder, const std::string& name) {
  struct Closer {
    void operator()(DIR* open) const { closedir(open); }
  };
  const std::unique_ptr<DIR, Closer> entries(opendir(folder.c_str()));
  if (!entries) return;
  while (const dirent* entry = readdir(entries.get())) {
    const pid_t process = writer_of(entry->d_name, name);
    if (process > 0 && kill(process, 0) != 0 && errno == ESRCH) {
      unlink((folder + "/" + entry->d_name).c_str());
    }
  }
}

bool same_file(const struct stat& a, const struct stat& b) {
  return a.st_dev == b.st_dev && a.st_ino == b.st_ino && a.st_size == b.st_size &&
         a.st_mtim.tv_sec == b.st_mtim.tv_sec && a.st_mtim.tv_nsec == b.st_mtim.tv_nsec;
}

}  // namespace

PendingFile::PendingFile(const std::string& target) : target_(target), folder_(folder_of(target)) {
  static std::atomic<unsigned> counter{0};
  remove_leftovers(folder_, name_of(target));
  path_ = target + "." + std::to_string(getpid()) + "." + std::to_string(counter++) +
          std::string(kSuffix);
  // A file of this name can only be what a process with our number once left.
  unlink(path_.c_str());
}

PendingFile::~PendingFile() {
  if (!published_) unlink(path_.c_str());
}

void PendingFile::publish() {
  replace(nullptr);
}

bool PendingFile::publish_over(const struct stat& seen) {
  return replace(&seen);
}

bool PendingFile::replace(const struct stat* seen) {
  Descriptor(path_, O_RDONLY).sync();
  const Descriptor folder(folder_, O_RDONLY | O_DIRECTORY);
  // Nobody else replaces a file of this folder between the comparison and the renaming.
  folder.lock();
  if (seen != nullptr) {
    struct stat now {};
    if (stat(target_.c_str(), &now) != 0 || !same_file(now, *seen)) return false;
  }
  if (rename(path_.c_str(), target_.c_str()) != 0) fail();
  published_ = true;
  folder.sync();
  return true;
}

}  // namespace standin
