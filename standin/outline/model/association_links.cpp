// Pairs of bases and attributes.
#include "standin/outline/model/association_links.h"

namespace standin {

void AssociationLinks::add(MemberId base, MemberId attribute) {
  first_attribute_.make_room(base);
  first_carrier_.make_room(attribute);
  if (links_.size() == 0) links_.add();  // 0 ends a list
  const uint32_t added = free_ != 0 ? free_ : links_.add();
  if (added == free_) free_ = links_[added].next_attribute;

  const uint32_t carrier = first_carrier_.at(attribute);
  links_[added] = {base, attribute, 0, carrier, 0};
  if (carrier != 0) links_[carrier].previous_carrier = added;
  first_carrier_.set(attribute, added);

  uint32_t last = first_attribute_.at(base);
  if (last == 0) {
    first_attribute_.set(base, added);
    return;
  }
  while (links_[last].next_attribute != 0) last = links_[last].next_attribute;
  links_[last].next_attribute = added;
}

void AssociationLinks::remove(MemberId base, MemberId attribute) {
  uint32_t before = 0;
  uint32_t at = first_attribute_.at(base);
  while (links_[at].attribute != attribute) {
    before = at;
    at = links_[at].next_attribute;
  }
  Link& link = links_[at];
  if (before == 0) {
    first_attribute_.set(base, link.next_attribute);
  } else {
    links_[before].next_attribute = link.next_attribute;
  }
  if (link.previous_carrier == 0) {
    first_carrier_.set(attribute, link.next_carrier);
  } else {
    links_[link.previous_carrier].next_carrier = link.next_carrier;
  }
  if (link.next_carrier != 0) links_[link.next_carrier].previous_carrier = link.previous_carrier;
  link = {};
  link.next_attribute = free_;
  free_ = at;
}

}  // namespace standin
