// Generation and level names, and dynamic time series.
#include "tests/native/native_test.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class GenLevelTest : public NativeTest {
 protected:
  template <typename Native>
  std::string names(Native native) {
    jobject list = java.list();
    EXPECT_EQ(on_outline(native, "Year", list), 0);
    EXPECT_EQ(live_strings, 0);
    return java.elements(list);
  }
  // Setters of the objects that a listing of all dimensions makes.
  template <typename Native>
  std::vector<std::string> defined(Native native, const std::string& receiver) {
    EXPECT_EQ(on_outline(native, java.list()), 0);
    return calls_of(receiver + '.');
  }
};

// ---- Generations and levels ----

TEST_F(GenLevelTest, PlainListsAskForOptionZeroAndExtendedOnesForOne) {
  EXPECT_EQ(names(NATIVE(getGenerations)), "[None, Years, Quarters]");
  EXPECT_EQ(names(NATIVE(getLevels)), "[Months, Quarter level]");
  EXPECT_THAT(api_calls(),
              ElementsAre("OlvOtlGetGenNames(outline, \"Year\", 0)", "OlvFree(inst, names)",
                          "OlvOtlGetLevelNames(outline, \"Year\", 0)", "OlvFree(inst, names)"));
  names(NATIVE(getActualGenerations));
  EXPECT_THAT(all_calls(), testing::AllOf(Contains("OlvOtlGetGenNamesEx(outline, \"Year\", 1)"),
                                          Contains("new GenerationOrLevel(0, \"None\")"),
                                          Contains("new GenerationOrLevel(1, \"Years\")"),
                                          Contains("new GenerationOrLevel(2, \"Quarters\")")));
  names(NATIVE(getActualLevels));
  EXPECT_THAT(all_calls(), testing::AllOf(Contains("OlvOtlGetLevelNamesEx(outline, \"Year\", 1)"),
                                          Contains("new GenerationOrLevel(0, \"Months\")")));
}

TEST_F(GenLevelTest, ListsOfAllDimensionsSkipGenerationZeroAndKeepLevelZero) {
  api().generations["Pack"] = {{3, "Sizes"}};
  const auto generations =
      ElementsAre("setDimension(\"Year\")", "setName(\"Years\")", "setNumber(1)",
                  "setDimension(\"Year\")", "setName(\"Quarters\")", "setNumber(2)",
                  "setDimension(\"Pack\")", "setName(\"Sizes\")", "setNumber(3)");
  EXPECT_THAT(defined(NATIVE(getAllGenerations), "DefinedGeneration"), generations);
  EXPECT_THAT(defined(NATIVE(getAllGenerationsQuery), "DefinedGeneration"), generations);
  const auto levels =
      ElementsAre("setDimension(\"Year\")", "setName(\"Months\")", "setNumber(0)",
                  "setDimension(\"Year\")", "setName(\"Quarter level\")", "setNumber(1)");
  EXPECT_THAT(defined(NATIVE(getAllLevels), "DefinedLevel"), levels);
  EXPECT_THAT(defined(NATIVE(getAllLevelsQuery), "DefinedLevel"), levels);
}

TEST_F(GenLevelTest, AWalkForgetsADimensionsFailureAndAQueryReportsTheLast) {
  jobject list = java.list();
  api().fail_function("OlvOtlGetGenNamesEx", 77);
  EXPECT_EQ(on_outline(NATIVE(getAllGenerations), list), 0);
  EXPECT_EQ(on_outline(NATIVE(getAllGenerationsQuery), list), 77);
  EXPECT_EQ(java.number(list, "size"), 0);
}

TEST_F(GenLevelTest, CreationAndDeletionPassUnsignedNumbers) {
  EXPECT_EQ(on_outline(NATIVE(createGeneration), "Year", "New", -1), 0);
  EXPECT_EQ(on_outline(NATIVE(createLevel), "Year", "New", 0), 0);
  EXPECT_EQ(on_outline(NATIVE(deleteGeneration), "Year", 2), 0);
  EXPECT_EQ(on_outline(NATIVE(deleteLevel), "Year", -2), 0);
  EXPECT_THAT(api_calls(), ElementsAre("OlvOtlSetGenName(outline, \"Year\", 65535, \"New\")",
                                       "OlvOtlSetLevelName(outline, \"Year\", 0, \"New\")",
                                       "OlvOtlDeleteGenName(outline, \"Year\", 2)",
                                       "OlvOtlDeleteLevelName(outline, \"Year\", 65534)"));
  EXPECT_EQ(on_outline(NATIVE(createGeneration), "", "New", 1), 0);
  EXPECT_EQ(on_outline(NATIVE(createLevel), "Year", "", 1), 0);
  EXPECT_EQ(on_outline(NATIVE(deleteGeneration), "", 1), 0);
  EXPECT_EQ(on_outline(NATIVE(deleteLevel), "", 1), 0);
  EXPECT_THAT(api_calls(), IsEmpty());
}

// ---- Dynamic time series ----

TEST_F(GenLevelTest, EnabledEntriesComeAsNames) {
  jobject list = java.list();
  EXPECT_EQ(on_outline(NATIVE(getDTSMembers), list), 0);
  EXPECT_EQ(java.elements(list), "[Y-T-D, Q-T-D]");
  EXPECT_EQ(live_strings, 0);
  api().time_series.clear();
  EXPECT_EQ(on_outline(NATIVE(getDTSMembers), list), 0);
  EXPECT_EQ(on_outline(NATIVE(getDTSMembersEx), list), 0);
  EXPECT_EQ(java.number(list, "size"), 2);
}

TEST_F(GenLevelTest, EnabledEntriesComeWithTheirAliases) {
  api().time_series.erase(api().time_series.begin());
  api().time_series[0].generation = -2;
  EXPECT_EQ(on_outline(NATIVE(getDTSMembersEx), java.list()), 0);
  EXPECT_EQ(live_strings, 0);
  EXPECT_THAT(
      java_calls(),
      ElementsAre("new DynamicTimeSeries()", "DynamicTimeSeries.setName(\"Q-T-D\")",
                  "DynamicTimeSeries.setGeneration(-2)", "DynamicTimeSeries.setEnabled(true)",
                  "DynamicTimeSeries.setAlias(\"Default\", \"\")",
                  "DynamicTimeSeries.setAlias(\"Long Names\", \"Quarter to date\")",
                  "DynamicTimeSeries.setAlias(\"Codes\", \"\")",
                  "ArrayList.add(DynamicTimeSeries)"));
  api().fail_function("OlvOtlGetDTSMemberAlias", 77, 3);
  EXPECT_EQ(on_outline(NATIVE(getDTSMembersEx), java.list()), 0);
  EXPECT_THAT(java_calls(), Not(Contains(HasSubstr("Codes"))));
}

TEST_F(GenLevelTest, EnablingDisablesTheSameEntryWhereverItStands) {
  EXPECT_EQ(on_outline(NATIVE(enableDTSMember), "Q-T-D", 3, JNI_TRUE), 0);
  EXPECT_EQ(on_outline(NATIVE(enableDTSMember), "New", 4, JNI_TRUE), 0);
  EXPECT_EQ(on_outline(NATIVE(enableDTSMember), "Y-T-D", 1, JNI_FALSE), 0);
  EXPECT_EQ(on_outline(NATIVE(enableDTSMember), "", 1, JNI_TRUE), 0);
  EXPECT_THAT(
      api_calls(),
      ElementsAre("OlvOtlGetEnabledDTSMembers(outline)",
                  "OlvOtlEnableDTSMember(outline, \"Q-T-D\", 2, 0)", "OlvFree(inst, time series)",
                  "OlvOtlEnableDTSMember(outline, \"Q-T-D\", 3, 1)",
                  "OlvOtlGetEnabledDTSMembers(outline)", "OlvFree(inst, time series)",
                  "OlvOtlEnableDTSMember(outline, \"New\", 4, 1)",
                  "OlvOtlEnableDTSMember(outline, \"Y-T-D\", 1, 0)"));
}

TEST_F(GenLevelTest, AliasCallsSwapTheirSecondAndThirdText) {
  EXPECT_EQ(on_outline(NATIVE(setDTSMemberAlias), "a", "b", "c"), 0);
  EXPECT_EQ(on_outline(NATIVE(setDTSMemberAlias), "", "b", "c"), 0);
  EXPECT_EQ(on_outline(NATIVE(setDTSMemberAlias), "a", "", "c"), 0);
  EXPECT_EQ(on_outline(NATIVE(setDTSMemberAlias), "a", "b", ""), 0);
  EXPECT_EQ(on_outline(NATIVE(deleteDTSMemberAlias), "a", "b"), 0);
  EXPECT_EQ(on_outline(NATIVE(deleteDTSMemberAlias), "a", ""), 0);
  EXPECT_THAT(api_calls(), ElementsAre("OlvOtlSetDTSMemberAlias(outline, \"a\", \"c\", \"b\")",
                                       "OlvOtlDeleteDTSMemberAlias(outline, \"a\", \"b\")"));
}

TEST_F(GenLevelTest, LatestMembersAreAskedForByPattern) {
  jobject list = java.list();
  EXPECT_EQ(on_outline(NATIVE(listDTSLatestMembers), "Year", list), 0);
  EXPECT_EQ(java.elements(list), "[Jan, Feb, Qtr2]");
  EXPECT_EQ(live_strings, 0);
  const std::vector<std::string> calls = api_calls();
  EXPECT_EQ(calls.front(),
            "OlvOtlQueryMembers(outline, address of dimension, {type=10 dimension=\"Year\" "
            "pattern1=\"lev0,Year\"}, {})");
  EXPECT_EQ(calls[2], "OlvFree(inst, member record)");
  api().fail_function("OlvOtlGetMemberInfo", 77, 2);
  jobject second = java.list();
  EXPECT_EQ(on_outline(NATIVE(listDTSLatestMembers), "Year", second), 77);
  EXPECT_EQ(java.elements(second), "[Jan]");
}

}  // namespace
