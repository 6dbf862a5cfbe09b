// Replacing a file whole: the new content is written beside it under a name of its own and takes
// its place in one step, so that a crash at any moment leaves the old file or the new one.
#pragma once

#include <sys/stat.h>

#include <string>

#include "standin/descriptor.h"

namespace standin {

// What tells a file from the one that replaces it while the first is kept open, and from the same
// file changed in place. Empty when there is none.
std::string file_version(const struct stat& state);
std::string file_version(const std::string& path);

// A file that is to replace `target`, with its mode and, where the system allows it, its owner and
// group. Its temporary file is removed unless replace_target() succeeded; those that killed
// processes left behind are removed when the next one is made. A living writer holds a lock on its
// own, which tells it from a dead one across process namespaces, too. Functions throw StoreFailure.
class PendingFile {
 public:
  explicit PendingFile(const std::string& target);
  ~PendingFile();
  PendingFile(const PendingFile&) = delete;
  PendingFile& operator=(const PendingFile&) = delete;

  // The file to write the content into; it is there and empty.
  const std::string& path() const { return path_; }

  // Writes the content to the disk.
  void make_durable();
  // Moves the file to the target's name, durably. The content has to be durable.
  void replace_target();

 private:
  bool create(mode_t mode);

  std::string target_;
  std::string path_;
  Descriptor file_{-1};
  bool published_ = false;
};

}  // namespace standin
