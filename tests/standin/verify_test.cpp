// Verification: each fault is reported at the member that has it, and nothing else is.
#include "standin/verify_bits.h"

#include <map>

#include "standin/outline/model/codes.h"
#include "tests/standin/outline_fixture.h"

using namespace standin_test;
using namespace standin;

namespace {

using Bits = std::pair<uint32_t, uint32_t>;  // of the error and of the extended portion
using Found = std::map<HMember, Bits>;

class Verify : public OutlineTest {
 protected:
  Found verify(uint32_t expected_global = 0) {
    uint32_t global = 99;
    uint32_t count = 99;
    MemberErrorEntry* errors = nullptr;
    EXPECT_EQ(OlvOtlVerifyOutline(h_, &global, &count, &errors), 0);
    EXPECT_EQ(global, expected_global);
    EXPECT_EQ(errors == nullptr, count == 0);
    Found found;
    for (uint32_t i = 0; i < count; ++i) {
      found[errors[i].member] = {errors[i].errorPortion, errors[i].extendedPortion};
    }
    EXPECT_EQ(found.size(), count);
    EXPECT_EQ(OlvFree(session_->instance(), errors), 0);
    return found;
  }
  void share(HMember member, int16_t option) {
    set(member, &MemberInfoRecord::shareOption, option);
  }
  void set_alias(HMember member, const char* text, const char* table = nullptr) {
    ASSERT_EQ(OlvOtlSetMemberAlias(h_, member, table, text), 0);
  }
};

TEST_F(Verify, AnOutlineWithoutBaseDimensionIsIncomplete) {
  EXPECT_EQ(verify(kGlobalNoDimension), Found{});
  const HMember size = dimension("Size", kCategoryAttribute);
  EXPECT_EQ(verify(kGlobalNoDimension), (Found{{size, {kErrorAttributeUnused, 0}}}));
  const HMember product = dimension("Product");
  ASSERT_EQ(OlvOtlAssociateAttributeDimension(h_, product, size), 0);
  EXPECT_EQ(verify(), Found{});
}

TEST_F(Verify, NamesByThemselves) {
  EXPECT_EQ(name_error_bits("Sales 2024 (net)"), 0U);
  EXPECT_EQ(name_error_bits(""), kErrorNameEmpty);
  EXPECT_EQ(name_error_bits(std::string(81, 'x')), kErrorNameTooLong);
  const HMember year = dimension("Year");
  const HMember blank_name = child(year, "  ");
  const HMember first = child(year, "@Sum");
  const HMember quote = child(year, "12\" pipe");
  EXPECT_EQ(verify(), (Found{{blank_name, {kErrorNameEmpty, 0}},
                             {first, {kErrorNameFirst, 0}},
                             {quote, {kErrorNameCharacter, 0}}}));
}

TEST_F(Verify, RepeatedNames) {
  const HMember product = dimension("Product");
  const HMember one = child(product, "One");
  const HMember two = child(product, "Two");
  const HMember cola = child(one, "Cola");
  const HMember repeated = child(two, "a");
  const HMember beside = child(one, "b");
  ASSERT_EQ(rename(repeated, "COLA"), 0);
  ASSERT_EQ(rename(beside, "cola"), 0);
  EXPECT_EQ(verify(),
            (Found{{repeated, {kErrorNameElsewhere, 0}}, {beside, {kErrorNameSibling, 0}}}));
  share(repeated, kShareShared);
  ASSERT_EQ(remove(beside), 0);
  EXPECT_EQ(verify(), Found{});
  // Without its base, or with the base in another dimension, a shared member stands for nothing.
  ASSERT_EQ(remove(cola), 0);
  EXPECT_EQ(verify(), (Found{{repeated, {kErrorSharedWithoutBase, 0}}}));
  ASSERT_EQ(rename(child(dimension("Market"), "c"), "Cola"), 0);
  EXPECT_EQ(verify(), (Found{{repeated, {kErrorSharedWithoutBase, 0}}}));
}

TEST_F(Verify, CaseThatStopsToMatterMakesNamesCollide) {
  ASSERT_EQ(tell_case(true), 0);
  const HMember year = dimension("Year");
  child(year, "JAN");
  const HMember lower = child(year, "jan");
  ASSERT_EQ(OlvOtlCreateAliasTable(h_, "A"), 0);
  ASSERT_EQ(OlvOtlCreateAliasTable(h_, "a"), 0);
  EXPECT_EQ(verify(), Found{});
  ASSERT_EQ(tell_case(false), 0);
  EXPECT_EQ(verify(kGlobalAliasTables), (Found{{lower, {kErrorNameSibling, 0}}}));
}

TEST_F(Verify, OptionsThatDoNotFit) {
  const HMember product = dimension("Product");
  const HMember heading = child(product, "Heading");
  share(heading, kShareLabelOnly);
  EXPECT_EQ(verify(), (Found{{heading, {kErrorLabelOnlyLevel0, 0}}}));
  const HMember item = child(heading, "Item");
  EXPECT_EQ(verify(), Found{});
  const HMember repeated = child(product, "x");
  ASSERT_EQ(rename(repeated, "Item"), 0);
  share(repeated, kShareShared);
  child(repeated, "Below");
  EXPECT_EQ(verify(), (Found{{repeated, {kErrorSharedWithChildren, 0}}}));
  ASSERT_EQ(remove(repeated), 0);

  const HMember size = dimension("Size", kCategoryAttribute);
  ASSERT_EQ(OlvOtlAssociateAttributeDimension(h_, product, size), 0);
  const HMember small = child(size, "Small");
  ASSERT_EQ(OlvOtlSetMemberFormula(h_, small, "1;"), 0);
  ASSERT_EQ(OlvOtlSetMemberFormula(h_, item, "1;"), 0);
  EXPECT_EQ(verify(), (Found{{small, {kErrorFormulaOnAttribute, 0}}}));
}

TEST_F(Verify, OneDimensionOfAKind) {
  for (const int16_t kind : {kCategoryTime, kCategoryAccounts, kCategoryCountry}) {
    dimension("First " + std::to_string(kind), kind);
  }
  EXPECT_EQ(verify(), Found{});
  const HMember time = dimension("Time 2", kCategoryTime);
  const HMember accounts = dimension("Accounts 2", kCategoryAccounts);
  const HMember country = dimension("Country 2", kCategoryCountry);
  EXPECT_EQ(verify(kGlobalTwoTime | kGlobalTwoAccounts | kGlobalTwoCountry),
            (Found{{time, {kErrorSecondTime, 0}},
                   {accounts, {kErrorSecondAccounts, 0}},
                   {country, {kErrorSecondCountry, 0}}}));
}

TEST_F(Verify, Aliases) {
  const HMember product = dimension("Product");
  const HMember one = child(product, "One");
  const HMember two = child(product, "Two");
  ASSERT_EQ(OlvOtlCreateAliasTable(h_, "Long"), 0);
  set_alias(one, "Same");
  set_alias(two, "Same", "Long");
  set_alias(product, "PRODUCT");  // its own name
  EXPECT_EQ(verify(), Found{});
  set_alias(two, "SAME");
  EXPECT_EQ(verify(), (Found{{one, {0, kExtendedAliasTwice}}, {two, {0, kExtendedAliasTwice}}}));
  set_alias(two, "one");
  EXPECT_EQ(verify(), (Found{{two, {0, kExtendedAliasIsName}}}));
  set_alias(two, "+Two");
  EXPECT_EQ(verify(), (Found{{two, {0, kExtendedAliasFirst}}}));

  const HMember repeated = child(two, "x");
  ASSERT_EQ(rename(repeated, "One"), 0);
  share(repeated, kShareShared);
  set_alias(two, "Second");
  set_alias(repeated, "Same");  // like the member it repeats
  EXPECT_EQ(verify(), Found{});
}

TEST_F(Verify, GenerationsAndSeries) {
  const HMember year = dimension("Year", kCategoryTime);
  const HMember half = child(year, "Half 1");
  child(half, "Jan");
  ASSERT_EQ(OlvOtlSetGenName(h_, "Year", 2, "Halves"), 0);
  ASSERT_EQ(OlvOtlEnableDTSMember(h_, "M-T-D", 3, 1), 0);
  EXPECT_EQ(verify(), Found{});
  ASSERT_EQ(remove(find("Jan")), 0);
  EXPECT_EQ(verify(), (Found{{year, {0, kExtendedSeriesGeneration}}}));
  ASSERT_EQ(OlvOtlEnableDTSMember(h_, "M-T-D", 3, 0), 0);
  ASSERT_EQ(rename(half, "HALVES"), 0);
  EXPECT_EQ(verify(), (Found{{year, {0, kExtendedGenLevelName}}}));
}

TEST_F(Verify, ArgumentsAreChecked) {
  uint32_t word = 0;
  MemberErrorEntry* errors = nullptr;
  EXPECT_EQ(OlvOtlVerifyOutline(h_, nullptr, &word, &errors), kBadArgument);
  EXPECT_EQ(OlvOtlVerifyOutline(h_ + 100, &word, &word, &errors), kBadOutline);
}

}  // namespace
