// Doing single edits.
#include <charconv>

#include "command/edits/edits.h"
#include "command/layer/details.h"
#include "command/layer/formatting.h"
#include "command/layer/naming.h"
#include "command/layer/text.h"
#include "command/rows/assign.h"
#include "command/rows/json_lines.h"
#include "command/rows/values.h"

namespace command {
namespace {

Field field_of(const std::string& name) {
  const auto field = parse_field(name);
  if (!field) throw Failure(fmt::format("there is no field '{}'", name));
  return *field;
}

void set_values(const Outline& outline, Member member, const std::vector<std::string>& values) {
  for (const std::string& value : values) {
    const size_t sign = value.find('=');
    if (sign == std::string::npos) {
      throw Failure(fmt::format("'{}' is not FIELD=VALUE", value));
    }
    assign(outline, member, field_of(value.substr(0, sign)), value.substr(sign + 1));
  }
}

// Where an edit wants its member: below a parent, behind a sibling.
struct Place {
  Member parent;
  Member previous;
};

Place place_of(const Outline& outline, const Edit& edit, Member moved) {
  Place place{outline.root(), Member()};
  if (!edit.after.empty()) {
    place.previous = find_member(outline, edit.after);
    place.parent = place.previous.parent();
    if (!edit.below.empty() && find_member(outline, edit.below) != place.parent) {
      throw Failure(fmt::format("'{}' does not lie below '{}'", edit.after, edit.below));
    }
    return place;
  }
  if (!edit.below.empty()) {
    place.parent = find_member(outline, edit.below);
  } else if (moved && moved.parent()) {
    place.parent = moved.parent();
  }
  if (edit.first) return place;
  place.previous = place.parent ? place.parent.last_child() : outline.root().last_child();
  if (moved && place.previous == moved) place.previous = moved.previous();
  return place;
}

MemberInfoRecord record_for(const Outline& outline, Member parent, const std::string& name) {
  MemberInfoRecord record;
  const bool attribute = parent && parent.record().dimensionCategory == kCategoryAttribute;
  if (!new_record(&record, !parent, attribute, name)) {
    throw Failure(
        fmt::format("the name '{}' is empty or takes more than {} bytes", name, kMaxMemberName));
  }
  (void)outline;
  return record;
}

void add(const Outline& outline, const Edit& edit) {
  const Place place = place_of(outline, edit, Member());
  const Member added = outline.add(record_for(outline, place.parent, edit.member), place.parent,
                                   place.previous, edit.repeat);
  set_values(outline, added, edit.values);
}

// A copy of one member, without what lies below it.
Member copy_one(const Outline& outline, const DetailsReader& reader, Member from, Place place,
                const std::string& name, bool repeat) {
  Details details;
  reader.read(from, &details);
  MemberInfoRecord record = details.record;
  const MemberInfoRecord fresh = record_for(outline, place.parent, name);
  std::copy(std::begin(fresh.name), std::end(fresh.name), std::begin(record.name));
  const Member copy = outline.add(record, place.parent, place.previous, repeat);
  copy.set_formula(details.formula);
  copy.set_extended_comment(details.extended_comment);
  for (size_t i = 0; i < reader.tables().size(); ++i) {
    if (!details.aliases[i].empty()) {
      copy.set_alias(inside(reader.tables()[i]).c_str(), details.aliases[i]);
    }
  }
  for (const std::string& uda : details.udas) copy.add_uda(uda);
  for (const Association& one : details.attributes) {
    assign_attribute(outline, copy, one.dimension, one.attribute);
  }
  return copy;
}

void copy(const Outline& outline, const Edit& edit) {
  const Member from = find_member(outline, edit.member);
  const Place place = place_of(outline, edit, from);
  for (Member above = place.parent; edit.subtree && above; above = above.parent()) {
    if (above == from) throw Failure("a member can't be copied below itself");
  }
  const DetailsReader reader(outline);
  std::vector<Member> copies = {copy_one(outline, reader, from, place, edit.text, edit.repeat)};
  if (!edit.subtree) return;
  std::vector<Member> last = {Member()};  // the last child copied, by depth
  auto at = subtree(from).begin();
  for (++at; at; ++at) {
    copies.resize(at.depth());
    last.resize(at.depth());
    const Member copied =
        copy_one(outline, reader, *at, {copies.back(), last.back()}, (*at).name(), true);
    last.back() = copied;
    copies.push_back(copied);
    last.push_back(Member());
  }
}

template <typename Number>
Number number_of(const std::string& text) {
  Number number = 0;
  const char* const end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, number);
  if (read.ec != std::errc() || read.ptr != end) {
    throw Failure(fmt::format("'{}' is no number that fits", text));
  }
  return number;
}

Member dimension_of(const Outline& outline, const std::string& name) {
  const Member dimension = find_member(outline, name);
  if (dimension.parent()) throw Failure(fmt::format("'{}' is no dimension", name));
  return dimension;
}

void change_series(const Outline& outline, const Edit& edit) {
  if (!edit.remove) {
    return outline.enable_series(edit.text, number_of<int16_t>(edit.second), true);
  }
  outline.enable_series(edit.text, 0, false);
}

}  // namespace

void perform(const Outline& outline, const Edit& edit) {
  const auto member = [&] { return find_member(outline, edit.member); };
  if (edit.verb == "add") return add(outline, edit);
  if (edit.verb == "rename") return member().rename(edit.text);
  if (edit.verb == "move") {
    const Place place = place_of(outline, edit, member());
    return member().move(place.parent, place.previous);
  }
  if (edit.verb == "copy") return copy(outline, edit);
  if (edit.verb == "delete") return member().remove();
  if (edit.verb == "sort") {
    return (edit.member.empty() ? outline.root() : member()).sort_children(edit.descending);
  }
  if (edit.verb == "set") return set_values(outline, member(), edit.values);
  if (edit.verb == "alias") return member().set_alias(inside(edit.second).c_str(), edit.text);
  if (edit.verb == "uda") {
    return edit.remove ? member().remove_uda(edit.text) : member().add_uda(edit.text);
  }
  if (edit.verb == "formula") return member().set_formula(edit.text);
  if (edit.verb == "attribute") {
    return assign_attribute(outline, member(), edit.second, edit.text);
  }
  if (edit.verb == "generation") {
    return outline.set_generation(dimension_of(outline, edit.member),
                                  number_of<uint16_t>(edit.second), edit.text);
  }
  if (edit.verb == "level") {
    return outline.set_level(dimension_of(outline, edit.member), number_of<uint16_t>(edit.second),
                             edit.text);
  }
  if (edit.verb == "table") {
    return edit.remove ? outline.delete_alias_table(edit.text)
                       : outline.create_alias_table(edit.text);
  }
  if (edit.verb == "series") return change_series(outline, edit);
  if (edit.verb == "setting") return apply_outline_line(outline, edit.text);
  throw Failure(fmt::format("there is no edit '{}'", edit.verb));
}

}  // namespace command
