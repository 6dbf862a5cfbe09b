// Reads children, subtrees and given members. A cursor stands at the member to be written next; it
// is kept in the header, so that nothing is kept here between calls.
#include "browse/members.h"
#include "bulk/operations.h"

namespace bulk {
namespace {

using kepotl::ask_handle;
using kepotl::GivenHandle;

// Where a listing stands: at a member, or at 0 behind the last one.
struct Siblings {
  HOutline outline;
  HMember at;

  HMember member() const { return at; }
  uint32_t next() const { return at; }
  int advance() {
    const GivenHandle behind = ask_handle(OlvOtlGetNextSibling, outline, at);
    at = behind.handle;
    return behind.status;
  }
};

// A member and its descendants in pre-order. Climbing takes a call a step and no memory, however
// deep the outline.
struct Subtree {
  HOutline outline;
  HMember root;
  HMember at;

  HMember member() const { return at; }
  uint32_t next() const { return at; }
  int advance() {
    GivenHandle to = ask_handle(OlvOtlGetChild, outline, at);
    while (to.status == kStatusOk && to.handle == 0 && at != root) {
      to = ask_handle(OlvOtlGetNextSibling, outline, at);
      if (to.status != kStatusOk || to.handle != 0) break;
      const GivenHandle parent = ask_handle(OlvOtlGetParent, outline, at);
      // At the top without having met the root: it has been moved away.
      if (parent.handle == 0) return parent.status == kStatusOk ? kStatusRefused : parent.status;
      at = parent.handle;
    }
    at = to.handle;
    return to.status;
  }
};

// The members that the request names.
struct Given {
  const uint8_t* handles;
  uint32_t count;
  uint32_t index;

  HMember member() const {
    return index < count ? load<HMember>(handles + size_t{index} * sizeof(HMember)) : 0;
  }
  uint32_t next() const { return index; }
  int advance() {
    ++index;
    return kStatusOk;
  }
};

// The child of a position, by a query for one.
GivenHandle child_at(const Request& request) {
  const MemberQuery query = kepotl::children_query();
  MemberQueryCounts counts = {};
  counts.start = request.next;
  counts.maxCount = 1;
  HMember* members = nullptr;
  const int status = OlvOtlQueryMembers(request.outline, request.member, &query, &counts, &members);
  if (status != kStatusOk || members == nullptr) return {status, 0};
  const HMember found = counts.returned > 0 ? members[0] : 0;
  OlvOtlFreeMembers(request.outline, counts.returned, members);
  return {status, found};
}

// The first child to list. `*field` tells what a status is about.
GivenHandle first_child(const Request& request, uint32_t* field) {
  const HOutline outline = request.outline;
  if (request.start == KEPOTL_FORMAT(FROM_POSITION)) return child_at(request);
  if (request.start == KEPOTL_FORMAT(FROM_FIRST)) {
    return request.member == 0 ? ask_handle(OlvOtlGetFirstMember, outline)
                               : ask_handle(OlvOtlGetChild, outline, request.member);
  }
  if (request.next == 0) return {kStatusOk, 0};
  const GivenHandle parent = ask_handle(OlvOtlGetParent, outline, request.next);
  *field = KEPOTL_FORMAT(FIELD_PLACE);
  if (parent.status != kStatusOk) return {parent.status, 0};
  if (parent.handle != request.member) return {kStatusRefused, 0};
  if (request.start == KEPOTL_FORMAT(FROM_MEMBER)) return {kStatusOk, request.next};
  return ask_handle(OlvOtlGetNextSibling, outline, request.next);
}

// Says so in a record when its codes are those of the record before.
void mark_same_codes(const uint8_t* before, uint8_t* record) {
  constexpr size_t kBytes = KEPOTL_FORMAT(CODE_COUNT) * sizeof(int16_t);
  const size_t codes = KEPOTL_FORMAT(READ_CODES);
  if (std::memcmp(before + codes, record + codes, kBytes) != 0) return;
  uint8_t* const flags = record + KEPOTL_FORMAT(READ_FLAGS);
  store(flags, load<uint32_t>(flags) | uint32_t{KEPOTL_FORMAT(SAME_CODES)});
}

// Writes the members from a cursor on. `dimension` of all of them, or 0 where it is to be found for
// each.
template <typename Cursor>
void list(const Request& request, Cursor cursor, HMember dimension, Answer* answer) {
  const char* last_dimension = nullptr;
  const uint8_t* before = nullptr;
  uint8_t* at = request.answer;
  while (cursor.member() != 0 && (request.limit == 0 || answer->count < request.limit)) {
    const HMember member = cursor.member();
    const HMember its_dimension =
        dimension != 0 ? dimension : LocateDimensionForMember(request.outline, member);
    Writer out(at, request.end);
    const Outcome outcome = write_record(request, member, its_dimension, &last_dimension, &out);
    if (!outcome) {
      answer->fail(outcome, member);
      break;
    }
    if (!out.fits()) {
      if (answer->count == 0) answer->needed = out.size();
      break;
    }
    if (before != nullptr) mark_same_codes(before, at);
    before = at;
    at += out.size();
    ++answer->count;
    const int status = cursor.advance();
    if (status != kStatusOk) {
      answer->fail({status, KEPOTL_FORMAT(FIELD_PLACE)}, member);
      break;
    }
  }
  answer->done = cursor.member() == 0 && answer->outcome;
  store(request.header + KEPOTL_FORMAT(START), uint32_t{KEPOTL_FORMAT(FROM_MEMBER)});
  store(request.header + KEPOTL_FORMAT(NEXT), cursor.next());
}

void list_children(const Request& request, Answer* answer) {
  Outcome outcome;
  const GivenHandle first = first_child(request, &outcome.field);
  outcome.status = first.status;
  if (!outcome) return answer->fail(outcome, request.member);
  // Each dimension is its own; elsewhere all siblings have one.
  const HMember dimension =
      request.member == 0 ? 0 : LocateDimensionForMember(request.outline, request.member);
  list(request, Siblings{request.outline, first.handle}, dimension, answer);
}

void list_subtree(const Request& request, Answer* answer) {
  const HMember dimension = LocateDimensionForMember(request.outline, request.member);
  const HMember first = request.start == KEPOTL_FORMAT(FROM_FIRST) ? request.member : request.next;
  list(request, Subtree{request.outline, request.member, first}, dimension, answer);
}

bool list_given(const Request& request, Answer* answer) {
  Reader body = request.body;
  const size_t count = body.left() / sizeof(HMember);
  if (body.left() % sizeof(HMember) != 0 || request.next > count) return false;
  const uint8_t* const handles = body.skip(count * sizeof(HMember));
  if (count > 0 && handles == nullptr) return false;
  list(request, Given{handles, static_cast<uint32_t>(count), request.next}, 0, answer);
  return true;
}

bool find(const Request& request, Answer* answer) {
  Reader body = request.body;
  const char* const name = body.text();
  if (name == nullptr || !body.at_end()) return false;
  const GivenHandle found = kepotl::find_by_name(request.outline, name);
  if (found.handle == 0) {
    const int status = kepotl::status_without_record(found.status);
    answer->fail({status, KEPOTL_FORMAT(FIELD_NAME)}, 0);
    return true;
  }
  uint8_t handle[sizeof(HMember)];
  store(handle, found.handle);
  list(request, Given{handle, 1, 0}, 0, answer);
  return true;
}

}  // namespace

bool read_members(const Request& request, Answer* answer) {
  if (request.start > KEPOTL_FORMAT(FROM_POSITION)) return false;
  switch (request.operation) {
    case KEPOTL_FORMAT(READ_CHILDREN):
      list_children(request, answer);
      return true;
    case KEPOTL_FORMAT(READ_SUBTREE):
      if (request.member == 0) return false;
      list_subtree(request, answer);
      return true;
    case KEPOTL_FORMAT(FIND):
      return find(request, answer);
    default:
      return list_given(request, answer);
  }
}

void find_position(const Request& request, Answer* answer) {
  GivenHandle at = {kStatusOk, request.member};
  for (;;) {
    at = ask_handle(OlvOtlGetPrevSibling, request.outline, at.handle);
    if (at.handle == 0) break;
    ++answer->count;
  }
  answer->done = true;
  if (at.status != kStatusOk) {
    answer->fail({at.status, KEPOTL_FORMAT(FIELD_PLACE)}, request.member);
  }
}

}  // namespace bulk
