// Adds dimensions and members: the defaults of their records, and what is done when a name is in
// use.
#include "edit/edit.h"

namespace kepotl {
namespace {

// Under this name a member is added when its own name is in use already; the rename that follows
// is allowed to make a duplicate.
constexpr const char* kDuplicateAddName = "KEPTempNameForDuplicateAdd";

// The plain record of a new member or dimension.
void set_plain(MemberInfoRecord* info, const char* name) {
  *info = {};
  store_text(info->name, kMaxMemberName, name);
  info->storageType = kStorageTypeRegular;
}

// What a member and a dimension have in common when they are attributes.
void set_attribute(MemberInfoRecord* info, int16_t attribute_type) {
  info->consolidation = kConsolidationAttribute;
  info->shareOption = kShareAttribute;
  info->dimensionCategory = kCategoryAttribute;
  info->storageCategory = kStorageCategoryAttribute;
  info->attributeType = attribute_type;
}

// Adds a member whose name is in use: under a temporary name first, then renamed. Nothing is left
// behind when the rename is refused.
GivenHandle add_duplicate(HOutline outline, MemberInfoRecord* info, Place place, const char* name) {
  store_text(info->name, kMaxMemberName, kDuplicateAddName);
  const GivenHandle added = add_member(outline, *info, place);
  if (added.handle == 0) return added;
  if (OlvOtlRenameMemberEx(outline, added.handle, name, kMemberOption) == kStatusOk) return added;
  OlvOtlDeleteMemberEx(outline, added.handle, kMemberOption);
  return {kStatusDuplicateName, 0};
}

}  // namespace

GivenHandle add_member(HOutline outline, const MemberInfoRecord& info, Place place) {
  HMember added = 0;
  const int status =
      OlvOtlAddMemberEx(outline, &info, place.parent, place.sibling, &added, kMemberOption);
  return {status, status == kStatusOk ? added : 0};
}

GivenHandle add_in_dimension(HOutline outline, Place place, HMember dimension, const char* name) {
  MemberInfoRecord info;
  populateMemberInfo(outline, dimension, &info, name);
  const GivenHandle added = add_member(outline, info, place);
  if (added.status != kStatusDuplicateName) return added;
  return add_duplicate(outline, &info, place, name);
}

GivenHandle add_with_defaults(HOutline outline, Place place, const char* name) {
  // Also for a dimension, whose defaults come from the one before it.
  const HMember dimension = locateDimension(outline, place.parent, place.sibling);
  if (place.parent != 0) return add_in_dimension(outline, place, dimension, name);
  MemberInfoRecord info;
  populateDimensionInfo(outline, place.sibling, &info, name);
  return ask_handle(OlvOtlAddDimension, outline, &info, place.sibling, uint32_t{0});
}

}  // namespace kepotl

using namespace kepotl;

HMember locateDimension(HOutline outline, HMember parent, HMember sibling) {
  HMember dimension = 0;
  HMember current = parent != 0 ? parent : sibling;
  while (current != 0) {
    dimension = current;
    current = ask_handle(OlvOtlGetParent, outline, current).handle;
  }
  return dimension;
}

void populateMemberInfo(HOutline outline, HMember dimension, MemberInfoRecord* info,
                        const char* name) {
  if (info == nullptr || name == nullptr) return;
  const int16_t category = dimension == 0 ? kCategoryNone : category_of(outline, dimension);
  set_plain(info, name);
  if (category == kCategoryAttribute) set_attribute(info, kAttributeTypeMember);
}

void populateDimensionInfo(HOutline outline, HMember previous_dimension, MemberInfoRecord* info,
                           const char* name) {
  if (info == nullptr || name == nullptr) return;
  const int16_t category =
      previous_dimension == 0 ? kCategoryNone : category_of(outline, previous_dimension);
  set_plain(info, name);
  if (category == kCategoryAttribute) set_attribute(info, kAttributeTypeDimension);
}
