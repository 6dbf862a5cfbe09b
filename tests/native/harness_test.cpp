// Proves each detector of the harness by a fault planted for it.
#include <cstring>

#include "api/olv.h"
#include "api/olvotl.h"
#include "bridge/bridge.h"
#include "tests/native/native_test.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class HarnessTest : public NativeTest {
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
  // The faults of a piece of code that works on a Java string.
  std::vector<std::string> faults_of(void (*code)(JNIEnv* env, jstring text)) {
    JniProbe probe(env_);
    code(&probe, java.text("planted"));
    probe.finish();
    return faults();
  }
};

// ---- Ledger ----

TEST_F(HarnessTest, LeaksDoubleReleasesAndReadsAfterThem) {
  char* text = formula();
  EXPECT_THAT(api().blocks_outstanding(), ElementsAre("Not given back: formula"));
  OlvFree(kInst, text);
  EXPECT_EQ(static_cast<unsigned char>(text[0]), 0xDD);
  OlvFree(kInst, text);
  EXPECT_THAT(faults(), ElementsAre("Given back twice: formula"));
}

TEST_F(HarnessTest, WrongCodeFunctionOrCount) {
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

TEST_F(HarnessTest, ForeignBlockAndUnknownInstance) {
  char own[] = "mine";
  OlvFree(kInst, own);
  EXPECT_THAT(faults(), ElementsAre(HasSubstr("never handed out")));
  OlvFree(77, formula());
  EXPECT_THAT(faults(), ElementsAre(HasSubstr("unknown instance")));
}

TEST_F(HarnessTest, NullTextAndEndlessText) {
  OlvOtlSetUserAttribute(kOutline, 0, nullptr);
  EXPECT_THAT(faults(), ElementsAre(HasSubstr("null text")));
  MemberInfoRecord info = {};
  std::memset(info.currencyMember, 'x', sizeof info.currencyMember);
  HMember added = 0;
  OlvOtlAddDimension(kOutline, &info, 0, 0, &added);
  EXPECT_THAT(faults(), ElementsAre(HasSubstr("currencyMember")));
}

TEST_F(HarnessTest, OverwrittenReservedBytes) {
  MemberInfoRecord info = api().member("Jan").info;
  info.reserved534[9] = 0;
  OlvOtlSetMemberInfoEx(kOutline, api().find("Jan"), &info, kMemberOption);
  EXPECT_THAT(api_calls(),
              ElementsAre("OlvOtlSetMemberInfoEx(outline, Jan, {reserved534=changed}, 3)"));
}

// ---- JNI ----

void releases_twice(JNIEnv* env, jstring text) {
  const char* chars = env->GetStringUTFChars(text, nullptr);
  env->ReleaseStringUTFChars(text, chars);
  env->ReleaseStringUTFChars(text, chars);
}

void releases_another(JNIEnv* env, jstring text) {
  const char* chars = env->GetStringUTFChars(text, nullptr);
  env->ReleaseStringUTFChars(env->NewStringUTF("other"), chars);
}

void uses_other_functions(JNIEnv* env, jstring text) {
  env->GetVersion();
  env->NewGlobalRef(text);
  env->GetStringLength(text);
  env->ExceptionCheck();
}

void passes_null(JNIEnv* env, jstring) {
  env->GetObjectClass(nullptr);
  env->GetStringUTFChars(nullptr, nullptr);
}

// Makes the virtual machine itself complain.
void calls_with_exception_pending(JNIEnv* env, jstring) {
  real_env()->ThrowNew(real_env()->FindClass("java/lang/Error"), "planted");
  env->NewStringUTF("");
  real_env()->ExceptionClear();
}

jint JNICALL leaves_exception(JNIEnv* env, jclass, jstring text) {
  env->GetMethodID(env->GetObjectClass(text), "noSuchMethod", "()V");
  return 0;
}

TEST_F(HarnessTest, StringsNotBalanced) {
  EXPECT_THAT(faults_of([](JNIEnv* env, jstring text) { env->GetStringUTFChars(text, nullptr); }),
              ElementsAre("String characters are not released: \"planted\""));
  EXPECT_THAT(faults_of(releases_twice), ElementsAre(HasSubstr("not held")));
  EXPECT_THAT(faults_of(releases_another), ElementsAre(HasSubstr("another string")));
}

TEST_F(HarnessTest, ForbiddenFunctions) {
  EXPECT_THAT(faults_of(uses_other_functions),
              ElementsAre("JNI function not allowed: table entry 4",
                          "JNI function not allowed: table entry 21",
                          "JNI function not allowed: table entry 164",
                          "JNI function not allowed: table entry 228"));
}

TEST_F(HarnessTest, NullAndForeignReferences) {
  EXPECT_THAT(faults_of(passes_null), ElementsAre(HasSubstr("GetObjectClass of a null"),
                                                  HasSubstr("GetStringUTFChars of a null")));
  EXPECT_THAT(faults_of([](JNIEnv* env, jstring text) { env->DeleteLocalRef(text); }),
              ElementsAre(HasSubstr("did not make")));
}

TEST_F(HarnessTest, UnexpectedWarningOfTheVirtualMachine) {
  EXPECT_THAT(faults_of(calls_with_exception_pending),
              ElementsAre(HasSubstr("JNI call made with exception pending")));
}

TEST_F(HarnessTest, AcceptedWarningsAreThoseOfTheThirteenFunctions) {
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

TEST_F(HarnessTest, PendingException) {
  call(leaves_exception, "planted");
  EXPECT_THAT(faults(), ElementsAre(HasSubstr("NoSuchMethodError")));
}

}  // namespace
