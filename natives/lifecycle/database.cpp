// Facts about the database behind an outline, and its currency database.
#include <limits>

#include "bridge/native.h"
#include "bridge/scope.h"
#include "lifecycle/restructure.h"

namespace kepotl {
namespace {

// Truncates toward zero. What does not fit, not-a-number included, becomes the smallest value.
jint truncated(double count) {
  constexpr double kBelowFirst = -2147483649.0;
  constexpr double kAboveLast = 2147483648.0;
  if (count > kBelowFirst && count < kAboveLast) return static_cast<jint>(count);
  return std::numeric_limits<jint>::min();
}

// An outline that lives only inside one call.
class DerivedOutline {
 public:
  explicit DerivedOutline(HOutline outline) : outline_(outline) {}
  ~DerivedOutline() { OlvOtlCloseOutline(outline_); }
  DerivedOutline(const DerivedOutline&) = delete;
  DerivedOutline& operator=(const DerivedOutline&) = delete;

 private:
  HOutline outline_;
};

}  // namespace
}  // namespace kepotl

using namespace kepotl;

KEPOTL_NATIVE(jint, getCellCount)
(JNIEnv* env, jclass, jobject jcontext, jstring jarea, jobject holder) {
  TextContext text;
  JavaText area(env, text, jarea);
  const HCTX context = RetrieveHCTX(env, jcontext);
  if (context == 0) return kStatusOk;
  if (area.lost()) return kStatusRefused;
  double count = 0;
  const int status = OlvPartitionGetAreaCellCount(context, area.api(), &count);
  if (status == kStatusOk) CallIntegerSetProperty(env, holder, "setValue", truncated(count));
  return status;
}

KEPOTL_NATIVE(jint, getDataLoaded)
(JNIEnv* env, jclass, jobject jinst, jobject jcontext, jstring japplication, jstring jdatabase) {
  TextContext text;
  JavaText application(env, text, japplication);
  JavaText database(env, text, jdatabase);
  const INST inst = RetrieveINST(env, jinst);
  const HCTX context = RetrieveHCTX(env, jcontext);
  if (context == 0) return kStatusOk;
  ApiBlock<DatabaseInfoRecord> info(inst);
  // A lost name is left to the API to refuse: -1 means here that data is loaded.
  const int status = info.take(OlvGetDatabaseInfo, context, application.api(), database.api());
  if (!info) return status;
  return info->dataLoaded != 0 ? -1 : 0;
}

KEPOTL_NATIVE(jint, getLockedState)
(JNIEnv* env, jclass, jobject jinst, jobject jcontext, jstring japplication, jstring jdatabase) {
  TextContext text;
  JavaText application(env, text, japplication);
  JavaText database(env, text, jdatabase);
  const INST inst = RetrieveINST(env, jinst);
  const HCTX context = RetrieveHCTX(env, jcontext);
  if (context == 0) return kStatusOk;
  if (any_lost(application, database)) return kStatusRefused;
  ApiBlock<ObjectInfoRecord> info(inst);
  const int status = info.take(OlvGetObjectInfo, context, kObjectTypeOutline, application.api(),
                               database.api(), database.api());
  return info ? info->locked : status;
}

KEPOTL_NATIVE(jint, generateCurrencyDB)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jobject jcontext, jstring japplication,
 jstring jdatabase) {
  TextContext text;
  RetrieveINST(env, jinst);
  const HCTX context = RetrieveHCTX(env, jcontext);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusOk;
  const GivenHandle currency = ask_handle(OlvOtlGenerateCurrencyOutline, outline);
  if (currency.handle == 0) return currency.status;
  JavaText application(env, text, japplication);
  JavaText database(env, text, jdatabase);
  DerivedOutline closing(currency.handle);
  if (any_lost(application, database)) return kStatusRefused;
  return write_and_restructure(context, currency.handle, application.api(), database.api(),
                               kRestructureCurrency);
}
