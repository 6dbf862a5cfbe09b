// The SQLite file of one outline. Every value that is written or read goes into a checksum
// (rows.h), so that damage which SQLite does not notice is noticed here. Functions throw
// StoreFailure (kDamagedOutline, kNoSpace, kStoreError) or std::bad_alloc.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "standin/outline/file/checksum.h"

struct sqlite3;
struct sqlite3_stmt;

namespace standin {

struct StatementFinalizer {
  void operator()(sqlite3_stmt* statement) const;
};
using StatementHandle = std::unique_ptr<sqlite3_stmt, StatementFinalizer>;

// An open outline file.
class OutlineFile {
 public:
  // Takes an empty file that nobody else knows yet: nothing is journaled, nothing synced.
  static OutlineFile create(const std::string& path);
  // Opens a written file, which is never changed in place: nothing is locked, and nothing in it
  // gets to run.
  // kNoSuchObject when there is none.
  static OutlineFile open(const std::string& path);

  // Runs statements without results.
  void run(const char* sql);
  // First column of the first row of a query; 0 when there is none.
  int64_t number(const char* sql);
  StatementHandle prepare(const std::string& sql);
  // Throws what a failed call of SQLite on this file comes to; check() does when `result` tells
  // that it failed.
  [[noreturn]] void fail() const;
  void check(int result) const;
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

}  // namespace standin
