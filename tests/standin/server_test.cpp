// Stores on a PostgreSQL server when the server, the network or a client fails: what was
// acknowledged stays, nothing is mixed up, and who loses his lock is told and keeps his work. Run
// with KEPOTL_SERVER (test_store.h).
#include <fcntl.h>
#include <sys/wait.h>

#include <future>
#include <random>

#include "tests/long_run.h"
#include "tests/standin/editor.h"
#include "tests/standin/proxy.h"

using namespace standin_test;

namespace {

using Mode = Editor::Mode;
using Fault = Proxy::Fault;

// Runs tests/server/server.
void control(const std::string& words) {
  const std::string command = KEPOTL_SERVER_SCRIPT " " + words;
  ASSERT_EQ(std::system(command.c_str()), 0) << command;
}

std::string server() {
  return server_folder();
}

std::filesystem::path state_folder() {
  return std::filesystem::path(std::getenv("XDG_STATE_HOME")) / "outline";
}

// Where a store's data goes over a network.
std::string through(const Proxy& proxy, const TestStore& store) {
  std::string address = store.address();
  return address.replace(address.find(server()), server().size(), proxy.folder());
}

// The version in an outline of the scratch area; -1 when there is none.
int kept_version(const std::string& store, const char* name = "Basic") {
  const Session session(store);
  const HCTX local = session.local_context();
  const ObjectDefinitionRecord kept{local, kObjectTypeOutline, "Aside", name, name};
  HOutline h = 0;
  ObjectInfoRecord* info = nullptr;
  const int status = OlvGetObjectInfo(local, kObjectTypeOutline, "Aside", name, name, &info);
  if (status == standin::kNoSuchObject) return -1;
  EXPECT_EQ(status, 0);
  EXPECT_EQ(OlvFree(0, info), 0);
  EXPECT_EQ(OlvOtlOpenOutline(local, &kept, 0, 0, &h), 0);
  HMember member = 0;
  EXPECT_EQ(OlvOtlGetFirstMember(h, &member), 0);
  EXPECT_EQ(OlvOtlGetChild(h, member, &member), 0);
  char* formula = nullptr;
  EXPECT_EQ(OlvOtlGetMemberFormula(h, member, &formula), 0);
  const int version = std::stoi(formula);
  EXPECT_EQ(OlvFree(0, formula), 0);
  EXPECT_EQ(OlvOtlCloseOutline(h), 0);
  return version;
}

int stored_version(const std::string& store) {
  Editor reader(store, Mode::kQuery);
  const int version = reader.version();
  reader.close();
  return version;
}

bool is_told_loss(int status) {
  return status == standin::kLockLost || status == standin::kSaveUnknown;
}

// A process that saves one version after the other until a save fails.
class Saver {
 public:
  Saver(const std::string& store, int version) {
    int ends[2];
    if (pipe(ends) != 0) abort();
    child_ = fork();
    if (child_ < 0) abort();
    if (child_ == 0) save(store, version, ends[1]);
    close(ends[1]);
    from_ = ends[0];
  }
  ~Saver() { close(from_); }
  Saver(const Saver&) = delete;
  Saver& operator=(const Saver&) = delete;

  // Waits until the process is in the middle of its work.
  void wait() { ASSERT_EQ(read(from_, &acknowledged, sizeof acknowledged), ssize_t{sizeof(int)}); }
  // Waits for its end, and reads what it has told.
  void join() {
    int told = 0;
    while (read(from_, &told, sizeof told) == sizeof told) {
      if (told < 0) {
        failure = -told;
      } else {
        acknowledged = told;
      }
    }
    ASSERT_EQ(waitpid(child_, nullptr, 0), child_);
  }

  int acknowledged = 0;
  int failure = 0;

 private:
  [[noreturn]] static void save(const std::string& store, int version, int report) {
    Editor editor(store);
    for (;;) {
      editor.set_version(++version);
      const int status = editor.write();
      const int told = status == 0 ? version : -status;
      if (::write(report, &told, sizeof told) != sizeof told || status != 0) _exit(0);
    }
  }

  pid_t child_;
  int from_ = -1;
};

// One round of saving until `fail` makes it end: the version that is there afterwards.
int fail_while_saving(const std::string& store, int version, uint_fast32_t delay_us,
                      const std::function<void()>& fail) {
  std::filesystem::remove_all(state_folder());
  Saver saver(store, version);
  saver.wait();
  usleep(static_cast<useconds_t>(delay_us));
  fail();
  saver.join();
  EXPECT_TRUE(is_told_loss(saver.failure)) << saver.failure;
  EXPECT_EQ(kept_version(store), saver.acknowledged + 1);
  Editor editor(store);  // free to be edited
  const int stored = editor.version();
  EXPECT_TRUE(stored == saver.acknowledged || stored == saver.acknowledged + 1)
      << stored << " after " << saver.acknowledged;
  EXPECT_EQ(editor.write(), 0);
  editor.close();
  return stored;
}

// KEPOTL_KILLS sets how often.
TEST(Server, KilledInTheMiddleOfSavesLosesNothing) {
  const TestStore store;
  make_outline(store.address());
  std::minstd_rand random(20240229);
  int version = 0;
  const unsigned kills = long_run_number("KEPOTL_KILLS", 10);
  for (unsigned round = 0; round < kills && !testing::Test::HasFailure(); ++round) {
    version = fail_while_saving(store.address(), version, random() % 30000, [&] {
      control("stop " + server() + (round % 2 == 0 ? " kill" : " immediate"));
      control("start " + server());
    });
  }
}

// KEPOTL_PROMOTIONS sets how often.
TEST(Server, APromotedStandbyHasAllThatWasAcknowledged) {
  std::minstd_rand random(20240301);
  std::string primary = server() + "-0";
  control("make " + primary);
  control("start " + primary);
  ASSERT_EQ(OlvStandinMakeStore(server_address(primary, "postgres").c_str()), 0);
  make_outline(server_address(primary, "postgres"));
  int version = 0;
  const unsigned promotions = long_run_number("KEPOTL_PROMOTIONS", 2);
  for (unsigned round = 1; round <= promotions && !testing::Test::HasFailure(); ++round) {
    const std::string standby = server() + "-" + std::to_string(round);
    control("standby " + standby + " " + primary);
    const std::string both = server_address(primary + "," + standby, "postgres");
    version = fail_while_saving(both, version, random() % 100000, [&] {
      control("stop " + primary + " kill");
      control("promote " + standby);
    });
    primary = standby;
  }
  control("stop " + primary + " immediate");
}

// Has no sign of life pass among the statements that are counted.
void keep_quiet(const TestStore& store) {
  run_on_server(store.address(), "UPDATE kepotl.store SET lease = 60000");
}

// The connection that is cut is not the one with which the login lives: the save is done again.
TEST(Server, ACutAtAnyStatementOfASaveIsMended) {
  const TestStore store;
  make_outline(store.address());
  keep_quiet(store);
  Proxy proxy(server());
  Editor editor(through(proxy, store));
  int version = 0;
  for (const Fault fault : {Fault::kCutBefore, Fault::kCutAfter}) {
    int statement = 1;
    for (bool cut = true; cut && !testing::Test::HasFailure(); ++statement) {
      editor.set_version(++version);
      proxy.fail_at(statement, fault);
      EXPECT_EQ(editor.write(), 0) << "statement " << statement;
      cut = proxy.mend();
      EXPECT_EQ(stored_version(store.address()), version) << "statement " << statement;
    }
    EXPECT_GT(statement, 6);
  }
  const std::string versions = "SELECT count(DISTINCT version) FROM kepotl.chunk";
  EXPECT_EQ(run_on_server(store.address(), versions), "1");
}

TEST(Server, ACutOfEverythingAtAnyStatementIsToldAndTheWorkKept) {
  const TestStore store;
  make_outline(store.address());
  keep_quiet(store);
  Proxy proxy(server());
  int version = 0;
  int statement = 1;
  for (bool cut = true; cut && !testing::Test::HasFailure(); ++statement) {
    SCOPED_TRACE(statement);
    std::filesystem::remove_all(state_folder());
    Editor editor(through(proxy, store));
    const int before = editor.version();
    editor.set_version(++version);
    proxy.fail_at(statement, Fault::kCutAll);
    auto writing = std::async(std::launch::async, [&] { return editor.write(); });
    const auto written = [&](int milliseconds) {
      return writing.wait_for(std::chrono::milliseconds(milliseconds)) == std::future_status::ready;
    };
    while (!proxy.has_failed() && !written(2)) {
    }
    written(100);  // while nothing gets through
    cut = proxy.mend();
    const int status = writing.get();
    const int stored = stored_version(store.address());
    if (status == 0) {
      EXPECT_EQ(stored, version);
    } else {
      EXPECT_TRUE(is_told_loss(status)) << status;
      EXPECT_TRUE(stored == before || stored == version) << stored;
      EXPECT_EQ(kept_version(store.address()), version);
    }
    editor.session.end();
  }
  EXPECT_GT(statement, 6);
}

// A writer whose network stops in the middle of a save, while another one takes the lock and saves.
TEST(Server, WhoWasCutOffAndComesBackOverwritesNothing) {
  const TestStore store;
  make_outline(store.address());
  for (int statement = 1; statement <= 5 && !testing::Test::HasFailure(); ++statement) {
    SCOPED_TRACE(statement);
    std::filesystem::remove_all(state_folder());
    Proxy proxy(server());
    Editor writer(through(proxy, store));
    writer.set_version(1000 + statement);
    proxy.fail_at(statement, Fault::kStall);
    auto writing = std::async(std::launch::async, [&] { return writer.write(); });
    proxy.wait_for_fault();
    // The other one runs on a machine of its own: with a cache of its own.
    const TempFolder cache;
    const char* const own_cache = std::getenv("XDG_CACHE_HOME");
    ASSERT_NE(own_cache, nullptr);
    const std::string before = own_cache;
    setenv("XDG_CACHE_HOME", cache.string().c_str(), 1);
    Editor other(store.address());
    setenv("XDG_CACHE_HOME", before.c_str(), 1);
    other.set_version(statement);
    EXPECT_EQ(other.write(), 0);
    proxy.mend();
    EXPECT_EQ(writing.get(), standin::kLockLost);
    EXPECT_EQ(stored_version(store.address()), statement);
    EXPECT_EQ(kept_version(store.address()), 1000 + statement);
    // Told once; giving the lock up is no error then, and what is kept stays.
    writer.set_version(2000);
    EXPECT_EQ(writer.write(), standin::kLockLost);
    EXPECT_EQ(kept_version(store.address()), 2000);
    EXPECT_EQ(OlvUnlockObject(writer.context, 1, "Sample", "Basic", "Basic"), 0);
    other.close();
  }
}

TEST(Server, AnIdleEditorIsToldThatItsLockIsGone) {
  const TestStore store;
  make_outline(store.address());
  std::filesystem::remove_all(state_folder());
  Editor editor(store.address());
  control("stop " + server() + " immediate");
  control("start " + server());
  editor.set_version(1);
  EXPECT_EQ(editor.write(), standin::kLockLost);
  const std::string told = OlvStandinStatusDetail(standin::kLockLost);
  const std::string file = told.substr(std::string("it is kept as ").size());
  ASSERT_TRUE(std::filesystem::exists(file)) << told;
  // What the user keeps there is not replaced by another loss.
  Editor second(store.address());
  second.set_version(2);
  ASSERT_EQ(OlvStandinBreakLock(second.session.instance(), "Sample/Basic/Basic"), 0);
  EXPECT_EQ(second.write(), standin::kLockLost);
  EXPECT_EQ(kept_version(store.address()), 1);
  EXPECT_EQ(kept_version(store.address(), "Basic 2"), 2);
  // The login goes on with a new lock.
  EXPECT_EQ(OlvUnlockObject(editor.context, 1, "Sample", "Basic", "Basic"), 0);
  EXPECT_EQ(OlvLockObject(editor.context, 1, "Sample", "Basic", "Basic"), 0);
  // What is kept can be stored after all.
  EXPECT_EQ(OlvStandinRestore(editor.context, file.c_str(), "Sample", "Basic"), 0);
  EXPECT_EQ(stored_version(store.address()), 1);
}

TEST(Server, ContentIsCheckedAfterFetchingAndInTheCache) {
  const TestStore store;
  make_outline(store.address());
  const std::filesystem::path cache =
      std::filesystem::path(std::getenv("XDG_CACHE_HOME")) / "outline";
  for (const auto& entry : std::filesystem::directory_iterator(cache))
    write_file(entry.path(), "x");
  EXPECT_EQ(stored_version(store.address()), 0) << "a damaged cache is not missed";
  run_on_server(store.address(), "UPDATE kepotl.chunk SET data = set_byte(data, 5000, 77)");
  EXPECT_EQ(stored_version(store.address()), 0) << "what is cached is not fetched";
  std::filesystem::remove_all(cache);
  const Session session(store.address());
  const HCTX context = session.login_with_database();
  HOutline h = 0;
  EXPECT_EQ(OlvOtlOpenOutlineQuery(context, nullptr, &h), standin::kDamagedOutline);
}

TEST(Server, StoresOfOtherVersionsAreNamedAndUpgraded) {
  const TestStore store;
  make_outline(store.address());
  const auto opened = [&] {
    INST instance = 0;
    const int status = OlvStandinInitialize(store.address().c_str(), &instance);
    if (status == 0) OlvStandinTerminate(instance);
    return status;
  };
  run_on_server(store.address(), "UPDATE kepotl.store SET version = 99");
  EXPECT_EQ(opened(), standin::kNewerStore);
  EXPECT_EQ(OlvStandinMakeStore(store.address().c_str()), standin::kNewerStore);
  run_on_server(store.address(),
                "DROP INDEX kepotl.object_lock_login, kepotl.process_login, "
                "kepotl.object_database; UPDATE kepotl.store SET version = 1");
  EXPECT_EQ(opened(), standin::kOlderStore);
  EXPECT_EQ(OlvStandinMakeStore(store.address().c_str()), 0);
  EXPECT_EQ(stored_version(store.address()), 0);
  run_on_server(store.address(), "DROP SCHEMA kepotl CASCADE");
  EXPECT_EQ(opened(), standin::kNoStoreTables);
  INST instance = 0;
  EXPECT_EQ(OlvStandinInitialize("postgresql:///x?host=/nowhere", &instance),
            standin::kNoConnection);
  EXPECT_EQ(OlvStandinInitialize("postgresql://%zz", &instance), standin::kBadStoreAddress);
}

TEST(Server, IsMadeAStoreByManyAtOnce) {
  const TestStore store;
  run_on_server(store.address(), "DROP SCHEMA kepotl CASCADE");
  std::vector<std::future<int>> made;
  for (int i = 0; i < 6; ++i) {
    made.push_back(std::async(std::launch::async,
                              [&] { return OlvStandinMakeStore(store.address().c_str()); }));
  }
  for (auto& one : made) EXPECT_EQ(one.get(), 0);
  make_outline(store.address());
}

}  // namespace
