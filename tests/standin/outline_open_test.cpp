// Opening, locking, writing and closing outlines, and calls from several threads.
#include <atomic>
#include <thread>

#include "tests/standin/outline_fixture.h"

using namespace standin_test;

class OpenOutlines : public OutlineTest {};

TEST_F(OpenOutlines, QueryModeIsReadOnlyAndWantsAWrittenActiveOutline) {
  HOutline reading = 0;
  EXPECT_EQ(OlvOtlOpenOutlineQuery(context_ + 100, nullptr, &reading), standin::kBadContext);
  EXPECT_EQ(OlvOtlOpenOutlineQuery(context_, nullptr, &reading), standin::kNoActiveDatabase);
  uint16_t access = 0;
  ASSERT_EQ(OlvSetActive(context_, "Sample", "Basic", &access), 0);
  EXPECT_EQ(OlvOtlOpenOutlineQuery(context_, nullptr, &reading), standin::kNoSuchObject);
  EXPECT_EQ(reading, 0U);

  child(dimension("Year"), "Jan");
  const ObjectDefinitionRecord basic = object();
  ASSERT_EQ(OlvOtlWriteOutline(h_, &basic), 0);
  const HMember unsaved = child(find("Year"), "Feb");
  EXPECT_NE(unsaved, 0U);
  ASSERT_EQ(OlvOtlOpenOutlineQuery(context_, nullptr, &reading), 0);
  std::swap(h_, reading);
  EXPECT_EQ(names(children(find("Year"))), Names{"Jan"});
  EXPECT_EQ(try_child(find("Year"), "Mar"), standin::kReadOnly);
  EXPECT_EQ(rename(find("Jan"), "X"), standin::kReadOnly);
  EXPECT_EQ(OlvOtlSetMemberFormula(h_, find("Jan"), "1"), standin::kReadOnly);
  EXPECT_EQ(OlvOtlWriteOutline(h_, &basic), standin::kReadOnly);
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
  const ObjectDefinitionRecord mine = object();
  EXPECT_EQ(OlvOtlWriteOutline(h_, &mine), standin::kNotLocked);

  // A failed open leaves no lock behind.
  write_file(folder_ / "Sample/Basic/Basic.otl", "not an outline");
  EXPECT_EQ(OlvOtlOpenOutline(other, &theirs, 1, 1, &opened), standin::kDamagedOutline);
  EXPECT_EQ(OlvLockObject(context_, 1, "Sample", "Basic", "Basic"), 0);
  EXPECT_EQ(OlvOtlWriteOutline(h_, &mine), 0);
  EXPECT_EQ(OlvOtlOpenOutline(context_, &theirs, 1, 1, &opened), standin::kBadArgument);
  const ObjectDefinitionRecord outside = object("../x");
  EXPECT_EQ(OlvOtlOpenOutline(context_, &outside, 1, 1, &opened), standin::kBadObjectName);
}

TEST_F(OpenOutlines, NothingOfADeletedMemberIsWritten) {
  const HMember market = dimension("Market");
  const HMember colour = dimension("Colour", kCategoryAttribute);
  const HMember east = child(market, "East");
  const HMember red = child(colour, "Red");
  EXPECT_EQ(OlvOtlAssociateAttributeDimension(h_, market, colour), 0);
  EXPECT_EQ(OlvOtlAssociateAttributeMember(h_, east, red), 0);
  EXPECT_EQ(OlvOtlSetMemberAlias(h_, red, nullptr, "Rouge"), 0);
  EXPECT_EQ(OlvOtlSetUserAttribute(h_, red, "Warm"), 0);
  EXPECT_EQ(OlvOtlSetMemberAlias(h_, east, nullptr, "Est"), 0);
  EXPECT_EQ(OlvOtlSetGenName(h_, "Colour", 2, "Colours"), 0);
  EXPECT_EQ(remove(colour), 0);
  const ObjectDefinitionRecord basic = object();
  ASSERT_EQ(OlvOtlWriteOutline(h_, &basic), 0);
  HOutline read = 0;
  ASSERT_EQ(open_edit(&read), 0);
  std::swap(h_, read);
  EXPECT_EQ(names(children(0)), Names{"Market"});
  EXPECT_EQ(alias(find("East")), "Est");
  EXPECT_EQ(info(find("East")).isAttributed, 0);
  EXPECT_EQ(OlvOtlCloseOutline(read), 0);
}

TEST_F(OpenOutlines, LocalObjectsNeedNoLock) {
  dimension("Year");
  const HCTX local = session_->local_context();
  const ObjectDefinitionRecord scratch{local, kObjectTypeOutline, "KEPOTL", "OTLTEMP", "E0"};
  EXPECT_EQ(OlvOtlWriteOutline(h_, &scratch), 0);
  ObjectInfoRecord* written = nullptr;
  ASSERT_EQ(OlvGetObjectInfo(local, 1, "KEPOTL", "OTLTEMP", "E0", &written), 0);
  EXPECT_GT(written->size, 0U);
  EXPECT_EQ(OlvFree(session_->instance(), written), 0);
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
