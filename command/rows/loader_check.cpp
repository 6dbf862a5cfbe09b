// What can be wrong with a row by itself.
#include "command/layer/formatting.h"
#include "command/layer/naming.h"
#include "command/layer/text.h"
#include "command/rows/loader.h"

namespace command {

// What is wrong with the row's own values; empty when nothing is.
std::string Loader::check(const Row& row) const {
  if (row.name.empty()) return "the name is empty; give the member one";
  const size_t size = inside(row.name).size();
  if (size > kMaxMemberName) {
    return fmt::format("the name '{}' takes {} bytes; shorten it to {}", cut(row.name, 40), size,
                       kMaxMemberName);
  }
  for (size_t i = 0; i < row.values.size(); ++i) {
    const std::string& text = row.values[i];
    if (text.empty()) continue;
    const Field& field = fields_[i];
    const auto too_long = [&](const std::string& part, size_t most) {
      return inside(part).size() <= most
                 ? std::string()
                 : fmt::format("{} '{}' takes {} bytes; shorten it to {}", field.header(),
                               cut(part, 40), inside(part).size(), most);
    };
    std::string problem;
    if (field.kind == FieldKind::kProperty && !field.property->code(text)) {
      problem =
          fmt::format("{} can't be '{}'; say {}", field.header(), text, field.property->choices());
    } else if (field.kind == FieldKind::kAlias || field.kind == FieldKind::kCurrency) {
      problem = too_long(text, kMaxMemberName);
    } else if (field.kind == FieldKind::kComment) {
      problem = too_long(text, kMaxComment);
    } else if (field.kind == FieldKind::kUda) {
      for (const std::string& uda : split_quoted(text, ';')) {
        if (problem.empty()) problem = too_long(uda, kMaxUda);
      }
    } else if (field.kind == FieldKind::kRepeat && !same_name(text, "yes", false) &&
               !same_name(text, "no", false)) {
      problem = fmt::format("repeat can't be '{}'; say yes or no", text);
    } else if (field.kind == FieldKind::kReserved) {
      MemberInfoRecord record = {};
      if (!set_reserved(&record, text)) problem = "reserved has to be 44 hexadecimal digits";
    }
    if (!problem.empty()) return problem;
  }
  return "";
}

}  // namespace command
