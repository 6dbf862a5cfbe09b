// Outline information, attribute specifications and whole alias tables.
#include "tests/standin/outline_fixture.h"

using namespace standin_test;

namespace {

class Settings : public OutlineTest {
 protected:
  Names tables() {
    OutlineInfoRecord* info = nullptr;
    EXPECT_EQ(OlvOtlGetOutlineInfo(h_, &info), 0);
    Names found;
    for (unsigned i = 0; i < info->aliasTableCount; ++i) {
      found.emplace_back(alias_table_name(info, i));
    }
    EXPECT_EQ(OlvFree(session_->instance(), info), 0);
    return found;
  }
  int create(const char* table) { return OlvOtlCreateAliasTable(h_, table); }
};

TEST_F(Settings, InformationIsReplacedAsAWhole) {
  const OutlineInfoRecord wanted{7, 0, -2, 0x82, 0, 999};
  ASSERT_EQ(OlvOtlSetOutlineInfoEx(h_, &wanted), 0);
  OutlineInfoRecord* info = nullptr;
  ASSERT_EQ(OlvOtlGetOutlineInfo(h_, &info), 0);
  EXPECT_EQ(info->caseSensitive, 1);
  EXPECT_EQ(info->outlineType, -2);
  EXPECT_EQ(info->configureFlags, 0x82);
  EXPECT_EQ(info->aliasTableCount, 1);
  EXPECT_STREQ(alias_table_name(info, 0), "Default");
  EXPECT_EQ(OlvFree(session_->instance(), info), 0);
  EXPECT_EQ(OlvOtlGetOutlineInfo(h_, nullptr), standin::kBadArgument);
  EXPECT_EQ(OlvOtlSetOutlineInfoEx(h_, nullptr), standin::kBadArgument);
  EXPECT_EQ(OlvOtlSetOutlineInfoEx(h_ + 100, &wanted), standin::kBadOutline);
}

TEST_F(Settings, SpecificationsAreCopiedAndKeepNulls) {
  AttributeSpecRecord* spec = nullptr;
  ASSERT_EQ(OlvOtlGetAttributeSpecifications(h_, &spec), 0);
  EXPECT_STREQ(spec->trueName, "True");
  EXPECT_STREQ(spec->maximumName, "Maximum");
  std::string sum = "Total";
  spec->sumName = sum.c_str();
  spec->averageName = nullptr;
  spec->longNameSource = 300;
  spec->longNameDelimiter = -1;
  spec->dateFormat = -5;
  ASSERT_EQ(OlvOtlSetAttributeSpecifications(h_, spec), 0);
  EXPECT_EQ(OlvFree(session_->instance(), spec), 0);
  sum = "changed";

  ASSERT_EQ(OlvOtlGetAttributeSpecifications(h_, &spec), 0);
  EXPECT_STREQ(spec->sumName, "Total");
  EXPECT_EQ(spec->averageName, nullptr);
  EXPECT_STREQ(spec->countName, "Count");
  EXPECT_EQ(spec->longNameSource, 300);
  EXPECT_EQ(spec->longNameDelimiter, -1);
  EXPECT_EQ(spec->dateFormat, -5);

  // What is refused changes nothing, not even the fields before the refused one.
  const std::string long_name(kMaxMemberName + 1, 'x');
  spec->dateFormat = 1;
  spec->maximumName = long_name.c_str();
  EXPECT_EQ(OlvOtlSetAttributeSpecifications(h_, spec), standin::kNameTooLong);
  spec->maximumName = "";
  EXPECT_EQ(OlvOtlSetAttributeSpecifications(h_, spec), standin::kEmptyName);
  EXPECT_EQ(OlvOtlFreeStructure(h_, 1, kStructureAttributeSpec, spec), 0);
  ASSERT_EQ(OlvOtlGetAttributeSpecifications(h_, &spec), 0);
  EXPECT_EQ(spec->dateFormat, -5);
  EXPECT_EQ(OlvFree(session_->instance(), spec), 0);
}

TEST_F(Settings, AliasTablesHaveNamesOfTheirOwn) {
  EXPECT_EQ(create("Long names"), 0);
  EXPECT_EQ(create("LONG NAMES"), kStatusAliasTableExists);
  EXPECT_EQ(create("default"), kStatusAliasTableExists);
  EXPECT_EQ(create(""), standin::kEmptyName);
  EXPECT_EQ(create(nullptr), standin::kBadArgument);
  const std::string longest(kMaxAliasTableName, 'x');
  EXPECT_EQ(create((longest + "x").c_str()), standin::kAliasTableNameTooLong);
  EXPECT_EQ(create(longest.c_str()), 0);
  EXPECT_EQ(tables(), (Names{"Default", "Long names", longest}));

  EXPECT_EQ(OlvOtlDeleteAliasTable(h_, "Default"), standin::kDefaultAliasTable);
  EXPECT_EQ(OlvOtlDeleteAliasTable(h_, nullptr), standin::kDefaultAliasTable);
  EXPECT_EQ(OlvOtlDeleteAliasTable(h_, "none"), standin::kNoSuchAliasTable);
  EXPECT_EQ(OlvOtlDeleteAliasTable(h_, "Long names"), 0);
  EXPECT_EQ(tables(), (Names{"Default", longest}));
}

TEST_F(Settings, AliasTablesAreRenamedClearedAndCopied) {
  const HMember year = dimension("Year");
  ASSERT_EQ(create("A"), 0);
  ASSERT_EQ(create("B"), 0);
  ASSERT_EQ(OlvOtlSetMemberAlias(h_, year, "A", "Annual"), 0);
  ASSERT_EQ(OlvOtlSetMemberAlias(h_, year, "B", "Period"), 0);

  // The new name comes first.
  EXPECT_EQ(OlvOtlRenameAliasTable(h_, "C", "A"), 0);
  EXPECT_EQ(alias(year, "C"), "Annual");
  EXPECT_EQ(OlvOtlRenameAliasTable(h_, "b", "C"), kStatusAliasTableExists);
  EXPECT_EQ(OlvOtlRenameAliasTable(h_, "c", "C"), 0);  // only its letters change
  EXPECT_EQ(OlvOtlRenameAliasTable(h_, "D", "A"), standin::kNoSuchAliasTable);
  EXPECT_EQ(OlvOtlRenameAliasTable(h_, "", "B"), standin::kEmptyName);
  EXPECT_EQ(tables(), (Names{"Default", "c", "B"}));

  EXPECT_EQ(OlvOtlCopyAliasTable(h_, "New", "B", 0), 0);
  EXPECT_EQ(alias(year, "New"), "Period");
  EXPECT_EQ(OlvOtlCopyAliasTable(h_, "New", "C", 0), kStatusAliasTableExists);
  EXPECT_EQ(alias(year, "New"), "Period");
  EXPECT_EQ(OlvOtlCopyAliasTable(h_, "New", "C", 1), 0);
  EXPECT_EQ(alias(year, "New"), "Annual");
  EXPECT_EQ(OlvOtlCopyAliasTable(h_, "New", "New", 1), 0);
  EXPECT_EQ(alias(year, "New"), "Annual");
  EXPECT_EQ(OlvOtlCopyAliasTable(h_, "X", "none", 1), standin::kNoSuchAliasTable);

  EXPECT_EQ(OlvOtlClearAliasTable(h_, "C"), 0);
  EXPECT_EQ(alias(year, "C"), "(null)");
  EXPECT_EQ(alias(year, "New"), "Annual");  // a copy stands by itself
  EXPECT_EQ(tables(), (Names{"Default", "c", "B", "New"}));
}

}  // namespace
