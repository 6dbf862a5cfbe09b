// The fields of a member record that an outline keeps, told once: how each is called in a
// MemberInfoRecord of the interface, in MemberProperties and in the tables of an outline file.
#pragma once

#include "api/records.h"
#include "standin/outline/model/member.h"

namespace standin {

// Calls `visit(column, ours, theirs)` for each code or flag, in the order of the file's columns:
// the column's name and the pointers to the field in MemberProperties and in MemberInfoRecord.
template <typename Visit>
void visit_member_codes(Visit&& visit) {
  using Ours = MemberProperties;
  using Theirs = MemberInfoRecord;
  visit("consolidation", &Ours::consolidation, &Theirs::consolidation);
  visit("conversion_type", &Ours::conversion_type, &Theirs::conversionType);
  visit("time_balance", &Ours::time_balance, &Theirs::timeBalance);
  visit("time_balance_skip", &Ours::time_balance_skip, &Theirs::timeBalanceSkip);
  visit("share_option", &Ours::share_option, &Theirs::shareOption);
  visit("storage_type", &Ours::storage_type, &Theirs::storageType);
  visit("dimension_category", &Ours::dimension_category, &Theirs::dimensionCategory);
  visit("storage_category", &Ours::storage_category, &Theirs::storageCategory);
  visit("attribute_type", &Ours::attribute_type, &Theirs::attributeType);
  visit("two_pass", &Ours::two_pass, &Theirs::twoPass);
  visit("expense", &Ours::expense, &Theirs::expense);
  visit("hybrid_flag", &Ours::hybrid_flag, &Theirs::hybridFlag);
  visit("hybrid_analysis_enabled", &Ours::hybrid_analysis_enabled, &Theirs::hybridAnalysisEnabled);
}

// Calls `visit(bytes, size)` for each run of reserved bytes of a record, in the order in which they
// stand in MemberProperties::reserved.
template <typename Record, typename Visit>
void visit_reserved_bytes(Record& record, Visit&& visit) {
  visit(record.reserved530, sizeof record.reserved530);
  visit(record.reserved534, sizeof record.reserved534);
  visit(record.reserved546, sizeof record.reserved546);
}

// Most bytes of a formula or an extended comment: what SQLite keeps in a row, with room for the
// rest of it.
inline constexpr size_t kMaxLongText = 999'999'000;

// Calls `visit(table, kind, longest)` for each text of a member besides its name, in the order of
// the file's tables: the table's name and the most bytes that the text may have.
template <typename Visit>
void visit_member_texts(Visit&& visit) {
  visit("formula", TextKind::kFormula, kMaxLongText);
  visit("comment", TextKind::kComment, size_t{kMaxComment});
  visit("extended_comment", TextKind::kExtendedComment, kMaxLongText);
  visit("currency_member", TextKind::kCurrencyMember, size_t{kMaxMemberName});
}

}  // namespace standin
