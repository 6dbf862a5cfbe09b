// Temporary folders for the tests, a session on a store in one, and its background processes.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "api/olv.h"
#include "standin/session.h"
#include "standin/status.h"

namespace standin_test {

// A new empty folder, removed with everything in it at the end.
class TempFolder {
 public:
  TempFolder() {
    std::string name = testing::TempDir() + "kepotl-XXXXXX";
    if (mkdtemp(name.data()) == nullptr) {
      ADD_FAILURE() << "cannot make a folder like " << name;
      abort();
    }
    path_ = name;
  }
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  std::filesystem::path operator/(const std::string& name) const { return path_ / name; }
  std::string string() const { return path_.string(); }

 private:
  std::filesystem::path path_;
};

inline void write_file(const std::filesystem::path& path, const std::string& content) {
  std::ofstream(path, std::ios::binary) << content;
}

inline std::string read_file(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

// An instance on the store in a folder, ended with the object.
class Session {
 public:
  explicit Session(const std::string& folder) {
    EXPECT_EQ(OlvStandinInitialize(folder.c_str(), &instance_), kStatusOk);
  }
  ~Session() { end(); }
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  INST instance() const { return instance_; }

  HCTX login(const char* user = "admin") const {
    HCTX context = 0;
    EXPECT_EQ(OlvStandinLogin(instance_, user, &context), kStatusOk);
    return context;
  }

  // Logs in with Sample.Basic active, which is made when it isn't there.
  HCTX login_with_database() const {
    const HCTX context = login();
    const int status = OlvStandinCreateDatabase(context, "Sample", "Basic");
    EXPECT_TRUE(status == kStatusOk || status == standin::kDatabaseExists) << status;
    uint16_t access = 0;
    EXPECT_EQ(OlvSetActive(context, "Sample", "Basic", &access), kStatusOk);
    EXPECT_NE(access, 0);
    return context;
  }

  HCTX local_context() const {
    HCTX context = 0;
    EXPECT_EQ(OlvCreateLocalContext(instance_, 0, 0, &context), kStatusOk);
    return context;
  }

  void end() {
    if (instance_ != 0) {
      EXPECT_EQ(OlvStandinTerminate(instance_), kStatusOk);
    }
    instance_ = 0;
  }

 private:
  INST instance_ = 0;
};

inline OlvStandinLedgerCounts ledger() {
  OlvStandinLedgerCounts counts{};
  EXPECT_EQ(OlvStandinLedger(&counts), kStatusOk);
  return counts;
}

// Polls back to back, like the native methods do, until the context's process is over.
inline int wait_for_process(HCTX context) {
  ProcessStateRecord state{};
  int status = 0;
  do {
    status = OlvGetProcessState(context, &state);
  } while (status == kStatusOk && state.state != 0);
  return status;
}

}  // namespace standin_test
