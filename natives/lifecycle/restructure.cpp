// Restructures databases, on its own and after a write.
#include "lifecycle/restructure.h"

#include "bridge/native.h"
#include "bridge/scope.h"
#include "lifecycle/stored_object.h"

namespace kepotl {
namespace {

// The lock of a database's outline object.
class ObjectLock {
 public:
  ObjectLock(HCTX context, const char* application, const char* database)
      : context_(context), application_(application), database_(database) {}
  ~ObjectLock() {
    if (held_) OlvUnlockObject(context_, kObjectTypeOutline, application_, database_, database_);
  }
  ObjectLock(const ObjectLock&) = delete;
  ObjectLock& operator=(const ObjectLock&) = delete;

  int take() {
    const int status =
        OlvLockObject(context_, kObjectTypeOutline, application_, database_, database_);
    held_ = status == kStatusOk;
    return status;
  }

 private:
  HCTX context_;
  const char* application_;
  const char* database_;
  bool held_ = false;
};

}  // namespace

int wait_for_process(HCTX context) {
  ProcessStateRecord state = {};
  int status;
  do {
    status = OlvGetProcessState(context, &state);
  } while (status == kStatusOk && state.state != 0);
  return status;
}

int write_and_restructure(HCTX context, HOutline outline, const char* application,
                          const char* database, uint16_t option) {
  ObjectLock lock(context, application, database);
  int status = lock.take();
  if (status != kStatusOk) return status;
  const ObjectDefinitionRecord record = outline_object(context, application, database, database);
  status = OlvOtlWriteOutline(outline, &record);
  if (status != kStatusOk) return status;
  uint16_t access = 0;
  status = OlvSetActive(context, application, database, &access);
  if (status != kStatusOk) return status;
  status = OlvOtlRestructure(context, option);
  if (status != kStatusOk) return status;
  wait_for_process(context);
  return status;
}

}  // namespace kepotl

using namespace kepotl;

KEPOTL_NATIVE(jint, restructure)
(JNIEnv* env, jclass, jobject jcontext, jshort option, jstring japplication, jstring jdatabase) {
  TextContext text;
  JavaText application(env, text, japplication);
  JavaText database(env, text, jdatabase);
  const HCTX context = RetrieveHCTX(env, jcontext);
  if (context == 0) return kStatusOk;
  if (any_lost(application, database)) return kStatusRefused;
  uint16_t access = 0;
  int status = OlvSetActive(context, application.api(), database.api(), &access);
  if (status != kStatusOk) return status;
  status = OlvOtlRestructure(context, static_cast<uint16_t>(option));
  if (status != kStatusOk) return status;
  return wait_for_process(context);
}
