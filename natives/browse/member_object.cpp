// Builds DefaultMember objects from member records. Both builders send the same setters in the
// same order; they differ in how a setter is found.
#include "bridge/jni_calls.h"
#include "bridge/scope.h"

namespace kepotl {
namespace {

// One setter of DefaultMember: its name, its signature, and its slot among looked-up identifiers.
struct Setter {
  const char* name;
  const char* signature;
  jmethodID MemberInfoIDStruct::*slot;
};

constexpr Setter kHoldExceptions = {"setHoldExceptions", "(Z)V",
                                    &MemberInfoIDStruct::set_hold_exceptions};
constexpr Setter kHandle = {"setHandle", "(I)V", &MemberInfoIDStruct::set_handle};
constexpr Setter kName = {"setName", "(Ljava/lang/String;)V", &MemberInfoIDStruct::set_name};
constexpr Setter kDimensionName = {"setDimensionName", "(Ljava/lang/String;)V",
                                   &MemberInfoIDStruct::set_dimension_name};
constexpr Setter kDimensionHandle = {"setDimensionHandle", "(I)V",
                                     &MemberInfoIDStruct::set_dimension_handle};
constexpr Setter kLevel = {"setLevel", "(S)V", &MemberInfoIDStruct::set_level};
constexpr Setter kGeneration = {"setGeneration", "(S)V", &MemberInfoIDStruct::set_generation};
constexpr Setter kConsolidation = {"setConsolidation", "(S)V",
                                   &MemberInfoIDStruct::set_consolidation};
constexpr Setter kTwoPass = {"setTwoPassCalculation", "(Z)V",
                             &MemberInfoIDStruct::set_two_pass_calculation};
constexpr Setter kConversionType = {"setCurrencyConversionType", "(S)V",
                                    &MemberInfoIDStruct::set_currency_conversion_type};
constexpr Setter kExpense = {"setExpenseMember", "(Z)V", &MemberInfoIDStruct::set_expense_member};
constexpr Setter kCurrencyMember = {"setCurrencyMember", "(Ljava/lang/String;)V",
                                    &MemberInfoIDStruct::set_currency_member};
constexpr Setter kTimeBalance = {"setTimeBalanceOption", "(S)V",
                                 &MemberInfoIDStruct::set_time_balance_option};
constexpr Setter kTimeBalanceSkip = {"setTimeBalanceSkipOption", "(S)V",
                                     &MemberInfoIDStruct::set_time_balance_skip_option};
constexpr Setter kShare = {"setShare", "(S)V", &MemberInfoIDStruct::set_share};
constexpr Setter kStorageType = {"setDimensionStorageType", "(S)V",
                                 &MemberInfoIDStruct::set_dimension_storage_type};
constexpr Setter kCategory = {"setDimensionCategory", "(S)V",
                              &MemberInfoIDStruct::set_dimension_category};
constexpr Setter kComment = {"setComment", "(Ljava/lang/String;)V",
                             &MemberInfoIDStruct::set_comment};
constexpr Setter kChildCount = {"setChildCount", "(J)V", &MemberInfoIDStruct::set_child_count};
constexpr Setter kAttributeType = {"setAttributeType", "(S)V",
                                   &MemberInfoIDStruct::set_attribute_type};
constexpr Setter kHybridDescendants = {"setHasHybridDescendants", "(Z)V",
                                       &MemberInfoIDStruct::set_has_hybrid_descendants};
constexpr Setter kHybridAnalysis = {"setHybridAnalysisEnabled", "(Z)V",
                                    &MemberInfoIDStruct::set_hybrid_analysis_enabled};
constexpr Setter kAttributed = {"setAttributed", "(Z)V", &MemberInfoIDStruct::set_attributed};

// In the order of the slots.
constexpr Setter kSetters[] = {kHoldExceptions,    kHandle,          kName,       kDimensionName,
                               kDimensionHandle,   kLevel,           kGeneration, kConsolidation,
                               kTwoPass,           kConversionType,  kExpense,    kCurrencyMember,
                               kTimeBalance,       kTimeBalanceSkip, kShare,      kStorageType,
                               kCategory,          kComment,         kChildCount, kAttributeType,
                               kHybridDescendants, kHybridAnalysis,  kAttributed};
static_assert(sizeof kSetters / sizeof *kSetters == 23);

// Looks every setter up when it is sent.
struct SettersByName {
  static constexpr bool kSendsAttributed = false;
  JNIEnv* env;
  jobject object;
  TextContext context = {};

  void boolean(const Setter& setter, jboolean value) const {
    CallBooleanSetProperty(env, object, setter.name, value);
  }
  void integer(const Setter& setter, jint value) const {
    CallIntegerSetProperty(env, object, setter.name, value);
  }
  void short_number(const Setter& setter, jshort value) const {
    CallShortSetProperty(env, object, setter.name, value);
  }
  void long_number(const Setter& setter, jlong value) const {
    CallLongSetProperty(env, object, setter.name, value);
  }
  void text(const Setter& setter, const char* value) const {
    CallStringSetProperty(context, env, object, setter.name, value);
  }
};

// Goes straight through looked-up identifiers; a null slot skips its setter.
struct SettersById {
  static constexpr bool kSendsAttributed = true;
  JNIEnv* env;
  jobject object;
  const MemberInfoIDStruct* ids;
  TextContext context = {};

  template <typename Value>
  void send(const Setter& setter, Value value) const {
    jmethodID method = ids->*setter.slot;
    if (method != nullptr) call_void(env, object, method, value);
  }
  void boolean(const Setter& setter, jboolean value) const { send(setter, value); }
  void integer(const Setter& setter, jint value) const { send(setter, value); }
  void short_number(const Setter& setter, jshort value) const { send(setter, value); }
  void long_number(const Setter& setter, jlong value) const { send(setter, value); }
  void text(const Setter& setter, const char* value) const {
    jmethodID method = ids->*setter.slot;
    if (method == nullptr) return;
    LocalRef string(env, env->NewStringUTF(getUTFCharsFromAPIChars(context, value)));
    call_void(env, object, method, string.get());
  }
};

// A dimension tells whether hybrid members lie below it and whether hybrid analysis is on; a leaf
// tells its own flag; members between them tell nothing.
template <typename Setters>
void send_hybrid(const Setters& set, HOutline outline, HMember member,
                 const MemberInfoRecord& info) {
  if (info.generation == 1) {
    if (DetermineIfDimensionHasHybridChildren(outline, member) != 0) {
      set.boolean(kHybridDescendants, JNI_TRUE);
    }
    if (info.hybridAnalysisEnabled != 0) set.boolean(kHybridAnalysis, info.hybridAnalysisEnabled);
  } else if (info.level == 0 && info.hybridFlag != 0) {
    set.boolean(kHybridDescendants, info.hybridFlag);
  }
}

// Values that equal the Java object's defaults are not sent.
template <typename Setters>
void populate(const Setters& set, HOutline outline, HMember member, const MemberInfoRecord& info) {
  set.boolean(kHoldExceptions, JNI_TRUE);
  set.integer(kHandle, static_cast<jint>(member));
  set.text(kName, info.name);
  set.text(kDimensionName, info.dimensionName);
  const HMember dimension = LocateDimensionForMember(outline, member);
  if (dimension != 0) set.integer(kDimensionHandle, static_cast<jint>(dimension));
  if (info.level != 0) set.short_number(kLevel, info.level);
  if (info.generation != 1) set.short_number(kGeneration, info.generation);
  if (info.consolidation != 0) set.short_number(kConsolidation, info.consolidation);
  if (info.twoPass != 0) set.boolean(kTwoPass, info.twoPass);
  if (info.conversionType != 0) set.short_number(kConversionType, info.conversionType);
  if (info.expense != 0) set.boolean(kExpense, info.expense);
  if (info.currencyMember[0] != '\0') set.text(kCurrencyMember, info.currencyMember);
  if (info.timeBalance != 0) set.short_number(kTimeBalance, info.timeBalance);
  if (info.timeBalanceSkip != 0) set.short_number(kTimeBalanceSkip, info.timeBalanceSkip);
  if (info.shareOption != 0) set.short_number(kShare, info.shareOption);
  if (info.generation == 1) set.short_number(kStorageType, info.storageType);
  if (info.dimensionCategory != 0) set.short_number(kCategory, info.dimensionCategory);
  if (info.comment[0] != '\0') set.text(kComment, info.comment);
  if (info.childCount != 0) set.long_number(kChildCount, jlong{info.childCount});
  if constexpr (Setters::kSendsAttributed) {
    if (info.isAttributed != 0) set.boolean(kAttributed, info.isAttributed);
  }
  if (info.attributeType != 0) set.short_number(kAttributeType, info.attributeType);
  send_hybrid(set, outline, member, info);
  set.boolean(kHoldExceptions, JNI_FALSE);
}

}  // namespace
}  // namespace kepotl

using namespace kepotl;

void populateMemberInfoIDStruct(JNIEnv* env, MemberInfoIDStruct* ids) {
  if (ids == nullptr) return;
  *ids = {};
  ids->type = env->FindClass(CNAME_DEFAULT_MEMBER);
  if (ids->type == nullptr) return;
  ids->constructor = env->GetMethodID(ids->type, MNAME_CONSTRUCTOR, PTYPE_CONSTRUCTOR);
  for (const Setter& setter : kSetters) {
    ids->*setter.slot = env->GetMethodID(ids->type, setter.name, setter.signature);
  }
}

jobject CreateMemberObjectWithInfo(JNIEnv* env, HOutline outline, HMember member,
                                   MemberInfoRecord* info) {
  if (info == nullptr) return nullptr;
  jobject object = CreateSimpleObject(env, CNAME_DEFAULT_MEMBER);
  if (object != nullptr) populate(SettersByName{env, object}, outline, member, *info);
  return object;
}

jobject CreateMemberObjectWithInfoEx(JNIEnv* env, HOutline outline, HMember member,
                                     MemberInfoRecord* info, MemberInfoIDStruct* ids) {
  if (info == nullptr || ids == nullptr) return nullptr;
  if (ids->type == nullptr || ids->constructor == nullptr) return nullptr;
  jobject object = new_object(env, ids->type, ids->constructor);
  if (object != nullptr) populate(SettersById{env, object, ids}, outline, member, *info);
  return object;
}

jobject CreateMemberObject(JNIEnv* env, HOutline outline, HMember member) {
  if (member == 0) return nullptr;
  MemberRecord record(outline);
  record.read(member);
  return CreateMemberObjectWithInfo(env, outline, member, record.get());
}

jobject CreateMemberObjectEx(JNIEnv* env, HOutline outline, HMember member,
                             MemberInfoIDStruct* ids) {
  if (member == 0) return nullptr;
  MemberRecord record(outline);
  record.read(member);
  return CreateMemberObjectWithInfoEx(env, outline, member, record.get(), ids);
}
