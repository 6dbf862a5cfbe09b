// list, create, delete-database: the databases of a store.
#include <algorithm>
#include <map>
#include <memory>

#include "command/commands.h"
#include "command/layer/text.h"
#include "command/subcommand.h"
#include "command/times.h"

namespace command {
namespace {

std::string padded(const std::string& text, size_t width) {
  const size_t used = columns(text);
  return text + std::string(width > used ? width - used : 0, ' ');
}

int list(Session& session) {
  const Store store = session.open();
  const auto databases = store.databases();
  std::map<std::string, Lock> editors;  // by object
  for (Lock& lock : store.locks()) editors.emplace(lock.object, lock);
  const auto editor_of = [&](const DatabaseEntry& entry) -> const Lock* {
    const auto found =
        editors.find(entry.application + "/" + entry.database + "/" + entry.database);
    return found == editors.end() ? nullptr : &found->second;
  };
  if (session.json) {
    session.out.write("[");
    const char* separator = "";
    for (const DatabaseEntry& entry : databases) {
      session.out.print(
          "{}\n{{\"application\":{},\"database\":{},\"members\":{},\"bytes\":{},"
          "\"saved\":{}",
          separator, json_text(entry.application), json_text(entry.database), entry.members,
          entry.size, entry.saved);
      if (const Lock* lock = editor_of(entry)) {
        session.out.print(",\"editor\":{},\"since\":{}", json_text(lock->user), lock->since);
      }
      session.out.write("}");
      separator = ",";
    }
    session.out.line("\n]");
    return kDone;
  }
  if (databases.empty()) {
    session.say("the store has no databases; make one with: outline create APP DB");
    return kDone;
  }
  std::vector<std::string> names;
  size_t width = 8;
  for (const DatabaseEntry& entry : databases) {
    names.push_back(printable(entry.application) + " " + printable(entry.database));
    width = std::max(width, columns(names.back()));
  }
  session.out.print("{}  {:>9}  {:>9}  {}\n", padded("DATABASE", width), "MEMBERS", "SIZE",
                    "SAVED");
  for (size_t i = 0; i < names.size(); ++i) {
    const Lock* lock = editor_of(databases[i]);
    session.out.print("{}  {:>9}  {:>9}  {}{}\n", padded(names[i], width), databases[i].members,
                      size_text(databases[i].size), time_text(databases[i].saved),
                      lock == nullptr ? ""
                                      : fmt::format("  {} edits since {}", printable(lock->user),
                                                    time_text(lock->since)));
  }
  return kDone;
}

// The store is made if need be.
int create(Session& session, const Database& database) {
  const Store store(session.store, session.user, true);
  store.create(database.application, database.name);
  session.say(fmt::format("made {0} {1}; fill it with: outline load {0} {1} FILE",
                          database.application, database.name));
  return kDone;
}

int remove(Session& session, const Database& database, bool yes) {
  const Store store = session.open();
  store.require(database.application, database.name);
  session.confirm(fmt::format("{} {} and all that is in it would be deleted for good.",
                              database.application, database.name),
                  yes);
  store.remove(database.application, database.name);
  session.say(fmt::format("deleted {} {}", database.application, database.name));
  return kDone;
}

}  // namespace

void add_list(CLI::App& app, Session& session) {
  Subcommand(app, session, "list", "List applications and databases",
             "list\nlist --store world --json", Json::kYes, [&session] { return list(session); });
}

void add_create(CLI::App& app, Session& session) {
  auto database = std::make_shared<Database>();
  Subcommand(app, session, "create", "Make a database with an empty outline",
             "create Demo World\ncreate Demo World --store world", Json::kNo,
             [&session, database] { return create(session, *database); })
      .database(database.get());
}

void add_delete_database(CLI::App& app, Session& session) {
  struct Options {
    Database database;
    bool yes = false;
  };
  auto options = std::make_shared<Options>();
  Subcommand(app, session, "delete-database", "Delete a database with its outline",
             "delete-database Demo World\ndelete-database Demo World --yes", Json::kNo,
             [&session, options] { return remove(session, options->database, options->yes); })
      .database(&options->database)
      .flag("--yes", &options->yes, "Do it without asking");
}

}  // namespace command
