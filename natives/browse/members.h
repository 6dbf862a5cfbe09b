// What browse/ offers without a virtual machine: the queries for members, finding one by name,
// walks over siblings and subtrees, and a member's details one by one.
#pragma once

#include <vector>

#include "bridge/guards.h"

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
inline AttributeQuery attribute_query(HMember member, bool is_dimension) {
  AttributeQuery query = {};
  query.usage = kAttributeQueryUsage;
  query.member = member;
  query.inputType = is_dimension ? kAttributeQueryDimensionInput : kAttributeQueryMemberInput;
  query.outputType = is_dimension ? kAttributeQueryDimensionOutput : kAttributeQueryMemberOutput;
  query.operation = kAttributeQueryOperation;
  return query;
}

// ---- Finding ----

// The member of a name, by look-up.
inline GivenHandle find_by_name(HOutline outline, const char* name) {
  return ask_handle(OlvOtlFindMember, outline, name);
}

// ---- Walks ----

// Calls visit(member) for a member and the siblings behind it, starting from what a first step
// gave. The status of the last step.
template <typename Visit>
int walk_siblings(HOutline outline, GivenHandle first, Visit visit) {
  GivenHandle at = first;
  while (at.handle != 0) {
    visit(at.handle);
    at = ask_handle(OlvOtlGetNextSibling, outline, at.handle);
  }
  return at.status;
}

// Calls visit(member) for the descendants of a member in pre-order, going below a member when
// visit returns true. The status of the last step. Keeps its own stack: an outline may be deeper
// than a Java thread's. May throw std::bad_alloc.
template <typename Visit>
int walk_descendants(HOutline outline, HMember parent, Visit visit) {
  std::vector<HMember> path;
  GivenHandle at = ask_handle(OlvOtlGetChild, outline, parent);
  for (;;) {
    HMember behind = at.handle;
    if (at.handle != 0) {
      if (visit(at.handle)) {
        path.push_back(at.handle);
        at = ask_handle(OlvOtlGetChild, outline, at.handle);
        continue;
      }
    } else {
      if (path.empty()) return at.status;
      behind = path.back();
      path.pop_back();
    }
    at = ask_handle(OlvOtlGetNextSibling, outline, behind);
  }
}

// Reads the record of every handle of a query and calls visit(member, record). A member without a
// record is skipped. The status of the last read, 0 when there was none.
template <typename Visit>
int for_each_record(HOutline outline, const HandleArray& members, Visit visit) {
  int status = kStatusOk;
  for (uint32_t i = 0; i < members.size(); ++i) {
    MemberRecord record(outline);
    status = record.read(members[i]);
    if (record) visit(members[i], *record);
  }
  return status;
}

// ---- Details ----

// Calls give(text) with the formula, if the member has one. The API's status.
template <typename Give>
int give_formula(INST inst, HOutline outline, HMember member, Give give) {
  ApiBlock<char> formula(inst);
  const int status = formula.take(OlvOtlGetMemberFormula, outline, member);
  if (formula) give(formula.get());
  return status;
}

// Calls give(text) for each UDA in order. The API's status.
template <typename Give>
int give_udas(INST inst, HOutline outline, HMember member, Give give) {
  ApiArray<char, uint16_t> udas(inst);
  const int status = udas.take(OlvOtlGetUserAttributes, outline, member);
  for (uint16_t i = 0; i < udas.size(); ++i) give(udas.begin() + size_t{i} * kUdaStride);
  return status;
}

// Calls give(text) with the member's alias in a table (null: the default table), if it has one.
// The API's status.
template <typename Give>
int give_alias(INST inst, HOutline outline, HMember member, const char* table, Give give) {
  ApiBlock<char> alias(inst);
  const int status = alias.take(OlvOtlGetMemberAlias, outline, member, table);
  if (alias) give(alias.get());
  return status;
}

}  // namespace kepotl
