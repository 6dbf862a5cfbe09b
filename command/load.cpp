// load: members from a file into an outline.
#include <memory>
#include <unordered_map>

#include "command/commands.h"
#include "command/layer/naming.h"
#include "command/layer/similar.h"
#include "command/load_file.h"
#include "command/rows/csv_reader.h"
#include "command/rows/json_lines.h"
#include "command/rows/loader.h"
#include "command/subcommand.h"

namespace command {
namespace {

struct LoadOptions {
  Database database;
  std::string file;
  std::string mode = "add";
  std::string format;
  std::string rejects;
  std::string below;
  std::vector<std::string> map;
  bool clear_empty = false;
  bool keep_going = false;
  bool dry_run = false;
  bool yes = false;
};

LoadMode mode_of(const std::string& word) {
  return word == "add" ? LoadMode::kAdd : word == "update" ? LoadMode::kUpdate : LoadMode::kReplace;
}

// What the header of a table says: where the cells of a record go.
class Header {
 public:
  Header(const LoadOptions& options, Loader& loader) : loader_(loader) {
    for (const std::string& pair : options.map) {
      const size_t sign = pair.find('=');
      if (sign == std::string::npos) {
        throw Failure(fmt::format("--map takes HEADER=COLUMN, not '{}'", pair));
      }
      map_[pair.substr(0, sign)] = pair.substr(sign + 1);
    }
    if (!options.format.empty()) levels_ = options.format == "levels";
    told_ = !options.format.empty();
  }

  void read(const std::vector<std::string>& cells, const std::string& source) {
    std::vector<std::string> unknown;
    bool has_name = false;
    for (const std::string& cell : cells) {
      const auto mapped = map_.find(cell);
      const std::string& header = mapped == map_.end() ? cell : mapped->second;
      std::optional<Field> field = parse_field(header);
      if (mapped != map_.end() && header.empty()) field = Field();
      if (!field) unknown.push_back(header);
      has_name = has_name || (field && field->kind == FieldKind::kName);
      columns_.push_back(field.value_or(Field()));
    }
    // A table of levels has no column of ours at all.
    if (!told_) levels_ = !has_name && unknown.size() == cells.size();
    if (levels_) return;
    if (!has_name) {
      throw Failure(
          fmt::format("{}:1: the header has no column 'name'; say which one it is with "
                      "--map HEADER=name",
                      source));
    }
    if (!unknown.empty()) {
      Similar similar(unknown.front());
      for (const std::string& name : field_names()) similar.offer(name);
      throw Failure(fmt::format("{}:1: there is no column '{}'{} (--map '{}=' leaves it out)",
                                source, unknown.front(), similar.sentence(), unknown.front()));
    }
    for (const Field& column : columns_) {
      const bool value = column.kind != FieldKind::kParent && column.kind != FieldKind::kName;
      if (value) loader_.fields().push_back(column);
    }
    for (const Field& field : loader_.fields()) loader_.prepare(field);
  }

  bool levels() const { return levels_; }
  size_t size() const { return columns_.size(); }

  void fill(Row* row, std::vector<std::string>& cells) const {
    row->parent.clear();
    row->values.resize(loader_.fields().size());
    size_t value = 0;
    for (size_t i = 0; i < columns_.size(); ++i) {
      std::string* to = columns_[i].kind == FieldKind::kParent ? &row->parent
                        : columns_[i].kind == FieldKind::kName ? &row->name
                                                               : &row->values[value++];
      if (i < cells.size()) {
        to->swap(cells[i]);
      } else {
        to->clear();
      }
    }
  }

 private:
  Loader& loader_;
  std::unordered_map<std::string, std::string> map_;
  bool levels_ = false;
  bool told_ = false;
  std::vector<Field> columns_;
};

void load_csv(Source& source, const Outline& outline, const LoadOptions& options, Loader& loader,
              Report& report, const std::function<void(uint64_t)>& step) {
  Header header(options, loader);
  Row row;
  uint64_t rows = 0;
  Member top = outline.root();
  read_csv(source, [&](std::vector<std::string>& cells, uint64_t line) {
    if (header.size() == 0) {
      header.read(cells, source.name());
      if (header.levels() && !options.below.empty()) top = find_member(outline, options.below);
      return;
    }
    if (cells.size() > header.size()) {
      report.problem(line, fmt::format("the row has {} cells, the header only {}; quote cells that "
                                       "hold the separator",
                                       cells.size(), header.size()));
    } else if (header.levels()) {
      loader.take_levels(top, cells, line);
    } else {
      header.fill(&row, cells);
      row.line = line;
      loader.take(row);
    }
    step(++rows);
  });
  if (header.size() == 0) throw Failure(fmt::format("{} is empty", source.name()));
  loader.finish();
}

std::string summary(const LoadCounts& counts) {
  std::vector<std::string> parts = {fmt::format("{} added", counts.added)};
  if (counts.changed > 0) parts.push_back(fmt::format("{} changed", counts.changed));
  if (counts.moved > 0) parts.push_back(fmt::format("{} moved", counts.moved));
  if (counts.removed > 0) parts.push_back(fmt::format("{} removed", counts.removed));
  return fmt::format("{}", fmt::join(parts, ", "));
}

int finish(Session& session, const LoadOptions& options, const EditedOutline& outline,
           Loader& loader, Report& report, Progress& progress) {
  report.finish();
  const bool rejected = report.problems() > 0;
  if (rejected && !options.keep_going) {
    throw Failure(fmt::format("{} problem{}; nothing was saved (--keep-going saves the rest)",
                              report.problems(), report.problems() == 1 ? "" : "s"));
  }
  if (options.mode == "replace") {
    const uint64_t lacking = loader.count_lacking();
    if (lacking > 0 && !options.dry_run) {
      session.confirm(fmt::format("{} member{} that the file lacks would be removed.", lacking,
                                  lacking == 1 ? "" : "s"),
                      options.yes);
    }
    loader.remove_lacking();
  }
  const std::string done = summary(loader.counts());
  if (options.dry_run) {
    session.say(fmt::format("would be: {}; nothing was saved", done));
  } else {
    progress.begin("saving");
    outline.save();
    session.say(done);
  }
  return rejected ? kFindings : kDone;
}

// Loads what the options name. True for JSON Lines.
bool load_source(Source& source, const Outline& outline, const LoadOptions& options, Loader& loader,
                 Report& report, Progress& progress) {
  const std::string first = source.first_line();
  const bool json =
      options.format == "jsonl" || (options.format.empty() && first.rfind('{', 0) == 0);
  uint64_t lines = 0;
  if (json) {
    load_json_lines(source, outline, loader, report,
                    [&] { progress.step(source.done(), ++lines); });
  } else {
    load_csv(source, outline, options, loader, report,
             [&](uint64_t rows) { progress.step(source.done(), rows); });
  }
  return json;
}

int run(Session& session, const LoadOptions& options) {
  const Store store = session.open();
  Source source(options.file);
  const EditedOutline outline = options.database.edit(store);
  Report report(source.name(), options.rejects);
  Loader loader(outline, mode_of(options.mode), options.clear_empty, report);
  Progress progress(session, "loading", source.size());
  load_source(source, outline, options, loader, report, progress);
  return finish(session, options, outline, loader, report, progress);
}

}  // namespace

bool load_for_comparison(const Session& session, const std::string& file, const Outline& outline) {
  Source source(file);
  Report report(source.name(), "");
  Loader loader(outline, LoadMode::kAdd, false, report);
  Progress progress(session, "loading", source.size());
  const bool whole = load_source(source, outline, LoadOptions(), loader, report, progress);
  report.finish();
  if (report.problems() > 0) throw Failure(fmt::format("'{}' can't be compared", file));
  return whole;
}

void add_load(CLI::App& app, Session& session) {
  auto options = std::make_shared<LoadOptions>();
  Subcommand(app, session, "load", "Load members from a table or from JSON Lines",
             "load Demo World members.csv\n"
             "load Demo World members.csv --map code=name --map parent_code=parent\n"
             "load Demo World cities.csv --below Geography\n"
             "load Demo World members.csv --mode replace --dry-run",
             Json::kNo, [&session, options] { return run(session, *options); })
      .database(&options->database)
      .positional("FILE", &options->file, "CSV or JSON Lines in UTF-8; - is stdin")
      .choice("--mode", &options->mode, {"add", "update", "replace"},
              "Only new members (add); change those that are there, too (update); and remove what "
              "the file lacks (replace)")
      .choice("--format", &options->format, {"csv", "levels", "jsonl"},
              "Kind of file; told by its first line unless given")
      .options("--map", &options->map, "HEADER=COLUMN",
               "Take a header for a column; an empty column leaves it out; may be repeated")
      .option("--below", &options->below, "MEMBER", "Member that level columns begin below")
      .flag("--clear-empty", &options->clear_empty, "An empty cell removes what is there")
      .flag("--keep-going", &options->keep_going, "Save what is right, reject the rest")
      .option("--rejects", &options->rejects, "FILE", "Write rejected rows to this file, as CSV")
      .flag("--dry-run", &options->dry_run, "Say what would happen, save nothing")
      .flag("--yes", &options->yes, "Remove what the file lacks without asking");
}

}  // namespace command
