// Opens outlines for query and for edit, and closes them.
#include "bridge/native.h"
#include "bridge/scope.h"
#include "lifecycle/stored_object.h"

using namespace kepotl;

KEPOTL_NATIVE(jint, openOutlineQuery)(JNIEnv* env, jclass, jobject jcontext, jobject joutline) {
  const HCTX context = RetrieveHCTX(env, jcontext);
  if (context == 0) return kStatusOk;
  ObjectDefinitionRecord record = {};  // the API may write it
  const GivenHandle outline = ask_handle(OlvOtlOpenOutlineQuery, context, &record);
  if (outline.status == kStatusOk) {
    CallIntegerSetProperty(env, joutline, "setValue", static_cast<jint>(outline.handle));
  }
  return outline.status;
}

KEPOTL_NATIVE(jint, closeOutlineQuery)(JNIEnv* env, jclass, jobject joutline) {
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusOk;
  const int status = OlvOtlCloseOutline(outline);
  if (status == kStatusOk) CallIntegerSetProperty(env, joutline, "setValue", 0);
  return status;
}

KEPOTL_NATIVE(jint, openOutlineEdit)
(JNIEnv* env, jclass, jobject jcontext, jstring japplication, jstring jdatabase,
 jstring jobject_name, jobject joutline) {
  TextContext text;
  JavaText application(env, text, japplication);
  JavaText database(env, text, jdatabase);
  JavaText object(env, text, jobject_name);
  const HCTX context = RetrieveHCTX(env, jcontext);
  if (context == 0) return kStatusOk;
  if (any_lost(application, database, object)) return kStatusRefused;
  const ObjectDefinitionRecord record =
      outline_object(context, application.api(), database.api(), object.api());
  const GivenHandle outline = ask_handle(OlvOtlOpenOutline, context, &record, 1, 1);
  if (outline.status == kStatusOk) {
    CallIntegerSetProperty(env, joutline, "setValue", static_cast<jint>(outline.handle));
  }
  return outline.status;
}

KEPOTL_NATIVE(jint, closeOutlineEdit)
(JNIEnv* env, jclass, jobject jcontext, jobject joutline, jstring japplication, jstring jdatabase) {
  TextContext text;
  JavaText application(env, text, japplication);
  JavaText database(env, text, jdatabase);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusOk;
  if (any_lost(application, database)) return kStatusRefused;
  const HCTX context = RetrieveHCTX(env, jcontext);
  if (context != 0) {
    // The lock that the open took. Whatever becomes of it, the outline is to be closed.
    OlvUnlockObject(context, kObjectTypeOutline, application.api(), database.api(), database.api());
  }
  const int status = OlvOtlCloseOutline(outline);
  if (status == kStatusOk) CallIntegerSetProperty(env, joutline, "setValue", 0);
  return status;
}
