// locks, unlock: who edits what, and taking a lock away.
#include <memory>

#include "command/commands.h"
#include "command/layer/text.h"
#include "command/subcommand.h"
#include "command/times.h"

namespace command {
namespace {

int list(Session& session) {
  const Store store = session.open();
  const std::vector<Lock> locks = store.locks();
  if (session.json) {
    session.out.write("[");
    const char* separator = "";
    for (const Lock& lock : locks) {
      session.out.print("{}\n{{\"object\":{},\"user\":{},\"host\":{},\"process\":{},\"since\":{}}}",
                        separator, json_text(lock.object), json_text(lock.user),
                        json_text(lock.host), lock.process, lock.since);
      separator = ",";
    }
    session.out.line("\n]");
    return kDone;
  }
  if (locks.empty()) session.say("nobody edits or restructures anything");
  for (const Lock& lock : locks) {
    session.out.print("{}  {} on {}, process {}, since {}\n", printable(lock.object),
                      printable(lock.user), printable(lock.host), lock.process,
                      time_text(lock.since));
  }
  return kDone;
}

int unlock(Session& session, const Database& database, bool yes) {
  const Store store = session.open();
  const std::string object = database.application + "/" + database.name + "/" + database.name;
  for (const Lock& lock : store.locks()) {
    if (lock.object != object) continue;
    session.confirm(
        fmt::format("{} has edited {} {} since {} and could not save any more.", lock.user,
                    database.application, database.name, time_text(lock.since)),
        yes);
    store.break_lock(object);
    session.say(fmt::format("{} {} is free", database.application, database.name));
    return kDone;
  }
  store.require(database.application, database.name);
  session.say(fmt::format("nobody edits {} {}", database.application, database.name));
  return kDone;
}

}  // namespace

void add_locks(CLI::App& app, Session& session) {
  Subcommand(app, session, "locks", "List who edits or restructures what", "locks\nlocks --json",
             Json::kYes, [&session] { return list(session); });
}

void add_unlock(CLI::App& app, Session& session) {
  struct Options {
    Database database;
    bool yes = false;
  };
  auto options = std::make_shared<Options>();
  Subcommand(app, session, "unlock", "Take the lock of an outline away from who edits it",
             "unlock Demo World", Json::kNo,
             [&session, options] { return unlock(session, options->database, options->yes); })
      .database(&options->database)
      .flag("--yes", &options->yes, "Do it without asking");
}

}  // namespace command
