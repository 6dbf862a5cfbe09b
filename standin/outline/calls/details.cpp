// Formulas, extended comments and user-defined attributes of members. An empty formula or comment
// is none.
#include <algorithm>
#include <cstring>
#include <limits>

#include "api/olvotl.h"
#include "standin/client.h"
#include "standin/outline/calls/open_outlines.h"
#include "standin/outline/calls/uda_block.h"

using namespace standin;

namespace {

using TextField = std::string MemberExtras::*;

// Hands out a text of a member; null when it has none.
int get_text(HOutline h, HMember id, TextField field, char** text) {
  if (text == nullptr) return kBadArgument;
  return read_member(h, id, [&](const Outline& outline) -> int {
    const MemberExtras* extra = outline.member(id).extra.get();
    *text = nullptr;
    if (extra == nullptr || (extra->*field).empty()) return kStatusOk;
    *text = hand_out_text(extra->*field);
    return *text == nullptr ? kNoMemory : kStatusOk;
  });
}

int set_text(HOutline h, HMember id, TextField field, const char* text) {
  if (text == nullptr) return kBadArgument;
  return edit_member(h, id, [&](Outline& outline) {
    std::string copy(text);
    Member& member = outline.member(id);
    if (member.extra || !copy.empty()) (member.extras().*field).swap(copy);
    return kStatusOk;
  });
}

// Position of a UDA in a member's list; its end when the member does not carry it.
std::vector<std::string>::iterator find_uda(const Outline& outline, std::vector<std::string>& udas,
                                            const char* uda) {
  return std::find_if(udas.begin(), udas.end(),
                      [&](const std::string& one) { return outline.same_text(one, uda); });
}

}  // namespace

namespace standin {

char* hand_out_udas(const std::vector<std::string_view>& udas) {
  void* block = hand_out(BlockKind::kPlain, udas.size() * kUdaStride);
  if (block == nullptr) throw std::bad_alloc();
  char* entries = static_cast<char*>(block);
  for (size_t i = 0; i < udas.size(); ++i) {
    std::memcpy(entries + i * kUdaStride, udas[i].data(), udas[i].size());
  }
  return entries;
}

}  // namespace standin

extern "C" {

int OlvOtlGetMemberFormula(HOutline h, HMember member, char** formula) {
  return get_text(h, member, &MemberExtras::formula, formula);
}

int OlvOtlSetMemberFormula(HOutline h, HMember member, const char* formula) {
  return set_text(h, member, &MemberExtras::formula, formula);
}

int OlvOtlDeleteMemberFormula(HOutline h, HMember member) {
  return set_text(h, member, &MemberExtras::formula, "");
}

int OlvOtlGetMemberCommentEx(HOutline h, HMember member, char** comment) {
  return get_text(h, member, &MemberExtras::extended_comment, comment);
}

int OlvOtlSetMemberCommentEx(HOutline h, HMember member, const char* comment) {
  return set_text(h, member, &MemberExtras::extended_comment, comment);
}

int OlvOtlGetUserAttributes(HOutline h, HMember member, uint16_t* count, char** udas) {
  if (count == nullptr || udas == nullptr) return kBadArgument;
  return read_member(h, member, [&](const Outline& outline) {
    const MemberExtras* extra = outline.member(member).extra.get();
    *count = 0;
    *udas = nullptr;
    if (extra == nullptr || extra->udas.empty()) return kStatusOk;
    *udas = hand_out_udas({extra->udas.begin(), extra->udas.end()});
    *count = static_cast<uint16_t>(extra->udas.size());
    return kStatusOk;
  });
}

int OlvOtlSetUserAttribute(HOutline h, HMember member, const char* uda) {
  if (uda == nullptr) return kBadArgument;
  return edit_member(h, member, [&](Outline& outline) -> int {
    const size_t length = std::strlen(uda);
    if (length == 0) return kEmptyName;
    if (length > kMaxUda) return kUdaTooLong;
    std::vector<std::string>& udas = outline.member(member).extras().udas;
    if (find_uda(outline, udas, uda) != udas.end()) return kUdaExists;
    // The interface counts them in 16 bits.
    if (udas.size() == std::numeric_limits<uint16_t>::max()) return kBadArgument;
    udas.emplace_back(uda);
    return kStatusOk;
  });
}

int OlvOtlDeleteUserAttribute(HOutline h, HMember member, const char* uda) {
  if (uda == nullptr) return kBadArgument;
  return edit_member(h, member, [&](Outline& outline) -> int {
    MemberExtras* extra = outline.member(member).extra.get();
    if (extra == nullptr) return kNoSuchUda;
    const auto found = find_uda(outline, extra->udas, uda);
    if (found == extra->udas.end()) return kNoSuchUda;
    extra->udas.erase(found);
    return kStatusOk;
  });
}

}  // extern "C"
