// Copies a member's details to its copy: best effort, what cannot be read or written is left out.
#include "browse/browse.h"

using namespace kepotl;

void CopyUDAS(INST inst, HOutline outline, HMember target, HMember source) {
  give_udas(inst, outline, source,
            [&](const char* uda) { OlvOtlSetUserAttribute(outline, target, uda); });
}

void CopyExtendedComments(INST inst, HOutline outline, HMember target, HMember source) {
  ApiBlock<char> comment(inst);
  const int status = OlvOtlGetMemberCommentEx(outline, source, comment.out());
  if (status != kStatusOk || !comment) return;
  OlvOtlSetMemberCommentEx(outline, target, comment.get());
}

void CopyFormula(INST inst, HOutline outline, HMember target, HMember source) {
  give_formula(inst, outline, source,
               [&](const char* formula) { OlvOtlSetMemberFormula(outline, target, formula); });
}

void CopyAttributeMaps(INST inst, HOutline outline, HMember target, HMember source) {
  uint16_t count = 0;
  ApiBlock<HMember> attributes(inst);
  const int status = OlvOtlGetAssociatedAttributes(outline, source, &count, attributes.out());
  if (status != kStatusOk || !attributes) return;
  for (uint16_t i = 0; i < count; ++i) {
    OlvOtlAssociateAttributeMember(outline, target, attributes[i]);
  }
}
