// Sizes at which a walk that recurses or a step that isn't constant would show.
#include <pthread.h>

#include <functional>

#include "tests/standin/outline_fixture.h"

using namespace standin_test;

namespace {

constexpr int kDeep = 100000;

// Runs `work` on a thread with the smallest stack that a Java thread has.
void run_on_small_stack(std::function<void()> work) {
  pthread_attr_t attributes;
  ASSERT_EQ(pthread_attr_init(&attributes), 0);
  ASSERT_EQ(pthread_attr_setstacksize(&attributes, 256 * 1024), 0);
  pthread_t thread{};
  const auto start = [](void* work_of) -> void* {
    (*static_cast<std::function<void()>*>(work_of))();
    return nullptr;
  };
  ASSERT_EQ(pthread_create(&thread, &attributes, start, &work), 0);
  ASSERT_EQ(pthread_join(thread, nullptr), 0);
  pthread_attr_destroy(&attributes);
}

}  // namespace

class Scale : public OutlineTest {
 protected:
  HMember first_child(HMember parent, const std::string& text) {
    const MemberInfoRecord record = blank(text);
    HMember added = 0;
    EXPECT_EQ(OlvOtlAddMemberEx(h_, &record, parent, 0, &added, kMemberOption), 0);
    return added;
  }
};

TEST_F(Scale, AChainOf100000OnASmallStack) {
  run_on_small_stack([&] {
    const HMember one = dimension("One");
    const HMember other = dimension("Other");
    HMember top = 0;
    HMember at = one;
    for (int i = 0; i < kDeep; ++i) {
      at = first_child(at, "m" + std::to_string(i));
      if (i == 0) top = at;
    }
    EXPECT_EQ(info(one).level, 32767);
    EXPECT_EQ(info(at).generation, 32767);
    EXPECT_EQ(info(other).level, 0);
    EXPECT_EQ(OlvOtlMoveMember(h_, top, other, 0), 0);
    EXPECT_EQ(info(one).level, 0);
    EXPECT_EQ(info(other).level, 32767);
    EXPECT_STREQ(info(at).dimensionName, "Other");
    EXPECT_EQ(OlvOtlMoveMember(h_, top, at, 0), standin::kMoveBelowItself);
    EXPECT_EQ(query(kQuerySearch, 0, kQueryOptionNames, "Other", "m9999?").total, 10U);
    EXPECT_EQ(query(kQueryTimeSeriesMembers, 0, 0, "Other", "lev0,Other").members, Handles{at});

    const ObjectDefinitionRecord basic = object();
    EXPECT_EQ(OlvOtlWriteOutline(h_, &basic), 0);
    HOutline read = 0;
    EXPECT_EQ(open_edit(&read), 0);
    std::swap(h_, read);
    EXPECT_EQ(info(find("Other")).level, 32767);
    EXPECT_EQ(remove(find("m0")), 0);
    EXPECT_EQ(info(find("Other")).level, 0);
    EXPECT_EQ(OlvOtlCloseOutline(read), 0);
  });
}

TEST_F(Scale, AMillionMembersReadWhileTheyAreAdded) {
  constexpr uint32_t kGroups = 1000;
  constexpr uint32_t kPerGroup = 999;
  const HMember top = dimension("Top");
  for (uint32_t g = 0; g < kGroups; ++g) {
    const HMember group = first_child(top, "g" + std::to_string(g));
    for (uint32_t i = 0; i < kPerGroup; ++i) {
      first_child(group, "m" + std::to_string(g * kPerGroup + i));
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
