// Files of the cache: found, checked, added and cleared away.
#include "standin/postgresql/cache.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <vector>

#include "standin/descriptor.h"
#include "standin/guard.h"
#include "standin/postgresql/digest.h"

namespace standin::postgresql {
namespace {

namespace fs = std::filesystem;

constexpr char kSuffix[] = ".otl";

// Only for the user: outlines are nobody else's business.
bool make_private_folder(const std::string& folder) {
  std::error_code error;
  fs::create_directories(fs::path(folder).parent_path(), error);
  return (mkdir(folder.c_str(), 0700) == 0 || errno == EEXIST) &&
         access(folder.c_str(), R_OK | W_OK | X_OK) == 0;
}

ContentKey content_of(const Descriptor& file) {
  Digest digest;
  ContentKey content;
  std::vector<char> buffer(1 << 18);
  for (;;) {
    const ssize_t got = read(file.get(), buffer.data(), buffer.size());
    if (got == 0) break;
    if (got < 0) {
      if (errno == EINTR) continue;
      throw StoreFailure(status_of_error(errno));
    }
    digest.add({buffer.data(), static_cast<size_t>(got)});
    content.size += static_cast<uint64_t>(got);
  }
  content.digest = digest.finish();
  return content;
}

}  // namespace

Cache::Cache(std::string folder) : folder_(std::move(folder)) {
  if (make_private_folder(folder_)) return;
  const char* const parent = std::getenv("TMPDIR");
  folder_ = std::string(parent != nullptr ? parent : "/tmp") + "/outline-XXXXXX";
  if (mkdtemp(folder_.data()) == nullptr) throw StoreFailure(status_of_error(errno));
  temporary_ = true;
}

Cache::~Cache() {
  std::error_code ignored;
  if (temporary_) fs::remove_all(folder_, ignored);
}

std::string Cache::path(const ContentKey& content) const {
  return folder_ + '/' + hexadecimal(content.digest) + kSuffix;
}

std::optional<CachedFile> Cache::find(const ContentKey& content) {
  const std::string path = this->path(content);
  Descriptor file(open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
  if (file.get() < 0) return std::nullopt;
  const ContentKey found = content_of(file);
  if (found.digest != content.digest || found.size != content.size) {
    unlink(path.c_str());
    return std::nullopt;
  }
  futimens(file.get(), nullptr);  // it was used now
  return CachedFile{path, std::make_shared<Descriptor>(std::move(file))};
}

std::shared_ptr<PendingFile> Cache::new_file() {
  return std::make_shared<PendingFile>(folder_ + "/new");
}

CachedFile Cache::keep(const std::shared_ptr<PendingFile>& file, const ContentKey& content) {
  const std::string target = path(content);
  // Somebody may have been faster, and put the same there.
  if (link(file->path().c_str(), target.c_str()) != 0 && errno != EEXIST) {
    return {file->path(), file};
  }
  make_room();
  return {target, nullptr};
}

void Cache::make_room() {
  struct Entry {
    fs::file_time_type used;
    uint64_t size;
    fs::path path;
  };
  std::error_code error;
  std::vector<Entry> entries;
  uint64_t total = 0;
  fs::directory_iterator entry(folder_, error);
  for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
    if (entry->path().extension() != kSuffix) continue;
    std::error_code gone;
    const Entry one = {entry->last_write_time(gone), entry->file_size(gone), entry->path()};
    if (gone) continue;
    total += one.size;
    entries.push_back(one);
  }
  std::sort(entries.begin(), entries.end(),
            [](const Entry& a, const Entry& b) { return a.used < b.used; });
  for (size_t i = 0; total > kMost && i + 1 < entries.size(); ++i) {
    std::error_code ignored;
    fs::remove(entries[i].path, ignored);
    total -= entries[i].size;
  }
}

}  // namespace standin::postgresql
