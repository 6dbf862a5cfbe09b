// apply, and the edits that are commands of their own: all or nothing, saved once.
#include <CLI/CLI.hpp>
#include <memory>

#include "command/commands.h"
#include "command/edits/edits.h"
#include "command/rows/source.h"
#include "command/subcommand.h"

namespace command {
namespace {

struct ApplyOptions {
  Database database;
  std::string file;
  bool dry_run = false;
};

int apply(Session& session, const ApplyOptions& options) {
  const Store store = session.open();
  Source source(options.file);
  const EditedOutline outline = options.database.edit(store);
  ScriptParser parser;
  Progress progress(session, "applying", source.size());
  uint64_t edits = 0;
  read_lines(source, [&](const std::string& line, uint64_t number) {
    try {
      Edit edit;
      if (!parser.parse(line, &edit)) return;
      perform(outline, edit);
      progress.step(source.done(), ++edits);
    } catch (const Failure& failure) {
      throw Failure(
          fmt::format("{}:{}: {}; nothing was saved", source.name(), number, failure.what()));
    }
  });
  if (options.dry_run) {
    session.say(fmt::format("{} edits would be applied; nothing was saved", edits));
    return kDone;
  }
  progress.begin("saving");
  outline.save();
  session.say(fmt::format("{} edits applied", edits));
  return kDone;
}

int edit_once(Session& session, const Database& database, const Edit& edit) {
  const Store store = session.open();
  const EditedOutline outline = database.edit(store);
  perform(outline, edit);
  outline.save();
  return kDone;
}

void add_edit(CLI::App& app, Session& session, const EditVerb& verb) {
  struct Options {
    Database database;
    Edit edit;
  };
  auto options = std::make_shared<Options>();
  options->edit.verb = verb.name;
  const std::string example = fmt::format("{} Demo World {}", verb.name, verb.example);
  Subcommand subcommand(
      app, session, verb.name, verb.description, example.c_str(), Json::kNo,
      [&session, options] { return edit_once(session, options->database, options->edit); });
  subcommand.database(&options->database);
  verb.define(*app.get_subcommand(verb.name), options->edit);
}

}  // namespace

void add_apply(CLI::App& app, Session& session) {
  auto options = std::make_shared<ApplyOptions>();
  Subcommand(app, session, "apply", "Do the edits of a script, one a line: all or nothing",
             "apply Demo World edits.txt\napply Demo World edits.txt --dry-run\n"
             "diff Demo World Demo World2 --as-edits | outline apply Demo World -",
             Json::kNo, [&session, options] { return apply(session, *options); })
      .database(&options->database)
      .positional("FILE", &options->file, "The script; - is stdin")
      .flag("--dry-run", &options->dry_run, "Try the edits, save nothing");
}

void add_edits(CLI::App& app, Session& session) {
  for (const EditVerb& verb : edit_verbs()) {
    if (verb.subcommand) add_edit(app, session, verb);
  }
}

}  // namespace command
