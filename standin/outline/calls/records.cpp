// Reading and writing member records.
#include "standin/outline/calls/records.h"

#include <algorithm>
#include <cstring>
#include <limits>

#include "api/olvotl.h"
#include "standin/client.h"
#include "standin/outline/calls/open_outlines.h"
#include "standin/outline/model/member_fields.h"

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
  text.copy(field, kSize - 1);
}

// Generations and levels beyond the field's range stay at its end.
int16_t clamp(uint32_t number) {
  constexpr int16_t kMost = std::numeric_limits<int16_t>::max();
  return number > static_cast<uint32_t>(kMost) ? kMost : static_cast<int16_t>(number);
}

MemberProperties properties_of(const MemberInfoRecord& info) {
  MemberProperties properties;
  visit_member_codes([&](const char*, auto ours, auto theirs) { properties.*ours = info.*theirs; });
  uint8_t* to = properties.reserved.data();
  visit_reserved_bytes(
      info, [&](const uint8_t* bytes, size_t size) { to = std::copy_n(bytes, size, to); });
  return properties;
}

void put_properties(MemberInfoRecord& info, const MemberProperties& properties) {
  visit_member_codes([&](const char*, auto ours, auto theirs) { info.*theirs = properties.*ours; });
  const uint8_t* from = properties.reserved.data();
  visit_reserved_bytes(info, [&](uint8_t* bytes, size_t size) {
    std::copy_n(from, size, bytes);
    from += size;
  });
}

// Fills a cleared record.
void put_member(const Outline& outline, MemberId id, MemberInfoRecord& info) {
  const Member& member = outline.member(id);
  put_text(info.name, outline.name(id));
  info.level = clamp(outline.level(id));
  info.generation = clamp(member.generation);
  info.childCount = member.child_count;
  put_text(info.dimensionName, outline.name(member.dimension));
  info.isAttributed = outline.has_associations(id) ? 1 : 0;
  put_properties(info, outline.properties(id));
  put_text(info.currencyMember, outline.text(id, TextKind::kCurrencyMember));
  put_text(info.comment, outline.text(id, TextKind::kComment));
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
  const MemberProperties old = outline.properties(id);
  const int16_t old_category = old.dimension_category;
  const int16_t category = info.dimensionCategory;
  MemberProperties properties = properties_of(info);
  if (old_category == kCategoryAttribute && category != old_category && outline.is_dimension(id)) {
    // What only an attribute dimension is goes with that, unless the record has it anew.
    if (properties.storage_category == old.storage_category) properties.storage_category = 0;
    if (properties.attribute_type == old.attribute_type) properties.attribute_type = 0;
  }
  outline.set_record(id, properties, text_of(info.currencyMember), text_of(info.comment));
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
