// The store: a folder with the outline objects and the control file, through which all processes
// on the store share logins, locks, running processes and the state of databases.
#pragma once

#include <cstdint>
#include <memory>
#include <mutex>
#include <string>

#include "standin/sqlite.h"

namespace standin {

// Layout of a store's folder. Dot names can't be names of applications, so nothing collides.
inline constexpr char kControlFile[] = ".control.db";
inline constexpr char kClientFolder[] = ".client";  // objects of local contexts

// An open store. All functions may be called from any thread and throw StoreFailure.
//
// An object is named by its path within the store's folder, a database by "application/database".
// What belongs to a login goes when it ends; a login whose process has died counts as ended.
class Store {
 public:
  // Opens the store in `folder`, which is made when it does not exist and becomes a store when it
  // is empty. kNotAStore when it holds anything else.
  explicit Store(const std::string& folder);

  // Absolute path of the folder.
  const std::string& folder() const { return folder_; }

  int64_t add_login(const std::string& user);
  void remove_login(int64_t login);

  // Locks an object, or counts one more lock of the same login. kObjectLocked when another living
  // login holds it.
  void lock(int64_t login, const std::string& object);
  // Takes back one lock. kNotLocked when the login holds none.
  void unlock(int64_t login, const std::string& object);
  // The living login that holds the object's lock, 0 when it is free.
  int64_t lock_holder(const std::string& object);

  // Notes that a login's process works on a database. kProcessRunning while another living login's
  // process does.
  void begin_process(int64_t login, const std::string& database);
  void end_process(int64_t login);

  // Forgets what was noted of a database, as for one that has just been made.
  void reset_database(const std::string& database);
  void set_data_loaded(const std::string& database, bool loaded);
  bool data_loaded(const std::string& database);
  void count_restructure(const std::string& database);
  int64_t restructures(const std::string& database);

 private:
  void become_store();
  bool is_living(int64_t login);
  int64_t database_number(const char* sql, const std::string& database);

  std::string folder_;
  std::mutex mutex_;  // guards the connection
  std::unique_ptr<Connection> control_;
};

}  // namespace standin
