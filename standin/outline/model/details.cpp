// Codes, texts and user-defined attributes of members.
#include <algorithm>

#include "standin/outline/model/outline.h"

namespace standin {

namespace {

size_t position(TextKind kind) {
  return static_cast<size_t>(kind);
}

}  // namespace

void Outline::set_properties(MemberId id, const MemberProperties& properties) {
  own(id).properties = properties;
}

void Outline::set_record(MemberId id, const MemberProperties& properties,
                         std::string_view currency_member, std::string_view comment) {
  std::string own_comment(comment);
  set_text(id, TextKind::kCurrencyMember, currency_member);
  if (!own_comment.empty() || member(id).extra) {
    own(id).extras().texts[position(TextKind::kComment)].swap(own_comment);
  }
  set_properties(id, properties);
}

std::string_view Outline::text(MemberId id, TextKind kind) const {
  const MemberExtras* extra = member(id).extra.get();
  return extra == nullptr ? std::string_view() : extra->texts[position(kind)];
}

void Outline::set_text(MemberId id, TextKind kind, std::string_view text) {
  if (!member(id).extra && text.empty()) return;
  std::string copy(text);
  own(id).extras().texts[position(kind)].swap(copy);
}

std::vector<std::string_view> Outline::udas(MemberId id) const {
  const MemberExtras* extra = member(id).extra.get();
  if (extra == nullptr) return {};
  return {extra->udas.begin(), extra->udas.end()};
}

bool Outline::has_uda(MemberId id, std::string_view uda) const {
  const std::vector<std::string_view> carried = udas(id);
  return std::any_of(carried.begin(), carried.end(),
                     [&](std::string_view one) { return same_text(one, uda); });
}

void Outline::add_uda(MemberId id, std::string_view uda) {
  own(id).extras().udas.emplace_back(uda);
}

bool Outline::remove_uda(MemberId id, std::string_view uda) {
  if (!has_uda(id, uda)) return false;
  std::vector<std::string>& carried = member(id).extra->udas;
  carried.erase(std::find_if(carried.begin(), carried.end(),
                             [&](const std::string& one) { return same_text(one, uda); }));
  return true;
}

}  // namespace standin
