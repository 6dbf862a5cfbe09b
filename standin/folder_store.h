// A store in a folder: <application>/<database>/<object>.otl, and the control file, through which
// all processes on the store share logins, locks, running processes and the states of databases.
#pragma once

#include <mutex>

#include "standin/sqlite.h"
#include "standin/store.h"

namespace standin {

// Dot names can't be names of applications, so nothing collides.
inline constexpr char kControlFile[] = ".control.db";
inline constexpr char kClientFolder[] = ".client";  // local objects
inline constexpr char kOutlineSuffix[] = ".otl";

class FolderStore final : public Store {
 public:
  explicit FolderStore(const std::string& folder);

  int64_t add_login(const std::string& user) override;
  void remove_login(int64_t login) override;

  void lock(int64_t login, const ObjectName& object) override;
  void unlock(int64_t login, const ObjectName& object) override;
  bool is_locked(const ObjectName& object) override;
  void expect_lock(int64_t login, const ObjectName& object) override;
  void begin_process(int64_t login, const std::string& database) override;
  void end_process(int64_t login) override;
  std::vector<Holding> holdings() override;
  void break_holding(const std::string& name) override;

  bool has_database(const std::string& database, bool local) override;
  void make_database(const std::string& database) override;
  std::vector<std::string> databases(bool local) override;
  void remove_database(const std::string& database, bool local) override;
  void set_data_loaded(const std::string& database, bool loaded) override;
  bool data_loaded(const std::string& database) override;
  void count_restructure(const std::string& database) override;
  int64_t restructures(const std::string& database) override;

  std::optional<ObjectInfo> object_info(const ObjectName& object) override;
  uint32_t count_members(const ObjectName& object) override;
  StoredObject read(const ObjectName& object) override;
  std::unique_ptr<PendingObject> replace(const ObjectName& object) override;
  std::string local_path(const ObjectName& object) override;

 private:
  class PendingReplacement;

  // The open control file; opens it when that failed before, as on a disk that was full. With the
  // mutex held.
  Connection& control();
  bool is_living(int64_t login);
  int64_t holder(const std::string& key);
  int64_t database_number(const char* sql, const std::string& database);
  std::string root(bool local) const;
  std::string path(const ObjectName& object) const;

  std::string folder_;
  std::mutex mutex_;  // guards the connection
  std::unique_ptr<Connection> control_;
};

}  // namespace standin
