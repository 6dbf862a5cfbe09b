// Opening a store on a server, and its databases.
#include "standin/postgresql/server_store.h"

#include <filesystem>

#include "standin/guard.h"
#include "standin/postgresql/transact.h"
#include "standin/postgresql/user_folders.h"

namespace standin::postgresql {

ServerStore::ServerStore(const std::string& address)
    : address_(address),
      pool_(address),
      settings_(pool_.use([](Connection& connection) { return read_settings(connection); })),
      cache_(cache_folder()),
      keeper_(address, settings_.lease) {
  pool_.set_patience(settings_.lease);
}

std::string ServerStore::local_folder() const {
  return state_folder() + '/' + settings_.identity;
}

bool ServerStore::has_local() const {
  std::error_code ignored;
  return std::filesystem::exists(local_folder(), ignored);
}

// What belongs to this machine, in a folder that is made when it is first needed.
Store& ServerStore::local() {
  const std::lock_guard<std::mutex> guard(mutex_);
  if (local_ == nullptr) local_ = open_store(local_folder());
  return *local_;
}

bool ServerStore::has_database(const std::string& database, bool local) {
  if (local) return this->local().has_database(database, local);
  if (has_lock_in(database)) return true;
  return pool_.use_again([&](Connection& connection) {
    return !connection.run("SELECT FROM kepotl.database WHERE name = $1", database).empty();
  });
}

void ServerStore::make_database(const std::string& database) {
  const int64_t made = pool_.use([&](Connection& connection) {
    return connection
        .run("INSERT INTO kepotl.database(name) VALUES($1) ON CONFLICT DO NOTHING", database)
        .changed();
  });
  if (made == 0) throw StoreFailure(kDatabaseExists);
}

std::vector<std::string> ServerStore::databases(bool local) {
  if (local) return this->local().databases(local);
  return pool_.use_again([](Connection& connection) {
    const Rows rows = connection.run("SELECT name FROM kepotl.database ORDER BY name");
    std::vector<std::string> names;
    names.reserve(static_cast<size_t>(rows.count()));
    for (int row = 0; row < rows.count(); ++row) names.push_back(rows.text(row, 0));
    return names;
  });
}

void ServerStore::remove_database(const std::string& database, bool local) {
  if (local) return this->local().remove_database(database, local);
  pool_.use_again([&](Connection& connection) {
    transact(connection, [&] {
      connection.run(
          "DELETE FROM kepotl.chunk WHERE object IN "
          "(SELECT name FROM kepotl.object WHERE database = $1)",
          database);
      connection.run("DELETE FROM kepotl.object WHERE database = $1", database);
      connection.run("DELETE FROM kepotl.database WHERE name = $1", database);
    });
  });
}

void ServerStore::set_data_loaded(const std::string& database, bool loaded) {
  pool_.use_again([&](Connection& connection) {
    connection.run("UPDATE kepotl.database SET data_loaded = $2 WHERE name = $1", database,
                   int64_t{loaded});
  });
}

void ServerStore::count_restructure(const std::string& database) {
  pool_.use([&](Connection& connection) {
    connection.run("UPDATE kepotl.database SET restructures = restructures + 1 WHERE name = $1",
                   database);
  });
}

bool ServerStore::data_loaded(const std::string& database) {
  return database_number("SELECT data_loaded FROM kepotl.database WHERE name = $1", database) != 0;
}

int64_t ServerStore::restructures(const std::string& database) {
  return database_number("SELECT restructures FROM kepotl.database WHERE name = $1", database);
}

int64_t ServerStore::database_number(const char* sql, const std::string& database) {
  return pool_.use_again([&](Connection& connection) {
    const Rows rows = connection.run(sql, database);
    return rows.empty() ? int64_t{0} : rows.number(0, 0);
  });
}

std::string ServerStore::local_path(const ObjectName& object) {
  return local().local_path(object);
}

}  // namespace standin::postgresql
