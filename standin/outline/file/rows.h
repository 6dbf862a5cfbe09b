// Rows of an outline file's tables, written and read many at a time: SQLite runs one statement for
// all of them, which takes them from here or hands them over here. Every value goes into the file's
// checksum. Functions throw StoreFailure (kDamagedOutline, kNoSpace, kStoreError) or
// std::bad_alloc.
#pragma once

#include <cstdint>
#include <exception>
#include <functional>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "standin/outline/file/outline_file.h"

struct sqlite3_value;

namespace standin {

// The rows of one table that are being written. The values of a row are given in the order of its
// columns; texts have to live until write_rows() returns.
class RowWriter {
 public:
  RowWriter(OutlineFile& file, const char* table, int columns);
  RowWriter(const RowWriter&) = delete;
  RowWriter& operator=(const RowWriter&) = delete;

  RowWriter& number(int64_t value);
  RowWriter& text(std::string_view value);
  RowWriter& optional_text(const std::optional<std::string>& value);
  // Ends the row.
  void end();
  // Inserts what has not been inserted yet: write_rows() does.
  void finish();

 private:
  friend struct PendingRows;  // through which SQLite reads them

  enum class Kind { kNull, kNumber, kText };
  struct Value {
    Kind kind;
    int64_t number;  // of a text its size
    const char* text;
  };

  OutlineFile& file_;
  size_t columns_;
  std::vector<Value> values_;  // of the rows that have not been inserted, one after the other
  StatementHandle insert_;
};

// Runs `write(row)`, which gives all rows of a table to a RowWriter, and sees them inserted.
template <typename Write>
void write_rows(OutlineFile& file, const char* table, int columns, Write&& write) {
  RowWriter row(file, table, columns);
  write(row);
  row.finish();
}

// Reads all rows of a table in the order of their numbers. A value of another type, out of range or
// too long is damage.
class RowReader {
 public:
  RowReader(OutlineFile& file, const char* table, int columns);

  // Calls `row()` for each row; it takes the row's columns one after the other.
  template <typename Row>
  void each(Row&& row) {
    each_row(std::ref(row));
  }

  // The next column.
  template <typename Number>
  Number number() {
    return static_cast<Number>(
        number_within(std::numeric_limits<Number>::min(), std::numeric_limits<Number>::max()));
  }
  int64_t number_within(int64_t least, int64_t most);
  // A text of at most `longest` bytes, without NULs; good until the row ends.
  std::string_view text(size_t longest);
  // The same, not empty.
  std::string_view name(size_t longest);
  std::optional<std::string> optional_text(size_t longest);

 private:
  friend struct RowSink;  // through which SQLite hands them over

  void each_row(const std::function<void()>& row);

  OutlineFile& file_;
  std::string select_;
  const std::function<void()>* row_ = nullptr;
  int columns_;
  int64_t last_row_ = -1;             // rows are numbered from 0 or 1
  sqlite3_value** values_ = nullptr;  // of the row at hand
  int column_ = 0;                    // the next one
  std::exception_ptr thrown_;
};

}  // namespace standin
