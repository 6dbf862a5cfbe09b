// A new store for a test: in a folder or, when KEPOTL_SERVER names the folder of a running
// PostgreSQL server, in a database there. tests/server/server starts one.
#pragma once

#include <gtest/gtest.h>
#include <libpq-fe.h>
#include <unistd.h>

#include <cstdlib>
#include <memory>
#include <optional>
#include <string>

#include "standin/session.h"
#include "tests/standin/store_folder.h"

namespace standin_test {

// The folder of the server, null for stores in folders.
inline const char* server_folder() {
  return std::getenv("KEPOTL_SERVER");
}

inline bool on_server() {
  return server_folder() != nullptr;
}

inline std::string server_address(const std::string& folder, const std::string& database) {
  return "postgresql:///" + database + "?host=" + folder + "&user=outline";
}

// Runs SQL statements on a database and answers the first value of the last one.
inline std::string run_on_server(const std::string& address, const std::string& sql) {
  const std::unique_ptr<PGconn, decltype(&PQfinish)> connection(PQconnectdb(address.c_str()),
                                                                PQfinish);
  PQsetNoticeProcessor(
      connection.get(), [](void*, const char*) {}, nullptr);
  const std::unique_ptr<PGresult, decltype(&PQclear)> result(PQexec(connection.get(), sql.c_str()),
                                                             PQclear);
  const ExecStatusType status = PQresultStatus(result.get());
  EXPECT_TRUE(status == PGRES_COMMAND_OK || status == PGRES_TUPLES_OK)
      << sql << ": " << PQerrorMessage(connection.get());
  return PQntuples(result.get()) > 0 ? PQgetvalue(result.get(), 0, 0) : "";
}

class TestStore {
 public:
  TestStore() {
    if (!on_server()) {
      folder_.emplace();
      address_ = folder_->string();
      return;
    }
    static int number = 0;
    database_ = "store_" + std::to_string(getpid()) + "_" + std::to_string(++number);
    run_on_server(server_address(server_folder(), "postgres"), "CREATE DATABASE " + database_);
    address_ = server_address(server_folder(), database_);
    const int made = OlvStandinMakeStore(address_.c_str());
    EXPECT_EQ(made, kStatusOk) << OlvStandinStatusDetail(made);
    // Who is gone is waited for as long as his lease.
    run_on_server(address_, "UPDATE kepotl.store SET lease = 1000");
  }
  ~TestStore() {
    if (on_server()) {
      run_on_server(server_address(server_folder(), "postgres"),
                    "DROP DATABASE " + database_ + " WITH (FORCE)");
    }
  }
  TestStore(const TestStore&) = delete;
  TestStore& operator=(const TestStore&) = delete;

  const std::string& address() const { return address_; }
  // Of a store in one.
  std::filesystem::path folder() const { return address_; }

  // What a save gives whose lock somebody took away.
  static int lost_status() { return on_server() ? standin::kLockLost : standin::kNotLocked; }

 private:
  std::optional<TempFolder> folder_;
  std::string database_;
  std::string address_;
};

}  // namespace standin_test
