// The session functions that copy a database's outline to a file and back.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>

#include "standin/context.h"
#include "standin/descriptor.h"
#include "standin/guard.h"
#include "standin/held_lock.h"
#include "standin/object.h"
#include "standin/outline/file/stored_outline.h"
#include "standin/pending_file.h"
#include "standin/session.h"

using namespace standin;

namespace {

[[noreturn]] void fail(int error) {
  throw StoreFailure(status_of_error(error));
}

// The outline of a database, which has to exist.
ObjectName outline_of(const ContextState& state, const char* application, const char* database) {
  return object_name(state, kObjectTypeOutline, application, database, database);
}

// Opens a regular file for reading; kNoSuchObject when there is none.
Descriptor open_file(const std::string& path) {
  Descriptor file(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  struct stat state {};
  if (file.get() < 0 && errno == ENOENT) throw StoreFailure(kNoSuchObject);
  if (file.get() < 0 || fstat(file.get(), &state) != 0) fail(errno);
  if (!S_ISREG(state.st_mode)) throw StoreFailure(kDamagedOutline);
  return file;
}

// A stored file is never changed in place, so that whoever has it open reads one state.
void copy_file(const Descriptor& from, const std::string& to) {
  const Descriptor target(open(to.c_str(), O_WRONLY | O_CLOEXEC));
  if (target.get() < 0) fail(errno);
  char buffer[1 << 16];
  for (;;) {
    const ssize_t got = read(from.get(), buffer, sizeof buffer);
    if (got == 0) return;
    if (got < 0) {
      if (errno == EINTR) continue;
      fail(errno);
    }
    for (ssize_t done = 0; done < got;) {
      const ssize_t put = write(target.get(), buffer + done, static_cast<size_t>(got - done));
      if (put < 0 && errno != EINTR) fail(errno);
      if (put > 0) done += put;
    }
  }
}

bool may_be_written(const std::string& path) {
  struct stat state {};
  return lstat(path.c_str(), &state) == 0 ? S_ISREG(state.st_mode) : errno == ENOENT;
}

// Stores the outline in a file, under its lock, after reading all of it.
int store_outline(const Descriptor& source, ContextState& state, const ObjectName& object) {
  const int64_t login = require_known_login(state);
  const HeldLock lock(*state.store, login, object);
  const auto pending = state.store->replace(object);
  copy_file(source, pending->file());
  // What was copied is what is checked, whatever becomes of the file meanwhile.
  Outline outline;
  const int status = load_outline(pending->file(), &outline);
  if (status != kStatusOk) return status;
  pending->publish(login, outline.member_count());
  return kStatusOk;
}

}  // namespace

extern "C" {

int OlvStandinBackup(HCTX context, const char* application, const char* database,
                     const char* file) {
  return run_guarded([&] {
    if (file == nullptr || *file == 0 || !may_be_written(file)) {
      return static_cast<int>(kBadArgument);
    }
    const auto state = require_login(context);
    const StoredObject stored = state->store->read(outline_of(*state, application, database));
    std::error_code error;
    const std::filesystem::path target = std::filesystem::absolute(file, error);
    if (error) fail(error.value());
    PendingFile pending(target.string());
    copy_file(open_file(stored.file), pending.path());
    pending.make_durable();
    pending.replace_target();
    return kStatusOk;
  });
}

int OlvStandinRestore(HCTX context, const char* file, const char* application,
                      const char* database) {
  return run_guarded([&] {
    if (file == nullptr || *file == 0) return static_cast<int>(kBadArgument);
    const auto state = require_login(context);
    return store_outline(open_file(file), *state, outline_of(*state, application, database));
  });
}

int OlvStandinCopyOutline(HCTX from, const char* application, const char* database, HCTX to) {
  return run_guarded([&] {
    const auto source = require_login(from);
    const auto target = require_login(to);
    const StoredObject stored = source->store->read(outline_of(*source, application, database));
    return store_outline(open_file(stored.file), *target,
                         outline_of(*target, application, database));
  });
}

}  // extern "C"
