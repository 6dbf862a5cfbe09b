// Two short walks that a member object needs: up to its dimension, and down to its first leaf.
#include "bridge/scope.h"

using namespace kepotl;

HMember LocateDimensionForMember(HOutline outline, HMember member) {
  for (;;) {
    HMember parent = 0;
    if (OlvOtlGetParent(outline, member, &parent) != kStatusOk) return 0;
    if (parent == 0) return member;
    member = parent;
  }
}

uint8_t DetermineIfDimensionHasHybridChildren(HOutline outline, HMember member) {
  if (member == 0) return 0;
  for (;;) {
    HMember child = 0;
    if (OlvOtlGetChild(outline, member, &child) != kStatusOk) return 0;
    if (child == 0) break;
    member = child;
  }
  MemberRecord record(outline);
  return record.read(member) == kStatusOk ? record->hybridFlag : uint8_t{0};
}
