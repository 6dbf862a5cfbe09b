// The OlvOtl functions for whole alias tables. The default table comes first and stays: it can be
// renamed, cleared and overwritten, but not deleted.
#include <cstring>

#include "api/olvotl.h"
#include "standin/outline/calls/open_outlines.h"

namespace standin {
namespace {

int check_new_name(const char* name) {
  if (name == nullptr) return kBadArgument;
  if (*name == '\0') return kEmptyName;
  return std::strlen(name) > kMaxAliasTableName ? kAliasTableNameTooLong : kStatusOk;
}

// Finds the table of a name, null for the default one, and runs `work(position)`.
template <typename Work>
int with_table(Outline& outline, const char* name, Work&& work) {
  const size_t found = outline.find_table(name);
  return found == kNoTable ? kNoSuchAliasTable : work(found);
}

int add_table(Outline& outline, const char* name) {
  if (outline.alias_tables().size() == UINT16_MAX) return kBadArgument;  // counted in 16 bits
  outline.add_table(name);
  return kStatusOk;
}

}  // namespace
}  // namespace standin

using namespace standin;

extern "C" int OlvOtlCreateAliasTable(HOutline h, const char* table) {
  return edit_outline(h, [&](Outline& outline) -> int {
    const int status = check_new_name(table);
    if (status != kStatusOk) return status;
    if (outline.find_table(table) != kNoTable) return kStatusAliasTableExists;
    return add_table(outline, table);
  });
}

extern "C" int OlvOtlDeleteAliasTable(HOutline h, const char* table) {
  return edit_outline(h, [&](Outline& outline) -> int {
    return with_table(outline, table, [&](size_t position) -> int {
      if (position == 0) return kDefaultAliasTable;
      outline.remove_table(position);
      return kStatusOk;
    });
  });
}

extern "C" int OlvOtlClearAliasTable(HOutline h, const char* table) {
  return edit_outline(h, [&](Outline& outline) -> int {
    return with_table(outline, table, [&](size_t position) -> int {
      outline.clear_table(position);
      return kStatusOk;
    });
  });
}

extern "C" int OlvOtlRenameAliasTable(HOutline h, const char* table1, const char* table2) {
  return edit_outline(h, [&](Outline& outline) -> int {
    return with_table(outline, table2, [&](size_t position) -> int {
      const int status = check_new_name(table1);
      if (status != kStatusOk) return status;
      const size_t taken = outline.find_table(table1);
      if (taken != kNoTable && taken != position) return kStatusAliasTableExists;
      outline.rename_table(position, table1);
      return kStatusOk;
    });
  });
}

extern "C" int OlvOtlCopyAliasTable(HOutline h, const char* table1, const char* table2,
                                    uint8_t flag) {
  return edit_outline(h, [&](Outline& outline) -> int {
    return with_table(outline, table2, [&](size_t source) -> int {
      const int status = check_new_name(table1);
      if (status != kStatusOk) return status;
      const size_t taken = outline.find_table(table1);
      if (taken != kNoTable && flag == 0) return kStatusAliasTableExists;
      if (taken == source) return kStatusOk;
      if (taken != kNoTable) {
        outline.copy_table(source, taken);
        return kStatusOk;
      }
      const int added = add_table(outline, table1);
      if (added != kStatusOk) return added;
      const size_t last = outline.alias_tables().size() - 1;
      try {
        outline.copy_table(source, last);
      } catch (...) {
        outline.remove_table(last);
        throw;
      }
      return kStatusOk;
    });
  });
}
