// The native methods around attribute dimensions: associations with base dimensions and members,
// and the properties of a dimension that have to do with them.
#include "bridge/native.h"
#include "bridge/scope.h"
#include "browse/members.h"
#include "edit/edit.h"

using namespace kepotl;

KEPOTL_NATIVE(jint, assignAttributeDimension)
(JNIEnv* env, jclass, jobject /*inst*/, jobject joutline, jint base, jint attribute) {
  TextContext text;
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusOk;
  if (base == 0 || attribute == 0) return kStatusRefused;
  return OlvOtlAssociateAttributeDimension(outline, static_cast<HMember>(base),
                                           static_cast<HMember>(attribute));
}

KEPOTL_NATIVE(jint, unassignAttributeDimension)
(JNIEnv* env, jclass, jobject /*inst*/, jobject joutline, jint base, jstring jattribute) {
  TextContext text;
  JavaText name(env, text, jattribute);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusOk;
  if (base == 0 || name.lost()) return kStatusRefused;
  const GivenHandle attribute = find_by_name(outline, name.api());
  if (attribute.status != kStatusOk) return attribute.status;
  // A handle of 0 goes on, too, so that the API's refusal of it reaches Java.
  return OlvOtlDisassociateAttributeDimension(outline, static_cast<HMember>(base),
                                              attribute.handle);
}

KEPOTL_NATIVE(jint, assignAttributeMember)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jint base, jstring jattribute) {
  TextContext text;
  if (base == 0) return kStatusRefused;
  RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusRefused;
  JavaText name(env, text, jattribute);
  if (name.lost()) return kStatusRefused;
  const GivenHandle attribute = find_by_name(outline, name.api());
  if (attribute.handle == 0) return attribute.status;
  return OlvOtlAssociateAttributeMember(outline, static_cast<HMember>(base), attribute.handle);
}

KEPOTL_NATIVE(jint, unassignAttributeMember)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jint base, jstring jattribute) {
  TextContext text;
  JavaText name(env, text, jattribute);
  RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusOk;
  if (name.lost()) return kStatusRefused;
  const GivenHandle attribute = find_by_name(outline, name.api());
  if (base == 0 || attribute.handle == 0) return attribute.status;
  return OlvOtlDisassociateAttributeMember(outline, static_cast<HMember>(base), attribute.handle);
}

KEPOTL_NATIVE(jint, assignDimensionHybridAnalysis)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jint handle, jboolean enabled) {
  TextContext text;
  RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0 || handle == 0) return kStatusOk;
  return update_member(outline, static_cast<HMember>(handle),
                       [&](MemberInfoRecord& info) { info.hybridAnalysisEnabled = enabled; });
}

KEPOTL_NATIVE(jint, assignDimensionStorageType)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jint handle, jobject value) {
  TextContext text;
  const INST inst = RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0 || handle == 0) return kStatusOk;
  const HMember dimension = static_cast<HMember>(handle);
  return update_member(outline, dimension, [&](MemberInfoRecord& info) {
    // Whatever the new storage type is; what cannot be removed stays and is not reported.
    if (info.isAttributed != 0) removeAllAttributeAssociations(inst, outline, dimension);
    info.storageType = CallShortGetProperty(env, value, "getValue");
  });
}

KEPOTL_NATIVE(jint, assignMemberDimensionCategory)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jint handle, jobject category,
 jobject attribute_type) {
  TextContext text;
  RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0 || handle == 0) return kStatusOk;
  const HMember dimension = static_cast<HMember>(handle);
  MemberRecord record(outline);
  int status = record.read(dimension);
  if (!record) return status_without_record(status);
  int16_t type = kAttributeTypeDimension;
  const int16_t wanted = CallShortGetProperty(env, category, "getValue");
  if (attribute_type != nullptr) {
    type = CallShortGetProperty(env, attribute_type, "getValue");
    record->attributeType = type;
  }
  const bool becomes_attribute =
      wanted == kCategoryAttribute && record->dimensionCategory != kCategoryAttribute;
  record->dimensionCategory = wanted;
  if (becomes_attribute) set_attribute_dimension_defaults(record.get(), type);
  status = OlvOtlSetMemberInfoEx(outline, dimension, record.get(), kMemberOption);
  if (status != kStatusOk || !becomes_attribute) return status;
  return place_attribute_dimension(outline, dimension);
}
