// Reads members whole.
#include "command/layer/details.h"

#include <algorithm>

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

}  // namespace command
