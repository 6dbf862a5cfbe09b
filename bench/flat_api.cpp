// The flat outline and the API functions on it.
#include "bench/flat_api.h"

#include <array>
#include <cstdio>
#include <cstring>
#include <vector>

#include "api/olvotl.h"

namespace bench {
namespace {

constexpr uint32_t kRecords = 256;
constexpr int kNoSuchMember = 1;
constexpr int kNotHere = 2;  // a query, which the flat outline does not answer

struct Links {
  HMember parent;
  HMember next;
  HMember child;
};

// Indexed by handle; 0 is no member.
std::vector<Links>& links() {
  static std::vector<Links> all(kFlatDimension + 1, Links{});
  return all;
}

MemberInfoRecord record_of_leaf(uint32_t number) {
  MemberInfoRecord record = {};
  std::snprintf(record.name, sizeof record.name, "Product %07u", static_cast<unsigned>(number));
  std::strcpy(record.dimensionName, "Product");
  record.generation = 3;
  record.consolidation = static_cast<int16_t>(number % 4);
  record.shareOption = number % 8 == 0 ? int16_t{1} : kShareNone;
  if (number % 16 == 0) std::strcpy(record.comment, "Discontinued at the end of the season");
  return record;
}

std::array<MemberInfoRecord, kRecords>& records() {
  static std::array<MemberInfoRecord, kRecords> all = [] {
    std::array<MemberInfoRecord, kRecords> made;
    for (uint32_t i = 0; i < kRecords; ++i) made[i] = record_of_leaf(i);
    return made;
  }();
  return all;
}

}  // namespace

HMember add_flat_parent(uint32_t children, HMember* first) {
  const auto parent = static_cast<HMember>(links().size());
  *first = parent + 1;
  links().push_back({kFlatDimension, 0, *first});
  for (uint32_t i = 0; i < children; ++i) {
    links().push_back({parent, i + 1 == children ? 0 : *first + i + 1, 0});
  }
  links()[kFlatDimension].child = kFlatDimension + 1;
  return parent;
}

const MemberInfoRecord& flat_leaf_record(HMember leaf) {
  return records()[leaf % kRecords];
}

}  // namespace bench

namespace {

int follow(HMember member, HMember bench::Links::*link, HMember* result) {
  if (member >= bench::links().size()) return bench::kNoSuchMember;
  *result = bench::links()[member].*link;
  return kStatusOk;
}

}  // namespace

extern "C" {

int OlvOtlGetFirstMember(HOutline, HMember* first) {
  *first = bench::kFlatDimension;
  return kStatusOk;
}

int OlvOtlGetChild(HOutline, HMember member, HMember* child) {
  return follow(member, &bench::Links::child, child);
}

int OlvOtlGetParent(HOutline, HMember member, HMember* parent) {
  return follow(member, &bench::Links::parent, parent);
}

int OlvOtlGetNextSibling(HOutline, HMember member, HMember* next) {
  return follow(member, &bench::Links::next, next);
}

int OlvOtlGetMemberInfo(HOutline, HMember member, MemberInfoRecord** info) {
  *info = &bench::records()[member % bench::kRecords];
  return kStatusOk;
}

int OlvOtlFreeStructure(HOutline, uint32_t, uint32_t, const void*) {
  return kStatusOk;
}

int OlvOtlFindMember(HOutline, const char*, HMember*) {
  return bench::kNotHere;
}

int OlvOtlQueryMembers(HOutline, HMember, const MemberQuery*, MemberQueryCounts*, HMember**) {
  return bench::kNotHere;
}

int OlvOtlQueryMembersByName(HOutline, const char*, const MemberQuery*, MemberQueryCounts*,
                             HMember**) {
  return bench::kNotHere;
}

int OlvOtlFreeMembers(HOutline, uint32_t, const HMember*) {
  return kStatusOk;
}

}  // extern "C"
