// Problems on stderr, and rejected rows as CSV.
#include "command/rows/report.h"

#include "command/layer/text.h"

namespace command {
namespace {

constexpr uint64_t kShown = 20;

}  // namespace

Report::Report(std::string source, const std::string& rejects) : source_(std::move(source)) {
  if (!rejects.empty()) rejects_ = std::make_unique<Output>(rejects);
}

void Report::problem(uint64_t line, const std::string& message) {
  if (++problems_ <= kShown) complain(fmt::format("{}:{}: {}", source_, line, printable(message)));
}

void Report::reject(const std::vector<Field>& fields, const Row& row, const std::string& message) {
  problem(row.line, message);
  if (!rejects_) return;
  std::string text;
  if (!has_header_) {
    has_header_ = true;
    text = "parent,name";
    for (const Field& field : fields) {
      if (field.kind != FieldKind::kSkipped) append_csv(&text, field.header(), false);
    }
    text += '\n';
  }
  append_csv(&text, row.parent, true);
  append_csv(&text, row.name, false);
  for (size_t i = 0; i < fields.size(); ++i) {
    if (fields[i].kind == FieldKind::kSkipped) continue;
    append_csv(&text, i < row.values.size() ? row.values[i] : std::string(), false);
  }
  rejects_->line(text);
}

void Report::finish() {
  if (problems_ > kShown) complain(fmt::format("... and {} more problems", problems_ - kShown));
  if (rejects_) rejects_->finish();
}

}  // namespace command
