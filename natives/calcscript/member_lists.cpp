// Member lists for the calculation-script editor: the members under a name, the members that match
// a text, and the check of a name.
#include <strings.h>

#include "bridge/jni_calls.h"
#include "bridge/native.h"
#include "browse/browse.h"

namespace kepotl {
namespace {

// The table to ask the API for: null selects its default table, which Java calls "Default".
const char* selected_table(const JavaText& table) {
  if (table.is_null() || strcasecmp(table.java(), "Default") == 0) return nullptr;
  return table.api();
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

// Replaces the name of a MemberInfo by the member's alias, where there is one. The alias call's
// status.
int rename_to_alias(JNIEnv* env, int context, INST inst, HOutline outline, HMember member,
                    const char* table, jobject object) {
  return give_alias(inst, outline, member, table, [&](const char* alias) {
    CallStringSetProperty(context, env, object, "setName", alias);
  });
}

// Name of the parent of a found member, or null for a dimension and for a parent that cannot be
// read. The statuses of both calls go to `*status`, the alias's last.
jstring parent_name(JNIEnv* env, int context, HOutline outline, const HandleArray& parents,
                    bool use_aliases, const char* table, MemberRecord* parent, int* status) {
  if (parents.size() == 0) return nullptr;
  *status = parent->read(parents[0]);
  jstring name = nullptr;
  if (use_aliases) {
    *status = give_alias(kNoInstance, outline, parents[0], table, [&](const char* alias) {
      if (*parent) name = NewStringUTFfromAPI(context, env, alias);
    });
  }
  if (name == nullptr && *parent) name = NewStringUTFfromAPI(context, env, (*parent)->name);
  return name;
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
  const INST inst = RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusOk;
  HandleArray members(outline);
  int status = members.query_by_name(name.api(), children_query(name.api()));
  if (status != kStatusOk) return status;
  const Adder list(env, collection);
  for (uint32_t i = 0; members && i < members.counts.totalCount && status == kStatusOk; ++i) {
    ApiBlock<MemberInfoRecord> info(inst);
    status = OlvOtlGetMemberInfo(outline, members[i], info.out());
    if (status != kStatusOk) break;
    jobject object = CreateMemberInfoObject(env, info.get(), jname);
    list.add(object);
    if (use_aliases) {
      status = rename_to_alias(env, text, inst, outline, members[i], selected_table(table), object);
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
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusOk;
  MemberQuery query = {};
  query.queryType = kQuerySearch;
  query.options = use_aliases ? kQueryOptionAliases : kQueryOptionNames;
  query.dimension = dimension.is_null() ? nullptr : dimension.api();
  query.pattern1 = search.api();
  query.pattern2 = use_aliases && !table.is_null() ? table.api() : nullptr;
  HandleArray members(outline);
  int status = members.query(0, query);
  if (status != kStatusOk) return status;
  const Adder list(env, collection);
  for (uint32_t i = 0; members && i < members.counts.totalCount && status == kStatusOk; ++i) {
    HandleArray parents(outline);
    MemberRecord parent(outline);
    MemberRecord info(outline);
    status = info.read(members[i]);
    if (status != kStatusOk) break;
    status = parents.query_by_name(info->name, parent_query());
    if (status != kStatusOk) break;
    LocalRef name(env, parent_name(env, text, outline, parents, use_aliases, selected_table(table),
                                   &parent, &status));
    jobject object = CreateMemberInfoObject(env, info.get(), static_cast<jstring>(name.get()));
    if (use_aliases) {
      status = rename_to_alias(env, text, kNoInstance, outline, members[i], selected_table(table),
                               object);
    }
    list.add(object);
  }
  return status;
}

KEPOTL_NATIVE(jboolean, findMember)(JNIEnv* env, jclass, jobject joutline, jstring jname) {
  TextContext text;
  JavaText name(env, text, jname);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return JNI_FALSE;
  HMember member = 0;
  return find_by_name(outline, name.api(), &member) == kStatusOk && member != 0 ? JNI_TRUE
                                                                                : JNI_FALSE;
}
