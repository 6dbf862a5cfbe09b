// Attribute dimensions, without a virtual machine: what makes one, where it stands, and the
// dimensions that it is associated with.
#include "edit/edit.h"

namespace kepotl {
namespace {

// Under this name a new attribute dimension stands until it takes over the old one's.
constexpr const char* kPlaceholderName = "xyzzyAttributeDimensionForKEPInternalUse";

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

int place_attribute_dimension(HOutline outline, HMember dimension) {
  const HMember next = ask_handle(OlvOtlGetNextSibling, outline, dimension).handle;
  if (next == 0) return kStatusOk;
  const HMember last = FindLastNonAttributeDimension(outline, next);
  if (last == 0 || last == dimension) return kStatusOk;
  return OlvOtlMoveMember(outline, dimension, 0, last);
}

}  // namespace kepotl

using namespace kepotl;

int removeAllAttributeAssociations(INST inst, HOutline outline, HMember dimension) {
  ApiArray<HMember, uint16_t> attributes(inst);
  const int status = attributes.take(OlvOtlGetAssociatedAttributes, outline, dimension);
  if (status != kStatusOk) return status;
  for (HMember attribute : attributes) {
    OlvOtlDisassociateAttributeDimension(outline, dimension, attribute);
  }
  return attributes.release();
}

HMember FindLastNonAttributeDimension(HOutline outline, HMember start) {
  HMember last = 0;
  for (HMember current = start; current != 0;) {
    if (category_of(outline, current) == kCategoryAttribute) {
      return ask_handle(OlvOtlGetPrevSibling, outline, current).handle;
    }
    last = current;
    current = ask_handle(OlvOtlGetNextSibling, outline, current).handle;
  }
  return last;
}

int CreateAttributeDimension(uintptr_t /*unread*/, HOutline outline, HMember dimension,
                             const char* name, uint16_t attribute_type) {
  if (name == nullptr) return kStatusRefused;
  MemberInfoRecord info = {};
  store_text(info.name, kMaxMemberName, kPlaceholderName);
  set_attribute_dimension_defaults(&info, static_cast<int16_t>(attribute_type));
  const HMember previous = FindLastNonAttributeDimension(outline, dimension);
  const GivenHandle added = ask_handle(OlvOtlAddDimension, outline, &info, previous, uint32_t{0});
  // The old dimension goes only when there is one to take its place.
  if (added.handle == 0) return status_without_record(added.status);
  OlvOtlDeleteMemberEx(outline, dimension, kMemberOption);
  return OlvOtlRenameMemberEx(outline, added.handle, name, kMemberOption);
}
