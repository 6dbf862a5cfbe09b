// The SQLite file of one outline: opening it, and writing and reading rows whose every value goes
// into a checksum, so that damage which SQLite does not notice is noticed here. Functions throw
// StoreFailure (kDamagedOutline, kNoSpace, kStoreError) or std::bad_alloc.
#pragma once

#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "standin/outline/file/checksum.h"

struct sqlite3;
struct sqlite3_stmt;

namespace standin {

// An open outline file.
class OutlineFile {
 public:
  // Makes a new file that nobody else knows yet: nothing is journaled, nothing synced.
  static OutlineFile create(const std::string& path);
  // Opens a written file, which is never changed in place: nothing is locked.
  // kNoSuchObject when there is none.
  static OutlineFile open(const std::string& path);

  // Runs statements without results.
  void run(const char* sql);
  // First column of the first row of a query; 0 when there is none.
  int64_t number(const char* sql);
  // Closes the file; what SQLite still held back is written.
  void close();

  sqlite3* connection() const { return connection_.get(); }

  Checksum checksum;

 private:
  OutlineFile(const std::string& path, int flags);

  struct Closer {
    void operator()(sqlite3* connection) const;
  };
  std::unique_ptr<sqlite3, Closer> connection_;
};

// What reading and writing rows share: one statement on one table.
class RowStatement {
 protected:
  RowStatement(OutlineFile& file, const char* table, const std::string& sql);

  [[noreturn]] void fail() const;
  sqlite3_stmt* get() const { return statement_.get(); }

  struct Finalizer {
    void operator()(sqlite3_stmt* statement) const;
  };
  OutlineFile& file_;
  std::unique_ptr<sqlite3_stmt, Finalizer> statement_;
  int column_ = 0;  // the next one
};

// Inserts rows. The values of a row are given in the order of its columns; texts have to live
// until end().
class RowWriter : public RowStatement {
 public:
  RowWriter(OutlineFile& file, const char* table, int columns);

  RowWriter& number(int64_t value);
  RowWriter& text(std::string_view value);
  RowWriter& optional_text(const std::optional<std::string>& value);
  // Inserts the row.
  void end();
};

// Reads all rows in the order of their numbers. A value of another type, out of range or too long
// is damage.
class RowReader : public RowStatement {
 public:
  RowReader(OutlineFile& file, const char* table, int columns);

  // Advances to the next row; false after the last.
  bool next();

  // The next column.
  template <typename Number>
  Number number() {
    return static_cast<Number>(
        number_within(std::numeric_limits<Number>::min(), std::numeric_limits<Number>::max()));
  }
  int64_t number_within(int64_t least, int64_t most);
  // A text of at most `longest` bytes, without NULs.
  std::string text(size_t longest);
  // The same, not empty.
  std::string name(size_t longest);
  std::optional<std::string> optional_text(size_t longest);
};

}  // namespace standin
