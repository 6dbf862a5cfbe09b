// Changing the shape of an outline: adding, renaming, moving, deleting and sorting members, with
// the rules on names and places. Dimensions stay dimensions and members stay below one: neither
// becomes the other by a move.
#include "api/olvotl.h"
#include "standin/outline/calls/open_outlines.h"
#include "standin/outline/calls/records.h"

using namespace standin;

namespace {

// Where a member goes: behind `previous` (0: first) among the children of `parent`.
struct Place {
  MemberId parent = kRoot;
  MemberId previous = kNoMember;
};

// Settles a place from a parent and a previous sibling either of which may be left out.
int find_place(const Outline& outline, HMember parent, HMember previous, Place* place) {
  if (parent != 0 && !outline.contains(parent)) return kBadMember;
  if (previous != 0 && !outline.contains(previous)) return kBadMember;
  *place = {parent, previous};
  if (previous == 0) return kStatusOk;
  place->parent = outline.member(previous).parent;
  return parent != 0 && parent != place->parent ? kBadPosition : kStatusOk;
}

// Checks the record of a member or dimension to add, name included.
int check_new(const Outline& outline, const MemberInfoRecord& info) {
  const int status = check_name(record_name(info));
  if (status != kStatusOk) return status;
  if (outline.find(record_name(info)) != kNoMember) return kStatusDuplicateName;
  return check_record(info);
}

int add_at(Outline& outline, const Place& place, const MemberInfoRecord& info, HMember* added) {
  const int status = check_new(outline, info);
  if (status != kStatusOk) return status;
  const MemberId id = outline.add(place.parent, place.previous, record_name(info));
  try {
    apply_record(outline, id, info);
  } catch (...) {
    outline.remove(id);
    throw;
  }
  *added = id;
  return kStatusOk;
}

// Members may share a name, dimensions share theirs with nobody.
bool name_refused(const Outline& outline, MemberId id, std::string_view name) {
  if (outline.is_dimension(id)) {
    MemberId holder = outline.find(name);
    if (holder == id) holder = outline.next_of_same_name(id);
    return holder != kNoMember;
  }
  if (outline.find(name) == kNoMember) return false;
  for (const MemberId dimension : outline.children(kRoot)) {
    if (outline.same_text(outline.name(dimension), name)) return true;
  }
  return false;
}

int move_member(Outline& outline, MemberId id, HMember parent, HMember previous) {
  Place place;
  const int status = find_place(outline, parent, previous, &place);
  if (status != kStatusOk) return status;
  if (outline.is_within(place.parent, id)) return kMoveBelowItself;
  if ((place.parent == kRoot) != outline.is_dimension(id)) return kBadPosition;
  outline.move(id, place.parent, place.previous);
  return kStatusOk;
}

}  // namespace

extern "C" {

int OlvOtlAddDimension(HOutline h, const MemberInfoRecord* info, HMember previous, uint32_t zero,
                       HMember* added) {
  if (info == nullptr || added == nullptr || zero != 0) return kBadArgument;
  return edit_outline(h, [&](Outline& outline) -> int {
    Place place;
    const int status = find_place(outline, 0, previous, &place);
    if (status != kStatusOk) return status;
    if (place.parent != kRoot) return kBadPosition;
    return add_at(outline, place, *info, added);
  });
}

int OlvOtlAddMemberEx(HOutline h, const MemberInfoRecord* info, HMember parent, HMember sibling,
                      HMember* added, uint32_t option) {
  if (info == nullptr || added == nullptr || option != kMemberOption) return kBadArgument;
  return edit_outline(h, [&](Outline& outline) -> int {
    Place place;
    const int status = find_place(outline, parent, sibling, &place);
    if (status != kStatusOk) return status;
    if (place.parent == kRoot) return kBadPosition;
    return add_at(outline, place, *info, added);
  });
}

int OlvOtlRenameMemberEx(HOutline h, HMember member, const char* name, uint32_t option) {
  if (name == nullptr || option != kMemberOption) return kBadArgument;
  return edit_member(h, member, [&](Outline& outline) -> int {
    const int status = check_name(name);
    if (status != kStatusOk) return status;
    if (name_refused(outline, member, name)) return kStatusDuplicateName;
    outline.rename(member, name);
    return kStatusOk;
  });
}

int OlvOtlMoveMember(HOutline h, HMember member, HMember parent, HMember previous) {
  return edit_member(
      h, member, [&](Outline& outline) { return move_member(outline, member, parent, previous); });
}

int OlvOtlDeleteMemberEx(HOutline h, HMember member, uint32_t option) {
  if (option != kMemberOption) return kBadArgument;
  return edit_member(h, member, [&](Outline& outline) {
    outline.remove(member);
    return kStatusOk;
  });
}

int OlvOtlSortChildren(HOutline h, HMember parent, uint16_t order, uint32_t zero1, uint32_t zero2) {
  if (order > kSortDescending || zero1 != 0 || zero2 != 0) return kBadArgument;
  return edit_outline(h, [&](Outline& outline) -> int {
    // Parent 0 sorts the dimensions.
    if (parent != kRoot && !outline.contains(parent)) return kBadMember;
    outline.sort_children(parent, order == kSortDescending);
    return kStatusOk;
  });
}

}  // extern "C"
