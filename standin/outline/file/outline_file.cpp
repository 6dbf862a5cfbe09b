// The SQLite file of one outline: connections, and rows that go into the checksum.
#include "standin/outline/file/outline_file.h"

#include <sys/stat.h>

#include <cerrno>
#include <new>

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
      throw StoreFailure(kStoreError);
    default:  // among them: no database, malformed pages, tables that are not there
      throw StoreFailure(kDamagedOutline);
  }
}

void check(sqlite3* connection, int result) {
  if (result != SQLITE_OK) fail_with(connection, result);
}

std::string insert_sql(const char* table, int columns) {
  std::string sql = std::string("INSERT INTO ") + table + " VALUES(?";
  for (int i = 1; i < columns; ++i) sql += ",?";
  return sql + ")";
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
  if (result == SQLITE_CANTOPEN) throw StoreFailure(kStoreError);
  check(connection, result);
  check(connection, sqlite3_extended_result_codes(connection, 1));
}

OutlineFile OutlineFile::create(const std::string& path) {
  OutlineFile file(path, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
  file.run("PRAGMA journal_mode=OFF; PRAGMA synchronous=OFF; PRAGMA locking_mode=EXCLUSIVE");
  return file;
}

OutlineFile OutlineFile::open(const std::string& path) {
  struct stat found {};
  if (stat(path.c_str(), &found) != 0) {
    throw StoreFailure(errno == ENOENT ? kNoSuchObject : kStoreError);
  }
  OutlineFile file(path, SQLITE_OPEN_READONLY);
  // Nothing in a file from elsewhere gets to run.
  sqlite3* const connection = file.connection();
  check(connection, sqlite3_db_config(connection, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr));
  check(connection, sqlite3_db_config(connection, SQLITE_DBCONFIG_ENABLE_VIEW, 0, nullptr));
  file.run("PRAGMA cell_size_check=ON");
  return file;
}

void OutlineFile::run(const char* sql) {
  const int result = sqlite3_exec(connection(), sql, nullptr, nullptr, nullptr);
  if (result != SQLITE_OK) fail_with(connection(), result);
}

int64_t OutlineFile::number(const char* sql) {
  sqlite3_stmt* statement = nullptr;
  check(connection(), sqlite3_prepare_v2(connection(), sql, -1, &statement, nullptr));
  const int result = sqlite3_step(statement);
  const int64_t value = result == SQLITE_ROW ? sqlite3_column_int64(statement, 0) : 0;
  sqlite3_finalize(statement);
  if (result != SQLITE_ROW && result != SQLITE_DONE) fail_with(connection(), result);
  return value;
}

void OutlineFile::close() {
  const int result = sqlite3_close(connection());
  check(connection(), result);
  (void)connection_.release();
}

void RowStatement::Finalizer::operator()(sqlite3_stmt* statement) const {
  sqlite3_finalize(statement);
}

RowStatement::RowStatement(OutlineFile& file, const char* table, const std::string& sql)
    : file_(file) {
  sqlite3_stmt* statement = nullptr;
  check(file.connection(),
        sqlite3_prepare_v2(file.connection(), sql.c_str(), -1, &statement, nullptr));
  statement_.reset(statement);
  file.checksum.add(table);
}

void RowStatement::fail() const {
  fail_with(file_.connection(), sqlite3_extended_errcode(file_.connection()));
}

RowWriter::RowWriter(OutlineFile& file, const char* table, int columns)
    : RowStatement(file, table, insert_sql(table, columns)) {}

RowWriter& RowWriter::number(int64_t value) {
  file_.checksum.add(value);
  if (sqlite3_bind_int64(get(), ++column_, value) != SQLITE_OK) fail();
  return *this;
}

RowWriter& RowWriter::text(std::string_view value) {
  file_.checksum.add(value);
  if (sqlite3_bind_text64(get(), ++column_, value.data(), value.size(), SQLITE_STATIC,
                          SQLITE_UTF8) != SQLITE_OK) {
    fail();
  }
  return *this;
}

RowWriter& RowWriter::optional_text(const std::optional<std::string>& value) {
  if (value) return text(*value);
  file_.checksum.add(int64_t{-1});  // no text has this length
  if (sqlite3_bind_null(get(), ++column_) != SQLITE_OK) fail();
  return *this;
}

void RowWriter::end() {
  if (sqlite3_step(get()) != SQLITE_DONE) fail();
  sqlite3_reset(get());
  column_ = 0;
}

RowReader::RowReader(OutlineFile& file, const char* table, int columns)
    : RowStatement(file, table, std::string("SELECT * FROM ") + table + " ORDER BY rowid") {
  if (sqlite3_column_count(get()) != columns) throw StoreFailure(kDamagedOutline);
}

bool RowReader::next() {
  column_ = 0;
  const int result = sqlite3_step(get());
  if (result != SQLITE_ROW && result != SQLITE_DONE) fail();
  return result == SQLITE_ROW;
}

int64_t RowReader::number_within(int64_t least, int64_t most) {
  if (sqlite3_column_type(get(), column_) != SQLITE_INTEGER) throw StoreFailure(kDamagedOutline);
  const int64_t value = sqlite3_column_int64(get(), column_++);
  if (value < least || value > most) throw StoreFailure(kDamagedOutline);
  file_.checksum.add(value);
  return value;
}

std::string RowReader::text(size_t longest) {
  std::optional<std::string> value = optional_text(longest);
  if (!value) throw StoreFailure(kDamagedOutline);
  return std::move(*value);
}

std::string RowReader::name(size_t longest) {
  std::string value = text(longest);
  if (value.empty()) throw StoreFailure(kDamagedOutline);
  return value;
}

std::optional<std::string> RowReader::optional_text(size_t longest) {
  const int type = sqlite3_column_type(get(), column_);
  if (type == SQLITE_NULL) {
    ++column_;
    file_.checksum.add(int64_t{-1});
    return std::nullopt;
  }
  if (type != SQLITE_TEXT) throw StoreFailure(kDamagedOutline);
  // As a blob: the bytes come as they are, valid UTF-8 or not.
  const void* bytes = sqlite3_column_blob(get(), column_);
  const auto size = static_cast<size_t>(sqlite3_column_bytes(get(), column_));
  ++column_;
  if (bytes == nullptr && size != 0) throw std::bad_alloc();
  if (size > longest) throw StoreFailure(kDamagedOutline);
  const std::string_view value(static_cast<const char*>(bytes), size);
  if (value.find('\0') != std::string_view::npos) throw StoreFailure(kDamagedOutline);
  file_.checksum.add(value);
  return std::string(value);
}

}  // namespace standin
