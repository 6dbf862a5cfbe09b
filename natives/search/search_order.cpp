// The order in which a search visits members, without a virtual machine: pre-order, over the whole
// outline or inside one dimension.
#include "bridge/guards.h"

using namespace kepotl;

HMember findRequestGetFirstMember(HOutline outline, uint8_t one_dimension, const char* dimension) {
  return one_dimension != 0 ? ask_handle(OlvOtlFindMember, outline, dimension).handle
                            : ask_handle(OlvOtlGetFirstMember, outline).handle;
}

HMember findRequestGetNextMember(HOutline outline, HMember member, uint8_t one_dimension) {
  const HMember child = ask_handle(OlvOtlGetChild, outline, member).handle;
  if (child != 0) return child;
  while (member != 0) {
    const HMember parent = ask_handle(OlvOtlGetParent, outline, member).handle;
    if (one_dimension != 0 && parent == 0) return 0;
    const HMember sibling = ask_handle(OlvOtlGetNextSibling, outline, member).handle;
    if (sibling != 0) return sibling;
    member = parent;
  }
  return 0;
}
