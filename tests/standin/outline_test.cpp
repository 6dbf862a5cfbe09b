// Rules of the outline API on names, places, records and details of members.
#include "tests/standin/outline_fixture.h"

using namespace standin_test;

class OutlineRules : public OutlineTest {
 protected:
  void SetUp() override {
    OutlineTest::SetUp();
    year_ = dimension("Year", kCategoryTime);
    q1_ = child(year_, "Q1");
    jan_ = child(q1_, "Jan");
    market_ = dimension("Market");
    east_ = child(market_, "East");
  }
  int add(HMember parent, HMember sibling, HMember* added) {
    const MemberInfoRecord record = blank("New");
    return OlvOtlAddMemberEx(h_, &record, parent, sibling, added, kMemberOption);
  }
  int move(HMember member, HMember parent, HMember previous) {
    return OlvOtlMoveMember(h_, member, parent, previous);
  }

  HMember year_ = 0, q1_ = 0, jan_ = 0, market_ = 0, east_ = 0;
};

TEST_F(OutlineRules, APlaceIsAParentOrASiblingOfIt) {
  HMember added = 0;
  EXPECT_EQ(add(0, q1_, &added), 0);
  EXPECT_EQ(children(year_), (Handles{q1_, added}));
  EXPECT_EQ(add(0, 0, &added), standin::kBadPosition);
  EXPECT_EQ(add(0, year_, &added), standin::kBadPosition);
  EXPECT_EQ(add(market_, q1_, &added), standin::kBadPosition);
  EXPECT_EQ(add(9999, 0, &added), standin::kBadMember);
  const MemberInfoRecord product = blank("Product");
  EXPECT_EQ(OlvOtlAddDimension(h_, &product, q1_, 0, &added), standin::kBadPosition);

  EXPECT_EQ(move(jan_, 0, east_), 0);
  EXPECT_EQ(children(market_), (Handles{east_, jan_}));
  EXPECT_EQ(move(jan_, 0, jan_), 0);
  EXPECT_EQ(children(market_), (Handles{east_, jan_}));
  EXPECT_EQ(move(year_, q1_, 0), standin::kMoveBelowItself);
  EXPECT_EQ(move(q1_, q1_, 0), standin::kMoveBelowItself);
  EXPECT_EQ(move(market_, year_, 0), standin::kBadPosition);
  EXPECT_EQ(move(q1_, 0, 0), standin::kBadPosition);
  EXPECT_EQ(move(q1_, 0, year_), standin::kBadPosition);
  EXPECT_EQ(move(q1_, year_, east_), standin::kBadPosition);
  EXPECT_EQ(move(q1_, 4711, 0), standin::kBadMember);
}

TEST_F(OutlineRules, NamesInUseAndBadNamesAreRefused) {
  EXPECT_EQ(try_child(market_, "jAN"), kStatusDuplicateName);
  const MemberInfoRecord taken = blank("east");
  HMember added = 0;
  EXPECT_EQ(OlvOtlAddDimension(h_, &taken, 0, 0, &added), kStatusDuplicateName);
  EXPECT_EQ(try_child(market_, ""), standin::kEmptyName);
  EXPECT_EQ(try_child(market_, std::string(81, 'x')), standin::kNameTooLong);
  EXPECT_EQ(rename(east_, std::string(81, 'x')), standin::kNameTooLong);
  EXPECT_EQ(rename(east_, ""), standin::kEmptyName);
  EXPECT_EQ(rename(east_, std::string(80, 'x')), 0);
  EXPECT_EQ(find(std::string(80, 'X')), east_);
  EXPECT_EQ(children(market_), Handles{east_});
}

TEST_F(OutlineRules, NamesAreSharedAndKeptWhateverTheirCase) {
  const HMember other = child(market_, "Other");
  EXPECT_EQ(rename(other, "Jan"), 0);
  EXPECT_EQ(rename(east_, "JAN"), 0);
  EXPECT_EQ(remove(jan_), 0);
  EXPECT_EQ(rename(other, "jAn"), 0);  // the same name in another case keeps its place
  EXPECT_EQ(find("jan"), other);

  EXPECT_EQ(rename(east_, "year"), kStatusDuplicateName);
  EXPECT_EQ(rename(market_, "MARKET"), 0);
  EXPECT_STREQ(info(east_).dimensionName, "MARKET");
}

TEST_F(OutlineRules, TheCaseSettingDecidesWhichNamesAreEqual) {
  const auto holders = [&](const char* text) {
    return query(kQueryNamedMember, 0, kQueryOptionNames, nullptr, text).members;
  };
  EXPECT_EQ(tell_case(true), 0);
  EXPECT_EQ(find("JAN"), 0U);
  const HMember loud = child(q1_, "JAN");
  const HMember quiet = child(market_, "jan");
  EXPECT_EQ(rename(east_, "Jan"), 0);
  EXPECT_EQ(holders("Jan"), (Handles{jan_, east_}));
  EXPECT_EQ(query(kQuerySearch, 0, kQueryOptionNames, nullptr, "J*").members,
            (Handles{jan_, loud, east_}));
  EXPECT_EQ(tell_case(false), 0);
  EXPECT_EQ(holders("jaN"), (Handles{jan_, east_, loud, quiet}));
  EXPECT_EQ(try_child(market_, "JaN"), kStatusDuplicateName);
  EXPECT_EQ(tell_case(true), 0);
  EXPECT_EQ(holders("Jan"), (Handles{jan_, east_}));
  EXPECT_EQ(holders("JAN"), Handles{loud});
  EXPECT_EQ(try_child(market_, "JaN"), 0);
}

TEST_F(OutlineRules, SortingFoldsCaseAndIsStable) {
  for (const char* text : {"b", "C", "a", "_", "\xC3\x84"}) child(east_, text);
  const HMember second_a = child(east_, "x");
  EXPECT_EQ(rename(second_a, "A"), 0);
  EXPECT_EQ(OlvOtlSortChildren(h_, east_, kSortAscending, 0, 0), 0);
  EXPECT_EQ(names(children(east_)), (Names{"_", "a", "A", "b", "C", "\xC3\x84"}));
  EXPECT_EQ(OlvOtlSortChildren(h_, east_, kSortDescending, 0, 0), 0);
  EXPECT_EQ(names(children(east_)), (Names{"\xC3\x84", "C", "b", "a", "A", "_"}));
  EXPECT_EQ(OlvOtlSortChildren(h_, east_, 2, 0, 0), standin::kBadArgument);
}

TEST_F(OutlineRules, WritingARecordKeepsNamePlaceAndReservedBytes) {
  MemberInfoRecord record = info(q1_);
  std::memset(record.reserved530, 0x11, sizeof record.reserved530);
  std::memset(record.reserved534, 0x22, sizeof record.reserved534);
  std::memset(record.reserved546, 0x33, sizeof record.reserved546);
  record.consolidation = -7;
  record.timeBalanceSkip = 3;
  record.hybridFlag = 1;
  std::strcpy(record.comment, std::string(257, 'c').c_str());
  std::strcpy(record.currencyMember, "USD");
  MemberInfoRecord written = record;
  std::strcpy(written.name, "Changed");
  written.level = 9;
  written.generation = 9;
  written.childCount = 9;
  written.isAttributed = 1;
  std::strcpy(written.dimensionName, "Market");
  EXPECT_EQ(set_info(q1_, written), 0);
  const MemberInfoRecord read = info(q1_);
  EXPECT_EQ(std::memcmp(&read, &record, sizeof read), 0);

  std::memset(written.comment, 'x', sizeof written.comment);
  EXPECT_EQ(set_info(q1_, written), standin::kBadArgument);
  EXPECT_STREQ(info(q1_).comment, record.comment);
}

TEST_F(OutlineRules, FormulasAliasesAndUdasAreRemovedAndChecked) {
  EXPECT_EQ(OlvOtlSetMemberFormula(h_, jan_, "A + B;"), 0);
  EXPECT_EQ(OlvOtlDeleteMemberFormula(h_, jan_), 0);
  EXPECT_EQ(formula(jan_), "(null)");

  EXPECT_EQ(OlvOtlSetMemberAlias(h_, jan_, nullptr, "January"), 0);
  EXPECT_EQ(alias(jan_, "default"), "January");
  EXPECT_EQ(alias(jan_, "French"), std::to_string(standin::kNoSuchAliasTable));
  EXPECT_EQ(OlvOtlSetMemberAlias(h_, jan_, nullptr, std::string(81, 'a').c_str()),
            standin::kAliasTooLong);
  EXPECT_EQ(OlvOtlDeleteMemberAlias(h_, jan_, "Default"), 0);
  EXPECT_EQ(alias(jan_), "(null)");

  for (const char* uda : {"New", "Old"}) EXPECT_EQ(OlvOtlSetUserAttribute(h_, jan_, uda), 0);
  EXPECT_EQ(OlvOtlSetUserAttribute(h_, jan_, "NEW"), standin::kUdaExists);
  EXPECT_EQ(OlvOtlSetUserAttribute(h_, jan_, std::string(81, 'u').c_str()), standin::kUdaTooLong);
  EXPECT_EQ(OlvOtlDeleteUserAttribute(h_, jan_, "new"), 0);
  EXPECT_EQ(OlvOtlDeleteUserAttribute(h_, jan_, "new"), standin::kNoSuchUda);
  EXPECT_EQ(udas(jan_), Names{"Old"});
}

TEST_F(OutlineRules, WhatIsGoneOrNeverWasIsRefused) {
  EXPECT_EQ(remove(q1_), 0);
  HMember other = 0;
  for (const HMember member : {q1_, jan_, HMember{0}, HMember{54321}, ~HMember{0}}) {
    MemberInfoRecord* record = nullptr;
    EXPECT_EQ(OlvOtlGetMemberInfo(h_, member, &record), standin::kBadMember);
    EXPECT_EQ(OlvOtlGetChild(h_, member, &other), standin::kBadMember);
    EXPECT_EQ(remove(member), standin::kBadMember);
    EXPECT_EQ(rename(member, "X"), standin::kBadMember);
    EXPECT_EQ(OlvOtlSetMemberFormula(h_, member, "1"), standin::kBadMember);
  }
  EXPECT_EQ(find("Jan"), 0U);
  const HMember again = child(year_, "Q1");
  EXPECT_NE(again, q1_);

  EXPECT_EQ(OlvOtlGetFirstMember(0, &other), standin::kBadOutline);
  EXPECT_EQ(OlvOtlGetFirstMember(h_, nullptr), standin::kBadArgument);
  EXPECT_EQ(OlvOtlFindMember(h_, nullptr, &other), standin::kBadArgument);
  EXPECT_EQ(OlvOtlGetMemberInfo(h_, year_, nullptr), standin::kBadArgument);
  EXPECT_EQ(OlvOtlSetMemberInfoEx(h_, year_, nullptr, kMemberOption), standin::kBadArgument);
  EXPECT_EQ(OlvOtlAddDimension(h_, nullptr, 0, 0, &other), standin::kBadArgument);
  EXPECT_EQ(OlvOtlRenameMemberEx(h_, year_, nullptr, kMemberOption), standin::kBadArgument);
  EXPECT_EQ(OlvOtlSetMemberAlias(h_, year_, nullptr, nullptr), standin::kBadArgument);
  EXPECT_EQ(OlvOtlGetUserAttributes(h_, year_, nullptr, nullptr), standin::kBadArgument);
  EXPECT_EQ(OlvOtlQueryMembers(h_, 0, nullptr, nullptr, nullptr), standin::kBadArgument);
  EXPECT_EQ(OlvOtlOpenOutline(context_, nullptr, 1, 1, &h_), standin::kBadArgument);
}

class Attributes : public OutlineRules {
 protected:
  void SetUp() override {
    OutlineRules::SetUp();
    colour_ = dimension("Colour", kCategoryAttribute);
    red_ = child(colour_, "Red");
    blue_ = child(colour_, "Blue");
    size_ = dimension("Size", kCategoryAttribute);
    large_ = child(size_, "Large");
  }
  int associate(HMember base, HMember attribute) {
    return OlvOtlAssociateAttributeMember(h_, base, attribute);
  }
  int associate_dimension(HMember base, HMember attribute) {
    return OlvOtlAssociateAttributeDimension(h_, base, attribute);
  }
  bool attributed(HMember member) { return info(member).isAttributed != 0; }

  HMember colour_ = 0, red_ = 0, blue_ = 0, size_ = 0, large_ = 0;
};

TEST_F(Attributes, ADimensionThatIsNoneAnyMoreLosesTheirCodes) {
  MemberInfoRecord record = info(colour_);
  record.storageCategory = kStorageCategoryAttribute;
  record.attributeType = kAttributeTypeDimension;
  ASSERT_EQ(OlvOtlSetMemberInfoEx(h_, colour_, &record, kMemberOption), 0);
  record.dimensionCategory = kCategoryTime;
  ASSERT_EQ(OlvOtlSetMemberInfoEx(h_, colour_, &record, kMemberOption), 0);
  EXPECT_EQ(info(colour_).storageCategory, 0);
  EXPECT_EQ(info(colour_).attributeType, 0);
  EXPECT_EQ(info(size_).dimensionCategory, kCategoryAttribute);
}

TEST_F(Attributes, MembersNeedAssociatedDimensions) {
  EXPECT_EQ(associate(east_, red_), standin::kNotAssociated);
  EXPECT_EQ(associate_dimension(market_, year_), standin::kNotAnAttribute);
  EXPECT_EQ(associate_dimension(size_, colour_), standin::kBadArgument);
  EXPECT_EQ(associate_dimension(market_, red_), standin::kNoSuchDimension);
  EXPECT_EQ(associate_dimension(market_, colour_), 0);
  EXPECT_EQ(associate_dimension(market_, colour_), standin::kAlreadyAssociated);
  EXPECT_EQ(associate_dimension(market_, size_), 0);
  EXPECT_EQ(associations(market_), (Handles{colour_, size_}));
  EXPECT_TRUE(attributed(market_));
  EXPECT_FALSE(attributed(east_));

  EXPECT_EQ(associate(east_, colour_), standin::kNotAnAttribute);
  EXPECT_EQ(associate(east_, jan_), standin::kNotAnAttribute);
  EXPECT_EQ(associate(jan_, red_), standin::kNotAssociated);
  EXPECT_EQ(associate(east_, red_), 0);
  EXPECT_EQ(associate(east_, blue_), standin::kAlreadyAssociated);
  EXPECT_EQ(associate(east_, large_), 0);
  EXPECT_EQ(associations(east_), (Handles{red_, large_}));

  const AttributeQuery asked{1, {}, east_, 5, 9, {}, 7, {}};
  uint32_t count = 0;
  HMember* array = nullptr;
  ASSERT_EQ(OlvOtlQueryAttributes(h_, &asked, &count, &array), 0);
  EXPECT_EQ(Handles(array, array + count), (Handles{red_, large_}));
  EXPECT_EQ(OlvOtlFreeMembers(h_, count, array), 0);
  const AttributeQuery as_dimension{1, {}, east_, 7, 11, {}, 7, {}};
  EXPECT_EQ(OlvOtlQueryAttributes(h_, &as_dimension, &count, &array), standin::kNoSuchDimension);

  EXPECT_EQ(OlvOtlDisassociateAttributeMember(h_, east_, red_), 0);
  EXPECT_EQ(OlvOtlDisassociateAttributeMember(h_, east_, red_), standin::kNotAssociated);
  EXPECT_EQ(OlvOtlDisassociateAttributeDimension(h_, market_, size_), 0);
  EXPECT_EQ(associations(east_), Handles{});
  EXPECT_FALSE(attributed(east_));
  EXPECT_TRUE(attributed(market_));
}

TEST_F(Attributes, AssociationsFollowEveryChange) {
  const HMember west = child(market_, "West");
  const auto set_up = [&] {
    associate_dimension(market_, colour_);
    associate_dimension(market_, size_);
    associate(east_, red_);
    associate(west, blue_);
    associate(east_, large_);
  };
  set_up();
  EXPECT_EQ(OlvOtlMoveMember(h_, west, year_, 0), 0);  // Year has no colours
  EXPECT_EQ(associations(west), Handles{});
  EXPECT_EQ(OlvOtlMoveMember(h_, west, market_, 0), 0);
  set_up();
  EXPECT_EQ(OlvOtlMoveMember(h_, red_, size_, 0), 0);  // now a size, and East has one already
  EXPECT_EQ(associations(east_), Handles{large_});
  EXPECT_EQ(remove(blue_), 0);
  EXPECT_EQ(associations(west), Handles{});

  set(size_, &MemberInfoRecord::dimensionCategory, kCategoryNone);
  EXPECT_EQ(associations(east_), Handles{});
  EXPECT_EQ(associations(market_), Handles{colour_});
  EXPECT_EQ(remove(colour_), 0);
  EXPECT_FALSE(attributed(market_));
}
