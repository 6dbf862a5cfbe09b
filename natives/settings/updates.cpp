// Updates of single outline-wide settings. Each reads the whole record, changes one field, writes
// the record back and releases it.
#include "bridge/native.h"
#include "bridge/scope.h"

namespace kepotl {
namespace {

// Reads the outline information, calls change(record), and writes it back.
template <typename Change>
jint update_info(JNIEnv* env, jobject jinst, jobject joutline, Change change) {
  TextContext text;
  const INST inst = RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusOk;
  ApiBlock<OutlineInfoRecord> info(inst);
  const int status = info.take(OlvOtlGetOutlineInfo, outline);
  if (!info) return status_without_record(status);
  change(*info);
  return OlvOtlSetOutlineInfoEx(outline, info.get());
}

// Reads the attribute specifications, calls change(context, record), and writes them back. What
// change returns is kept until then: the characters that the record points to, or none.
template <typename Change>
jint update_specs(JNIEnv* env, jobject jinst, jobject joutline, Change change) {
  TextContext text;
  const INST inst = RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusOk;
  ApiBlock<AttributeSpecRecord> specs(inst);
  const int status = specs.take(OlvOtlGetAttributeSpecifications, outline);
  if (!specs) return status_without_record(status);
  const JavaText kept = change(text, *specs);
  if (kept.lost()) return kStatusRefused;
  return OlvOtlSetAttributeSpecifications(outline, specs.get());
}

// Stores the value of a value object at the field's width.
template <typename Field>
jint update_code(JNIEnv* env, jobject jinst, jobject joutline, jobject value,
                 Field AttributeSpecRecord::*field) {
  return update_specs(env, jinst, joutline, [&](int, AttributeSpecRecord& specs) {
    specs.*field = static_cast<Field>(CallShortGetProperty(env, value, "getValue"));
    return JavaText();
  });
}

// Points a text field to the Java string's characters.
jint update_name(JNIEnv* env, jobject jinst, jobject joutline, jstring value,
                 const char* AttributeSpecRecord::*field) {
  return update_specs(env, jinst, joutline, [&](int context, AttributeSpecRecord& specs) {
    JavaText name(env, context, value);
    specs.*field = name.api();
    return name;
  });
}

}  // namespace
}  // namespace kepotl

using namespace kepotl;

KEPOTL_NATIVE(jint, updateAutoConfigure)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jboolean value) {
  return update_info(env, jinst, joutline, [&](OutlineInfoRecord& info) {
    const int others = info.configureFlags & ~kConfigureAuto;
    info.configureFlags = static_cast<uint8_t>(others | (value ? kConfigureAuto : 0));
  });
}

KEPOTL_NATIVE(jint, updateCaseSensitivity)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jboolean value) {
  return update_info(env, jinst, joutline,
                     [&](OutlineInfoRecord& info) { info.caseSensitive = value ? 1 : 0; });
}

KEPOTL_NATIVE(jint, updateLongnameConstructor)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jobject value) {
  return update_code(env, jinst, joutline, value, &AttributeSpecRecord::longNameConstructor);
}

KEPOTL_NATIVE(jint, updateLongnameSource)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jobject value) {
  return update_code(env, jinst, joutline, value, &AttributeSpecRecord::longNameSource);
}

KEPOTL_NATIVE(jint, updateLongnameDelimiter)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jobject value) {
  return update_code(env, jinst, joutline, value, &AttributeSpecRecord::longNameDelimiter);
}

KEPOTL_NATIVE(jint, updateDateFormat)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jobject value) {
  return update_code(env, jinst, joutline, value, &AttributeSpecRecord::dateFormat);
}

KEPOTL_NATIVE(jint, updateBucketingType)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jobject value) {
  return update_code(env, jinst, joutline, value, &AttributeSpecRecord::bucketingType);
}

KEPOTL_NATIVE(jint, updateBooleanNameTrue)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jstring value) {
  return update_name(env, jinst, joutline, value, &AttributeSpecRecord::trueName);
}

KEPOTL_NATIVE(jint, updateBooleanNameFalse)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jstring value) {
  return update_name(env, jinst, joutline, value, &AttributeSpecRecord::falseName);
}

KEPOTL_NATIVE(jint, updateCalcDimName)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jstring value) {
  return update_name(env, jinst, joutline, value, &AttributeSpecRecord::calcDimensionName);
}

KEPOTL_NATIVE(jint, updateSumMemberName)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jstring value) {
  return update_name(env, jinst, joutline, value, &AttributeSpecRecord::sumName);
}

KEPOTL_NATIVE(jint, updateCountMemberName)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jstring value) {
  return update_name(env, jinst, joutline, value, &AttributeSpecRecord::countName);
}

KEPOTL_NATIVE(jint, updateAverageMemberName)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jstring value) {
  return update_name(env, jinst, joutline, value, &AttributeSpecRecord::averageName);
}

KEPOTL_NATIVE(jint, updateMinimumMemberName)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jstring value) {
  return update_name(env, jinst, joutline, value, &AttributeSpecRecord::minimumName);
}

KEPOTL_NATIVE(jint, updateMaximumMemberName)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jstring value) {
  return update_name(env, jinst, joutline, value, &AttributeSpecRecord::maximumName);
}
