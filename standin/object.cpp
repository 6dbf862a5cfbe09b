// Names are checked before they become paths, and links within the store are never followed, so
// that nothing outside the store's folder is reached.
#include "standin/object.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "standin/context.h"
#include "standin/guard.h"
#include "standin/store.h"

namespace standin {
namespace {

constexpr size_t kMaxObjectName = 30;
constexpr char kOutlineSuffix[] = ".otl";

void check_name(const char* name) {
  if (name == nullptr) throw StoreFailure(kBadArgument);
  const size_t length = strnlen(name, kMaxObjectName + 1);
  if (length == 0 || length > kMaxObjectName || name[0] == '.') throw StoreFailure(kBadObjectName);
  for (size_t i = 0; i < length; ++i) {
    const auto byte = static_cast<unsigned char>(name[i]);
    if (byte < 0x20 || byte == 0x7f || byte == '/' || byte == '\\') {
      throw StoreFailure(kBadObjectName);
    }
  }
}

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
  const int descriptor = open(parent.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) fail(errno);
  const int synced = fsync(descriptor);
  const int error = errno;
  close(descriptor);
  if (synced != 0) fail(error);
  return true;
}

}  // namespace

void make_folder(const std::string& path) {
  if (!create_folder(path) && !is_folder(path)) throw StoreFailure(kStoreError);
}

std::string database_name(const char* app, const char* db) {
  check_name(app);
  check_name(db);
  return std::string(app) + '/' + db;
}

std::string existing_database(const Context& context, const char* app, const char* db) {
  std::string name = database_name(app, db);
  const std::string application = context.root + '/' + app;
  const std::string database = context.root + '/' + name;
  if (context.local) {
    make_folder(application);
    make_folder(database);
  } else if (!is_folder(application) || !is_folder(database)) {
    throw StoreFailure(kNoSuchDatabase);
  }
  return name;
}

void make_database(const Context& context, const char* app, const char* db) {
  const std::string name = database_name(app, db);
  make_folder(context.root + '/' + app);
  if (!create_folder(context.root + '/' + name)) throw StoreFailure(kDatabaseExists);
}

std::string object_file(const Context& context, uint32_t type, const char* app, const char* db,
                        const char* object) {
  if (type != kObjectTypeOutline) throw StoreFailure(kBadArgument);
  check_name(object);
  return context.root + '/' + existing_database(context, app, db) + '/' + object + kOutlineSuffix;
}

std::string object_key(const Context& context, uint32_t type, const char* app, const char* db,
                       const char* object) {
  const std::string file = object_file(context, type, app, db, object).substr(context.root.size());
  return context.local ? kClientFolder + file : file.substr(1);
}

bool object_size(const std::string& file, uint64_t* size) {
  struct stat state {};
  if (!read_state(file, &state)) return false;
  if (!S_ISREG(state.st_mode)) throw StoreFailure(kStoreError);
  *size = static_cast<uint64_t>(state.st_size);
  return true;
}

int object_path(const Context& context, uint32_t type, const char* app, const char* db,
                const char* object, std::string* path) {
  if (path == nullptr) return kBadArgument;
  return run_guarded([&] {
    std::string file = object_file(context, type, app, db, object);
    struct stat state {};
    // A link would lead out of the store.
    if (read_state(file, &state) && !S_ISREG(state.st_mode)) return static_cast<int>(kStoreError);
    *path = std::move(file);
    return kStatusOk;
  });
}

int active_outline_path(const Context& context, std::string* path) {
  if (context.database.empty()) return kNoActiveDatabase;
  const char* const database = context.database.c_str();
  return object_path(context, kObjectTypeOutline, context.application.c_str(), database, database,
                     path);
}

int lock_object(const Context& context, uint32_t type, const char* app, const char* db,
                const char* object) {
  return run_guarded([&] {
    const std::string key = object_key(context, type, app, db, object);
    const auto state = require_state(context.handle);
    const std::lock_guard<std::mutex> lock(state->mutex);
    if (state->login == 0) state->login = state->store->add_login("");
    state->store->lock(state->login, key);
    return kStatusOk;
  });
}

int unlock_object(const Context& context, uint32_t type, const char* app, const char* db,
                  const char* object) {
  return run_guarded([&] {
    const std::string key = object_key(context, type, app, db, object);
    const auto state = require_state(context.handle);
    const std::lock_guard<std::mutex> lock(state->mutex);
    state->store->unlock(state->login, key);
    return kStatusOk;
  });
}

bool holds_lock(const Context& context, uint32_t type, const char* app, const char* db,
                const char* object) {
  bool holds = false;
  run_guarded([&] {
    const std::string key = object_key(context, type, app, db, object);
    const auto state = require_state(context.handle);
    const std::lock_guard<std::mutex> lock(state->mutex);
    holds = state->login != 0 && state->store->lock_holder(key) == state->login;
    return kStatusOk;
  });
  return holds;
}

}  // namespace standin
