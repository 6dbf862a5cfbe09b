// Member queries: children, parent, named members, searches, members for time series, and the
// UDAs of a dimension. A text that is null or empty counts as not given.
#include <algorithm>
#include <unordered_set>

#include "api/olvotl.h"
#include "standin/client.h"
#include "standin/outline/calls/open_outlines.h"
#include "standin/outline/calls/uda_block.h"
#include "standin/outline/calls/wildcard.h"

using namespace standin;

namespace {

using Members = std::vector<MemberId>;

bool given(const char* text) {
  return text != nullptr && *text != '\0';
}

// The dimension a query names, 0 when it names none.
int find_dimension(const Outline& outline, const char* name, MemberId* dimension) {
  *dimension = kNoMember;
  if (!given(name)) return kStatusOk;
  *dimension = outline.find_dimension(name);
  return *dimension == kNoMember ? kNoSuchDimension : kStatusOk;
}

// Calls `visit(id)` in pre-order for the members of the subtree of `start` (the root: all) that
// belong to `dimension` (0: any).
template <typename Visit>
void walk_scope(const Outline& outline, MemberId start, MemberId dimension, Visit&& visit) {
  if (start == kRoot) start = dimension;
  if (dimension != kNoMember && outline.member(start).dimension != dimension) return;
  for (const MemberId id : outline.subtree(start)) visit(id);
}

// All members of a name, the one that it stands for in front: shared ones come last.
int list_named(const Outline& outline, const MemberQuery& query, Members* found) {
  if (query.options != kQueryOptionNames && query.options != kQueryOptionNone) return kBadQuery;
  if (!given(query.pattern1)) return kBadQuery;
  MemberId dimension = kNoMember;
  const int status = find_dimension(outline, query.dimension, &dimension);
  if (status != kStatusOk) return status;
  MemberId id = outline.find(query.pattern1);
  for (; id != kNoMember; id = outline.next_of_same_name(id)) {
    if (dimension == kNoMember || outline.member(id).dimension == dimension) found->push_back(id);
  }
  std::stable_partition(found->begin(), found->end(), [&](MemberId holder) {
    return outline.properties(holder).share_option != kShareShared;
  });
  return kStatusOk;
}

// The start member of a query by name, in the dimension that the query names. Listings pass the
// start member's own name as dimension, too, which narrows nothing.
int find_start(const Outline& outline, const char* name, const char* dimension, MemberId* start) {
  MemberId scope = kNoMember;
  if (given(dimension) && !outline.same_text(dimension, name)) {
    const int status = find_dimension(outline, dimension, &scope);
    if (status != kStatusOk) return status;
  }
  *start = outline.look_up(name, scope);
  return *start == kNoMember ? kMemberNotFound : kStatusOk;
}

int search(const Outline& outline, MemberId start, const MemberQuery& query, Members* found) {
  if (query.options != kQueryOptionNames && query.options != kQueryOptionAliases) return kBadQuery;
  if (query.pattern1 == nullptr) return kBadQuery;
  MemberId dimension = kNoMember;
  const int status = find_dimension(outline, query.dimension, &dimension);
  if (status != kStatusOk) return status;
  const bool with_aliases = query.options == kQueryOptionAliases;
  size_t table = 0;
  if (with_aliases) {
    table = outline.find_table(given(query.pattern2) ? query.pattern2 : nullptr);
    if (table == kNoTable) return kNoSuchAliasTable;
  }
  const std::string_view pattern = query.pattern1;
  const bool sensitive = outline.case_sensitive();
  walk_scope(outline, start, dimension, [&](MemberId id) {
    bool matches = matches_wildcards(pattern, outline.name(id), sensitive);
    if (!matches && with_aliases) {
      const std::string_view alias = outline.alias(table, id);
      matches = !alias.empty() && matches_wildcards(pattern, alias, sensitive);
    }
    if (matches) found->push_back(id);
  });
  return kStatusOk;
}

// The level-0 members of a dimension, asked for as "lev0,<dimension>". The start member is not
// looked at: callers put an address there.
int list_time_series(const Outline& outline, const MemberQuery& query, Members* found) {
  constexpr std::string_view kPrefix = "lev0,";
  if (!given(query.dimension) || query.pattern1 == nullptr) return kBadQuery;
  MemberId dimension = kNoMember;
  const int status = find_dimension(outline, query.dimension, &dimension);
  if (status != kStatusOk) return status;
  const std::string_view pattern = query.pattern1;
  if (!equal_text(pattern.substr(0, kPrefix.size()), kPrefix, false) ||
      !outline.same_text(pattern.substr(kPrefix.size()), query.dimension)) {
    return kBadQuery;
  }
  walk_scope(outline, dimension, kNoMember, [&](MemberId id) {
    if (outline.member(id).first_child == kNoMember) found->push_back(id);
  });
  return kStatusOk;
}

// Cuts a result of `total` entries to what the counts ask for: sets both out-counts and answers
// the index of the first entry.
size_t cut(size_t total, MemberQueryCounts* counts) {
  const size_t first = std::min<size_t>(counts->start, total);
  size_t returned = total - first;
  if (counts->maxCount != 0) returned = std::min<size_t>(returned, counts->maxCount);
  counts->totalCount = static_cast<uint32_t>(total);
  counts->returned = static_cast<uint32_t>(returned);
  return first;
}

// Lists only what the counts ask for: a page costs no walk over the others.
int list_children(const Outline& outline, MemberId start, MemberQueryCounts* counts,
                  Members* found) {
  const size_t first = cut(outline.member(start).child_count, counts);
  found->reserve(counts->returned);
  MemberId id = outline.child_at(start, static_cast<uint32_t>(first));
  for (uint32_t i = 0; i < counts->returned; ++i, id = outline.member(id).next) {
    found->push_back(id);
  }
  return kStatusOk;
}

int list_parent(const Outline& outline, MemberId start, Members* found) {
  if (start != kRoot && !outline.is_dimension(start)) {
    found->push_back(outline.member(start).parent);
  }
  return kStatusOk;
}

// All matches of a query other than for children.
int list_matches(const Outline& outline, MemberId start, const MemberQuery& query, Members* found) {
  switch (query.queryType) {
    case kQueryParent:
      return list_parent(outline, start, found);
    case kQueryTimeSeriesMembers:
      return list_time_series(outline, query, found);
    case kQueryNamedMember:
      return list_named(outline, query, found);
    case kQuerySearch:
      return search(outline, start, query, found);
    default:
      return kBadQuery;
  }
}

// What the counts ask for; sets both out-counts.
int run_query(const Outline& outline, HMember start, const MemberQuery& query,
              MemberQueryCounts* counts, Members* found) {
  if (start != kRoot && query.queryType != kQueryTimeSeriesMembers && !outline.contains(start)) {
    return kBadMember;
  }
  if (query.queryType == kQueryChildren) return list_children(outline, start, counts, found);
  const int status = list_matches(outline, start, query, found);
  if (status != kStatusOk) return status;
  const size_t first = cut(found->size(), counts);
  found->erase(found->begin(), found->begin() + static_cast<std::ptrdiff_t>(first));
  found->resize(counts->returned);
  return kStatusOk;
}

int answer_query(const Outline& outline, HMember start, const MemberQuery& query,
                 MemberQueryCounts* counts, HMember** members) {
  Members found;
  MemberQueryCounts answer = *counts;
  const int status = run_query(outline, start, query, &answer, &found);
  if (status != kStatusOk) return status;
  *members = hand_out_handles(BlockKind::kMembers, found);
  *counts = answer;
  return kStatusOk;
}

// The UDAs of a dimension's members, each once, in the order in which they are met.
int list_udas(const Outline& outline, const MemberQuery& query,
              std::vector<std::string_view>* udas) {
  if (query.queryType != kQueryDimensionUdas || !given(query.dimension)) return kBadQuery;
  MemberId dimension = kNoMember;
  const int status = find_dimension(outline, query.dimension, &dimension);
  if (status != kStatusOk) return status;
  std::unordered_set<std::string> seen;
  walk_scope(outline, dimension, kNoMember, [&](MemberId id) {
    for (const std::string_view uda : outline.udas(id)) {
      if (seen.insert(folded(uda, outline.case_sensitive())).second) udas->push_back(uda);
    }
  });
  return kStatusOk;
}

}  // namespace

extern "C" {

int OlvOtlQueryMembers(HOutline h, HMember start, const MemberQuery* query,
                       MemberQueryCounts* counts, HMember** members) {
  if (query == nullptr || counts == nullptr || members == nullptr) return kBadArgument;
  return read_outline(h, [&](const Outline& outline) {
    return answer_query(outline, start, *query, counts, members);
  });
}

int OlvOtlQueryMembersByName(HOutline h, const char* start, const MemberQuery* query,
                             MemberQueryCounts* counts, HMember** members) {
  if (query == nullptr || counts == nullptr || members == nullptr) return kBadArgument;
  return read_outline(h, [&](const Outline& outline) -> int {
    MemberId from = kRoot;
    if (given(start) && query->queryType != kQueryTimeSeriesMembers) {
      const int status = find_start(outline, start, query->dimension, &from);
      if (status != kStatusOk) return status;
    }
    return answer_query(outline, from, *query, counts, members);
  });
}

int OlvOtlFreeMembers(HOutline, uint32_t count, const HMember* members) {
  return take_back(BlockKind::kMembers, members, count);
}

int OlvOtlGetDimensionUserAttributes(HOutline h, const MemberQuery* query,
                                     MemberQueryCounts* counts, char** udas) {
  if (query == nullptr || counts == nullptr || udas == nullptr) return kBadArgument;
  return read_outline(h, [&](const Outline& outline) {
    std::vector<std::string_view> found;
    const int status = list_udas(outline, *query, &found);
    if (status != kStatusOk) return status;
    MemberQueryCounts answer = *counts;
    const auto first = found.begin() + static_cast<std::ptrdiff_t>(cut(found.size(), &answer));
    *udas = answer.returned == 0 ? nullptr : hand_out_udas({first, first + answer.returned});
    *counts = answer;
    return kStatusOk;
  });
}

}  // extern "C"
