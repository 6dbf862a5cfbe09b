// Sweep entries of opening, verifying, saving, restructuring and database state.
#include "tests/native/sweep.h"

std::vector<SweepCase> lifecycle_cases() {
  const auto app = [](JavaObjects& java) { return java.text("App"); };
  const auto db = [](JavaObjects& java) { return java.text("Db"); };
  const auto other_db = [](JavaObjects& java) { return java.text("Db2"); };
  return {
      sweep_case(
          "openOutlineQuery", NATIVE(openOutlineQuery),
          [](JavaObjects& java) { return std::make_tuple(java.context(), java.outline(0)); }),
      sweep_case("closeOutlineQuery", NATIVE(closeOutlineQuery),
                 [](JavaObjects& java) { return std::make_tuple(java.outline()); }),
      sweep_case("openOutlineEdit", NATIVE(openOutlineEdit),
                 [=](JavaObjects& java) {
                   return std::make_tuple(java.context(), app(java), other_db(java),
                                          java.text("Object"), java.outline(0));
                 }),
      sweep_case("closeOutlineEdit", NATIVE(closeOutlineEdit),
                 [=](JavaObjects& java) {
                   return std::make_tuple(java.context(), java.outline(), app(java), db(java));
                 }),
      sweep_case("verifyOutlineEdit", NATIVE(verifyOutlineEdit),
                 [](JavaObjects& java) {
                   return std::make_tuple(java.instance(), java.context(), java.outline(),
                                          java.list());
                 })
          .swallows({"OlvOtlGetMemberInfo"}),
      sweep_case("write", NATIVE(write),
                 [=](JavaObjects& java) {
                   return std::make_tuple(java.context(), java.outline(), app(java), db(java));
                 }),
      sweep_case("saveAsObject", NATIVE(saveAsObject),
                 [=](JavaObjects& java) {
                   return std::make_tuple(java.instance(), java.context(), java.outline(),
                                          java.context(), app(java), other_db(java));
                 })
          .swallows({"OlvGetProcessState"}),
      sweep_case("saveAsFileBegin", NATIVE(saveAsFileBegin),
                 [](JavaObjects& java) {
                   return std::make_tuple(java.instance(), java.context(), java.outline(),
                                          java.make("api/outline/SavedFile"));
                 })
          // The search for a free name takes every failure for an object that does not exist.
          .on("OlvGetLocalPath", {kPassedOn, kStatusRefused})
          .may_swallow({"OlvGetObjectInfo"}),
      sweep_case("restructure", NATIVE(restructure),
                 [=](JavaObjects& java) {
                   return std::make_tuple(java.context(), jshort{2}, app(java), db(java));
                 }),
      sweep_case("getCellCount", NATIVE(getCellCount),
                 [](JavaObjects& java) {
                   return std::make_tuple(java.context(), java.text("Sales"),
                                          java.make("api/IntHolder"));
                 }),
      sweep_case("getDataLoaded", NATIVE(getDataLoaded),
                 [=](JavaObjects& java) {
                   return std::make_tuple(java.instance(), java.context(), app(java), db(java));
                 }),
      sweep_case("getLockedState", NATIVE(getLockedState),
                 [=](JavaObjects& java) {
                   return std::make_tuple(java.instance(), java.context(), app(java), db(java));
                 }),
      sweep_case("generateCurrencyDB", NATIVE(generateCurrencyDB),
                 [=](JavaObjects& java) {
                   return std::make_tuple(java.instance(), java.outline(), java.context(),
                                          app(java), other_db(java));
                 })
          .swallows({"OlvGetProcessState", "OlvOtlCloseOutline"}),
  };
}
