// The layer over SQLite.
#include "standin/sqlite.h"

#include <new>

#include "standin/guard.h"
#include "standin/sqlite_error.h"

namespace standin {
namespace {

// How long to wait for another process that is writing, in milliseconds. Writes take few.
constexpr int kBusyTimeout = 10000;

[[noreturn]] void fail(sqlite3* connection, int result) {
  switch (result & 0xff) {
    case SQLITE_NOMEM:
      throw std::bad_alloc();
    case SQLITE_FULL:
      throw StoreFailure(kNoSpace);
    case SQLITE_NOTADB:
    case SQLITE_CORRUPT:
    case SQLITE_ERROR:  // a format or a schema that is not ours
      throw StoreFailure(status_of_damage(connection, kNotAStore));
    case SQLITE_BUSY:
      throw StoreFailure(kStoreBusy);
    case SQLITE_PERM:
    case SQLITE_READONLY:
      throw StoreFailure(kNotPermitted);
    case SQLITE_CANTOPEN:
      throw StoreFailure(status_of_error(sqlite3_system_errno(connection)));
    case SQLITE_IOERR:
      if (result == SQLITE_IOERR_SHMSIZE || result == SQLITE_IOERR_SHMOPEN) {
        throw StoreFailure(status_of_error(sqlite3_system_errno(connection)));
      }
      throw StoreFailure(status_of_io_error(connection));
    default:
      throw StoreFailure(kStoreError);
  }
}

void check(sqlite3* connection, int result) {
  if (result != SQLITE_OK) fail(connection, result);
}

}  // namespace

std::string unchanging_file(const std::string& path) {
  std::string uri = "file:";
  for (const char c : path) {
    if (c == '%' || c == '?' || c == '#') {
      constexpr char kDigits[] = "0123456789ABCDEF";
      ((uri += '%') += kDigits[c >> 4]) += kDigits[c & 15];
    } else {
      uri += c;
    }
  }
  return uri + "?immutable=1";
}

void distrust(sqlite3* connection) {
  for (const int setting : {SQLITE_DBCONFIG_TRUSTED_SCHEMA, SQLITE_DBCONFIG_ENABLE_VIEW,
                            SQLITE_DBCONFIG_ENABLE_TRIGGER}) {
    check(connection, sqlite3_db_config(connection, setting, 0, nullptr));
  }
  check(connection, sqlite3_db_config(connection, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr));
}

std::string schema_of(sqlite3* connection) {
  std::string schema;
  sqlite3_stmt* prepared = nullptr;
  const int result = sqlite3_prepare_v2(
      connection, "SELECT type, name, sql FROM sqlite_schema ORDER BY name LIMIT 1000", -1,
      &prepared, nullptr);
  const std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)> rows(prepared, sqlite3_finalize);
  check(connection, result);
  int stepped = SQLITE_ROW;
  while ((stepped = sqlite3_step(prepared)) == SQLITE_ROW) {
    for (int column = 0; column < 3; ++column) {
      const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(prepared, column));
      for (; text != nullptr && *text != 0; ++text) {
        if (*text != ' ' && *text != '\n') schema += *text;
      }
      schema += '\n';
    }
  }
  if (stepped != SQLITE_DONE) fail(connection, stepped);
  return schema;
}

std::string schema_made_by(const char* sql) {
  Connection memory(":memory:", SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
  memory.run(sql);
  return schema_of(memory.get());
}

void Connection::Closer::operator()(sqlite3* connection) const {
  sqlite3_close_v2(connection);
}

Connection::Connection(const std::string& file, int flags, const char* file_system) {
  sqlite3* connection = nullptr;
  const int result = sqlite3_open_v2(file.c_str(), &connection, flags, file_system);
  connection_.reset(connection);  // a failed open has to be closed too
  check(connection, result);
  check(connection, sqlite3_extended_result_codes(connection, 1));
  check(connection, sqlite3_busy_timeout(connection, kBusyTimeout));
}

void Connection::run(const char* sql) {
  check(get(), sqlite3_exec(get(), sql, nullptr, nullptr, nullptr));
}

int64_t Connection::number(const char* sql) {
  Statement statement(*this, sql);
  return statement.next() ? statement.number(0) : 0;
}

void Statement::Finalizer::operator()(sqlite3_stmt* statement) const {
  sqlite3_finalize(statement);
}

Statement::Statement(Connection& connection, const char* sql) : connection_(connection) {
  sqlite3_stmt* statement = nullptr;
  check(connection.get(), sqlite3_prepare_v2(connection.get(), sql, -1, &statement, nullptr));
  statement_.reset(statement);
}

Statement& Statement::bind(int64_t value) {
  check(connection_.get(), sqlite3_bind_int64(statement_.get(), ++bound_, value));
  return *this;
}

Statement& Statement::bind(const std::string& value) {
  check(connection_.get(), sqlite3_bind_text64(statement_.get(), ++bound_, value.data(),
                                               value.size(), SQLITE_TRANSIENT, SQLITE_UTF8));
  return *this;
}

bool Statement::next() {
  const int result = sqlite3_step(statement_.get());
  if (result == SQLITE_ROW) return true;
  if (result != SQLITE_DONE) fail(connection_.get(), result);
  return false;
}

void Statement::run() {
  while (next()) {
  }
}

int64_t Statement::number(int column) const {
  return sqlite3_column_int64(statement_.get(), column);
}

std::string Statement::text(int column) const {
  const void* bytes = sqlite3_column_blob(statement_.get(), column);
  const int size = sqlite3_column_bytes(statement_.get(), column);
  return bytes == nullptr ? std::string()
                          : std::string(static_cast<const char*>(bytes), static_cast<size_t>(size));
}

Transaction::Transaction(Connection& connection) : connection_(connection) {
  connection_.run("BEGIN IMMEDIATE");
}

Transaction::~Transaction() {
  if (open_) sqlite3_exec(connection_.get(), "ROLLBACK", nullptr, nullptr, nullptr);
}

void Transaction::commit() {
  connection_.run("COMMIT");
  open_ = false;
}

}  // namespace standin
