// Names of generations and levels, and dynamic time series.
#include <algorithm>

#include "tests/standin/outline_fixture.h"

using namespace standin_test;

namespace {

using Numbered = std::vector<std::pair<int, std::string>>;
using Listing = int (*)(HOutline, const char*, uint32_t, uint32_t*, GenLevelNameEntry**);

class NumberedNames : public OutlineTest {
 protected:
  void SetUp() override {
    OutlineTest::SetUp();
    year_ = dimension("Year", kCategoryTime);
    child(child(year_, "Quarter 1"), "Jan");
    dimension("Market");
  }
  Numbered list(Listing listing, const char* dimension, uint32_t option) {
    uint32_t count = 99;
    GenLevelNameEntry* names = nullptr;
    EXPECT_EQ(listing(h_, dimension, option, &count, &names), 0);
    Numbered found;
    for (uint32_t i = 0; i < count; ++i) found.emplace_back(names[i].number, names[i].name);
    EXPECT_EQ(OlvFree(session_->instance(), names), 0);
    return found;
  }
  int status(Listing listing, const char* dimension, uint32_t option) {
    uint32_t count = 0;
    GenLevelNameEntry* names = nullptr;
    return listing(h_, dimension, option, &count, &names);
  }
  HMember year_ = 0;
};

TEST_F(NumberedNames, PlainListsGiveWhatIsNamedExtendedOnesAll) {
  EXPECT_EQ(list(OlvOtlGetGenNames, "Year", kNamesPlain), Numbered{});
  ASSERT_EQ(OlvOtlSetGenName(h_, "Year", 3, "Months"), 0);
  ASSERT_EQ(OlvOtlSetLevelName(h_, "Year", 1, "Branches"), 0);
  EXPECT_EQ(list(OlvOtlGetGenNames, "year", kNamesPlain), (Numbered{{3, "Months"}}));
  EXPECT_EQ(list(OlvOtlGetLevelNames, "Year", kNamesPlain), (Numbered{{1, "Branches"}}));
  EXPECT_EQ(list(OlvOtlGetGenNamesEx, "YEAR", kNamesExtended),
            (Numbered{{1, "Gen1,Year"}, {2, "Gen2,Year"}, {3, "Months"}}));
  EXPECT_EQ(list(OlvOtlGetLevelNamesEx, "Year", kNamesExtended),
            (Numbered{{0, "Lev0,Year"}, {1, "Branches"}, {2, "Lev2,Year"}}));
  EXPECT_EQ(list(OlvOtlGetLevelNamesEx, "Market", kNamesExtended), (Numbered{{0, "Lev0,Market"}}));

  // A generated name that leaves no room is cut behind a whole character, a pair being one.
  std::string pairs;
  while (pairs.size() < 78) pairs += "\xED\xA0\x83\xED\xBC\x93";
  dimension(pairs);
  EXPECT_EQ(list(OlvOtlGetGenNamesEx, pairs.c_str(), kNamesExtended),
            (Numbered{{1, "Gen1," + pairs.substr(0, 72)}}));

  // A name outlives the members that had made its generation.
  ASSERT_EQ(remove(find("Quarter 1")), 0);
  EXPECT_EQ(list(OlvOtlGetGenNamesEx, "Year", kNamesExtended),
            (Numbered{{1, "Gen1,Year"}, {3, "Months"}}));
  EXPECT_EQ(status(OlvOtlGetGenNames, "Jan", kNamesPlain), standin::kNoSuchDimension);
  EXPECT_EQ(status(OlvOtlGetGenNames, nullptr, kNamesPlain), standin::kNoSuchDimension);
  EXPECT_EQ(status(OlvOtlGetGenNames, "Year", 5), standin::kBadArgument);
}

TEST_F(NumberedNames, NamesAreCheckedAndUnique) {
  EXPECT_EQ(OlvOtlSetGenName(h_, "Year", 0, "None"), standin::kNoSuchGeneration);
  EXPECT_EQ(OlvOtlSetGenName(h_, "Year", 4, "Days"), standin::kNoSuchGeneration);
  EXPECT_EQ(OlvOtlSetLevelName(h_, "Year", 3, "Top"), standin::kNoSuchGeneration);
  EXPECT_EQ(OlvOtlSetGenName(h_, "Jan", 1, "x"), standin::kNoSuchDimension);
  EXPECT_EQ(OlvOtlSetGenName(h_, "Year", 1, ""), standin::kEmptyName);
  EXPECT_EQ(OlvOtlSetGenName(h_, "Year", 1, nullptr), standin::kBadArgument);
  const std::string longest(kMaxMemberName, 'x');
  EXPECT_EQ(OlvOtlSetGenName(h_, "Year", 1, (longest + "x").c_str()), standin::kNameTooLong);
  EXPECT_EQ(OlvOtlSetGenName(h_, "Year", 1, longest.c_str()), 0);

  ASSERT_EQ(OlvOtlSetGenName(h_, "Year", 1, "Years"), 0);  // in place of the former name
  EXPECT_EQ(OlvOtlSetGenName(h_, "Year", 2, "YEARS"), kStatusDuplicateName);
  EXPECT_EQ(OlvOtlSetLevelName(h_, "Year", 1, "Years"), kStatusDuplicateName);
  EXPECT_EQ(OlvOtlSetGenName(h_, "Year", 1, "YEARS"), 0);
  EXPECT_EQ(OlvOtlSetGenName(h_, "Market", 1, "Years"), 0);

  EXPECT_EQ(OlvOtlDeleteGenName(h_, "Year", 1), 0);
  EXPECT_EQ(OlvOtlDeleteGenName(h_, "Year", 1), standin::kNoSuchGeneration);
  EXPECT_EQ(OlvOtlDeleteLevelName(h_, "Year", 0), standin::kNoSuchGeneration);
  EXPECT_EQ(list(OlvOtlGetGenNames, "Year", kNamesPlain), Numbered{});
}

TEST_F(NumberedNames, GeneratedNamesFitTheirField) {
  std::string name;
  while (name.size() + 3 <= kMaxMemberName) name += "\xE2\x82\xAC";
  dimension(name);
  const Numbered found = list(OlvOtlGetGenNamesEx, name.c_str(), kNamesExtended);
  ASSERT_EQ(found.size(), 1U);
  const std::string& generated = found[0].second;
  EXPECT_LE(generated.size(), 81U);
  EXPECT_EQ((generated.size() - 5) % 3, 0U) << "half a character at the end of " << generated;
}

class Series : public NumberedNames {
 protected:
  Names enabled() {
    uint16_t count = 99;
    DtsEntry* entries = nullptr;
    EXPECT_EQ(OlvOtlGetEnabledDTSMembers(h_, &count, &entries), 0);
    Names found;
    for (unsigned i = 0; i < count; ++i) {
      found.push_back(entries[i].name + std::string(" ") + std::to_string(entries[i].generation));
    }
    EXPECT_EQ(OlvFree(session_->instance(), entries), 0);
    return found;
  }
  int enable(const char* name, int16_t generation) {
    return OlvOtlEnableDTSMember(h_, name, generation, 1);
  }
  int disable(const char* name) { return OlvOtlEnableDTSMember(h_, name, 0, 0); }
  std::string series_alias(const char* name, const char* table) {
    char* text = nullptr;
    const int status = OlvOtlGetDTSMemberAlias(h_, name, table, &text);
    return taken(status, text);
  }
};

TEST_F(Series, EntriesAreEnabledOnGenerationsOfTheTimeDimension) {
  EXPECT_EQ(enabled(), Names{});
  EXPECT_EQ(enable("Q-T-D", 2), 0);
  EXPECT_EQ(enable("y-t-d", 1), 0);  // reported as it is spelled
  EXPECT_EQ(enabled(), (Names{"Q-T-D 2", "Y-T-D 1"}));
  EXPECT_EQ(enable("Q-T-D", 1), standin::kSeriesEnabled);
  EXPECT_EQ(enable("X-T-D", 1), standin::kNoSuchSeries);
  EXPECT_EQ(enable(nullptr, 1), standin::kBadArgument);
  EXPECT_EQ(enable("M-T-D", 0), standin::kNoSuchGeneration);
  EXPECT_EQ(enable("M-T-D", 4), standin::kNoSuchGeneration);
  EXPECT_EQ(disable("M-T-D"), standin::kSeriesNotEnabled);
  EXPECT_EQ(disable("Q-T-D"), 0);
  EXPECT_EQ(enabled(), Names{"Y-T-D 1"});
  for (const char* name : {"H-T-D", "S-T-D", "P-T-D", "Q-T-D", "M-T-D", "W-T-D", "D-T-D"}) {
    EXPECT_EQ(enable(name, 3), 0) << name;
  }
}

TEST_F(Series, EndWithTheTimeDimension) {
  ASSERT_EQ(enable("Y-T-D", 1), 0);
  ASSERT_EQ(remove(find("Market")), 0);
  EXPECT_EQ(enabled(), Names{"Y-T-D 1"});
  set(year_, &MemberInfoRecord::dimensionCategory, kCategoryNone);
  EXPECT_EQ(enabled(), Names{});
  EXPECT_EQ(enable("Y-T-D", 1), standin::kNotATimeDimension);
  set(year_, &MemberInfoRecord::dimensionCategory, kCategoryTime);
  ASSERT_EQ(enable("Y-T-D", 1), 0);
  ASSERT_EQ(remove(year_), 0);
  EXPECT_EQ(enabled(), Names{});
}

TEST_F(Series, AliasesBelongToTheEntryInEachTable) {
  ASSERT_EQ(OlvOtlCreateAliasTable(h_, "Long"), 0);
  EXPECT_EQ(OlvOtlSetDTSMemberAlias(h_, "Q-T-D", "Long", "quarter"), standin::kSeriesNotEnabled);
  ASSERT_EQ(enable("Q-T-D", 2), 0);
  EXPECT_EQ(series_alias("Q-T-D", "Long"), "(null)");
  EXPECT_EQ(OlvOtlSetDTSMemberAlias(h_, "Q-T-D", "Long", "quarter"), 0);
  EXPECT_EQ(OlvOtlSetDTSMemberAlias(h_, "Q-T-D", nullptr, "default"), 0);
  EXPECT_EQ(series_alias("Q-T-D", "Long"), "quarter");
  EXPECT_EQ(series_alias("Q-T-D", "Default"), "default");
  EXPECT_EQ(OlvOtlSetDTSMemberAlias(h_, "Q-T-D", "none", "x"), standin::kNoSuchAliasTable);
  EXPECT_EQ(OlvOtlSetDTSMemberAlias(h_, "none", "Long", "x"), standin::kNoSuchSeries);
  EXPECT_EQ(OlvOtlSetDTSMemberAlias(h_, "Q-T-D", "Long", ""), standin::kEmptyName);
  EXPECT_EQ(OlvOtlSetDTSMemberAlias(h_, "Q-T-D", "Long", std::string(81, 'x').c_str()),
            standin::kAliasTooLong);

  // Moving the entry to another generation keeps them.
  ASSERT_EQ(disable("Q-T-D"), 0);
  EXPECT_EQ(series_alias("Q-T-D", "Long"), std::to_string(standin::kSeriesNotEnabled));
  ASSERT_EQ(enable("Q-T-D", 3), 0);
  EXPECT_EQ(series_alias("Q-T-D", "Long"), "quarter");
  EXPECT_EQ(OlvOtlDeleteDTSMemberAlias(h_, "Q-T-D", "Long"), 0);
  EXPECT_EQ(series_alias("Q-T-D", "Long"), "(null)");
  EXPECT_EQ(series_alias("Q-T-D", "Default"), "default");
}

}  // namespace
