// Stores, logins and databases.
#include "command/layer/store.h"

#include <chrono>
#include <thread>
#include <utility>

#include "api/olv.h"
#include "api/olvotl.h"
#include "bridge/guards.h"
#include "command/layer/formatting.h"
#include "command/layer/similar.h"
#include "command/layer/text.h"
#include "standin/session.h"
#include "standin/status.h"

namespace command {

namespace {

// An address as it may be shown: without its password.
std::string shown(std::string address) {
  const size_t scheme = address.find("://");
  if (scheme == std::string::npos) return address;
  const size_t user = scheme + 3;
  const size_t at = address.find('@', user);
  const size_t colon = address.find(':', user);
  if (at < address.find('/', user) && colon < at) address.replace(colon + 1, at - colon - 1, "***");
  const size_t given = address.find("password=", user);
  if (given != std::string::npos) {
    const size_t value = given + 9;
    address.replace(value, address.find('&', value) - value, "***");
  }
  return address;
}

}  // namespace

Store::Store(const std::string& address, const std::string& user, bool create) {
  if (!create && OlvStandinHasStore(address.c_str()) == 0) {
    throw Failure(
        fmt::format("there is no store '{}'; name one with --store or OUTLINE_STORE, or "
                    "make one with: outline create APP DB",
                    shown(address)));
  }
  check(OlvStandinInitialize(address.c_str(), &instance_),
        fmt::format("open the store '{}'", shown(address)));
  const int status = OlvStandinLogin(instance_, inside(user).c_str(), &context_);
  if (status != 0) {
    OlvStandinTerminate(instance_);
    check(status, fmt::format("log in as '{}'", user));
  }
}

Store::~Store() {
  OlvStandinTerminate(instance_);
}

std::vector<DatabaseEntry> Store::databases() const {
  kepotl::ApiArray<OlvStandinDatabase, uint32_t> found(instance_);
  check(found.take(OlvStandinListDatabases, context_), "list the databases");
  std::vector<DatabaseEntry> entries;
  for (const OlvStandinDatabase& entry : found) {
    entries.push_back({outside(entry.application), outside(entry.database), entry.members,
                       entry.size, entry.saved});
  }
  return entries;
}

void Store::require(const std::string& application, const std::string& database) const {
  const std::string app = inside(application);
  const std::string db = inside(database);
  uint16_t access = 0;
  const int status = OlvSetActive(context_, app.c_str(), db.c_str(), &access);
  if (status == 0) return;
  std::string message =
      fmt::format("can't open {} {}: {}", application, database, Status(status).sentence());
  Similar similar(application + " " + database);
  for (const DatabaseEntry& entry : databases()) {
    similar.offer(entry.application + " " + entry.database);
  }
  const std::string suggestion = similar.sentence();
  if (!suggestion.empty()) {
    message.pop_back();  // the full stop
    message += suggestion;
  }
  throw Failure(message, status);
}

void Store::make(const std::string& address) {
  check(OlvStandinMakeStore(address.c_str()), fmt::format("make the store '{}'", shown(address)));
}

void Store::copy(const Store& from, const std::string& application,
                 const std::string& database) const {
  const std::string app = inside(application);
  const std::string db = inside(database);
  const std::string what = fmt::format("copy {} {}", application, database);
  const int made = OlvStandinCreateDatabase(context_, app.c_str(), db.c_str());
  if (made != standin::kDatabaseExists) check(made, what);
  // A database whose outline was never saved is made, and has none here either.
  const int copied = OlvStandinCopyOutline(from.context_, app.c_str(), db.c_str(), context_);
  if (copied != standin::kNoSuchObject) check(copied, what);
  kepotl::ApiBlock<DatabaseInfoRecord> info(from.instance_);
  check(info.take(OlvGetDatabaseInfo, from.context_, app.c_str(), db.c_str()), what);
  check(OlvStandinSetDataLoaded(context_, app.c_str(), db.c_str(), info->dataLoaded), what);
}

void Store::create(const std::string& application, const std::string& database) const {
  check(OlvStandinCreateDatabase(context_, inside(application).c_str(), inside(database).c_str()),
        fmt::format("create {} {}", application, database));
  edit(application, database).save();
}

void Store::remove(const std::string& application, const std::string& database) const {
  check(OlvStandinDeleteDatabase(context_, inside(application).c_str(), inside(database).c_str()),
        fmt::format("delete {} {}", application, database));
}

void Store::backup(const std::string& application, const std::string& database,
                   const std::string& file) const {
  check(OlvStandinBackup(context_, inside(application).c_str(), inside(database).c_str(),
                         file.c_str()),
        fmt::format("back up {} {} to '{}'", application, database, file));
}

void Store::restore(const std::string& file, const std::string& application,
                    const std::string& database) const {
  check(OlvStandinRestore(context_, file.c_str(), inside(application).c_str(),
                          inside(database).c_str()),
        fmt::format("restore {} {} from '{}'", application, database, file));
}

std::vector<Lock> Store::locks() const {
  OlvStandinLock* records = nullptr;
  uint32_t count = 0;
  check(OlvStandinListLocks(instance_, &records, &count), "list the locks");
  std::vector<Lock> locks;
  for (uint32_t i = 0; i < count; ++i) {
    locks.push_back({outside(records[i].object), outside(records[i].user), outside(records[i].host),
                     records[i].process, records[i].since});
  }
  OlvFree(instance_, records);
  return locks;
}

void Store::break_lock(const std::string& object) const {
  check(OlvStandinBreakLock(instance_, inside(object).c_str()),
        fmt::format("break the lock of {}", object));
}

void Store::save_as(const Outline& outline, const std::string& application,
                    const std::string& database) const {
  const std::string app = inside(application);
  const std::string db = inside(database);
  check(OlvLockObject(context_, kObjectTypeOutline, app.c_str(), db.c_str(), db.c_str()),
        fmt::format("lock the outline of {} {}", application, database));
  try {
    outline.write(application, database);
  } catch (...) {
    OlvUnlockObject(context_, kObjectTypeOutline, app.c_str(), db.c_str(), db.c_str());
    throw;
  }
  OlvUnlockObject(context_, kObjectTypeOutline, app.c_str(), db.c_str(), db.c_str());
}

Outline Store::read(const std::string& application, const std::string& database) const {
  require(application, database);
  HOutline handle = 0;
  const int status = OlvOtlOpenOutlineQuery(context_, nullptr, &handle);
  check(status, fmt::format("open the outline of {} {}", application, database));
  return Outline(context_, handle);
}

Outline Store::open(const std::string& application, const std::string& database,
                    const std::string& name, bool lock) const {
  require(application, database);
  const std::string app = inside(application);
  const std::string db = inside(database);
  const std::string text = inside(name);
  const ObjectDefinitionRecord object = {context_, kObjectTypeOutline, app.c_str(), db.c_str(),
                                         text.c_str()};
  HOutline handle = 0;
  const int flag = lock ? 1 : 0;
  check(OlvOtlOpenOutline(context_, &object, flag, flag, &handle),
        fmt::format("edit the outline of {} {}", application, database));
  return Outline(context_, handle);
}

EditedOutline Store::edit(const std::string& application, const std::string& database) const {
  return EditedOutline(context_, open(application, database, database, true), application,
                       database);
}

Outline Store::scratch(const std::string& application, const std::string& database) const {
  return open(application, database, database, false);
}

Outline Store::empty(const std::string& application, const std::string& database) const {
  // What nobody has stored opens as an empty outline.
  return open(application, database, "nothing stored here", false);
}

void Store::restructure(const std::string& application, const std::string& database,
                        const std::function<void()>& tick) const {
  require(application, database);
  check(OlvOtlRestructure(context_, kRestructureSaveAs),
        fmt::format("restructure {} {}", application, database));
  for (;;) {
    ProcessStateRecord state = {};
    check(OlvGetProcessState(context_, &state),
          fmt::format("restructure {} {}", application, database));
    if (state.state == 0) return;
    tick();
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
  }
}

EditedOutline::EditedOutline(HCTX context, Outline opened, std::string application,
                             std::string database)
    : Outline(std::move(opened)),
      context_(context),
      application_(std::move(application)),
      database_(std::move(database)) {}

EditedOutline::EditedOutline(EditedOutline&& other) noexcept
    : Outline(std::move(other)),
      context_(std::exchange(other.context_, 0)),
      application_(std::move(other.application_)),
      database_(std::move(other.database_)) {}

EditedOutline::~EditedOutline() {
  if (context_ == 0) return;
  const std::string app = inside(application_);
  const std::string db = inside(database_);
  OlvUnlockObject(context_, kObjectTypeOutline, app.c_str(), db.c_str(), db.c_str());
}

}  // namespace command
