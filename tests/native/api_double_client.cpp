// The double's client API: memory, locks, stored objects, databases; opening,
// writing and restructuring of outlines.
#include <string>

#include "api/olv.h"
#include "api/olvotl.h"
#include "tests/native/api_double.h"
#include "tests/native/journal.h"

namespace {

std::string lock_name(const char* app, const char* db, const char* object) {
  return std::string(app) + '/' + db + '/' + object;
}

// Type, application, database and object of a call, after its context.
Arguments object_arguments(HCTX ctx, uint32_t type, const char* app, const char* db,
                           const char* object) {
  return {ctx, type, app, db, object};
}

bool is_context(HCTX ctx) {
  return ctx == kContext || ctx == kLocalContext;
}

}  // namespace

// What gives something back does so even when a failure is ordered for it: the
// failure is that of the call, and nothing would be left to give back again.

int OlvFree(INST inst, const void* block) {
  const int ordered = api().call("OlvFree", {inst, api().name_of_block(block)});
  if (inst != 0 && inst != kInst) journal().fault("OlvFree with an unknown instance");
  const int status = api().take_back(block, ApiDouble::Release::kFree, 1);
  return ordered != kStatusOk ? ordered : status;
}

int OlvLockObject(HCTX ctx, uint32_t type, const char* app, const char* db, const char* object) {
  const int status = api().call("OlvLockObject", object_arguments(ctx, type, app, db, object));
  if (status != kStatusOk) return status;
  if (ctx != kContext) return kBadHandle;
  return api().locks.insert(lock_name(app, db, object)).second ? kStatusOk : kLocked;
}

int OlvUnlockObject(HCTX ctx, uint32_t type, const char* app, const char* db, const char* object) {
  const int ordered = api().call("OlvUnlockObject", object_arguments(ctx, type, app, db, object));
  const bool held = api().locks.erase(lock_name(app, db, object)) == 1;
  return ordered != kStatusOk ? ordered : held ? kStatusOk : kLocked;
}

int OlvSetActive(HCTX ctx, const char* app, const char* db, uint16_t* access) {
  const int status = api().call("OlvSetActive", {ctx, app, db}, access);
  if (status == kStatusOk) *access = 0xFFFF;
  return status;
}

int OlvGetProcessState(HCTX ctx, ProcessStateRecord* state) {
  const int status = api().call("OlvGetProcessState", {ctx}, state);
  if (status != kStatusOk) return status;
  // Only `state` says whether the process goes on.
  *state = {7, static_cast<uint16_t>(api().process_polls > 0 ? 0x0100 : 0), {9, 9, 9}};
  if (api().process_polls > 0) --api().process_polls;
  return kStatusOk;
}

int OlvCreateLocalContext(INST inst, uint32_t zero1, uint32_t zero2, HCTX* local) {
  const int status = api().call("OlvCreateLocalContext", {inst, zero1, zero2}, local);
  if (status == kStatusOk) *local = kLocalContext;
  return status;
}

int OlvGetLocalPath(HCTX ctx, uint32_t type, const char* app, const char* db, const char* object,
                    int flag, char** path) {
  Arguments arguments = object_arguments(ctx, type, app, db, object);
  arguments.push_back(std::to_string(flag));
  const int status = api().call("OlvGetLocalPath", arguments, path);
  if (status != kStatusOk) return status;
  *path = api().hand_out_text("path", std::string("/scratch/") + object);
  return kStatusOk;
}

int OlvGetObjectInfo(HCTX ctx, uint32_t type, const char* app, const char* db, const char* object,
                     ObjectInfoRecord** info) {
  const int status =
      api().call("OlvGetObjectInfo", object_arguments(ctx, type, app, db, object), info);
  if (status != kStatusOk) return status;
  if (ctx == kLocalContext && api().scratch_objects.count(object) == 0) return kNoSuchObject;
  const ObjectInfoRecord record = {{}, 4096, api().lock_byte, {}};
  *info = api().hand_out("object info", std::vector{record});
  return kStatusOk;
}

int OlvGetDatabaseInfo(HCTX ctx, const char* app, const char* db, DatabaseInfoRecord** info) {
  const int status = api().call("OlvGetDatabaseInfo", {ctx, app, db}, info);
  if (status != kStatusOk) return status;
  const DatabaseInfoRecord record = {{}, api().data_loaded, {}};
  *info = api().hand_out("database info", std::vector{record});
  return kStatusOk;
}

int OlvPartitionGetAreaCellCount(HCTX ctx, const char* area, double* count) {
  const int status = api().call("OlvPartitionGetAreaCellCount", {ctx, area}, count);
  if (status == kStatusOk) *count = api().cell_count;
  return status;
}

int OlvOtlOpenOutlineQuery(HCTX ctx, const ObjectDefinitionRecord* object, HOutline* opened) {
  const int status = api().call("OlvOtlOpenOutlineQuery", {ctx, describe(object)}, opened);
  if (status != kStatusOk) return status;
  api().open_outlines.insert(kOpenedOutline);
  *opened = kOpenedOutline;
  return kStatusOk;
}

int OlvOtlOpenOutline(HCTX ctx, const ObjectDefinitionRecord* object, int flag1, int flag2,
                      HOutline* opened) {
  const int status = api().call("OlvOtlOpenOutline", {ctx, describe(object), flag1, flag2}, opened);
  if (status != kStatusOk) return status;
  const std::string lock =
      lock_name(object->applicationName, object->databaseName, object->objectName);
  if (!api().locks.insert(lock).second) return kLocked;
  api().open_outlines.insert(kOpenedOutline);
  *opened = kOpenedOutline;
  return kStatusOk;
}

int OlvOtlCloseOutline(HOutline h) {
  const int ordered = api().call("OlvOtlCloseOutline", {h});
  const bool open = api().open_outlines.erase(h) == 1;
  return ordered != kStatusOk ? ordered : open ? kStatusOk : kBadHandle;
}

int OlvOtlVerifyOutline(HOutline h, uint32_t* global, uint32_t* count, MemberErrorEntry** errors) {
  const int status = api().call("OlvOtlVerifyOutline", {h}, global, count, errors);
  if (status != kStatusOk) return status;
  *global = api().global_errors;
  *count = static_cast<uint32_t>(api().member_errors.size());
  *errors = *count == 0 ? nullptr : api().hand_out("member errors", api().member_errors);
  return kStatusOk;
}

int OlvOtlWriteOutline(HOutline h, const ObjectDefinitionRecord* object) {
  const int status = api().call("OlvOtlWriteOutline", {h, describe(object)});
  if (status != kStatusOk) return status;
  if (api().open_outlines.count(h) == 0 || !is_context(object->context)) return kBadHandle;
  if (object->context == kLocalContext) api().scratch_objects.insert(object->objectName);
  return kStatusOk;
}

int OlvOtlRestructure(HCTX ctx, uint16_t option) {
  return api().call("OlvOtlRestructure", {ctx, option});
}

int OlvOtlGenerateCurrencyOutline(HOutline h, HOutline* currency) {
  const int status = api().call("OlvOtlGenerateCurrencyOutline", {h}, currency);
  if (status != kStatusOk) return status;
  api().open_outlines.insert(kCurrencyOutline);
  *currency = kCurrencyOutline;
  return kStatusOk;
}
