// Opening, locking, writing and closing outlines, and calls from several threads.
#include <gmock/gmock.h>

#include <atomic>
#include <thread>

#include "tests/standin/outline_fixture.h"

using namespace standin_test;

class OpenOutlines : public OutlineTest {};

TEST_F(OpenOutlines, QueryModeIsReadOnlyAndWantsAWrittenActiveOutline) {
  HOutline reading = 0;
  EXPECT_EQ(OlvOtlOpenOutlineQuery(context_ + 100, nullptr, &reading), standin::kBadContext);
  EXPECT_EQ(OlvOtlOpenOutlineQuery(session_->login(), nullptr, &reading),
            standin::kNoActiveDatabase);
  EXPECT_EQ(OlvOtlOpenOutlineQuery(context_, nullptr, &reading), standin::kNoSuchObject);
  EXPECT_EQ(reading, 0U);

  child(dimension("Year"), "Jan");
  ASSERT_EQ(write(), 0);
  child(find("Year"), "unsaved");
  ASSERT_EQ(OlvOtlOpenOutlineQuery(context_, nullptr, &reading), 0);
  std::swap(h_, reading);
  const HMember jan = find("Jan");
  EXPECT_EQ(children(find("Year")), Handles{jan});
  const AttributeSpecRecord spec{};
  const int refusals[] = {try_child(find("Year"), "Mar"),
                          rename(jan, "X"),
                          OlvOtlSetMemberFormula(h_, jan, "1"),
                          tell_case(true),
                          OlvOtlSetAttributeSpecifications(h_, &spec),
                          OlvOtlCreateAliasTable(h_, "A"),
                          OlvOtlDeleteAliasTable(h_, "A"),
                          OlvOtlSetGenName(h_, "Year", 1, "Years"),
                          OlvOtlEnableDTSMember(h_, "Y-T-D", 1, 1),
                          write()};
  EXPECT_THAT(refusals, testing::Each(standin::kReadOnly));
  std::swap(h_, reading);
  EXPECT_EQ(OlvOtlCloseOutline(reading), 0);
  EXPECT_EQ(OlvOtlCloseOutline(reading), standin::kBadOutline);
  HMember first = 0;
  EXPECT_EQ(OlvOtlGetFirstMember(reading, &first), standin::kBadOutline);
}

TEST_F(OpenOutlines, TheLockBelongsToTheEditor) {
  const HCTX other = session_->login("other");
  ObjectDefinitionRecord theirs = object();
  theirs.context = other;
  HOutline opened = 0;
  EXPECT_EQ(OlvOtlOpenOutline(other, &theirs, 1, 1, &opened), standin::kObjectLocked);
  EXPECT_EQ(OlvOtlWriteOutline(h_, &theirs), standin::kNotLocked);
  ASSERT_EQ(OlvUnlockObject(context_, 1, "Sample", "Basic", "Basic"), 0);
  EXPECT_EQ(write(), standin::kNotLocked);

  // A failed open leaves no lock behind.
  write_file(file(), "not an outline");
  EXPECT_EQ(OlvOtlOpenOutline(other, &theirs, 1, 1, &opened), standin::kDamagedOutline);
  EXPECT_EQ(OlvLockObject(context_, 1, "Sample", "Basic", "Basic"), 0);
  EXPECT_EQ(write(), 0);
  EXPECT_EQ(OlvOtlOpenOutline(context_, &theirs, 1, 1, &opened), standin::kBadArgument);
  const ObjectDefinitionRecord outside = object("../x");
  EXPECT_EQ(OlvOtlOpenOutline(context_, &outside, 1, 1, &opened), standin::kBadObjectName);
}

TEST_F(OpenOutlines, ThreadsOnOneOutlineAndOnTheirOwn) {
  const HMember shared = dimension("Shared");
  std::atomic<int> failures{0};
  const auto edit = [&](int number) {
    const std::string own_name = "Own" + std::to_string(number);
    const ObjectDefinitionRecord own_object = object(own_name.c_str());
    HOutline own = 0;
    if (OlvOtlOpenOutline(context_, &own_object, 1, 1, &own) != 0) ++failures;
    MemberInfoRecord record = blank("Top");
    HMember top = 0;
    HMember added = 0;
    if (OlvOtlAddDimension(own, &record, 0, 0, &top) != 0) ++failures;
    for (int i = 0; i < 500; ++i) {
      record = blank("m" + std::to_string(number * 1000 + i));
      if (OlvOtlAddMemberEx(own, &record, top, 0, &added, 3) != 0) ++failures;
      if (OlvOtlAddMemberEx(h_, &record, shared, 0, &added, 3) != 0) ++failures;
      if (i % 2 == 0 && OlvOtlDeleteMemberEx(h_, added, 3) != 0) ++failures;
    }
    if (OlvOtlCloseOutline(own) != 0) ++failures;
  };
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) threads.emplace_back(edit, i);
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(failures, 0);
  EXPECT_EQ(children(shared).size(), 1000U);
}
