// Restructuring a stored database, and the currency outline derived from an outline.
#include "standin/outline/model/codes.h"
#include "tests/standin/outline_fixture.h"

using namespace standin_test;

namespace {

class Restructure : public OutlineTest {
 protected:
  uint32_t restructured() {
    uint32_t times = 99;
    EXPECT_EQ(OlvStandinRestructured(context_, "Sample", "Basic", &times), 0);
    return times;
  }
  // The status of starting it, or else of its end.
  int restructure() {
    const int status = OlvOtlRestructure(context_, kRestructureSaveAs);
    return status != 0 ? status : wait_for_process(context_);
  }
};

TEST_F(Restructure, RewritesTheStoredOutlineAndIsCounted) {
  EXPECT_EQ(OlvOtlRestructure(context_ + 100, 1), standin::kBadContext);
  EXPECT_EQ(OlvOtlRestructure(session_->login(), 1), standin::kNoActiveDatabase);
  EXPECT_EQ(OlvOtlRestructure(context_, 1), standin::kNoSuchObject);
  EXPECT_EQ(restructured(), 0U);

  child(child(dimension("Year"), "Half 1"), "Jan");
  ASSERT_EQ(write(), 0);
  const std::string plain = read_file(file());
  EXPECT_EQ(restructure(), 0);
  EXPECT_EQ(restructured(), 1U);
  EXPECT_EQ(stored(), dump(h_));
  EXPECT_NE(read_file(file()), plain);

  // The lock of whoever edits the outline is not in its way, and it takes none itself.
  ASSERT_EQ(OlvUnlockObject(context_, 1, "Sample", "Basic", "Basic"), 0);
  EXPECT_EQ(restructure(), 0);
  EXPECT_EQ(restructured(), 2U);
  EXPECT_EQ(OlvLockObject(context_, 1, "Sample", "Basic", "Basic"), 0);
}

TEST_F(Restructure, NeverBringsAnOlderOutlineBack) {
  const HMember year = dimension("Year");
  for (int i = 0; i < 500; ++i) child(year, "m" + std::to_string(i));
  ASSERT_EQ(write(), 0);
  for (int round = 0; round < 30; ++round) {
    ASSERT_EQ(OlvOtlRestructure(context_, 1), 0);
    ASSERT_EQ(rename(year, "Year " + std::to_string(round)), 0);
    ASSERT_EQ(write(), 0);
    ASSERT_EQ(wait_for_process(context_), 0);
    ASSERT_TRUE(stored() == dump(h_)) << "round " << round;
  }
}

TEST_F(Restructure, OfADamagedOutlineChangesNothing) {
  write_file(file(), "damaged");
  EXPECT_EQ(restructure(), standin::kDamagedOutline);
  EXPECT_EQ(restructured(), 0U);
  EXPECT_EQ(read_file(file()), "damaged");
}

class Currency : public OutlineTest {
 protected:
  void set_currency(HMember member, const char* text) {
    MemberInfoRecord record = info(member);
    std::strcpy(record.currencyMember, text);
    ASSERT_EQ(set_info(member, record), 0);
  }
};

TEST_F(Currency, TakesTimeCategoriesAndCountries) {
  const HMember accounts = dimension("Accounts", kCategoryAccounts);
  const HMember year = dimension("Year", kCategoryTime);
  const HMember country = dimension("Country", standin::kCategoryCountry);
  dimension("Product");
  set_currency(child(accounts, "Sales"), "P&L");
  set_currency(child(accounts, "Cost"), "B/S");
  set_currency(child(accounts, "Tax"), "P&L");
  child(child(year, "Half 1"), "Jan");
  set_currency(child(country, "Belgium"), "Euro");
  ASSERT_EQ(OlvOtlSetMemberAlias(h_, find("Belgium"), nullptr, "Belgien"), 0);
  ASSERT_EQ(OlvOtlSetGenName(h_, "Year", 2, "Halves"), 0);
  ASSERT_EQ(OlvOtlEnableDTSMember(h_, "Y-T-D", 1, 1), 0);
  const std::string base = dump(h_);

  HOutline currency = 0;
  ASSERT_EQ(OlvOtlGenerateCurrencyOutline(h_, &currency), 0);
  EXPECT_EQ(dump(h_), base);
  std::swap(h_, currency);
  EXPECT_EQ(names(children(0)), (Names{"Year", "Country", "Currency Category", "Currency Type"}));
  EXPECT_EQ(names(children(find("Currency Category"))), (Names{"P&L", "B/S"}));
  EXPECT_EQ(name(find("Jan")), "Jan");
  EXPECT_EQ(info(find("Year")).dimensionCategory, kCategoryTime);
  EXPECT_STREQ(info(find("Belgium")).currencyMember, "Euro");
  EXPECT_EQ(alias(find("Belgium")), "Belgien");
  EXPECT_NE(dump(h_).find("Halves"), std::string::npos);
  EXPECT_NE(dump(h_).find("series Y-T-D 1"), std::string::npos);

  // It is an outline like any other: it can be changed and written.
  child(find("Currency Type"), "Actual");
  ASSERT_EQ(write(), 0);
  EXPECT_EQ(stored(), dump(h_));
  std::swap(h_, currency);
  EXPECT_EQ(OlvOtlCloseOutline(currency), 0);
}

TEST_F(Currency, MakesDoWithWhatThereIs) {
  dimension("Product");
  HOutline currency = 0;
  EXPECT_EQ(OlvOtlGenerateCurrencyOutline(h_, &currency), standin::kNoSuchDimension);
  EXPECT_EQ(currency, 0U);
  EXPECT_EQ(OlvOtlGenerateCurrencyOutline(h_, nullptr), standin::kBadArgument);

  // A country dimension whose name is that of the new dimension keeps it.
  dimension("Currency Category", standin::kCategoryCountry);
  ASSERT_EQ(OlvOtlGenerateCurrencyOutline(h_, &currency), 0);
  std::swap(h_, currency);
  EXPECT_EQ(names(children(0)),
            (Names{"Currency Category", "Currency Category 2", "Currency Type"}));
  std::swap(h_, currency);
  EXPECT_EQ(OlvOtlCloseOutline(currency), 0);
}

}  // namespace
