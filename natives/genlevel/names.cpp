// Names of generations and levels: lists for one dimension and for all, creating and deleting.
#include "bridge/jni_calls.h"
#include "bridge/native.h"
#include "browse/browse.h"

namespace kepotl {
namespace {

using ListNames = int (*)(HOutline, const char*, uint32_t, uint32_t*, GenLevelNameEntry**);
using SetName = int (*)(HOutline, const char*, uint16_t, const char*);
using DeleteName = int (*)(HOutline, const char*, uint16_t);

// Which list a native method asks for and what it makes of the entries.
struct AllNames {
  ListNames list;
  const char* class_name;
  bool skips_zero;  // generations count from 1; an entry numbered 0 is none
};

AllNames all_generations() {
  return {OlvOtlGetGenNamesEx, CNAME_GENERATION, true};
}
AllNames all_levels() {
  return {OlvOtlGetLevelNamesEx, CNAME_LEVEL, false};
}

using Names = ApiArray<GenLevelNameEntry, uint32_t>;

// Adds the names that one dimension has been given, as strings.
jint list_strings(JNIEnv* env, jobject jinst, jobject joutline, jstring jdimension, jobject list,
                  ListNames names_of) {
  TextContext text;
  const INST inst = RetrieveINST(env, jinst);
  JavaText dimension(env, text, jdimension);
  const Frame frame = {env, text, inst, RetrieveHOutline(env, joutline)};
  if (frame.outline == 0) return kStatusOk;
  if (dimension.lost()) return kStatusRefused;
  Names names(inst);
  const int status = names.take(names_of, frame.outline, dimension.api(), kNamesPlain);
  for (const GenLevelNameEntry& entry : names) add_string(frame, list, entry.name);
  return status;
}

// Adds every generation or level of one dimension, as GenerationOrLevel objects.
jint list_actual(JNIEnv* env, jobject jinst, jobject joutline, jstring jdimension, jobject list,
                 ListNames names_of) {
  TextContext text;
  const INST inst = RetrieveINST(env, jinst);
  JavaText dimension(env, text, jdimension);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusOk;
  if (dimension.lost()) return kStatusRefused;
  // This list gives back an array that a failed call has left.
  Names names(inst, AfterFailure::kGiveBack);
  const int status = names.take(names_of, outline, dimension.api(), kNamesExtended);
  if (names.size() == 0) return status;
  jclass type = env->FindClass("com/olvane/kep/olvane/api/outline/GenerationOrLevel");
  if (type == nullptr) return status;
  jmethodID constructor = env->GetMethodID(type, MNAME_CONSTRUCTOR, "(SLjava/lang/String;)V");
  if (constructor == nullptr) return status;
  for (const GenLevelNameEntry& entry : names) {
    LocalRef name(env, NewStringUTFfromAPI(text, env, entry.name));
    const jshort number = static_cast<jshort>(entry.number);
    jobject object = new_object(env, type, constructor, number, name.get());
    if (object != nullptr) CallListAddObject(env, list, object);
  }
  return status;
}

// Adds every generation or level of one dimension, as objects that name the dimension.
int add_dimension(const Frame& frame, const MemberInfoRecord& dimension, const AllNames& all,
                  jobject collection) {
  Names names(frame.inst);
  const int status = names.take(all.list, frame.outline, dimension.name, kNamesExtended);
  for (const GenLevelNameEntry& entry : names) {
    if (all.skips_zero && entry.number == 0) continue;
    jobject object = CreateGenerationOrLevelObject(frame.env, all.class_name, dimension.name,
                                                   entry.number, entry.name);
    if (object != nullptr) CallCollectionAddObject(frame.env, collection, object);
  }
  return status;
}

// Walks the dimensions by siblings. What happens inside one dimension is not reported when the
// walk goes on.
jint list_all_by_walk(JNIEnv* env, jobject jinst, jobject joutline, jobject collection,
                      const AllNames& all) {
  TextContext text;
  const Frame frame = {env, text, RetrieveINST(env, jinst), RetrieveHOutline(env, joutline)};
  if (frame.outline == 0) return kStatusOk;
  const GivenHandle first = ask_handle(OlvOtlGetFirstMember, frame.outline);
  return walk_siblings(frame.outline, first, [&](HMember dimension) {
    MemberRecord record(frame.outline);
    record.read(dimension);
    if (record) add_dimension(frame, *record, all, collection);
  });
}

// Lists the dimensions by one query. The status of the last dimension's calls.
jint list_all_by_query(JNIEnv* env, jobject jinst, jobject joutline, jobject collection,
                       const AllNames& all) {
  TextContext text;
  const Frame frame = {env, text, RetrieveINST(env, jinst), RetrieveHOutline(env, joutline)};
  if (frame.outline == 0) return kStatusOk;
  HandleArray dimensions(frame.outline);
  int status = dimensions.query(0, children_query());
  for (uint32_t i = 0; i < dimensions.size(); ++i) {
    MemberRecord record(frame.outline);
    status = record.read(dimensions[i]);
    if (record) status = add_dimension(frame, *record, all, collection);
  }
  return status;
}

template <SetName set>
jint create_name(JNIEnv* env, jobject jinst, jobject joutline, jstring jdimension, jstring jname,
                 jshort number) {
  TextContext text;
  JavaText dimension(env, text, jdimension);
  JavaText name(env, text, jname);
  RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusOk;
  if (any_lost(dimension, name)) return kStatusRefused;
  if (dimension.empty() || name.empty()) return kStatusOk;
  return set(outline, dimension.api(), static_cast<uint16_t>(number), name.api());
}

jint delete_name(JNIEnv* env, jobject jinst, jobject joutline, jstring jdimension, jshort number,
                 DeleteName remove) {
  TextContext text;
  JavaText dimension(env, text, jdimension);
  RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusOk;
  if (dimension.lost()) return kStatusRefused;
  if (dimension.empty()) return kStatusOk;
  return remove(outline, dimension.api(), static_cast<uint16_t>(number));
}

}  // namespace
}  // namespace kepotl

using namespace kepotl;

jobject CreateGenerationOrLevelObject(JNIEnv* env, const char* class_name, const char* dimension,
                                      uint16_t number, const char* name) {
  jobject object = CreateSimpleObject(env, class_name);
  if (object == nullptr) return nullptr;
  TextContext text;
  CallStringSetProperty(text, env, object, "setDimension", dimension);
  CallStringSetProperty(text, env, object, "setName", name);
  CallShortSetProperty(env, object, "setNumber", static_cast<jshort>(number));
  return object;
}

KEPOTL_NATIVE(jint, getGenerations)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jstring jdimension, jobject list) {
  return list_strings(env, jinst, joutline, jdimension, list, OlvOtlGetGenNames);
}

KEPOTL_NATIVE(jint, getLevels)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jstring jdimension, jobject list) {
  return list_strings(env, jinst, joutline, jdimension, list, OlvOtlGetLevelNames);
}

KEPOTL_NATIVE(jint, getActualGenerations)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jstring jdimension, jobject list) {
  return list_actual(env, jinst, joutline, jdimension, list, OlvOtlGetGenNamesEx);
}

KEPOTL_NATIVE(jint, getActualLevels)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jstring jdimension, jobject list) {
  return list_actual(env, jinst, joutline, jdimension, list, OlvOtlGetLevelNamesEx);
}

KEPOTL_NATIVE(jint, getAllGenerations)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jobject collection) {
  return list_all_by_walk(env, jinst, joutline, collection, all_generations());
}

KEPOTL_NATIVE(jint, getAllLevels)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jobject collection) {
  return list_all_by_walk(env, jinst, joutline, collection, all_levels());
}

KEPOTL_NATIVE(jint, getAllGenerationsQuery)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jobject collection) {
  return list_all_by_query(env, jinst, joutline, collection, all_generations());
}

KEPOTL_NATIVE(jint, getAllLevelsQuery)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jobject collection) {
  return list_all_by_query(env, jinst, joutline, collection, all_levels());
}

KEPOTL_NATIVE(jint, createGeneration)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jstring jdimension, jstring jname,
 jshort number) {
  return create_name<OlvOtlSetGenName>(env, jinst, joutline, jdimension, jname, number);
}

KEPOTL_NATIVE(jint, createLevel)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jstring jdimension, jstring jname,
 jshort number) {
  return create_name<OlvOtlSetLevelName>(env, jinst, joutline, jdimension, jname, number);
}

KEPOTL_NATIVE(jint, deleteGeneration)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jstring jdimension, jshort number) {
  return delete_name(env, jinst, joutline, jdimension, number, OlvOtlDeleteGenName);
}

KEPOTL_NATIVE(jint, deleteLevel)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jstring jdimension, jshort number) {
  return delete_name(env, jinst, joutline, jdimension, number, OlvOtlDeleteLevelName);
}
