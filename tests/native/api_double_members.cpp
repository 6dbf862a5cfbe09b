// The double's members: walking, queries, records and changes of the outline's
// shape.
#include <algorithm>
#include <cstdint>
#include <cstring>

#include "api/olvotl.h"
#include "tests/native/api_double.h"
#include "tests/native/journal.h"

namespace {

using Release = ApiDouble::Release;

// The member `step` places from another among its siblings; 0 beyond the ends.
HMember neighbour(HMember member, ptrdiff_t step) {
  const std::vector<HMember>& list = api().siblings(member);
  const ptrdiff_t place = std::find(list.begin(), list.end(), member) - list.begin() + step;
  const bool inside = place >= 0 && place < static_cast<ptrdiff_t>(list.size());
  return inside ? list[static_cast<size_t>(place)] : 0;
}

// Whole names, a blank pattern of "*", or a start that ends in "*".
bool matches(const std::string& pattern, const std::string& text) {
  if (pattern.empty() || pattern.back() != '*') return pattern == text;
  return text.compare(0, pattern.size() - 1, pattern, 0, pattern.size() - 1) == 0;
}

// What a query finds, in outline order.
int find_matches(HMember start, const MemberQuery& query, std::vector<HMember>* found) {
  const auto in_dimension = [&](HMember member) {
    return query.dimension == nullptr ||
           api().name_of(api().dimension_of(member)) == query.dimension;
  };
  switch (query.queryType) {
    case kQueryChildren:
      *found = start == 0 ? api().dimensions : api().member(start).children;
      return kStatusOk;
    case kQueryParent:
      if (start != 0 && api().member(start).parent != 0) *found = {api().member(start).parent};
      return kStatusOk;
    case kQueryNamedMember:
      if (HMember member = api().find(query.pattern1)) *found = {member};
      return kStatusOk;
    case kQueryTimeSeriesMembers:
    case kQuerySearch:
      for (size_t i = 0; i < api().members.size(); ++i) {
        const HMember member = kFirstMember + static_cast<HMember>(i);
        if (!api().exists(member) || !in_dimension(member)) continue;
        const bool wanted = query.queryType == kQuerySearch
                                ? matches(query.pattern1, api().name_of(member))
                                : api().member(member).info.level == 0;
        if (wanted) found->push_back(member);
      }
      return kStatusOk;
    default:
      return kRefusedByApi;
  }
}

int answer_query(HMember start, const MemberQuery& query, MemberQueryCounts* counts,
                 HMember** members) {
  if (start != 0 && query.queryType != kQueryTimeSeriesMembers && !api().exists(start)) {
    return kNoSuchMember;
  }
  std::vector<HMember> found;
  const int status = find_matches(start, query, &found);
  if (status != kStatusOk) return status;
  counts->totalCount = static_cast<uint32_t>(found.size());
  const size_t skipped = std::min<size_t>(found.size(), counts->start);
  found.erase(found.begin(), found.begin() + static_cast<ptrdiff_t>(skipped));
  if (counts->maxCount != 0 && counts->maxCount < found.size()) found.resize(counts->maxCount);
  counts->returned = static_cast<uint32_t>(found.size());
  // An array of nothing is an array too, and is to be given back.
  *members = api().hand_out("query result", found, Release::kMembers);
  return kStatusOk;
}

int add_new(const MemberInfoRecord& info, HMember parent, HMember previous, HMember* added) {
  if ((parent != 0 && !api().exists(parent)) || (previous != 0 && !api().exists(previous))) {
    return kNoSuchMember;
  }
  if (api().find(info.name) != 0) return kStatusDuplicateName;
  api().members.emplace_back();
  api().members.back().info = info;
  const HMember handle = kFirstMember + static_cast<HMember>(api().members.size()) - 1;
  api().insert(handle, parent, previous);
  *added = api().give(handle);
  return kStatusOk;
}

void delete_subtree(HMember member) {
  for (HMember child : api().member(member).children) delete_subtree(child);
  api().member(member).deleted = true;
}

}  // namespace

// ---- Walking ----

int OlvOtlGetFirstMember(HOutline h, HMember* first) {
  const int status = api().call("OlvOtlGetFirstMember", {h}, first);
  if (status == kStatusOk) *first = api().dimensions.empty() ? 0 : api().dimensions.front();
  return status;
}

int OlvOtlGetChild(HOutline h, HMember member, HMember* child) {
  const int status = api().call_on("OlvOtlGetChild", h, member, {}, child);
  if (status != kStatusOk) return status;
  const std::vector<HMember>& children = api().member(member).children;
  *child = children.empty() ? 0 : children.front();
  return kStatusOk;
}

int OlvOtlGetParent(HOutline h, HMember member, HMember* parent) {
  const int status = api().call_on("OlvOtlGetParent", h, member, {}, parent);
  if (status == kStatusOk) *parent = api().member(member).parent;
  return status;
}

int OlvOtlGetNextSibling(HOutline h, HMember member, HMember* next) {
  const int status = api().call_on("OlvOtlGetNextSibling", h, member, {}, next);
  if (status == kStatusOk) *next = neighbour(member, 1);
  return status;
}

int OlvOtlGetPrevSibling(HOutline h, HMember member, HMember* previous) {
  const int status = api().call_on("OlvOtlGetPrevSibling", h, member, {}, previous);
  if (status == kStatusOk) *previous = neighbour(member, -1);
  return status;
}

int OlvOtlFindMember(HOutline h, const char* name, HMember* member) {
  const int status = api().call("OlvOtlFindMember", {h, quoted(name)}, member);
  if (status != kStatusOk) return status;
  const HMember found = name == nullptr ? 0 : api().find(name);
  if (found == 0) return kNoSuchMember;
  *member = api().give(found);
  return kStatusOk;
}

// ---- Queries ----

int OlvOtlQueryMembers(HOutline h, HMember start, const MemberQuery* query,
                       MemberQueryCounts* counts, HMember** members) {
  // The time-series query starts from the address of the dimension's name, as
  // far as it fits.
  const bool by_address =
      query->queryType == kQueryTimeSeriesMembers &&
      start == static_cast<HMember>(reinterpret_cast<uintptr_t>(query->dimension));
  const int status =
      api().call("OlvOtlQueryMembers",
                 {h, by_address ? Argument(std::string("address of dimension")) : Argument(start),
                  describe(query), describe(counts)},
                 counts, members);
  return status != kStatusOk ? status : answer_query(start, *query, counts, members);
}

int OlvOtlQueryMembersByName(HOutline h, const char* start, const MemberQuery* query,
                             MemberQueryCounts* counts, HMember** members) {
  const int status =
      api().call("OlvOtlQueryMembersByName", {h, quoted(start), describe(query), describe(counts)},
                 counts, members);
  if (status != kStatusOk) return status;
  const HMember member = start == nullptr ? 0 : api().find(start);
  if (start != nullptr && member == 0) return kNoSuchMember;
  return answer_query(member, *query, counts, members);
}

int OlvOtlQueryAttributes(HOutline h, const AttributeQuery* query, uint32_t* count,
                          HMember** members) {
  const int status = api().call("OlvOtlQueryAttributes", {h, describe(query)}, count, members);
  if (status != kStatusOk) return status;
  const std::vector<HMember>& attributes = api().member(query->member).attributes;
  *count = static_cast<uint32_t>(attributes.size());
  *members = api().hand_out("attribute query result", attributes, Release::kMembers);
  return kStatusOk;
}

int OlvOtlFreeMembers(HOutline h, uint32_t count, const HMember* members) {
  const int ordered = api().call("OlvOtlFreeMembers", {h, count, api().name_of_block(members)});
  const int status = api().take_back(members, Release::kMembers, count);
  return ordered != kStatusOk ? ordered : status;
}

// ---- Records ----

int OlvOtlGetMemberInfo(HOutline h, HMember member, MemberInfoRecord** info) {
  const int status = api().call_on("OlvOtlGetMemberInfo", h, member, {}, info);
  if (status != kStatusOk) return status;
  const std::vector record = {api().member(member).info};
  *info = api().hand_out("member record", record, Release::kMemberRecord);
  return kStatusOk;
}

int OlvOtlSetMemberInfoEx(HOutline h, HMember member, const MemberInfoRecord* info,
                          uint32_t option) {
  const MemberInfoRecord before =
      api().exists(member) ? api().member(member).info : MemberInfoRecord();
  const int status =
      api().call_on("OlvOtlSetMemberInfoEx", h, member, {describe(*info, before), option});
  if (status == kStatusOk) api().member(member).info = *info;
  return status;
}

int OlvOtlFreeStructure(HOutline h, uint32_t count, uint32_t code, const void* block) {
  const int ordered =
      api().call("OlvOtlFreeStructure", {h, count, code, api().name_of_block(block)});
  if (code != kStructureMemberInfo && code != kStructureAttributeSpec) {
    journal().fault("An unknown structure code");
  }
  const int status = api().take_back(
      block, code == kStructureMemberInfo ? Release::kMemberRecord : Release::kSpec, count);
  return ordered != kStatusOk ? ordered : status;
}

// ---- Shape ----

int OlvOtlAddDimension(HOutline h, const MemberInfoRecord* info, HMember previous, uint32_t zero,
                       HMember* added) {
  const int status = api().call("OlvOtlAddDimension", {h, describe(*info), previous, zero}, added);
  return status != kStatusOk ? status : add_new(*info, 0, previous, added);
}

int OlvOtlAddMemberEx(HOutline h, const MemberInfoRecord* info, HMember parent, HMember sibling,
                      HMember* added, uint32_t option) {
  const int status =
      api().call("OlvOtlAddMemberEx", {h, describe(*info), parent, sibling, option}, added);
  return status != kStatusOk ? status : add_new(*info, parent, sibling, added);
}

int OlvOtlRenameMemberEx(HOutline h, HMember member, const char* name, uint32_t option) {
  const int status = api().call_on("OlvOtlRenameMemberEx", h, member, {name, option});
  if (status != kStatusOk) return status;
  MemberInfoRecord& info = api().member(member).info;
  if (std::strlen(name) > kMaxMemberName || api().refuse_rename) return kRefusedByApi;
  std::strcpy(info.name, name);
  return kStatusOk;
}

int OlvOtlMoveMember(HOutline h, HMember member, HMember parent, HMember previous) {
  const int status = api().call_on("OlvOtlMoveMember", h, member, {parent, previous});
  if (status != kStatusOk) return status;
  for (HMember above : {parent, previous}) {
    if (above != 0 && !api().exists(above)) return kNoSuchMember;
    for (; above != 0; above = api().member(above).parent) {
      if (above == member) return kRefusedByApi;
    }
  }
  api().remove(member);
  api().insert(member, parent, previous);
  return kStatusOk;
}

int OlvOtlDeleteMemberEx(HOutline h, HMember member, uint32_t option) {
  const int status = api().call_on("OlvOtlDeleteMemberEx", h, member, {option});
  if (status != kStatusOk) return status;
  api().remove(member);
  delete_subtree(member);
  return kStatusOk;
}

int OlvOtlSortChildren(HOutline h, HMember parent, uint16_t order, uint32_t zero1, uint32_t zero2) {
  return api().call_on("OlvOtlSortChildren", h, parent, {order, zero1, zero2});
}
