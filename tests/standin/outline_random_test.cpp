// Random edits on an outline and on a plain model of it, which have to agree at every step.
#include <algorithm>
#include <map>
#include <random>

#include "tests/long_run.h"
#include "tests/standin/outline_fixture.h"

using namespace standin_test;

namespace {

struct Node {
  HMember parent = 0;
  Handles children;
  std::string name;
};

// The model: node 0 is the root. Names are told apart in lower case; holders of a name stand in
// the order in which they took it.
struct Model {
  std::map<HMember, Node> nodes{{0, {}}};
  std::map<std::string, Handles> holders;

  void insert(HMember id, HMember parent, HMember previous) {
    Handles& among = nodes[parent].children;
    auto at = among.begin();
    if (previous != 0) at = std::find(among.begin(), among.end(), previous) + 1;
    among.insert(at, id);
    nodes[id].parent = parent;
  }
  void take_out(HMember id) {
    Handles& among = nodes[nodes[id].parent].children;
    among.erase(std::find(among.begin(), among.end(), id));
  }
  void take_name(HMember id, const std::string& name) {
    nodes[id].name = name;
    holders[name].push_back(id);
  }
  void drop_name(HMember id) {
    Handles& all = holders[nodes[id].name];
    all.erase(std::find(all.begin(), all.end(), id));
  }
  void remove(HMember id) {
    take_out(id);
    Handles doomed{id};
    for (size_t i = 0; i < doomed.size(); ++i) {
      const Handles& below = nodes[doomed[i]].children;
      doomed.insert(doomed.end(), below.begin(), below.end());
    }
    for (const HMember one : doomed) {
      drop_name(one);
      nodes.erase(one);
    }
  }
  bool below(HMember id, HMember top) {
    while (id != top && id != 0) id = nodes[id].parent;
    return id == top;
  }
  bool is_dimension_name(const std::string& name) {
    const Handles& top = nodes[0].children;
    return std::any_of(top.begin(), top.end(), [&](HMember id) { return nodes[id].name == name; });
  }
  int level(HMember id) {
    int highest = -1;
    for (const HMember child : nodes[id].children) highest = std::max(highest, level(child));
    return highest + 1;
  }
};

}  // namespace

class RandomEdits : public OutlineTest {
 protected:
  // An empty outline and model, and the sequence of that number.
  void start(unsigned number) {
    for (const HMember top : children(0)) ASSERT_EQ(OutlineTest::remove(top), 0);
    random_.seed(number);
    model_ = {};
  }
  unsigned pick(size_t count) { return static_cast<unsigned>(random_() % count); }
  HMember any(bool root_too = false) {
    auto at = model_.nodes.begin();
    std::advance(at, root_too ? pick(model_.nodes.size()) : 1 + pick(model_.nodes.size() - 1));
    return at->first;
  }
  // Some child of `parent`, or 0 for the place in front.
  HMember any_child(HMember parent) {
    const Handles& all = model_.nodes[parent].children;
    return pick(3) == 0 || all.empty() ? 0 : all[pick(all.size())];
  }
  std::string any_name() { return "n" + std::to_string(pick(150)); }
  bool in_use(const std::string& name) { return !model_.holders[name].empty(); }

  void add() {
    const HMember parent = pick(20) == 0 || model_.nodes.size() < 3 ? 0 : any();
    const HMember previous = any_child(parent);
    const std::string text = any_name();
    const MemberInfoRecord record = blank(text);
    HMember id = 0;
    const int status = parent == 0
                           ? OlvOtlAddDimension(h_, &record, previous, 0, &id)
                           : OlvOtlAddMemberEx(h_, &record, parent, previous, &id, kMemberOption);
    ASSERT_EQ(status, in_use(text) ? kStatusDuplicateName : 0);
    if (status != 0) return;
    ASSERT_EQ(model_.nodes.count(id), 0U) << "a handle came twice";
    model_.insert(id, parent, previous);
    model_.take_name(id, text);
  }
  void move() {
    const HMember id = any();
    HMember parent = any(true);
    HMember previous = any_child(parent);
    if (previous == id) previous = 0;
    const int status = OlvOtlMoveMember(h_, id, previous == 0 ? parent : 0, previous);
    const bool allowed =
        !model_.below(parent, id) && (parent == 0) == (model_.nodes[id].parent == 0);
    ASSERT_EQ(status == 0, allowed) << status;
    if (!allowed) return;
    model_.take_out(id);
    model_.insert(id, parent, previous);
  }
  void rename() {
    const HMember id = any();
    const std::string text = any_name();
    const bool own = text == model_.nodes[id].name;
    const bool dimension = model_.nodes[id].parent == 0;
    const bool refused = dimension ? in_use(text) && !own : model_.is_dimension_name(text);
    ASSERT_EQ(OutlineTest::rename(id, text), refused ? kStatusDuplicateName : 0);
    if (refused || own) return;
    model_.drop_name(id);
    model_.take_name(id, text);
  }
  void remove() {
    const HMember id = any();
    ASSERT_EQ(OutlineTest::remove(id), 0);
    model_.remove(id);
  }
  void sort() {
    const HMember parent = any(true);
    const bool descending = pick(2) == 0;
    ASSERT_EQ(OlvOtlSortChildren(h_, parent, descending ? kSortDescending : kSortAscending, 0, 0),
              0);
    Handles& all = model_.nodes[parent].children;
    std::stable_sort(all.begin(), all.end(), [&](HMember a, HMember b) {
      const std::string& x = model_.nodes[a].name;
      const std::string& y = model_.nodes[b].name;
      return descending ? y < x : x < y;
    });
  }

  void step() {
    const unsigned kind = model_.nodes.size() < 3 ? 0 : pick(100);
    if (kind < 45) return add();
    if (kind < 75) return move();
    if (kind < 90) return rename();
    if (kind < 95) return sort();
    remove();
  }

  void check_member(HMember id, const Node& node, int generation, const std::string& dimension) {
    const MemberInfoRecord record = info(id);
    ASSERT_EQ(record.name, node.name);
    ASSERT_EQ(record.dimensionName, dimension);
    ASSERT_EQ(record.generation, generation);
    ASSERT_EQ(record.level, model_.level(id));
    ASSERT_EQ(record.childCount, node.children.size());
    ASSERT_EQ(children(id), node.children);
    HMember before = 0;
    for (const HMember child : node.children) {
      HMember parent = 0;
      HMember previous = ~HMember{0};
      ASSERT_EQ(OlvOtlGetParent(h_, child, &parent), 0);
      ASSERT_EQ(OlvOtlGetPrevSibling(h_, child, &previous), 0);
      ASSERT_EQ(parent, id);
      ASSERT_EQ(previous, before);
      before = child;
    }
    for (const HMember child : node.children) {
      check_member(child, model_.nodes[child], generation + 1, dimension);
    }
  }
  void check() {
    ASSERT_EQ(children(0), model_.nodes[0].children);
    for (const HMember top : model_.nodes[0].children) {
      check_member(top, model_.nodes[top], 1, model_.nodes[top].name);
    }
    for (const auto& [text, holders] : model_.holders) {
      ASSERT_EQ(query(kQueryNamedMember, 0, 1, nullptr, text.c_str()).members, holders) << text;
      ASSERT_EQ(find(text), holders.empty() ? 0 : holders.front());
    }
  }

  std::mt19937 random_;
  Model model_;
};

TEST_F(RandomEdits, AgreeWithAPlainModel) {
  for (unsigned number = 1; number <= 4; ++number) {
    ASSERT_NO_FATAL_FAILURE(start(number));
    for (int round = 0; round < 1500; ++round) {
      SCOPED_TRACE("sequence " + std::to_string(number) + ", step " + std::to_string(round));
      ASSERT_NO_FATAL_FAILURE(step());
      // Levels are asked for in between, so that known and unknown ones mix.
      if (model_.nodes.size() > 1) {
        const HMember some = any();
        ASSERT_EQ(info(some).level, model_.level(some));
      }
      if (round % 25 == 24) {
        ASSERT_NO_FATAL_FAILURE(check());
      }
    }
  }
}

// Short sequences on small outlines: everything is checked after every step, and what is saved in
// the end is what opens again. A thousand, or as many as a long run asks for, other ones in each
// round of it.
class ShortSequences : public RandomEdits {};

TEST_F(ShortSequences, KeepEveryInvariant) {
  const unsigned count = long_run_number("KEPOTL_SEQUENCES", 1000);
  const unsigned before = count * long_run_number("KEPOTL_ROUND", 0);
  for (unsigned number = before + 1; number <= before + count; ++number) {
    ASSERT_NO_FATAL_FAILURE(start(number));
    for (int round = 0; round < 30; ++round) {
      ASSERT_NO_FATAL_FAILURE(step()) << "sequence " << number << ", step " << round;
      ASSERT_NO_FATAL_FAILURE(check()) << "sequence " << number << ", step " << round;
    }
    ASSERT_EQ(write(), 0);
    ASSERT_EQ(stored(), dump(h_)) << "sequence " << number;
  }
}
