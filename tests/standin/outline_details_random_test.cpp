// Random changes of what members carry, on an outline large enough for its texts and lists to
// change how they lie in memory, and on a plain model of it.
#include <algorithm>
#include <map>
#include <random>

#include "tests/long_run.h"
#include "tests/standin/outline_fixture.h"

using namespace standin_test;

namespace {

struct Carried {
  std::string formula;
  std::string aliases[2];  // by table
  Names udas;
  HMember colour = 0;
};

}  // namespace

class RandomDetails : public OutlineTest {
 protected:
  static constexpr int kMembers = 3000;
  static constexpr const char* kTables[2] = {nullptr, "Second"};

  void SetUp() override {
    OutlineTest::SetUp();
    random_.seed(1 + long_run_number("KEPOTL_ROUND", 0));
    const HMember product = dimension("Product");
    colour_ = dimension("Colour", kCategoryAttribute);
    ASSERT_EQ(OlvOtlAssociateAttributeDimension(h_, product, colour_), 0);
    for (int i = 0; i < 5; ++i) colours_.push_back(child(colour_, "c" + std::to_string(i)));
    ASSERT_EQ(OlvOtlCreateAliasTable(h_, kTables[1]), 0);
    const HMember group = child(product, "Group");
    for (int i = 0; i < kMembers; ++i) {
      const MemberInfoRecord record = blank("m" + std::to_string(i));
      HMember added = 0;
      ASSERT_EQ(
          OlvOtlAddMemberEx(h_, &record, i % 2 == 0 ? group : product, 0, &added, kMemberOption),
          0);
      members_.push_back(added);
    }
  }

  size_t pick(size_t count) { return random_() % count; }
  std::string any_text() {
    // Some as long as what has memory of its own, or a length in two bytes.
    const size_t sizes[] = {1, 7, 8, 30, 60, 80};
    return std::string(sizes[pick(6)], static_cast<char>('a' + pick(26)));
  }
  HMember any() { return members_[pick(members_.size())]; }

  void step() {
    const HMember id = any();
    Carried& carried = model_[id];
    switch (pick(9)) {
      case 0:
        carried.formula = pick(20) == 0 ? std::string(300 * pick(30), 'f') : any_text();
        ASSERT_EQ(OlvOtlSetMemberFormula(h_, id, carried.formula.c_str()), 0);
        return;
      case 1:
        carried.formula.clear();
        ASSERT_EQ(OlvOtlDeleteMemberFormula(h_, id), 0);
        return;
      case 2:
      case 3:
        return set_alias(id, carried, pick(2));
      case 4:
        return set_uda(id, carried);
      case 5:
        return set_colour(id, carried);
      case 6:
        ASSERT_EQ(rename(id, "r" + std::to_string(renamed_++) + any_text().substr(0, 60)), 0);
        return;
      case 7:
        return;
      default:
        if (pick(20) != 0) return;
        ASSERT_EQ(remove(id), 0);
        model_.erase(id);
        members_.erase(std::find(members_.begin(), members_.end(), id));
    }
  }
  void set_alias(HMember id, Carried& carried, size_t table) {
    std::string& alias = carried.aliases[table];
    if (pick(4) == 0) {
      alias.clear();
      ASSERT_EQ(OlvOtlDeleteMemberAlias(h_, id, kTables[table]), 0);
      return;
    }
    alias = any_text();
    ASSERT_EQ(OlvOtlSetMemberAlias(h_, id, kTables[table], alias.c_str()), 0);
  }
  void set_uda(HMember id, Carried& carried) {
    const std::string uda = "u" + std::to_string(pick(4));
    const auto found = std::find(carried.udas.begin(), carried.udas.end(), uda);
    if (found == carried.udas.end()) {
      carried.udas.push_back(uda);
      ASSERT_EQ(OlvOtlSetUserAttribute(h_, id, uda.c_str()), 0);
    } else {
      carried.udas.erase(found);
      ASSERT_EQ(OlvOtlDeleteUserAttribute(h_, id, uda.c_str()), 0);
    }
  }
  void set_colour(HMember id, Carried& carried) {
    if (carried.colour != 0) {
      ASSERT_EQ(OlvOtlDisassociateAttributeMember(h_, id, carried.colour), 0);
    }
    carried.colour = pick(3) == 0 ? 0 : colours_[pick(colours_.size())];
    if (carried.colour == 0) return;
    ASSERT_EQ(OlvOtlAssociateAttributeMember(h_, id, carried.colour), 0);
  }
  // What touches all members at once.
  void sweep_all() {
    const size_t table = pick(2);
    switch (pick(4)) {
      case 0:
        ASSERT_EQ(OlvOtlClearAliasTable(h_, kTables[table]), 0);
        for (auto& [id, carried] : model_) carried.aliases[table].clear();
        return;
      case 1:
        ASSERT_EQ(
            OlvOtlCopyAliasTable(h_, table == 0 ? "Default" : kTables[1], kTables[1 - table], 1),
            0);
        for (auto& [id, carried] : model_) carried.aliases[table] = carried.aliases[1 - table];
        return;
      case 2: {
        const size_t taken = pick(colours_.size());
        ASSERT_EQ(remove(colours_[taken]), 0);
        for (auto& [id, carried] : model_) {
          if (carried.colour == colours_[taken]) carried.colour = 0;
        }
        colours_[taken] = child(colour_, "n" + std::to_string(renamed_++));
        return;
      }
      default:  // most aliases go, so that few of many members keep one
        for (const HMember id : members_) {
          if (pick(40) == 0) continue;
          model_[id].aliases[table].clear();
          ASSERT_EQ(OlvOtlDeleteMemberAlias(h_, id, kTables[table]), 0);
        }
    }
  }

  void check() {
    for (const HMember id : members_) {
      const Carried& carried = model_[id];
      ASSERT_EQ(formula(id), carried.formula.empty() ? "(null)" : carried.formula);
      for (size_t table = 0; table < 2; ++table) {
        const std::string& expected = carried.aliases[table];
        ASSERT_EQ(alias(id, kTables[table]), expected.empty() ? "(null)" : expected);
      }
      ASSERT_EQ(udas(id), carried.udas);
      uint16_t count = 0;
      HMember* found = nullptr;
      ASSERT_EQ(OlvOtlGetAssociatedAttributes(h_, id, &count, &found), 0);
      ASSERT_EQ(count, carried.colour == 0 ? 0 : 1);
      if (count != 0) {
        EXPECT_EQ(*found, carried.colour);
      }
      EXPECT_EQ(OlvFree(session_->instance(), found), 0);
      ASSERT_EQ(find(name(id)), id);
    }
  }

  std::mt19937 random_;
  HMember colour_ = 0;
  Handles colours_;
  Handles members_;
  std::map<HMember, Carried> model_;
  unsigned renamed_ = 0;
};

TEST_F(RandomDetails, AgreeWithAPlainModel) {
  for (int round = 0; round < 12; ++round) {
    SCOPED_TRACE("round " + std::to_string(round));
    for (int i = 0; i < 5000; ++i) ASSERT_NO_FATAL_FAILURE(step());
    ASSERT_NO_FATAL_FAILURE(check());
    ASSERT_NO_FATAL_FAILURE(sweep_all());
    ASSERT_NO_FATAL_FAILURE(check());
  }
  ASSERT_EQ(write(), 0);
  EXPECT_TRUE(stored() == dump(h_));  // too long to print
}
