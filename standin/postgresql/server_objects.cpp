// Reading and publishing objects on a server. A version of an object is its outline file in chunks;
// it becomes the object's in the transaction that brings it, and the one before goes afterwards.
#include <fcntl.h>
#include <sys/random.h>

#include <cerrno>
#include <filesystem>
#include <thread>

#include "standin/descriptor.h"
#include "standin/guard.h"
#include "standin/postgresql/digest.h"
#include "standin/postgresql/server_store.h"
#include "standin/postgresql/transact.h"

namespace standin::postgresql {
namespace {

constexpr size_t kChunk = 1 << 18;
// How often a save is tried whose connection broke while the lock was kept.
constexpr int kUploads = 3;
constexpr std::chrono::milliseconds kBetweenUploads{500};
// How often, and how far apart, it is asked whether a save arrived.
constexpr int kQuestions = 10;
constexpr std::chrono::seconds kBetweenQuestions{1};

std::string new_version() {
  std::string bytes(16, '\0');
  if (getrandom(bytes.data(), bytes.size(), 0) != static_cast<ssize_t>(bytes.size())) {
    throw StoreFailure(kStoreError);
  }
  return bytes;
}

size_t read_chunk(const Descriptor& file, std::string& chunk) {
  chunk.resize(kChunk);
  size_t filled = 0;
  while (filled < kChunk) {
    const ssize_t got = ::read(file.get(), chunk.data() + filled, kChunk - filled);
    if (got == 0) break;
    if (got < 0 && errno != EINTR) throw StoreFailure(status_of_error(errno));
    if (got > 0) filled += static_cast<size_t>(got);
  }
  chunk.resize(filled);
  return filled;
}

void write_all(const Descriptor& file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t put = ::write(file.get(), bytes.data(), bytes.size());
    if (put < 0 && errno != EINTR) throw StoreFailure(status_of_error(errno));
    if (put > 0) bytes.remove_prefix(static_cast<size_t>(put));
  }
}

// Sends a file as the chunks of a version, and answers what is in it.
ContentKey send_chunks(Connection& connection, const std::string& object,
                       const std::string& version, const std::string& path) {
  const Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC));
  if (file.get() < 0) throw StoreFailure(status_of_error(errno));
  Digest digest;
  ContentKey content;
  std::string chunk;
  for (int64_t number = 0; read_chunk(file, chunk) > 0; ++number) {
    digest.add(chunk);
    content.size += chunk.size();
    connection.run("INSERT INTO kepotl.chunk(object, version, number, data) VALUES($1, $2, $3, $4)",
                   object, version, number, chunk);
  }
  content.digest = digest.finish();
  return content;
}

// The local object that keeps an outline aside, where the Java facade looks for such.
ObjectName kept_object(const std::string& name) {
  return {"Aside/" + name, name, true};
}

// What an upload ended with.
enum class Upload { kDone, kRefused, kBroken, kUnknown };

}  // namespace

std::optional<ObjectInfo> ServerStore::object_info(const ObjectName& object) {
  if (object.local) return local().object_info(object);
  return pool_.use_again([&](Connection& connection) -> std::optional<ObjectInfo> {
    const Rows found = connection.run(
        "SELECT size, saved / 1000 FROM kepotl.object WHERE name = $1", object.text());
    if (found.empty()) return std::nullopt;
    return ObjectInfo{static_cast<uint64_t>(found.number(0, 0)), found.number(0, 1)};
  });
}

uint32_t ServerStore::count_members(const ObjectName& object) {
  if (object.local) return local().count_members(object);
  return pool_.use_again([&](Connection& connection) {
    const Rows found =
        connection.run("SELECT members FROM kepotl.object WHERE name = $1", object.text());
    return found.empty() ? 0 : static_cast<uint32_t>(found.number(0, 0));
  });
}

CachedFile ServerStore::fetch(Connection& connection, const ObjectName& object,
                              const std::string& version, const ContentKey& content) {
  const std::shared_ptr<PendingFile> pending = cache_.new_file();
  const Descriptor file(open(pending->path().c_str(), O_WRONLY | O_CLOEXEC));
  if (file.get() < 0) throw StoreFailure(status_of_error(errno));
  Digest digest;
  uint64_t size = 0;
  connection.for_each(
      "SELECT data FROM kepotl.chunk WHERE object = $1 AND version = $2 ORDER BY number",
      [&](const Rows& row) {
        const std::string_view data = row.bytes(0, 0);
        digest.add(data);
        size += data.size();
        write_all(file, data);
      },
      object.text(), version);
  if (size != content.size || digest.finish() != content.digest) {
    throw StoreFailure(kDamagedOutline);
  }
  return cache_.keep(pending, content);
}

// One state of the store, however long fetching takes: what is replaced meanwhile stays for it.
StoredObject ServerStore::read(const ObjectName& object) {
  if (object.local) return local().read(object);
  return pool_.use_again([&](Connection& connection) {
    return transact(
        connection,
        [&] {
          const Rows found = connection.run(
              "SELECT version, digest, size FROM kepotl.object WHERE name = $1", object.text());
          if (found.empty()) throw StoreFailure(kNoSuchObject);
          const std::string version = found.text(0, 0);
          const ContentKey content = {found.text(0, 1), static_cast<uint64_t>(found.number(0, 2))};
          std::optional<CachedFile> cached = cache_.find(content);
          if (!cached) cached = fetch(connection, object, version, content);
          return StoredObject{cached->path, version, cached->held};
        },
        "BEGIN ISOLATION LEVEL REPEATABLE READ READ ONLY");
  });
}

// Whether a version whose upload broke off at the end is the object's after all. Waits for the
// server to have done with the upload, which holds the rows that are touched here.
bool ServerStore::became_current(const ObjectName& object, const std::string& version) {
  const std::string name = object.text();
  return pool_.use([&](Connection& connection) {
    return transact(connection, [&] {
      connection.run("UPDATE kepotl.object_lock SET fence = fence WHERE object = $1", name);
      connection.run("UPDATE kepotl.object SET fence = fence WHERE name = $1", name);
      const Rows found = connection.run("SELECT version FROM kepotl.object WHERE name = $1", name);
      return !found.empty() && found.bytes(0, 0) == version;
    });
  });
}

// Puts what can't be saved among the outlines that are kept aside, under the database's name or, as
// nothing is ever replaced there, one with a number behind; `kept` is the name that it has got
// before. Answers the name.
std::string ServerStore::keep_locally(const ObjectName& object, const std::string& file,
                                      const std::string& kept, uint32_t members) {
  constexpr size_t kMostName = 30;
  const std::string database = object.database.substr(object.database.find('/') + 1);
  ObjectName place = kept_object(kept.empty() ? database : kept);
  for (int number = 2; kept.empty() && local().object_info(place); ++number) {
    const std::string suffix = ' ' + std::to_string(number);
    place = kept_object(database.substr(0, kMostName - suffix.size()) + suffix);
  }
  local().has_database(place.database, true);
  const auto pending = local().replace(place);
  std::error_code error;
  std::filesystem::copy_file(file, pending->file(),
                             std::filesystem::copy_options::overwrite_existing, error);
  if (error) throw StoreFailure(status_of_error(error.value()));
  pending->publish(0, members);
  return place.object;
}

void ServerStore::note_kept(int64_t login, const ObjectName& object, const std::string& kept,
                            bool is_lost) {
  const std::lock_guard<std::mutex> guard(mutex_);
  const auto own = logins_.find(login);
  if (own == logins_.end()) return;
  const auto found = own->second.held.find(object.text());
  if (found == own->second.held.end()) return;
  found->second.told = found->second.told || is_lost;
  found->second.kept = kept;
}

// Content that is written to a file of the cache and sent from there.
class ServerStore::PendingUpload final : public PendingObject {
 public:
  PendingUpload(ServerStore& store, const ObjectName& object)
      : store_(store), object_(object), name_(object.text()), file_(store.cache_.new_file()) {}

  const std::string& file() const override { return file_->path(); }

  void publish(int64_t login, uint32_t members) override {
    const std::optional<Held> lock = store_.held(login, object_);
    if (!lock) throw StoreFailure(kNotLocked);
    const auto take = [&](Connection& connection, const std::string& version) {
      return take_with_lock(connection, version, *lock, members);
    };
    Upload upload = Upload::kBroken;
    bool has_lock = store_.keeper_.is_kept(lock->row);
    for (int i = 0; i < kUploads && has_lock && upload == Upload::kBroken; ++i) {
      upload = this->upload(take);
      if (upload == Upload::kDone) return;
      // The login's own connection may have broken a moment later.
      if (upload == Upload::kBroken) std::this_thread::sleep_for(kBetweenUploads);
      has_lock = store_.keeper_.is_kept(lock->row);
    }
    int status = kLockLost;
    if (upload == Upload::kUnknown) status = kSaveUnknown;
    if (upload == Upload::kBroken && has_lock) status = kNoConnection;
    const std::string kept = store_.keep_locally(object_, file_->path(), lock->kept, members);
    store_.note_kept(login, object_, kept, status == kLockLost);
    note_detail(status, "it is kept as " + store_.local().local_path(kept_object(kept)));
    throw StoreFailure(status);
  }

  bool publish_over(const std::string& before, uint32_t members) override {
    const auto take = [&](Connection& connection, const std::string& version) {
      return connection
                 .run(
                     "UPDATE kepotl.object SET version = $3, size = $4, digest = $5, members = $6, "
                     "saved = DEFAULT WHERE name = $1 AND version = $2",
                     name_, before, version, size(), content_.digest, int64_t{members})
                 .changed() == 1;
    };
    Upload upload = Upload::kBroken;
    for (int i = 0; i < kUploads && upload == Upload::kBroken; ++i) upload = this->upload(take);
    if (upload == Upload::kDone || upload == Upload::kRefused) return upload == Upload::kDone;
    throw StoreFailure(kNoConnection);
  }

 private:
  int64_t size() const { return static_cast<int64_t>(content_.size); }

  // Only who has the lock, and took it last, may replace the object. The lock's row stays touched
  // until the end of the transaction, so that nobody can take the lock in between.
  bool take_with_lock(Connection& connection, const std::string& version, const Held& lock,
                      uint32_t members) {
    const Rows own = connection.run(
        "UPDATE kepotl.object_lock SET fence = fence "
        "WHERE object = $1 AND login = $2 AND fence = $3",
        name_, lock.row, lock.fence);
    if (own.changed() != 1) return false;
    const Rows taken = connection.run(
        "INSERT INTO kepotl.object(name, database, version, fence, size, digest, members) "
        "VALUES($1, $2, $3, $4, $5, $6, $7) ON CONFLICT(name) DO UPDATE SET "
        "version = excluded.version, fence = excluded.fence, size = excluded.size, "
        "digest = excluded.digest, members = excluded.members, saved = DEFAULT "
        "WHERE object.fence <= excluded.fence",
        name_, object_.database, version, lock.fence, size(), content_.digest, int64_t{members});
    return taken.changed() == 1;
  }

  // One transaction: the chunks of a new version, and `take`. When the connection breaks at the
  // end, the store is asked what became of it.
  Upload upload(const Take& take) {
    const std::string version = new_version();
    bool ending = false;
    try {
      const bool taken = store_.pool_.use([&](Connection& connection) {
        Transaction transaction(connection);
        content_ = send_chunks(connection, name_, version, file_->path());
        if (!take(connection, version)) return false;
        ending = true;
        transaction.commit();
        return true;
      });
      if (!taken) return Upload::kRefused;
    } catch (const ServerFailure& failure) {
      if (failure.state() == "23503") throw StoreFailure(kNoSuchDatabase);
      if (failure.status() != kNoConnection && !failure.may_try_again()) throw;
      return ending ? find_out(version) : Upload::kBroken;
    }
    finish();
    return Upload::kDone;
  }

  Upload find_out(const std::string& version) {
    for (int i = 0; i < kQuestions; ++i) {
      if (i > 0) std::this_thread::sleep_for(kBetweenQuestions);
      try {
        if (!store_.became_current(object_, version)) return Upload::kBroken;
        finish();
        return Upload::kDone;
      } catch (const StoreFailure& failure) {
        if (failure.status() != kNoConnection && failure.status() != kStoreBusy) throw;
      }
    }
    return Upload::kUnknown;
  }

  // The version before goes, unless that fails: then with the next save.
  void finish() {
    run_guarded([&] {
      store_.cache_.keep(file_, content_);
      store_.pool_.use([&](Connection& connection) {
        connection.run(
            "DELETE FROM kepotl.chunk WHERE object = $1 AND "
            "version <> (SELECT version FROM kepotl.object WHERE name = $1)",
            name_);
      });
      return kStatusOk;
    });
  }

  ServerStore& store_;
  ObjectName object_;
  std::string name_;
  std::shared_ptr<PendingFile> file_;
  ContentKey content_;
};

std::unique_ptr<PendingObject> ServerStore::replace(const ObjectName& object) {
  if (object.local) return local().replace(object);
  return std::make_unique<PendingUpload>(*this, object);
}

}  // namespace standin::postgresql
