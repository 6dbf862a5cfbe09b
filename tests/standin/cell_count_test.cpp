// Cell counts of areas, on outlines written through the outline API.
#include "tests/standin/outline_fixture.h"

namespace standin_test {
namespace {

// Has Year (2 halves with 2 quarters each), Measures (no members), Market (3 members, one named
// "a, ""b""") and the attribute dimension Size (2 members).
class CellCount : public OutlineTest {
 protected:
  void SetUp() override {
    OutlineTest::SetUp();
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
    EXPECT_EQ(write(), 0);
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
  EXPECT_EQ(cells("Year, Market, Measures"), 12);
  EXPECT_EQ(cells("Q1,Q4, East"), 2);
  EXPECT_EQ(cells("Q1, H1, Q2, Q3"), 9);  // none counted twice
  EXPECT_EQ(cells("\"Q1\" ,\"a, \"\"b\"\"\""), 1);
  EXPECT_EQ(cells("q1,EAST"), 1);  // the outline does not tell case

  EXPECT_EQ(status("H1,Nowhere"), standin::kMemberNotFound);
  for (const char* area : {"Small", ",", "H1,", ",H1", "H1,,Q3", "\"H1", "\"H1\" Q3", "\"\""}) {
    EXPECT_EQ(status(area), standin::kBadArgument) << area;
  }
}

TEST_F(CellCount, FollowsTheCaseSettingAndWhoHadTheNameFirst) {
  EXPECT_EQ(tell_case(true), 0);
  // West in Market had its name first, although the former Q1 stands before it.
  EXPECT_EQ(rename(find("Q1"), "West"), kStatusOk);
  EXPECT_EQ(write(), 0);
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

  const std::string sound = read_file(file());
  for (const std::string& damaged :
       {std::string(), std::string(8192, 'x'), sound.substr(0, sound.size() / 2)}) {
    write_file(file(), damaged);
    EXPECT_EQ(status("H1"), standin::kDamagedOutline);
  }
  // Damage at any place is told or does not matter: never is the count another one.
  for (size_t at = 0; at < sound.size(); at += 397) {
    std::string damaged = sound;
    damaged[at] = static_cast<char>(~damaged[at]);
    write_file(file(), damaged);
    const int told = OlvPartitionGetAreaCellCount(context_, "H1", &count);
    EXPECT_TRUE(told == standin::kDamagedOutline || (told == 0 && count == 6)) << at;
  }
}

}  // namespace
}  // namespace standin_test
