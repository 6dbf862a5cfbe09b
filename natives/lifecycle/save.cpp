// Writes outlines to database objects and to local files.
#include "bridge/native.h"
#include "bridge/scope.h"
#include "lifecycle/restructure.h"
#include "lifecycle/stored_object.h"

using namespace kepotl;

KEPOTL_NATIVE(jint, write)
(JNIEnv* env, jclass, jobject jcontext, jobject joutline, jstring japplication, jstring jdatabase) {
  TextContext text;
  JavaText application(env, text, japplication);
  JavaText database(env, text, jdatabase);
  const HOutline outline = RetrieveHOutline(env, joutline);
  const HCTX context = RetrieveHCTX(env, jcontext);
  if (outline == 0 || context == 0) return kStatusOk;
  if (any_lost(application, database)) return kStatusRefused;
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
  if (any_lost(application, database)) return kStatusRefused;
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

  const GivenHandle created = ask_handle(OlvCreateLocalContext, inst, uint32_t{0}, uint32_t{0});
  int status = created.status;
  if (status != kStatusOk) return status;
  const HCTX local = created.handle;
  char name[kScratchNameSize];
  if (*getLocalPathCandidate(inst, local, name) == '\0') return kStatusRefused;
  const ObjectDefinitionRecord record =
      outline_object(local, kScratchApplication, kScratchDatabase, name);
  status = OlvOtlWriteOutline(outline, &record);
  if (status != kStatusOk) return status;

  ApiBlock<char> path(inst);
  status = path.take(OlvGetLocalPath, local, kObjectTypeOutline, kScratchApplication,
                     kScratchDatabase, name, 0);
  if (status != kStatusOk) return status;
  CallStringSetProperty(text, env, result, "setLocation", path.get());
  path.release();

  ApiBlock<ObjectInfoRecord> info(inst);
  status = info.take(OlvGetObjectInfo, local, kObjectTypeOutline, kScratchApplication,
                     kScratchDatabase, name);
  if (!info) return status;
  CallIntegerSetProperty(env, result, "setFileSize", static_cast<jint>(info->size));
  return status;
}
