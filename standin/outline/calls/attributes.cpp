// Associating attribute dimensions with base dimensions, and attribute members with base members.
// A base member carries at most one member of each attribute dimension.
#include <limits>

#include "api/olvotl.h"
#include "standin/client.h"
#include "standin/outline/calls/open_outlines.h"

using namespace standin;

namespace {

bool is_attribute_dimension(const Outline& outline, MemberId id) {
  return outline.is_dimension(id) &&
         outline.properties(id).dimension_category == kCategoryAttribute;
}

// Both have to be dimensions, the second an attribute dimension and the first none.
int check_dimensions(const Outline& outline, HMember base, HMember attribute) {
  if (!outline.is_dimension(base) || !outline.is_dimension(attribute)) return kNoSuchDimension;
  if (!is_attribute_dimension(outline, attribute)) return kNotAnAttribute;
  return is_attribute_dimension(outline, base) ? kBadArgument : kStatusOk;
}

// Both have to stand below dimensions that are associated.
int check_members(const Outline& outline, HMember base, HMember attribute) {
  if (outline.is_dimension(base)) return kBadArgument;
  const MemberId dimension = outline.member(attribute).dimension;
  if (attribute == dimension || !is_attribute_dimension(outline, dimension)) {
    return kNotAnAttribute;
  }
  const bool fits = outline.associated(outline.member(base).dimension, dimension);
  return fits ? kStatusOk : kNotAssociated;
}

// Runs `work(outline)` for two members that exist.
template <typename Work>
int edit_pair(HOutline h, HMember base, HMember attribute, Work&& work) {
  return edit_member(h, base, [&](Outline& outline) -> int {
    if (!outline.contains(attribute)) return kBadMember;
    return work(outline);
  });
}

int remove_association(Outline& outline, HMember base, HMember attribute) {
  if (!outline.associated(base, attribute)) return kNotAssociated;
  outline.disassociate(base, attribute);
  return kStatusOk;
}

// Hands out the associations of a member; null when there are none.
int hand_out_associations(const Outline& outline, MemberId id, BlockKind kind, uint32_t* count,
                          HMember** members) {
  *count = 0;
  *members = nullptr;
  const std::vector<MemberId> found = outline.associations(id);
  *members = hand_out_handles(kind, found);
  *count = static_cast<uint32_t>(found.size());
  return kStatusOk;
}

bool known_query(const AttributeQuery& query) {
  if (query.usage != kAttributeQueryUsage || query.operation != kAttributeQueryOperation) {
    return false;
  }
  return (query.inputType == kAttributeQueryMemberInput &&
          query.outputType == kAttributeQueryMemberOutput) ||
         (query.inputType == kAttributeQueryDimensionInput &&
          query.outputType == kAttributeQueryDimensionOutput);
}

}  // namespace

extern "C" {

int OlvOtlGetAssociatedAttributes(HOutline h, HMember member, uint16_t* count,
                                  HMember** attributes) {
  if (count == nullptr || attributes == nullptr) return kBadArgument;
  return read_member(h, member, [&](const Outline& outline) {
    uint32_t found = 0;
    const int status =
        hand_out_associations(outline, member, BlockKind::kPlain, &found, attributes);
    if (status == kStatusOk) *count = static_cast<uint16_t>(found);
    return status;
  });
}

// Asked for as a member, a dimension answers its attribute dimensions all the same.
int OlvOtlQueryAttributes(HOutline h, const AttributeQuery* query, uint32_t* count,
                          HMember** members) {
  if (query == nullptr || count == nullptr || members == nullptr) return kBadArgument;
  return read_member(h, query->member, [&](const Outline& outline) -> int {
    if (!known_query(*query)) return kBadQuery;
    if (query->inputType == kAttributeQueryDimensionInput && !outline.is_dimension(query->member)) {
      return kNoSuchDimension;
    }
    return hand_out_associations(outline, query->member, BlockKind::kMembers, count, members);
  });
}

int OlvOtlAssociateAttributeDimension(HOutline h, HMember base, HMember attribute) {
  return edit_pair(h, base, attribute, [&](Outline& outline) -> int {
    const int status = check_dimensions(outline, base, attribute);
    if (status != kStatusOk) return status;
    if (outline.associated(base, attribute)) return kAlreadyAssociated;
    // The interface counts them in 16 bits.
    if (outline.associations(base).size() == std::numeric_limits<uint16_t>::max()) {
      return kBadArgument;
    }
    outline.associate(base, attribute);
    return kStatusOk;
  });
}

int OlvOtlDisassociateAttributeDimension(HOutline h, HMember base, HMember attribute) {
  return edit_pair(h, base, attribute, [&](Outline& outline) -> int {
    const int status = check_dimensions(outline, base, attribute);
    return status != kStatusOk ? status : remove_association(outline, base, attribute);
  });
}

int OlvOtlAssociateAttributeMember(HOutline h, HMember base, HMember attribute) {
  return edit_pair(h, base, attribute, [&](Outline& outline) -> int {
    const int status = check_members(outline, base, attribute);
    if (status != kStatusOk) return status;
    if (outline.associated(base, attribute) || outline.carries_other(base, attribute)) {
      return kAlreadyAssociated;
    }
    outline.associate(base, attribute);
    return kStatusOk;
  });
}

int OlvOtlDisassociateAttributeMember(HOutline h, HMember base, HMember attribute) {
  return edit_pair(h, base, attribute, [&](Outline& outline) -> int {
    const int status = check_members(outline, base, attribute);
    return status != kStatusOk ? status : remove_association(outline, base, attribute);
  });
}

}  // extern "C"
