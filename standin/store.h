// What a store offers, whatever it is kept in: logins, locks, running processes, the states of
// databases, and objects that are read and replaced whole.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace standin {

// A stored object. Local ones belong to this machine and not to the store's databases.
struct ObjectName {
  std::string database;  // "application/database"
  std::string object;
  bool local = false;

  // "application/database/object"; a local one's begins with a dot.
  std::string text() const { return (local ? ".client/" : "") + database + '/' + object; }
};

// The content of an object as it was when it was asked for.
struct StoredObject {
  std::string file;     // to read, never to write
  std::string version;  // another one whenever the content is, as long as `held` lives
  std::shared_ptr<const void> held;
};

// New content on its way into an object. What is not published leaves no trace.
class PendingObject {
 public:
  PendingObject() = default;
  virtual ~PendingObject() = default;
  PendingObject(const PendingObject&) = delete;
  PendingObject& operator=(const PendingObject&) = delete;

  // An empty file of this process's own, to write the content into.
  virtual const std::string& file() const = 0;

  // Makes the content, an outline of so many members, durable and puts it into the object, all at
  // once. kNotLocked unless `login` holds the object's lock at that moment, or kLockLost when it
  // had it and the store has kept the content among the local objects; a local object needs none.
  virtual void publish(int64_t login, uint32_t members) = 0;
  // The same while the object is still what `version` names; otherwise nothing happens and the
  // answer is false.
  virtual bool publish_over(const std::string& version, uint32_t members) = 0;
};

// What is known of a stored object without reading it. Figures are those of the moment.
struct ObjectInfo {
  uint64_t size = 0;  // bytes
  int64_t saved = 0;  // seconds since 1970
};

// Somebody who has a lock or runs a process.
struct Holding {
  std::string name;  // "application/database/object" of a lock, "application/database" of a process
  std::string user;
  std::string host;
  int64_t process = 0;  // as its own machine or container numbers it
  int64_t since = 0;    // seconds since 1970
};

// An open store. All functions may be called from any thread and throw StoreFailure, kStoreBusy
// among them when somebody else keeps the store too long, and kNoConnection when it is on a server
// that does not answer.
//
// What belongs to a login goes when it ends; a login whose process has died counts as ended, and so
// does one whose connection to a server has broken.
class Store {
 public:
  Store() = default;
  virtual ~Store() = default;
  Store(const Store&) = delete;
  Store& operator=(const Store&) = delete;

  // ---- Logins ----

  // Looking at databases and objects needs none.
  virtual int64_t add_login(const std::string& user) = 0;
  virtual void remove_login(int64_t login) = 0;

  // ---- Locks and processes ----

  // Locks an object, or counts one more lock of the same login. kObjectLocked when another living
  // login holds it.
  virtual void lock(int64_t login, const ObjectName& object) = 0;
  // Takes back one lock. kNotLocked when the login holds none, kLockLost when it had one and has
  // not been told yet that it is gone.
  virtual void unlock(int64_t login, const ObjectName& object) = 0;
  // Whether a living login holds the object's lock.
  virtual bool is_locked(const ObjectName& object) = 0;
  // kNotLocked when it is known already that the login could not publish the object, so that the
  // work of writing it can be saved.
  virtual void expect_lock(int64_t login, const ObjectName& object) = 0;

  // Notes that a login's process works on a database. kProcessRunning while another living login's
  // process does.
  virtual void begin_process(int64_t login, const std::string& database) = 0;
  virtual void end_process(int64_t login) = 0;

  // Everybody who counts as having a lock or as running a process.
  virtual std::vector<Holding> holdings() = 0;
  // Takes a lock or process away from whoever has it; kNoSuchLock when nobody does. Who has lost a
  // lock can't publish any more.
  virtual void break_holding(const std::string& name) = 0;

  // ---- Databases ----

  // Those of local objects are made when they are asked for.
  virtual bool has_database(const std::string& database, bool local) = 0;
  // kDatabaseExists when it is there.
  virtual void make_database(const std::string& database) = 0;
  // All of them, sorted.
  virtual std::vector<std::string> databases(bool local) = 0;
  // Removes a database with its objects and what is noted of it, and an application left empty.
  virtual void remove_database(const std::string& database, bool local) = 0;

  // What is noted of a database outlives logins. A new one has nothing noted.
  virtual void set_data_loaded(const std::string& database, bool loaded) = 0;
  virtual bool data_loaded(const std::string& database) = 0;
  virtual void count_restructure(const std::string& database) = 0;
  virtual int64_t restructures(const std::string& database) = 0;

  // ---- Objects ----

  // Nothing when there is no such object.
  virtual std::optional<ObjectInfo> object_info(const ObjectName& object) = 0;
  // The members of the outline in an object; 0 when it cannot be read.
  virtual uint32_t count_members(const ObjectName& object) = 0;
  // kNoSuchObject when there is none.
  virtual StoredObject read(const ObjectName& object) = 0;
  virtual std::unique_ptr<PendingObject> replace(const ObjectName& object) = 0;
  // Where a local object is, or would be.
  virtual std::string local_path(const ObjectName& object) = 0;
};

// Opens the store at an address: that of a database server, which begins with "postgresql://" or
// "postgres://", or a folder. A folder that does not exist is made and an empty one becomes a
// store; kNotAStore when it holds anything else. A server's database has to be made a store first:
// kNoStoreTables.
std::shared_ptr<Store> open_store(const std::string& address);
// Makes a store at an address where there is none, and brings an older one up to date.
void make_store(const std::string& address);
// Whether there may be a store at an address; a server is not asked.
bool has_store(const std::string& address);

}  // namespace standin
