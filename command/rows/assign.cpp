// Assigning fields.
#include "command/rows/assign.h"

#include "command/layer/formatting.h"
#include "command/layer/naming.h"
#include "command/layer/text.h"
#include "edit/edit.h"

namespace command {
namespace {

template <size_t kSize>
void store(char (&field)[kSize], size_t most, const char* what, const std::string& value) {
  const std::string text = inside(value);
  if (kepotl::store_text(field, most, text.c_str())) return;
  throw Failure(fmt::format("{} takes {} bytes; shorten it to {}", what, text.size(), most));
}

bool in_record(FieldKind kind) {
  return kind == FieldKind::kComment || kind == FieldKind::kCurrency ||
         kind == FieldKind::kProperty || kind == FieldKind::kReserved;
}

void assign_in_record(Member member, const Field& field, const std::string& value) {
  MemberInfoRecord record = member.record();
  if (field.kind == FieldKind::kComment) {
    store(record.comment, kMaxComment, "the comment", value);
  } else if (field.kind == FieldKind::kCurrency) {
    store(record.currencyMember, kMaxMemberName, "the currency", value);
  } else if (field.kind == FieldKind::kReserved) {
    if (!set_reserved(&record, value)) throw Failure("reserved has to be 44 hexadecimal digits");
  } else {
    const auto code = field.property->code(value);
    if (!code) {
      throw Failure(fmt::format("{} can't be '{}'; say {}", field.header(), value,
                                field.property->choices()));
    }
    field.property->set(&record, *code);
  }
  member.set_record(record);
}

}  // namespace

void assign(const Outline& outline, Member member, const Field& field, const std::string& value) {
  if (in_record(field.kind)) return assign_in_record(member, field, value);
  switch (field.kind) {
    case FieldKind::kAlias: {
      const std::string table = field.key.empty() ? outline.alias_tables().front() : field.key;
      return member.set_alias(inside(table).c_str(), value);
    }
    case FieldKind::kUda:
      return assign_udas(member, value);
    case FieldKind::kFormula:
      return member.set_formula(value);
    case FieldKind::kExtendedComment:
      return member.set_extended_comment(value);
    case FieldKind::kAttribute:
      return assign_attribute(outline, member, field.key, value);
    default:
      throw Failure(fmt::format("'{}' can't be set; use rename and move", field.header()));
  }
}

void assign_attribute(const Outline& outline, Member member, const std::string& dimension,
                      const std::string& text) {
  const Member attributes = outline.find(dimension);
  if (!attributes || attributes.parent()) {
    throw Failure(
        fmt::format("there is no attribute dimension '{}'; add it with the category "
                    "attribute first",
                    dimension));
  }
  const Member base = member.dimension();
  bool associated = false;
  for (const Member one : base.attributes()) associated = associated || one == attributes;
  if (!associated && !text.empty()) base.associate(attributes);
  if (member == base) {
    if (associated && text.empty()) base.disassociate(attributes);
    return;
  }
  for (const Member carried : member.attributes()) {
    if (carried.dimension() == attributes) member.disassociate(carried);
  }
  if (!text.empty()) member.associate(find_member(outline, text));
}

void assign_udas(Member member, const std::string& list) {
  const std::vector<std::string> wanted = split_quoted(list, ';');
  const std::vector<std::string> carried = member.udas();
  if (carried == wanted) return;
  for (const std::string& uda : carried) member.remove_uda(uda);
  for (const std::string& uda : wanted) member.add_uda(uda);
}

}  // namespace command
