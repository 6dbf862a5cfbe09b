// The codes and flags of members. Most members of an outline share few sets of them, so each
// different set is kept once.
#pragma once

#include <vector>

#include "standin/outline/model/chunks.h"
#include "standin/outline/model/member.h"

namespace standin {

class PropertySets {
 public:
  // Set 0 has all codes zero and is always there.
  PropertySets();

  const MemberProperties& at(uint32_t set) const { return sets_[set].properties; }
  // The number of a set with these values, which is used once more now. Throws std::bad_alloc.
  uint32_t use(const MemberProperties& properties);
  // Takes one use back; the number of a set without any is given to another one.
  void release(uint32_t set);

 private:
  struct Set {
    MemberProperties properties;
    uint32_t uses = 0;
    uint32_t next = 0;  // of those with the same bucket, or of the free ones; 0: the last
  };

  size_t bucket(const MemberProperties& properties) const;
  void grow_buckets();

  Chunks<Set> sets_;
  std::vector<uint32_t> buckets_;  // the first set of each; a power of two of them
  uint32_t count_ = 0;             // sets in buckets
  uint32_t free_ = 0;              // the first free set
  uint32_t last_ = 0;              // the set that was asked for last
};

}  // namespace standin
