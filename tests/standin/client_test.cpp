// Sessions, local contexts, locks and processes, within one process and between several.
#include <gtest/gtest.h>

#include <unistd.h>

#include <atomic>
#include <ctime>
#include <future>
#include <memory>
#include <thread>
#include <vector>

#include "standin/client.h"
#include "tests/standin/peer.h"
#include "tests/standin/test_store.h"

namespace standin_test {
namespace {

int lock(HCTX context) {
  return OlvLockObject(context, 1, "Sample", "Basic", "Basic");
}
int unlock(HCTX context) {
  return OlvUnlockObject(context, 1, "Sample", "Basic", "Basic");
}

// The lock indicator of the database's outline; -1 when there is no such object.
int lock_indicator(HCTX context) {
  ObjectInfoRecord* info = nullptr;
  if (OlvGetObjectInfo(context, 1, "Sample", "Basic", "Basic", &info) != kStatusOk) return -1;
  const int locked = info->locked;
  EXPECT_EQ(OlvFree(0, info), kStatusOk);
  return locked;
}

int start(HCTX context, std::function<int()> work) {
  standin::Context found;
  const int status = standin::find_context(context, &found);
  return status != kStatusOk ? status : standin::start_process(found, std::move(work));
}

TEST(Sessions, HandlesEndAndAreNotUsedTwice) {
  const TestStore store;
  Session session(store.address());
  const HCTX context = session.login_with_database();
  const HCTX local = session.local_context();
  EXPECT_EQ(OlvStandinLogout(context), kStatusOk);
  EXPECT_EQ(OlvStandinLogout(context), standin::kBadContext);
  EXPECT_EQ(lock(context), standin::kBadContext);
  EXPECT_NE(session.login(), context);

  const INST instance = session.instance();
  session.end();
  char* path = nullptr;
  HCTX another = 0;
  EXPECT_EQ(OlvGetLocalPath(local, 1, "a", "b", "c", 1, &path), standin::kBadContext);
  EXPECT_EQ(OlvStandinTerminate(instance), standin::kBadInstance);
  EXPECT_EQ(OlvStandinLogin(instance, "admin", &another), standin::kBadInstance);
  EXPECT_EQ(OlvCreateLocalContext(instance, 0, 0, &another), standin::kBadInstance);
}

TEST(Sessions, NullArgumentsGiveAStatus) {
  const TestStore store;
  const Session session(store.address());
  const HCTX context = session.login_with_database();
  const HCTX local = session.local_context();
  const std::string long_name(81, 'u');
  INST instance = 0;
  HCTX handle = 0;
  uint16_t access = 0;
  char* path = nullptr;
  double count = 0;
  EXPECT_EQ(OlvStandinInitialize(nullptr, &instance), standin::kBadArgument);
  EXPECT_EQ(OlvStandinInitialize("", &instance), standin::kBadArgument);
  EXPECT_EQ(OlvStandinInitialize(store.address().c_str(), nullptr), standin::kBadArgument);
  EXPECT_EQ(OlvStandinLogin(session.instance(), nullptr, &handle), standin::kBadArgument);
  EXPECT_EQ(OlvStandinLogin(session.instance(), "", &handle), standin::kEmptyName);
  EXPECT_EQ(OlvStandinLogin(session.instance(), long_name.c_str(), &handle), standin::kNameTooLong);
  EXPECT_EQ(OlvStandinLogin(session.instance(), "admin", nullptr), standin::kBadArgument);
  EXPECT_EQ(OlvStandinCreateDatabase(context, nullptr, "b"), standin::kBadArgument);
  EXPECT_EQ(OlvStandinRestructured(context, "Sample", "Basic", nullptr), standin::kBadArgument);
  EXPECT_EQ(OlvStandinLedger(nullptr), standin::kBadArgument);
  EXPECT_EQ(OlvSetActive(context, "Sample", nullptr, &access), standin::kBadArgument);
  EXPECT_EQ(OlvSetActive(context, "Sample", "Basic", nullptr), standin::kBadArgument);
  EXPECT_EQ(OlvGetProcessState(context, nullptr), standin::kBadArgument);
  EXPECT_EQ(OlvCreateLocalContext(session.instance(), 0, 0, nullptr), standin::kBadArgument);
  EXPECT_EQ(OlvGetLocalPath(local, 1, "a", "b", "c", 1, nullptr), standin::kBadArgument);
  EXPECT_EQ(OlvGetLocalPath(local, 1, "a", "b", nullptr, 1, &path), standin::kBadArgument);
  EXPECT_EQ(OlvGetObjectInfo(context, 1, "Sample", "Basic", "Basic", nullptr),
            standin::kBadArgument);
  EXPECT_EQ(OlvGetDatabaseInfo(context, "Sample", "Basic", nullptr), standin::kBadArgument);
  EXPECT_EQ(OlvPartitionGetAreaCellCount(context, nullptr, &count), standin::kBadArgument);
  EXPECT_EQ(OlvPartitionGetAreaCellCount(context, "", nullptr), standin::kBadArgument);
  EXPECT_EQ(OlvLockObject(context, 1, nullptr, nullptr, nullptr), standin::kBadArgument);
  EXPECT_EQ(OlvFree(session.instance(), nullptr), kStatusOk);
}

TEST(LocalContexts, KeepObjectsApartFromTheStore) {
  const TestStore store;
  const Session session(store.address());
  const HCTX context = session.login();
  const HCTX local = session.local_context();
  char* path = nullptr;
  ObjectInfoRecord* info = nullptr;
  EXPECT_EQ(OlvGetLocalPath(context, 1, "KEPOTL", "OTLTEMP", "E0", 1, &path), standin::kBadContext);
  EXPECT_EQ(OlvGetLocalPath(local, 1, "KEPOTL", "OTLTEMP", "E0", 0, &path), standin::kNoSuchObject);
  ASSERT_EQ(OlvGetLocalPath(local, 1, "KEPOTL", "OTLTEMP", "E0", 1, &path), kStatusOk);
  EXPECT_EQ(OlvGetObjectInfo(local, 1, "KEPOTL", "OTLTEMP", "E0", &info), standin::kNoSuchObject);
  write_file(path, "12345");  // the place to write to is there
  EXPECT_EQ(OlvFree(session.instance(), path), kStatusOk);
  ASSERT_EQ(OlvGetObjectInfo(local, 1, "KEPOTL", "OTLTEMP", "E0", &info), kStatusOk);
  EXPECT_EQ(info->size, 5u);
  EXPECT_EQ(info->locked, 0);
  EXPECT_EQ(OlvFree(session.instance(), info), kStatusOk);

  // A database of the same name in the store is another thing.
  EXPECT_EQ(OlvStandinCreateDatabase(context, "KEPOTL", "OTLTEMP"), kStatusOk);
  EXPECT_EQ(OlvGetObjectInfo(context, 1, "KEPOTL", "OTLTEMP", "E0", &info), standin::kNoSuchObject);
  EXPECT_EQ(OlvLockObject(context, 1, "KEPOTL", "OTLTEMP", "E0"), kStatusOk);
  EXPECT_EQ(OlvLockObject(local, 1, "KEPOTL", "OTLTEMP", "E0"), kStatusOk);
  EXPECT_EQ(OlvLockObject(session.local_context(), 1, "KEPOTL", "OTLTEMP", "E0"),
            standin::kObjectLocked);
  uint16_t access = 0;
  EXPECT_EQ(OlvSetActive(local, "KEPOTL", "OTLTEMP", &access), standin::kBadContext);
}

TEST(Locks, BelongToOneLoginAndCount) {
  const TestStore store;
  const Session session(store.address());
  const HCTX first = session.login_with_database();
  const HCTX second = session.login("editor");
  EXPECT_EQ(lock_indicator(second), -1);
  EXPECT_EQ(unlock(first), standin::kNotLocked);
  EXPECT_EQ(lock(first), kStatusOk);
  EXPECT_EQ(lock(second), standin::kObjectLocked);
  EXPECT_EQ(unlock(second), standin::kNotLocked);
  EXPECT_EQ(lock_indicator(second), 1);  // not written yet, but there

  EXPECT_EQ(lock(first), kStatusOk);
  EXPECT_EQ(unlock(first), kStatusOk);
  EXPECT_EQ(lock(second), standin::kObjectLocked);  // locked once still
  EXPECT_EQ(unlock(first), kStatusOk);
  EXPECT_EQ(unlock(first), standin::kNotLocked);
  EXPECT_EQ(lock(second), kStatusOk);
  EXPECT_EQ(OlvStandinLogout(second), kStatusOk);
  EXPECT_EQ(lock(first), kStatusOk);
}

struct Listed {
  std::string object;
  std::string user;
  uint64_t process;
};
std::vector<Listed> listed_locks(INST instance) {
  OlvStandinLock* locks = nullptr;
  uint32_t count = 99;
  EXPECT_EQ(OlvStandinListLocks(instance, &locks, &count), kStatusOk);
  std::vector<Listed> all;
  for (uint32_t i = 0; i < count; ++i) {
    EXPECT_STRNE(locks[i].host, "");
    EXPECT_NEAR(static_cast<double>(locks[i].since), static_cast<double>(time(nullptr)), 60);
    all.push_back({locks[i].object, locks[i].user, locks[i].process});
  }
  EXPECT_EQ(OlvFree(instance, locks), kStatusOk);
  return all;
}

TEST(Locks, AreListedAndBroken) {
  const TestStore store;
  const Session session(store.address());
  const HCTX context = session.login_with_database();
  EXPECT_TRUE(listed_locks(session.instance()).empty());
  EXPECT_EQ(OlvStandinBreakLock(session.instance(), "Sample/Basic/Basic"), standin::kNoSuchLock);

  const HCTX anna = session.login("anna");
  ASSERT_EQ(lock(anna), kStatusOk);
  std::promise<void> gate;
  ASSERT_EQ(start(context, [&] { return gate.get_future().wait(), 0; }), kStatusOk);
  const std::vector<Listed> all = listed_locks(session.instance());
  ASSERT_EQ(all.size(), 2u);
  EXPECT_EQ(all[0].object, "Sample/Basic/Basic");
  EXPECT_EQ(all[0].user, "anna");
  EXPECT_EQ(all[0].process, static_cast<uint64_t>(getpid()));
  EXPECT_EQ(all[1].object, "Sample/Basic");
  EXPECT_EQ(all[1].user, "admin");

  EXPECT_EQ(OlvStandinBreakLock(session.instance(), "Sample/Basic/Basic"), kStatusOk);
  EXPECT_EQ(OlvStandinBreakLock(session.instance(), "Sample/Basic"), kStatusOk);
  EXPECT_TRUE(listed_locks(session.instance()).empty());
  EXPECT_EQ(unlock(anna), TestStore::lost_status());
  EXPECT_EQ(lock(context), kStatusOk);
  gate.set_value();
  EXPECT_EQ(wait_for_process(context), kStatusOk);
}

TEST(Locks, HoldForOtherProcessesUntilTheirHolderDies) {
  const TestStore store;
  Peer peer([&](const Peer::Pause& pause) {
    const Session session(store.address());
    const HCTX context = session.login_with_database();
    pause(lock(context));
    pause(unlock(context));
    pause(lock(context));
  });
  EXPECT_EQ(peer.wait(), kStatusOk);
  const Session session(store.address());
  const HCTX context = session.login();
  EXPECT_EQ(lock(context), standin::kObjectLocked);
  EXPECT_EQ(lock_indicator(context), 1);
  EXPECT_EQ(unlock(context), standin::kNotLocked);
  peer.go_on();
  EXPECT_EQ(peer.wait(), kStatusOk);
  EXPECT_EQ(lock(context), kStatusOk);
  EXPECT_EQ(unlock(context), kStatusOk);
  peer.go_on();
  EXPECT_EQ(peer.wait(), kStatusOk);
  EXPECT_EQ(lock(context), standin::kObjectLocked);

  peer.kill();
  EXPECT_EQ(lock_indicator(context), -1);  // while its zombie is there still
  peer.reap();
  EXPECT_EQ(lock(context), kStatusOk);
}

// Each process counts up a number in a file under the lock; a lock that lets two in loses counts.
TEST(Locks, ExcludeProcessesThatCompete) {
  const TestStore store;
  const TempFolder folder;
  constexpr int kRounds = 40;
  const auto counter = folder / "counter";
  write_file(counter, "0");
  std::vector<std::unique_ptr<Peer>> peers;
  for (int i = 0; i < 3; ++i) {
    peers.push_back(std::make_unique<Peer>([&](const Peer::Pause& pause) {
      const Session session(store.address());
      const HCTX context = session.login_with_database();
      for (int round = 0; round < kRounds; ++round) {
        int status = 0;
        while ((status = lock(context)) == standin::kObjectLocked) std::this_thread::yield();
        if (status != kStatusOk) pause(status);
        const int number = std::stoi(read_file(counter));
        std::this_thread::yield();
        write_file(counter, std::to_string(number + 1));
        if ((status = unlock(context)) != kStatusOk) pause(status);
      }
      pause(0);
    }));
  }
  for (const auto& peer : peers) EXPECT_EQ(peer->wait(), 0);
  EXPECT_EQ(read_file(counter), std::to_string(3 * kRounds));
}

TEST(Processes, AreReportedUntilTheyAreOver) {
  const TestStore store;
  const Session session(store.address());
  const HCTX context = session.login_with_database();
  const HCTX other = session.login_with_database();
  const HCTX idle = session.login();
  EXPECT_EQ(start(idle, [] { return 0; }), standin::kNoActiveDatabase);
  EXPECT_EQ(start(session.local_context(), [] { return 0; }), standin::kBadContext);

  ProcessStateRecord state{};
  EXPECT_EQ(OlvGetProcessState(context, &state), kStatusOk);
  EXPECT_EQ(state.state, 0);

  std::promise<void> gate;
  std::atomic<bool> done{false};
  const auto work = [&] {
    gate.get_future().wait();
    done = true;
    return 0;
  };
  ASSERT_EQ(start(context, work), kStatusOk);
  EXPECT_EQ(OlvGetProcessState(context, &state), kStatusOk);
  EXPECT_NE(state.state, 0);
  EXPECT_EQ(OlvGetProcessState(other, &state), kStatusOk);
  EXPECT_EQ(state.state, 0);  // not this context's
  EXPECT_EQ(start(context, [] { return 0; }), standin::kProcessRunning);
  EXPECT_EQ(start(other, [] { return 0; }), standin::kProcessRunning);  // the same database

  gate.set_value();
  EXPECT_EQ(wait_for_process(context), kStatusOk);
  EXPECT_TRUE(done);
  EXPECT_EQ(start(other, [] { return static_cast<int>(standin::kNoSpace); }), kStatusOk);
  EXPECT_EQ(wait_for_process(other), standin::kNoSpace);
  EXPECT_EQ(start(other, []() -> int { throw std::bad_alloc(); }), kStatusOk);
  EXPECT_EQ(wait_for_process(other), standin::kNoMemory);
}

TEST(Processes, AreFinishedBeforeTheirContextEnds) {
  const TestStore store;
  std::atomic<bool> done{false};
  {
    const Session session(store.address());
    const HCTX context = session.login_with_database();
    const auto work = [&] {
      std::this_thread::sleep_for(std::chrono::milliseconds(30));
      done = true;
      return 0;
    };
    ASSERT_EQ(start(context, work), kStatusOk);
  }
  EXPECT_TRUE(done);
}

TEST(Processes, OfOtherProcessesCountUntilTheyDie) {
  const TestStore store;
  Peer peer([&](const Peer::Pause& pause) {
    const Session session(store.address());
    const HCTX context = session.login_with_database();
    std::promise<void> never;
    pause(start(context, [&] {
      never.get_future().wait();
      return 0;
    }));
  });
  EXPECT_EQ(peer.wait(), kStatusOk);
  const Session session(store.address());
  const HCTX context = session.login_with_database();
  EXPECT_EQ(start(context, [] { return 0; }), standin::kProcessRunning);
  peer.kill();
  peer.reap();
  EXPECT_EQ(start(context, [] { return 0; }), kStatusOk);
  EXPECT_EQ(wait_for_process(context), kStatusOk);
}

}  // namespace
}  // namespace standin_test
