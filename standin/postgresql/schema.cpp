// The tables and the steps from version to version. Only types, statements and constraints that
// servers have that merely speak PostgreSQL's protocol: bigint, bytea, primary and foreign keys.
// Names are bytes, as a database's encoding takes not all of them. Times are milliseconds since
// 1970, by the server's clock.
#include "standin/postgresql/schema.h"

#include <iterator>

#include "standin/postgresql/transact.h"
#include "standin/process_identity.h"

namespace standin::postgresql {
namespace {

// Step i leads from version i to version i + 1.
constexpr const char* kSteps[] = {
    R"(
CREATE TABLE kepotl.login(
  id bigint PRIMARY KEY,
  renewed bigint NOT NULL DEFAULT (floor(extract(epoch FROM clock_timestamp()) * 1000)::bigint),
  user_name bytea NOT NULL, host bytea NOT NULL, machine bytea NOT NULL, boot bytea NOT NULL,
  pid_space bytea NOT NULL, pid bigint NOT NULL, started bigint NOT NULL, mark bytea NOT NULL);
CREATE TABLE kepotl.database(
  name bytea PRIMARY KEY, data_loaded bigint NOT NULL DEFAULT 0,
  restructures bigint NOT NULL DEFAULT 0);
CREATE TABLE kepotl.object_lock(
  object bytea PRIMARY KEY, fence bigint NOT NULL,
  login bigint REFERENCES kepotl.login ON DELETE SET NULL,
  since bigint NOT NULL DEFAULT (floor(extract(epoch FROM clock_timestamp()) * 1000)::bigint));
CREATE TABLE kepotl.process(
  database bytea PRIMARY KEY,
  login bigint NOT NULL REFERENCES kepotl.login ON DELETE CASCADE,
  since bigint NOT NULL DEFAULT (floor(extract(epoch FROM clock_timestamp()) * 1000)::bigint));
CREATE TABLE kepotl.object(
  name bytea PRIMARY KEY, database bytea NOT NULL REFERENCES kepotl.database,
  version bytea NOT NULL, fence bigint NOT NULL, size bigint NOT NULL, digest bytea NOT NULL,
  members bigint NOT NULL,
  saved bigint NOT NULL DEFAULT (floor(extract(epoch FROM clock_timestamp()) * 1000)::bigint));
CREATE TABLE kepotl.chunk(
  object bytea NOT NULL, version bytea NOT NULL, number bigint NOT NULL, data bytea NOT NULL,
  PRIMARY KEY(object, version, number));
)",
    R"(
CREATE INDEX object_lock_login ON kepotl.object_lock(login);
CREATE INDEX process_login ON kepotl.process(login);
CREATE INDEX object_database ON kepotl.object(database);
)"};
constexpr int64_t kVersion = std::size(kSteps);

constexpr int64_t kLeaseMilliseconds = 10'000;

}  // namespace

StoreSettings read_settings(Connection& connection) {
  const Rows store = connection.run("SELECT version, identity, lease FROM kepotl.store");
  if (store.empty() || store.number(0, 0) == 0) throw StoreFailure(kNoStoreTables);
  if (store.number(0, 0) > kVersion) throw StoreFailure(kNewerStore);
  if (store.number(0, 0) < kVersion) throw StoreFailure(kOlderStore);
  return {store.text(0, 1), std::chrono::milliseconds(store.number(0, 2))};
}

namespace {

// Whether they were made anew.
bool make_in_transaction(Connection& connection) {
  return transact(connection, [&] {
    connection.run("CREATE SCHEMA IF NOT EXISTS kepotl");
    connection.run(
        "CREATE TABLE IF NOT EXISTS kepotl.store(id bigint PRIMARY KEY CHECK (id = 1), "
        "version bigint NOT NULL, identity bytea NOT NULL, lease bigint NOT NULL)");
    connection.run("INSERT INTO kepotl.store VALUES(1, 0, $1, $2) ON CONFLICT DO NOTHING",
                   new_mark(), kLeaseMilliseconds);
    const Rows store = connection.run("SELECT version FROM kepotl.store FOR UPDATE");
    const int64_t version = store.number(0, 0);
    if (version > kVersion) throw StoreFailure(kNewerStore);
    for (int64_t step = version; step < kVersion; ++step) connection.run_all(kSteps[step]);
    connection.run("UPDATE kepotl.store SET version = $1", kVersion);
    return version == 0;
  });
}

}  // namespace

void make_tables(Connection& connection) {
  constexpr int kAttempts = 20;
  bool is_new = false;
  for (int attempt = 1;; ++attempt) {
    try {
      is_new = make_in_transaction(connection);
      break;
    } catch (const ServerFailure& failure) {
      // Somebody makes them at the same moment.
      if (!failure.is_duplicate() || attempt == kAttempts) throw;
    }
  }
  // Outlines are not worth the server's time to compress; one that knows no such setting may.
  if (is_new) {
    connection.try_all("ALTER TABLE kepotl.chunk ALTER COLUMN data SET STORAGE EXTERNAL");
  }
}

}  // namespace standin::postgresql
