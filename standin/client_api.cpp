// The exported client API (api/olv.h).
#include "api/olv.h"

#include <algorithm>
#include <chrono>
#include <limits>

#include "standin/cell_count.h"
#include "standin/context.h"
#include "standin/guard.h"
#include "standin/ledger.h"
#include "standin/object.h"

using namespace standin;

namespace {

// This engine knows one access level: everything is allowed.
constexpr uint16_t kFullAccess = 0xffff;

// ProcessStateRecord::action.
constexpr uint16_t kActionNone = 0;
constexpr uint16_t kActionRestructure = 1;

// ProcessStateRecord::state.
constexpr uint16_t kStateOver = 0;
constexpr uint16_t kStateGoingOn = 1;

// A poll waits this long for the process to end. Callers poll back to back, and on a single core
// the work would otherwise wait for them.
constexpr std::chrono::milliseconds kPollWait(1);

}  // namespace

extern "C" {

int OlvFree(INST inst, const void* block) {
  return run_guarded([&] {
    if (block == nullptr) return kStatusOk;
    if (inst != 0 && !is_instance(inst)) {
      return wrong_release(kBadInstance, block, "given back with an instance that does not exist");
    }
    return take_back(BlockKind::kPlain, block);
  });
}

int OlvLockObject(HCTX ctx, uint32_t type, const char* app, const char* db, const char* object) {
  return lock_object({ctx, type, app, db, object});
}

int OlvUnlockObject(HCTX ctx, uint32_t type, const char* app, const char* db, const char* object) {
  return unlock_object({ctx, type, app, db, object});
}

int OlvSetActive(HCTX ctx, const char* app, const char* db, uint16_t* access) {
  return run_guarded([&] {
    if (access == nullptr) return static_cast<int>(kBadArgument);
    const auto state = require_login(ctx);
    existing_database(*state, app, db);
    std::string application(app);
    std::string database(db);
    const std::lock_guard<std::mutex> lock(state->mutex);
    state->application.swap(application);
    state->database.swap(database);
    *access = kFullAccess;
    return kStatusOk;
  });
}

int OlvGetProcessState(HCTX ctx, ProcessStateRecord* state) {
  return run_guarded([&] {
    if (state == nullptr) return static_cast<int>(kBadArgument);
    *state = ProcessStateRecord{};
    const auto context = require_login(ctx);
    ContextProcess& process = context->process;
    std::unique_lock<std::mutex> lock(process.mutex);
    if (process.running) {
      process.over.wait_for(lock, kPollWait, [&] { return !process.running; });
    }
    state->action = process.started ? kActionRestructure : kActionNone;
    state->state = process.running ? kStateGoingOn : kStateOver;
    return process.running ? kStatusOk : process.result;
  });
}

int OlvCreateLocalContext(INST inst, uint32_t zero1, uint32_t zero2, HCTX* local) {
  return run_guarded([&] {
    if (local == nullptr || zero1 != 0 || zero2 != 0) return static_cast<int>(kBadArgument);
    *local = add_local_context(inst);
    return kStatusOk;
  });
}

int OlvGetLocalPath(HCTX ctx, uint32_t type, const char* app, const char* db, const char* object,
                    int flag, char** path) {
  return run_guarded([&] {
    if (path == nullptr || (flag != 0 && flag != 1)) return static_cast<int>(kBadArgument);
    const auto state = require_state(ctx);
    if (!state->local) return static_cast<int>(kBadContext);
    const ObjectName name = object_name(*state, type, app, db, object);
    if (flag == 0 && !state->store->object_info(name)) return static_cast<int>(kNoSuchObject);
    *path = hand_out_text(state->store->local_path(name));
    return kStatusOk;
  });
}

int OlvGetObjectInfo(HCTX ctx, uint32_t type, const char* app, const char* db, const char* object,
                     ObjectInfoRecord** info) {
  return run_guarded([&] {
    if (info == nullptr) return static_cast<int>(kBadArgument);
    const auto state = require_state(ctx);
    const ObjectName name = object_name(*state, type, app, db, object);
    const bool locked = state->store->is_locked(name);
    const std::optional<ObjectInfo> known = state->store->object_info(name);
    // An object that is locked but not written yet is there, with nothing in it.
    if (!known && !locked) return static_cast<int>(kNoSuchObject);
    auto* record = hand_out_records<ObjectInfoRecord>(1);
    constexpr uint64_t kLargest = std::numeric_limits<uint32_t>::max();
    record->size = known ? static_cast<uint32_t>(std::min(known->size, kLargest)) : 0;
    record->locked = locked ? 1 : 0;
    *info = record;
    return kStatusOk;
  });
}

int OlvGetDatabaseInfo(HCTX ctx, const char* app, const char* db, DatabaseInfoRecord** info) {
  return run_guarded([&] {
    if (info == nullptr) return static_cast<int>(kBadArgument);
    const auto state = require_login(ctx);
    const bool loaded = state->store->data_loaded(existing_database(*state, app, db));
    auto* record = hand_out_records<DatabaseInfoRecord>(1);
    record->dataLoaded = loaded ? 1 : 0;
    *info = record;
    return kStatusOk;
  });
}

int OlvPartitionGetAreaCellCount(HCTX ctx, const char* area, double* count) {
  return run_guarded([&] {
    if (area == nullptr || count == nullptr) return static_cast<int>(kBadArgument);
    const auto state = require_login(ctx);
    const StoredObject outline = state->store->read(active_outline(*state));
    *count = count_cells(outline.file, parse_area(area));
    return kStatusOk;
  });
}

}  // extern "C"
