// The session functions for whole databases: listing and deleting them.
#include <algorithm>
#include <vector>

#include "standin/context.h"
#include "standin/guard.h"
#include "standin/held_lock.h"
#include "standin/object.h"
#include "standin/session.h"

using namespace standin;

namespace {

OlvStandinDatabase describe_database(Store& store, const std::string& name, bool local) {
  OlvStandinDatabase entry = {};
  const size_t slash = name.find('/');
  const std::string database = name.substr(slash + 1);
  // Folders that others have made may have longer names; no function takes these.
  name.copy(entry.application, std::min(slash, sizeof entry.application - 1));
  database.copy(entry.database, sizeof entry.database - 1);
  const ObjectName object = {name, database, local};
  if (const auto info = store.object_info(object)) {
    entry.size = info->size;
    entry.saved = info->saved;
    entry.members = store.count_members(object);
  }
  return entry;
}

// Keeps restructures of a database away while this lives.
class ProcessTurn {
 public:
  ProcessTurn(Store& store, int64_t login, const std::string& database)
      : store_(store), login_(login) {
    store_.begin_process(login_, database);
  }
  ~ProcessTurn() {
    run_guarded([&] {
      store_.end_process(login_);
      return kStatusOk;
    });
  }
  ProcessTurn(const ProcessTurn&) = delete;
  ProcessTurn& operator=(const ProcessTurn&) = delete;

 private:
  Store& store_;
  int64_t login_;
};

}  // namespace

extern "C" {

int OlvStandinListDatabases(HCTX context, uint32_t* count, OlvStandinDatabase** databases) {
  return run_guarded([&] {
    if (count == nullptr || databases == nullptr) return static_cast<int>(kBadArgument);
    const auto state = require_state(context);
    std::vector<OlvStandinDatabase> found;
    for (const std::string& name : state->store->databases(state->local)) {
      found.push_back(describe_database(*state->store, name, state->local));
    }
    *count = static_cast<uint32_t>(found.size());
    *databases = nullptr;
    if (found.empty()) return kStatusOk;
    *databases = hand_out_records<OlvStandinDatabase>(found.size());
    std::copy(found.begin(), found.end(), *databases);
    return kStatusOk;
  });
}

int OlvStandinDeleteDatabase(HCTX context, const char* application, const char* database) {
  return run_guarded([&] {
    const auto state = require_state(context);
    const std::string name = database_name(application, database);
    const ObjectName outline = {name, database, state->local};
    // To ask for a local one would make it.
    if (!state->local) existing_database(*state, application, database);
    const int64_t login = require_known_login(*state);
    const HeldLock lock(*state->store, login, outline);
    const ProcessTurn turn(*state->store, login, state->local ? outline.text() : name);
    state->store->remove_database(name, state->local);
    return kStatusOk;
  });
}

}  // extern "C"
