// One member as a record: the values that the native methods would send to a member object, and
// the details that they would answer one by one.
#include "browse/members.h"
#include "bulk/operations.h"

namespace bulk {
namespace {

using kepotl::MemberRecord;

// The length of a text in a fixed field, also where the API left out the NUL.
template <size_t Size>
size_t length_in(const char (&field)[Size]) {
  return ::strnlen(field, Size);
}

uint32_t flags_of(HOutline outline, HMember member, const MemberInfoRecord& info) {
  uint32_t flags = 0;
  const auto add = [&flags](uint8_t value, uint32_t flag) {
    if (value != 0) flags |= flag;
  };
  add(info.twoPass, KEPOTL_FORMAT(FLAG_TWO_PASS));
  add(info.expense, KEPOTL_FORMAT(FLAG_EXPENSE));
  add(info.isAttributed, KEPOTL_FORMAT(FLAG_ATTRIBUTED));
  // Members between a dimension and the leaves tell nothing of hybrid analysis.
  if (info.generation == 1) {
    add(DetermineIfDimensionHasHybridChildren(outline, member),
        KEPOTL_FORMAT(FLAG_HYBRID_DESCENDANTS));
    add(info.hybridAnalysisEnabled, KEPOTL_FORMAT(FLAG_HYBRID_ENABLED));
  } else if (info.level == 0) {
    add(info.hybridFlag, KEPOTL_FORMAT(FLAG_HYBRID_DESCENDANTS));
  }
  return flags;
}

void put_codes(const MemberInfoRecord& info, Writer* out) {
  const int16_t storage_type = info.generation == 1 ? info.storageType : int16_t{0};
  const int16_t codes[] = {info.level,          info.generation,  info.consolidation,
                           info.conversionType, info.timeBalance, info.timeBalanceSkip,
                           info.shareOption,    storage_type,     info.dimensionCategory,
                           info.attributeType};
  static_assert(sizeof codes == KEPOTL_FORMAT(CODE_COUNT) * sizeof *codes);
  static_assert(KEPOTL_FORMAT(READ_CODES) + sizeof codes == KEPOTL_FORMAT(READ_FLAGS));
  size_t at = KEPOTL_FORMAT(READ_CODES);
  for (const int16_t code : codes) {
    out->put(at, code);
    at += sizeof code;
  }
}

int put_place(HOutline outline, HMember member, Writer* out) {
  const kepotl::GivenHandle parent = kepotl::ask_handle(OlvOtlGetParent, outline, member);
  if (parent.status != kStatusOk) return parent.status;
  const kepotl::GivenHandle previous = kepotl::ask_handle(OlvOtlGetPrevSibling, outline, member);
  out->put(KEPOTL_FORMAT(READ_PARENT), parent.handle);
  out->put(KEPOTL_FORMAT(READ_PREVIOUS), previous.handle);
  return previous.status;
}

// The dimension's name, unless the record before has the same.
void write_dimension(const MemberInfoRecord& info, const char** last, uint32_t* flags,
                     Writer* out) {
  const size_t length = length_in(info.dimensionName);
  const bool same = *last != nullptr && std::strncmp(*last, info.dimensionName, length) == 0 &&
                    (*last)[length] == '\0';
  if (same) {
    *flags |= KEPOTL_FORMAT(SAME_DIMENSION);
    return;
  }
  const char* const written = out->text(info.dimensionName, length);
  if (written != nullptr) *last = written;
}

// One text from a call that gives it back with OlvFree, or none.
template <typename Function, typename... Arguments>
int write_text(const Request& request, Writer* out, Function function, Arguments... arguments) {
  kepotl::ApiBlock<char> text(request.inst);
  const int status = text.take(function, request.outline, arguments...);
  if (text) {
    out->text(text.get());
  } else {
    out->no_text();
  }
  return status;
}

int write_aliases(const Request& request, HMember member, Writer* out) {
  for (const char* table : request.tables) {
    const int status = write_text(request, out, OlvOtlGetMemberAlias, member, table);
    if (status != kStatusOk) return status;
  }
  return kStatusOk;
}

int write_udas(const Request& request, HMember member, Writer* out) {
  kepotl::ApiArray<char, uint16_t> udas(request.inst);
  const int status = udas.take(OlvOtlGetUserAttributes, request.outline, member);
  out->number(udas.size());
  for (uint16_t i = 0; i < udas.size(); ++i) {
    const char* const uda = udas.begin() + size_t{i} * kUdaStride;
    out->text(uda, ::strnlen(uda, kUdaStride));
  }
  return status;
}

// Members without associations are not asked for any.
int write_attributes(const Request& request, HMember member, bool attributed, Writer* out) {
  kepotl::ApiArray<HMember, uint16_t> attributes(request.inst);
  int status = kStatusOk;
  if (attributed) status = attributes.take(OlvOtlGetAssociatedAttributes, request.outline, member);
  out->number(attributes.size());
  for (const HMember attribute : attributes) {
    MemberRecord record(request.outline);
    const int read = record.read(attribute);
    if (!record) return kepotl::status_without_record(read);
    out->number(attribute);
    out->text(record->dimensionName, length_in(record->dimensionName));
    out->text(record->name, length_in(record->name));
  }
  return status;
}

Outcome write_details(const Request& request, HMember member, bool attributed, Writer* out) {
  Outcome outcome;
  const auto write = [&](uint32_t detail, uint32_t field, auto one) {
    if (!outcome || !request.wants(detail)) return;
    outcome = {one(), field};
  };
  write(KEPOTL_FORMAT(DETAIL_EXTENDED_COMMENT), KEPOTL_FORMAT(FIELD_EXTENDED_COMMENT),
        [&] { return write_text(request, out, OlvOtlGetMemberCommentEx, member); });
  write(KEPOTL_FORMAT(DETAIL_FORMULA), KEPOTL_FORMAT(FIELD_FORMULA),
        [&] { return write_text(request, out, OlvOtlGetMemberFormula, member); });
  write(KEPOTL_FORMAT(DETAIL_ALIASES), KEPOTL_FORMAT(FIELD_ALIAS),
        [&] { return write_aliases(request, member, out); });
  write(KEPOTL_FORMAT(DETAIL_UDAS), KEPOTL_FORMAT(FIELD_UDA),
        [&] { return write_udas(request, member, out); });
  write(KEPOTL_FORMAT(DETAIL_ATTRIBUTES), KEPOTL_FORMAT(FIELD_ATTRIBUTE),
        [&] { return write_attributes(request, member, attributed, out); });
  return outcome;
}

}  // namespace

Outcome write_record(const Request& request, HMember member, HMember dimension,
                     const char** last_dimension, Writer* out) {
  MemberRecord record(request.outline);
  const int status = record.read(member);
  if (!record) return {kepotl::status_without_record(status), KEPOTL_FORMAT(FIELD_MEMBER)};
  const MemberInfoRecord& info = *record;
  uint32_t flags = flags_of(request.outline, member, info);
  out->gap(KEPOTL_FORMAT(READ_FIXED));
  out->put(KEPOTL_FORMAT(READ_HANDLE), member);
  out->put(KEPOTL_FORMAT(READ_DIMENSION), dimension);
  out->put(KEPOTL_FORMAT(READ_PARENT), HMember{0});
  out->put(KEPOTL_FORMAT(READ_PREVIOUS), HMember{0});
  out->put(KEPOTL_FORMAT(READ_CHILD_COUNT), info.childCount);
  put_codes(info, out);
  if (request.wants(KEPOTL_FORMAT(DETAIL_PLACE))) {
    const int placed = put_place(request.outline, member, out);
    if (placed != kStatusOk) return {placed, KEPOTL_FORMAT(FIELD_PLACE)};
  }
  out->text(info.name, length_in(info.name));
  const char* dimension_name = *last_dimension;
  write_dimension(info, &dimension_name, &flags, out);
  out->text(info.currencyMember, length_in(info.currencyMember));
  out->text(info.comment, length_in(info.comment));
  const Outcome outcome = write_details(request, member, info.isAttributed != 0, out);
  out->put(KEPOTL_FORMAT(READ_FLAGS), flags);
  out->put(KEPOTL_FORMAT(READ_LENGTH), static_cast<uint32_t>(out->size()));
  if (outcome && out->fits()) *last_dimension = dimension_name;
  return outcome;
}

}  // namespace bulk
