// store init, store copy: whole stores.
#include <memory>

#include "command/commands.h"
#include "command/subcommand.h"

namespace command {
namespace {

int init(Session& session) {
  Store::make(session.store);
  session.say("the store is ready; make a database with: outline create APP DB");
  return kDone;
}

struct Options {
  std::string from;
  std::string to;
  bool yes = false;
};

int copy(Session& session, const Options& options) {
  const Store from(options.from, session.user, false);
  Store::make(options.to);
  const Store to(options.to, session.user, true);
  const std::vector<DatabaseEntry> databases = from.databases();
  if (!to.databases().empty()) {
    session.confirm("The outlines of databases that are in both stores would be replaced.",
                    options.yes);
  }
  for (const DatabaseEntry& entry : databases) {
    to.copy(from, entry.application, entry.database);
    session.say(
        fmt::format("copied {} {}: {} members", entry.application, entry.database, entry.members));
  }
  if (databases.empty()) session.say("the store has no databases");
  return kDone;
}

}  // namespace

void add_stores(CLI::App& app, Session& session) {
  CLI::App& group = add_group(app, "store", "Make a store, or copy a whole one");
  Subcommand(group, session, "init", "Make a store, or bring an older one up to date",
             "store init --store postgresql://planning@db.example.com/planning", Json::kNo,
             [&session] { return init(session); });
  auto options = std::make_shared<Options>();
  Subcommand(group, session, "copy", "Copy all databases of a store to another one",
             "store copy outlines postgresql://planning@db.example.com/planning", Json::kNo,
             [&session, options] { return copy(session, *options); })
      .positional("FROM", &options->from, "Folder or postgresql:// address to read")
      .positional("TO", &options->to, "Folder or postgresql:// address to write")
      .flag("--yes", &options->yes, "Replace what is there without asking");
}

}  // namespace command
