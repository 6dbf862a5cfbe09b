// Which members carry which attributes, to be walked from either side.
#pragma once

#include "standin/outline/model/member_map.h"

namespace standin {

// Pairs of a base and an attribute. A pair is a link in two lists: the attributes of the base, in
// the order in which they came, and the carriers of the attribute.
class AssociationLinks {
 public:
  // Adds a pair that is not there. Throws std::bad_alloc.
  void add(MemberId base, MemberId attribute);
  // Takes a pair out that is there.
  void remove(MemberId base, MemberId attribute);

  // A link's number, 0 for none: the first attribute of a base and the one after it; the first
  // carrier of an attribute. Taking the pair out ends the walk.
  uint32_t first_of(MemberId base) const { return first_attribute_.at(base); }
  uint32_t next_of(uint32_t link) const { return links_[link].next_attribute; }
  uint32_t first_carrier_of(MemberId attribute) const { return first_carrier_.at(attribute); }
  uint32_t next_carrier_of(uint32_t link) const { return links_[link].next_carrier; }
  MemberId base(uint32_t link) const { return links_[link].base; }
  MemberId attribute(uint32_t link) const { return links_[link].attribute; }

 private:
  struct Link {
    MemberId base = kNoMember;
    MemberId attribute = kNoMember;
    uint32_t next_attribute = 0;  // of the base, or the next free link
    uint32_t next_carrier = 0;    // of the attribute
    uint32_t previous_carrier = 0;
  };

  MemberMap first_attribute_;
  MemberMap first_carrier_;
  Chunks<Link> links_;
  uint32_t free_ = 0;
};

}  // namespace standin
