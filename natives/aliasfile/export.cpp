// Writes an alias table to a text file.
#include <new>
#include <utility>

#include "aliasfile/aliasfile.h"
#include "bridge/native.h"
#include "browse/browse.h"

namespace kepotl {
namespace {

// Writes the lines of a member's descendants; a member whose line cannot be written is left out
// with its subtree. The status of the last walk step. May throw std::bad_alloc.
int write_descendants(HOutline outline, HMember parent, const char* table, FILE* file) {
  return walk_descendants(outline, parent, [&](HMember member) {
    return CallWriteAliasToFile(outline, member, table, file) == kStatusOk;
  });
}

// Writes the lines of all members, dimension by dimension. The status of the last walk step. May
// throw std::bad_alloc.
int write_members(HOutline outline, const char* table, FILE* file) {
  HMember first = 0;
  const int status = OlvOtlGetFirstMember(outline, &first);
  return walk_siblings(outline, status, first, [&](HMember dimension) {
    if (CallWriteAliasToFile(outline, dimension, table, file) == kStatusOk) {
      write_descendants(outline, dimension, table, file);
    }
  });
}

// Closes a file that was written. False when not all of it reached the file.
bool close_written(File file) {
  const bool failed = std::ferror(file.get()) != 0;
  return std::fclose(file.release()) == 0 && !failed;
}

}  // namespace
}  // namespace kepotl

using namespace kepotl;

int CallWriteAliasToFile(HOutline outline, HMember member, const char* table, FILE* file) {
  MemberRecord record(outline);
  const int status = record.read(member);
  if (status != kStatusOk) return status;
  return give_alias(kNoInstance, outline, member, table, [&](const char* alias) {
    if (*alias != '\0') std::fprintf(file, "\"%s\"   \"%s\"\n", record->name, alias);
  });
}

int CallGetChildrenAliasRecursive(HOutline outline, HMember parent, const char* table,
                                  FILE* file) try {
  return write_descendants(outline, parent, table, file);
} catch (const std::bad_alloc&) {
  return kStatusRefused;
}

KEPOTL_NATIVE(jint, exportAliasTable)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jstring jtable, jstring jpath) try {
  TextContext text;
  JavaText path(env, text, jpath);
  File file(std::fopen(path.api(), "w"));
  if (!file) return kStatusRefused;
  JavaText table(env, text, jtable);
  std::fprintf(file.get(), "$ALT_NAME  '%s'\n", table.api());
  RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  const int status =
      outline == 0 ? kStatusOk : write_members(outline, table.api_or_null(), file.get());
  std::fprintf(file.get(), "$END\n");
  const bool written = close_written(std::move(file));
  return status == kStatusOk && !written ? kStatusRefused : status;
} catch (const std::bad_alloc&) {
  return kStatusRefused;
}
