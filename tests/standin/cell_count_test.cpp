// Cell counts of areas, on outlines written through the outline API.
#include "tests/standin/outline_fixture.h"

namespace standin_test {
namespace {

// Has Year (2 halves with 2 quarters each), Measures (no members), Market (3 members, one named
// "a, ""b""") and the attribute dimension Size (2 members) in the active database.
class CellCount : public OutlineTest {
 protected:
  void SetUp() override {
    OutlineTest::SetUp();
    uint16_t access = 0;
    ASSERT_EQ(OlvSetActive(context_, "Sample", "Basic", &access), kStatusOk);
    const HMember year = dimension("Year");
    dimension("Measures");
    const HMember market = dimension("Market");
    const HMember size = dimension("Size", kCategoryAttribute);
    const HMember first_half = child(year, "H1");
    const HMember second_half = child(year, "H2");
    for (const char* quarter : {"Q1", "Q2"}) child(first_half, quarter);
    for (const char* quarter : {"Q3", "Q4"}) child(second_half, quarter);
    for (const char* name : {"East", "West", "a, \"b\""}) child(market, name);
    for (const char* name : {"Small", "Large"}) child(size, name);
    save();
  }

  void save() {
    const ObjectDefinitionRecord basic = object();
    EXPECT_EQ(OlvOtlWriteOutline(h_, &basic), kStatusOk);
  }

  double cells(const char* area) {
    double count = -1;
    EXPECT_EQ(OlvPartitionGetAreaCellCount(context_, area, &count), kStatusOk) << area;
    return count;
  }

  int status(const char* area) {
    double count = 0;
    return OlvPartitionGetAreaCellCount(context_, area, &count);
  }
};

TEST_F(CellCount, IsTheProductOfTheLevelZeroMembers) {
  EXPECT_EQ(cells(""), 12);
  EXPECT_EQ(cells("  "), 12);
  EXPECT_EQ(cells("H1"), 6);
  EXPECT_EQ(cells("Year, Market, Measures"), 12);
  EXPECT_EQ(cells("Q1,Q4, East"), 2);
  EXPECT_EQ(cells("Q1, H1, Q2, Q3"), 9);  // none counted twice
  EXPECT_EQ(cells("H1,H1"), 6);
  EXPECT_EQ(cells("\"Q1\" ,\"a, \"\"b\"\"\""), 1);
  EXPECT_EQ(cells("q1,EAST"), 1);  // the outline does not tell case
}

TEST_F(CellCount, RefusesAreasThatMeanNothing) {
  EXPECT_EQ(status("Nowhere"), standin::kMemberNotFound);
  EXPECT_EQ(status("H1,Nowhere"), standin::kMemberNotFound);
  EXPECT_EQ(status("Small"), standin::kBadArgument);
  for (const char* area : {",", "H1,", ",H1", "H1,,Q3", "\"H1", "\"H1\" Q3", "\"\""}) {
    EXPECT_EQ(status(area), standin::kBadArgument) << area;
  }
}

TEST_F(CellCount, FollowsTheCaseSettingAndWhoHadTheNameFirst) {
  OutlineInfoRecord* info = nullptr;
  ASSERT_EQ(OlvOtlGetOutlineInfo(h_, &info), kStatusOk);
  info->caseSensitive = 1;
  EXPECT_EQ(OlvOtlSetOutlineInfoEx(h_, info), kStatusOk);
  EXPECT_EQ(OlvFree(session_->instance(), info), kStatusOk);
  // West in Market had its name first, although the former Q1 stands before it.
  EXPECT_EQ(rename(find("Q1"), "West"), kStatusOk);
  save();
  EXPECT_EQ(status("q2"), standin::kMemberNotFound);
  EXPECT_EQ(cells("West"), 4);
}

TEST_F(CellCount, NeedsAnActiveDatabaseWithASoundOutline) {
  const HCTX other = session_->login();
  double count = 0;
  EXPECT_EQ(OlvPartitionGetAreaCellCount(other, "", &count), standin::kNoActiveDatabase);
  uint16_t access = 0;
  EXPECT_EQ(OlvStandinCreateDatabase(other, "Sample", "Empty"), kStatusOk);
  EXPECT_EQ(OlvSetActive(other, "Sample", "Empty", &access), kStatusOk);
  EXPECT_EQ(OlvPartitionGetAreaCellCount(other, "", &count), standin::kNoSuchObject);

  const auto file = folder_ / "Sample/Basic/Basic.otl";
  const std::string sound = read_file(file);
  write_file(file, "");
  EXPECT_EQ(status("H1"), standin::kDamagedOutline);
  write_file(file, std::string(8192, 'x'));
  EXPECT_EQ(status("H1"), standin::kDamagedOutline);
  // Damage at any place is told or does not matter, but brings nothing down.
  for (size_t at = 0; at < sound.size(); at += 397) {
    std::string damaged = sound;
    damaged[at] = static_cast<char>(~damaged[at]);
    write_file(file, damaged);
    status("H1");
  }
  write_file(file, sound.substr(0, sound.size() / 2));
  EXPECT_EQ(status("H1"), standin::kDamagedOutline);
}

}  // namespace
}  // namespace standin_test
