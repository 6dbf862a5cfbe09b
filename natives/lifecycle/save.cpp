// Writes outlines to database objects and to local files, and restructures databases.
#include <cstdio>
#include <cstring>

#include "bridge/bridge.h"
#include "bridge/native.h"
#include "bridge/scope.h"
#include "lifecycle/objects.h"

namespace kepotl {
namespace {

// Where outlines that were saved to a local file live.
constexpr const char* kScratchApplication = "KEPOTL";
constexpr const char* kScratchDatabase = "OTLTEMP";
constexpr size_t kScratchNameSize = 128;

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

KEPOTL_NATIVE(jint, write)
(JNIEnv* env, jclass, jobject jcontext, jobject joutline, jstring japplication, jstring jdatabase) {
  TextContext text;
  JavaText application(env, text, japplication);
  JavaText database(env, text, jdatabase);
  const HOutline outline = RetrieveHOutline(env, joutline);
  const HCTX context = RetrieveHCTX(env, jcontext);
  if (outline == 0 || context == 0) return kStatusOk;
  // No lock here: the open for edit holds it.
  const ObjectDefinitionRecord record =
      outline_object(context, application.api(), database.api(), database.api());
  return OlvOtlWriteOutline(outline, &record);
}

KEPOTL_NATIVE(jint, saveAsObject)
(JNIEnv* env, jclass, jobject jinst, jobject jcontext, jobject joutline, jobject jtarget,
 jstring japplication, jstring jdatabase) {
  TextContext text;
  const HOutline outline = RetrieveHOutline(env, joutline);
  RetrieveINST(env, jinst);
  const HCTX context = RetrieveHCTX(env, jcontext);
  const HCTX target = RetrieveHCTX(env, jtarget);
  if (outline == 0 || context == 0 || target == 0) return kStatusOk;
  JavaText application(env, text, japplication);
  JavaText database(env, text, jdatabase);
  return write_and_restructure(target, outline, application.api(), database.api(),
                               kRestructureSaveAs);
}

KEPOTL_NATIVE(jint, saveAsFileBegin)
(JNIEnv* env, jclass, jobject jinst, jobject jcontext, jobject joutline, jobject result) {
  TextContext text;
  const HOutline outline = RetrieveHOutline(env, joutline);
  const INST inst = RetrieveINST(env, jinst);
  const HCTX context = RetrieveHCTX(env, jcontext);
  if (outline == 0 || context == 0) return kStatusOk;

  HCTX local = 0;
  int status = OlvCreateLocalContext(inst, 0, 0, &local);
  if (status != kStatusOk) return status;
  char name[kScratchNameSize];
  if (*getLocalPathCandidate(inst, local, name) == '\0') return kStatusRefused;
  const ObjectDefinitionRecord record =
      outline_object(local, kScratchApplication, kScratchDatabase, name);
  status = OlvOtlWriteOutline(outline, &record);
  if (status != kStatusOk) return status;

  ApiBlock<char> path(inst);
  status = OlvGetLocalPath(local, kObjectTypeOutline, kScratchApplication, kScratchDatabase, name,
                           0, path.out());
  if (status != kStatusOk) {
    path.forget();
    return status;
  }
  CallStringSetProperty(text, env, result, "setLocation", path.get());
  path.release();

  ApiBlock<ObjectInfoRecord> info(inst);
  status = OlvGetObjectInfo(local, kObjectTypeOutline, kScratchApplication, kScratchDatabase, name,
                            info.out());
  if (status != kStatusOk || !info) {
    info.forget();
    return status;
  }
  CallIntegerSetProperty(env, result, "setFileSize", static_cast<jint>(info->size));
  return status;
}

char* getLocalPathCandidate(INST inst, HCTX local, char name[kScratchNameSize]) {
  name[0] = '\0';
  for (int counter = 0;; ++counter) {
    char candidate[kScratchNameSize];
    std::snprintf(candidate, sizeof candidate, "E%d", counter);
    if (counter == 0) {
      // The path itself is not needed: asking for it shows that there is a scratch area.
      ApiBlock<char> path(inst);
      if (OlvGetLocalPath(local, kObjectTypeOutline, kScratchApplication, kScratchDatabase,
                          candidate, 1, path.out()) != kStatusOk) {
        path.forget();
        return name;
      }
    }
    ApiBlock<ObjectInfoRecord> info(inst);
    if (OlvGetObjectInfo(local, kObjectTypeOutline, kScratchApplication, kScratchDatabase,
                         candidate, info.out()) != kStatusOk) {
      info.forget();
      std::memcpy(name, candidate, sizeof candidate);
      return name;
    }
  }
}

KEPOTL_NATIVE(jint, restructure)
(JNIEnv* env, jclass, jobject jcontext, jshort option, jstring japplication, jstring jdatabase) {
  TextContext text;
  JavaText application(env, text, japplication);
  JavaText database(env, text, jdatabase);
  const HCTX context = RetrieveHCTX(env, jcontext);
  if (context == 0) return kStatusOk;
  uint16_t access = 0;
  int status = OlvSetActive(context, application.api(), database.api(), &access);
  if (status != kStatusOk) return status;
  status = OlvOtlRestructure(context, static_cast<uint16_t>(option));
  if (status != kStatusOk) return status;
  return wait_for_process(context);
}
