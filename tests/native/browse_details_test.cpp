// Member details (formulas, aliases, attributes, UDAs), singly and in blocks.
#include "bridge/bridge.h"
#include "tests/native/native_test.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class BrowseDetailsTest : public NativeTest {
 protected:
  template <typename Native>
  jint block(Native native, std::initializer_list<jobject> requests) {
    return on_outline(native, java.list(requests), list);
  }
  static std::string number(const char* name) {
    return std::to_string(static_cast<jint>(api().find(name)));
  }

  jobject list = java.list();
};

// ---- Formulas ----

TEST_F(BrowseDetailsTest, FormulaIsSentWhereThereIsOne) {
  jobject target = java.make("defs/outline/DefaultMember");
  EXPECT_EQ(on_outline(NATIVE(getMemberFormula), "Nowhere", java.handle("Sales"), target), 0);
  EXPECT_EQ(on_outline(NATIVE(getMemberFormula), "Costs", 0, target), 0);
  EXPECT_THAT(java_calls(), ElementsAre("DefaultMember.setFormula(\"Costs*2;\")"));
  EXPECT_EQ(on_outline(NATIVE(getMemberFormulaQuery), "Sales", target), 0);
  EXPECT_THAT(api_calls(),
              ElementsAre("OlvOtlQueryMembersByName(outline, null, {type=11 options=1 "
                          "pattern1=\"Sales\"}, {})",
                          "OlvOtlGetMemberFormula(outline, Sales)", "OlvFree(inst, formula)",
                          "OlvOtlFreeMembers(outline, 1, query result)"));
}

TEST_F(BrowseDetailsTest, QueryFormsWithoutANameAskNothing) {
  jobject target = java.make("defs/outline/DefaultMember");
  EXPECT_EQ(on_outline(NATIVE(getMemberFormulaQuery), "", target), 0);
  EXPECT_EQ(on_outline(NATIVE(getMemberAliasesQuery), "", list), 0);
  EXPECT_EQ(on_outline(NATIVE(getMemberAttributesQuery), ""), 0);
  EXPECT_EQ(on_outline(NATIVE(getMemberUDASQuery), "", list), 0);
  EXPECT_THAT(api_calls(), IsEmpty());
}

// ---- Aliases ----

TEST_F(BrowseDetailsTest, EveryTableGivesAnAliasObjectAndTheLastOneTheStatus) {
  EXPECT_EQ(on_outline(NATIVE(getMemberAliases), java.handle("Jan"), list), 0);
  EXPECT_THAT(java_calls(),
              ElementsAre("new MemberAlias()", "MemberAlias.setTableName(\"Default\")",
                          "MemberAlias.setAliasName(\"January\")", "ArrayList.add(MemberAlias)",
                          "new MemberAlias()", "MemberAlias.setTableName(\"Long Names\")",
                          "MemberAlias.setAliasName(\"The first month\")",
                          "ArrayList.add(MemberAlias)", "new MemberAlias()",
                          "MemberAlias.setTableName(\"Codes\")", "ArrayList.add(MemberAlias)"));
  api().fail_function("OlvOtlGetMemberAlias", 77, 3);
  EXPECT_EQ(on_outline(NATIVE(getMemberAliases), java.handle("Jan"), list), 77);
  EXPECT_EQ(java.number(list, "size"), 6);
}

TEST_F(BrowseDetailsTest, WithoutTablesNothingComes) {
  api().alias_tables.clear();
  EXPECT_EQ(on_outline(NATIVE(getMemberAliases), java.handle("Jan"), list), 0);
  EXPECT_EQ(block(NATIVE(getMemberAliasesBlock), {java.request("Jan")}), 0);
  EXPECT_THAT(java_calls(), IsEmpty());
}

TEST_F(BrowseDetailsTest, AliasesForOneTableSkipWhatIsNotFound) {
  jobject names = java.list(
      {java.text("Jan"), java.text(""), java.text("Nowhere"), nullptr, java.text("Year")});
  EXPECT_EQ(on_outline(NATIVE(getMemberAliasesForTable), "Long Names", names, list, JNI_FALSE), 0);
  EXPECT_EQ(java.number(list, "size"), 2);
  api_calls();
  EXPECT_EQ(on_outline(NATIVE(getMemberAliasesForTable), "Long Names",
                       java.list({java.text("Jan")}), list, JNI_TRUE),
            0);
  EXPECT_THAT(all_calls(), testing::AllOf(Contains("OlvOtlGetMemberAlias(outline, Jan, null)"),
                                          Contains("MemberAlias.setAliasName(\"January\")"),
                                          Not(Contains(HasSubstr("setTableName"))),
                                          Not(Contains("chars(\"Long Names\")"))));
}

// ---- Attributes ----

TEST_F(BrowseDetailsTest, AttributesGoBackAsAPlainBlock) {
  EXPECT_EQ(on_outline(NATIVE(getMemberAttributes), java.handle("Cola"), list), 0);
  EXPECT_THAT(all_calls(), ElementsAre(HasSubstr("InstanceHandle"), HasSubstr("OutlineHandle"),
                                       "OlvOtlGetMemberInfo(outline, Cola)",
                                       "OlvOtlGetAssociatedAttributes(outline, Cola)",
                                       "OlvOtlGetMemberInfo(outline, Can)", "new MemberAttribute()",
                                       "MemberAttribute.setDimension(\"Pack\")",
                                       "MemberAttribute.setMemberName(\"Can\")",
                                       "ArrayList.add(MemberAttribute)",
                                       "OlvOtlFreeStructure(outline, 1, 65, member record)",
                                       "OlvFree(inst, associated attributes)",
                                       "OlvOtlFreeStructure(outline, 1, 65, member record)"));
  EXPECT_EQ(on_outline(NATIVE(getMemberAttributes), java.handle("Tea"), list), 0);
  EXPECT_THAT(api_calls(), Not(Contains(HasSubstr("Associated"))));
}

TEST_F(BrowseDetailsTest, AttributeQueryAsksDimensionsWithValuesOfTheirOwn) {
  for (const char* name : {"Cola", "Product"}) {
    EXPECT_EQ(on_outline(NATIVE(getMemberAttributesQuery), name), 0);
  }
  EXPECT_THAT(api_calls(),
              testing::AllOf(Contains("OlvOtlQueryAttributes(outline, {usage=1 member=Cola "
                                      "input=5 output=9 operation=7})"),
                             Contains("OlvOtlQueryAttributes(outline, {usage=1 member=Product "
                                      "input=7 output=11 operation=7})")));
}

// ---- UDAs ----

TEST_F(BrowseDetailsTest, UdasAreReadEntryByEntry) {
  api().member("Cola").udas = {std::string(80, 'u'), "", "Sweet"};
  EXPECT_EQ(on_outline(NATIVE(getMemberUDAS), nullptr, java.handle("Cola"), list), 0);
  EXPECT_EQ(java.elements(list), '[' + std::string(80, 'u') + ", , Sweet]");
  jobject of_dimension = java.list();
  EXPECT_EQ(on_outline(NATIVE(getDimensionUDAS), "Product", 0, of_dimension), 0);
  EXPECT_EQ(java.elements(of_dimension), java.elements(list));
  EXPECT_THAT(api_calls(), Contains("OlvOtlGetDimensionUserAttributes(outline, {type=16 "
                                    "dimension=\"Product\"}, {})"));
}

TEST_F(BrowseDetailsTest, RecursiveUdasComeInPreOrderAndPassFailures) {
  api().member("Product").udas = {"Top"};
  api().member("Tea").udas = {"Cold"};
  JniProbe probe(env_);
  getDimensionUDASRecursive(&probe, 0, kOutline, kInst, api().find("Product"), list);
  EXPECT_EQ(java.elements(list), "[Top, Cold, Sweet, Cold]");
  jobject second = java.list();
  api().fail_call(1, 77);
  getDimensionUDASRecursive(&probe, 0, kOutline, kInst, api().find("Product"), second);
  EXPECT_EQ(java.elements(second), "[Cold, Sweet, Cold]");
  probe.finish();
}

// ---- Blocks ----

TEST_F(BrowseDetailsTest, BlockResultsCarryHandlesAndOnlyNamesThatWereGiven) {
  EXPECT_EQ(block(NATIVE(getMemberFormulaBlock),
                  {java.request(java.handle("Sales")), java.request("Nowhere"), java.request(""),
                   java.request("Costs")}),
            0);
  EXPECT_THAT(
      java_calls(),
      ElementsAre(
          "ArrayList.size()", "ArrayList.get(0)", "MemberRequest.getHandle()",
          "new MemberRequestResult()", "MemberRequestResult.setHandle(" + number("Sales") + ")",
          "MemberRequestResult.addData(\"Costs*2;\")", "ArrayList.add(MemberRequestResult)",
          "ArrayList.get(1)", "MemberRequest.getHandle()", "MemberRequest.getName()",
          "ArrayList.get(2)", "MemberRequest.getHandle()", "MemberRequest.getName()",
          "ArrayList.get(3)", "MemberRequest.getHandle()", "MemberRequest.getName()",
          "new MemberRequestResult()", "MemberRequestResult.setHandle(" + number("Costs") + ")",
          "MemberRequestResult.setName(\"Costs\")", "ArrayList.add(MemberRequestResult)"));
}

TEST_F(BrowseDetailsTest, BlockKeepsTheLookUpsStatusWhenNothingFollows) {
  EXPECT_EQ(block(NATIVE(getMemberUDASBlock), {java.request("Cola"), java.request("Nowhere")}),
            kNoSuchMember);
  EXPECT_EQ(java.number(list, "size"), 1);
}

TEST_F(BrowseDetailsTest, BlocksDifferInWhatMakesAResult) {
  const auto names = {java.request("Tea"), java.request("Cola")};
  EXPECT_EQ(block(NATIVE(getMemberAttributesBlock), names), 0);
  EXPECT_EQ(java.number(list, "size"), 1);
  EXPECT_THAT(java_calls(), Contains("MemberRequestResult.addData(MemberAttribute)"));
  EXPECT_EQ(block(NATIVE(getMemberUDASBlock), names), 0);
  EXPECT_EQ(java.number(list, "size"), 3);
  EXPECT_EQ(block(NATIVE(getMemberAliasesBlock), names), 0);
  EXPECT_EQ(java.number(list, "size"), 5);
  EXPECT_THAT(api_calls(), Contains("OlvOtlGetMemberAlias(outline, Cola, \"Codes\")"));
}

}  // namespace
