// What browse/ offers the other families: the queries for members, finding a member by handle or
// name, walks over siblings and subtrees, and a member's details one by one.
#pragma once

#include <vector>

#include "bridge/scope.h"

namespace kepotl {

// ---- Queries ----

// The children of the start member (of the root: the dimensions).
inline MemberQuery children_query(const char* dimension = nullptr,
                                  uint32_t options = kQueryOptionNone) {
  MemberQuery query = {};
  query.queryType = kQueryChildren;
  query.options = options;
  query.dimension = dimension;
  return query;
}

// The parent of the start member.
inline MemberQuery parent_query(uint32_t options = kQueryOptionNone) {
  MemberQuery query = {};
  query.queryType = kQueryParent;
  query.options = options;
  return query;
}

// The member of a name.
inline MemberQuery named_member_query(const char* name) {
  MemberQuery query = {};
  query.queryType = kQueryNamedMember;
  query.options = kQueryOptionNames;
  query.pattern1 = name;
  return query;
}

// The attributes of a member, or of a dimension.
AttributeQuery attribute_query(HMember member, bool is_dimension);

// ---- Finding ----

// The member of a name. `*member` is 0 when there is none; the look-up's status.
int find_by_name(HOutline outline, const char* name, HMember* member);

// A handle that is not 0 as it is; else the member of the name, whose characters are obtained into
// `*text`. An empty name finds nothing and is no failure. `*member` is 0 when nothing was found.
int find_by_handle_or_name(JNIEnv* env, int context, HOutline outline, jint handle, jstring name,
                           JavaText* text, HMember* member);

// ---- Walks ----

// Calls visit(member) for a member and the siblings behind it, starting from what `status` and
// `member` say a first step gave. The status of the last step.
template <typename Visit>
int walk_siblings(HOutline outline, int status, HMember member, Visit visit) {
  while (status == kStatusOk && member != 0) {
    visit(member);
    HMember next = 0;
    status = OlvOtlGetNextSibling(outline, member, &next);
    member = next;
  }
  return status;
}

// Calls visit(member) for the descendants of a member in pre-order, going below a member when
// visit returns true. The status of the last step. Keeps its own stack: an outline may be deeper
// than a Java thread's. May throw std::bad_alloc.
template <typename Visit>
int walk_descendants(HOutline outline, HMember parent, Visit visit) {
  std::vector<HMember> path;
  HMember current = 0;
  int status = OlvOtlGetChild(outline, parent, &current);
  for (;;) {
    if (status == kStatusOk && current != 0) {
      if (visit(current)) {
        path.push_back(current);
        HMember child = 0;
        status = OlvOtlGetChild(outline, current, &child);
        current = child;
        continue;
      }
    } else {
      if (path.empty()) return status;
      current = path.back();
      path.pop_back();
    }
    HMember next = 0;
    status = OlvOtlGetNextSibling(outline, current, &next);
    current = next;
  }
}

// Reads the record of every handle of a query and calls visit(member, record). A member whose
// record cannot be read is skipped. The status of the last read, or `status` when there was none.
template <typename Visit>
int for_each_record(HOutline outline, const HandleArray& members, int status, Visit visit) {
  for (uint32_t i = 0; i < members.size(); ++i) {
    MemberRecord record(outline);
    status = record.read(members[i]);
    if (status == kStatusOk) visit(members[i], *record);
  }
  return status;
}

// Adds a new Java string of an API text to a list.
void add_string(JNIEnv* env, int context, jobject list, const char* text);

// ---- Details ----

// Sends the whole property set of a record to a properties object, in fixed order.
void send_member_properties(JNIEnv* env, int context, jobject properties,
                            const MemberInfoRecord& info);

// Calls give(text) with the formula, if the member has one. The API's status.
template <typename Give>
int give_formula(INST inst, HOutline outline, HMember member, Give give) {
  ApiBlock<char> formula(inst);
  const int status = OlvOtlGetMemberFormula(outline, member, formula.out());
  if (status == kStatusOk && formula) give(formula.get());
  return status;
}

// Calls give(text) for each UDA in order. The API's status.
template <typename Give>
int give_udas(INST inst, HOutline outline, HMember member, Give give) {
  uint16_t count = 0;
  ApiBlock<char> udas(inst);
  const int status = OlvOtlGetUserAttributes(outline, member, &count, udas.out());
  if (status != kStatusOk || !udas) return status;
  for (uint16_t i = 0; i < count; ++i) give(udas.get() + size_t{i} * kUdaStride);
  return status;
}

// Calls give(text) with the member's alias in a table (null: the default table), if it has one.
// The API's status.
template <typename Give>
int give_alias(INST inst, HOutline outline, HMember member, const char* table, Give give) {
  ApiBlock<char> alias(inst);
  const int status = OlvOtlGetMemberAlias(outline, member, table, alias.out());
  if (status == kStatusOk && alias) give(alias.get());
  return status;
}

}  // namespace kepotl
