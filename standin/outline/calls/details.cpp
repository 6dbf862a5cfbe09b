// Formulas, extended comments and user-defined attributes of members. An empty formula or comment
// is none.
#include <algorithm>
#include <cstring>
#include <limits>

#include "api/olvotl.h"
#include "standin/client.h"
#include "standin/outline/calls/open_outlines.h"
#include "standin/outline/calls/uda_block.h"
#include "standin/outline/model/member_fields.h"

using namespace standin;

namespace {

// Hands out a text of a member; null when it has none.
int get_text(HOutline h, HMember id, TextKind kind, char** text) {
  if (text == nullptr) return kBadArgument;
  return read_member(h, id, [&](const Outline& outline) {
    *text = nullptr;
    const std::string_view found = outline.text(id, kind);
    if (!found.empty()) *text = hand_out_text(found);
    return kStatusOk;
  });
}

int set_text(HOutline h, HMember id, TextKind kind, const char* text) {
  if (text == nullptr) return kBadArgument;
  const size_t length = strnlen(text, kMaxLongText + 1);
  if (length > kMaxLongText) return kTextTooLong;
  return edit_member(h, id, [&](Outline& outline) {
    outline.set_text(id, kind, text);
    return kStatusOk;
  });
}

}  // namespace

namespace standin {

char* hand_out_udas(const std::vector<std::string_view>& udas) {
  char* entries = hand_out_records<char>(udas.size() * kUdaStride);
  for (size_t i = 0; i < udas.size(); ++i) {
    std::memcpy(entries + i * kUdaStride, udas[i].data(), udas[i].size());
  }
  return entries;
}

}  // namespace standin

extern "C" {

int OlvOtlGetMemberFormula(HOutline h, HMember member, char** formula) {
  return get_text(h, member, TextKind::kFormula, formula);
}

int OlvOtlSetMemberFormula(HOutline h, HMember member, const char* formula) {
  return set_text(h, member, TextKind::kFormula, formula);
}

int OlvOtlDeleteMemberFormula(HOutline h, HMember member) {
  return set_text(h, member, TextKind::kFormula, "");
}

int OlvOtlGetMemberCommentEx(HOutline h, HMember member, char** comment) {
  return get_text(h, member, TextKind::kExtendedComment, comment);
}

int OlvOtlSetMemberCommentEx(HOutline h, HMember member, const char* comment) {
  return set_text(h, member, TextKind::kExtendedComment, comment);
}

int OlvOtlGetUserAttributes(HOutline h, HMember member, uint16_t* count, char** udas) {
  if (count == nullptr || udas == nullptr) return kBadArgument;
  return read_member(h, member, [&](const Outline& outline) {
    *count = 0;
    *udas = nullptr;
    const std::vector<std::string_view> found = outline.udas(member);
    if (found.empty()) return kStatusOk;
    *udas = hand_out_udas(found);
    *count = static_cast<uint16_t>(found.size());
    return kStatusOk;
  });
}

int OlvOtlSetUserAttribute(HOutline h, HMember member, const char* uda) {
  if (uda == nullptr) return kBadArgument;
  return edit_member(h, member, [&](Outline& outline) -> int {
    const size_t length = std::strlen(uda);
    if (length == 0) return kEmptyName;
    if (length > kMaxUda) return kUdaTooLong;
    const std::vector<std::string_view> carried = outline.udas(member);
    const auto same = [&](std::string_view one) { return outline.same_text(one, uda); };
    if (std::any_of(carried.begin(), carried.end(), same)) return kUdaExists;
    // The interface counts them in 16 bits.
    if (carried.size() == std::numeric_limits<uint16_t>::max()) return kBadArgument;
    outline.add_uda(member, uda);
    return kStatusOk;
  });
}

int OlvOtlDeleteUserAttribute(HOutline h, HMember member, const char* uda) {
  if (uda == nullptr) return kBadArgument;
  return edit_member(h, member, [&](Outline& outline) -> int {
    return outline.remove_uda(member, uda) ? kStatusOk : kNoSuchUda;
  });
}

}  // extern "C"
