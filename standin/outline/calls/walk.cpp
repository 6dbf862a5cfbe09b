// Walking from member to member, and finding one by name.
#include "api/olvotl.h"
#include "standin/outline/calls/open_outlines.h"

using namespace standin;

namespace {

// Answers one link of a member; null results are refused.
int follow(HOutline h, HMember id, MemberId Member::*link, HMember* result) {
  if (result == nullptr) return kBadArgument;
  return read_member(h, id, [&](const Outline& outline) {
    *result = outline.member(id).*link;
    return kStatusOk;
  });
}

}  // namespace

extern "C" {

int OlvOtlGetFirstMember(HOutline h, HMember* first) {
  if (first == nullptr) return kBadArgument;
  return read_outline(h, [&](const Outline& outline) {
    *first = outline.member(kRoot).first_child;
    return kStatusOk;
  });
}

int OlvOtlGetChild(HOutline h, HMember member, HMember* child) {
  return follow(h, member, &Member::first_child, child);
}

int OlvOtlGetParent(HOutline h, HMember member, HMember* parent) {
  return follow(h, member, &Member::parent, parent);
}

int OlvOtlGetNextSibling(HOutline h, HMember member, HMember* next) {
  return follow(h, member, &Member::next, next);
}

int OlvOtlGetPrevSibling(HOutline h, HMember member, HMember* previous) {
  return follow(h, member, &Member::previous, previous);
}

int OlvOtlFindMember(HOutline h, const char* name, HMember* member) {
  if (name == nullptr || member == nullptr) return kBadArgument;
  return read_outline(h, [&](const Outline& outline) -> int {
    const MemberId found = outline.look_up(name);
    if (found == kNoMember) return kMemberNotFound;
    *member = found;
    return kStatusOk;
  });
}

}  // extern "C"
