// Creates, deletes, clears, renames and copies whole alias tables.
#include "bridge/native.h"
#include "bridge/scope.h"

namespace kepotl {
namespace {

// Runs one operation on the table of a name, which is obtained once the outline is known.
jint with_table(JNIEnv* env, jobject jinst, jobject joutline, jstring jtable,
                int (*operation)(HOutline, const char*)) {
  TextContext text;
  RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusOk;
  JavaText table(env, text, jtable);
  if (table.lost()) return kStatusRefused;
  return operation(outline, table.api());
}

}  // namespace
}  // namespace kepotl

using namespace kepotl;

KEPOTL_NATIVE(jint, createAliasTable)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jstring table) {
  return with_table(env, jinst, joutline, table, OlvOtlCreateAliasTable);
}

KEPOTL_NATIVE(jint, deleteAliasTable)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jstring table) {
  return with_table(env, jinst, joutline, table, OlvOtlDeleteAliasTable);
}

KEPOTL_NATIVE(jint, clearAliasTable)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jstring table) {
  return with_table(env, jinst, joutline, table, OlvOtlClearAliasTable);
}

KEPOTL_NATIVE(jint, renameAliasTable)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jstring jfirst, jstring jsecond) {
  TextContext text;
  RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusOk;
  JavaText first(env, text, jfirst);
  JavaText second(env, text, jsecond);
  if (any_lost(first, second)) return kStatusRefused;
  // The API takes the names in the reverse of Java's order.
  return OlvOtlRenameAliasTable(outline, second.api(), first.api());
}

KEPOTL_NATIVE(jint, copyAliasTable)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jstring jfirst, jstring jsecond,
 jboolean flag) {
  TextContext text;
  RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusOk;
  JavaText first(env, text, jfirst);
  JavaText second(env, text, jsecond);
  if (any_lost(first, second)) return kStatusRefused;
  // The API takes the names in the reverse of Java's order.
  return OlvOtlCopyAliasTable(outline, second.api(), first.api(), flag ? 1 : 0);
}
