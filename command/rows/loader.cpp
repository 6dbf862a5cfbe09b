// Placing rows: parents first, siblings in the file's order, each row as the mode wants it.
#include "command/rows/loader.h"

#include <algorithm>

#include "api/olvotl.h"
#include "command/layer/formatting.h"
#include "command/layer/naming.h"
#include "command/layer/text.h"
#include "command/rows/assign.h"
#include "search/text_match.h"

namespace command {

Loader::Loader(const Outline& outline, LoadMode mode, bool clear_empty, Report& report)
    : outline_(outline),
      mode_(mode),
      clear_empty_(clear_empty),
      case_sensitive_(outline.settings().case_sensitive),
      report_(report) {
  for (const Member member : subtree(outline.root())) {
    if (repeats_) break;
    const MemberInfoRecord record = member.record();
    repeats_ = outline.find(outside(record.name)) != member;
    shared_ = shared_ || repeats_ || record.shareOption == kShareShared;
  }
  for (const Member dimension : children(outline.root())) {
    if (dimension.record().dimensionCategory == kCategoryAttribute) attribute_dimensions_ = true;
  }
}

void Loader::prepare(const Field& field) {
  const size_t number = static_cast<size_t>(&field - fields_.data());
  tables_.resize(fields_.size());
  if (field.kind != FieldKind::kAlias) return;
  // The default table's name may be any.
  const std::string table = field.key.empty() ? outline_.alias_tables().front() : field.key;
  if (!outline_.has_alias_table(table)) outline_.create_alias_table(table);
  tables_[number] = inside(table);
}

const std::string* Loader::value(const Row& row, FieldKind kind) const {
  for (size_t i = 0; i < row.values.size(); ++i) {
    if (fields_[i].kind == kind && !row.values[i].empty()) return &row.values[i];
  }
  return nullptr;
}

bool Loader::is_shared(const Row& row) const {
  for (size_t i = 0; i < row.values.size(); ++i) {
    const Property* property = fields_[i].property;
    if (property != nullptr && property->number == &MemberInfoRecord::shareOption &&
        !row.values[i].empty()) {
      return property->code(row.values[i]) == kShareShared;
    }
  }
  return false;
}

bool Loader::is_repeat(const Row& row) const {
  const std::string* repeat = value(row, FieldKind::kRepeat);
  return repeat != nullptr && same_name(*repeat, "yes", false);
}

uint64_t Loader::key_of(std::string_view name) const {
  uint64_t hash = 14695981039346656037u;  // FNV-1a
  for (const char c : name) {
    hash ^= static_cast<unsigned char>(case_sensitive_ ? c : kepotl::lower_ascii(c));
    hash *= 1099511628211u;
  }
  return hash;
}

// Rows wait under the last part of what names their parent.
uint64_t Loader::waiting_key(const std::string& parent) const {
  if (parent.find('/') == std::string::npos && parent.find('"') == std::string::npos &&
      parent.find('#') == std::string::npos) {
    return key_of(parent);
  }
  const std::vector<PathPart> parts = parse_path(parent);
  return key_of(parts.empty() ? parent : parts.back().name);
}

// Children belong to the member itself, which may come behind the shared ones of its name.
bool Loader::only_shared(const Named& named) {
  if (named.member) return named.member.shared();
  return std::all_of(named.several.begin(), named.several.end(),
                     [](Member member) { return member.shared(); });
}

// False when there is no such member yet, or when it is not clear which one is meant.
bool Loader::resolve(const std::string& text, Member* member, std::string* problem) {
  if (last_parent_ && text == last_parent_text_) {
    *member = last_parent_;
    return true;
  }
  Named named;
  if (!repeats_) named.member = outline_.find(text);
  if (!named.member) named = look_up(outline_, text);
  if (shared_ && !shared_parents_ && only_shared(named)) return false;
  if (!named.several.empty()) {
    *problem = fmt::format("{} members are called '{}'; name the parent by its path, such as {}",
                           named.several.size(), text, path_of(outline_, named.several.front()));
    return false;
  }
  if (!named.member || (mode_ == LoadMode::kReplace && !seen(named.member))) return false;
  *member = named.member;
  last_parent_ = named.member;
  last_parent_text_ = text;
  return true;
}

void Loader::take(Row& row) {
  const std::string problem = check(row);
  if (!problem.empty()) {
    report_.reject(fields_, row, problem);
    return;
  }
  settle(row);
  // Placing a row may release others, those yet others.
  while (!released_.empty()) {
    Row waiting;
    const uint32_t next = waiting_.read(released_.back(), &waiting);
    if (next == WaitingRows::kNone) {
      released_.pop_back();
    } else {
      released_.back() = next;
    }
    settle(waiting);
  }
}

void Loader::settle(Row& row) {
  Member parent = outline_.root();
  std::string problem;
  if (!row.parent.empty() && !resolve(row.parent, &parent, &problem)) {
    if (problem.empty()) {
      waiting_.add(waiting_key(row.parent), row);
    } else {
      report_.reject(fields_, row, problem);
    }
    return;
  }
  const Placed placed = place(row, parent);
  if (placed == Placed::kDone && !is_shared(row)) release(row.name);
  if (placed == Placed::kBlocked) blocked_.push_back(row);
}

void Loader::release(const std::string& name) {
  if (waiting_.count() == 0) return;
  const uint32_t chain = waiting_.take(key_of(name));
  if (chain != WaitingRows::kNone) released_.push_back(chain);
}

// The member that a row of an update or a replacement is about; false for a new one.
Member Loader::find_existing(const Row& row, Member parent, std::string* problem) {
  const bool shared = is_shared(row);
  Member here;  // the first of the name below the parent that no row was about
  std::vector<Member> elsewhere;
  for (const Member holder : outline_.holders(row.name)) {
    if (seen(holder) || holder.shared() != shared) continue;
    if (holder.parent() == parent) {
      if (!here) here = holder;
    } else {
      elsewhere.push_back(holder);
    }
  }
  if (here || shared || is_repeat(row) || elsewhere.empty()) return here;
  if (elsewhere.size() == 1) return elsewhere.front();
  *problem = fmt::format(
      "{} members are called '{}', none of them below '{}'; rename them apart, "
      "or set repeat to yes for another one",
      elsewhere.size(), row.name, row.parent);
  return Member();
}

Loader::Placed Loader::place(const Row& row, Member parent) try {
  std::string problem;
  Member existing;
  const bool repeat = is_repeat(row) || is_shared(row);
  if (mode_ != LoadMode::kAdd) {
    existing = find_existing(row, parent, &problem);
  }
  if (problem.empty() && !existing && !repeat) {
    const Member holder = outline_.find(row.name);
    if (holder && (!holder.shared() || !parent)) {
      const bool here = holder.parent() == parent;
      problem =
          fmt::format("there is a '{}' already{}; {}", row.name,
                      here ? "" : fmt::format(" at {}", path_of(outline_, holder)),
                      here && mode_ == LoadMode::kAdd && !seen(holder)
                          ? "load with --mode update to change it"
                          : "rename one, or set the column storage to shared or repeat to yes");
    }
  }
  if (!problem.empty()) {
    report_.reject(fields_, row, problem);
    return Placed::kRejected;
  }
  if (!existing) {
    const Member added = add(row, parent, true);
    apply_details(row, added, true);
    set_last_placed(parent, added);
    set_seen(added);
    ++counts_.added;
    return Placed::kDone;
  }
  const Member last = last_placed(parent);
  const bool elsewhere = existing.parent() != parent;
  const bool in_order = mode_ != LoadMode::kReplace || existing.previous() == last;
  if (elsewhere || !in_order) {
    const int status =
        OlvOtlMoveMember(outline_.handle(), existing.handle(), parent.handle(), last.handle());
    if (status != kStatusOk) {
      // Its new parent may still lie below it; a later row can change that.
      for (Member above = parent; above; above = above.parent()) {
        if (above == existing) return Placed::kBlocked;
      }
      command::check(status, fmt::format("move '{}' below '{}'", row.name, row.parent));
    }
    ++counts_.moved;
  }
  if (has_record_values(row)) {
    MemberInfoRecord record = existing.record();
    update_record(row, &record);
    existing.set_record(record);
  }
  apply_details(row, existing, false);
  ++counts_.changed;
  if (mode_ == LoadMode::kReplace || elsewhere) set_last_placed(parent, existing);
  set_seen(existing);
  return Placed::kDone;
} catch (const Failure& failure) {
  report_.reject(fields_, row, fmt::format("'{}': {}", row.name, failure.what()));
  return Placed::kRejected;
}

Member Loader::add(const Row& row, Member parent, bool repeat) {
  const bool attribute =
      parent && attribute_dimensions_ && parent.record().dimensionCategory == kCategoryAttribute;
  MemberInfoRecord record;
  if (!new_record(&record, !parent, attribute, row.name)) throw Failure("the name does not fit");
  update_record(row, &record);
  if (!parent && record.dimensionCategory == kCategoryAttribute) {
    attribute_dimensions_ = true;
    // What an attribute dimension is by itself, unless the row says something else.
    MemberInfoRecord defaults;
    new_record(&defaults, true, true, row.name);
    update_record(row, &defaults);
    record = defaults;
  }
  if (repeat && !repeats_) repeats_ = static_cast<bool>(outline_.find(row.name));
  if (row.name == last_parent_text_) last_parent_ = Member();  // the name may fit two now
  shared_ = shared_ || record.shareOption == kShareShared;
  return outline_.add(record, parent, last_placed(parent), repeat);
}

bool Loader::has_record_values(const Row& row) const {
  for (size_t i = 0; i < row.values.size(); ++i) {
    if (row.values[i].empty() && !clear_empty_) continue;
    switch (fields_[i].kind) {
      case FieldKind::kComment:
      case FieldKind::kCurrency:
      case FieldKind::kProperty:
      case FieldKind::kReserved:
        return true;
      default:
        break;
    }
  }
  return false;
}

void Loader::update_record(const Row& row, MemberInfoRecord* record) const {
  for (size_t i = 0; i < row.values.size(); ++i) {
    const std::string& text = row.values[i];
    if (text.empty() && !clear_empty_) continue;
    const Field& field = fields_[i];
    if (field.kind == FieldKind::kComment) {
      inside(text).copy(record->comment, kMaxComment);
      record->comment[inside(text).size()] = '\0';
    } else if (field.kind == FieldKind::kCurrency) {
      inside(text).copy(record->currencyMember, kMaxMemberName);
      record->currencyMember[inside(text).size()] = '\0';
    } else if (field.kind == FieldKind::kReserved) {
      set_reserved(record, text);
    } else if (field.kind == FieldKind::kProperty && !text.empty()) {
      field.property->set(record, *field.property->code(text));
    }
  }
}

void Loader::apply_details(const Row& row, Member member, bool fresh) {
  for (size_t i = 0; i < row.values.size(); ++i) {
    const std::string& text = row.values[i];
    if (text.empty() && (fresh || !clear_empty_)) continue;
    const Field& field = fields_[i];
    switch (field.kind) {
      case FieldKind::kAlias:
        member.set_alias(tables_[i].c_str(), text);
        break;
      case FieldKind::kUda:
        if (!fresh) {
          assign_udas(member, text);
        } else {
          for (const std::string& uda : split_quoted(text, ';')) member.add_uda(uda);
        }
        break;
      case FieldKind::kFormula:
        member.set_formula(text);
        break;
      case FieldKind::kExtendedComment:
        member.set_extended_comment(text);
        break;
      case FieldKind::kAttribute: {
        const auto number = static_cast<uint32_t>(attribute_texts_.size());
        const auto [known, added] = attribute_numbers_.emplace(text, number);
        if (added) attribute_texts_.push_back(text);
        attributes_.push_back({member.handle(), static_cast<uint32_t>(i), known->second, row.line});
        break;
      }
      default:
        break;
    }
  }
}

void Loader::take_levels(Member top, const std::vector<std::string>& names, uint64_t line) {
  Member parent = top;
  for (const std::string& name : names) {
    if (name.empty()) continue;
    const Member found = outline_.find(name);
    if (found && found.parent() == parent) {
      parent = found;
      continue;
    }
    Row row;
    row.line = line;
    row.name = name;
    const std::string problem = check(row);
    if (!problem.empty() || place(row, parent) != Placed::kDone) {
      if (!problem.empty()) report_.reject(fields_, row, problem);
      return;
    }
    parent = outline_.find(name);
  }
}

Member Loader::last_placed(Member parent) {
  const HMember handle = parent.handle();
  if (handle < last_placed_.size() && last_placed_[handle] != 0) {
    return outline_.member(last_placed_[handle]);
  }
  // In a replacement the first row of a parent becomes its first child.
  if (mode_ == LoadMode::kReplace) return Member();
  return parent ? parent.last_child() : outline_.root().last_child();
}

void Loader::set_last_placed(Member parent, Member child) {
  const HMember handle = parent.handle();
  if (handle >= last_placed_.size()) last_placed_.resize(handle + handle / 2 + 64);
  last_placed_[handle] = child.handle();
}

bool Loader::seen(Member member) const {
  return member.handle() < seen_.size() && seen_[member.handle()];
}

void Loader::set_seen(Member member) {
  if (member.handle() >= seen_.size()) seen_.resize(member.handle() + member.handle() / 2 + 64);
  seen_[member.handle()] = true;
}

}  // namespace command
