// Logins, locks, running processes and the states of databases, in the control file.
#include <sqlite3.h>

#include <chrono>

#include "standin/control_file.h"
#include "standin/folder_store.h"
#include "standin/guard.h"
#include "standin/process_identity.h"

namespace standin {
namespace {

int64_t now() {
  return std::chrono::duration_cast<std::chrono::seconds>(
             std::chrono::system_clock::now().time_since_epoch())
      .count();
}

}  // namespace

bool FolderStore::is_living(int64_t login) {
  Statement row(
      control(),
      "SELECT host, machine, boot, pid_space, pid, started, mark FROM login WHERE id = ?");
  if (!row.bind(login).next()) return false;
  return is_alive({row.text(0), row.text(1), row.text(2), row.text(3), row.number(4), row.number(5),
                   row.text(6)});
}

int64_t FolderStore::add_login(const std::string& user) {
  const ProcessIdentity self = this_process();
  const std::lock_guard<std::mutex> guard(mutex_);
  Transaction transaction(control());
  // Processes that died left their logins behind.
  std::vector<int64_t> logins;
  for (Statement all(control(), "SELECT id FROM login"); all.next();) {
    logins.push_back(all.number(0));
  }
  for (const int64_t login : logins) {
    if (!is_living(login)) {
      Statement(control(), "DELETE FROM login WHERE id = ?").bind(login).run();
    }
  }
  Statement row(control(),
                "INSERT INTO login(user, host, machine, boot, pid_space, pid, started, mark) "
                "VALUES(?, ?, ?, ?, ?, ?, ?, ?)");
  row.bind(user).bind(self.host).bind(self.machine).bind(self.boot).bind(self.pid_space);
  row.bind(self.pid).bind(self.started).bind(self.mark).run();
  const int64_t login = sqlite3_last_insert_rowid(control().get());
  transaction.commit();
  return login;
}

void FolderStore::remove_login(int64_t login) {
  const std::lock_guard<std::mutex> guard(mutex_);
  Statement(control(), "DELETE FROM login WHERE id = ?").bind(login).run();
}

void FolderStore::lock(int64_t login, const ObjectName& object) {
  const std::lock_guard<std::mutex> guard(mutex_);
  Transaction transaction(control());
  Statement held(control(), "SELECT login FROM object_lock WHERE object = ?");
  if (held.bind(object.text()).next()) {
    const int64_t holder = held.number(0);
    if (holder != login) {
      if (is_living(holder)) throw StoreFailure(kObjectLocked);
      Statement(control(), "DELETE FROM login WHERE id = ?").bind(holder).run();
    }
  }
  Statement(control(),
            "INSERT INTO object_lock(object, login, times, since) VALUES(?, ?, 1, ?) "
            "ON CONFLICT(object) DO UPDATE SET times = times + 1")
      .bind(object.text())
      .bind(login)
      .bind(now())
      .run();
  transaction.commit();
}

void FolderStore::unlock(int64_t login, const ObjectName& object) {
  const std::lock_guard<std::mutex> guard(mutex_);
  Transaction transaction(control());
  Statement(control(), "UPDATE object_lock SET times = times - 1 WHERE object = ? AND login = ?")
      .bind(object.text())
      .bind(login)
      .run();
  if (sqlite3_changes(control().get()) == 0) throw StoreFailure(kNotLocked);
  Statement(control(), "DELETE FROM object_lock WHERE object = ? AND times = 0")
      .bind(object.text())
      .run();
  transaction.commit();
}

int64_t FolderStore::holder(const std::string& key) {
  Statement held(control(), "SELECT login FROM object_lock WHERE object = ?");
  if (!held.bind(key).next()) return 0;
  const int64_t login = held.number(0);
  return is_living(login) ? login : 0;
}

// Who may only look at a store finds everything free.
bool FolderStore::is_locked(const ObjectName& object) {
  const std::lock_guard<std::mutex> guard(mutex_);
  return control_ != nullptr && holder(object.text()) != 0;
}

void FolderStore::expect_lock(int64_t login, const ObjectName& object) {
  const std::lock_guard<std::mutex> guard(mutex_);
  if (login == 0 || control_ == nullptr || holder(object.text()) != login) {
    throw StoreFailure(kNotLocked);
  }
}

void FolderStore::begin_process(int64_t login, const std::string& database) {
  const std::lock_guard<std::mutex> guard(mutex_);
  Transaction transaction(control());
  Statement running(control(), "SELECT login FROM process WHERE database = ?");
  if (running.bind(database).next()) {
    const int64_t holder = running.number(0);
    if (is_living(holder)) throw StoreFailure(kProcessRunning);
    Statement(control(), "DELETE FROM login WHERE id = ?").bind(holder).run();
  }
  Statement(control(), "INSERT INTO process(login, database, since) VALUES(?, ?, ?)")
      .bind(login)
      .bind(database)
      .bind(now())
      .run();
  transaction.commit();
}

void FolderStore::end_process(int64_t login) {
  const std::lock_guard<std::mutex> guard(mutex_);
  Statement(control(), "DELETE FROM process WHERE login = ?").bind(login).run();
}

std::vector<Holding> FolderStore::holdings() {
  const std::lock_guard<std::mutex> guard(mutex_);
  std::vector<Holding> all;
  for (const char* sql :
       {"SELECT login, object, user, host, pid, since FROM object_lock JOIN login ON login = id "
        "ORDER BY object",
        "SELECT login, database, user, host, pid, since FROM process JOIN login ON login = id "
        "ORDER BY database"}) {
    for (Statement row(control(), sql); row.next();) {
      if (!is_living(row.number(0))) continue;
      all.push_back({row.text(1), row.text(2), row.text(3), row.number(4), row.number(5)});
    }
  }
  return all;
}

void FolderStore::break_holding(const std::string& name) {
  const std::lock_guard<std::mutex> guard(mutex_);
  Transaction transaction(control());
  int broken = 0;
  for (const char* sql :
       {"DELETE FROM object_lock WHERE object = ?", "DELETE FROM process WHERE database = ?"}) {
    Statement(control(), sql).bind(name).run();
    broken += sqlite3_changes(control().get());
  }
  if (broken == 0) throw StoreFailure(kNoSuchLock);
  transaction.commit();
}

void FolderStore::set_data_loaded(const std::string& database, bool loaded) {
  const std::lock_guard<std::mutex> guard(mutex_);
  Statement(control(),
            "INSERT INTO database_state(database, data_loaded) VALUES(?, ?) "
            "ON CONFLICT(database) DO UPDATE SET data_loaded = excluded.data_loaded")
      .bind(database)
      .bind(static_cast<int64_t>(loaded))
      .run();
}

void FolderStore::count_restructure(const std::string& database) {
  const std::lock_guard<std::mutex> guard(mutex_);
  Statement(control(),
            "INSERT INTO database_state(database, restructures) VALUES(?, 1) "
            "ON CONFLICT(database) DO UPDATE SET restructures = restructures + 1")
      .bind(database)
      .run();
}

bool FolderStore::data_loaded(const std::string& database) {
  return database_number("SELECT data_loaded FROM database_state WHERE database = ?", database) !=
         0;
}

int64_t FolderStore::restructures(const std::string& database) {
  return database_number("SELECT restructures FROM database_state WHERE database = ?", database);
}

// What is noted of a database, 0 for nothing and for those who may not read the control file.
int64_t FolderStore::database_number(const char* sql, const std::string& database) {
  const std::lock_guard<std::mutex> guard(mutex_);
  if (control_ == nullptr) return 0;
  Statement row(*control_, sql);
  return row.bind(database).next() ? row.number(0) : 0;
}

}  // namespace standin
