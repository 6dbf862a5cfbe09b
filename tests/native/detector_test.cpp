// Proves each detector of the harness by a fault planted for it.
#include <cstring>

#include "api/olv.h"
#include "api/olvotl.h"
#include "bridge/bridge.h"
#include "tests/native/native_test.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class DetectorTest : public NativeTest {
 protected:
  MemberInfoRecord* record() {
    MemberInfoRecord* info = nullptr;
    EXPECT_EQ(OlvOtlGetMemberInfo(kOutline, api().find("Jan"), &info), kStatusOk);
    return info;
  }
  char* formula() {
    char* text = nullptr;
    EXPECT_EQ(OlvOtlGetMemberFormula(kOutline, api().find("Sales"), &text), kStatusOk);
    return text;
  }
  std::vector<std::string> faults() { return journal().take_faults(); }
};

// ---- Ledger ----

TEST_F(DetectorTest, LeakedRecord) {
  MemberInfoRecord* info = record();
  EXPECT_THAT(api().blocks_outstanding(), ElementsAre("Not given back: member record"));
  OlvOtlFreeStructure(kOutline, 1, kStructureMemberInfo, info);
}

TEST_F(DetectorTest, DoubleFree) {
  char* text = formula();
  OlvFree(kInst, text);
  OlvFree(kInst, text);
  EXPECT_THAT(faults(), ElementsAre("Given back twice: formula"));
}

TEST_F(DetectorTest, WrongCodeFunctionOrCount) {
  MemberInfoRecord* info = record();
  OlvOtlFreeStructure(kOutline, 1, kStructureAttributeSpec, info);
  OlvOtlFreeStructure(kOutline, 2, kStructureMemberInfo, info);
  OlvOtlFreeStructure(kOutline, 1, 66, info);
  EXPECT_THAT(faults(), ElementsAre(HasSubstr("wrong function or code"), HasSubstr("wrong count"),
                                    HasSubstr("unknown structure code"),
                                    HasSubstr("wrong function or code")));
  OlvOtlFreeStructure(kOutline, 1, kStructureMemberInfo, info);

  MemberQuery query = {};
  query.queryType = kQueryChildren;
  MemberQueryCounts counts = {};
  HMember* members = nullptr;
  OlvOtlQueryMembers(kOutline, 0, &query, &counts, &members);
  OlvFree(kInst, members);
  OlvOtlFreeMembers(kOutline, counts.returned + 1, members);
  EXPECT_THAT(faults(), ElementsAre(HasSubstr("wrong function"), HasSubstr("wrong count")));
  OlvOtlFreeMembers(kOutline, counts.returned, members);
}

TEST_F(DetectorTest, ForeignBlockAndUnknownInstance) {
  char own[] = "mine";
  OlvFree(kInst, own);
  EXPECT_THAT(faults(), ElementsAre(HasSubstr("never handed out")));
  OlvFree(77, formula());
  EXPECT_THAT(faults(), ElementsAre(HasSubstr("unknown instance")));
}

TEST_F(DetectorTest, ReadAfterRelease) {
  char* text = formula();
  OlvFree(kInst, text);
  EXPECT_EQ(static_cast<unsigned char>(text[0]), 0xDD);
}

TEST_F(DetectorTest, NullTextAndEndlessText) {
  OlvOtlSetUserAttribute(kOutline, 0, nullptr);
  EXPECT_THAT(faults(), ElementsAre(HasSubstr("null text")));
  MemberInfoRecord info = {};
  std::memset(info.currencyMember, 'x', sizeof info.currencyMember);
  HMember added = 0;
  OlvOtlAddDimension(kOutline, &info, 0, 0, &added);
  EXPECT_THAT(faults(), ElementsAre(HasSubstr("currencyMember")));
}

TEST_F(DetectorTest, OverwrittenReservedBytes) {
  MemberInfoRecord info = api().member("Jan").info;
  info.reserved534[9] = 0;
  OlvOtlSetMemberInfoEx(kOutline, api().find("Jan"), &info, kMemberOption);
  EXPECT_THAT(api_calls(),
              ElementsAre("OlvOtlSetMemberInfoEx(outline, Jan, {reserved534=changed}, 3)"));
}

TEST_F(DetectorTest, KeptLockAndOutline) {
  HOutline opened = 0;
  const ObjectDefinitionRecord object = {kContext, 1, "App", "Other", "Other"};
  OlvOtlOpenOutline(kContext, &object, 1, 1, &opened);
  EXPECT_THAT(api().locks, ElementsAre("App/Db/Db", "App/Other/Other"));
  EXPECT_THAT(api().open_outlines, ElementsAre(kOutline, kOpenedOutline));
  expected_locks = api().locks;
  expected_outlines = api().open_outlines;
}

// ---- JNI ----

jint JNICALL forgets_string(JNIEnv* env, jclass, jstring text) {
  env->GetStringUTFChars(text, nullptr);
  return 0;
}

jint JNICALL releases_twice(JNIEnv* env, jclass, jstring text) {
  const char* chars = env->GetStringUTFChars(text, nullptr);
  env->ReleaseStringUTFChars(text, chars);
  env->ReleaseStringUTFChars(text, chars);
  return 0;
}

jint JNICALL releases_another(JNIEnv* env, jclass, jstring text) {
  const char* chars = env->GetStringUTFChars(text, nullptr);
  env->ReleaseStringUTFChars(env->NewStringUTF("other"), chars);
  return 0;
}

jint JNICALL uses_other_functions(JNIEnv* env, jclass, jstring text) {
  env->GetVersion();
  env->ExceptionCheck();
  env->NewGlobalRef(text);
  return env->GetStringLength(text);
}

jint JNICALL passes_null(JNIEnv* env, jclass, jstring) {
  env->GetObjectClass(nullptr);
  env->GetStringUTFChars(nullptr, nullptr);
  return 0;
}

jint JNICALL deletes_callers_reference(JNIEnv* env, jclass, jstring text) {
  env->DeleteLocalRef(text);
  return 0;
}

// Makes the virtual machine itself complain.
jint JNICALL calls_with_exception_pending(JNIEnv* env, jclass, jstring) {
  real_env()->ThrowNew(real_env()->FindClass("java/lang/Error"), "planted");
  env->NewStringUTF("");
  real_env()->ExceptionClear();
  return 0;
}

jint JNICALL leaves_exception(JNIEnv* env, jclass, jstring text) {
  env->GetMethodID(env->GetObjectClass(text), "noSuchMethod", "()V");
  return 0;
}

TEST_F(DetectorTest, StringsNotBalanced) {
  jstring text = java.text("planted");
  call(forgets_string, text);
  EXPECT_THAT(faults(), ElementsAre("String characters are not released: \"planted\""));
  call(releases_twice, text);
  EXPECT_THAT(faults(), ElementsAre(HasSubstr("not held")));
  call(releases_another, text);
  EXPECT_THAT(faults(), ElementsAre(HasSubstr("another string")));
}

TEST_F(DetectorTest, ForbiddenFunctions) {
  call(uses_other_functions, java.text("planted"));
  EXPECT_THAT(faults(), ElementsAre("JNI function not allowed: GetVersion",
                                    "JNI function not allowed: ExceptionCheck",
                                    "JNI function not allowed: NewGlobalRef",
                                    "JNI function not allowed: GetStringLength"));
}

TEST_F(DetectorTest, NullAndForeignReferences) {
  call(passes_null, java.text("planted"));
  EXPECT_THAT(faults(), ElementsAre(HasSubstr("GetObjectClass of a null"),
                                    HasSubstr("GetStringUTFChars of a null")));
  call(deletes_callers_reference, java.text("planted"));
  EXPECT_THAT(faults(), ElementsAre(HasSubstr("did not make")));
}

TEST_F(DetectorTest, UnexpectedWarningOfTheVirtualMachine) {
  call(calls_with_exception_pending, java.text("planted"));
  EXPECT_THAT(faults(), ElementsAre(HasSubstr("JNI call made with exception pending")));
}

TEST_F(DetectorTest, AcceptedWarningsAreThoseOfTheThirteenFunctions) {
  // What the warnings look like is the virtual machine's: see that it still makes them.
  jobject list = java.list();
  JniProbe probe(env_);
  for (int i = 0; i < 40; ++i) CallCollectionAddObject(&probe, list, nullptr);
  const std::vector<std::string> warnings = take_jni_warnings();
  EXPECT_THAT(warnings, testing::Not(testing::IsEmpty()));
  for (const std::string& warning : warnings) EXPECT_TRUE(is_accepted_warning(warning, false));
  EXPECT_FALSE(is_accepted_warning("WARNING in native method: anything else", true));
  probe.finish();
}

TEST_F(DetectorTest, PendingException) {
  call(leaves_exception, java.text("planted"));
  EXPECT_THAT(faults(), ElementsAre(HasSubstr("NoSuchMethodError")));
}

}  // namespace
