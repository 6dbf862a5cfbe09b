// Makes and changes members: the records of a request, checked before the first one is carried
// out, and for each what createMember and the methods that assign one property would do.
#include "browse/members.h"
#include "bulk/operations.h"
#include "edit/edit.h"

namespace bulk {
namespace {

// Texts of a record that stand one behind the other: aliases with the numbers of their tables,
// user-defined attributes, names of attribute members.
struct Texts {
  uint32_t count;
  Reader reader;
};

// One record of a request. The texts point into it; what is null is not given.
struct Record {
  uint8_t* fixed;
  const char* name;
  const char* currency_member;
  const char* comment;
  const char* extended_comment;
  const char* formula;
  Texts aliases;
  Texts udas;
  Texts attributes;

  uint32_t number(size_t offset) const { return load<uint32_t>(fixed + offset); }
  bool gives(uint32_t what) const { return (number(KEPOTL_FORMAT(MAKE_GIVEN)) & what) != 0; }
};

// The members of the records so far.
class Made {
 public:
  // Room for all, before there is a member that would have to be noted.
  Made(HOutline outline, uint32_t count) : outline_(outline) { members_.reserve(count); }

  // The place that a record names, by handles or as those of records before it.
  kepotl::Place place_of(const Record& record) const {
    return {named(record, KEPOTL_FORMAT(MAKE_PARENT), KEPOTL_FORMAT(GIVEN_PARENT_INDEX)),
            named(record, KEPOTL_FORMAT(MAKE_SIBLING), KEPOTL_FORMAT(GIVEN_SIBLING_INDEX))};
  }
  // The dimension of the members below a parent. To climb to it from every member would take as
  // long as the outline is deep.
  HMember dimension_below(const Record& record, HMember parent) {
    if (record.gives(KEPOTL_FORMAT(GIVEN_PARENT_INDEX))) {
      return members_[record.number(KEPOTL_FORMAT(MAKE_PARENT))].dimension;
    }
    if (parent != parent_) dimension_ = locateDimension(outline_, parent, 0);
    parent_ = parent;
    return dimension_;
  }
  void add(HMember member, HMember dimension) { members_.push_back({member, dimension}); }

 private:
  struct Member {
    HMember handle;
    HMember dimension;
  };

  HMember named(const Record& record, size_t offset, uint32_t by_index) const {
    const uint32_t number = record.number(offset);
    return record.gives(by_index) ? members_[number].handle : number;
  }

  HOutline outline_;
  std::vector<Member> members_;
  // The parent that was last given by its handle, and its dimension.
  HMember parent_ = 0;
  HMember dimension_ = 0;
};

// Skips texts; `numbers` says how many there are of alias tables, 0 for texts without a number.
Texts take_texts(Reader* in, size_t numbers, bool* sound) {
  const uint32_t count = in->number();
  const Texts texts = {count, *in};
  for (uint32_t i = 0; i < count && *sound; ++i) {
    if (numbers > 0 && in->number() >= numbers) *sound = false;
    if (in->text() == nullptr) *sound = false;
  }
  return texts;
}

// Takes the next record; false when it is not well-formed. `tables` is the number of alias tables.
bool take_record(Reader* in, size_t tables, Record* record) {
  Reader head = *in;
  const size_t length = head.number();
  uint8_t* const start = in->skip(length);
  if (start == nullptr || length < KEPOTL_FORMAT(MAKE_FIXED)) return false;
  Reader body(start + KEPOTL_FORMAT(MAKE_FIXED), start + length);
  record->fixed = start;
  record->name = body.text();
  record->currency_member = body.text();
  record->comment = body.text();
  record->extended_comment = body.text();
  record->formula = body.text();
  bool sound = true;
  // Without tables there is no number that an alias could give.
  record->aliases = take_texts(&body, tables, &sound);
  if (tables == 0 && record->aliases.count > 0) return false;
  record->udas = take_texts(&body, 0, &sound);
  record->attributes = take_texts(&body, 0, &sound);
  return sound && body.ok() && body.at_end();
}

// Whether all records are well-formed, and name as parent and sibling only records before them.
// Counts them.
bool all_sound(const Request& request, uint32_t* count) {
  Reader body = request.body;
  uint32_t& index = *count;
  for (index = 0; !body.at_end(); ++index) {
    Record record;
    if (!take_record(&body, request.tables.size(), &record)) return false;
    const auto in_order = [&](size_t offset, uint32_t by_index) {
      return !record.gives(by_index) || record.number(offset) < index;
    };
    if (!in_order(KEPOTL_FORMAT(MAKE_PARENT), KEPOTL_FORMAT(GIVEN_PARENT_INDEX)) ||
        !in_order(KEPOTL_FORMAT(MAKE_SIBLING), KEPOTL_FORMAT(GIVEN_SIBLING_INDEX))) {
      return false;
    }
  }
  return true;
}

// Writes what is given of the properties that live in the member's record, all at once. A text that
// does not fit refuses them before anything is read or written.
int set_properties(HOutline outline, HMember member, const Record& record) {
  constexpr int16_t MemberInfoRecord::*kCodes[] = {
      &MemberInfoRecord::consolidation, &MemberInfoRecord::conversionType,
      &MemberInfoRecord::timeBalance,   &MemberInfoRecord::timeBalanceSkip,
      &MemberInfoRecord::shareOption,
  };
  constexpr uint32_t kFirst = KEPOTL_FORMAT(CODE_CONSOLIDATION);
  constexpr uint32_t kLast = KEPOTL_FORMAT(CODE_SHARE);
  static_assert(kLast - kFirst + 1 == sizeof kCodes / sizeof *kCodes);
  const char* const currency = record.currency_member;
  const char* const comment = record.comment;
  if (currency != nullptr && std::strlen(currency) > kMaxMemberName) return kStatusRefused;
  if (comment != nullptr && std::strlen(comment) > kMaxComment) return kStatusRefused;
  return kepotl::update_member(outline, member, [&](MemberInfoRecord& info) {
    const uint32_t flags = record.number(KEPOTL_FORMAT(MAKE_FLAGS));
    for (uint32_t code = kFirst; code <= kLast; ++code) {
      if (!record.gives(uint32_t{KEPOTL_FORMAT(GIVEN_CODE)} << code)) continue;
      const size_t slot = code - kFirst;
      info.*kCodes[slot] =
          load<int16_t>(record.fixed + KEPOTL_FORMAT(MAKE_CODES) + slot * sizeof(int16_t));
    }
    if (record.gives(KEPOTL_FORMAT(GIVEN_TWO_PASS))) {
      info.twoPass = (flags & KEPOTL_FORMAT(FLAG_TWO_PASS)) != 0;
    }
    if (record.gives(KEPOTL_FORMAT(GIVEN_EXPENSE))) {
      info.expense = (flags & KEPOTL_FORMAT(FLAG_EXPENSE)) != 0;
    }
    if (currency != nullptr) kepotl::store_text(info.currencyMember, kMaxMemberName, currency);
    if (comment != nullptr) kepotl::store_text(info.comment, kMaxComment, comment);
  });
}

// Whether a record gives any of those properties.
bool gives_properties(const Record& record) {
  constexpr uint32_t kPlaces =
      KEPOTL_FORMAT(GIVEN_PARENT_INDEX) | KEPOTL_FORMAT(GIVEN_SIBLING_INDEX);
  return record.gives(~kPlaces) || record.currency_member != nullptr || record.comment != nullptr;
}

int set_formula(HOutline outline, HMember member, const char* formula) {
  return *formula == '\0' ? OlvOtlDeleteMemberFormula(outline, member)
                          : OlvOtlSetMemberFormula(outline, member, formula);
}

int set_aliases(const Request& request, HMember member, Texts aliases) {
  int status = kStatusOk;
  for (uint32_t i = 0; i < aliases.count && status == kStatusOk; ++i) {
    const char* const table = request.tables[aliases.reader.number()];
    const char* const alias = aliases.reader.text();
    status = *alias == '\0' ? OlvOtlDeleteMemberAlias(request.outline, member, table)
                            : OlvOtlSetMemberAlias(request.outline, member, table, alias);
  }
  return status;
}

int add_udas(HOutline outline, HMember member, Texts udas) {
  int status = kStatusOk;
  for (uint32_t i = 0; i < udas.count && status == kStatusOk; ++i) {
    status = OlvOtlSetUserAttribute(outline, member, udas.reader.text());
  }
  return status;
}

int add_attributes(HOutline outline, HMember member, Texts attributes) {
  for (uint32_t i = 0; i < attributes.count; ++i) {
    const kepotl::GivenHandle attribute = kepotl::find_by_name(outline, attributes.reader.text());
    if (attribute.handle == 0) return kepotl::status_without_record(attribute.status);
    const int status = OlvOtlAssociateAttributeMember(outline, member, attribute.handle);
    if (status != kStatusOk) return status;
  }
  return kStatusOk;
}

// Gives a member what its record gives besides the name.
Outcome set_details(const Request& request, HMember member, const Record& record) {
  Outcome outcome;
  const auto set = [&](bool given, uint32_t field, auto one) {
    if (outcome && given) outcome = {one(), field};
  };
  const HOutline outline = request.outline;
  set(gives_properties(record), KEPOTL_FORMAT(FIELD_PROPERTIES),
      [&] { return set_properties(outline, member, record); });
  set(record.extended_comment != nullptr, KEPOTL_FORMAT(FIELD_EXTENDED_COMMENT),
      [&] { return OlvOtlSetMemberCommentEx(outline, member, record.extended_comment); });
  set(record.formula != nullptr, KEPOTL_FORMAT(FIELD_FORMULA),
      [&] { return set_formula(outline, member, record.formula); });
  set(record.aliases.count > 0, KEPOTL_FORMAT(FIELD_ALIAS),
      [&] { return set_aliases(request, member, record.aliases); });
  set(record.udas.count > 0, KEPOTL_FORMAT(FIELD_UDA),
      [&] { return add_udas(outline, member, record.udas); });
  set(record.attributes.count > 0, KEPOTL_FORMAT(FIELD_ATTRIBUTE),
      [&] { return add_attributes(outline, member, record.attributes); });
  return outcome;
}

// Makes the member of a record and notes it. `*member` is 0 when nothing is left of it.
Outcome create(const Request& request, const Record& record, Made* made, HMember* member) {
  constexpr uint32_t kName = KEPOTL_FORMAT(FIELD_NAME);
  *member = 0;
  const char* const name = record.name;
  if (name == nullptr || *name == '\0' || std::strlen(name) > kMaxMemberName) {
    return {kStatusRefused, kName};
  }
  const HOutline outline = request.outline;
  const kepotl::Place place = made->place_of(record);
  const HMember dimension = place.parent == 0 ? 0 : made->dimension_below(record, place.parent);
  const kepotl::GivenHandle added = place.parent == 0
                                        ? kepotl::add_with_defaults(outline, place, name)
                                        : kepotl::add_in_dimension(outline, place, dimension, name);
  if (added.handle == 0) return {kepotl::status_without_record(added.status), kName};
  const Outcome outcome = set_details(request, added.handle, record);
  if (outcome) {
    made->add(added.handle, dimension == 0 ? added.handle : dimension);
    *member = added.handle;
  } else if (OlvOtlDeleteMemberEx(outline, added.handle, kMemberOption) != kStatusOk) {
    *member = added.handle;
  }
  return outcome;
}

}  // namespace

bool make_members(const Request& request, Answer* answer) {
  uint32_t count = 0;
  if (!all_sound(request, &count)) return false;
  const bool creating = request.operation == KEPOTL_FORMAT(CREATE);
  Made made(request.outline, creating ? count : 0);
  Reader body = request.body;
  Record record;
  while (!body.at_end() && take_record(&body, request.tables.size(), &record)) {
    HMember member = record.number(KEPOTL_FORMAT(MAKE_HANDLE));
    const Outcome outcome =
        creating ? create(request, record, &made, &member) : set_details(request, member, record);
    if (creating) store(record.fixed + KEPOTL_FORMAT(MAKE_HANDLE), member);
    if (!outcome) {
      answer->fail(outcome, member);
      return true;
    }
    ++answer->count;
  }
  answer->done = true;
  return true;
}

}  // namespace bulk
