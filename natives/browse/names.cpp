// Listings of dimensions and children as Java strings: names, or names with aliases.
#include <new>
#include <string>

#include "bridge/native.h"
#include "browse/browse.h"

namespace kepotl {
namespace {

std::string quoted(const char* text) {
  return '"' + std::string(text) + '"';
}

// Adds one string per member: the name, the alias in `table`, and for dimensions a tag, each in
// double quotes. A member for which memory runs out is left out.
int list_with_aliases(JNIEnv* env, int context, INST inst, HOutline outline,
                      const HandleArray& members, int status, const JavaText& table, bool tagged,
                      jobject list) {
  return for_each_record(
      outline, members, status, [&](HMember member, const MemberInfoRecord& info) {
        try {
          std::string entry = quoted(info.name);
          ApiBlock<char> alias(inst);
          const bool known = !table.is_null() && OlvOtlGetMemberAlias(outline, member, table.api(),
                                                                      alias.out()) == kStatusOk;
          entry += quoted(known && alias ? alias.get() : "");
          if (tagged) entry += quoted(info.dimensionCategory == kCategoryTime ? "Time" : "");
          LocalRef string(env, env->NewStringUTF(getUTFCharsFromAPIChars(context, entry.c_str())));
          alias.release();
          if (string.get() != nullptr) CallListAddObject(env, list, string.get());
        } catch (const std::bad_alloc&) {
        }
      });
}

int list_names(JNIEnv* env, int context, HOutline outline, const HandleArray& members, int status,
               jobject list) {
  return for_each_record(outline, members, status, [&](HMember, const MemberInfoRecord& info) {
    add_string(env, context, list, info.name);
  });
}

}  // namespace

void add_string(JNIEnv* env, int context, jobject list, const char* text) {
  LocalRef string(env, env->NewStringUTF(getUTFCharsFromAPIChars(context, text)));
  if (string.get() != nullptr) CallListAddObject(env, list, string.get());
}

}  // namespace kepotl

using namespace kepotl;

KEPOTL_NATIVE(jint, getDimensions)(JNIEnv* env, jclass, jobject joutline, jobject list) {
  TextContext text;
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusOk;
  HandleArray members(outline);
  const int status = members.query(0, children_query());
  if (status != kStatusOk) return status;
  return list_names(env, text, outline, members, status, list);
}

KEPOTL_NATIVE(jint, getDimensionsAlias)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jstring jtable, jobject list) {
  TextContext text;
  JavaText table(env, text, jtable);
  const INST inst = RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusOk;
  HandleArray members(outline);
  const int status = members.query(0, children_query());
  if (status != kStatusOk) return status;
  return list_with_aliases(env, text, inst, outline, members, status, table, true, list);
}

KEPOTL_NATIVE(jint, getChildrenFor)
(JNIEnv* env, jclass, jobject joutline, jstring jdimension, jstring jname, jobject list) {
  TextContext text;
  JavaText dimension(env, text, jdimension);
  JavaText name(env, text, jname);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusOk;
  HandleArray members(outline);
  const int status = members.query_by_name(name.api(), children_query(dimension.api()));
  if (status != kStatusOk) return status;
  return list_names(env, text, outline, members, status, list);
}

KEPOTL_NATIVE(jint, getChildrenAliasFor)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jstring jdimension, jstring jname,
 jstring jtable, jobject list) {
  TextContext text;
  JavaText dimension(env, text, jdimension);
  JavaText name(env, text, jname);
  JavaText table(env, text, jtable);
  const INST inst = RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusOk;
  HandleArray members(outline);
  const int status = members.query_by_name(name.api(), children_query(dimension.api()));
  if (status != kStatusOk) return status;
  return list_with_aliases(env, text, inst, outline, members, status, table, false, list);
}
