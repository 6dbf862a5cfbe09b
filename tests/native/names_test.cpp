// Generation and level names, and dynamic time series.
#include "tests/native/native_test.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class NamesTest : public NativeTest {
 protected:
  template <typename Native>
  std::string names(Native native) {
    jobject list = java.list();
    EXPECT_EQ(call(native, java.instance(), java.outline(), java.text("Year"), list), 0);
    EXPECT_EQ(live_strings, 0);
    return java.elements(list);
  }
  // Setters of the objects that a listing of all dimensions makes.
  template <typename Native>
  std::vector<std::string> defined(Native native) {
    EXPECT_EQ(call(native, java.instance(), java.outline(), java.list()), 0);
    std::vector<std::string> setters;
    for (const std::string& line : java_calls()) {
      if (line.find(".set") != std::string::npos) setters.push_back(line);
    }
    return setters;
  }
  jint enable(const char* name, jshort generation, jboolean on) {
    return call(NATIVE(enableDTSMember), java.instance(), java.outline(), java.text(name),
                generation, on);
  }
};

// ---- Generations and levels ----

TEST_F(NamesTest, PlainListsAskForOptionZeroAndExtendedOnesForOne) {
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

TEST_F(NamesTest, ListsOfAllDimensionsSkipGenerationZeroAndKeepLevelZero) {
  api().generations["Pack"] = {{3, "Sizes"}};
  const std::vector<std::string> generations = {"DefinedGeneration.setDimension(\"Year\")",
                                                "DefinedGeneration.setName(\"Years\")",
                                                "DefinedGeneration.setNumber(1)",
                                                "DefinedGeneration.setDimension(\"Year\")",
                                                "DefinedGeneration.setName(\"Quarters\")",
                                                "DefinedGeneration.setNumber(2)",
                                                "DefinedGeneration.setDimension(\"Pack\")",
                                                "DefinedGeneration.setName(\"Sizes\")",
                                                "DefinedGeneration.setNumber(3)"};
  EXPECT_EQ(defined(NATIVE(getAllGenerations)), generations);
  EXPECT_EQ(defined(NATIVE(getAllGenerationsQuery)), generations);
  const std::vector<std::string> levels = {"DefinedLevel.setDimension(\"Year\")",
                                           "DefinedLevel.setName(\"Months\")",
                                           "DefinedLevel.setNumber(0)",
                                           "DefinedLevel.setDimension(\"Year\")",
                                           "DefinedLevel.setName(\"Quarter level\")",
                                           "DefinedLevel.setNumber(1)"};
  EXPECT_EQ(defined(NATIVE(getAllLevels)), levels);
  EXPECT_EQ(defined(NATIVE(getAllLevelsQuery)), levels);
}

TEST_F(NamesTest, AWalkForgetsADimensionsFailureAndAQueryReportsTheLast) {
  jobject list = java.list();
  api().fail_function("OlvOtlGetGenNamesEx", 77);
  EXPECT_EQ(call(NATIVE(getAllGenerations), java.instance(), java.outline(), list), 0);
  EXPECT_EQ(call(NATIVE(getAllGenerationsQuery), java.instance(), java.outline(), list), 77);
  EXPECT_EQ(java.number(list, "size"), 0);
}

TEST_F(NamesTest, CreationAndDeletionPassUnsignedNumbers) {
  jobject inst = java.instance();
  jobject outline = java.outline();
  jstring year = java.text("Year");
  EXPECT_EQ(call(NATIVE(createGeneration), inst, outline, year, java.text("New"), -1), 0);
  EXPECT_EQ(call(NATIVE(createLevel), inst, outline, year, java.text("New"), 0), 0);
  EXPECT_EQ(call(NATIVE(deleteGeneration), inst, outline, year, 2), 0);
  EXPECT_EQ(call(NATIVE(deleteLevel), inst, outline, year, -2), 0);
  EXPECT_THAT(api_calls(), ElementsAre("OlvOtlSetGenName(outline, \"Year\", 65535, \"New\")",
                                       "OlvOtlSetLevelName(outline, \"Year\", 0, \"New\")",
                                       "OlvOtlDeleteGenName(outline, \"Year\", 2)",
                                       "OlvOtlDeleteLevelName(outline, \"Year\", 65534)"));
  jstring empty = java.text("");
  EXPECT_EQ(call(NATIVE(createGeneration), inst, outline, empty, year, 1), 0);
  EXPECT_EQ(call(NATIVE(createLevel), inst, outline, year, empty, 1), 0);
  EXPECT_EQ(call(NATIVE(deleteGeneration), inst, outline, empty, 1), 0);
  EXPECT_EQ(call(NATIVE(deleteLevel), inst, outline, empty, 1), 0);
  EXPECT_THAT(api_calls(), IsEmpty());
}

// ---- Dynamic time series ----

TEST_F(NamesTest, EnabledEntriesComeAsNames) {
  jobject list = java.list();
  EXPECT_EQ(call(NATIVE(getDTSMembers), java.instance(), java.outline(), list), 0);
  EXPECT_EQ(java.elements(list), "[Y-T-D, Q-T-D]");
  EXPECT_EQ(live_strings, 0);
  api().time_series.clear();
  EXPECT_EQ(call(NATIVE(getDTSMembers), java.instance(), java.outline(), list), 0);
  EXPECT_EQ(call(NATIVE(getDTSMembersEx), java.instance(), java.outline(), list), 0);
  EXPECT_EQ(java.number(list, "size"), 2);
}

TEST_F(NamesTest, EnabledEntriesComeWithTheirAliases) {
  api().time_series.erase(api().time_series.begin());
  api().time_series[0].generation = -2;
  EXPECT_EQ(call(NATIVE(getDTSMembersEx), java.instance(), java.outline(), java.list()), 0);
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
  EXPECT_EQ(call(NATIVE(getDTSMembersEx), java.instance(), java.outline(), java.list()), 0);
  EXPECT_THAT(java_calls(), Not(Contains(HasSubstr("Codes"))));
}

TEST_F(NamesTest, EnablingDisablesTheSameEntryWhereverItStands) {
  EXPECT_EQ(enable("Q-T-D", 3, JNI_TRUE), 0);
  EXPECT_EQ(enable("New", 4, JNI_TRUE), 0);
  EXPECT_EQ(enable("Y-T-D", 1, JNI_FALSE), 0);
  EXPECT_EQ(enable("", 1, JNI_TRUE), 0);
  EXPECT_THAT(
      api_calls(),
      ElementsAre("OlvOtlGetEnabledDTSMembers(outline)",
                  "OlvOtlEnableDTSMember(outline, \"Q-T-D\", 2, 0)", "OlvFree(inst, time series)",
                  "OlvOtlEnableDTSMember(outline, \"Q-T-D\", 3, 1)",
                  "OlvOtlGetEnabledDTSMembers(outline)", "OlvFree(inst, time series)",
                  "OlvOtlEnableDTSMember(outline, \"New\", 4, 1)",
                  "OlvOtlEnableDTSMember(outline, \"Y-T-D\", 1, 0)"));
}

TEST_F(NamesTest, AliasCallsSwapTheirSecondAndThirdText) {
  const auto set = [&](const char* first, const char* second, const char* third) {
    return call(NATIVE(setDTSMemberAlias), java.instance(), java.outline(), java.text(first),
                java.text(second), java.text(third));
  };
  EXPECT_EQ(set("a", "b", "c"), 0);
  EXPECT_EQ(set("", "b", "c"), 0);
  EXPECT_EQ(set("a", "", "c"), 0);
  EXPECT_EQ(set("a", "b", ""), 0);
  EXPECT_EQ(call(NATIVE(deleteDTSMemberAlias), java.instance(), java.outline(), java.text("a"),
                 java.text("b")),
            0);
  EXPECT_EQ(call(NATIVE(deleteDTSMemberAlias), java.instance(), java.outline(), java.text("a"),
                 java.text("")),
            0);
  EXPECT_THAT(api_calls(), ElementsAre("OlvOtlSetDTSMemberAlias(outline, \"a\", \"c\", \"b\")",
                                       "OlvOtlDeleteDTSMemberAlias(outline, \"a\", \"b\")"));
}

TEST_F(NamesTest, LatestMembersAreAskedForByPattern) {
  jobject list = java.list();
  EXPECT_EQ(
      call(NATIVE(listDTSLatestMembers), java.instance(), java.outline(), java.text("Year"), list),
      0);
  EXPECT_EQ(java.elements(list), "[Jan, Feb, Qtr2]");
  EXPECT_EQ(live_strings, 0);
  const std::vector<std::string> calls = api_calls();
  EXPECT_EQ(calls.front(),
            "OlvOtlQueryMembers(outline, address of dimension, {type=10 dimension=\"Year\" "
            "pattern1=\"lev0,Year\"}, {})");
  EXPECT_EQ(calls[2], "OlvFree(inst, member record)");
  api().fail_function("OlvOtlGetMemberInfo", 77, 2);
  jobject second = java.list();
  EXPECT_EQ(call(NATIVE(listDTSLatestMembers), java.instance(), java.outline(), java.text("Year"),
                 second),
            77);
  EXPECT_EQ(java.elements(second), "[Jan]");
}

TEST_F(NamesTest, LatestMembersOfALongDimensionName) {
  const std::string name(1000, 'n');
  EXPECT_EQ(call(NATIVE(listDTSLatestMembers), java.instance(), java.outline(),
                 java.text(name.c_str()), java.list()),
            0);
  EXPECT_THAT(api_calls().front(), HasSubstr("pattern1=\"lev0," + name + '"'));
}

}  // namespace
