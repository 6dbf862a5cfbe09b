// The control file: logins, locks, running processes and database states in SQLite, in write-ahead
// mode so that readers and the writer of different processes don't wait for each other.
#include "standin/store.h"

#include <sqlite3.h>

#include <chrono>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <thread>
#include <vector>

#include "standin/guard.h"
#include "standin/process_identity.h"

namespace standin {
namespace {

namespace fs = std::filesystem;

constexpr int64_t kApplicationId = 0x4f4c5653;
constexpr int64_t kSchemaVersion = 1;

constexpr char kSchema[] = R"(
CREATE TABLE login(
  id INTEGER PRIMARY KEY AUTOINCREMENT,
  user TEXT NOT NULL,
  boot TEXT NOT NULL, pid_space TEXT NOT NULL, pid INTEGER NOT NULL, started INTEGER NOT NULL);
CREATE TABLE object_lock(
  object TEXT PRIMARY KEY,
  login INTEGER NOT NULL REFERENCES login ON DELETE CASCADE,
  times INTEGER NOT NULL) WITHOUT ROWID;
CREATE INDEX object_lock_login ON object_lock(login);
CREATE TABLE process(
  login INTEGER PRIMARY KEY REFERENCES login ON DELETE CASCADE,
  database TEXT NOT NULL UNIQUE);
CREATE TABLE database_state(
  database TEXT PRIMARY KEY,
  data_loaded INTEGER NOT NULL DEFAULT 0,
  restructures INTEGER NOT NULL DEFAULT 0) WITHOUT ROWID;
PRAGMA application_id = 0x4f4c5653;
PRAGMA user_version = 1;
)";

[[noreturn]] void fail(const std::error_code& error) {
  throw StoreFailure(status_of_error(error.value()));
}

// Makes the folder when there is none and answers its absolute path.
fs::path prepare_folder(const std::string& name) {
  std::error_code error;
  if (fs::exists(name, error) && !fs::is_directory(name, error)) throw StoreFailure(kNotAStore);
  fs::create_directories(name, error);
  if (error == std::errc::not_a_directory) throw StoreFailure(kNotAStore);
  if (error) fail(error);
  fs::path folder = fs::canonical(name, error);
  if (error) fail(error);
  return folder;
}

// True when the folder holds anything but the control file and SQLite's files beside it.
bool has_other_content(const fs::path& folder) {
  std::error_code error;
  fs::directory_iterator entry(folder, error);
  for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
    if (entry->path().filename().string().rfind(kControlFile, 0) != 0) return true;
  }
  if (error) fail(error);
  return false;
}

bool is_blank(Connection& control) {
  return control.number("PRAGMA application_id") == 0 &&
         control.number("SELECT count(*) FROM sqlite_schema") == 0;
}

bool is_ours(Connection& control) {
  return control.number("PRAGMA application_id") == kApplicationId &&
         control.number("PRAGMA user_version") == kSchemaVersion;
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
  throw StoreFailure(kStoreError);
}

}  // namespace

Store::Store(const std::string& folder) {
  const fs::path path = prepare_folder(folder);
  folder_ = path.string();
  const fs::path control = path / kControlFile;
  std::error_code error;
  if (!fs::exists(control, error) && has_other_content(path)) throw StoreFailure(kNotAStore);
  control_ = std::make_unique<Connection>(
      control.string(), SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOFOLLOW);
  if (is_blank(*control_)) become_store();
  if (!is_ours(*control_)) throw StoreFailure(kNotAStore);
  enter_write_ahead_mode(*control_);
  // Without a sync for each change: a power failure may undo the last ones but leaves the file
  // whole, and it ends all logins anyway.
  control_->run("PRAGMA foreign_keys = ON; PRAGMA synchronous = NORMAL");

  // Processes that died left their logins behind.
  Transaction transaction(*control_);
  std::vector<int64_t> logins;
  for (Statement all(*control_, "SELECT id FROM login"); all.next();) {
    logins.push_back(all.number(0));
  }
  for (const int64_t login : logins) {
    if (!is_living(login)) {
      Statement(*control_, "DELETE FROM login WHERE id = ?").bind(login).run();
    }
  }
  transaction.commit();
}

void Store::become_store() {
  Transaction transaction(*control_);
  if (!is_blank(*control_)) return;  // another process was faster
  if (has_other_content(folder_)) throw StoreFailure(kNotAStore);
  control_->run(kSchema);
  transaction.commit();
}

bool Store::is_living(int64_t login) {
  Statement row(*control_, "SELECT boot, pid_space, pid, started FROM login WHERE id = ?");
  if (!row.bind(login).next()) return false;
  return is_alive({row.text(0), row.text(1), row.number(2), row.number(3)});
}

int64_t Store::add_login(const std::string& user) {
  const ProcessIdentity self = this_process();
  const std::lock_guard<std::mutex> guard(mutex_);
  Statement(*control_,
            "INSERT INTO login(user, boot, pid_space, pid, started) VALUES(?, ?, ?, ?, ?)")
      .bind(user)
      .bind(self.boot)
      .bind(self.pid_space)
      .bind(self.pid)
      .bind(self.started)
      .run();
  return sqlite3_last_insert_rowid(control_->get());
}

void Store::remove_login(int64_t login) {
  const std::lock_guard<std::mutex> guard(mutex_);
  Statement(*control_, "DELETE FROM login WHERE id = ?").bind(login).run();
}

void Store::lock(int64_t login, const std::string& object) {
  const std::lock_guard<std::mutex> guard(mutex_);
  Transaction transaction(*control_);
  Statement held(*control_, "SELECT login FROM object_lock WHERE object = ?");
  if (held.bind(object).next()) {
    const int64_t holder = held.number(0);
    if (holder != login) {
      if (is_living(holder)) throw StoreFailure(kObjectLocked);
      Statement(*control_, "DELETE FROM login WHERE id = ?").bind(holder).run();
    }
  }
  Statement(*control_,
            "INSERT INTO object_lock(object, login, times) VALUES(?, ?, 1) "
            "ON CONFLICT(object) DO UPDATE SET times = times + 1")
      .bind(object)
      .bind(login)
      .run();
  transaction.commit();
}

void Store::unlock(int64_t login, const std::string& object) {
  const std::lock_guard<std::mutex> guard(mutex_);
  Transaction transaction(*control_);
  Statement(*control_, "UPDATE object_lock SET times = times - 1 WHERE object = ? AND login = ?")
      .bind(object)
      .bind(login)
      .run();
  if (sqlite3_changes(control_->get()) == 0) throw StoreFailure(kNotLocked);
  Statement(*control_, "DELETE FROM object_lock WHERE object = ? AND times = 0").bind(object).run();
  transaction.commit();
}

int64_t Store::lock_holder(const std::string& object) {
  const std::lock_guard<std::mutex> guard(mutex_);
  Statement held(*control_, "SELECT login FROM object_lock WHERE object = ?");
  if (!held.bind(object).next()) return 0;
  const int64_t holder = held.number(0);
  return is_living(holder) ? holder : 0;
}

void Store::begin_process(int64_t login, const std::string& database) {
  const std::lock_guard<std::mutex> guard(mutex_);
  Transaction transaction(*control_);
  Statement running(*control_, "SELECT login FROM process WHERE database = ?");
  if (running.bind(database).next()) {
    const int64_t holder = running.number(0);
    if (is_living(holder)) throw StoreFailure(kProcessRunning);
    Statement(*control_, "DELETE FROM login WHERE id = ?").bind(holder).run();
  }
  Statement(*control_, "INSERT INTO process(login, database) VALUES(?, ?)")
      .bind(login)
      .bind(database)
      .run();
  transaction.commit();
}

void Store::end_process(int64_t login) {
  const std::lock_guard<std::mutex> guard(mutex_);
  Statement(*control_, "DELETE FROM process WHERE login = ?").bind(login).run();
}

void Store::reset_database(const std::string& database) {
  const std::lock_guard<std::mutex> guard(mutex_);
  Statement(*control_, "DELETE FROM database_state WHERE database = ?").bind(database).run();
}

void Store::set_data_loaded(const std::string& database, bool loaded) {
  const std::lock_guard<std::mutex> guard(mutex_);
  Statement(*control_,
            "INSERT INTO database_state(database, data_loaded) VALUES(?, ?) "
            "ON CONFLICT(database) DO UPDATE SET data_loaded = excluded.data_loaded")
      .bind(database)
      .bind(static_cast<int64_t>(loaded))
      .run();
}

void Store::count_restructure(const std::string& database) {
  const std::lock_guard<std::mutex> guard(mutex_);
  Statement(*control_,
            "INSERT INTO database_state(database, restructures) VALUES(?, 1) "
            "ON CONFLICT(database) DO UPDATE SET restructures = restructures + 1")
      .bind(database)
      .run();
}

bool Store::data_loaded(const std::string& database) {
  return database_number("SELECT data_loaded FROM database_state WHERE database = ?", database) !=
         0;
}

int64_t Store::restructures(const std::string& database) {
  return database_number("SELECT restructures FROM database_state WHERE database = ?", database);
}

int64_t Store::database_number(const char* sql, const std::string& database) {
  const std::lock_guard<std::mutex> guard(mutex_);
  Statement row(*control_, sql);
  return row.bind(database).next() ? row.number(0) : 0;
}

}  // namespace standin
