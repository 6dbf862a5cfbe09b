// Codes, texts and user-defined attributes of members.
#include <new>
#include <utility>

#include "standin/outline/model/outline.h"

namespace standin {

void Outline::set_properties(MemberId id, const MemberProperties& properties) {
  const uint32_t set = property_sets_.use(properties);
  property_sets_.release(own(id).properties);
  own(id).properties = set;
}

void Outline::set_record(MemberId id, const MemberProperties& properties,
                         std::string_view currency_member, std::string_view comment) {
  MemberMap& comments = member_texts_[static_cast<size_t>(TextKind::kComment)];
  if (!comment.empty()) comments.make_room(id);
  const TextRef kept = texts_.keep(comment);
  try {
    const uint32_t set = property_sets_.use(properties);
    try {
      set_text(id, TextKind::kCurrencyMember, currency_member);
    } catch (...) {
      property_sets_.release(set);
      throw;
    }
    property_sets_.release(own(id).properties);
    own(id).properties = set;
  } catch (...) {
    texts_.drop(kept);
    throw;
  }
  texts_.drop(comments.at(id));
  comments.set(id, kept);
  pack_texts();
}

std::string_view Outline::text(MemberId id, TextKind kind) const {
  return texts_.at(member_texts_[static_cast<size_t>(kind)].at(id));
}

void Outline::set_text(MemberId id, TextKind kind, std::string_view text) {
  set_text(member_texts_[static_cast<size_t>(kind)], id, text);
}

// Gives a member a text in one of the maps; an empty one takes its own away.
void Outline::set_text(MemberMap& texts, MemberId id, std::string_view text) {
  const TextRef before = texts.at(id);
  if (!text.empty()) texts.make_room(id);
  texts.set(id, texts_.keep(text));
  texts_.drop(before);
  pack_texts();
}

std::vector<std::string_view> Outline::udas(MemberId id) const {
  std::vector<std::string_view> list;
  udas_.visit(id, [&](TextRef uda) {
    list.push_back(texts_.at(uda));
    return true;
  });
  return list;
}

// The text of a member's UDA; kNoText when it does not carry it.
TextRef Outline::uda_ref(MemberId id, std::string_view uda) const {
  TextRef found = kNoText;
  udas_.visit(id, [&](TextRef carried) {
    if (same_text(texts_.at(carried), uda)) found = carried;
    return found == kNoText;
  });
  return found;
}

bool Outline::has_uda(MemberId id, std::string_view uda) const {
  return uda_ref(id, uda) != kNoText;
}

void Outline::add_uda(MemberId id, std::string_view uda) {
  const TextRef kept = texts_.keep(uda);
  try {
    udas_.add(id, kept);
  } catch (...) {
    texts_.drop(kept);
    throw;
  }
}

bool Outline::remove_uda(MemberId id, std::string_view uda) {
  const TextRef found = uda_ref(id, uda);
  if (found == kNoText) return false;
  udas_.remove(id, found);
  texts_.drop(found);
  pack_texts();
  return true;
}

// Moves all texts to a new pool when much of the old one has been given up. What is in the way of
// that is put off: the next change tries again.
void Outline::pack_texts() {
  if (!texts_.wants_packing()) return;
  TextPool packed;
  try {
    packed = TextPool::with_room_for(texts_);
  } catch (const std::bad_alloc&) {
    return;
  }
  const auto move = [&](TextRef& text) { text = packed.take(texts_, text); };
  for (MemberId id = 0; id < members_.size(); ++id) move(own(id).name);
  const auto move_all = [&](MemberMap& texts) {
    texts.visit([&](MemberId, TextRef& text) { move(text); });
  };
  for (MemberMap& texts : member_texts_) move_all(texts);
  for (AliasTable& table : alias_tables_) move_all(table.aliases);
  udas_.visit_all(move);
  texts_ = std::move(packed);
}

}  // namespace standin
