// Two short walks that a member object needs: up to its dimension, and down to its first leaf.
#include "bridge/guards.h"

using namespace kepotl;

HMember LocateDimensionForMember(HOutline outline, HMember member) {
  for (;;) {
    const GivenHandle parent = ask_handle(OlvOtlGetParent, outline, member);
    if (parent.status != kStatusOk) return 0;
    if (parent.handle == 0) return member;
    member = parent.handle;
  }
}

uint8_t DetermineIfDimensionHasHybridChildren(HOutline outline, HMember member) {
  if (member == 0) return 0;
  for (;;) {
    const GivenHandle child = ask_handle(OlvOtlGetChild, outline, member);
    if (child.status != kStatusOk) return 0;
    if (child.handle == 0) break;
    member = child.handle;
  }
  MemberRecord record(outline);
  record.read(member);
  return record ? record->hybridFlag : uint8_t{0};
}
