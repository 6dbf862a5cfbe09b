// Member lists for the calculation-script editor: the members under a name, the members that match
// a text, and the check of a name.
#include "bridge/jni_calls.h"
#include "bridge/native.h"
#include "browse/browse.h"
#include "search/text_match.h"

namespace kepotl {
namespace {

// Whether a text is "Default", whatever the case of its letters and the process's locale.
bool is_default(const char* text) {
  static constexpr char kDefault[] = "default";
  for (const char* letter = kDefault; *letter != '\0'; ++letter, ++text) {
    if (lower_ascii(*text) != *letter) return false;
  }
  return *text == '\0';
}

// The table to ask the API for: null selects its default table, which Java calls "Default".
const char* selected_table(const JavaText& table) {
  return is_default(table.java()) ? nullptr : table.api_or_null();
}

// The collection's add method, looked up once for a whole list.
class Adder {
 public:
  Adder(JNIEnv* env, jobject collection) : env_(env), collection_(collection) {
    if (collection == nullptr) return;
    jclass type = env->GetObjectClass(collection);
    if (type != nullptr) add_ = env->GetMethodID(type, "add", "(Ljava/lang/Object;)Z");
  }
  // Adds an item, null included.
  void add(jobject item) const {
    if (add_ != nullptr) call_boolean(env_, collection_, add_, item);
  }

 private:
  JNIEnv* env_;
  jobject collection_;
  jmethodID add_ = nullptr;
};

// Which names a list gives.
struct Naming {
  bool use_aliases;
  const char* table;  // null: the default table
};

// Replaces the name of a MemberInfo by the member's alias. A null text changes nothing.
void rename_to_alias(const Frame& frame, jobject object, const char* alias) {
  CallStringSetProperty(frame.text, frame.env, object, "setName", alias);
}

// Name of a found member's parent, or null when it cannot be read. The statuses of both calls go to
// `*status`, the alias's last.
jstring parent_name(const Frame& frame, HMember member, const Naming& naming, MemberRecord* parent,
                    int* status) {
  *status = parent->read(member);
  jstring name = nullptr;
  if (naming.use_aliases) {
    *status = give_alias(frame.inst, frame.outline, member, naming.table, [&](const char* alias) {
      if (*parent) name = NewStringUTFfromAPI(frame.text, frame.env, alias);
    });
  }
  if (name == nullptr && *parent) {
    name = NewStringUTFfromAPI(frame.text, frame.env, (*parent)->name);
  }
  return name;
}

// Adds one found member with the name of its parent. The status that the walk is to see.
int add_found(const Frame& frame, HMember member, const Naming& naming, const Adder& list) {
  HandleArray parents(frame.outline);
  MemberRecord parent(frame.outline);
  MemberRecord info(frame.outline);
  int status = info.read(member);
  if (!info) return status;
  status = parents.query_by_name(info->name, parent_query());
  if (status != kStatusOk) return status;
  jstring found_name = nullptr;
  if (parents.size() != 0) {
    found_name = parent_name(frame, parents[0], naming, &parent, &status);
  }
  LocalRef name(frame.env, found_name);
  jobject object = CreateMemberInfoObject(frame.env, info.get(), found_name);
  if (naming.use_aliases) {
    status = give_alias(frame.inst, frame.outline, member, naming.table,
                        [&](const char* alias) { rename_to_alias(frame, object, alias); });
  }
  list.add(object);
  return status;
}

}  // namespace
}  // namespace kepotl

using namespace kepotl;

KEPOTL_NATIVE(jint, listOutlineMembers)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jstring jname, jboolean use_aliases,
 jstring jtable, jobject collection) {
  TextContext text;
  JavaText name(env, text, jname);
  JavaText table(env, text, jtable);
  const Frame frame = {env, text, RetrieveINST(env, jinst), RetrieveHOutline(env, joutline)};
  if (frame.outline == 0) return kStatusOk;
  if (any_lost(name, table)) return kStatusRefused;
  // This list gives back what a failed call has left: its array and its aliases.
  HandleArray members(frame.outline, AfterFailure::kGiveBack);
  int status = members.query_by_name(name.api(), children_query(name.api()));
  if (status != kStatusOk) return status;
  const Adder list(env, collection);
  for (uint32_t i = 0; i < members.total() && status == kStatusOk; ++i) {
    ApiBlock<MemberInfoRecord> info(frame.inst);
    status = info.take(OlvOtlGetMemberInfo, frame.outline, members[i]);
    if (!info) continue;
    jobject object = CreateMemberInfoObject(env, info.get(), jname);
    list.add(object);
    if (use_aliases) {
      ApiBlock<char> alias(frame.inst, AfterFailure::kGiveBack);
      status = alias.take(OlvOtlGetMemberAlias, frame.outline, members[i], selected_table(table));
      rename_to_alias(frame, object, alias.get());
    }
  }
  return status;
}

KEPOTL_NATIVE(jint, listFindMembers)
(JNIEnv* env, jclass, jobject joutline, jstring jdimension, jstring jsearch, jboolean use_aliases,
 jstring jtable, jobject collection) {
  TextContext text;
  JavaText search(env, text, jsearch);
  JavaText dimension(env, text, jdimension);
  JavaText table(env, text, jtable);
  const Frame frame = {env, text, kNoInstance, RetrieveHOutline(env, joutline)};
  if (frame.outline == 0) return kStatusOk;
  if (any_lost(search, dimension, table)) return kStatusRefused;
  MemberQuery query = {};
  query.queryType = kQuerySearch;
  query.options = use_aliases ? kQueryOptionAliases : kQueryOptionNames;
  query.dimension = dimension.api_or_null();
  query.pattern1 = search.api();
  query.pattern2 = use_aliases ? table.api_or_null() : nullptr;
  const Naming naming = {use_aliases != 0, selected_table(table)};
  // This list gives back an array that a failed query has left.
  HandleArray members(frame.outline, AfterFailure::kGiveBack);
  int status = members.query(0, query);
  if (status != kStatusOk) return status;
  const Adder list(env, collection);
  for (uint32_t i = 0; i < members.total() && status == kStatusOk; ++i) {
    status = add_found(frame, members[i], naming, list);
  }
  return status;
}

KEPOTL_NATIVE(jboolean, findMember)(JNIEnv* env, jclass, jobject joutline, jstring jname) {
  TextContext text;
  JavaText name(env, text, jname);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0 || name.lost()) return JNI_FALSE;
  return find_by_name(outline, name.api()).handle != 0 ? JNI_TRUE : JNI_FALSE;
}
