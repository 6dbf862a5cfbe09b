// A store in a database of a server, shared by machines. Objects of the scratch area lie in a
// folder of this user's.
#pragma once

#include <functional>
#include <map>
#include <mutex>

#include "standin/postgresql/cache.h"
#include "standin/postgresql/keeper.h"
#include "standin/postgresql/pool.h"
#include "standin/postgresql/schema.h"
#include "standin/store.h"

namespace standin::postgresql {

class ServerStore final : public Store {
 public:
  explicit ServerStore(const std::string& address);

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
  class PendingUpload;
  // What makes a new version the object's, in the transaction that uploads it; false when it may
  // not become that.
  using Take = std::function<bool(Connection& connection, const std::string& version)>;

  // A lock as this process took it. `row` is the login in the server's table that it belongs to;
  // `fence` grows each time that somebody takes the lock.
  struct Held {
    int64_t row = 0;
    int64_t fence = 0;
    int times = 1;
    bool told = false;  // that it is lost
    std::string kept;   // the local object that holds what could not be saved
  };
  // A login of the interface. Its row on the server is made with the first lock, and anew after the
  // connection broke.
  struct Login {
    std::string user;
    int64_t row = 0;
    int64_t local = 0;  // its login to the local store
    std::map<std::string, Held> held;
  };
  // Somebody who has what is asked for.
  struct Rival {
    int64_t row = 0;
    int64_t renewed = 0;
    bool is_over = false;  // died, or gave no sign of life for a lease
  };

  std::string local_folder() const;
  bool has_local() const;
  Store& local();
  int64_t local_login(int64_t login);
  int64_t living_row(int64_t login);
  std::optional<Held> held(int64_t login, const ObjectName& object);
  bool has_lock_in(const std::string& database);
  void forget(int64_t login, const ObjectName& object);
  void note_kept(int64_t login, const ObjectName& object, const std::string& kept, bool is_lost);
  std::optional<Rival> find_login(Connection& connection, int64_t row) const;
  std::optional<Rival> find_rival(Connection& connection, int64_t row);
  void claim(int refusal, const std::function<std::optional<Rival>(Connection&)>& attempt);
  CachedFile fetch(Connection& connection, const ObjectName& object, const std::string& version,
                   const ContentKey& content);
  bool became_current(const ObjectName& object, const std::string& version);
  std::string keep_locally(const ObjectName& object, const std::string& file,
                           const std::string& kept, uint32_t members);
  int64_t database_number(const char* sql, const std::string& database);

  std::string address_;
  Pool pool_;
  StoreSettings settings_;
  Cache cache_;
  Keeper keeper_;

  std::mutex mutex_;  // guards what follows
  std::shared_ptr<Store> local_;
  std::map<int64_t, Login> logins_;
  int64_t last_login_ = 0;
};

}  // namespace standin::postgresql
