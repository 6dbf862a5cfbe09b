// Properties objects: the property set of a member, its attribute table, and the listings that
// fill them.
#include "bridge/jni_calls.h"
#include "bridge/native.h"
#include "browse/browse.h"

namespace kepotl {
namespace {

// Puts the attribute members of `member` into the attribute table. Failures leave them out.
void send_attributes(const Frame& frame, HMember member, jobject properties) {
  HandleArray attributes(frame.outline);
  attributes.query_attributes(attribute_query(member, false));
  for_each_record(frame.outline, attributes, [&](HMember, const MemberInfoRecord& attribute) {
    CreateMemberAttributesObject(frame.env, properties, attribute.dimensionName, attribute.name);
  });
}

}  // namespace

void send_member_properties(const Frame& frame, jobject properties, const MemberInfoRecord& info) {
  JNIEnv* env = frame.env;
  const int context = frame.text;
  CallStringSetProperty(context, env, properties, "setName", info.name);
  CallShortSetProperty(env, properties, "setLevel", info.level);
  CallShortSetProperty(env, properties, "setGeneration", info.generation);
  CallShortSetProperty(env, properties, "setConsolidation", info.consolidation);
  CallBooleanSetProperty(env, properties, "setTwoPass", info.twoPass);
  CallBooleanSetProperty(env, properties, "setExpense", info.expense);
  CallShortSetProperty(env, properties, "setConversion", info.conversionType);
  CallStringSetProperty(context, env, properties, "setCurrencyMember", info.currencyMember);
  CallShortSetProperty(env, properties, "setTimeBalance", info.timeBalance);
  CallShortSetProperty(env, properties, "setSkip", info.timeBalanceSkip);
  CallShortSetProperty(env, properties, "setShare", info.shareOption);
  CallShortSetProperty(env, properties, "setStorage", info.storageType);
  CallShortSetProperty(env, properties, "setCategory", info.dimensionCategory);
  CallShortSetProperty(env, properties, "setStorageCategory", info.storageCategory);
  CallStringSetProperty(context, env, properties, "setComment", info.comment);
  CallLongSetProperty(env, properties, "setChildCount", jlong{info.childCount});
  CallStringSetProperty(context, env, properties, "setDimension", info.dimensionName);
  CallBooleanSetProperty(env, properties, "setAttributes", info.isAttributed);
}

}  // namespace kepotl

using namespace kepotl;

jobject CreateMemberPropertiesObject(JNIEnv* env) {
  return CreateSimpleObject(env, "com/olvane/kep/olvane/defs/OutlineMemberProperties");
}

void CreateMemberAttributesObject(JNIEnv* env, jobject properties, const char* dimension,
                                  const char* member) {
  if (properties == nullptr || dimension == nullptr || member == nullptr) return;
  jclass type = env->GetObjectClass(properties);
  if (type == nullptr) return;
  jmethodID get_table = env->GetMethodID(type, "getAttributeTable", "()Ljava/util/Hashtable;");
  if (get_table == nullptr) return;
  jobject table = call_object(env, properties, get_table);
  if (table == nullptr) return;
  jclass table_type = env->GetObjectClass(table);
  if (table_type == nullptr) return;
  jmethodID put = env->GetMethodID(table_type, "put",
                                   "(Ljava/lang/Object;Ljava/lang/Object;)Ljava/lang/Object;");
  if (put == nullptr) return;
  TextContext context;
  LocalRef key(env, NewStringUTFfromAPI(context, env, dimension));
  LocalRef value(env, NewStringUTFfromAPI(context, env, member));
  call_object(env, table, put, key.get(), value.get());
}

KEPOTL_NATIVE(jint, getMemberInfo)
(JNIEnv* env, jclass, jobject joutline, jstring jname, jobject properties) {
  TextContext text;
  JavaText name(env, text, jname);
  const Frame frame = {env, text, kNoInstance, RetrieveHOutline(env, joutline)};
  if (frame.outline == 0) return kStatusOk;
  if (name.lost()) return kStatusRefused;
  HandleArray members(frame.outline);
  int status = members.query(0, named_member_query(name.api()));
  if (members.size() == 0) return status;
  MemberRecord record(frame.outline);
  status = record.read(members[0]);
  if (record) send_member_properties(frame, properties, *record);
  return status;
}

KEPOTL_NATIVE(jint, getChildrenWithProperties)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jstring jdimension, jstring jname,
 jlong start, jint count, jobject list) {
  TextContext text;
  JavaText dimension(env, text, jdimension);
  JavaText name(env, text, jname);
  const Frame frame = {env, text, RetrieveINST(env, jinst), RetrieveHOutline(env, joutline)};
  if (frame.outline == 0) return kStatusOk;
  if (any_lost(dimension, name)) return kStatusRefused;
  HandleArray members(frame.outline);
  const int status =
      members.query_by_name(name.api(), children_query(dimension.api()),
                            static_cast<uint32_t>(start), static_cast<uint32_t>(count));
  if (status != kStatusOk) return status;
  return for_each_record(frame.outline, members, [&](HMember member, const MemberInfoRecord& info) {
    jobject properties = CreateMemberPropertiesObject(env);
    if (properties == nullptr) return;
    send_member_properties(frame, properties, info);
    CallShortSetProperty(env, properties, "setAttributeType", info.attributeType);
    if (info.isAttributed != 0) send_attributes(frame, member, properties);
    give_alias(frame.inst, frame.outline, member, nullptr, [&](const char* alias) {
      CallStringSetProperty(text, env, properties, "setAlias", alias);
    });
    CallListAddObject(env, list, properties);
  });
}
