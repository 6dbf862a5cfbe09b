// Replacing a file whole: the new content is written beside it under a name of its own and takes
// its place in one step, so that a crash at any moment leaves the old file or the new one.
#pragma once

#include <sys/stat.h>

#include <string>

namespace standin {

// A file that is to replace `target`. Its temporary file is removed unless publish() succeeded;
// those that killed processes left behind are removed when the next one is made. Functions throw
// StoreFailure.
class PendingFile {
 public:
  explicit PendingFile(const std::string& target);
  ~PendingFile();
  PendingFile(const PendingFile&) = delete;
  PendingFile& operator=(const PendingFile&) = delete;

  // Where to write the content; there is no such file yet.
  const std::string& path() const { return path_; }

  // Makes the content durable and moves it to the target's name.
  void publish();
  // The same, but only while the target is still the file that `seen` describes; otherwise
  // nothing happens and the answer is false.
  bool publish_over(const struct stat& seen);

 private:
  bool replace(const struct stat* seen);

  std::string target_;
  std::string folder_;
  std::string path_;
  bool published_ = false;
};

}  // namespace standin
