// Making, checking and opening control files.
#include "standin/control_file.h"

#include <fcntl.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <mutex>
#include <thread>

#include "standin/descriptor.h"
#include "standin/guard.h"

namespace standin {
namespace {

constexpr int64_t kApplicationId = 0x4f4c5653;
constexpr int64_t kVersion = 2;

// Who is logged in, and what goes with a login.
constexpr char kLoginTables[] = R"(
CREATE TABLE login(
  id INTEGER PRIMARY KEY AUTOINCREMENT,
  user TEXT NOT NULL, host TEXT NOT NULL, machine TEXT NOT NULL, boot TEXT NOT NULL,
  pid_space TEXT NOT NULL, pid INTEGER NOT NULL, started INTEGER NOT NULL, mark TEXT NOT NULL);
CREATE TABLE object_lock(
  object TEXT PRIMARY KEY,
  login INTEGER NOT NULL REFERENCES login ON DELETE CASCADE,
  times INTEGER NOT NULL, since INTEGER NOT NULL) WITHOUT ROWID;
CREATE INDEX object_lock_login ON object_lock(login);
CREATE TABLE process(
  login INTEGER PRIMARY KEY REFERENCES login ON DELETE CASCADE,
  database TEXT NOT NULL UNIQUE, since INTEGER NOT NULL);
PRAGMA application_id = 0x4f4c5653;
PRAGMA user_version = 2;
)";

constexpr char kStateTable[] = R"(
CREATE TABLE database_state(
  database TEXT PRIMARY KEY,
  data_loaded INTEGER NOT NULL DEFAULT 0,
  restructures INTEGER NOT NULL DEFAULT 0) WITHOUT ROWID;
)";

bool is_blank(Connection& control) {
  return control.number("PRAGMA application_id") == 0 &&
         control.number("SELECT count(*) FROM sqlite_schema") == 0;
}

void make_tables(Connection& control) {
  Transaction transaction(control);
  if (!is_blank(control)) return;  // another process was faster
  control.run(kLoginTables);
  control.run(kStateTable);
  transaction.commit();
}

// Version 1 knew less of who is logged in. What is noted of databases stays; logins end.
void upgrade(Connection& control) {
  Transaction transaction(control);
  if (control.number("PRAGMA user_version") != 1) return;  // another process was faster
  control.run("DROP TABLE process; DROP TABLE object_lock; DROP TABLE login");
  control.run(kLoginTables);
  transaction.commit();
}

// A file that has other tables, or more than tables, is not ours to work with.
void check(Connection& control) {
  if (control.number("PRAGMA application_id") != kApplicationId) throw StoreFailure(kNotAStore);
  const int64_t version = control.number("PRAGMA user_version");
  if (version > kVersion) throw StoreFailure(kNewerStore);
  static const std::string kOurs =
      schema_made_by((std::string(kLoginTables) + kStateTable).c_str());
  if (version != kVersion || schema_of(control.get()) != kOurs) throw StoreFailure(kNotAStore);
}

// Two processes that open a new store at the same time get into each other's way here for a
// moment, which SQLite's own waiting does not cover.
void enter_write_ahead_mode(Connection& control) {
  using namespace std::chrono_literals;
  for (int attempt = 0; attempt < 1000; ++attempt) {
    try {
      Statement mode(control, "PRAGMA journal_mode = WAL");
      if (mode.next() && mode.text(0) == "wal") return;
    } catch (const StoreFailure&) {
      if ((sqlite3_errcode(control.get()) & 0xff) != SQLITE_BUSY) throw;
    }
    std::this_thread::sleep_for(10ms);
  }
  throw StoreFailure(kStoreBusy);
}

// Makes the file when there is none, and gives it to those who may write the folder: whoever could
// read it could hold its locks. An existing file is not opened here, as closing it would drop the
// locks that other connections of this process have on it.
void prepare(const std::string& path) {
  const std::string folder = path.substr(0, path.rfind('/'));
  struct stat around {};
  if (access(folder.c_str(), W_OK | X_OK) != 0 || stat(folder.c_str(), &around) != 0) {
    throw StoreFailure(status_of_error(errno));
  }
  const mode_t writers = around.st_mode & 0222;
  const mode_t mode = 0600 | writers | (writers << 1);
  const Descriptor made(open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
  if (made.get() < 0 && errno != EEXIST) throw StoreFailure(status_of_error(errno));
  struct stat own {};
  if (lstat(path.c_str(), &own) != 0) throw StoreFailure(status_of_error(errno));
  if (!S_ISREG(own.st_mode)) throw StoreFailure(kNotAStore);
  if (own.st_uid != geteuid()) return;
  // Who isn't in the folder's group can't give the file to it; then it stays with its own.
  const bool grouped = own.st_gid == around.st_gid ||
                       lchown(path.c_str(), static_cast<uid_t>(-1), around.st_gid) == 0;
  const mode_t wanted = grouped ? mode : mode & ~mode_t{0060};
  if ((own.st_mode & 0777) != wanted && chmod(path.c_str(), wanted) != 0) {
    throw StoreFailure(status_of_error(errno));
  }
}

}  // namespace

std::unique_ptr<Connection> open_control_file(const std::string& path) {
  static std::mutex one_at_a_time;  // a new file is closed once before it is used
  const std::lock_guard<std::mutex> lock(one_at_a_time);
  prepare(path);
  auto control = std::make_unique<Connection>(path, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOFOLLOW);
  distrust(control->get());
  if (is_blank(*control)) make_tables(*control);
  if (control->number("PRAGMA application_id") == kApplicationId &&
      control->number("PRAGMA user_version") == 1) {
    upgrade(*control);
  }
  check(*control);
  enter_write_ahead_mode(*control);
  // Without a sync for each change: a power failure may undo the last ones but leaves the file
  // whole, and it ends all logins anyway.
  control->run("PRAGMA foreign_keys = ON; PRAGMA synchronous = NORMAL");
  return control;
}

std::unique_ptr<Connection> read_control_file(const std::string& path) {
  auto control = std::make_unique<Connection>(
      unchanging_file(path), SQLITE_OPEN_READONLY | SQLITE_OPEN_NOFOLLOW | SQLITE_OPEN_URI);
  distrust(control->get());
  check(*control);
  return control;
}

}  // namespace standin
