// Aliases of members. Two members may bear the same alias; verification reports it.
#include <cstring>

#include "api/olvotl.h"
#include "standin/client.h"
#include "standin/outline/calls/open_outlines.h"

using namespace standin;

extern "C" {

int OlvOtlGetMemberAlias(HOutline h, HMember member, const char* table, char** alias) {
  if (alias == nullptr) return kBadArgument;
  return read_member(h, member, [&](const Outline& outline) -> int {
    const size_t from = outline.find_table(table);
    if (from == kNoTable) return kNoSuchAliasTable;
    *alias = nullptr;
    const std::string_view text = outline.alias(from, member);
    if (!text.empty()) *alias = hand_out_text(text);
    return kStatusOk;
  });
}

int OlvOtlSetMemberAlias(HOutline h, HMember member, const char* table, const char* alias) {
  if (alias == nullptr) return kBadArgument;
  return edit_member(h, member, [&](Outline& outline) -> int {
    const size_t to = outline.find_table(table);
    if (to == kNoTable) return kNoSuchAliasTable;
    const size_t length = std::strlen(alias);
    if (length == 0) return kEmptyName;
    if (length > kMaxMemberName) return kAliasTooLong;
    outline.set_alias(to, member, alias);
    return kStatusOk;
  });
}

int OlvOtlDeleteMemberAlias(HOutline h, HMember member, const char* table) {
  return edit_member(h, member, [&](Outline& outline) -> int {
    const size_t from = outline.find_table(table);
    if (from == kNoTable) return kNoSuchAliasTable;
    outline.remove_alias(from, member);
    return kStatusOk;
  });
}

}  // extern "C"
