// Logins, locks and running processes on a server.
#include <algorithm>
#include <thread>

#include "standin/guard.h"
#include "standin/postgresql/server_store.h"
#include "standin/postgresql/transact.h"
#include "standin/process_identity.h"

namespace standin::postgresql {
namespace {

// How the names of local objects begin.
constexpr char kLocal[] = ".client/";

bool is_local(const std::string& name) {
  return name.rfind(kLocal, 0) == 0;
}

// Columns of kepotl.login that say who it is, from `column` on.
constexpr char kIdentity[] = "host, machine, boot, pid_space, pid, started, mark";

ProcessIdentity identity(const Rows& rows, int row, int column) {
  return {rows.text(row, column),     rows.text(row, column + 1),   rows.text(row, column + 2),
          rows.text(row, column + 3), rows.number(row, column + 4), rows.number(row, column + 5),
          rows.text(row, column + 6)};
}

// How old the last sign of life is, by the server's clock.
constexpr char kAge[] = "floor(extract(epoch FROM clock_timestamp()) * 1000)::bigint - renewed";

}  // namespace

int64_t ServerStore::add_login(const std::string& user) {
  const std::lock_guard<std::mutex> guard(mutex_);
  logins_[++last_login_].user = user;
  return last_login_;
}

void ServerStore::remove_login(int64_t login) {
  Login ended;
  {
    const std::lock_guard<std::mutex> guard(mutex_);
    const auto found = logins_.find(login);
    if (found == logins_.end()) return;
    ended = std::move(found->second);
    logins_.erase(found);
  }
  if (ended.local != 0) local().remove_login(ended.local);
  if (ended.row != 0) keeper_.leave(ended.row);
}

int64_t ServerStore::local_login(int64_t login) {
  Store& store = local();
  const std::lock_guard<std::mutex> guard(mutex_);
  Login& own = logins_.at(login);
  if (own.local == 0) own.local = store.add_login(own.user);
  return own.local;
}

// The login's row on the server, made when there is none or the last one is over.
int64_t ServerStore::living_row(int64_t login) {
  std::string user;
  {
    const std::lock_guard<std::mutex> guard(mutex_);
    const Login& own = logins_.at(login);
    if (own.row != 0 && keeper_.is_kept(own.row)) return own.row;
    user = own.user;
  }
  const int64_t row = keeper_.enter(user);
  const std::lock_guard<std::mutex> guard(mutex_);
  logins_.at(login).row = row;
  return row;
}

std::optional<ServerStore::Held> ServerStore::held(int64_t login, const ObjectName& object) {
  const std::lock_guard<std::mutex> guard(mutex_);
  const auto own = logins_.find(login);
  if (own == logins_.end()) return std::nullopt;
  const auto found = own->second.held.find(object.text());
  if (found == own->second.held.end()) return std::nullopt;
  return found->second;
}

// Whether a login of this process has, or had and does not know better, a lock in a database, which
// is there then. A save so gets as far as being kept when the server can't be asked.
bool ServerStore::has_lock_in(const std::string& database) {
  const std::lock_guard<std::mutex> guard(mutex_);
  for (const auto& [number, login] : logins_) {
    const auto first = login.held.lower_bound(database + '/');
    if (first != login.held.end() && first->first.rfind(database + '/', 0) == 0) return true;
  }
  return false;
}

void ServerStore::forget(int64_t login, const ObjectName& object) {
  const std::lock_guard<std::mutex> guard(mutex_);
  logins_.at(login).held.erase(object.text());
}

std::optional<ServerStore::Rival> ServerStore::find_login(Connection& connection,
                                                          int64_t row) const {
  const std::string sql = std::string("SELECT renewed, ") + kAge + ", " + kIdentity +
                          " FROM kepotl.login WHERE id = $1";
  const Rows found = connection.run(sql.c_str(), row);
  if (found.empty()) return std::nullopt;
  const bool has_run_out = found.number(0, 1) > settings_.lease.count();
  return Rival{row, found.number(0, 0), has_run_out || !is_alive(identity(found, 0, 2))};
}

// Whoever has a login, unless it is over; one that is over is removed with what it had.
std::optional<ServerStore::Rival> ServerStore::find_rival(Connection& connection, int64_t row) {
  std::optional<Rival> rival = find_login(connection, row);
  if (!rival || !rival->is_over) return rival;
  const Rows removed = connection.run("DELETE FROM kepotl.login WHERE id = $1 AND renewed = $2",
                                      rival->row, rival->renewed);
  if (removed.changed() == 0) return rival;
  return std::nullopt;
}

// Tries until nobody stands in the way. Somebody who does is asked for a sign of life, and
// `refusal` is the answer as soon as there is one: who is gone gives none, and his lease runs out
// meanwhile.
void ServerStore::claim(int refusal,
                        const std::function<std::optional<Rival>(Connection&)>& attempt) {
  const auto deadline = Keeper::Clock::now() + settings_.lease * 3 / 2;
  std::optional<Rival> first;
  for (;;) {
    const std::optional<Rival> rival = pool_.use_again([&](Connection& connection) {
      return transact(connection, [&] { return attempt(connection); });
    });
    if (!rival) return;
    const bool gave_sign = first && (rival->row != first->row || rival->renewed != first->renewed);
    if (gave_sign || keeper_.is_kept(rival->row) || Keeper::Clock::now() >= deadline) {
      throw StoreFailure(refusal);
    }
    first = rival;
    std::this_thread::sleep_for(
        std::min<std::chrono::milliseconds>(settings_.lease / 20, std::chrono::milliseconds(200)));
  }
}

void ServerStore::lock(int64_t login, const ObjectName& object) {
  if (object.local) return local().lock(local_login(login), object);
  const std::string name = object.text();
  if (const auto before = held(login, object)) {
    if (!before->told && keeper_.is_kept(before->row)) {
      const std::lock_guard<std::mutex> guard(mutex_);
      ++logins_.at(login).held.at(name).times;
      return;
    }
    forget(login, object);
    if (!before->told) throw StoreFailure(kLockLost);
  }
  Held taken;
  taken.row = living_row(login);
  claim(kObjectLocked, [&](Connection& connection) -> std::optional<Rival> {
    connection.run(
        "INSERT INTO kepotl.object_lock(object, fence) VALUES($1, 0) ON CONFLICT DO NOTHING", name);
    const Rows lock = connection.run(
        "SELECT fence, login FROM kepotl.object_lock WHERE object = $1 FOR UPDATE", name);
    taken.fence = lock.number(0, 0);
    if (!lock.is_null(0, 1)) {
      const int64_t holder = lock.number(0, 1);
      if (holder == taken.row) return std::nullopt;  // in an attempt whose answer was lost
      if (const auto rival = find_rival(connection, holder)) return rival;
    }
    ++taken.fence;
    connection.run(
        "UPDATE kepotl.object_lock SET login = $2, fence = $3, since = DEFAULT WHERE object = $1",
        name, taken.row, taken.fence);
    return std::nullopt;
  });
  const std::lock_guard<std::mutex> guard(mutex_);
  const auto [entry, is_new] = logins_.at(login).held.emplace(name, taken);
  if (!is_new) ++entry->second.times;  // another thread of the same login was faster
}

void ServerStore::unlock(int64_t login, const ObjectName& object) {
  if (object.local) return local().unlock(local_login(login), object);
  const std::optional<Held> lock = held(login, object);
  if (!lock) throw StoreFailure(kNotLocked);
  if (lock->times > 1) {
    const std::lock_guard<std::mutex> guard(mutex_);
    --logins_.at(login).held.at(object.text()).times;
    return;
  }
  forget(login, object);
  int64_t freed = 0;
  if (keeper_.is_kept(lock->row)) {
    freed = pool_.use_again([&](Connection& connection) {
      return connection
          .run(
              "UPDATE kepotl.object_lock SET login = NULL "
              "WHERE object = $1 AND login = $2 AND fence = $3",
              object.text(), lock->row, lock->fence)
          .changed();
    });
  }
  if (freed == 0 && !lock->told) throw StoreFailure(kLockLost);
}

void ServerStore::expect_lock(int64_t login, const ObjectName& object) {
  if (!held(login, object)) throw StoreFailure(kNotLocked);
}

bool ServerStore::is_locked(const ObjectName& object) {
  if (object.local) return local().is_locked(object);
  return pool_.use_again([&](Connection& connection) {
    const Rows lock = connection.run(
        "SELECT login FROM kepotl.object_lock WHERE object = $1 AND login IS NOT NULL",
        object.text());
    if (lock.empty()) return false;
    const std::optional<Rival> holder = find_login(connection, lock.number(0, 0));
    return holder && !holder->is_over;
  });
}

void ServerStore::begin_process(int64_t login, const std::string& database) {
  if (is_local(database)) return local().begin_process(local_login(login), database);
  const int64_t row = living_row(login);
  claim(kProcessRunning, [&](Connection& connection) -> std::optional<Rival> {
    const Rows running =
        connection.run("SELECT login FROM kepotl.process WHERE database = $1 FOR UPDATE", database);
    if (!running.empty()) {
      const int64_t holder = running.number(0, 0);
      if (holder == row) return std::nullopt;
      if (const auto rival = find_rival(connection, holder)) return rival;
    }
    const Rows begun = connection.run(
        "INSERT INTO kepotl.process(database, login) VALUES($1, $2) ON CONFLICT DO NOTHING",
        database, row);
    // Somebody was faster; the next attempt sees who.
    if (begun.changed() == 0) return Rival{};
    return std::nullopt;
  });
}

void ServerStore::end_process(int64_t login) {
  int64_t row = 0;
  int64_t local_row = 0;
  {
    const std::lock_guard<std::mutex> guard(mutex_);
    row = logins_.at(login).row;
    local_row = logins_.at(login).local;
  }
  if (local_row != 0) local().end_process(local_row);
  if (row == 0 || !keeper_.is_kept(row)) return;
  pool_.use_again([&](Connection& connection) {
    connection.run("DELETE FROM kepotl.process WHERE login = $1", row);
  });
}

std::vector<Holding> ServerStore::holdings() {
  std::vector<Holding> all = pool_.use_again([&](Connection& connection) {
    std::vector<Holding> found;
    for (const char* const what :
         {"object FROM kepotl.object_lock", "database FROM kepotl.process"}) {
      const std::string name = std::string(what).substr(0, std::string(what).find(' '));
      const std::string sql = std::string("SELECT ") + kAge + ", " + kIdentity +
                              ", user_name, since / 1000, " + what +
                              " JOIN kepotl.login ON login = id ORDER BY " + name;
      const Rows rows = connection.run(sql.c_str());
      for (int row = 0; row < rows.count(); ++row) {
        const ProcessIdentity who = identity(rows, row, 1);
        if (rows.number(row, 0) > settings_.lease.count() || !is_alive(who)) continue;
        found.push_back(
            {rows.text(row, 10), rows.text(row, 8), who.host, who.pid, rows.number(row, 9)});
      }
    }
    return found;
  });
  // Looking makes no folder.
  if (!has_local()) return all;
  const std::vector<Holding> here = local().holdings();
  all.insert(all.begin(), here.begin(), here.end());
  return all;
}

void ServerStore::break_holding(const std::string& name) {
  if (is_local(name)) return local().break_holding(name);
  const int64_t broken = pool_.use_again([&](Connection& connection) {
    return transact(connection, [&] {
      const Rows lock = connection.run(
          "UPDATE kepotl.object_lock SET login = NULL WHERE object = $1 AND login IS NOT NULL",
          name);
      const Rows process = connection.run("DELETE FROM kepotl.process WHERE database = $1", name);
      return lock.changed() + process.changed();
    });
  });
  if (broken == 0) throw StoreFailure(kNoSuchLock);
}

}  // namespace standin::postgresql
