// Writes the lines of members to an alias table file, without a virtual machine.
#include <new>

#include "browse/members.h"

namespace kepotl {
namespace {

// Writes the lines of a member's descendants; a member whose line cannot be written is left out
// with its subtree. The status of the last walk step. May throw std::bad_alloc.
int write_descendants(HOutline outline, HMember parent, const char* table, FILE* file) {
  return walk_descendants(outline, parent, [&](HMember member) {
    return CallWriteAliasToFile(outline, member, table, file) == kStatusOk;
  });
}

}  // namespace
}  // namespace kepotl

using namespace kepotl;

int CallWriteAliasToFile(HOutline outline, HMember member, const char* table, FILE* file) {
  if (file == nullptr) return kStatusRefused;
  MemberRecord record(outline);
  const int status = record.read(member);
  if (!record) return status;
  return give_alias(kNoInstance, outline, member, table, [&](const char* alias) {
    if (*alias != '\0') std::fprintf(file, "\"%s\"   \"%s\"\n", record->name, alias);
  });
}

int CallGetChildrenAliasRecursive(HOutline outline, HMember parent, const char* table,
                                  FILE* file) try {
  if (file == nullptr) return kStatusRefused;
  return write_descendants(outline, parent, table, file);
} catch (const std::bad_alloc&) {
  return kStatusRefused;
}
