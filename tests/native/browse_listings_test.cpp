// Listings of dimensions and children, and the member objects that they are made of.
#include "bridge/bridge.h"
#include "tests/native/native_test.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class BrowseListingsTest : public NativeTest {
 protected:
  // The setters that one builder sends for a member, without the receiver's name.
  std::vector<std::string> setters(const char* name, bool cached) {
    journal().clear();
    JniProbe probe(env_);
    MemberInfoIDStruct ids;
    populateMemberInfoIDStruct(&probe, &ids);
    const HMember member = api().find(name);
    jobject object = cached ? CreateMemberObjectEx(&probe, kOutline, member, &ids)
                            : CreateMemberObject(&probe, kOutline, member);
    EXPECT_NE(object, nullptr);
    EXPECT_EQ(probe.live_strings(), 0);
    probe.finish();
    return calls_of("DefaultMember.");
  }

  static std::string number(const char* name) {
    return std::to_string(static_cast<jint>(api().find(name)));
  }

  jobject list = java.list();
};

// ---- Member objects ----

TEST_F(BrowseListingsTest, BothBuildersSendTheSameSettersInOrder) {
  MemberInfoRecord& info = api().member("Costs").info;
  info.shareOption = -3;
  info.attributeType = 4;
  info.dimensionCategory = kCategoryAccounts;
  const auto expected = ElementsAre(
      "setHoldExceptions(true)", "setHandle(" + number("Costs") + ")", "setName(\"Costs\")",
      "setDimensionName(\"Measures\")", "setDimensionHandle(" + number("Measures") + ")",
      "setGeneration(2)", "setConsolidation(1)", "setTwoPassCalculation(true)",
      "setCurrencyConversionType(3)", "setExpenseMember(true)", "setCurrencyMember(\"USD\")",
      "setTimeBalanceOption(2)", "setTimeBalanceSkipOption(3)", "setShare(-3)",
      "setDimensionCategory(1)", "setComment(\"What it costs\")", "setAttributeType(4)",
      "setHoldExceptions(false)");
  EXPECT_THAT(setters("Costs", false), expected);
  EXPECT_THAT(setters("Costs", true), expected);
}

TEST_F(BrowseListingsTest, OnlyTheCachedBuilderSendsAttributed) {
  api().member("Product").info.storageType = 0;
  const auto expected = [&](auto... attributed) {
    return ElementsAre("setHoldExceptions(true)", "setHandle(" + number("Product") + ")",
                       "setName(\"Product\")", "setDimensionName(\"Product\")",
                       "setDimensionHandle(" + number("Product") + ")", "setLevel(1)",
                       "setDimensionStorageType(0)", "setChildCount(2)", attributed...,
                       "setHasHybridDescendants(true)", "setHybridAnalysisEnabled(true)",
                       "setHoldExceptions(false)");
  };
  EXPECT_THAT(setters("Product", false), expected());
  EXPECT_THAT(setters("Product", true), expected("setAttributed(true)"));
}

TEST_F(BrowseListingsTest, HybridFlagsAreSentForDimensionsAndLeavesOnly) {
  const std::string descendants = "setHasHybridDescendants(true)";
  api().member("Qtr1").info.hybridFlag = 1;
  api().member("Feb").info.hybridFlag = 1;
  for (bool cached : {false, true}) {
    // The dimension is judged by its first leaf, Jan, only.
    EXPECT_THAT(setters("Year", cached), Not(Contains(descendants)));
    EXPECT_THAT(setters("Qtr1", cached), Not(Contains(descendants)));
    EXPECT_THAT(setters("Feb", cached), Contains(descendants));
    EXPECT_THAT(setters("Feb", cached), Not(Contains(HasSubstr("setLevel"))));
  }
  api().member("Jan").info.hybridFlag = 1;
  EXPECT_THAT(setters("Year", true), Contains(descendants));
  const HMember empty = api().add("Empty");
  EXPECT_THAT(setters("Empty", true), Not(Contains(descendants)));
  api().member(empty).info.hybridFlag = 1;
  EXPECT_THAT(setters("Empty", true), Contains(descendants));
}

TEST_F(BrowseListingsTest, BuildersRefuseNullRecordsAndCaches) {
  JniProbe probe(env_);
  MemberInfoIDStruct none = {};
  MemberInfoRecord info = api().member("Jan").info;
  EXPECT_EQ(CreateMemberObjectWithInfo(&probe, kOutline, kFirstMember, nullptr), nullptr);
  EXPECT_EQ(CreateMemberObjectWithInfoEx(&probe, kOutline, kFirstMember, &info, nullptr), nullptr);
  EXPECT_EQ(CreateMemberObjectWithInfoEx(&probe, kOutline, kFirstMember, &info, &none), nullptr);
  EXPECT_EQ(CreateMemberObject(&probe, kOutline, 0), nullptr);
  EXPECT_EQ(CreateMemberObjectEx(&probe, kOutline, 0, &none), nullptr);
  probe.finish();
  // A slot whose look-up failed leaves out one setter, no more.
  JniProbe second(env_);
  MemberInfoIDStruct ids;
  populateMemberInfoIDStruct(&second, &ids);
  ids.set_name = nullptr;
  EXPECT_NE(CreateMemberObjectEx(&second, kOutline, api().find("Qtr2"), &ids), nullptr);
  second.finish();
  const std::vector<std::string> calls = java_calls();
  EXPECT_THAT(calls, Not(Contains(HasSubstr("setName"))));
  EXPECT_EQ(calls.back(), "DefaultMember.setHoldExceptions(false)");
  EXPECT_EQ(calls.size(), 7u);
}

TEST_F(BrowseListingsTest, UnknownDimensionLeavesItsHandleOut) {
  api().fail_function("OlvOtlGetParent", 77);
  EXPECT_THAT(setters("Jan", true), Not(Contains(HasSubstr("setDimensionHandle"))));
}

TEST_F(BrowseListingsTest, MemberInfoSendsTheWholePropertySet) {
  jobject properties = java.make("defs/OutlineMemberProperties");
  EXPECT_EQ(call(NATIVE(getMemberInfo), java.outline(), "Costs", properties), 0);
  EXPECT_THAT(
      calls_of("OutlineMemberProperties."),
      ElementsAre("setName(\"Costs\")", "setLevel(0)", "setGeneration(2)", "setConsolidation(1)",
                  "setTwoPass(true)", "setExpense(true)", "setConversion(3)",
                  "setCurrencyMember(\"USD\")", "setTimeBalance(2)", "setSkip(3)", "setShare(0)",
                  "setStorage(0)", "setCategory(0)", "setStorageCategory(4)",
                  "setComment(\"What it costs\")", "setChildCount(0)", "setDimension(\"Measures\")",
                  "setAttributes(false)"));
  EXPECT_EQ(call(NATIVE(getMemberInfo), java.outline(), "Nowhere", properties), 0);
  EXPECT_THAT(api_calls(), ElementsAre("OlvOtlQueryMembers(outline, 0, {type=11 options=1 "
                                       "pattern1=\"Nowhere\"}, {})",
                                       "OlvOtlFreeMembers(outline, 0, query result)"));
}

TEST_F(BrowseListingsTest, ChildCountsAboveTheSignedRangeStayPositive) {
  api().member("Jan").info.childCount = 0xFFFFFFFF;
  EXPECT_THAT(setters("Jan", true), Contains("setChildCount(4294967295)"));
  EXPECT_EQ(on_outline(NATIVE(getMemberChildCount), "Jan", 0, list), 0);
  EXPECT_EQ(java.elements(list), "[4294967295]");
}

// ---- Names ----

TEST_F(BrowseListingsTest, NamesOfDimensionsAndChildren) {
  EXPECT_EQ(call(NATIVE(getDimensions), java.outline(), list), 0);
  EXPECT_EQ(live_strings, 0);
  EXPECT_EQ(call(NATIVE(getChildrenFor), java.outline(), "Year", "Qtr1", list), 0);
  EXPECT_EQ(java.elements(list), "[Year, Measures, Product, Pack, Jan, Feb]");
  EXPECT_THAT(api_calls(),
              testing::AllOf(Contains("OlvOtlQueryMembers(outline, 0, {type=1}, {})"),
                             Contains("OlvOtlQueryMembersByName(outline, \"Qtr1\", {type=1 "
                                      "dimension=\"Year\"}, {})")));
}

TEST_F(BrowseListingsTest, AQueryThatFindsNothingAddsNothing) {
  EXPECT_EQ(call(NATIVE(getChildrenFor), java.outline(), "Year", "Jan", list), 0);
  EXPECT_EQ(call(NATIVE(getChildrenFor), java.outline(), "Year", "Nowhere", list), kNoSuchMember);
  EXPECT_EQ(java.elements(list), "[]");
}

TEST_F(BrowseListingsTest, UnreadableMembersAreSkippedAndTheLastReadDecides) {
  api().fail_function("OlvOtlGetMemberInfo", 77, 4);
  EXPECT_EQ(call(NATIVE(getDimensions), java.outline(), list), 77);
  EXPECT_EQ(java.elements(list), "[Year, Measures, Product]");
  // The third call of the next listing fails alone: the last read succeeds.
  api().fail_function("OlvOtlGetMemberInfo", 0);
  jobject second = java.list();
  api().fail_call(2, 77);
  EXPECT_EQ(call(NATIVE(getDimensions), java.outline(), second), 0);
  EXPECT_EQ(java.elements(second), "[Measures, Product, Pack]");
}

TEST_F(BrowseListingsTest, AliasTextsAreQuotedPieces) {
  EXPECT_EQ(on_outline(NATIVE(getDimensionsAlias), "Default", list), 0);
  EXPECT_EQ(live_strings, 0);
  EXPECT_EQ(java.elements(list),
            "[\"Year\"\"Calendar\"\"Time\", \"Measures\"\"\"\"\", \"Product\"\"\"\"\", "
            "\"Pack\"\"\"\"\"]");
  jobject children = java.list();
  EXPECT_EQ(on_outline(NATIVE(getChildrenAliasFor), "Year", "Qtr1", "Long Names", children), 0);
  EXPECT_EQ(java.elements(children), "[\"Jan\"\"The first month\", \"Feb\"\"\"]");
}

TEST_F(BrowseListingsTest, AliasTextsWithoutATableAskForNoAlias) {
  EXPECT_EQ(on_outline(NATIVE(getDimensionsAlias), nullptr, list), 0);
  EXPECT_THAT(api_calls(), Not(Contains(HasSubstr("Alias"))));
  EXPECT_THAT(java.elements(list), HasSubstr("\"Year\"\"\"\"Time\""));
  // A table that does not exist is no failure of the listing.
  EXPECT_EQ(on_outline(NATIVE(getDimensionsAlias), "None", java.list()), 0);
}

// ---- Properties ----

TEST_F(BrowseListingsTest, PropertiesListingPassesStartAndCountAndAddsAttributesAndAlias) {
  api().member("Cola").aliases["Default"] = "Coke";
  EXPECT_EQ(on_outline(NATIVE(getChildrenWithProperties), "Product", "Product", jlong{0x500000000},
                       1, list),
            0);
  EXPECT_THAT(
      api_calls(),
      ElementsAre("OlvOtlQueryMembersByName(outline, \"Product\", {type=1 dimension=\"Product\"}, "
                  "{max=1})",
                  "OlvOtlGetMemberInfo(outline, Cola)",
                  "OlvOtlQueryAttributes(outline, {usage=1 member=Cola input=5 output=9 "
                  "operation=7})",
                  "OlvOtlGetMemberInfo(outline, Can)",
                  "OlvOtlFreeStructure(outline, 1, 65, member record)",
                  "OlvOtlFreeMembers(outline, 1, attribute query result)",
                  "OlvOtlGetMemberAlias(outline, Cola, null)", "OlvFree(inst, alias)",
                  "OlvOtlFreeStructure(outline, 1, 65, member record)",
                  "OlvOtlFreeMembers(outline, 1, query result)"));
  EXPECT_EQ(live_strings, 0);
  EXPECT_EQ(on_outline(NATIVE(getChildrenWithProperties), "Product", "Product", jlong{0}, 1, list),
            0);
  EXPECT_THAT(java_calls(), Contains("Hashtable.put(\"Pack\", \"Can\")"));
  EXPECT_EQ(on_outline(NATIVE(getChildrenWithProperties), "Product", "Product", jlong{1}, 0, list),
            0);
  const std::vector<std::string> calls = java_calls();
  EXPECT_EQ(calls.front(), "new OutlineMemberProperties()");
  EXPECT_EQ(calls[1], "OutlineMemberProperties.setName(\"Tea\")");
  EXPECT_EQ(calls[calls.size() - 2], "OutlineMemberProperties.setAttributeType(0)");
  EXPECT_EQ(calls.back(), "ArrayList.add(OutlineMemberProperties)");
}

// ---- Member objects in listings ----

TEST_F(BrowseListingsTest, WalkedListingsKeepHandlesAndQueriedOnesDoNot) {
  EXPECT_EQ(on_outline(NATIVE(getChildrenEx), nullptr, java.handle("Qtr1"), list), 0);
  EXPECT_THAT(java_calls(), Contains("DefaultMember.setHandle(" + number("Jan") + ")"));
  EXPECT_EQ(call(NATIVE(getChildrenExQuery), java.outline(), "Year", "Qtr1", list), 0);
  const std::vector<std::string> calls = java_calls();
  EXPECT_EQ(calls[calls.size() - 2], "DefaultMember.setHandle(0)");
  EXPECT_EQ(calls.back(), "ArrayList.add(DefaultMember)");
}

TEST_F(BrowseListingsTest, ChildrenAreWalkedFromTheGivenHandleOrTheName) {
  const auto children = [&](const char* name, jint handle) {
    return on_outline(NATIVE(getChildrenEx), name, handle, java.list());
  };
  EXPECT_EQ(children("Nowhere", java.handle("Pack")), 0);
  EXPECT_THAT(api_calls(), Not(Contains(HasSubstr("FindMember"))));
  EXPECT_EQ(children("", 0), 0);
  EXPECT_THAT(api_calls(), IsEmpty());
  EXPECT_EQ(children("Nowhere", 0), kNoSuchMember);
  EXPECT_THAT(api_calls(), ElementsAre("OlvOtlFindMember(outline, \"Nowhere\")"));
  EXPECT_EQ(children("Measures", 0), 0);
  EXPECT_THAT(
      api_calls(),
      ElementsAre("OlvOtlFindMember(outline, \"Measures\")", "OlvOtlGetChild(outline, Measures)",
                  "OlvOtlGetMemberInfo(outline, Sales)", "OlvOtlGetParent(outline, Sales)",
                  "OlvOtlGetParent(outline, Measures)",
                  "OlvOtlFreeStructure(outline, 1, 65, member record)",
                  "OlvOtlGetNextSibling(outline, Sales)", "OlvOtlGetMemberInfo(outline, Costs)",
                  "OlvOtlGetParent(outline, Costs)", "OlvOtlGetParent(outline, Measures)",
                  "OlvOtlFreeStructure(outline, 1, 65, member record)",
                  "OlvOtlGetNextSibling(outline, Costs)"));
}

TEST_F(BrowseListingsTest, ListingsLookTheClassUpOncePerCall) {
  for (int i = 0; i < 50; ++i) api().add("Child" + std::to_string(i), api().find("Qtr2"));
  JniProbe probe(env_);
  NATIVE(getChildrenEx)
  (&probe, nullptr, java.instance(), java.outline(), nullptr, java.handle("Qtr2"), list);
  EXPECT_EQ(probe.find_class_calls, 1);
  EXPECT_EQ(probe.new_object_calls, 50);
  // 24 of the class, getValue, and one add per member.
  EXPECT_EQ(probe.get_method_id_calls, 24 + 1 + 50);
  EXPECT_EQ(probe.live_strings(), 0);
  probe.finish();
}

TEST_F(BrowseListingsTest, FailedWalksKeepWhatWasAdded) {
  api().fail_function("OlvOtlGetNextSibling", 77, 2);
  EXPECT_EQ(on_outline(NATIVE(getDimensionsEx), list), 77);
  EXPECT_EQ(java.number(list, "size"), 2);
}

// ---- Relatives ----

TEST_F(BrowseListingsTest, AncestorsComeNearestFirst) {
  EXPECT_EQ(on_outline(NATIVE(getMemberAncestors), "Jan", 0, list), 0);
  EXPECT_THAT(calls_of("DefaultMember.setName("), ElementsAre("\"Qtr1\")", "\"Year\")"));
  EXPECT_EQ(on_outline(NATIVE(getMemberAncestors), nullptr, java.handle("Pack"), java.list()), 0);
  EXPECT_THAT(java_calls(), IsEmpty());
}

TEST_F(BrowseListingsTest, LevelAndChildCountAreBoxed) {
  EXPECT_EQ(on_outline(NATIVE(getMemberLevel), "Year", 0, list), 0);
  EXPECT_EQ(on_outline(NATIVE(getMemberChildCount), "Jan", 0, list), 0);
  EXPECT_THAT(java_calls(), ElementsAre("new Short(2)", "ArrayList.add(Short 2)", "new Long(0)",
                                        "ArrayList.add(Long 0)"));
}

}  // namespace
