// What copying does without a virtual machine: the check that a source does not contain its target,
// and copying a member's details, as well as it can: what cannot be read or written is left out.
#include "browse/members.h"

using namespace kepotl;

uint8_t IsCopySourceAncestorOfTarget(HOutline outline, HMember target, HMember source) {
  for (HMember current = target; current != 0;) {
    const GivenHandle parent = ask_handle(OlvOtlGetParent, outline, current);
    if (parent.status != kStatusOk) return 1;
    if (parent.handle == source && source != 0) return 1;
    current = parent.handle;
  }
  return 0;
}

void CopyUDAS(INST inst, HOutline outline, HMember target, HMember source) {
  give_udas(inst, outline, source,
            [&](const char* uda) { OlvOtlSetUserAttribute(outline, target, uda); });
}

void CopyExtendedComments(INST inst, HOutline outline, HMember target, HMember source) {
  ApiBlock<char> comment(inst);
  comment.take(OlvOtlGetMemberCommentEx, outline, source);
  if (comment) OlvOtlSetMemberCommentEx(outline, target, comment.get());
}

void CopyFormula(INST inst, HOutline outline, HMember target, HMember source) {
  give_formula(inst, outline, source,
               [&](const char* formula) { OlvOtlSetMemberFormula(outline, target, formula); });
}

void CopyAttributeMaps(INST inst, HOutline outline, HMember target, HMember source) {
  ApiArray<HMember, uint16_t> attributes(inst);
  attributes.take(OlvOtlGetAssociatedAttributes, outline, source);
  for (HMember attribute : attributes) OlvOtlAssociateAttributeMember(outline, target, attribute);
}
