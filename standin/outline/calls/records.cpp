// Reading and writing member records.
#include "standin/outline/calls/records.h"

#include <algorithm>
#include <cstring>
#include <limits>

#include "api/olvotl.h"
#include "standin/client.h"
#include "standin/outline/calls/open_outlines.h"

namespace standin {

namespace {

// The text in a field, up to its NUL or the field's end.
template <size_t kSize>
std::string_view text_of(const char (&field)[kSize]) {
  return {field, strnlen(field, kSize)};
}

// `text` is shorter than the field, which is cleared already.
template <size_t kSize>
void put_text(char (&field)[kSize], std::string_view text) {
  std::memcpy(field, text.data(), std::min(text.size(), kSize - 1));
}

// Generations and levels beyond the field's range stay at its end.
int16_t clamp(uint32_t number) {
  constexpr int16_t kMost = std::numeric_limits<int16_t>::max();
  return number > static_cast<uint32_t>(kMost) ? kMost : static_cast<int16_t>(number);
}

MemberProperties properties_of(const MemberInfoRecord& info) {
  MemberProperties p;
  p.consolidation = info.consolidation;
  p.conversion_type = info.conversionType;
  p.time_balance = info.timeBalance;
  p.time_balance_skip = info.timeBalanceSkip;
  p.share_option = info.shareOption;
  p.storage_type = info.storageType;
  p.dimension_category = info.dimensionCategory;
  p.storage_category = info.storageCategory;
  p.attribute_type = info.attributeType;
  p.two_pass = info.twoPass;
  p.expense = info.expense;
  p.hybrid_flag = info.hybridFlag;
  p.hybrid_analysis_enabled = info.hybridAnalysisEnabled;
  auto next =
      std::copy(std::begin(info.reserved530), std::end(info.reserved530), p.reserved.begin());
  next = std::copy(std::begin(info.reserved534), std::end(info.reserved534), next);
  std::copy(std::begin(info.reserved546), std::end(info.reserved546), next);
  return p;
}

void put_properties(MemberInfoRecord& info, const MemberProperties& p) {
  info.consolidation = p.consolidation;
  info.conversionType = p.conversion_type;
  info.timeBalance = p.time_balance;
  info.timeBalanceSkip = p.time_balance_skip;
  info.shareOption = p.share_option;
  info.storageType = p.storage_type;
  info.dimensionCategory = p.dimension_category;
  info.storageCategory = p.storage_category;
  info.attributeType = p.attribute_type;
  info.twoPass = p.two_pass;
  info.expense = p.expense;
  info.hybridFlag = p.hybrid_flag;
  info.hybridAnalysisEnabled = p.hybrid_analysis_enabled;
  const auto* from = p.reserved.data();
  std::memcpy(info.reserved530, from, sizeof info.reserved530);
  from += sizeof info.reserved530;
  std::memcpy(info.reserved534, from, sizeof info.reserved534);
  from += sizeof info.reserved534;
  std::memcpy(info.reserved546, from, sizeof info.reserved546);
}

// Fills a cleared record.
void put_member(const Outline& outline, MemberId id, MemberInfoRecord& info) {
  const Member& member = outline.member(id);
  put_text(info.name, member.name);
  info.level = clamp(outline.level(id));
  info.generation = clamp(member.generation);
  info.childCount = member.child_count;
  put_text(info.dimensionName, outline.member(member.dimension).name);
  info.isAttributed = outline.associations(id).empty() ? 0 : 1;
  put_properties(info, member.properties);
  if (!member.extra) return;
  put_text(info.currencyMember, member.extra->currency_member);
  put_text(info.comment, member.extra->comment);
}

}  // namespace

int check_name(std::string_view name) {
  if (name.empty()) return kEmptyName;
  return name.size() > kMaxMemberName ? kNameTooLong : kStatusOk;
}

std::string_view record_name(const MemberInfoRecord& info) {
  return text_of(info.name);
}

int check_record(const MemberInfoRecord& info) {
  if (text_of(info.currencyMember).size() > kMaxMemberName) return kNameTooLong;
  // A comment may be as long as its field less the NUL; more means that the NUL is missing.
  return text_of(info.comment).size() > kMaxComment ? kBadArgument : kStatusOk;
}

void apply_record(Outline& outline, MemberId id, const MemberInfoRecord& info) {
  Member& member = outline.member(id);
  std::string currency_member(text_of(info.currencyMember));
  std::string comment(text_of(info.comment));
  if (member.extra || !currency_member.empty() || !comment.empty()) {
    member.extras().currency_member.swap(currency_member);
    member.extras().comment.swap(comment);
  }
  const int16_t old_category = member.properties.dimension_category;
  member.properties = properties_of(info);
  const int16_t category = member.properties.dimension_category;
  if (category == old_category || !outline.is_dimension(id)) return;
  if (category == kCategoryAttribute || old_category == kCategoryAttribute) {
    outline.drop_dimension_associations(id);
  }
  if (old_category == kCategoryTime) outline.drop_series_without_time();
}

}  // namespace standin

using namespace standin;

extern "C" {

int OlvOtlGetMemberInfo(HOutline h, HMember member, MemberInfoRecord** info) {
  if (info == nullptr) return kBadArgument;
  return read_member(h, member, [&](const Outline& outline) -> int {
    void* block =
        hand_out(BlockKind::kStructure, sizeof(MemberInfoRecord), 1, kStructureMemberInfo);
    if (block == nullptr) return kNoMemory;
    *info = static_cast<MemberInfoRecord*>(block);
    put_member(outline, member, **info);
    return kStatusOk;
  });
}

int OlvOtlSetMemberInfoEx(HOutline h, HMember member, const MemberInfoRecord* info,
                          uint32_t option) {
  if (info == nullptr || option != kMemberOption) return kBadArgument;
  return edit_member(h, member, [&](Outline& outline) {
    const int status = check_record(*info);
    if (status == kStatusOk) apply_record(outline, member, *info);
    return status;
  });
}

int OlvOtlFreeStructure(HOutline, uint32_t count, uint32_t code, const void* block) {
  return take_back(BlockKind::kStructure, block, count, code);
}

}  // extern "C"
