// Names are checked before they reach the store. What libolvotl.so does with stored outlines and
// their locks (client.h).
#include "standin/object.h"

#include <cstring>

#include "standin/guard.h"
#include "standin/outline/file/stored_outline.h"

namespace standin {
namespace {

constexpr size_t kMaxObjectName = 30;

void check_name(const char* name) {
  if (name == nullptr) throw StoreFailure(kBadArgument);
  const size_t length = strnlen(name, kMaxObjectName + 1);
  if (length == 0 || length > kMaxObjectName || name[0] == '.') throw StoreFailure(kBadObjectName);
  for (size_t i = 0; i < length; ++i) {
    const auto byte = static_cast<unsigned char>(name[i]);
    if (byte < 0x20 || byte == 0x7f || byte == '/' || byte == '\\') {
      throw StoreFailure(kBadObjectName);
    }
  }
}

// An object that a caller names, with the context that it belongs to.
struct NamedObject {
  explicit NamedObject(const ObjectDefinitionRecord& record)
      : state(require_state(record.context)),
        name(object_name(*state, record.objectType, record.applicationName, record.databaseName,
                         record.objectName)) {}

  Store& store() const { return *state->store; }

  std::shared_ptr<ContextState> state;
  ObjectName name;
};

void load(Store& store, const ObjectName& object, Outline* outline) {
  const StoredObject stored = store.read(object);
  require(load_outline(stored.file, outline));
}

}  // namespace

std::string database_name(const char* app, const char* db) {
  check_name(app);
  check_name(db);
  return std::string(app) + '/' + db;
}

std::string existing_database(const ContextState& state, const char* app, const char* db) {
  std::string name = database_name(app, db);
  if (!state.store->has_database(name, state.local)) throw StoreFailure(kNoSuchDatabase);
  return name;
}

ObjectName object_name(const ContextState& state, uint32_t type, const char* app, const char* db,
                       const char* object) {
  if (type != kObjectTypeOutline) throw StoreFailure(kBadArgument);
  check_name(object);
  return {existing_database(state, app, db), object, state.local};
}

ObjectName active_outline(ContextState& state) {
  const Context context = describe(state);
  if (context.database.empty()) throw StoreFailure(kNoActiveDatabase);
  // The outline of a database bears its name.
  return {existing_database(state, context.application.c_str(), context.database.c_str()),
          context.database, state.local};
}

int load_object(const ObjectDefinitionRecord& object, Outline* outline) {
  return run_guarded([&] {
    const NamedObject named(object);
    load(named.store(), named.name, outline);
    return kStatusOk;
  });
}

int load_active_outline(HCTX context, Outline* outline) {
  return run_guarded([&] {
    const auto state = require_state(context);
    load(*state->store, active_outline(*state), outline);
    return kStatusOk;
  });
}

int save_object(const ObjectDefinitionRecord& object, const Outline& outline) {
  return run_guarded([&] {
    const NamedObject named(object);
    const int64_t login = known_login(*named.state);
    // Told before the work of writing, too; what counts is the moment of publishing.
    if (!named.name.local) named.store().expect_lock(login, named.name);
    const auto pending = named.store().replace(named.name);
    write_outline(outline, pending->file());
    pending->publish(login, outline.member_count());
    return kStatusOk;
  });
}

int start_restructure(HCTX context) {
  return run_guarded([&] {
    const auto state = require_login(context);
    const ObjectName object = active_outline(*state);
    if (!state->store->object_info(object)) return static_cast<int>(kNoSuchObject);
    return start_process(describe(*state), [store = state->store, object] {
      for (;;) {
        const StoredObject seen = store->read(object);
        Outline outline;
        require(load_outline(seen.file, &outline));
        const auto pending = store->replace(object);
        write_outline_with_index(outline, pending->file());
        if (pending->publish_over(seen.version, outline.member_count())) break;
        // Replaced while we read or wrote: the newer outline is the one to take.
      }
      store->count_restructure(object.database);
      return kStatusOk;
    });
  });
}

int lock_object(const ObjectDefinitionRecord& object) {
  return run_guarded([&] {
    const NamedObject named(object);
    named.store().lock(require_known_login(*named.state), named.name);
    return kStatusOk;
  });
}

int unlock_object(const ObjectDefinitionRecord& object) {
  return run_guarded([&] {
    const NamedObject named(object);
    const int64_t login = known_login(*named.state);
    if (login == 0) return static_cast<int>(kNotLocked);
    named.store().unlock(login, named.name);
    return kStatusOk;
  });
}

}  // namespace standin
