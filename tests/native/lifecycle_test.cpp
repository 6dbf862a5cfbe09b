// Opening, verifying, saving, restructuring and database state: what is asked of the API, in which
// order, and what reaches Java.
#include <cstdint>
#include <cstring>
#include <limits>

#include "bridge/bridge.h"
#include "tests/native/native_test.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class LifecycleTest : public NativeTest {
 protected:
  jint save_as_object() {
    return call(NATIVE(saveAsObject), java.instance(), java.context(), java.outline(),
                java.context(), "App", "Db2");
  }
  jint currency() { return on_outline(NATIVE(generateCurrencyDB), java.context(), "App", "Db2"); }
  jint save_as_file(jobject file) {
    return call(NATIVE(saveAsFileBegin), java.instance(), java.context(), java.outline(), file);
  }
  jint verify() {
    return call(NATIVE(verifyOutlineEdit), java.instance(), nullptr, java.outline(), java.list());
  }
  jint restructure(jshort option) {
    return call(NATIVE(restructure), java.context(), option, "App", "Db");
  }
};

// ---- Opening and closing ----

TEST_F(LifecycleTest, QueryOpensWithAnEmptyRecordAndCloses) {
  jobject outline = java.outline(0);
  EXPECT_EQ(call(NATIVE(openOutlineQuery), java.context(), outline), 0);
  EXPECT_EQ(java.number(outline, "getValue"), static_cast<jint>(kOpenedOutline));
  EXPECT_EQ(call(NATIVE(closeOutlineQuery), outline), 0);
  EXPECT_EQ(java.number(outline, "getValue"), 0);
  EXPECT_EQ(call(NATIVE(closeOutlineQuery), outline), 0);
  EXPECT_THAT(api_calls(),
              ElementsAre("OlvOtlOpenOutlineQuery(context, {})", "OlvOtlCloseOutline(opened)"));
}

TEST_F(LifecycleTest, EditOpensTheNamedObjectWithinTheFrame) {
  jobject outline = java.outline(0);
  EXPECT_EQ(call(NATIVE(openOutlineEdit), java.context(), "App", "Db2", "Object", outline), 0);
  EXPECT_EQ(java.number(outline, "getValue"), static_cast<jint>(kOpenedOutline));
  EXPECT_THAT(all_calls(),
              ElementsAre("chars(\"App\")", "chars(\"Db2\")", "chars(\"Object\")",
                          "ContextHandle.getValue()",
                          "OlvOtlOpenOutline(context, {context=context type=1 application=\"App\" "
                          "database=\"Db2\" object=\"Object\"}, 1, 1)",
                          "OutlineHandle.setValue(-1879048190)", "release(\"Object\")",
                          "release(\"Db2\")", "release(\"App\")"));
  expected_locks.insert("App/Db2/Object");
  expected_outlines.insert(kOpenedOutline);
}

TEST_F(LifecycleTest, EditCloseUnlocksTheDatabasesOwnObjectFirst) {
  jobject outline = java.outline();
  EXPECT_EQ(call(NATIVE(closeOutlineEdit), java.context(), outline, "App", "Db"), 0);
  EXPECT_EQ(java.number(outline, "getValue"), 0);
  EXPECT_THAT(api_calls(), ElementsAre("OlvUnlockObject(context, 1, \"App\", \"Db\", \"Db\")",
                                       "OlvOtlCloseOutline(outline)"));
  expected_locks.clear();
  expected_outlines.clear();
}

TEST_F(LifecycleTest, EditCloseWithoutContextOrOutline) {
  EXPECT_EQ(call(NATIVE(closeOutlineEdit), java.context(), java.outline(0), "App", "Db"), 0);
  EXPECT_THAT(api_calls(), IsEmpty());
  EXPECT_EQ(call(NATIVE(closeOutlineEdit), java.context(0), java.outline(), "App", "Db"), 0);
  EXPECT_THAT(api_calls(), ElementsAre("OlvOtlCloseOutline(outline)"));
  expected_outlines.clear();
}

TEST_F(LifecycleTest, FailedCloseKeepsTheHandle) {
  jobject outline = java.outline();
  api().fail_function("OlvOtlCloseOutline", 77);
  EXPECT_EQ(call(NATIVE(closeOutlineQuery), outline), 77);
  EXPECT_EQ(java.number(outline, "getValue"), static_cast<jint>(kOutline));
  expected_outlines.clear();
}

// ---- Verification ----

TEST_F(LifecycleTest, VerificationHandsOverTheGlobalErrorFirst) {
  EXPECT_EQ(verify(), 0);
  const std::string jan = std::to_string(static_cast<jint>(api().find("Jan")));
  const std::string cola = std::to_string(static_cast<jint>(api().find("Cola")));
  EXPECT_THAT(
      java_calls(),
      ElementsAre(
          "new GlobalVerifyError()", "GlobalVerifyError.setValue(2147483649)",
          "ArrayList.add(GlobalVerifyError)", "new MemberVerifyError()",
          "MemberVerifyError.setName(\"Jan\")", "MemberVerifyError.setHandle(" + jan + ")",
          "MemberVerifyError.setErrorPortion(1)",
          "MemberVerifyError.setExtendedPortion(2147483648)", "ArrayList.add(MemberVerifyError)",
          "new MemberVerifyError()", "MemberVerifyError.setName(\"Cola\")",
          "MemberVerifyError.setHandle(" + cola + ")", "MemberVerifyError.setErrorPortion(4)",
          "MemberVerifyError.setExtendedPortion(0)", "ArrayList.add(MemberVerifyError)"));
}

TEST_F(LifecycleTest, VerificationOfAMemberThatCannotBeReadGivesItsErrorWords) {
  api().global_errors = 0;
  api().member_errors.resize(1);
  api().fail_function("OlvOtlGetMemberInfo", 77);
  EXPECT_EQ(verify(), 0);
  EXPECT_THAT(java_calls(),
              ElementsAre("new MemberVerifyError()", "MemberVerifyError.setErrorPortion(1)",
                          "MemberVerifyError.setExtendedPortion(2147483648)",
                          "ArrayList.add(MemberVerifyError)"));
}

TEST_F(LifecycleTest, VerificationWithoutErrorsFreesNothing) {
  api().global_errors = 0;
  api().member_errors.clear();
  EXPECT_EQ(verify(), 0);
  EXPECT_THAT(api_calls(), ElementsAre("OlvOtlVerifyOutline(outline)"));
}

// ---- Saving ----

TEST_F(LifecycleTest, WriteNamesTheDatabasesOutlineAndTakesNoLock) {
  EXPECT_EQ(call(NATIVE(write), java.context(), java.outline(), "App", "Db"), 0);
  EXPECT_THAT(api_calls(), ElementsAre("OlvOtlWriteOutline(outline, {context=context type=1 "
                                       "application=\"App\" database=\"Db\" object=\"Db\"})"));
}

TEST_F(LifecycleTest, SaveAsObjectLocksWritesActivatesRestructuresWaitsUnlocks) {
  EXPECT_EQ(save_as_object(), 0);
  EXPECT_THAT(api_calls(),
              ElementsAre("OlvLockObject(context, 1, \"App\", \"Db2\", \"Db2\")",
                          "OlvOtlWriteOutline(outline, {context=context type=1 "
                          "application=\"App\" database=\"Db2\" object=\"Db2\"})",
                          "OlvSetActive(context, \"App\", \"Db2\")",
                          "OlvOtlRestructure(context, 2)", "OlvGetProcessState(context)",
                          "OlvGetProcessState(context)", "OlvGetProcessState(context)",
                          "OlvUnlockObject(context, 1, \"App\", \"Db2\", \"Db2\")"));
}

TEST_F(LifecycleTest, SaveAsObjectThatGetsNoLockUnlocksNothing) {
  api().locks.insert("App/Db2/Db2");
  EXPECT_EQ(save_as_object(), kLocked);
  EXPECT_THAT(api_calls(), ElementsAre("OlvLockObject(context, 1, \"App\", \"Db2\", \"Db2\")"));
  expected_locks.insert("App/Db2/Db2");
}

TEST_F(LifecycleTest, SaveAsObjectNeedsBothContextsAndReadsNoNamesWithout) {
  for (HCTX first : {HCTX{0}, kContext}) {
    const HCTX target = first == 0 ? kContext : 0;
    EXPECT_EQ(call(NATIVE(saveAsObject), java.instance(), java.context(first), java.outline(),
                   java.context(target), "App", "Db2"),
              0);
    EXPECT_THAT(journal().lines(Entry::kText), IsEmpty());
    EXPECT_THAT(api_calls(), IsEmpty());
  }
}

TEST_F(LifecycleTest, SaveAsFileTakesTheLowestFreeName) {
  jobject file = java.make("api/outline/SavedFile");
  EXPECT_EQ(save_as_file(file), 0);
  EXPECT_EQ(java.string(file, "getLocation"), "/scratch/E2");
  EXPECT_EQ(java.number(file, "getFileSize"), 4096);
  const std::string scratch = "(local, 1, \"KEPOTL\", \"OTLTEMP\", ";
  EXPECT_THAT(
      api_calls(),
      ElementsAre("OlvCreateLocalContext(inst, 0, 0)", "OlvGetLocalPath" + scratch + "\"E0\", 1)",
                  "OlvFree(inst, path)", "OlvGetObjectInfo" + scratch + "\"E0\")",
                  "OlvFree(inst, object info)", "OlvGetObjectInfo" + scratch + "\"E1\")",
                  "OlvFree(inst, object info)", "OlvGetObjectInfo" + scratch + "\"E2\")",
                  "OlvOtlWriteOutline(outline, {context=local type=1 "
                  "application=\"KEPOTL\" database=\"OTLTEMP\" object=\"E2\"})",
                  "OlvGetLocalPath" + scratch + "\"E2\", 0)", "OlvFree(inst, path)",
                  "OlvGetObjectInfo" + scratch + "\"E2\")", "OlvFree(inst, object info)"));

  api().scratch_objects = {"E1"};
  EXPECT_EQ(save_as_file(file), 0);
  EXPECT_EQ(java.string(file, "getLocation"), "/scratch/E0");
}

TEST_F(LifecycleTest, SaveAsFileWithoutAScratchAreaIsRefused) {
  api().fail_function("OlvGetLocalPath", 77);
  EXPECT_EQ(save_as_file(java.make("api/outline/SavedFile")), -1);
  EXPECT_THAT(java_calls(), IsEmpty());
}

TEST_F(LifecycleTest, SaveAsFileKeepsTheLocationWhenTheSizeCannotBeRead) {
  jobject file = java.make("api/outline/SavedFile");
  api().fail_function("OlvGetObjectInfo", 77, 4);
  EXPECT_EQ(save_as_file(file), 77);
  EXPECT_THAT(java_calls(), ElementsAre("SavedFile.setLocation(\"/scratch/E2\")"));
}

// ---- Restructuring ----

TEST_F(LifecycleTest, RestructurePassesTheOptionUnsignedAndPollsUntilOver) {
  api().process_polls = 0;
  EXPECT_EQ(restructure(-1), 0);
  EXPECT_THAT(api_calls(),
              ElementsAre("OlvSetActive(context, \"App\", \"Db\")",
                          "OlvOtlRestructure(context, 65535)", "OlvGetProcessState(context)"));
  api().process_polls = 3;
  EXPECT_EQ(restructure(1), 0);
  EXPECT_EQ(api_calls().size(), 6u);
}

// ---- Database state ----

TEST_F(LifecycleTest, CellCountIsTruncatedAndKeptInRange) {
  const std::pair<double, jint> counts[] = {{12.9, 12},
                                            {-3.7, -3},
                                            {2147483647.9, 2147483647},
                                            {2147483648.0, INT32_MIN},
                                            {-2147483648.9, INT32_MIN},
                                            {-1e300, INT32_MIN},
                                            {std::numeric_limits<double>::quiet_NaN(), INT32_MIN}};
  for (const auto& [cells, expected] : counts) {
    api().cell_count = cells;
    jobject holder = java.make("api/IntHolder");
    EXPECT_EQ(call(NATIVE(getCellCount), java.context(), "Sales,Jan", holder), 0);
    EXPECT_EQ(java.number(holder, "getValue"), expected) << cells;
  }
}

TEST_F(LifecycleTest, DataLoadedAndLockState) {
  const auto loaded = [&] {
    return call(NATIVE(getDataLoaded), java.instance(), java.context(), "App", "Db");
  };
  api().data_loaded = 0x100;
  EXPECT_EQ(loaded(), -1);
  api().data_loaded = 0;
  EXPECT_EQ(loaded(), 0);
  api().lock_byte = 255;
  EXPECT_EQ(call(NATIVE(getLockedState), java.instance(), java.context(), "App", "Db"), 255);
  EXPECT_THAT(
      api_calls(),
      ElementsAre("OlvGetDatabaseInfo(context, \"App\", \"Db\")", "OlvFree(inst, database info)",
                  "OlvGetDatabaseInfo(context, \"App\", \"Db\")", "OlvFree(inst, database info)",
                  "OlvGetObjectInfo(context, 1, \"App\", \"Db\", \"Db\")",
                  "OlvFree(inst, object info)"));
}

TEST_F(LifecycleTest, CurrencyDatabaseIsDerivedWrittenRestructuredAndClosed) {
  EXPECT_EQ(currency(), 0);
  EXPECT_THAT(api_calls(),
              ElementsAre("OlvOtlGenerateCurrencyOutline(outline)",
                          "OlvLockObject(context, 1, \"App\", \"Db2\", \"Db2\")",
                          "OlvOtlWriteOutline(currency, {context=context type=1 "
                          "application=\"App\" database=\"Db2\" object=\"Db2\"})",
                          "OlvSetActive(context, \"App\", \"Db2\")",
                          "OlvOtlRestructure(context, 1)", "OlvGetProcessState(context)",
                          "OlvGetProcessState(context)", "OlvGetProcessState(context)",
                          "OlvUnlockObject(context, 1, \"App\", \"Db2\", \"Db2\")",
                          "OlvOtlCloseOutline(currency)"));
}

TEST_F(LifecycleTest, AScratchNameIsAllThatIsWritten) {
  char name[128];
  std::memset(name, 'x', sizeof name);
  EXPECT_EQ(getLocalPathCandidate(kInst, kLocalContext, name), name);
  EXPECT_STREQ(name, "E2");
  EXPECT_EQ(std::string(name + 3, name + sizeof name), std::string(sizeof name - 3, 'x'));
}

}  // namespace
