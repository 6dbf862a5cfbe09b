// Writes an alias table to a text file.
#include <new>
#include <utility>

#include "aliasfile/alias_file.h"
#include "bridge/native.h"
#include "bridge/scope.h"
#include "browse/members.h"

namespace kepotl {
namespace {

// Writes the lines of all members, dimension by dimension. The status of the last walk step.
int write_members(HOutline outline, const char* table, FILE* file) {
  const GivenHandle first = ask_handle(OlvOtlGetFirstMember, outline);
  return walk_siblings(outline, first, [&](HMember dimension) {
    if (CallWriteAliasToFile(outline, dimension, table, file) == kStatusOk) {
      CallGetChildrenAliasRecursive(outline, dimension, table, file);
    }
  });
}

}  // namespace
}  // namespace kepotl

using namespace kepotl;

KEPOTL_NATIVE(jint, exportAliasTable)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jstring jtable, jstring jpath) try {
  TextContext text;
  JavaText path(env, text, jpath);
  JavaText table(env, text, jtable);
  // Before the file loses what it holds.
  if (any_lost(path, table)) return kStatusRefused;
  AliasFile file = open_alias_file(path.java(), "w");
  if (!file) return kStatusRefused;
  std::fprintf(file.get(), "$ALT_NAME  '%s'\n", table.api());
  RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  const int status =
      outline == 0 ? kStatusOk : write_members(outline, table.api_if_any(), file.get());
  std::fprintf(file.get(), "$END\n");
  const bool written = close_written(std::move(file));
  return status == kStatusOk && !written ? kStatusRefused : status;
} catch (const std::bad_alloc&) {
  return kStatusRefused;
}
