// Copies one member: as a member of the target's dimension, or out as a new dimension.
#include <cstdio>
#include <cstring>

#include "bridge/java_int.h"
#include "edit/copy_request.h"
#include "edit/edit.h"

namespace kepotl {
namespace {

// Under this name a copy is added before it takes its source's name.
constexpr const char* kCopyName = "KEPTempNameForCopy";

// The four records that decide what a copy looks like.
struct CopyRecords {
  explicit CopyRecords(HOutline outline)
      : target(outline), source(outline), target_dimension(outline), source_dimension(outline) {}

  // Whether all four were read.
  bool read(HMember target_member, HMember source_member, HMember target_dimension_member,
            HMember source_dimension_member) {
    return has(target, target_member) && has(source, source_member) &&
           has(target_dimension, target_dimension_member) &&
           has(source_dimension, source_dimension_member);
  }

  MemberRecord target;
  MemberRecord source;
  MemberRecord target_dimension;
  MemberRecord source_dimension;

 private:
  static bool has(MemberRecord& record, HMember member) {
    record.read(member);
    return static_cast<bool>(record);
  }
};

// What currencies and time balances say; it means something in an accounts dimension only.
void clear_account_fields(MemberInfoRecord* info) {
  info->expense = 0;
  info->conversionType = 0;
  std::memset(info->currencyMember, 0, sizeof info->currencyMember);
  info->timeBalance = 0;
  info->timeBalanceSkip = 0;
}

// What the outline itself keeps true, or what a copy does not take over.
void clear_computed_fields(MemberInfoRecord* info) {
  info->level = 0;
  info->generation = 0;
  info->childCount = 0;
  info->isAttributed = 0;
  info->hybridFlag = 0;
  info->hybridAnalysisEnabled = 0;
}

// A copy of a shared member is a member of its own.
int16_t copied_share(int16_t share) {
  return share == kShareShared ? kShareNone : share;
}

// Record of a copy that goes into an attribute dimension.
void become_attribute_member(MemberInfoRecord* info) {
  info->consolidation = kConsolidationAttribute;
  info->twoPass = 0;
  clear_account_fields(info);
  info->shareOption = kShareAttribute;
  info->storageType = kStorageTypeRegular;
  info->dimensionCategory = kCategoryAttribute;
  info->storageCategory = kStorageCategoryAttribute;
  info->attributeType = kAttributeTypeMember;
}

// Record of a copy that goes into any other dimension.
void become_regular_member(MemberInfoRecord* info, bool keeps_account_fields) {
  if (!keeps_account_fields) clear_account_fields(info);
  info->shareOption = copied_share(info->shareOption);
  info->storageType = 0;
  info->dimensionCategory = kCategoryNone;
  info->storageCategory = 0;
  info->attributeType = 0;
  std::memset(info->reserved534, 0, sizeof info->reserved534);
}

MemberInfoRecord copied_member(const CopyRecords& records) {
  MemberInfoRecord info = *records.source;
  clear_computed_fields(&info);
  if (records.target_dimension->dimensionCategory == kCategoryAttribute) {
    become_attribute_member(&info);
  } else {
    become_regular_member(&info,
                          records.target_dimension->dimensionCategory == kCategoryAccounts &&
                              records.source_dimension->dimensionCategory == kCategoryAccounts);
  }
  store_text(info.name, kMaxMemberName, kCopyName);
  return info;
}

MemberInfoRecord copied_dimension(const CopyRecords& records) {
  MemberInfoRecord info = *records.source_dimension;
  if (info.dimensionCategory == kCategoryAttribute) {
    info.consolidation = kConsolidationAttribute;
    info.twoPass = 0;
    info.shareOption = kShareAttribute;
    info.storageType = kStorageTypeRegular;
  } else {
    info.consolidation = records.source->consolidation;
    info.twoPass = records.source->twoPass;
    info.shareOption = copied_share(info.shareOption);
    info.dimensionCategory = kCategoryNone;
    info.storageCategory = 0;
  }
  clear_computed_fields(&info);
  clear_account_fields(&info);
  std::memcpy(info.comment, records.source->comment, sizeof info.comment);
  return info;
}

// Finds the first free name for a member copied out as a dimension. False when it is longer than a
// name may be.
bool store_free_dimension_name(HOutline outline, const char* source_name, MemberInfoRecord* info) {
  char name[sizeof info->name + 64];
  std::snprintf(name, sizeof name, "Copy of %s", source_name);
  for (long counter = 2;; ++counter) {
    if (!store_text(info->name, kMaxMemberName, name)) return false;
    if (ask_handle(OlvOtlFindMember, outline, name).handle == 0) return true;
    std::snprintf(name, sizeof name, "Copy (%ld) of %s", counter, source_name);
  }
}

void copy_details(INST inst, HOutline outline, HMember target, HMember source) {
  CopyUDAS(inst, outline, target, source);
  CopyExtendedComments(inst, outline, target, source);
  CopyFormula(inst, outline, target, source);
}

// Adds the copy under its temporary name and gives it its source's. 0, and nothing left in the
// outline, when either is refused.
HMember add_copy(HOutline outline, const MemberInfoRecord& info, Place place, const char* name) {
  const HMember copy = add_member(outline, info, place).handle;
  if (copy == 0) return 0;
  if (OlvOtlRenameMemberEx(outline, copy, name, kMemberOption) == kStatusOk) return copy;
  OlvOtlDeleteMemberEx(outline, copy, kMemberOption);
  return 0;
}

}  // namespace
}  // namespace kepotl

using namespace kepotl;

HMember CopyCreateMember(JNIEnv* env, jobject jrequest, INST inst, HOutline outline, HMember target,
                         HMember target_dimension, HMember source, HMember source_dimension,
                         jboolean as_sibling) {
  CopyRecords records(outline);
  if (!records.read(target, source, target_dimension, source_dimension)) return 0;
  const MemberInfoRecord info = copied_member(records);
  const Place place = as_sibling != 0 ? Place{0, target} : Place{target, 0};
  const HMember copy = add_copy(outline, info, place, records.source->name);
  if (copy == 0) return 0;
  if (source_dimension == target_dimension &&
      records.target_dimension->dimensionCategory != kCategoryAttribute &&
      records.source->isAttributed != 0) {
    CopyAttributeMaps(inst, outline, copy, source);
  }
  copy_details(inst, outline, copy, source);

  const CopyRequest request(env, jrequest);
  request.set_count(java_sum(request.count(), 1));
  const jint children = static_cast<jint>(records.source->childCount);
  if (children != 0) request.set_total(java_sum(request.total(), children));
  request.set_last_pair(source, copy);
  return copy;
}

HMember CopyCreateDimension(JNIEnv* env, jobject jrequest, INST inst, HOutline outline,
                            HMember target, HMember target_dimension, HMember source,
                            HMember source_dimension) {
  CopyRecords records(outline);
  if (!records.read(target, source, target_dimension, source_dimension)) return 0;
  MemberInfoRecord info = copied_dimension(records);
  if (!store_free_dimension_name(outline, records.source->name, &info)) return 0;
  const HMember copy = ask_handle(OlvOtlAddDimension, outline, &info, target, uint32_t{0}).handle;
  if (copy == 0) return 0;
  copy_details(inst, outline, copy, source);

  const CopyRequest request(env, jrequest);
  const jint children = static_cast<jint>(records.source->childCount);
  request.set_finished(children == 0);
  request.set_count(1);
  request.set_total(java_sum(children, 1));
  request.set_last_pair(source, copy);
  return copy;
}
