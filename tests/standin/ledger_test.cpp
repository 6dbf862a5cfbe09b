// The ledger: what was handed out comes back once, with the right function, code and count.
#include <gtest/gtest.h>

#include <cstdlib>
#include <thread>
#include <vector>

#include "standin/client.h"
#include "tests/standin/store_folder.h"

namespace standin_test {
namespace {

using standin::BlockKind;
using standin::hand_out;
using standin::take_back;

// Misuse is counted and survived while this lives, whatever the tests' environment says.
class Lenient {
 public:
  Lenient() {
    if (const char* value = getenv("OLV_STANDIN_STRICT")) before_ = value;
    setenv("OLV_STANDIN_STRICT", "0", 1);
  }
  ~Lenient() { setenv("OLV_STANDIN_STRICT", before_.c_str(), 1); }

 private:
  std::string before_ = "0";
};

TEST(Ledger, BlocksComeZeroedAndGoBack) {
  const OlvStandinLedgerCounts before = ledger();
  auto* bytes = static_cast<char*>(hand_out(BlockKind::kPlain, 100));
  ASSERT_NE(bytes, nullptr);
  EXPECT_EQ(std::string(bytes, 100), std::string(100, '\0'));
  void* nothing = hand_out(BlockKind::kMembers, 0, 0);
  ASSERT_NE(nothing, nullptr);
  void* record = hand_out(BlockKind::kStructure, 556, 1, 65);
  EXPECT_EQ(ledger().outstanding, before.outstanding + 3);
  EXPECT_EQ(take_back(BlockKind::kMembers, nothing, 0), kStatusOk);
  EXPECT_EQ(OlvFree(0, bytes), kStatusOk);
  EXPECT_EQ(OlvFree(0, record), kStatusOk);  // a structure goes back either way
  EXPECT_EQ(take_back(BlockKind::kStructure, nullptr, 7, 7), kStatusOk);
  const OlvStandinLedgerCounts after = ledger();
  EXPECT_EQ(after.outstanding, before.outstanding);
  EXPECT_EQ(after.handedOut, before.handedOut + 3);
  EXPECT_EQ(after.givenBack, before.givenBack + 3);
  EXPECT_EQ(after.wrongReleases, before.wrongReleases);
}

TEST(Ledger, WrongReleasesAreCountedAndHarmless) {
  const Lenient lenient;
  const OlvStandinLedgerCounts before = ledger();
  int on_stack = 0;
  void* members = hand_out(BlockKind::kMembers, 12, 3);
  void* record = hand_out(BlockKind::kStructure, 556, 1, 65);
  void* text = standin::hand_out_text("text");
  EXPECT_EQ(take_back(BlockKind::kMembers, members, 2), standin::kBlockWrongRelease);
  EXPECT_EQ(OlvFree(0, members), standin::kBlockWrongRelease);
  EXPECT_EQ(take_back(BlockKind::kStructure, record, 1, 92), standin::kBlockWrongRelease);
  EXPECT_EQ(take_back(BlockKind::kStructure, record, 2, 65), standin::kBlockWrongRelease);
  EXPECT_EQ(take_back(BlockKind::kStructure, text, 1, 65), standin::kBlockWrongRelease);
  EXPECT_EQ(OlvFree(0, &on_stack), standin::kBlockUnknown);
  EXPECT_EQ(OlvFree(0, static_cast<char*>(text) + 1), standin::kBlockUnknown);
  EXPECT_EQ(OlvFree(12345, text), standin::kBadInstance);
  EXPECT_EQ(ledger().wrongReleases, before.wrongReleases + 8);
  EXPECT_EQ(ledger().outstanding, before.outstanding + 3);  // none of them was released

  EXPECT_EQ(take_back(BlockKind::kMembers, members, 3), kStatusOk);
  EXPECT_EQ(take_back(BlockKind::kStructure, record, 1, 65), kStatusOk);
  EXPECT_EQ(OlvFree(0, text), kStatusOk);
  EXPECT_EQ(OlvFree(0, text), standin::kBlockUnknown);
  EXPECT_EQ(ledger().outstanding, before.outstanding);
}

TEST(LedgerDeathTest, StrictModeEndsTheProcess) {
  EXPECT_DEATH(
      {
        setenv("OLV_STANDIN_STRICT", "1", 1);
        take_back(BlockKind::kMembers, hand_out(BlockKind::kStructure, 556, 1, 65), 3);
      },
      "OlvOtlFreeMembers, count 3, code 0; it belongs to OlvOtlFreeStructure, count 1, code 65");
}

TEST(LedgerDeathTest, StrictModeReportsWhatStaysOut) {
  EXPECT_EXIT(
      {
        setenv("OLV_STANDIN_STRICT", "1", 1);
        const TempFolder folder;
        INST instance = 0;
        OlvStandinInitialize(folder.string().c_str(), &instance);
        hand_out(BlockKind::kPlain, 1);
        OlvStandinTerminate(instance);
        _exit(0);
      },
      testing::ExitedWithCode(0), "blocks were not given back");
}

TEST(Ledger, CountsForThreadsAtOnce) {
  const OlvStandinLedgerCounts before = ledger();
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([] {
      std::vector<void*> blocks;
      for (int round = 0; round < 20000; ++round) {
        blocks.push_back(hand_out(BlockKind::kStructure, 8, 1, 65));
        if (blocks.size() < 50) continue;
        for (void* block : blocks) ASSERT_EQ(take_back(BlockKind::kStructure, block, 1, 65), 0);
        blocks.clear();
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(ledger().handedOut, before.handedOut + 80000);
  EXPECT_EQ(ledger().outstanding, before.outstanding);
  EXPECT_EQ(ledger().wrongReleases, before.wrongReleases);
}

}  // namespace
}  // namespace standin_test
