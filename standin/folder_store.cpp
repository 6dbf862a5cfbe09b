// The store's folder: what becomes a store, its databases and objects. Links within it are never
// followed, so that nothing outside is reached.
#include "standin/folder_store.h"

#include <fcntl.h>
#include <sqlite3.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <system_error>

#include "standin/control_file.h"
#include "standin/descriptor.h"
#include "standin/guard.h"
#include "standin/outline/file/outline_file.h"
#include "standin/pending_file.h"

namespace standin {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void fail(int error) {
  throw StoreFailure(status_of_error(error));
}

// False when there is nothing at `path`.
bool read_state(const std::string& path, struct stat* state) {
  if (lstat(path.c_str(), state) == 0) return true;
  if (errno != ENOENT && errno != ENOTDIR) fail(errno);
  return false;
}

bool is_folder(const std::string& path) {
  struct stat state {};
  return read_state(path, &state) && S_ISDIR(state.st_mode);
}

// Makes a folder and writes its entry in the parent to the disk; false when something is there.
bool create_folder(const std::string& path) {
  if (mkdir(path.c_str(), 0777) != 0) {
    if (errno == EEXIST) return false;
    fail(errno);
  }
  const std::string parent = path.substr(0, path.rfind('/') + 1);
  const Descriptor folder(open(parent.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (folder.get() < 0 || fsync(folder.get()) != 0) fail(errno);
  return true;
}

// Makes a folder unless it exists. A file or a link in its place is kStoreError.
void make_folder(const std::string& path) {
  if (!create_folder(path) && !is_folder(path)) throw StoreFailure(kStoreError);
}

// Makes the store's folder when there is none and answers its absolute path.
std::string prepare_folder(const std::string& name) {
  std::error_code error;
  if (fs::exists(name, error) && !fs::is_directory(name, error)) throw StoreFailure(kNotAStore);
  fs::create_directories(name, error);
  if (error == std::errc::not_a_directory) throw StoreFailure(kNotAStore);
  if (error) fail(error.value());
  const fs::path folder = fs::canonical(name, error);
  if (error) fail(error.value());
  return folder.string();
}

// Tells whether a folder holds what a store holds, to `depth` levels of folders and then outlines.
enum class Content { kNone, kOfAStore, kOther };

Content content_of(const fs::path& folder, int depth) {
  std::error_code error;
  Content content = Content::kNone;
  fs::directory_iterator entry(folder, error);
  for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
    const std::string name = entry->path().filename().string();
    if (depth == 2 && name.rfind(kControlFile, 0) == 0) continue;
    const fs::file_type type = entry->symlink_status(error).type();
    if (error) break;
    if (depth == 2 && name == kClientFolder && type == fs::file_type::directory) continue;
    const bool fits = depth > 0 ? type == fs::file_type::directory && name[0] != '.' &&
                                      content_of(entry->path(), depth - 1) != Content::kOther
                                : type == fs::file_type::regular &&
                                      name.find(kOutlineSuffix) != std::string::npos;
    if (!fits) return Content::kOther;
    content = Content::kOfAStore;
  }
  if (error) fail(error.value());
  return content;
}

// The folders in a folder that can be applications or databases, sorted by name.
std::vector<std::string> folders_in(const std::string& path) {
  std::vector<std::string> names;
  std::error_code error;
  fs::directory_iterator entry(path, error);
  for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
    const std::string name = entry->path().filename().string();
    if (name[0] != '.' && entry->symlink_status(error).type() == fs::file_type::directory) {
      names.push_back(name);
    }
  }
  if (error) fail(error.value());
  std::sort(names.begin(), names.end());
  return names;
}

}  // namespace

// Content that takes its place while the control file is held, so that nobody else replaces an
// object or breaks a lock between the last look and the renaming.
class FolderStore::PendingReplacement final : public PendingObject {
 public:
  PendingReplacement(FolderStore& store, const ObjectName& object)
      : store_(store), object_(object), pending_(store.path(object)) {}

  const std::string& file() const override { return pending_.path(); }

  void publish(int64_t login, uint32_t) override {
    pending_.make_durable();
    const std::lock_guard<std::mutex> guard(store_.mutex_);
    const Transaction transaction(store_.control());
    if (!object_.local && (login == 0 || store_.holder(object_.text()) != login)) {
      throw StoreFailure(kNotLocked);
    }
    pending_.replace_target();
  }

  bool publish_over(const std::string& version, uint32_t) override {
    pending_.make_durable();
    const std::lock_guard<std::mutex> guard(store_.mutex_);
    const Transaction transaction(store_.control());
    if (file_version(store_.path(object_)) != version) return false;
    pending_.replace_target();
    return true;
  }

 private:
  FolderStore& store_;
  ObjectName object_;
  PendingFile pending_;
};

FolderStore::FolderStore(const std::string& folder) : folder_(prepare_folder(folder)) {
  const std::string control = folder_ + '/' + kControlFile;
  struct stat state {};
  const bool has_control = read_state(control, &state);
  const Content content = has_control ? Content::kOfAStore : content_of(folder_, 2);
  if (content == Content::kOther) throw StoreFailure(kNotAStore);
  try {
    control_ = open_control_file(control);
  } catch (const StoreFailure& failure) {
    // Looking at a store needs neither a right to write nor room on the disk.
    const bool may_look = failure.status() == kNotPermitted || failure.status() == kNoSpace;
    if (!may_look || content == Content::kNone) throw;
    if (has_control && access(control.c_str(), R_OK) == 0) read_control_file(control);
  }
}

Connection& FolderStore::control() {
  if (control_ == nullptr) control_ = open_control_file(folder_ + '/' + kControlFile);
  return *control_;
}

std::string FolderStore::root(bool local) const {
  return local ? folder_ + '/' + kClientFolder + '/' : folder_ + '/';
}

std::string FolderStore::path(const ObjectName& object) const {
  return root(object.local) + object.database + '/' + object.object + kOutlineSuffix;
}

bool FolderStore::has_database(const std::string& database, bool local) {
  const std::string application = database.substr(0, database.find('/'));
  if (local) {
    const std::string root = folder_ + '/' + kClientFolder;
    make_folder(root);
    make_folder(root + '/' + application);
    make_folder(root + '/' + database);
    return true;
  }
  return is_folder(folder_ + '/' + application) && is_folder(folder_ + '/' + database);
}

void FolderStore::make_database(const std::string& database) {
  make_folder(folder_ + '/' + database.substr(0, database.find('/')));
  if (!create_folder(folder_ + '/' + database)) throw StoreFailure(kDatabaseExists);
  // A database of this name may have been removed together with its folder.
  const std::lock_guard<std::mutex> guard(mutex_);
  Statement(control(), "DELETE FROM database_state WHERE database = ?").bind(database).run();
}

std::vector<std::string> FolderStore::databases(bool local) {
  std::vector<std::string> names;
  const std::string root = this->root(local);
  if (!is_folder(root)) return names;
  for (const std::string& application : folders_in(root)) {
    for (const std::string& database : folders_in(root + application)) {
      names.push_back(std::string(application).append(1, '/').append(database));
    }
  }
  return names;
}

void FolderStore::remove_database(const std::string& database, bool local) {
  std::error_code error;
  fs::remove_all(root(local) + database, error);
  if (error) fail(error.value());
  // Fails, as it should, while other databases are left.
  rmdir((root(local) + database.substr(0, database.find('/'))).c_str());
  if (local) return;
  const std::lock_guard<std::mutex> guard(mutex_);
  Statement(control(), "DELETE FROM database_state WHERE database = ?").bind(database).run();
}

std::optional<ObjectInfo> FolderStore::object_info(const ObjectName& object) {
  struct stat state {};
  if (!read_state(path(object), &state)) return std::nullopt;
  if (!S_ISREG(state.st_mode)) throw StoreFailure(kStoreError);
  return ObjectInfo{static_cast<uint64_t>(state.st_size), static_cast<int64_t>(state.st_mtime)};
}

uint32_t FolderStore::count_members(const ObjectName& object) {
  uint32_t members = 0;
  run_guarded([&] {
    const StoredObject stored = read(object);
    members =
        static_cast<uint32_t>(OutlineFile::open(stored.file).number("SELECT count(*) FROM member"));
    return kStatusOk;
  });
  return members;
}

StoredObject FolderStore::read(const ObjectName& object) {
  std::string file = path(object);
  // A file that is open keeps its number, which therefore tells it from its successors.
  auto held = std::make_shared<Descriptor>(
      open(file.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
  if (held->get() < 0) {
    if (errno == ENOENT) throw StoreFailure(kNoSuchObject);
    fail(errno);
  }
  struct stat state {};
  if (fstat(held->get(), &state) != 0) fail(errno);
  if (!S_ISREG(state.st_mode)) throw StoreFailure(kStoreError);
  return {std::move(file), file_version(state), std::move(held)};
}

std::unique_ptr<PendingObject> FolderStore::replace(const ObjectName& object) {
  object_info(object);  // a link would lead out of the store
  return std::make_unique<PendingReplacement>(*this, object);
}

std::string FolderStore::local_path(const ObjectName& object) {
  return path(object);
}

}  // namespace standin
