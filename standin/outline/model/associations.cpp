// Associations between base dimensions and attribute dimensions, and between their members, kept
// in both directions.
#include <algorithm>

#include "standin/outline/model/outline.h"

namespace standin {

namespace {

void take_out(std::vector<MemberId>& list, MemberId id) {
  list.erase(std::remove(list.begin(), list.end(), id), list.end());
}

}  // namespace

std::vector<MemberId> Outline::associations(MemberId id) const {
  const MemberExtras* extra = member(id).extra.get();
  return extra == nullptr ? std::vector<MemberId>() : extra->associations;
}

bool Outline::has_associations(MemberId id) const {
  const MemberExtras* extra = member(id).extra.get();
  return extra != nullptr && !extra->associations.empty();
}

bool Outline::has_carriers(MemberId attribute) const {
  const MemberExtras* extra = member(attribute).extra.get();
  return extra != nullptr && !extra->carriers.empty();
}

bool Outline::associated(MemberId base, MemberId attribute) const {
  const std::vector<MemberId> list = associations(base);
  return std::find(list.begin(), list.end(), attribute) != list.end();
}

bool Outline::carries_other(MemberId base, MemberId attribute) const {
  const std::vector<MemberId> list = associations(base);
  return std::any_of(list.begin(), list.end(), [&](MemberId other) {
    return other != attribute && member(other).dimension == member(attribute).dimension;
  });
}

void Outline::associate(MemberId base, MemberId attribute) {
  std::vector<MemberId>& list = own(base).extras().associations;
  list.push_back(attribute);
  try {
    own(attribute).extras().carriers.insert(base);
  } catch (...) {
    list.pop_back();
    throw;
  }
}

void Outline::disassociate(MemberId base, MemberId attribute) {
  if (!associated(base, attribute)) return;
  take_out(member(base).extra->associations, attribute);
  member(attribute).extra->carriers.erase(base);
  if (!is_dimension(base) || !is_dimension(attribute)) return;
  for (const MemberId id : subtree(attribute)) {
    if (id != attribute) drop_invalid_associations_of(id);
  }
}

void Outline::drop_dimension_associations(MemberId dimension) {
  const MemberExtras* extra = member(dimension).extra.get();
  if (extra == nullptr) return;
  while (!extra->associations.empty()) disassociate(dimension, extra->associations.back());
  while (!extra->carriers.empty()) disassociate(*extra->carriers.begin(), dimension);
}

void Outline::drop_associations(MemberId id) {
  MemberExtras* extra = member(id).extra.get();
  if (extra == nullptr) return;
  for (const MemberId attribute : extra->associations) {
    member(attribute).extra->carriers.erase(id);
  }
  for (const MemberId base : extra->carriers) take_out(member(base).extra->associations, id);
  extra->associations.clear();
  extra->carriers.clear();
}

bool Outline::association_allowed(MemberId base, MemberId attribute) const {
  return associated(member(base).dimension, member(attribute).dimension);
}

void Outline::drop_invalid_associations(MemberId top) {
  for (const MemberId id : subtree(top)) drop_invalid_associations_of(id);
}

// Both directions of one member below a dimension.
void Outline::drop_invalid_associations_of(MemberId id) {
  MemberExtras* extra = member(id).extra.get();
  if (extra == nullptr) return;
  std::vector<MemberId>& list = extra->associations;
  for (size_t i = list.size(); i-- > 0;) {
    if (association_allowed(id, list[i])) continue;
    member(list[i]).extra->carriers.erase(id);
    list.erase(list.begin() + static_cast<std::ptrdiff_t>(i));
  }
  for (auto carrier = extra->carriers.begin(); carrier != extra->carriers.end();) {
    if (association_allowed(*carrier, id) && !carries_other(*carrier, id)) {
      ++carrier;
      continue;
    }
    take_out(member(*carrier).extra->associations, id);
    carrier = extra->carriers.erase(carrier);
  }
}

}  // namespace standin
