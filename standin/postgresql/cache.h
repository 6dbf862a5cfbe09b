// Contents of objects as files, by what is in them: fetched once, however often they are read.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "standin/pending_file.h"

namespace standin::postgresql {

// What tells a content from all others, and its size in bytes.
struct ContentKey {
  std::string digest;
  uint64_t size = 0;
};

// A file to read, which is there at least as long as this lives.
struct CachedFile {
  std::string path;
  std::shared_ptr<const void> held;
};

// The cache in a folder of the user's, or in a temporary one where that can't be written. Several
// processes may use it at once. What was not used for longest goes when it grows too large.
class Cache {
 public:
  static constexpr uint64_t kMost = uint64_t{4} << 30;

  explicit Cache(std::string folder);
  ~Cache();
  Cache(const Cache&) = delete;
  Cache& operator=(const Cache&) = delete;

  // The file with a content that is read through and found right; one that is not goes.
  std::optional<CachedFile> find(const ContentKey& content);
  // A new file to write a content into. It goes with the object, unless it was kept.
  std::shared_ptr<PendingFile> new_file();
  // Puts a file that is known to hold a content into the cache.
  CachedFile keep(const std::shared_ptr<PendingFile>& file, const ContentKey& content);

 private:
  std::string path(const ContentKey& content) const;
  void make_room();

  std::string folder_;
  bool temporary_ = false;
};

}  // namespace standin::postgresql
