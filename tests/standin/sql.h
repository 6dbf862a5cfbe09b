// Changes to SQLite files as a program from outside would make them.
#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>
#include <string>

namespace standin_test {

inline void run_sql(const std::filesystem::path& file, const std::string& sql) {
  sqlite3* opened = nullptr;
  ASSERT_EQ(sqlite3_open(file.c_str(), &opened), SQLITE_OK);
  // Names of tables and columns that views and triggers don't know may change, too.
  sqlite3_db_config(opened, SQLITE_DBCONFIG_LEGACY_ALTER_TABLE, 1, nullptr);
  EXPECT_EQ(sqlite3_exec(opened, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
      << sqlite3_errmsg(opened);
  EXPECT_EQ(sqlite3_close(opened), SQLITE_OK);
}

}  // namespace standin_test
