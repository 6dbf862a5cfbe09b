// Turning one outline into another while writing down how.
#include <algorithm>
#include <memory>
#include <set>

#include "command/compare/differences.h"
#include "command/compare/match.h"
#include "command/edits/edits.h"
#include "command/layer/formatting.h"
#include "command/layer/naming.h"
#include "command/rows/json_lines.h"

namespace command {
namespace {

// Each edit is done on the first outline as soon as it is written, so that the next one can name
// members as the outline then has them.
class Writer {
 public:
  Writer(const Outline& outline, const Outline& after,
         const std::function<void(const std::string&)>& take)
      : outline_(outline), after_(after), match_(outline, after), take_(take) {
    for (const Member member : subtree(after.root())) {
      if (const Member before = match_.before_of(member)) set_twin(member, before);
    }
  }

  void run(bool whole) {
    if (whole) {
      change_whole(outline_lines(outline_), outline_lines(after_));
      remove_tables();
      remove_names();
    } else {
      add_tables();
    }
    remove_members();
    rename_members();
    place_members();
    change_fields();
    if (whole) change_whole(closing_lines(outline_), closing_lines(after_));
  }

 private:
  // A word that looks like an option is told from one by two dashes before all that are none.
  void edit(const std::string& verb, const std::vector<std::string>& options,
            const std::vector<std::string>& words) {
    std::vector<std::string> all = {verb};
    all.insert(all.end(), options.begin(), options.end());
    const bool dashes = std::any_of(words.begin(), words.end(), [](const std::string& word) {
      return word.rfind('-', 0) == 0;
    });
    if (dashes) all.push_back("--");
    all.insert(all.end(), words.begin(), words.end());
    const std::string line = join_words(all);
    Edit edit;
    if (!parser_.parse(line, &edit)) throw Failure(fmt::format("'{}' is no edit", line));
    perform(outline_, edit);
    take_(line);
  }

  std::string name(Member member) const { return reference_to(outline_, member); }

  void change_whole(const std::vector<std::string>& before, const std::vector<std::string>& after) {
    for (const std::string& line : after) {
      if (std::find(before.begin(), before.end(), line) != before.end()) continue;
      edit("setting", {}, {line});
    }
  }

  void add_tables() {
    const std::vector<std::string> tables = after_.alias_tables();
    for (size_t i = 1; i < tables.size(); ++i) {
      if (!outline_.has_alias_table(tables[i])) edit("table", {}, {tables[i]});
    }
  }

  void remove_tables() {
    const std::vector<std::string> wanted = after_.alias_tables();
    for (const std::string& table : outline_.alias_tables()) {
      if (std::find(wanted.begin(), wanted.end(), table) == wanted.end()) {
        edit("table", {"--remove"}, {table});
      }
    }
  }

  // Names of generations and levels and time series that are other ones, so that the new ones find
  // room; what stays is set again at the end.
  void remove_names() {
    const auto wanted = closing_lines(after_);
    if (closing_lines(outline_) == wanted) return;
    for (const Series& series : outline_.series()) edit("series", {"--remove"}, {series.name});
    for (const Member dimension : children(outline_.root())) {
      for (const NumberedName& one : outline_.generations(dimension)) {
        edit("generation", {}, {name(dimension), std::to_string(one.number), ""});
      }
      for (const NumberedName& one : outline_.levels(dimension)) {
        edit("level", {}, {name(dimension), std::to_string(one.number), ""});
      }
    }
  }

  // Members that have no match go, their matched descendants are saved from below them first: to
  // the end of their dimension, from where they are placed later.
  void remove_members() {
    std::vector<Member> doomed;
    std::vector<Member> saved;
    for (auto at = subtree(outline_.root()).begin(); at; ++at) {
      const Member member = *at;
      const bool kept = static_cast<bool>(match_.after_of(member));
      const Member parent = member.parent();
      if (!kept) doomed.push_back(member);
      if (kept && parent && !match_.after_of(parent)) saved.push_back(member);
    }
    for (const Member member : saved) rescue(member);
    for (const Member member : doomed) {
      // One that lies below another of them has gone with it.
      if (!gone_.insert(member.handle()).second) continue;
      for (const Member below : subtree(member)) gone_.insert(below.handle());
      edit("delete", {}, {name(member)});
    }
  }

  void rescue(Member member) {
    Member dimension = member.dimension();
    if (!match_.after_of(dimension)) {
      // Its dimension goes, too: the first one that stays takes it in.
      for (const Member other : children(outline_.root())) {
        if (match_.after_of(other)) {
          dimension = other;
          break;
        }
      }
      if (!match_.after_of(dimension)) return add_refuge(member);
    }
    edit("move", {"--below=" + name(dimension)}, {name(member)});
  }

  // No dimension stays: the new ones are made before the old ones go.
  void add_refuge(Member member) {
    const Member first = after_.root().first_child();
    place(first, Member());
    edit("move", {"--below=" + name(twin(first))}, {name(member)});
  }

  void rename_members() {
    for (const Member after : subtree(after_.root())) {
      const Member before = twin(after);
      if (before && before.name() != after.name()) edit("rename", {}, {name(before), after.name()});
    }
  }

  void place_members() {
    place_children(after_.root());
    for (const Member after : subtree(after_.root())) place_children(after);
  }

  void place_children(Member after_parent) {
    const Member parent = after_parent ? twin(after_parent) : outline_.root();
    std::vector<Member> order;  // of the first outline
    std::vector<size_t> positions;
    for (const Member child : children(parent)) {
      if (child.handle() >= positions.size()) positions.resize(child.handle() + 1);
      positions[child.handle()] = order.size();
      order.push_back(child);
    }
    std::vector<size_t> numbers;
    std::vector<Member> wanted;
    for (const Member child : children(after_parent)) {
      wanted.push_back(child);
      const Member before = twin(child);
      if (before && before.parent() == parent) numbers.push_back(positions[before.handle()]);
    }
    const std::vector<bool> kept = longest_rise(numbers);
    size_t number = 0;
    Member previous;
    for (const Member child : wanted) {
      const Member before = twin(child);
      const bool here = before && before.parent() == parent;
      if (!here || !kept[number]) place(child, previous);
      if (here) ++number;
      previous = twin(child);
    }
  }

  // Adds or moves a member behind another one of its new parent.
  void place(Member after, Member previous) {
    if (!twin(after)) return add(after, previous);
    const Member before = twin(after);
    const Member after_parent = after.parent();
    edit("move", place_options(after_parent, previous), {name(before)});
  }

  std::vector<std::string> place_options(Member after_parent, Member previous) const {
    std::vector<std::string> options;
    if (after_parent) options.push_back("--below=" + name(twin(after_parent)));
    options.push_back(previous ? "--after=" + name(previous) : "--first");
    return options;
  }

  void add(Member after, Member previous) {
    const Member after_parent = after.parent();
    const Member parent = after_parent ? twin(after_parent) : outline_.root();
    std::vector<std::string> options = place_options(after_parent, previous);
    if (outline_.find(after.name())) options.push_back("--repeat");
    edit("add", options, {after.name()});
    const Member added = previous ? previous.next() : parent.first_child();
    set_twin(after, added);
  }

  // New members are compared like the others: by then they have the defaults of their places.
  void change_fields() {
    std::vector<std::pair<Member, FieldChange>> attributes;
    for (const Member after : subtree(after_.root())) {
      const Member before = twin(after);
      std::vector<std::string> words;
      for (FieldChange& change : fields().changes(before, after)) {
        if (change.field.kind == FieldKind::kAttribute) {
          attributes.emplace_back(before, change);
          continue;
        }
        if (words.empty()) words = {name(before)};
        words.push_back(change.field.header() + "=" + change.after);
      }
      if (!words.empty()) edit("set", {}, words);
    }
    for (const auto& [before, change] : attributes) {
      edit("set", {}, {name(before), change.field.header() + "=" + change.after});
    }
  }

  // The fields of both as they are now.
  const FieldComparison& fields() {
    if (!current_) current_ = std::make_unique<FieldComparison>(outline_, after_);
    return *current_;
  }

  Member twin(Member after) const {
    return outline_.member(after.handle() < twins_.size() ? twins_[after.handle()] : 0);
  }
  void set_twin(Member after, Member before) {
    if (after.handle() >= twins_.size()) twins_.resize(after.handle() + after.handle() / 2 + 64);
    twins_[after.handle()] = before.handle();
  }

  const Outline& outline_;
  const Outline& after_;
  Match match_;
  const std::function<void(const std::string&)>& take_;
  ScriptParser parser_;
  std::vector<HMember> twins_;  // by handle of the second outline
  std::set<HMember> gone_;
  std::unique_ptr<FieldComparison> current_;
};

}  // namespace

void edits_between(const Outline& before, const Outline& after, bool whole,
                   const std::function<void(const std::string& line)>& take) {
  Writer(before, after, take).run(whole);
  compare(before, after, whole, [](const Difference& left) {
    throw Failure(
        fmt::format("the edits do not bring out {} {}{}", left.member, left.field, left.after));
  });
}

}  // namespace command
