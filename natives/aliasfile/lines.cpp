// Reads the lines of an alias table file, without a virtual machine.
#include "aliasfile/lines.h"

#include <cstring>

#include "bridge/guards.h"

namespace kepotl {
namespace {

// Stores a field; one that is too long stays empty, so that its line is skipped.
bool store_field(char* field, const char* text) {
  *field = '\0';
  const size_t length = text == nullptr ? 0 : std::strlen(text);
  if (length == 0 || length >= kAliasFieldSize) return false;
  std::memcpy(field, text, length + 1);
  return true;
}

// Each field on its own; 2 when there are both, else 0.
int store_fields(char* member, char* alias, const char* member_text, const char* alias_text) {
  const bool has_member = store_field(member, member_text);
  const bool has_alias = store_field(alias, alias_text);
  return has_member && has_alias ? 2 : 0;
}

}  // namespace

AliasHeader read_alias_header(char* line, char* table_name) {
  static constexpr char kKeyword[] = "$ALT_NAME";
  trimStr(line);
  if (std::strstr(line, kKeyword) == nullptr) return AliasHeader::kNone;
  *table_name = '\0';
  char* position = nullptr;
  const char* name = strtok_r(trimStr(line + std::strlen(kKeyword)), "'", &position);
  if (name == nullptr) return AliasHeader::kNone;
  return store_field(table_name, name) ? AliasHeader::kNamed : AliasHeader::kTooLong;
}

}  // namespace kepotl

using namespace kepotl;

char* trimStr(char* text) {
  TextContext context;
  return getStrTrimInPlace(context, text);
}

char* CallReadAliasTableHeader(char* line, char* table_name) {
  if (line == nullptr || table_name == nullptr) return nullptr;
  return read_alias_header(line, table_name) == AliasHeader::kNamed ? table_name : nullptr;
}

int CallReadMemberAliasLine(char* line, char* member, char* alias) {
  if (line == nullptr || member == nullptr || alias == nullptr) return 0;
  if (std::strstr(line, "$END") != nullptr) return -1;
  char* position = nullptr;
  if (std::strchr(line, '"') == nullptr) {
    const char* member_text = strtok_r(line, " \t\n", &position);
    const char* alias_text = strtok_r(nullptr, " \t\n", &position);
    return store_fields(member, alias, member_text, alias_text);
  }
  const char* member_text = trimStr(strtok_r(line, "\"", &position));
  // What stands between the two quoted fields is a piece of blanks.
  const char* alias_text;
  do {
    alias_text = trimStr(strtok_r(nullptr, "\"", &position));
  } while (alias_text != nullptr && *alias_text == '\0');
  return store_fields(member, alias, member_text, alias_text);
}
