// Batched find requests and the member path search.
#include "bridge/bridge.h"
#include "tests/native/native_test.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class FindTest : public NativeTest {
 protected:
  void set_int(const char* setter, jint value) { java.set(request, setter, "(I)V", value); }
  void set_short(const char* setter, jshort value) { java.set(request, setter, "(S)V", value); }
  void set_flag(const char* setter, bool on) {
    java.set(request, setter, "(Z)V", static_cast<jboolean>(on));
  }
  void set_text(const char* setter, const char* text) {
    java.set(request, setter, "(Ljava/lang/String;)V", java.text(text));
  }
  void set_sources(bool names, bool udas, bool formulas) {
    set_flag("setSearchMemberNames", names);
    set_flag("setSearchUDAS", udas);
    set_flag("setSearchFormulas", formulas);
  }
  // Runs one batch and gives the names of the members it found.
  std::vector<std::string> find() {
    journal().clear();
    EXPECT_EQ(on_outline(NATIVE(findRequest), request, java.list()), 0);
    std::vector<std::string> names =
        rests(journal().lines(Entry::kJava), "DefaultMember.setName(\"");
    for (std::string& name : names) name.resize(name.size() - 2);
    return names;
  }
  std::string progress() {
    const jint last = java.number(request, "getLastHandle");
    return api().name_of(static_cast<HMember>(last)) + ' ' +
           std::to_string(java.number(request, "getMembersProcessed")) + ' ' +
           std::to_string(java.number(request, "getMatchesFound"));
  }

  jobject request = java.make("api/outline/FindRequest");
};

TEST_F(FindTest, PropertiesAreReadInOrderAndProgressWrittenAtTheEnd) {
  set_text("setText", "nowhere");
  find();
  std::vector<std::string> calls = java_calls();
  for (std::string& line : calls) line = line.substr(line.find('.') + 1);
  EXPECT_THAT(
      calls,
      ElementsAre("getDimensionScope()", "getAliasTableUsage()", "getMatchWordsOnly()",
                  "getMatchCaseOnly()", "getSearchMemberNames()", "getSearchFormulas()",
                  "getSearchUDAS()", "getMatchesFound()", "getMembersProcessed()", "getText()",
                  "getDimensionName()", "getAliasTable()", "getMaximumMatchesPerBatch()",
                  "getMaximumMatchesTotal()", "getMaximumMembersPerBatch()", "getLastHandle()",
                  "setLastHandle(0)", "setMembersProcessed(14)", "setMatchesFound(0)"));
}

TEST_F(FindTest, TheWholeOutlineIsWalkedInPreOrder) {
  set_text("setText", "a");
  EXPECT_THAT(find(),
              ElementsAre("Year", "Jan", "Measures", "Sales", "Cola", "Tea", "Pack", "Can"));
  EXPECT_EQ(progress(), "0 14 8");
  set_flag("setMatchCaseOnly", true);
  set_text("setText", "T");
  EXPECT_THAT(find(), ElementsAre("Tea"));
}

TEST_F(FindTest, OneDimensionIsWalkedFromItselfToItsEnd) {
  set_short("setDimensionScope", 1);
  set_text("setDimensionName", "Year");
  set_text("setText", "r");
  EXPECT_THAT(find(), ElementsAre("Year", "Qtr1", "Qtr2"));
  EXPECT_EQ(progress(), "0 5 3");
  set_text("setDimensionName", "Nowhere");
  EXPECT_THAT(find(), IsEmpty());
  set_text("setDimensionName", "");
  EXPECT_THAT(find(), IsEmpty());
}

TEST_F(FindTest, BatchesStopRightBehindTheirLastMatchAndGoOnThere) {
  set_text("setText", "q");
  set_int("setMaximumMatchesPerBatch", 1);
  EXPECT_THAT(find(), ElementsAre("Qtr1"));
  EXPECT_EQ(progress(), "Qtr1 2 1");
  EXPECT_THAT(find(), ElementsAre("Qtr2"));
  EXPECT_EQ(progress(), "Qtr2 5 2");
  EXPECT_THAT(find(), IsEmpty());
  EXPECT_EQ(progress(), "0 14 2");
  EXPECT_THAT(find(), ElementsAre("Qtr1"));
}

TEST_F(FindTest, LimitsOfMembersAndOfAllMatches) {
  set_text("setText", "q");
  set_int("setMaximumMembersPerBatch", 3);
  EXPECT_THAT(find(), ElementsAre("Qtr1"));
  EXPECT_EQ(progress(), "Jan 3 1");
  set_int("setMaximumMembersPerBatch", 100);
  set_int("setMaximumMatchesTotal", 2);
  EXPECT_THAT(find(), ElementsAre("Qtr2"));
  EXPECT_EQ(progress(), "Qtr2 5 2");
  for (const char* limit : {"setMaximumMatchesPerBatch", "setMaximumMembersPerBatch"}) {
    set_int("setLastHandle", 0);
    set_int(limit, -1);
    find();
    EXPECT_THAT(progress(), testing::StartsWith("Year "));
    set_int(limit, 100);
  }
}

TEST_F(FindTest, AnEmptyTextVisitsAndCountsButMatchesNothing) {
  set_text("setText", "");
  EXPECT_THAT(find(), IsEmpty());
  EXPECT_EQ(progress(), "0 14 0");
}

TEST_F(FindTest, SourcesAreTriedInOrderUntilOneMatches) {
  set_sources(true, true, true);
  set_short("setAliasTableUsage", 1);
  set_text("setText", "nothing");
  set_int("setMaximumMembersPerBatch", 1);
  set_int("setLastHandle", java.handle("Qtr1"));
  find();
  EXPECT_THAT(api_calls(),
              ElementsAre("OlvOtlGetOutlineInfo(outline)", "OlvOtlGetChild(outline, Qtr1)",
                          "OlvOtlGetMemberInfo(outline, Jan)",
                          "OlvOtlGetMemberAlias(outline, Jan, \"Default\")", "OlvFree(inst, alias)",
                          "OlvOtlGetMemberAlias(outline, Jan, \"Long Names\")",
                          "OlvFree(inst, alias)", "OlvOtlGetMemberAlias(outline, Jan, \"Codes\")",
                          "OlvOtlGetUserAttributes(outline, Jan)", "OlvFree(inst, UDAs)",
                          "OlvOtlGetMemberFormula(outline, Jan)",
                          "OlvOtlFreeStructure(outline, 1, 65, member record)",
                          "OlvFree(inst, outline info)"));
  // A match by name asks for nothing else.
  set_text("setText", "JAN");
  set_int("setLastHandle", java.handle("Qtr1"));
  EXPECT_THAT(find(), ElementsAre("Jan"));
  EXPECT_THAT(api_calls(), Not(Contains(testing::ContainsRegex("Alias|UserAttr|Formula"))));
}

TEST_F(FindTest, AliasesAreSearchedInOneTableOrInAll) {
  set_sources(false, false, false);
  set_text("setText", "first");
  EXPECT_THAT(find(), IsEmpty());
  set_short("setAliasTableUsage", 1);
  EXPECT_THAT(find(), ElementsAre("Jan"));
  set_short("setAliasTableUsage", 2);
  set_text("setAliasTable", "Long Names");
  EXPECT_THAT(find(), ElementsAre("Jan"));
  EXPECT_THAT(api_calls(), Not(Contains(HasSubstr("\"Default\""))));
  set_text("setAliasTable", "Default");
  EXPECT_THAT(find(), IsEmpty());
  set_text("setAliasTable", "");
  EXPECT_THAT(find(), IsEmpty());
  EXPECT_THAT(api_calls(), Not(Contains(HasSubstr("Alias"))));
}

TEST_F(FindTest, FormulasHaveWordBoundariesOfTheirOwn) {
  set_sources(false, false, true);
  set_flag("setMatchWordsOnly", true);
  api().member("Sales").formula = "Sales+Costs;";
  set_text("setText", "costs");
  EXPECT_THAT(find(), ElementsAre("Sales"));
  api().member("Sales").formula = "Sales+Costs*2;";
  EXPECT_THAT(find(), IsEmpty());
  set_sources(true, true, false);
  api().member("Cola").udas = {"A-Costs"};
  EXPECT_THAT(find(), ElementsAre("Costs"));
}

TEST_F(FindTest, AMemberThatMatchesTwiceIsAddedOnce) {
  set_sources(true, false, true);
  api().member("Costs").formula = "Costs;";
  set_text("setText", "costs");
  EXPECT_THAT(find(), ElementsAre("Sales", "Costs"));
}

TEST_F(FindTest, AMatchThatCannotBeBuiltIsNotCounted) {
  set_sources(false, true, false);
  set_text("setText", "cold");
  api().fail_function("OlvOtlGetMemberInfo", 77);
  EXPECT_THAT(find(), IsEmpty());
  EXPECT_EQ(progress(), "0 14 0");
}

// ---- Paths ----

class PathTest : public NativeTest {
 protected:
  // The paths found, each as its names joined with slashes.
  std::vector<std::string> paths(const char* text, const char* table = nullptr,
                                 bool match_case = false, bool whole_word = false) {
    journal().clear();
    status = call(NATIVE(findMemberQuery), java.outline(), text, table, match_case, whole_word,
                  java.list());
    std::vector<std::string> found;
    std::string path;
    for (const std::string& line : journal().lines(Entry::kJava)) {
      const std::string prefix = "MemberPath.addParent(\"";
      if (line.rfind(prefix, 0) == 0) {
        path += '/' + line.substr(prefix.size(), line.size() - prefix.size() - 2);
      } else if (line == "ArrayList.add(MemberPath)") {
        found.push_back(path);
        path.clear();
      }
    }
    return found;
  }

  jint status = 0;
};

TEST_F(PathTest, PathsLeadFromTheMemberToItsDimensionInPreOrder) {
  EXPECT_THAT(paths("a"), ElementsAre("/Year", "/Jan/Qtr1/Year", "/Measures", "/Sales/Measures",
                                      "/Cola/Product", "/Tea/Product", "/Pack", "/Can/Pack"));
  EXPECT_EQ(status, 0);
  EXPECT_THAT(paths("a", nullptr, true, true), IsEmpty());
  EXPECT_THAT(paths("Jan", nullptr, true, true), ElementsAre("/Jan/Qtr1/Year"));
  EXPECT_THAT(paths("jan", nullptr, true), IsEmpty());
}

TEST_F(PathTest, AMemberWithAnAliasIsMatchedOnItAlone) {
  EXPECT_THAT(paths("year", "Default"), IsEmpty());
  EXPECT_THAT(paths("calendar", "Default"), ElementsAre("/Year"));
  EXPECT_THAT(paths("feb", "Default"), ElementsAre("/Feb/Qtr1/Year"));
  api().member("Feb").aliases["Default"] = "";
  EXPECT_THAT(paths("feb", "Default"), ElementsAre("/Feb/Qtr1/Year"));
  // A table that does not exist leaves the names.
  EXPECT_THAT(paths("year", "None"), ElementsAre("/Year"));
  EXPECT_THAT(paths("year", ""), ElementsAre("/Year"));
  EXPECT_THAT(api_calls(), Not(Contains(HasSubstr("Alias"))));
}

TEST_F(PathTest, AnEmptyTextSearchesNothing) {
  EXPECT_THAT(paths(""), IsEmpty());
  EXPECT_THAT(api_calls(), IsEmpty());
}

TEST_F(PathTest, QueriesAskForNames) {
  EXPECT_THAT(paths("Qtr2"), ElementsAre("/Qtr2/Year"));
  const std::vector<std::string> calls = api_calls();
  EXPECT_THAT(calls, Contains("OlvOtlQueryMembers(outline, 0, {type=1 options=1}, {})"));
  EXPECT_THAT(calls, Contains("OlvOtlQueryMembers(outline, Qtr2, {type=7 options=1}, {})"));
  EXPECT_THAT(calls, Contains("OlvOtlQueryMembers(outline, Qtr2, {type=1 options=1}, {})"));
}

TEST_F(PathTest, AnUnreadableMemberIsSkippedWithItsSubtree) {
  api().fail_call(2, 77);  // the record of Year
  EXPECT_THAT(paths("a"), ElementsAre("/Measures", "/Sales/Measures", "/Cola/Product",
                                      "/Tea/Product", "/Pack", "/Can/Pack"));
  EXPECT_EQ(status, 0);
  EXPECT_THAT(api_calls(), Not(Contains(HasSubstr("outline, Qtr1"))));
}

TEST_F(PathTest, APathThatCannotBeReadIsNotAdded) {
  JniProbe probe(env_);
  api().fail_function("OlvOtlGetMemberInfo", 77, 2);
  EXPECT_EQ(CallCreateMemberPath(&probe, kOutline, api().find("Jan")), nullptr);
  probe.finish();
}

}  // namespace
