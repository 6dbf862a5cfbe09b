// Replacing a file whole, with its temporary names, syncs and the removal of what killed processes
// left.
#include "standin/pending_file.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>
#include <cstdio>
#include <memory>
#include <string_view>

#include "standin/guard.h"
#include "standin/process_identity.h"

namespace standin {
namespace {

constexpr std::string_view kSuffix = ".tmp";

[[noreturn]] void fail() {
  throw StoreFailure(status_of_error(errno));
}

std::string folder_of(const std::string& path) {
  return path.substr(0, path.rfind('/') + 1);
}

// True for "<name>.<who wrote it>.tmp" with the form of a process's mark.
bool is_pending_name(std::string_view entry, std::string_view name) {
  if (entry.size() <= name.size() + 1 + kSuffix.size() || entry.substr(0, name.size()) != name ||
      entry[name.size()] != '.' || entry.substr(entry.size() - kSuffix.size()) != kSuffix) {
    return false;
  }
  entry.remove_prefix(name.size() + 1);
  entry.remove_suffix(kSuffix.size());
  return is_mark(entry);
}

// Removes temporary files of `target` whose writer is gone, as nobody holds their lock. What can't
// be opened or removed stays.
void remove_leftovers(const std::string& target) {
  const std::string folder = folder_of(target);
  const std::string name = target.substr(folder.size());
  const std::unique_ptr<DIR, int (*)(DIR*)> entries(opendir(folder.c_str()), closedir);
  if (!entries) return;
  while (const dirent* entry = readdir(entries.get())) {
    if (!is_pending_name(entry->d_name, name)) continue;
    const std::string left = folder + entry->d_name;
    const Descriptor file(open(left.c_str(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    if (file.get() >= 0 && flock(file.get(), LOCK_EX | LOCK_NB) == 0) unlink(left.c_str());
  }
}

}  // namespace

std::string file_version(const struct stat& state) {
  char text[128];
  std::snprintf(
      text, sizeof text, "%llx:%llx:%llx:%llx.%lx", static_cast<unsigned long long>(state.st_dev),
      static_cast<unsigned long long>(state.st_ino), static_cast<unsigned long long>(state.st_size),
      static_cast<unsigned long long>(state.st_mtim.tv_sec),
      static_cast<unsigned long>(state.st_mtim.tv_nsec));
  return text;
}

std::string file_version(const std::string& path) {
  struct stat state {};
  if (lstat(path.c_str(), &state) == 0) return file_version(state);
  if (errno != ENOENT) fail();
  return {};
}

PendingFile::PendingFile(const std::string& target) : target_(target) {
  remove_leftovers(target);
  struct stat old {};
  const bool replaces = lstat(target.c_str(), &old) == 0;
  // A name is taken, or an unlocked file removed, only by an accident that doesn't come often.
  for (int attempt = 0; attempt < 100; ++attempt) {
    path_ = target + '.' + new_mark() + std::string(kSuffix);
    if (create(replaces ? 0600 : 0666)) return;
  }
  throw StoreFailure(kStoreBusy);
}

// False when somebody was faster with the name or with the lock.
bool PendingFile::create(mode_t mode) {
  file_ = Descriptor(open(path_.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, mode));
  if (file_.get() < 0) {
    if (errno == EEXIST) return false;
    fail();
  }
  struct stat state {};
  const bool locked = flock(file_.get(), LOCK_EX | LOCK_NB) == 0;
  const int error = errno;
  if (locked && fstat(file_.get(), &state) == 0 && state.st_nlink == 1) return true;
  unlink(path_.c_str());
  if (!locked && error != EWOULDBLOCK) throw StoreFailure(status_of_error(error));
  return false;
}

PendingFile::~PendingFile() {
  if (!published_) unlink(path_.c_str());
}

void PendingFile::make_durable() {
  struct stat old {};
  if (lstat(target_.c_str(), &old) == 0) {
    struct stat own {};
    if (fstat(file_.get(), &own) != 0) fail();
    // Only some may give files away, and to some groups.
    if (own.st_uid != old.st_uid && fchown(file_.get(), old.st_uid, old.st_gid) != 0) errno = 0;
    if (own.st_gid != old.st_gid && fchown(file_.get(), static_cast<uid_t>(-1), old.st_gid) != 0) {
      errno = 0;
    }
    if (fchmod(file_.get(), old.st_mode & 0777) != 0) fail();
  }
  if (fsync(file_.get()) != 0) fail();
}

void PendingFile::replace_target() {
  struct stat written {};
  struct stat named {};
  if (fstat(file_.get(), &written) != 0 || lstat(path_.c_str(), &named) != 0) fail();
  if (written.st_dev != named.st_dev || written.st_ino != named.st_ino) {
    throw StoreFailure(kStoreError);
  }
  const std::string folder = folder_of(target_);
  const Descriptor entries(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (entries.get() < 0 || rename(path_.c_str(), target_.c_str()) != 0) fail();
  published_ = true;
  if (fsync(entries.get()) != 0) fail();
}

}  // namespace standin
