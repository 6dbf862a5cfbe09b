// Reads the outline-wide settings and the attribute specifications: the older readers with plain
// setters, the newer ones with value objects.
#include "bridge/jni_calls.h"
#include "bridge/native.h"
#include "bridge/scope.h"

namespace kepotl {
namespace {

// Hands every alias table name to addAliasTable(String), looked up once.
void add_alias_table_names(JNIEnv* env, int context, jobject target,
                           const OutlineInfoRecord* info) {
  if (info->aliasTableCount == 0 || target == nullptr) return;
  jclass type = env->GetObjectClass(target);
  if (type == nullptr) return;
  jmethodID add = env->GetMethodID(type, "addAliasTable", "(Ljava/lang/String;)V");
  if (add == nullptr) return;
  for (uint16_t i = 0; i < info->aliasTableCount; ++i) {
    LocalRef name(env,
                  env->NewStringUTF(getUTFCharsFromAPIChars(context, alias_table_name(info, i))));
    call_void(env, target, add, name.get());
  }
}

// Hands every alias table to addAliasTable as an object; the first is the default table.
void add_alias_tables(JNIEnv* env, int context, jobject target, const OutlineInfoRecord* info) {
  for (uint16_t i = 0; i < info->aliasTableCount; ++i) {
    jobject table = CreateSimpleObject(env, CNAME_ALIAS_TABLE);
    if (table == nullptr) continue;
    if (i == 0) CallBooleanSetProperty(env, table, "setDefaultTable", JNI_TRUE);
    CallStringSetProperty(context, env, table, "setName", alias_table_name(info, i));
    CallObjectSetProperty(env, target, "addAliasTable",
                          "(Lcom/olvane/kep/olvane/defs/outline/AliasTable;)V", table);
  }
}

// An attribute specification record that goes back as a structure whatever the read's status, a
// null one included.
class AttributeSpecs {
 public:
  explicit AttributeSpecs(HOutline outline) : outline_(outline) {}
  ~AttributeSpecs() { OlvOtlFreeStructure(outline_, 1, kStructureAttributeSpec, record_); }
  AttributeSpecs(const AttributeSpecs&) = delete;
  AttributeSpecs& operator=(const AttributeSpecs&) = delete;

  // The API's status; after a failure the record is not to be read.
  int read() { return OlvOtlGetAttributeSpecifications(outline_, &record_); }
  explicit operator bool() const { return record_ != nullptr; }
  const AttributeSpecRecord* operator->() const { return record_; }

 private:
  HOutline outline_;
  AttributeSpecRecord* record_ = nullptr;
};

}  // namespace
}  // namespace kepotl

using namespace kepotl;

KEPOTL_NATIVE(jint, getOutlineInfo)(JNIEnv* env, jclass, jobject joutline, jobject target) {
  TextContext text;
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusOk;
  ApiBlock<OutlineInfoRecord> info(kNoInstance);
  const int status = info.take(OlvOtlGetOutlineInfo, outline);
  if (!info) return status;
  // The whole byte, as this reader has always passed it; getSettings tells the bits apart.
  CallBooleanSetProperty(env, target, "setAutoConfigure", info->configureFlags);
  CallBooleanSetProperty(env, target, "setCaseSensitive", info->caseSensitive);
  CallShortSetProperty(env, target, "setOutlineType", info->outlineType);
  add_alias_table_names(env, text, target, info.get());
  return status;
}

KEPOTL_NATIVE(jint, getSettings)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jobject target) {
  TextContext text;
  const INST inst = RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusOk;
  // This reader gives back a record that a failed read has left.
  ApiBlock<OutlineInfoRecord> info(inst, AfterFailure::kGiveBack);
  const int status = info.take(OlvOtlGetOutlineInfo, outline);
  if (!info) return status;
  const bool auto_configure = (info->configureFlags & kConfigureAuto) != 0;
  const bool warnings = (info->configureFlags & kConfigureWarnings) != 0;
  CallBooleanSetProperty(env, target, "setAutoConfigure", auto_configure);
  CallBooleanSetProperty(env, target, "setProvideWarnings", warnings);
  CallBooleanSetProperty(env, target, "setCaseSensitive", info->caseSensitive);
  CallObjectSetProperty(env, target, "setOutlineType",
                        "(Lcom/olvane/kep/olvane/defs/outline/OutlineType;)V",
                        CreateShortObject(env, CNAME_OUTLINE_TYPE, info->outlineType));
  add_alias_tables(env, text, target, info.get());
  return status;
}

KEPOTL_NATIVE(jint, getAttributeSpecs)(JNIEnv* env, jclass, jobject joutline, jobject target) {
  TextContext text;
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusOk;
  AttributeSpecs specs(outline);
  const int status = specs.read();
  if (status != kStatusOk || !specs) return status;
  CallShortSetProperty(env, target, "setUseNameOf", specs->longNameSource);
  CallShortSetProperty(env, target, "setGenNameBy", specs->longNameConstructor);
  CallShortSetProperty(env, target, "setNameDelimiter", specs->longNameDelimiter);
  CallStringSetProperty(text, env, target, "setCalcDimensionName", specs->calcDimensionName);
  CallStringSetProperty(text, env, target, "setCalcSumName", specs->sumName);
  CallStringSetProperty(text, env, target, "setCalcCountName", specs->countName);
  CallStringSetProperty(text, env, target, "setCalcMinimumName", specs->minimumName);
  CallStringSetProperty(text, env, target, "setCalcMaximumName", specs->maximumName);
  CallStringSetProperty(text, env, target, "setCalcAverageName", specs->averageName);
  CallStringSetProperty(text, env, target, "setBooleanNameTrue", specs->trueName);
  CallStringSetProperty(text, env, target, "setBooleanNameFalse", specs->falseName);
  CallShortSetProperty(env, target, "setDateMemberName", specs->dateFormat);
  CallShortSetProperty(env, target, "setNumericBound", specs->bucketingType);
  return status;
}

KEPOTL_NATIVE(jint, getAttributeSpecsEx)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jobject target) {
  TextContext text;
  const INST inst = RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusOk;
  // This reader gives back a record that a failed read has left.
  ApiBlock<AttributeSpecRecord> specs(inst, AfterFailure::kGiveBack);
  const int status = specs.take(OlvOtlGetAttributeSpecifications, outline);
  if (!specs) return status;
  jobject constructor =
      CreateShortObject(env, CNAME_LONGNAME_CONSTRUCTOR, specs->longNameConstructor);
  jobject source = CreateShortObject(env, CNAME_LONGNAME_SOURCE, specs->longNameSource);
  jobject delimiter = CreateShortObject(env, CNAME_LONGNAME_DELIMITER, specs->longNameDelimiter);
  jobject date_format = CreateShortObject(env, CNAME_ATTRDATE_FORMAT, specs->dateFormat);
  jobject bucketing = CreateShortObject(env, CNAME_BUCKETING, specs->bucketingType);
  CallObjectSetProperty(env, target, "setLongNameConstructor", PTYPE_LONGNAME_CONSTRUCTOR,
                        constructor);
  CallObjectSetProperty(env, target, "setLongNameSource", PTYPE_LONGNAME_SOURCE, source);
  CallObjectSetProperty(env, target, "setLongNameDelimiter", PTYPE_LONGNAME_DELIMITER, delimiter);
  CallObjectSetProperty(env, target, "setDateFormat", PTYPE_ATTRDATE_FORMAT, date_format);
  CallObjectSetProperty(env, target, "setBucketingType", PTYPE_BUCKETING, bucketing);
  CallStringSetProperty(text, env, target, "setTrueText", specs->trueName);
  CallStringSetProperty(text, env, target, "setFalseText", specs->falseName);
  CallStringSetProperty(text, env, target, "setCalculationDimension", specs->calcDimensionName);
  CallStringSetProperty(text, env, target, "setSum", specs->sumName);
  CallStringSetProperty(text, env, target, "setCount", specs->countName);
  CallStringSetProperty(text, env, target, "setAverage", specs->averageName);
  CallStringSetProperty(text, env, target, "setMinimum", specs->minimumName);
  CallStringSetProperty(text, env, target, "setMaximum", specs->maximumName);
  return status;
}
