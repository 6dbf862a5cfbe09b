// What export writes, load reads back: on random outlines with every field that the engine keeps.
#include <gtest/gtest.h>

#include <cstring>
#include <random>

#include "command/layer/properties.h"
#include "command/layer/store.h"
#include "command/layer/text.h"
#include "tests/command/process.h"

namespace command_test {
namespace {

using namespace command;

class RandomOutline {
 public:
  RandomOutline(unsigned seed, const Outline& outline) : random_(seed), outline_(outline) {}

  void fill() {
    outline_.set_settings({false,
                           static_cast<int16_t>(below(2)),
                           static_cast<uint8_t>(below(4)),
                           {static_cast<uint8_t>(below(256)), 7}});
    AttributeNaming naming = outline_.attribute_naming();
    naming.delimiter = -3;
    naming.reserved[2] = 9;
    naming.texts[0] = text();
    naming.texts[1].reset();
    outline_.set_attribute_naming(naming);
    outline_.rename_alias_table("Default", "Names, long");
    outline_.create_alias_table("Ж🗾");
    tables_ = outline_.alias_tables();
    add_dimension("Time, all", kCategoryTime);
    add_dimension("Products/Parts", kCategoryNone);
    add_dimension("Colour", kCategoryAttribute);
    for (int i = 0; i < 150; ++i) add_member();
    for (const Member member : members_) give_details(member);
    give_names();
  }

 private:
  int below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }
  bool maybe() { return below(3) == 0; }

  std::string text() {
    static constexpr const char* kPieces[] = {"a", "B", ",", ";",  "\"", " ", "#2",
                                              "/", "ß", "🗾", "\n", "=",  "-", "x"};
    std::string text(1, static_cast<char>('a' + below(26)));
    for (int i = below(9); i > 0; --i) text += kPieces[below(14)];
    return text + "z";
  }

  // Of a million names hardly two are the same.
  std::string name() { return text() + std::to_string(below(1'000'000)); }

  void add_dimension(const char* name, int16_t category) {
    MemberInfoRecord record;
    new_record(&record, true, category == kCategoryAttribute, name);
    record.dimensionCategory = category;
    const Member dimension = outline_.add(record, outline_.root(), outline_.root().last_child());
    dimensions_.push_back(dimension);
    members_.push_back(dimension);
  }

  void add_member() {
    const Member parent = members_[static_cast<size_t>(below(static_cast<int>(members_.size())))];
    if (parent.shared()) return;
    const bool attribute = parent.dimension() == dimensions_[2];
    std::string name = this->name();
    const int kind = attribute ? 9 : below(10);
    const Member other = members_[static_cast<size_t>(below(static_cast<int>(members_.size())))];
    const bool repeated = kind < 2 && other.parent();
    if (repeated) name = other.name();
    MemberInfoRecord record;
    new_record(&record, false, attribute, name);
    if (kind == 0 && repeated) record.shareOption = kShareShared;
    const Member added = outline_.add(record, parent, parent.last_child(), repeated);
    members_.push_back(added);
    if (attribute) colours_.push_back(added);
  }

  void give_details(Member member) {
    MemberInfoRecord record = member.record();
    for (const Property& property : properties()) {
      const std::string name = property.name;
      if (name == "category" || name == "storage" || !maybe()) continue;
      property.set(&record, property.flag != nullptr ? below(256) : below(20) - 5);
    }
    if (maybe()) record.reserved546[9] = static_cast<uint8_t>(below(256));
    if (maybe()) std::strcpy(record.comment, inside(text()).c_str());
    if (maybe()) std::strcpy(record.currencyMember, inside(text()).c_str());
    member.set_record(record);
    if (maybe()) member.set_formula(text() + "\n" + text());
    if (maybe()) member.set_extended_comment(text());
    for (const std::string& table : tables_) {
      if (maybe()) member.set_alias(inside(table).c_str(), text());
    }
    for (int i = below(3); i > 0; --i) member.add_uda(text() + std::to_string(i));
    const Member dimension = member.dimension();
    if (dimension == dimensions_[2] || colours_.empty() || !maybe()) return;
    if (dimension.attributes().empty()) dimension.associate(dimensions_[2]);
    if (member == dimension) return;
    member.associate(colours_[static_cast<size_t>(below(static_cast<int>(colours_.size())))]);
  }

  void give_names() {
    outline_.set_generation(dimensions_[1], 1, text() + "1");
    outline_.set_level(dimensions_[1], 0, text() + "2");
    outline_.enable_series("Y-T-D", 1, true);
    outline_.set_series_alias("Y-T-D", inside(tables_[1]).c_str(), text());
  }

  std::mt19937 random_;
  const Outline& outline_;
  std::vector<std::string> tables_;
  std::vector<Member> dimensions_;
  std::vector<Member> members_;
  std::vector<Member> colours_;
};

class RoundTrip : public testing::TestWithParam<unsigned> {
 protected:
  void make(const std::string& name, unsigned seed) {
    const Store store(run.store(), "tester", true);
    store.create("Demo", name);
    const EditedOutline outline = store.edit("Demo", name);
    RandomOutline(seed, outline).fill();
    outline.save();
  }
  void expect(int code, const std::vector<std::string>& words) {
    const Ended ended = run(words);
    EXPECT_EQ(ended.code, code) << words.front() << ' ' << GetParam() << '\n'
                                << ended.out << ended.err;
  }

  CommandRun run;
};

TEST_P(RoundTrip, OfTheWholeOutlineAndOfItsMembers) {
  make("A", GetParam());
  expect(0, {"export", "Demo", "A", "a.jsonl"});
  expect(0, {"create", "Demo", "B"});
  expect(0, {"load", "Demo", "B", "a.jsonl"});
  expect(0, {"diff", "Demo", "A", "Demo", "B"});
  expect(0, {"export", "Demo", "A", "a.csv"});
  expect(0, {"diff", "Demo", "A", "a.csv"});
  expect(0, {"create", "Demo", "C"});
  expect(0, {"load", "Demo", "C", "a.csv"});
  expect(0, {"diff", "Demo", "C", "a.csv"});
}

TEST_P(RoundTrip, EditsTurnOneIntoAnother) {
  make("A", GetParam());
  make("B", GetParam() + 1000);
  EXPECT_EQ(run.shell("$outline diff Demo A Demo B --as-edits >edits").code, 1);
  expect(0, {"apply", "Demo", "A", "edits"});
  expect(0, {"diff", "Demo", "A", "Demo", "B"});
}

INSTANTIATE_TEST_SUITE_P(Seeds, RoundTrip, testing::Range(1U, 6U));

}  // namespace
}  // namespace command_test
