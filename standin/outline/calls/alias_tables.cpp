// The OlvOtl functions for whole alias tables. The default table comes first and stays: it can be
// renamed, cleared and overwritten, but not deleted.
#include <cstring>
#include <utility>

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
  const int found = outline.find_table(name);
  return found < 0 ? kNoSuchAliasTable : work(static_cast<size_t>(found));
}

int add_table(Outline& outline, AliasTable&& table) {
  if (outline.alias_tables.size() == UINT16_MAX) return kBadArgument;  // counted in 16 bits
  outline.alias_tables.push_back(std::move(table));
  return kStatusOk;
}

}  // namespace
}  // namespace standin

using namespace standin;

extern "C" int OlvOtlCreateAliasTable(HOutline h, const char* table) {
  return edit_outline(h, [&](Outline& outline) -> int {
    const int status = check_new_name(table);
    if (status != kStatusOk) return status;
    if (outline.find_table(table) >= 0) return kStatusAliasTableExists;
    AliasTable created;
    created.name = table;
    return add_table(outline, std::move(created));
  });
}

extern "C" int OlvOtlDeleteAliasTable(HOutline h, const char* table) {
  return edit_outline(h, [&](Outline& outline) -> int {
    return with_table(outline, table, [&](size_t position) -> int {
      if (position == 0) return kDefaultAliasTable;
      outline.alias_tables.erase(outline.alias_tables.begin() +
                                 static_cast<std::ptrdiff_t>(position));
      return kStatusOk;
    });
  });
}

extern "C" int OlvOtlClearAliasTable(HOutline h, const char* table) {
  return edit_outline(h, [&](Outline& outline) -> int {
    return with_table(outline, table, [&](size_t position) -> int {
      outline.alias_tables[position].aliases = {};
      outline.alias_tables[position].series_aliases.clear();
      return kStatusOk;
    });
  });
}

extern "C" int OlvOtlRenameAliasTable(HOutline h, const char* table1, const char* table2) {
  return edit_outline(h, [&](Outline& outline) -> int {
    return with_table(outline, table2, [&](size_t position) -> int {
      const int status = check_new_name(table1);
      if (status != kStatusOk) return status;
      const int taken = outline.find_table(table1);
      if (taken >= 0 && static_cast<size_t>(taken) != position) return kStatusAliasTableExists;
      outline.alias_tables[position].name = table1;
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
      const int taken = outline.find_table(table1);
      if (taken >= 0 && flag == 0) return kStatusAliasTableExists;
      if (taken == static_cast<int>(source)) return kStatusOk;
      AliasTable copy = outline.alias_tables[source];
      if (taken < 0) {
        copy.name = table1;
        return add_table(outline, std::move(copy));
      }
      AliasTable& overwritten = outline.alias_tables[static_cast<size_t>(taken)];
      copy.name = overwritten.name;
      overwritten = std::move(copy);
      return kStatusOk;
    });
  });
}
