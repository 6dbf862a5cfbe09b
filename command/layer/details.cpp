// Reads members whole.
#include "command/layer/details.h"

#include <algorithm>
#include <cstring>

#include "api/olvotl.h"
#include "bridge/guards.h"
#include "command/layer/naming.h"
#include "command/layer/text.h"

namespace command {

DetailsReader::DetailsReader(const Outline& outline)
    : outline_(outline), tables_(outline.alias_tables()) {
  for (const std::string& table : tables_) inside_.push_back(inside(table));
  wanted_.aliases.assign(tables_.size(), true);
}

void DetailsReader::read(Member member, Details* details) const {
  details->record = member.record();
  details->name = outside(details->record.name);
  details->currency = outside(details->record.currencyMember);
  details->comment = outside(details->record.comment);
  details->extended_comment = wanted_.extended_comment ? member.extended_comment() : "";
  details->formula = wanted_.formula ? member.formula() : "";
  details->aliases.resize(inside_.size());
  for (size_t i = 0; i < inside_.size(); ++i) {
    details->aliases[i] = wanted_.aliases[i] ? member.alias(inside_[i].c_str()) : "";
  }
  details->udas = wanted_.udas ? member.udas() : std::vector<std::string>();
  details->attributes.clear();
  if (details->record.isAttributed == 0) return;
  const bool dimension = details->record.generation == 1 && !member.parent();
  for (const Member attribute : member.attributes()) {
    details->attributes.push_back(
        {attribute.dimension().name(),
         dimension ? attribute.name() : reference_to(outline_, attribute)});
  }
  std::sort(details->attributes.begin(), details->attributes.end());
}

bool DetailsReader::same(Member member, const DetailsReader& others, Member other) const {
  kepotl::MemberRecord mine(outline_.handle());
  kepotl::MemberRecord theirs(others.outline_.handle());
  check(mine.read(member.handle()), "read a member");
  check(theirs.read(other.handle()), "read a member");
  if (mine->isAttributed != 0 || std::memcmp(mine.get(), theirs.get(), sizeof *mine) != 0) {
    return false;
  }
  const auto same_text = [&](auto function, auto... table) {
    kepotl::ApiBlock<char> text(kepotl::kNoInstance);
    kepotl::ApiBlock<char> other_text(kepotl::kNoInstance);
    check(text.take(function, outline_.handle(), member.handle(), table...), "read a text");
    check(other_text.take(function, others.outline_.handle(), other.handle(), table...),
          "read a text");
    if (!text || !other_text) return !text && !other_text;
    return std::strcmp(text.get(), other_text.get()) == 0;
  };
  for (size_t i = 0; i < inside_.size(); ++i) {
    // The default table may have another name over there.
    const char* const table = i == 0 ? nullptr : inside_[i].c_str();
    if (!same_text(OlvOtlGetMemberAlias, table)) return false;
  }
  return same_text(OlvOtlGetMemberFormula) && same_text(OlvOtlGetMemberCommentEx) &&
         member.has_udas_of(other);
}

}  // namespace command
