// A thin layer over SQLite: connections, statements and transactions that give everything back by
// themselves and throw a StoreFailure with the fitting status.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

struct sqlite3;
struct sqlite3_stmt;

namespace standin {

// The name of a file for SQLITE_OPEN_URI when nobody changes it: read without locks, and without a
// journal that lies beside it.
std::string unchanging_file(const std::string& path);

// Keeps a file that may come from anywhere from running anything. To be called before the first
// statement.
void distrust(sqlite3* connection);

// All that a file's schema is made of, blanks aside, as text to compare; and that of a file that
// has been made with these statements.
std::string schema_of(sqlite3* connection);
std::string schema_made_by(const char* sql);

// An open SQLite file. Not for use by two threads at once.
class Connection {
 public:
  // `flags` and `file_system`, the name of one of SQLite's, are those of sqlite3_open_v2.
  Connection(const std::string& file, int flags, const char* file_system = nullptr);

  // Runs statements without parameters and without results.
  void run(const char* sql);
  // First column of the first row of a query, 0 when there is no row.
  int64_t number(const char* sql);

  sqlite3* get() const { return connection_.get(); }

 private:
  struct Closer {
    void operator()(sqlite3* connection) const;
  };
  std::unique_ptr<sqlite3, Closer> connection_;
};

// One prepared statement. Parameters are bound in their order.
class Statement {
 public:
  Statement(Connection& connection, const char* sql);

  Statement& bind(int64_t value);
  Statement& bind(const std::string& value);
  // Advances to the next row; false after the last.
  bool next();
  // Runs to the end.
  void run();

  int64_t number(int column) const;
  std::string text(int column) const;

 private:
  struct Finalizer {
    void operator()(sqlite3_stmt* statement) const;
  };
  Connection& connection_;
  std::unique_ptr<sqlite3_stmt, Finalizer> statement_;
  int bound_ = 0;
};

// A write transaction; rolled back unless committed.
class Transaction {
 public:
  explicit Transaction(Connection& connection);
  ~Transaction();
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;

  void commit();

 private:
  Connection& connection_;
  bool open_ = true;
};

}  // namespace standin
