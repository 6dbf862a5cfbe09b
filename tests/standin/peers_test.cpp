// What processes on one store see of each other's saves and restructures, and a restructure beside
// whoever polls it.
#include <sched.h>

#include <ctime>

#include "tests/long_run.h"
#include "tests/standin/editor.h"
#include "tests/standin/peer.h"

using namespace standin_test;

namespace {

using Mode = Editor::Mode;

TEST(Peers, ASavedOutlineOpensElsewhereWhileAThirdReadsOnInTheOldOne) {
  const TestStore store;
  make_outline(store.address());
  Peer holder([&](const Peer::Pause& pause) {
    Editor held(store.address(), Mode::kQuery);
    pause(held.version());
    pause(held.version());
    held.close();
    held.session.end();
  });
  EXPECT_EQ(holder.wait(), 0);
  Peer saver([&](const Peer::Pause& pause) {
    Editor editor(store.address());
    editor.set_version(1);
    pause(editor.write());
    editor.close();
    editor.session.end();
  });
  EXPECT_EQ(saver.wait(), 0);
  {
    Editor opened(store.address(), Mode::kQuery);
    EXPECT_EQ(opened.version(), 1);
    holder.go_on();
    EXPECT_EQ(holder.wait(), 0) << "what was opened for browsing stays as it was";
    opened.close();
  }
  for (Peer* peer : {&holder, &saver}) {
    peer->go_on();
    peer->join();
  }
}

TEST(Peers, AKilledRestructureLeavesTheDatabaseUsableAndUnlocked) {
  constexpr int kRounds = 20;
  const TestStore store;
  make_outline(store.address());
  int cut = 0;
  uint32_t before = 0;
  for (int round = 0; round < kRounds && !testing::Test::HasFailure(); ++round) {
    Peer peer([&](const Peer::Pause& pause) {
      const Editor editor(store.address());
      pause(OlvOtlRestructure(editor.context, kRestructureSaveAs));
    });
    ASSERT_EQ(peer.wait(), 0);
    usleep(static_cast<useconds_t>(round % 10) * 300);
    peer.kill();
    peer.reap();

    Editor editor(store.address());
    EXPECT_EQ(editor.version(), 0);
    uint32_t times = 0;
    EXPECT_EQ(OlvStandinRestructured(editor.context, "Sample", "Basic", &times), 0);
    if (times == before) ++cut;
    EXPECT_EQ(editor.restructure(), 0);
    EXPECT_EQ(OlvStandinRestructured(editor.context, "Sample", "Basic", &before), 0);
    EXPECT_GT(before, times);
    EXPECT_EQ(editor.write(), 0);
    editor.close();
  }
  EXPECT_GT(cut, 0) << "no process was killed in time";
}

double cpu_seconds(clockid_t clock) {
  timespec time{};
  clock_gettime(clock, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

// KEPOTL_MEMBERS sets the size; a million takes some seconds without an emulator.
TEST(Peers, PollingBackToBackLeavesTheOnlyCoreToTheRestructure) {
  const unsigned members = long_run_number("KEPOTL_MEMBERS", 50000);
  const TestStore store;
  Editor editor(store.address());
  const HMember dimension = editor.add(0, "Large");
  for (unsigned i = 0; i < members; ++i) editor.add(dimension, "m" + std::to_string(i));
  ASSERT_EQ(editor.write(), 0);

  cpu_set_t all;
  ASSERT_EQ(sched_getaffinity(0, sizeof all, &all), 0);
  cpu_set_t one;
  CPU_ZERO(&one);
  CPU_SET(sched_getcpu(), &one);
  ASSERT_EQ(sched_setaffinity(0, sizeof one, &one), 0);
  const double whole = cpu_seconds(CLOCK_PROCESS_CPUTIME_ID);
  const double own = cpu_seconds(CLOCK_THREAD_CPUTIME_ID);
  EXPECT_EQ(editor.restructure(), 0);
  const double polling = cpu_seconds(CLOCK_THREAD_CPUTIME_ID) - own;
  const double all_threads = cpu_seconds(CLOCK_PROCESS_CPUTIME_ID) - whole;
  EXPECT_EQ(sched_setaffinity(0, sizeof all, &all), 0);
  EXPECT_LT(polling, all_threads / 5);
  editor.close();
}

}  // namespace
