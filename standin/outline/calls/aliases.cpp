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
    const AliasTable* from = outline.table(table);
    if (from == nullptr) return kNoSuchAliasTable;
    const auto found = from->aliases.find(member);
    *alias = nullptr;
    if (found == from->aliases.end()) return kStatusOk;
    *alias = hand_out_text(found->second);
    return *alias == nullptr ? kNoMemory : kStatusOk;
  });
}

int OlvOtlSetMemberAlias(HOutline h, HMember member, const char* table, const char* alias) {
  if (alias == nullptr) return kBadArgument;
  return edit_member(h, member, [&](Outline& outline) -> int {
    AliasTable* to = outline.table(table);
    if (to == nullptr) return kNoSuchAliasTable;
    const size_t length = std::strlen(alias);
    if (length == 0) return kEmptyName;
    if (length > kMaxMemberName) return kAliasTooLong;
    to->aliases.insert_or_assign(member, alias);
    return kStatusOk;
  });
}

int OlvOtlDeleteMemberAlias(HOutline h, HMember member, const char* table) {
  return edit_member(h, member, [&](Outline& outline) -> int {
    AliasTable* from = outline.table(table);
    if (from == nullptr) return kNoSuchAliasTable;
    from->aliases.erase(member);
    return kStatusOk;
  });
}

}  // extern "C"
