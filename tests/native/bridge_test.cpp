// Handles, text, and the helpers that call Java and make objects.
#include "bridge/bridge.h"

#include "tests/native/native_test.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class BridgeTest : public NativeTest {
 protected:
  void TearDown() override {
    probe.finish();
    NativeTest::TearDown();
  }

  JniProbe probe{env_};
};

TEST_F(BridgeTest, HandlesAreReadWholeAndMissingOnesAreZero) {
  EXPECT_EQ(RetrieveINST(&probe, java.instance()), kInst);
  EXPECT_EQ(RetrieveHCTX(&probe, java.context()), kContext);
  EXPECT_EQ(RetrieveHOutline(&probe, java.outline()), kOutline);
  EXPECT_EQ(RetrieveHOutline(&probe, nullptr), 0u);
  EXPECT_EQ(RetrieveHOutline(&probe, java.list()), 0u);
  probe.finish();
  EXPECT_THAT(probe.exception(), HasSubstr("NoSuchMethodError"));
}

TEST_F(BridgeTest, TextsKeepTheirBytesInAnyContext) {
  const char* text = "caf\xC3\xA9 \xED\xA0\xBD\xED\xB8\x80";  // a pair of surrogates
  EXPECT_EQ(getAPICharsFromUTFChars(LoInitialize(), text), text);
  EXPECT_EQ(getUTFCharsFromAPIChars(0, text), text);
  EXPECT_EQ(java.string(NewStringUTFfromAPI(0, &probe, text)), text);
  EXPECT_EQ(java.string(NewStringUTFfromAPI(1, &probe, text)), text);
  EXPECT_EQ(java.string(CreateStringObject(&probe, text)), text);
  LoUninitialize(0);
}

TEST_F(BridgeTest, NullTextAndNullObjectCallNothing) {
  jobject member = java.make("defs/outline/DefaultMember");
  CallStringSetProperty(0, &probe, member, "setName", "kept");
  CallStringSetProperty(0, &probe, member, "setName", nullptr);
  EXPECT_EQ(java.string(member, "getName"), "kept");
  CallStringSetProperty(0, &probe, member, "setName", "");
  EXPECT_EQ(java.string(member, "getName"), "");
  CallObjectSetProperty(&probe, member, "setName", "(Ljava/lang/String;)V", nullptr);
  EXPECT_EQ(java.string(member, "getName"), "");
  EXPECT_EQ(probe.live_strings(), 0);

  journal().clear();
  CallBooleanSetProperty(&probe, nullptr, "setX", 1);
  CallIntegerSetProperty(&probe, nullptr, "setX", 1);
  CallLongSetProperty(&probe, nullptr, "setX", 1);
  CallShortSetProperty(&probe, nullptr, "setX", 1);
  CallStringSetProperty(0, &probe, nullptr, "setX", "x");
  CallSingleArgumentObjectMethod(&probe, nullptr, "addX", member);
  CallStringBufferAppend(&probe, nullptr, "x");
  EXPECT_EQ(CallBooleanGetProperty(&probe, nullptr, "isX"), 0);
  EXPECT_EQ(CallIntegerGetProperty(&probe, nullptr, "getX"), 0);
  EXPECT_EQ(CallShortGetProperty(&probe, nullptr, "getX"), 0);
  EXPECT_EQ(CallStringGetProperty(&probe, nullptr, "getX"), nullptr);
  EXPECT_EQ(CallCollectionAddObject(&probe, nullptr, member), 0);
  EXPECT_EQ(CallListGetCount(&probe, nullptr), 0);
  EXPECT_EQ(CallListGetObject(&probe, nullptr, 0), nullptr);
  EXPECT_THAT(java_calls(), IsEmpty());
}

TEST_F(BridgeTest, MissingMethodsAnswerNothing) {
  jobject plain = java.list();
  EXPECT_EQ(CallShortGetProperty(&probe, plain, "getValue"), 0);
  env_->ExceptionClear();
  EXPECT_EQ(CallListGetCount(&probe, java.instance()), 0);
  env_->ExceptionClear();
  EXPECT_EQ(CallListGetObject(&probe, java.instance(), 0), nullptr);
  env_->ExceptionClear();
  EXPECT_EQ(CreateSimpleObject(&probe, "no/such/Class"), nullptr);
  env_->ExceptionClear();
  // A class without a constructor of no arguments.
  EXPECT_EQ(CreateShortObject(&probe, "java/lang/Short", 5), nullptr);
  env_->ExceptionClear();
  EXPECT_EQ(CreateLongObject(&probe, "java/lang/Long", 5), nullptr);
  env_->ExceptionClear();
  EXPECT_THAT(java_calls(), IsEmpty());
  take_jni_warnings();
}

TEST_F(BridgeTest, HelpersThatAreGivenNullDoNothing) {
  populateMemberInfoIDStruct(&probe, nullptr);
  populateMemberInfo(kOutline, 0, nullptr, "New");
  populateDimensionInfo(kOutline, 0, nullptr, "New");
  EXPECT_EQ(CreateSimpleObject(&probe, nullptr), nullptr);
  EXPECT_EQ(CreateMemberInfoObject(&probe, nullptr, nullptr), nullptr);
  EXPECT_EQ(CreateMemberError(&probe, kOutline, nullptr), nullptr);
  EXPECT_EQ(CreateAttributeDimension(0, kOutline, api().find("Year"), nullptr, 10), kStatusRefused);
  CreateMemberAttributesObject(&probe, CreateMemberPropertiesObject(&probe), nullptr, "Can");
  EXPECT_EQ(CallIntegerGetProperty(&probe, java.instance(), nullptr), 0);
  EXPECT_EQ(CreateStringObject(&probe, nullptr), nullptr);
  EXPECT_EQ(trimStr(nullptr), nullptr);
  EXPECT_EQ(CallReadAliasTableHeader(nullptr, nullptr), nullptr);
  EXPECT_EQ(CallReadMemberAliasLine(nullptr, nullptr, nullptr), 0);
  CallLowercase(nullptr);
  EXPECT_EQ(CallWriteAliasToFile(kOutline, api().find("Jan"), nullptr, nullptr), kStatusRefused);
  EXPECT_EQ(CallGetChildrenAliasRecursive(kOutline, api().find("Year"), nullptr, nullptr),
            kStatusRefused);
  EXPECT_EQ(getLocalPathCandidate(kInst, kLocalContext, nullptr), nullptr);
  EXPECT_THAT(api_calls(), IsEmpty());
}

TEST_F(BridgeTest, NumbersKeepTheirWidthAndSign) {
  EXPECT_EQ(java.string(CreateJavaLong(&probe, 4294967295u)), "4294967295");
  EXPECT_EQ(java.string(CreateJavaShort(&probe, -1)), "-1");
  journal().clear();
  CreateLongObject(&probe, CNAME_GLOBAL_ERROR, 4294967295u);
  jobject code = CreateShortObject(&probe, CNAME_SHARE, -1);
  EXPECT_EQ(CallShortGetProperty(&probe, code, "getValue"), -1);
  EXPECT_THAT(java_calls(),
              ElementsAre("new GlobalVerifyError()", "GlobalVerifyError.setValue(4294967295)",
                          "new Share()", "Share.setValue(-1)", "Share.getValue()"));
}

TEST_F(BridgeTest, ListsAndBuffers) {
  jobject list = java.list();
  EXPECT_EQ(CallListAddObject(&probe, list, java.text("a")), JNI_TRUE);
  EXPECT_EQ(CallCollectionAddObject(&probe, list, nullptr), JNI_TRUE);
  EXPECT_EQ(CallListGetCount(&probe, list), 2);
  EXPECT_EQ(java.string(CallListGetObject(&probe, list, 0)), "a");
  EXPECT_EQ(CallListGetObject(&probe, list, 1), nullptr);
  jobject buffer = java.buffer("a");
  CallStringBufferAppend(&probe, buffer, "bc");
  EXPECT_EQ(java.string(CallStringGetProperty(&probe, buffer, "toString")), "abc");
  EXPECT_EQ(probe.live_strings(), 0);
}

TEST_F(BridgeTest, TheClassTableNamesClassesThatExistAndSignaturesThatMatch) {
  EXPECT_EQ(TABLE_SIZE, 500);
  EXPECT_STREQ(MNAME_CONSTRUCTOR, "<init>");
  EXPECT_STREQ(PTYPE_CONSTRUCTOR, "()V");
  // The rest the readers and listings use; these are for others.
  for (const char* name : {CNAME_MEMBER_FORMULA, CNAME_MEMBER_RESULT}) {
    EXPECT_NE(CreateSimpleObject(&probe, name), nullptr) << name;
  }
  const std::pair<const char*, const char*> pairs[] = {
      {CNAME_CONSOLIDATION, PTYPE_CONSOLIDATION},
      {CNAME_CONVERSION, PTYPE_CONVERSION},
      {CNAME_TIME_BALANCE, PTYPE_TIME_BALANCE},
      {CNAME_TIME_BALANCE_SKIP, PTYPE_TIME_BALANCE_SKIP},
      {CNAME_SHARE, PTYPE_SHARE},
      {CNAME_DIM_STORAGE_TYPE, PTYPE_DIM_STORAGE_TYPE},
      {CNAME_DIM_CATEGORY, PTYPE_DIM_CATEGORY},
      {CNAME_ATTRIBUTE_TYPE, PTYPE_ATTRIBUTE_TYPE},
      {CNAME_GLOBAL_ERROR, PTYPE_GLOBAL_ERROR},
      {CNAME_MEMBER_ERROR, PTYPE_MEMBER_ERROR}};
  for (const auto& [name, signature] : pairs) {
    EXPECT_NE(CreateSimpleObject(&probe, name), nullptr) << name;
    EXPECT_EQ(signature, "(L" + std::string(name) + ";)V");
  }
}

}  // namespace
