// export: everything that load reads.
#include <algorithm>
#include <memory>

#include "command/commands.h"
#include "command/layer/naming.h"
#include "command/layer/similar.h"
#include "command/layer/text.h"
#include "command/rows/json_lines.h"
#include "command/rows/values.h"
#include "command/subcommand.h"

namespace command {
namespace {

struct ExportOptions {
  Database database;
  std::string file;
  std::string format;
  std::string member;
  std::vector<std::string> columns;
};

// A field with what writing it needs.
struct Column {
  Field field;
  size_t table = 0;  // position of the alias table
  std::string header;
};

void require_utf8(const Details& details) {
  bool valid = is_utf8(details.name) && is_utf8(details.formula) && is_utf8(details.comment) &&
               is_utf8(details.extended_comment) && is_utf8(details.currency);
  for (const std::string& alias : details.aliases) valid = valid && is_utf8(alias);
  for (const std::string& uda : details.udas) valid = valid && is_utf8(uda);
  if (valid) return;
  throw Failure(
      fmt::format("the texts of '{}' hold half of a surrogate pair, which no file in "
                  "UTF-8 can; correct them first",
                  printable(details.name)));
}

class Exporter {
 public:
  Exporter(const Outline& outline, Member top, Output& out)
      : outline_(outline), top_(top), out_(out), reader_(outline) {
    for (Field& field : all_fields(outline)) {
      Column column{field, 0, field.header()};
      if (field.kind == FieldKind::kAlias && !field.key.empty()) {
        const auto& tables = reader_.tables();
        column.table = static_cast<size_t>(std::find(tables.begin(), tables.end(), field.key) -
                                           tables.begin());
      }
      columns_.push_back(std::move(column));
    }
  }

  // Keeps the named columns only, in the order in which they are named.
  void choose(const std::vector<std::string>& names) {
    std::vector<Column> chosen;
    for (const std::string& name : names) {
      const auto found = std::find_if(columns_.begin(), columns_.end(), [&](const Column& column) {
        return same_name(column.header, name, false);
      });
      if (found == columns_.end()) {
        Similar similar(name);
        for (const Column& column : columns_) similar.offer(column.header);
        throw Failure(fmt::format("the outline has no column '{}'{}", name, similar.sentence()));
      }
      chosen.push_back(*found);
    }
    columns_ = std::move(chosen);
    chosen_ = true;
  }

  // Leaves the columns out in which no member has anything to say.
  void drop_unused() {
    std::vector<bool> used(columns_.size());
    want([&](size_t) { return true; });
    Details details;
    for (PlaceWalk walk(outline_, top_); walk; walk.advance(details.record)) {
      reader_.read(walk.member(), &details);
      note_repeat(walk.member(), details);
      const MemberInfoRecord& defaults = defaults_.at(walk, details.record);
      bool found = false;
      for (size_t i = 0; i < columns_.size(); ++i) {
        if (used[i] || !says_something(columns_[i], walk.member(), details, defaults)) continue;
        used[i] = found = true;
      }
      // What is known to be used need not be asked for again.
      if (found) want([&](size_t i) { return !used[i]; });
    }
    for (size_t i = columns_.size(); i-- > 0;) {
      if (!used[i]) columns_.erase(columns_.begin() + static_cast<std::ptrdiff_t>(i));
    }
  }

  void write_csv(Progress& progress) {
    if (!chosen_) drop_unused();
    want([](size_t) { return true; });
    std::string text = "parent,name";
    for (const Column& column : columns_) append_csv(&text, column.header, false);
    out_.line(text);
    Details details;
    uint64_t rows = 0;
    for (PlaceWalk walk(outline_, top_); walk; walk.advance(details.record)) {
      reader_.read(walk.member(), &details);
      require_utf8(details);
      text.clear();
      append_csv(&text, walk.parent(), true);
      append_csv(&text, details.name, false);
      for (const Column& column : columns_) {
        if (const std::string* kept = kept_text(column.field, column.table, details)) {
          append_csv(&text, *kept, false);
        } else {
          append_csv(&text, cell(column, walk.member(), details), false);
        }
      }
      out_.line(text);
      progress.step(0, ++rows);
    }
  }

  void write_json_lines(Progress& progress) {
    for (const std::string& line : outline_lines(outline_)) out_.line(line);
    for (auto at = subtree(outline_.root()).begin(); at && !repeats_; ++at) {
      repeats_ = outline_.find((*at).name()) != *at;
    }
    Details details;
    std::string text;
    uint64_t rows = 0;
    for (PlaceWalk walk(outline_, top_); walk; walk.advance(details.record)) {
      reader_.read(walk.member(), &details);
      require_utf8(details);
      const MemberInfoRecord& defaults = defaults_.at(walk, details.record);
      text = "{\"parent\":" + json_text(walk.parent()) + ",\"name\":" + json_text(details.name);
      for (const Column& column : columns_) {
        if (!says_something(column, walk.member(), details, defaults)) continue;
        text += "," + json_text(column.header) + ":" + json_value(column, walk.member(), details);
      }
      out_.line(text + "}");
      progress.step(0, ++rows);
    }
    for (const std::string& line : closing_lines(outline_)) out_.line(line);
  }

  // One row per leaf, its ancestors in columns.
  void write_levels() {
    size_t deepest = 0;
    for (auto at = subtree(top_).begin(); at; ++at) deepest = std::max(deepest, at.depth());
    std::string text;
    for (size_t i = 0; i <= deepest; ++i) append_csv(&text, fmt::format("Level {}", i + 1), i == 0);
    out_.line(text);
    std::vector<std::string> path;
    for (auto at = subtree(top_).begin(); at; ++at) {
      path.resize(at.depth());
      path.push_back((*at).name());
      if ((*at).first_child()) continue;
      text.clear();
      for (size_t i = 0; i <= deepest; ++i) {
        append_csv(&text, i < path.size() ? path[i] : std::string(), i == 0);
      }
      out_.line(text);
    }
  }

 private:
  // Has the reader ask for what the columns that `wanted` names by position need, no more.
  template <typename Wanted>
  void want(Wanted&& wanted) {
    WantedDetails details{false, false, false, std::vector<bool>(reader_.tables().size())};
    for (size_t i = 0; i < columns_.size(); ++i) {
      if (!wanted(i)) continue;
      const FieldKind kind = columns_[i].field.kind;
      details.formula = details.formula || kind == FieldKind::kFormula;
      details.extended_comment = details.extended_comment || kind == FieldKind::kExtendedComment;
      details.udas = details.udas || kind == FieldKind::kUda;
      if (kind == FieldKind::kAlias) details.aliases[columns_[i].table] = true;
    }
    reader_.want(std::move(details));
  }

  void note_repeat(Member member, const Details& details) {
    if (!repeats_) repeats_ = outline_.find(details.name) != member;
  }

  // True when the name is another unshared member's, too, which has to be said to be meant.
  bool repeats_name(Member member, const Details& details) const {
    if (!repeats_ || details.record.shareOption == kShareShared) return false;
    for (const Member holder : outline_.holders(details.name)) {
      if (holder != member && !holder.shared()) return true;
    }
    return false;
  }

  bool says_something(const Column& column, Member member, const Details& details,
                      const MemberInfoRecord& defaults) const {
    if (column.field.kind == FieldKind::kProperty) {
      return column.field.property->get(details.record) != column.field.property->get(defaults);
    }
    if (column.field.kind == FieldKind::kRepeat) return repeats_name(member, details);
    const std::string* const kept = kept_text(column.field, column.table, details);
    return kept != nullptr ? !kept->empty()
                           : !value_of(column.field, column.table, details).empty();
  }

  std::string cell(const Column& column, Member member, const Details& details) const {
    if (column.field.kind != FieldKind::kRepeat) {
      return value_of(column.field, column.table, details);
    }
    return repeats_name(member, details) ? "yes" : "";
  }

  std::string json_value(const Column& column, Member member, const Details& details) const {
    if (column.field.kind != FieldKind::kUda) return json_text(cell(column, member, details));
    std::string list;
    for (const std::string& uda : details.udas) {
      list += (list.empty() ? "[" : ",") + json_text(uda);
    }
    return list + "]";
  }

  const Outline& outline_;
  Member top_;
  Output& out_;
  DetailsReader reader_;
  DefaultRecords defaults_;
  std::vector<Column> columns_;
  bool chosen_ = false;
  bool repeats_ = false;
};

std::string format_of(const ExportOptions& options) {
  if (!options.format.empty()) return options.format;
  const size_t dot = options.file.rfind('.');
  const std::string ending = dot == std::string::npos ? "" : options.file.substr(dot);
  return ending == ".jsonl" || ending == ".ndjson" || ending == ".json" ? "jsonl" : "csv";
}

int run(Session& session, const ExportOptions& options) {
  const Store store = session.open();
  const Outline outline = options.database.read(store);
  const Member top = options.member.empty() ? outline.root() : find_member(outline, options.member);
  std::unique_ptr<Output> file;
  if (!options.file.empty() && options.file != "-") file = std::make_unique<Output>(options.file);
  Output& out = file ? *file : session.out;
  Progress progress(session, "exporting");
  Exporter exporter(outline, top, out);
  std::vector<std::string> columns;
  for (const std::string& list : options.columns) {
    for (std::string& name : split_quoted(list, ',')) columns.push_back(std::move(name));
  }
  if (!columns.empty()) exporter.choose(columns);
  const std::string format = format_of(options);
  if (format == "csv") exporter.write_csv(progress);
  if (format == "jsonl") exporter.write_json_lines(progress);
  if (format == "levels") exporter.write_levels();
  out.finish();
  return kDone;
}

}  // namespace

void add_export(CLI::App& app, Session& session) {
  auto options = std::make_shared<ExportOptions>();
  Subcommand(app, session, "export", "Write members as a table or as JSON Lines",
             "export Demo World members.csv\nexport Demo World world.jsonl\n"
             "export Demo World --member Geography --columns alias,uda\n"
             "export Demo World --format levels --member Geography",
             Json::kNo, [&session, options] { return run(session, *options); })
      .database(&options->database)
      .positional("FILE", &options->file, "File to write anew; stdout when there is none",
                  Given::kOptional)
      .choice("--format", &options->format, {"csv", "levels", "jsonl"},
              "Parent-child CSV, CSV with a column per level, or JSON Lines with the whole "
              "outline; told by the file's ending unless given")
      .options("--columns", &options->columns, "LIST",
               "Columns besides parent and name, separated by commas (default: all in use)")
      .option("--member", &options->member, "MEMBER", "Only this member and what lies below it");
}

}  // namespace command
