// The light member lists of the calculation-script editor, and its check of a name.
#include "tests/native/native_test.h"

namespace {

using testing::Contains;
using testing::ElementsAre;

class CalcScriptTest : public NativeTest {
 protected:
  jint found(const char* dimension, const char* text, jboolean use_aliases, const char* table) {
    return call(NATIVE(listFindMembers), java.outline(), dimension, text, use_aliases, table, list);
  }

  jobject list = java.list();
};

TEST_F(CalcScriptTest, LightMembersCarryTheGivenParentName) {
  EXPECT_EQ(on_outline(NATIVE(listOutlineMembers), "Qtr1", JNI_FALSE, "x", list), 0);
  EXPECT_THAT(java_calls(), ElementsAre("new MemberInfo(\"Jan\", \"Qtr1\", 0, 0, false)",
                                        "MemberInfo.setGenValue(3)", "ArrayList.add(MemberInfo)",
                                        "new MemberInfo(\"Feb\", \"Qtr1\", 0, 0, false)",
                                        "MemberInfo.setGenValue(3)", "ArrayList.add(MemberInfo)"));
  EXPECT_EQ(live_strings, 0);
}

TEST_F(CalcScriptTest, LightMembersOfAttributeDimensionsCarryTheirType) {
  api().member("Pack").info.dimensionCategory = -1;
  EXPECT_EQ(found(nullptr, "Pack", JNI_FALSE, nullptr), 0);
  EXPECT_EQ(on_outline(NATIVE(listOutlineMembers), "Pack", JNI_FALSE, nullptr, list), 0);
  EXPECT_THAT(
      java_calls(),
      ElementsAre("new MemberInfo(\"Pack\", null, 65535, 2, false)", "MemberInfo.setGenValue(1)",
                  "MemberInfo.setStorage(0)", "ArrayList.add(MemberInfo)",
                  "new MemberInfo(\"Can\", \"Pack\", 6, 0, false)",
                  "MemberInfo.setAttrDimDataType(255)", "MemberInfo.setGenValue(2)",
                  "ArrayList.add(MemberInfo)", "new MemberInfo(\"Bottle\", \"Pack\", 6, 0, false)",
                  "MemberInfo.setAttrDimDataType(255)", "MemberInfo.setGenValue(2)",
                  "ArrayList.add(MemberInfo)"));
}

TEST_F(CalcScriptTest, ListedMembersAreRenamedToTheirAliases) {
  EXPECT_EQ(on_outline(NATIVE(listOutlineMembers), "Qtr1", JNI_TRUE, "dEFAULT", list), 0);
  EXPECT_THAT(
      api_calls(),
      ElementsAre("OlvOtlQueryMembersByName(outline, \"Qtr1\", {type=1 "
                  "dimension=\"Qtr1\"}, {})",
                  "OlvOtlGetMemberInfo(outline, Jan)", "OlvOtlGetMemberAlias(outline, Jan, null)",
                  "OlvFree(inst, alias)", "OlvFree(inst, member record)",
                  "OlvOtlGetMemberInfo(outline, Feb)", "OlvOtlGetMemberAlias(outline, Feb, null)",
                  "OlvFree(inst, member record)", "OlvOtlFreeMembers(outline, 2, query result)"));
}

TEST_F(CalcScriptTest, FoundMembersCarryTheirParentsAlias) {
  api().member("Qtr1").aliases["Long Names"] = "The first quarter";
  EXPECT_EQ(found("Year", "J*", JNI_TRUE, "Long Names"), 0);
  EXPECT_EQ(live_strings, 0);
  EXPECT_THAT(journal().lines(Entry::kJava),
              ElementsAre("OutlineHandle.getValue()",
                          "new MemberInfo(\"Jan\", \"The first quarter\", 0, 0, false)",
                          "MemberInfo.setGenValue(3)", "MemberInfo.setName(\"The first month\")",
                          "ArrayList.add(MemberInfo)"));
  EXPECT_THAT(api_calls(),
              ElementsAre("OlvOtlQueryMembers(outline, 0, {type=12 options=2 dimension=\"Year\" "
                          "pattern1=\"J*\" pattern2=\"Long Names\"}, {})",
                          "OlvOtlGetMemberInfo(outline, Jan)",
                          "OlvOtlQueryMembersByName(outline, \"Jan\", {type=7}, {})",
                          "OlvOtlGetMemberInfo(outline, Qtr1)",
                          "OlvOtlGetMemberAlias(outline, Qtr1, \"Long Names\")",
                          "OlvFree(0, alias)", "OlvOtlGetMemberAlias(outline, Jan, \"Long Names\")",
                          "OlvFree(0, alias)", "OlvOtlFreeStructure(outline, 1, 65, member record)",
                          "OlvOtlFreeStructure(outline, 1, 65, member record)",
                          "OlvOtlFreeMembers(outline, 1, query result)",
                          "OlvOtlFreeMembers(outline, 1, query result)"));
}

TEST_F(CalcScriptTest, FoundMembersWithoutAParentsAliasCarryItsName) {
  EXPECT_EQ(found(nullptr, "Jan", JNI_TRUE, "Default"), 0);
  EXPECT_THAT(java_calls(), Contains("new MemberInfo(\"Jan\", \"Qtr1\", 0, 0, false)"));
  // An unreadable parent leaves no name, whatever its alias says.
  api().member("Qtr1").aliases["Default"] = "Alias";
  api().fail_function("OlvOtlGetMemberInfo", 77, 2);
  EXPECT_EQ(found(nullptr, "Jan", JNI_TRUE, "Default"), 0);
  EXPECT_THAT(java_calls(), Contains("new MemberInfo(\"Jan\", null, 0, 0, false)"));
}

TEST_F(CalcScriptTest, AFailedAliasEndsTheListAfterItsMember) {
  api().fail_function("OlvOtlGetMemberAlias", 77);
  EXPECT_EQ(on_outline(NATIVE(listOutlineMembers), "Qtr1", JNI_TRUE, "Codes", list), 77);
  EXPECT_EQ(java.number(list, "size"), 1);
}

TEST_F(CalcScriptTest, FindMemberTellsWhetherThereIsOne) {
  EXPECT_EQ(call(NATIVE(findMember), java.outline(), "Jan"), JNI_TRUE);
  EXPECT_EQ(call(NATIVE(findMember), java.outline(), "Nowhere"), JNI_FALSE);
  EXPECT_EQ(call(NATIVE(findMember), java.outline(0), "Jan"), JNI_FALSE);
}

}  // namespace
