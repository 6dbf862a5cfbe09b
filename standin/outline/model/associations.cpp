// Associations between base dimensions and attribute dimensions, and between their members, kept
// in both directions.
#include "standin/outline/model/outline.h"

namespace standin {

std::vector<MemberId> Outline::associations(MemberId id) const {
  std::vector<MemberId> list;
  for (uint32_t link = associations_.first_of(id); link != 0; link = associations_.next_of(link)) {
    list.push_back(associations_.attribute(link));
  }
  return list;
}

bool Outline::has_associations(MemberId id) const {
  return associations_.first_of(id) != 0;
}

bool Outline::has_carriers(MemberId attribute) const {
  return associations_.first_carrier_of(attribute) != 0;
}

bool Outline::associated(MemberId base, MemberId attribute) const {
  uint32_t link = associations_.first_of(base);
  while (link != 0 && associations_.attribute(link) != attribute) {
    link = associations_.next_of(link);
  }
  return link != 0;
}

bool Outline::carries_other(MemberId base, MemberId attribute) const {
  for (uint32_t link = associations_.first_of(base); link != 0;
       link = associations_.next_of(link)) {
    const MemberId other = associations_.attribute(link);
    if (other != attribute && member(other).dimension == member(attribute).dimension) return true;
  }
  return false;
}

void Outline::associate(MemberId base, MemberId attribute) {
  associations_.add(base, attribute);
}

void Outline::disassociate(MemberId base, MemberId attribute) {
  if (!associated(base, attribute)) return;
  associations_.remove(base, attribute);
  if (!is_dimension(base) || !is_dimension(attribute)) return;
  for (const MemberId id : subtree(attribute)) {
    if (id != attribute) drop_invalid_associations_of(id);
  }
}

void Outline::drop_dimension_associations(MemberId dimension) {
  while (const uint32_t link = associations_.first_of(dimension)) {
    disassociate(dimension, associations_.attribute(link));
  }
  while (const uint32_t link = associations_.first_carrier_of(dimension)) {
    disassociate(associations_.base(link), dimension);
  }
}

void Outline::drop_associations(MemberId id) {
  while (const uint32_t link = associations_.first_of(id)) {
    associations_.remove(id, associations_.attribute(link));
  }
  while (const uint32_t link = associations_.first_carrier_of(id)) {
    associations_.remove(associations_.base(link), id);
  }
}

bool Outline::association_allowed(MemberId base, MemberId attribute) const {
  return associated(member(base).dimension, member(attribute).dimension);
}

void Outline::drop_invalid_associations(MemberId top) {
  for (const MemberId id : subtree(top)) drop_invalid_associations_of(id);
}

// Both directions of one member below a dimension.
void Outline::drop_invalid_associations_of(MemberId id) {
  for (uint32_t link = associations_.first_of(id); link != 0;) {
    const MemberId attribute = associations_.attribute(link);
    link = associations_.next_of(link);
    if (!association_allowed(id, attribute)) associations_.remove(id, attribute);
  }
  for (uint32_t link = associations_.first_carrier_of(id); link != 0;) {
    const MemberId base = associations_.base(link);
    link = associations_.next_carrier_of(link);
    if (!association_allowed(base, id) || carries_other(base, id)) associations_.remove(base, id);
  }
}

}  // namespace standin
