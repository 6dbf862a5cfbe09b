// Attribute dimensions: associations with base dimensions and members, and the properties of a
// dimension that have to do with them.
#include "bridge/native.h"
#include "browse/browse.h"
#include "edit/edit.h"

namespace kepotl {
namespace {

// Under this name a new attribute dimension stands until it takes over the old one's.
constexpr const char* kPlaceholderName = "xyzzyAttributeDimensionForKEPInternalUse";

// Moves a dimension that has just become an attribute dimension behind the regular dimensions that
// follow it; one with none behind it stays where it is. The status of the move, 0 when none.
int place_attribute_dimension(HOutline outline, HMember dimension) {
  HMember next = 0;
  if (OlvOtlGetNextSibling(outline, dimension, &next) != kStatusOk || next == 0) return kStatusOk;
  const HMember last = FindLastNonAttributeDimension(outline, next);
  if (last == 0 || last == dimension) return kStatusOk;
  return OlvOtlMoveMember(outline, dimension, 0, last);
}

}  // namespace

void set_attribute_dimension_defaults(MemberInfoRecord* info, int16_t attribute_type) {
  info->consolidation = kConsolidationAttribute;
  info->twoPass = 0;
  info->expense = 0;
  info->conversionType = 0;
  info->timeBalance = 0;
  info->timeBalanceSkip = 0;
  info->shareOption = kShareAttribute;
  info->storageType = kStorageTypeRegular;
  info->dimensionCategory = kCategoryAttribute;
  info->storageCategory = kStorageCategoryAttribute;
  info->attributeType = attribute_type;
}

}  // namespace kepotl

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
  if (base == 0) return kStatusRefused;
  HMember attribute = 0;
  const int status = find_by_name(outline, name.api(), &attribute);
  if (attribute == 0) return status;
  return OlvOtlDisassociateAttributeDimension(outline, static_cast<HMember>(base), attribute);
}

KEPOTL_NATIVE(jint, assignAttributeMember)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jint base, jstring jattribute) {
  TextContext text;
  if (base == 0) return kStatusRefused;
  RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusRefused;
  JavaText name(env, text, jattribute);
  HMember attribute = 0;
  const int status = find_by_name(outline, name.api(), &attribute);
  if (attribute == 0) return status;
  return OlvOtlAssociateAttributeMember(outline, static_cast<HMember>(base), attribute);
}

KEPOTL_NATIVE(jint, unassignAttributeMember)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jint base, jstring jattribute) {
  TextContext text;
  JavaText name(env, text, jattribute);
  RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusOk;
  HMember attribute = 0;
  const int status = find_by_name(outline, name.api(), &attribute);
  if (base == 0 || attribute == 0) return status;
  return OlvOtlDisassociateAttributeMember(outline, static_cast<HMember>(base), attribute);
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
  if (status != kStatusOk) return status;
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

int removeAllAttributeAssociations(INST inst, HOutline outline, HMember dimension) {
  uint16_t count = 0;
  ApiBlock<HMember> attributes(inst);
  const int status = OlvOtlGetAssociatedAttributes(outline, dimension, &count, attributes.out());
  if (status != kStatusOk) {
    attributes.forget();
    return status;
  }
  for (uint16_t i = 0; attributes && i < count; ++i) {
    OlvOtlDisassociateAttributeDimension(outline, dimension, attributes[i]);
  }
  return attributes.release();
}

HMember FindLastNonAttributeDimension(HOutline outline, HMember start) {
  HMember last = 0;
  HMember current = start;
  while (current != 0) {
    int16_t category = kCategoryNone;
    {
      MemberRecord record(outline);
      if (record.read(current) == kStatusOk) category = record->dimensionCategory;
    }
    if (category == kCategoryAttribute) {
      HMember previous = 0;
      return OlvOtlGetPrevSibling(outline, current, &previous) == kStatusOk ? previous : 0;
    }
    last = current;
    HMember next = 0;
    if (OlvOtlGetNextSibling(outline, current, &next) != kStatusOk) break;
    current = next;
  }
  return last;
}

int CreateAttributeDimension(uintptr_t /*unread*/, HOutline outline, HMember dimension,
                             const char* name, uint16_t attribute_type) {
  MemberInfoRecord info = {};
  store_text(info.name, kMaxMemberName, kPlaceholderName);
  set_attribute_dimension_defaults(&info, static_cast<int16_t>(attribute_type));
  const HMember previous = FindLastNonAttributeDimension(outline, dimension);
  HMember added = 0;
  const int status = OlvOtlAddDimension(outline, &info, previous, 0, &added);
  if (status != kStatusOk) return status;
  OlvOtlDeleteMemberEx(outline, dimension, kMemberOption);
  return OlvOtlRenameMemberEx(outline, added, name, kMemberOption);
}
