// Reads an alias table file and assigns its aliases.
#include <new>

#include "aliasfile/alias_file.h"
#include "aliasfile/lines.h"
#include "bridge/native.h"
#include "bridge/scope.h"
#include "browse/members.h"

namespace kepotl {
namespace {

// Member and alias of the line that was read last; both empty when there is nothing to apply.
struct Pair {
  char member[kAliasFieldSize] = "";
  char alias[kAliasFieldSize] = "";

  // Assigns the alias if the member is there. `status` becomes that of the last call made.
  void apply(HOutline outline, const char* table, int* status) const {
    if (*member == '\0' || *alias == '\0') return;
    const GivenHandle found = find_by_name(outline, member);
    *status = found.status;
    if (found.handle != 0) *status = OlvOtlSetMemberAlias(outline, found.handle, table, alias);
  }
};

bool read_line(FILE* file, char* line) {
  return std::fgets(line, kAliasLineSize, file) != nullptr;
}

// Applies the pairs of the remaining lines, each when the next line has been read; a last line
// without an end line behind it counts too. The status of the last call, or `status`; the refusal
// whenever the file could not be read to its end.
int import_lines(HOutline outline, const char* table, FILE* file, int status) {
  char line[kAliasLineSize];
  Pair pair;
  while (read_line(file, line)) {
    pair.apply(outline, table, &status);
    if (CallReadMemberAliasLine(line, pair.member, pair.alias) < 0) return status;
  }
  pair.apply(outline, table, &status);
  return std::ferror(file) != 0 ? kStatusRefused : status;
}

}  // namespace
}  // namespace kepotl

using namespace kepotl;

KEPOTL_NATIVE(jint, importAliasTable)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jstring jpath, jobject wanted_buffer,
 jboolean allow_existing, jobject used_buffer) try {
  TextContext text;
  JavaText path(env, text, jpath);
  JavaText wanted(env, text, CallStringGetProperty(env, wanted_buffer, "toString"));
  AliasFile file = open_alias_file(path.java(), "r");
  RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusOk;
  if (!file || any_lost(path, wanted)) return kStatusRefused;

  // The first line is the header's, whether or not its name is wanted.
  char line[kAliasLineSize] = "";
  char header_name[kAliasFieldSize] = "";
  const bool named_by_file = wanted.empty();
  if (!read_line(file.get(), line) && std::ferror(file.get()) != 0) return kStatusRefused;
  // Cut, or taken for none, the name would send the aliases to another table.
  if (named_by_file && read_alias_header(line, header_name) == AliasHeader::kTooLong) {
    return kStatusRefused;
  }
  const char* name = named_by_file ? header_name : wanted.api();
  CallStringBufferAppend(env, used_buffer, name);

  const char* table = *name == '\0' ? nullptr : name;
  const int status =
      table == nullptr ? kStatusAliasTableExists : OlvOtlCreateAliasTable(outline, table);
  const bool goes_on = status == kStatusOk || (status == kStatusAliasTableExists && allow_existing);
  if (!goes_on) return status;
  if (named_by_file) CallStringBufferAppend(env, wanted_buffer, name);
  return import_lines(outline, table, file.get(), status);
} catch (const std::bad_alloc&) {
  return kStatusRefused;
}
