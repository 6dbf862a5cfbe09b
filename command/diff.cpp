// diff: two outlines, or an outline and an exported file.
#include <future>
#include <memory>

#include "command/commands.h"
#include "command/compare/differences.h"
#include "command/layer/text.h"
#include "command/load_file.h"
#include "command/subcommand.h"

namespace command {
namespace {

struct DiffOptions {
  Database before;
  std::string second;  // APP2, or FILE
  std::string name;    // DB2
  bool as_edits = false;
};

const char* word_of(Change change) {
  switch (change) {
    case Change::kAdded:
      return "added";
    case Change::kRemoved:
      return "removed";
    case Change::kRenamed:
      return "renamed";
    case Change::kMoved:
      return "moved";
    case Change::kReordered:
      return "reordered";
    case Change::kField:
      return "changed";
    case Change::kOutline:
      return "outline";
  }
  return "";
}

std::string shown(const std::string& text) {
  return text.empty() ? "(nothing)" : printable(text);
}

void write_text(Output& out, const Difference& one) {
  out.print("{:<9} {}", word_of(one.change), printable(one.member));
  switch (one.change) {
    case Change::kRenamed:
      out.print("  was {}", printable(one.before));
      break;
    case Change::kMoved:
      out.print("  from {}", printable(one.before));
      break;
    case Change::kField:
      out.print("  {}: {} -> {}", printable(one.field), shown(one.before), shown(one.after));
      break;
    case Change::kOutline:
      out.print("{} {}", one.before.empty() ? "+" : "-",
                printable(one.before.empty() ? one.after : one.before));
      break;
    default:
      break;
  }
  out.line("");
}

void write_json(Output& out, const Difference& one, bool first) {
  out.print("{}\n{{\"change\":\"{}\"", first ? "" : ",", word_of(one.change));
  const auto put = [&](const char* key, const std::string& text) {
    if (!text.empty()) out.print(",\"{}\":{}", key, json_text(text));
  };
  put("member", one.member);
  put("field", one.field);
  put("before", one.before);
  put("after", one.after);
  out.write("}");
}

int run(Session& session, const DiffOptions& options) {
  const Store store = session.open();
  const bool file = options.name.empty();
  // Reading takes longer than comparing: both at once.
  auto reading = std::async(std::launch::async, [&] {
    return store.scratch(options.before.application, options.before.name);
  });
  const Outline after = file ? store.empty(options.before.application, options.before.name)
                             : store.scratch(options.second, options.name);
  const Outline before = reading.get();
  bool whole = true;
  if (file) whole = load_for_comparison(session, options.second, after);
  if (options.as_edits) {
    bool any = false;
    edits_between(before, after, whole, [&](const std::string& line) {
      any = true;
      session.out.line(line);
    });
    return any ? kFindings : kDone;
  }
  uint64_t differences = 0;
  if (session.json) session.out.write("[");
  compare(before, after, whole, [&](const Difference& one) {
    if (session.json) {
      write_json(session.out, one, differences == 0);
    } else {
      write_text(session.out, one);
    }
    ++differences;
  });
  if (session.json) session.out.line("\n]");
  session.say(differences == 0 ? "they are equal" : fmt::format("{} differences", differences));
  return differences == 0 ? kDone : kFindings;
}

}  // namespace

void add_diff(CLI::App& app, Session& session) {
  auto options = std::make_shared<DiffOptions>();
  Subcommand(app, session, "diff",
             "Compare two outlines, or an outline and a file; exit 1 if they "
             "differ",
             "diff Demo World Demo World2\ndiff Demo World world.jsonl\n"
             "diff Demo World Demo World2 --as-edits",
             Json::kYes, [&session, options] { return run(session, *options); })
      .database(&options->before)
      .positional("APP2", &options->second,
                  "Application of the second outline, or a file that "
                  "load reads")
      .positional("DB2", &options->name, "Its database", Given::kOptional)
      .flag("--as-edits", &options->as_edits,
            "Write the script with which apply turns the first one into the second");
}

}  // namespace command
