// save-as, restructure, currency, backup, restore: the life of a database.
#include <sys/stat.h>

#include <memory>

#include "command/commands.h"
#include "command/subcommand.h"

namespace command {
namespace {

struct Options {
  Database from;
  Database to;
  std::string file;
  bool yes = false;
};

std::string text_of(const Database& database) {
  return database.application + " " + database.name;
}

bool exists(const Store& store, const Database& database) {
  for (const DatabaseEntry& entry : store.databases()) {
    if (entry.application == database.application && entry.database == database.name) return true;
  }
  return false;
}

// Makes the target, or asks before what is there is overwritten.
void prepare_target(Session& session, const Store& store, const Options& options) {
  if (exists(store, options.to)) {
    session.confirm(fmt::format("The outline of {} would be replaced.", text_of(options.to)),
                    options.yes);
  } else {
    store.create(options.to.application, options.to.name);
  }
}

int save_as(Session& session, const Options& options) {
  const Store store = session.open();
  const Outline outline = store.scratch(options.from.application, options.from.name);
  prepare_target(session, store, options);
  store.save_as(outline, options.to.application, options.to.name);
  session.say(fmt::format("saved {} as {}", text_of(options.from), text_of(options.to)));
  return kDone;
}

int derive_currency(Session& session, const Options& options) {
  const Store store = session.open();
  const Outline outline = store.scratch(options.from.application, options.from.name);
  const Outline derived = outline.derive_currency();
  prepare_target(session, store, options);
  store.save_as(derived, options.to.application, options.to.name);
  session.say(fmt::format("saved the currency outline of {} as {}", text_of(options.from),
                          text_of(options.to)));
  return kDone;
}

int restructure(Session& session, const Options& options) {
  const Store store = session.open();
  {
    Progress progress(session, fmt::format("restructuring {}", text_of(options.from)));
    store.restructure(options.from.application, options.from.name, [&] { progress.tick(); });
  }
  session.say(fmt::format("restructured {}", text_of(options.from)));
  return kDone;
}

int backup(Session& session, const Options& options) {
  const Store store = session.open();
  store.require(options.from.application, options.from.name);
  struct stat state {};
  if (stat(options.file.c_str(), &state) == 0) {
    session.confirm(fmt::format("The file '{}' would be replaced.", options.file), options.yes);
  }
  store.backup(options.from.application, options.from.name, options.file);
  session.say(fmt::format("backed {} up to '{}'", text_of(options.from), options.file));
  return kDone;
}

int restore(Session& session, const Options& options) {
  const Store store(session.store, session.user, true);
  struct stat state {};
  if (stat(options.file.c_str(), &state) != 0) {
    throw Failure(fmt::format("there is no file '{}'", options.file));
  }
  const bool is_new = !exists(store, options.to);
  prepare_target(session, store, options);
  try {
    store.restore(options.file, options.to.application, options.to.name);
  } catch (const Failure&) {
    if (is_new) store.remove(options.to.application, options.to.name);
    throw;
  }
  session.say(fmt::format("restored {} from '{}'", text_of(options.to), options.file));
  return kDone;
}

constexpr char kOverwrite[] = "Replace what is there without asking";

}  // namespace

void add_save_as(CLI::App& app, Session& session) {
  auto options = std::make_shared<Options>();
  Subcommand(app, session, "save-as", "Save an outline as another database",
             "save-as Demo World Demo World2", Json::kNo,
             [&session, options] { return save_as(session, *options); })
      .database(&options->from)
      .positional("APP2", &options->to.application, "Application of the copy")
      .positional("DB2", &options->to.name, "Database of the copy; made when there is none")
      .flag("--yes", &options->yes, kOverwrite);
}

void add_currency(CLI::App& app, Session& session) {
  auto options = std::make_shared<Options>();
  Subcommand(app, session, "currency", "Derive the currency outline into another database",
             "currency Demo World Demo Rates", Json::kNo,
             [&session, options] { return derive_currency(session, *options); })
      .database(&options->from)
      .positional("APP2", &options->to.application, "Application of the currency outline")
      .positional("DB2", &options->to.name, "Its database; made when there is none")
      .flag("--yes", &options->yes, kOverwrite);
}

void add_restructure(CLI::App& app, Session& session) {
  auto options = std::make_shared<Options>();
  Subcommand(app, session, "restructure", "Restructure a database and wait until it is over",
             "restructure Demo World", Json::kNo,
             [&session, options] { return restructure(session, *options); })
      .database(&options->from);
}

void add_backup(CLI::App& app, Session& session) {
  auto options = std::make_shared<Options>();
  Subcommand(app, session, "backup", "Copy a stored outline to a file, also while others save",
             "backup Demo World world.otl", Json::kNo,
             [&session, options] { return backup(session, *options); })
      .database(&options->from)
      .positional("FILE", &options->file, "File to write")
      .flag("--yes", &options->yes, kOverwrite);
}

void add_restore(CLI::App& app, Session& session) {
  auto options = std::make_shared<Options>();
  Subcommand(app, session, "restore", "Check a file that backup wrote, and store its outline",
             "restore world.otl Demo World", Json::kNo,
             [&session, options] { return restore(session, *options); })
      .positional("FILE", &options->file, "File that backup wrote")
      .positional("APP", &options->to.application, "Application")
      .positional("DB", &options->to.name, "Database; made when there is none")
      .flag("--yes", &options->yes, kOverwrite);
}

}  // namespace command
