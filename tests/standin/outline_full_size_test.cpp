// An outline of full size through its whole life: built, written, opened, edited, verified and
// saved again. A long run (tests/soak) sets the size; the time that each work took is printed.
#include <cstdio>
#include <ctime>

#include "tests/long_run.h"
#include "tests/standin/outline_fixture.h"

using namespace standin_test;

class FullSize : public OutlineTest {
 protected:
  // Prints nanoseconds of CPU time per member.
  template <typename Work>
  void timed(const char* what, Work&& work) {
    const std::clock_t before = std::clock();
    work();
    const double seconds = static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC;
    std::printf("%10u members: %-7s %6.0f ns per member\n", count_, what, seconds / count_ * 1e9);
    std::fflush(stdout);
  }

  // Groups of a hundred, every member with one or two aliases and an attribute, every tenth with a
  // formula, every fifth with a UDA.
  void build() {
    const HMember product = dimension("Product");
    const HMember colour = dimension("Colour", kCategoryAttribute);
    ASSERT_EQ(OlvOtlAssociateAttributeDimension(h_, product, colour), 0);
    const HMember red = child(colour, "Red");
    ASSERT_EQ(OlvOtlCreateAliasTable(h_, "Second"), 0);
    HMember group = product;
    char name[32];
    for (unsigned i = 0; i < count_; ++i) {
      std::snprintf(name, sizeof name, "Product %08u", i);
      HMember added = 0;
      const MemberInfoRecord record = blank(name);
      ASSERT_EQ(
          OlvOtlAddMemberEx(h_, &record, i % 100 == 0 ? product : group, 0, &added, kMemberOption),
          0);
      if (i % 100 == 0) group = added;
      std::snprintf(name, sizeof name, "Article number %08u", i);
      ASSERT_EQ(OlvOtlSetMemberAlias(h_, added, nullptr, name), 0);
      if (i % 2 == 0) {
        ASSERT_EQ(OlvOtlSetMemberAlias(h_, added, "Second", name), 0);
      }
      if (i % 10 == 0) {
        ASSERT_EQ(OlvOtlSetMemberFormula(h_, added, "\"Units\" * \"Price\" - \"Rebate\";"), 0);
      }
      if (i % 5 == 0) {
        ASSERT_EQ(OlvOtlSetUserAttribute(h_, added, "Seasonal"), 0);
      }
      ASSERT_EQ(OlvOtlAssociateAttributeMember(h_, added, red), 0);
    }
  }
  // A new name and a new alias for every hundredth member, and every thousandth group gone.
  void edit() {
    const HMember product = find("Product");
    for (const HMember group : children(product)) {
      ASSERT_EQ(rename(group, "New " + name(group)), 0);
      ASSERT_EQ(OlvOtlSetMemberAlias(h_, group, nullptr, "a new alias"), 0);
      if (group % 1000 == 0) {
        ASSERT_EQ(remove(group), 0);
      }
    }
    ASSERT_EQ(OlvOtlSortChildren(h_, product, kSortDescending, 0, 0), 0);
  }
  void verify() {
    uint32_t global = 0;
    uint32_t count = 0;
    MemberErrorEntry* errors = nullptr;
    ASSERT_EQ(OlvOtlVerifyOutline(h_, &global, &count, &errors), 0);
    EXPECT_EQ(OlvFree(session_->instance(), errors), 0);
    EXPECT_EQ(global, 0U);
    EXPECT_GE(count, count_ / 101);  // the groups share an alias
  }

  unsigned count_ = long_run_number("KEPOTL_FULL_SIZE", 20'000);
};

TEST_F(FullSize, IsBuiltWrittenOpenedEditedVerifiedAndSaved) {
  timed("build", [&] { build(); });
  timed("write", [&] { ASSERT_EQ(write(), 0); });
  ASSERT_EQ(OlvOtlCloseOutline(h_), 0);
  timed("open", [&] { ASSERT_EQ(open_edit(&h_), 0); });
  timed("edit", [&] { edit(); });
  timed("verify", [&] { verify(); });
  timed("save", [&] { ASSERT_EQ(write(), 0); });
  const Answer all = query(kQuerySearch, 0, kQueryOptionNames, nullptr, "*", nullptr, 0, 1);
  ASSERT_EQ(OlvOtlCloseOutline(h_), 0);
  ASSERT_EQ(open_edit(&h_), 0);
  EXPECT_EQ(query(kQuerySearch, 0, kQueryOptionNames, nullptr, "*", nullptr, 0, 1).total,
            all.total);
}
