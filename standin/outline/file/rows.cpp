// Rows of an outline file's tables: a virtual table that SQLite inserts from, and an aggregate
// function that it hands every row to.
#include "standin/outline/file/rows.h"

#include <sqlite3.h>

#include <new>
#include <utility>

#include "standin/guard.h"

namespace standin {

// The virtual table `pending`: pending(?1) has the rows of the RowWriter that is bound to ?1, in
// the columns c0, c1, ...
struct PendingRows {
  static constexpr int kColumns = 24;  // behind them the hidden one with the RowWriter
  static constexpr const char* kPointer = "RowWriter";

  struct Cursor {
    sqlite3_vtab_cursor base;  // first, as SQLite knows no more than this
    const RowWriter* rows;
    size_t at;  // of the row's first value
  };

  static std::string column(int i) { return "c" + std::to_string(i); }

  static int connect(sqlite3* connection, void*, int, const char* const*, sqlite3_vtab** table,
                     char**) {
    std::string sql = "CREATE TABLE pending(";
    for (int i = 0; i < kColumns; ++i) sql += column(i) + ",";
    const int result = sqlite3_declare_vtab(connection, (sql + "rows HIDDEN)").c_str());
    if (result != SQLITE_OK) return result;
    *table = new (std::nothrow) sqlite3_vtab();
    return *table == nullptr ? SQLITE_NOMEM : SQLITE_OK;
  }
  static int disconnect(sqlite3_vtab* table) {
    delete table;
    return SQLITE_OK;
  }
  static int plan(sqlite3_vtab*, sqlite3_index_info* info) {
    for (int i = 0; i < info->nConstraint; ++i) {
      const auto& constraint = info->aConstraint[i];
      if (constraint.iColumn != kColumns || constraint.usable == 0) continue;
      info->aConstraintUsage[i].argvIndex = 1;
      info->aConstraintUsage[i].omit = 1;
      return SQLITE_OK;
    }
    return SQLITE_CONSTRAINT;
  }
  static int open(sqlite3_vtab*, sqlite3_vtab_cursor** cursor) {
    auto* opened = new (std::nothrow) Cursor();
    if (opened == nullptr) return SQLITE_NOMEM;
    *cursor = &opened->base;
    return SQLITE_OK;
  }
  static Cursor& own(sqlite3_vtab_cursor* cursor) { return *reinterpret_cast<Cursor*>(cursor); }
  static int close(sqlite3_vtab_cursor* cursor) {
    delete &own(cursor);
    return SQLITE_OK;
  }
  static int rewind(sqlite3_vtab_cursor* cursor, int, const char*, int, sqlite3_value** values) {
    own(cursor).rows = static_cast<const RowWriter*>(sqlite3_value_pointer(values[0], kPointer));
    own(cursor).at = 0;
    return own(cursor).rows == nullptr ? SQLITE_MISUSE : SQLITE_OK;
  }
  static int next(sqlite3_vtab_cursor* cursor) {
    own(cursor).at += own(cursor).rows->columns_;
    return SQLITE_OK;
  }
  static int at_end(sqlite3_vtab_cursor* cursor) {
    return own(cursor).at >= own(cursor).rows->values_.size() ? 1 : 0;
  }
  static int value(sqlite3_vtab_cursor* cursor, sqlite3_context* answer, int column) {
    const Cursor& at = own(cursor);
    const RowWriter::Value& value = at.rows->values_[at.at + static_cast<size_t>(column)];
    switch (value.kind) {
      case RowWriter::Kind::kNull:
        break;
      case RowWriter::Kind::kNumber:
        sqlite3_result_int64(answer, value.number);
        break;
      case RowWriter::Kind::kText:
        sqlite3_result_text64(answer, value.text, static_cast<sqlite3_uint64>(value.number),
                              SQLITE_STATIC, SQLITE_UTF8);
        break;
    }
    return SQLITE_OK;
  }
  static int row_number(sqlite3_vtab_cursor* cursor, sqlite3_int64* number) {
    *number = static_cast<sqlite3_int64>(own(cursor).at);
    return SQLITE_OK;
  }

  static sqlite3_module module() {
    sqlite3_module functions{};
    functions.xConnect = connect;
    functions.xDisconnect = disconnect;
    functions.xBestIndex = plan;
    functions.xOpen = open;
    functions.xClose = close;
    functions.xFilter = rewind;
    functions.xNext = next;
    functions.xEof = at_end;
    functions.xColumn = value;
    functions.xRowid = row_number;
    return functions;
  }
};

// The aggregate function `take`, called with the columns of each row of a table and its number.
struct RowSink {
  static void step(sqlite3_context* context, int, sqlite3_value** values) {
    RowReader& reader = *static_cast<RowReader*>(sqlite3_user_data(context));
    reader.values_ = values;
    reader.column_ = 0;
    try {
      // Pages that lead back to others before them would never end.
      const int64_t number = sqlite3_value_int64(values[reader.columns_]);
      if (number <= reader.last_row_) throw StoreFailure(kDamagedOutline);
      reader.last_row_ = number;
      (*reader.row_)();
    } catch (...) {  // must not cross SQLite
      reader.thrown_ = std::current_exception();
      sqlite3_result_error_code(context, SQLITE_ABORT);
    }
  }
  static void end(sqlite3_context*) {}
};

namespace {

constexpr size_t kRowsAtATime = 256;

std::string quoted(const char* name) {
  std::string text = "\"";
  for (; *name != '\0'; ++name) text += *name == '"' ? "\"\"" : std::string(1, *name);
  return text + "\"";
}

std::string insert_sql(const char* table, int columns) {
  std::string sql = std::string("INSERT INTO ") + table + " SELECT c0";
  for (int i = 1; i < columns; ++i) sql += "," + PendingRows::column(i);
  return sql + " FROM pending(?1)";
}

}  // namespace

RowWriter::RowWriter(OutlineFile& file, const char* table, int columns)
    : file_(file), columns_(static_cast<size_t>(columns)) {
  static const sqlite3_module kModule = PendingRows::module();
  file.check(sqlite3_create_module(file.connection(), "pending", &kModule, nullptr));
  insert_ = file.prepare(insert_sql(table, columns));
  file.check(sqlite3_bind_pointer(insert_.get(), 1, this, PendingRows::kPointer, nullptr));
  values_.reserve(kRowsAtATime * columns_);
  file.checksum.add(table);
}

RowWriter& RowWriter::number(int64_t value) {
  file_.checksum.add(value);
  values_.push_back({Kind::kNumber, value, nullptr});
  return *this;
}

RowWriter& RowWriter::text(std::string_view value) {
  file_.checksum.add(value);
  values_.push_back({Kind::kText, static_cast<int64_t>(value.size()), value.data()});
  return *this;
}

RowWriter& RowWriter::optional_text(const std::optional<std::string>& value) {
  if (value) return text(*value);
  file_.checksum.add(int64_t{-1});  // no text has this length
  values_.push_back({Kind::kNull, 0, nullptr});
  return *this;
}

void RowWriter::end() {
  if (values_.size() >= kRowsAtATime * columns_) finish();
}

void RowWriter::finish() {
  if (values_.empty()) return;
  if (sqlite3_step(insert_.get()) != SQLITE_DONE) file_.fail();
  sqlite3_reset(insert_.get());
  values_.clear();
}

RowReader::RowReader(OutlineFile& file, const char* table, int columns)
    : file_(file), columns_(columns) {
  const StatementHandle all = file.prepare(std::string("SELECT * FROM ") + table);
  if (sqlite3_column_count(all.get()) != columns) throw StoreFailure(kDamagedOutline);
  select_ = "SELECT take(";
  for (int i = 0; i < columns; ++i) {
    select_ += quoted(sqlite3_column_name(all.get(), i)) + ",";
  }
  select_ += std::string("rowid) FROM ") + table + " NOT INDEXED";  // in the order of row numbers
  file.checksum.add(table);
}

void RowReader::each_row(const std::function<void()>& row) {
  row_ = &row;
  file_.check(sqlite3_create_function(file_.connection(), "take", -1,
                                      SQLITE_UTF8 | SQLITE_DIRECTONLY, this, nullptr, RowSink::step,
                                      RowSink::end));
  const StatementHandle select = file_.prepare(select_);
  const int result = sqlite3_step(select.get());
  if (thrown_) std::rethrow_exception(std::exchange(thrown_, nullptr));
  if (result != SQLITE_ROW) file_.fail();
}

int64_t RowReader::number_within(int64_t least, int64_t most) {
  sqlite3_value* const column = values_[column_++];
  if (sqlite3_value_type(column) != SQLITE_INTEGER) throw StoreFailure(kDamagedOutline);
  const int64_t value = sqlite3_value_int64(column);
  if (value < least || value > most) throw StoreFailure(kDamagedOutline);
  file_.checksum.add(value);
  return value;
}

std::string_view RowReader::text(size_t longest) {
  sqlite3_value* const column = values_[column_++];
  if (sqlite3_value_type(column) != SQLITE_TEXT) throw StoreFailure(kDamagedOutline);
  // As a blob: the bytes come as they are, valid UTF-8 or not.
  const void* bytes = sqlite3_value_blob(column);
  const auto size = static_cast<size_t>(sqlite3_value_bytes(column));
  if (bytes == nullptr && size != 0) throw std::bad_alloc();
  if (size > longest) throw StoreFailure(kDamagedOutline);
  const std::string_view value(static_cast<const char*>(bytes), size);
  if (value.find('\0') != std::string_view::npos) throw StoreFailure(kDamagedOutline);
  file_.checksum.add(value);
  return value;
}

std::string_view RowReader::name(size_t longest) {
  const std::string_view value = text(longest);
  if (value.empty()) throw StoreFailure(kDamagedOutline);
  return value;
}

std::optional<std::string> RowReader::optional_text(size_t longest) {
  if (sqlite3_value_type(values_[column_]) != SQLITE_NULL) return std::string(text(longest));
  ++column_;
  file_.checksum.add(int64_t{-1});
  return std::nullopt;
}

}  // namespace standin
