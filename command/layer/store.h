// A store with a login: databases, and opening their outlines.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "command/layer/outline.h"

namespace command {

// What is known of one database.
struct DatabaseEntry {
  std::string application;
  std::string database;
  uint32_t members = 0;
  uint64_t size = 0;  // bytes of the outline's file, 0 while none was saved
  int64_t saved = 0;  // seconds since 1970
};

struct Lock {
  std::string object;  // "APP/DB/OBJECT"; "APP/DB" of a running restructure
  std::string user;
  std::string host;
  uint64_t process = 0;
  int64_t since = 0;
};

class EditedOutline;

// An open store; the login ends with it.
class Store {
 public:
  // A store that does not exist is made when `create` says so, else refused.
  Store(const std::string& address, const std::string& user, bool create);
  ~Store();
  Store(const Store&) = delete;
  Store& operator=(const Store&) = delete;

  // Makes a store, or brings one of an earlier version up to date.
  static void make(const std::string& address);

  std::vector<DatabaseEntry> databases() const;
  // Refused with a list of similar names when there is no such database.
  void require(const std::string& application, const std::string& database) const;
  // Makes a database with an empty outline.
  void create(const std::string& application, const std::string& database) const;
  void remove(const std::string& application, const std::string& database) const;
  void backup(const std::string& application, const std::string& database,
              const std::string& file) const;
  void restore(const std::string& file, const std::string& application,
               const std::string& database) const;

  // Copies a database with its outline from another store, over what is here.
  void copy(const Store& from, const std::string& application, const std::string& database) const;

  // Who edits or restructures what.
  std::vector<Lock> locks() const;
  void break_lock(const std::string& object) const;

  // Opens the stored outline for reading.
  Outline read(const std::string& application, const std::string& database) const;
  // Opens it for edit under its lock, which is given back with the object.
  EditedOutline edit(const std::string& application, const std::string& database) const;
  // Opens it for changes that are never saved, without its lock.
  Outline scratch(const std::string& application, const std::string& database) const;

  // An empty outline that belongs to an existing database and is never saved.
  Outline empty(const std::string& application, const std::string& database) const;
  // Saves an open outline as that of another database, which has to exist, under its lock.
  void save_as(const Outline& outline, const std::string& application,
               const std::string& database) const;

  // Runs a restructure to its end, calling `tick` about ten times a second.
  void restructure(const std::string& application, const std::string& database,
                   const std::function<void()>& tick) const;

  HCTX context() const { return context_; }
  INST instance() const { return instance_; }

 private:
  Outline open(const std::string& application, const std::string& database, const std::string& name,
               bool lock) const;

  INST instance_ = 0;
  HCTX context_ = 0;
};

// An outline that is open for edit, with the lock of its object.
class EditedOutline : public Outline {
 public:
  EditedOutline(HCTX context, Outline opened, std::string application, std::string database);
  EditedOutline(EditedOutline&& other) noexcept;
  ~EditedOutline();

  // Writes it back to where it came from.
  void save() const { write(application_, database_); }

 private:
  HCTX context_;
  std::string application_;
  std::string database_;
};

}  // namespace command
