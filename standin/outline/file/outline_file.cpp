// The SQLite file of one outline.
#include "standin/outline/file/outline_file.h"

#include <sys/stat.h>

#include <cerrno>
#include <new>

#include "standin/sqlite.h"
#include "standin/sqlite_error.h"

namespace standin {
namespace {

// The file system layer of SQLite without locks: a file that is being written has no other name
// than its writer's, and a written one never changes.
constexpr const char* kFileSystem = "unix-none";

[[noreturn]] void fail_with(sqlite3* connection, int result) {
  switch (result & 0xff) {
    case SQLITE_NOMEM:
      throw std::bad_alloc();
    case SQLITE_FULL:
      throw StoreFailure(kNoSpace);
    case SQLITE_IOERR:
      throw StoreFailure(status_of_io_error(connection));
    case SQLITE_PERM:
    case SQLITE_READONLY:
      throw StoreFailure(kNotPermitted);
    case SQLITE_CANTOPEN:
      throw StoreFailure(status_of_error(sqlite3_system_errno(connection)));
    default:  // among them: no database, malformed pages, tables that are not there
      throw StoreFailure(status_of_damage(connection, kDamagedOutline));
  }
}

}  // namespace

void OutlineFile::Closer::operator()(sqlite3* connection) const {
  sqlite3_close(connection);
}

OutlineFile::OutlineFile(const std::string& path, int flags) {
  sqlite3* connection = nullptr;
  const int result =
      sqlite3_open_v2(path.c_str(), &connection, flags | SQLITE_OPEN_NOMUTEX, kFileSystem);
  connection_.reset(connection);  // a failed open has to be closed too
  if (result == SQLITE_CANTOPEN) {
    throw StoreFailure(status_of_error(sqlite3_system_errno(connection)));
  }
  check(result);
  check(sqlite3_extended_result_codes(connection, 1));
}

OutlineFile OutlineFile::create(const std::string& path) {
  OutlineFile file(path, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOFOLLOW);
  file.run("PRAGMA journal_mode=OFF; PRAGMA synchronous=OFF; PRAGMA locking_mode=EXCLUSIVE");
  return file;
}

OutlineFile OutlineFile::open(const std::string& path) {
  struct stat found {};
  if (stat(path.c_str(), &found) != 0) {
    throw StoreFailure(errno == ENOENT ? kNoSuchObject : status_of_error(errno));
  }
  // Whatever lies beside the file, as a journal that another program left, is none of its business.
  OutlineFile file(unchanging_file(path), SQLITE_OPEN_READONLY | SQLITE_OPEN_URI);
  distrust(file.connection());
  file.run("PRAGMA cell_size_check=ON");
  return file;
}

void OutlineFile::run(const char* sql) {
  check(sqlite3_exec(connection(), sql, nullptr, nullptr, nullptr));
}

int64_t OutlineFile::number(const char* sql) {
  const StatementHandle statement = prepare(sql);
  const int result = sqlite3_step(statement.get());
  const int64_t value = result == SQLITE_ROW ? sqlite3_column_int64(statement.get(), 0) : 0;
  if (result != SQLITE_ROW && result != SQLITE_DONE) fail_with(connection(), result);
  return value;
}

void OutlineFile::close() {
  check(sqlite3_close(connection()));
  (void)connection_.release();
}

void StatementFinalizer::operator()(sqlite3_stmt* statement) const {
  sqlite3_finalize(statement);
}

StatementHandle OutlineFile::prepare(const std::string& sql) {
  sqlite3_stmt* statement = nullptr;
  check(sqlite3_prepare_v2(connection(), sql.c_str(), -1, &statement, nullptr));
  return StatementHandle(statement);
}

void OutlineFile::fail() const {
  fail_with(connection(), sqlite3_extended_errcode(connection()));
}

void OutlineFile::check(int result) const {
  if (result != SQLITE_OK) fail_with(connection(), result);
}

}  // namespace standin
