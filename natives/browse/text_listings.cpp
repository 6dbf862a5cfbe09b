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

// What stands behind the name in a text with aliases.
enum class Tag { kNone, kTimeDimension };

// Adds one string per member: the name, the alias in `table` (null: none), and the tag, each in
// double quotes. A member for which memory runs out is left out.
int list_with_aliases(const Frame& frame, const HandleArray& members, const char* table, Tag tag,
                      jobject list) {
  return for_each_record(frame.outline, members, [&](HMember member, const MemberInfoRecord& info) {
    try {
      std::string entry = quoted(info.name);
      ApiBlock<char> alias(frame.inst);
      if (table != nullptr) alias.take(OlvOtlGetMemberAlias, frame.outline, member, table);
      entry += quoted(alias ? alias.get() : "");
      if (tag == Tag::kTimeDimension) {
        entry += quoted(info.dimensionCategory == kCategoryTime ? "Time" : "");
      }
      LocalRef string(frame.env, NewStringUTFfromAPI(frame.text, frame.env, entry.c_str()));
      alias.release();
      if (string.get() != nullptr) CallListAddObject(frame.env, list, string.get());
    } catch (const std::bad_alloc&) {
    }
  });
}

int list_names(const Frame& frame, const HandleArray& members, jobject list) {
  return for_each_record(frame.outline, members, [&](HMember, const MemberInfoRecord& info) {
    add_string(frame, list, info.name);
  });
}

}  // namespace

void add_string(const Frame& frame, jobject list, const char* text) {
  LocalRef string(frame.env, NewStringUTFfromAPI(frame.text, frame.env, text));
  if (string.get() != nullptr) CallListAddObject(frame.env, list, string.get());
}

}  // namespace kepotl

using namespace kepotl;

KEPOTL_NATIVE(jint, getDimensions)(JNIEnv* env, jclass, jobject joutline, jobject list) {
  TextContext text;
  const Frame frame = {env, text, kNoInstance, RetrieveHOutline(env, joutline)};
  if (frame.outline == 0) return kStatusOk;
  HandleArray members(frame.outline);
  const int status = members.query(0, children_query());
  return status != kStatusOk ? status : list_names(frame, members, list);
}

KEPOTL_NATIVE(jint, getDimensionsAlias)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jstring jtable, jobject list) {
  TextContext text;
  JavaText table(env, text, jtable);
  const Frame frame = {env, text, RetrieveINST(env, jinst), RetrieveHOutline(env, joutline)};
  if (frame.outline == 0) return kStatusOk;
  if (table.lost()) return kStatusRefused;
  HandleArray members(frame.outline);
  const int status = members.query(0, children_query());
  if (status != kStatusOk) return status;
  return list_with_aliases(frame, members, table.api_or_null(), Tag::kTimeDimension, list);
}

KEPOTL_NATIVE(jint, getChildrenFor)
(JNIEnv* env, jclass, jobject joutline, jstring jdimension, jstring jname, jobject list) {
  TextContext text;
  JavaText dimension(env, text, jdimension);
  JavaText name(env, text, jname);
  const Frame frame = {env, text, kNoInstance, RetrieveHOutline(env, joutline)};
  if (frame.outline == 0) return kStatusOk;
  if (any_lost(dimension, name)) return kStatusRefused;
  HandleArray members(frame.outline);
  const int status = members.query_by_name(name.api(), children_query(dimension.api()));
  return status != kStatusOk ? status : list_names(frame, members, list);
}

KEPOTL_NATIVE(jint, getChildrenAliasFor)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jstring jdimension, jstring jname,
 jstring jtable, jobject list) {
  TextContext text;
  JavaText dimension(env, text, jdimension);
  JavaText name(env, text, jname);
  JavaText table(env, text, jtable);
  const Frame frame = {env, text, RetrieveINST(env, jinst), RetrieveHOutline(env, joutline)};
  if (frame.outline == 0) return kStatusOk;
  if (any_lost(dimension, name, table)) return kStatusRefused;
  HandleArray members(frame.outline);
  const int status = members.query_by_name(name.api(), children_query(dimension.api()));
  if (status != kStatusOk) return status;
  return list_with_aliases(frame, members, table.api_or_null(), Tag::kNone, list);
}
