// A size at which a step that isn't constant would show.
#include <algorithm>

#include "tests/standin/outline_fixture.h"

using namespace standin_test;

using Scale = OutlineTest;

TEST_F(Scale, AMillionMembersReadWhileTheyAreAdded) {
  constexpr uint32_t kGroups = 1000;
  constexpr uint32_t kPerGroup = 999;
  const HMember top = dimension("Top");
  const auto add_first = [&](HMember parent, const std::string& text) {
    const MemberInfoRecord record = blank(text);
    HMember added = 0;
    EXPECT_EQ(OlvOtlAddMemberEx(h_, &record, parent, 0, &added, kMemberOption), 0);
    return added;
  };
  for (uint32_t g = 0; g < kGroups; ++g) {
    const HMember group = add_first(top, "g" + std::to_string(g));
    for (uint32_t i = 0; i < kPerGroup; ++i) {
      add_first(group, "m" + std::to_string(g * kPerGroup + i));
      // As adding through the editor does: the dimension's record is read every time.
      ASSERT_EQ(info(top).level, 2);
    }
  }
  EXPECT_EQ(info(top).childCount, kGroups);
  EXPECT_EQ(query(kQuerySearch, 0, kQueryOptionNames, nullptr, "*").total,
            1 + kGroups * (kPerGroup + 1));
  EXPECT_EQ(info(find("M998999")).generation, 3);
  // Many members of one name, and taking the name from the first each time.
  const Handles groups = children(top);
  for (const HMember group : groups) ASSERT_EQ(rename(group, "m0"), 0);
  for (const HMember group : groups) ASSERT_EQ(remove(group), 0);
  EXPECT_EQ(info(top).level, 0);
  EXPECT_EQ(query(kQueryChildren, top).total, 0U);
}

TEST_F(Scale, AChainReadWhileItGrows) {
  constexpr int kDepth = 100'000;
  constexpr int kHighestLevel = 32'767;  // that a record can tell
  const HMember top = dimension("Top");
  HMember last = top;
  for (int depth = 1; depth <= kDepth; ++depth) {
    last = child(last, "m" + std::to_string(depth));
    ASSERT_EQ(info(top).level, std::min(depth, kHighestLevel));
  }
  EXPECT_EQ(remove(find("m20000")), 0);
  EXPECT_EQ(info(top).level, 19'999);
}
