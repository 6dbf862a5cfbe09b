// Copies of members and subtrees, in batches.
#include "bridge/bridge.h"
#include "tests/native/native_test.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class EditCopyTest : public NativeTest {
 protected:
  jint copy(const char* target, const char* source, bool as_sibling) {
    return on_outline(NATIVE(copyMember), target, 0, source, 0, as_sibling, request, results);
  }
  jint go_on() { return on_outline(NATIVE(copyContinue), request); }
  bool finished() {
    return env_->CallBooleanMethod(
               request, env_->GetMethodID(env_->GetObjectClass(request), "isFinished", "()Z")) != 0;
  }
  // The additions so far, each from the record on.
  std::vector<std::string> added_members() { return calls_of("OlvOtlAddMemberEx(outline, "); }
  std::vector<std::string> added_dimensions() { return calls_of("OlvOtlAddDimension(outline, "); }
  // The subtree below a handle as nested names.
  static std::string shape(HMember handle) {
    std::string text = api().name_of(handle);
    std::string below;
    for (HMember child : api().member(handle).children) {
      below += (below.empty() ? "" : " ") + shape(child);
    }
    return below.empty() ? text : text + '(' + below + ')';
  }

  // A subtree of thirteen members with details, below the dimension of the products.
  static HMember add_subtree() {
    const HMember root = api().add("Root", api().find("Product"));
    for (int i = 0; i < 3; ++i) {
      const HMember child = api().add("C" + std::to_string(i), root);
      for (int k = 0; k < 3; ++k) api().add('D' + std::to_string(i * 3 + k), child);
    }
    for (const char* detailed : {"C1", "D0", "D8"}) {
      api().member(detailed).udas = {"Cold", "Sweet"};
      api().member(detailed).comment = "A long story";
      api().member(detailed).formula = "1 + 1;";
    }
    return root;
  }
  // Members of the subtree of a handle.
  static int size(HMember handle) {
    int sum = 1;
    for (const HMember child : api().member(handle).children) sum += size(child);
    return sum;
  }
  // Fails the n-th call of batch number `batch` of a fresh copy, then lets the copy go on to its
  // end. False when the batch has fewer calls.
  bool fail_and_go_on(int batch, int n);

  jobject request = java.make("api/outline/CopyRequest");
  jobject results = java.list();
};

// ---- One member ----

TEST_F(EditCopyTest, AMemberIsAddedUnderATemporaryNameThenRenamedAndItsDetailsFollow) {
  EXPECT_EQ(copy("Tea", "Cola", true), 0);
  const std::vector<std::string> calls = api_calls();
  const auto added = std::find_if(calls.begin(), calls.end(), [](const std::string& line) {
    return line.rfind("OlvOtlAddMemberEx", 0) == 0;
  });
  ASSERT_GE(calls.end() - added, 16);
  // Reserved bytes come along with the source's record; the ten behind attributeType are cleared.
  EXPECT_THAT(
      std::vector<std::string>(added, added + 14),
      ElementsAre("OlvOtlAddMemberEx(outline, {name=\"KEPTempNameForCopy\" "
                  "dimensionName=\"Product\" reserved530=changed reserved546=changed}, "
                  "0, Tea, 3)",
                  "OlvOtlRenameMemberEx(outline, KEPTempNameForCopy, \"Cola\", 3)",
                  "OlvOtlGetAssociatedAttributes(outline, Cola)",
                  "OlvOtlAssociateAttributeMember(outline, Cola, Can)",
                  "OlvFree(inst, associated attributes)", "OlvOtlGetUserAttributes(outline, Cola)",
                  "OlvOtlSetUserAttribute(outline, Cola, \"Cold\")",
                  "OlvOtlSetUserAttribute(outline, Cola, \"Sweet\")", "OlvFree(inst, UDAs)",
                  "OlvOtlGetMemberCommentEx(outline, Cola)",
                  "OlvOtlSetMemberCommentEx(outline, Cola, \"A long story\")",
                  "OlvFree(inst, comment)", "OlvOtlGetMemberFormula(outline, Cola)",
                  "OlvOtlFreeStructure(outline, 1, 65, member record)"));
  EXPECT_THAT(api().children_of(api().find("Product")), ElementsAre("Cola", "Tea", "Cola"));
  const HMember made = api().member("Product").children[2];
  EXPECT_THAT(api().member(made).udas, ElementsAre("Cold", "Sweet"));
  EXPECT_EQ(java.number(results, "size"), 1);
  EXPECT_TRUE(finished());
  EXPECT_EQ(java.number(request, "getCount"), 1);
  EXPECT_EQ(java.number(request, "getTotal"), 0);
  EXPECT_EQ(java.number(request, "getFirstSourceHandle"), java.handle("Cola"));
  EXPECT_EQ(java.number(request, "getLastSourceHandle"), java.handle("Cola"));
  EXPECT_EQ(java.number(request, "getLastTargetHandle"), static_cast<jint>(made));
}

TEST_F(EditCopyTest, TheRequestIsSetUpInOrder) {
  EXPECT_EQ(copy("Qtr2", "Qtr1", false), 0);
  const std::string source = std::to_string(java.handle("Qtr1"));
  const std::string target = std::to_string(java.number(request, "getLastTargetHandle"));
  EXPECT_THAT(
      calls_of("CopyRequest."),
      ElementsAre("getCount()", "setCount(1)", "getTotal()", "setTotal(2)",
                  "setLastSourceHandle(" + source + ")", "setLastTargetHandle(" + target + ")",
                  "setFirstSourceHandle(" + source + ")"));
}

TEST_F(EditCopyTest, RecordsAreAdaptedToTheDimensionTheyLandIn) {
  // Within accounts the accounting properties stay; elsewhere they go.
  EXPECT_EQ(copy("Sales", "Costs", true), 0);
  EXPECT_THAT(added_members(),
              ElementsAre(HasSubstr("{name=\"KEPTempNameForCopy\" consolidation=1 twoPass=1 "
                                    "expense=1 conversionType=3 currencyMember=\"USD\" "
                                    "timeBalance=2 timeBalanceSkip=3 comment=\"What it costs\" "
                                    "dimensionName=\"Measures\"")));
  EXPECT_EQ(copy("Jan", "Costs", true), 0);
  EXPECT_THAT(added_members(),
              ElementsAre(HasSubstr("{name=\"KEPTempNameForCopy\" consolidation=1 twoPass=1 "
                                    "comment=\"What it costs\" dimensionName=\"Measures\"")));
  EXPECT_EQ(copy("Pack", "Costs", false), 0);
  EXPECT_THAT(added_members(),
              ElementsAre(HasSubstr("{name=\"KEPTempNameForCopy\" consolidation=5 shareOption=5 "
                                    "storageType=1 dimensionCategory=6 storageCategory=12 "
                                    "comment=\"What it costs\" dimensionName=\"Measures\" "
                                    "attributeType=255 ")));
}

TEST_F(EditCopyTest, ASharedMembersCopyIsNotShared) {
  EXPECT_EQ(copy("Cola", "Tea", true), 0);
  EXPECT_THAT(added_members(), ElementsAre(Not(HasSubstr("shareOption"))));
  api().member("Tea").info.shareOption = 3;
  EXPECT_EQ(copy("Cola", "Tea", true), 0);
  EXPECT_THAT(added_members(), ElementsAre(HasSubstr("shareOption=3")));
  api().member("Product").info.shareOption = kShareShared;
  EXPECT_EQ(copy("Year", "Cola", true), 0);
  EXPECT_THAT(added_dimensions(), ElementsAre(Not(HasSubstr("shareOption"))));
}

TEST_F(EditCopyTest, AssociationsFollowWithinOneRegularDimensionOnly) {
  EXPECT_EQ(copy("Jan", "Cola", true), 0);
  EXPECT_EQ(copy("Cola", "Tea", true), 0);
  EXPECT_THAT(api_calls(), Not(Contains(HasSubstr("Associated"))));
}

TEST_F(EditCopyTest, WhatCannotBeCopiedIsRefusedWithNothingChanged) {
  EXPECT_EQ(copy("Jan", "Year", true), kStatusCopyFailed);
  EXPECT_EQ(copy("Jan", "Qtr1", false), kStatusCopyFailed);
  EXPECT_EQ(copy("Jan", "Jan", false), kStatusCopyFailed);
  EXPECT_EQ(copy("Nowhere", "Jan", false), kStatusCopyFailed);
  EXPECT_EQ(copy("Jan", "", false), kStatusCopyFailed);
  EXPECT_THAT(added_members(), IsEmpty());
  EXPECT_EQ(copy("Jan", "Jan", true), 0);
}

TEST_F(EditCopyTest, ACopyThatCannotBeNamedIsRemoved) {
  api().refuse_rename = true;
  EXPECT_EQ(copy("Tea", "Cola", true), kStatusCopyFailed);
  EXPECT_EQ(api().find("KEPTempNameForCopy"), 0u);
  EXPECT_EQ(java.number(results, "size"), 0);
  EXPECT_EQ(java.number(request, "getCount"), 0);
  EXPECT_THAT(calls_of("OlvOtlDeleteMemberEx(outline, "), ElementsAre("KEPTempNameForCopy, 3)"));
}

TEST_F(EditCopyTest, FailedWritesOfDetailsAreSkipped) {
  api().fail_function("OlvOtlSetUserAttribute", 77);
  api().fail_function("OlvOtlSetMemberCommentEx", 77);
  EXPECT_EQ(copy("Tea", "Cola", true), 0);
  EXPECT_EQ(calls_of("OlvOtlSetUserAttribute(outline, ").size(), 2u);
}

// ---- Copies out as dimensions ----

TEST_F(EditCopyTest, ADimensionCopyTakesTheFirstFreeName) {
  api().add("Copy of Sales", api().find("Measures"));
  api().add("Copy (2) of Sales", api().find("Measures"));
  EXPECT_EQ(copy("Product", "Sales", true), 0);
  EXPECT_THAT(api_calls(),
              testing::AllOf(Contains("OlvOtlFindMember(outline, \"Copy (3) of Sales\")"),
                             Contains(HasSubstr("OlvOtlAddDimension(outline, {name=\"Copy (3) of "
                                                "Sales\" ")),
                             Not(Contains(HasSubstr("Associate")))));
  EXPECT_THAT(api().children_of(0),
              ElementsAre("Year", "Measures", "Product", "Copy (3) of Sales", "Pack"));
  EXPECT_TRUE(finished());
  EXPECT_EQ(java.number(request, "getCount"), 1);
  EXPECT_EQ(java.number(request, "getTotal"), 1);
}

TEST_F(EditCopyTest, ADimensionCopyStartsFromTheSourcesDimension) {
  api().member("Product").info.timeBalance = 9;
  EXPECT_EQ(copy("Year", "Cola", true), 0);
  EXPECT_THAT(added_dimensions(),
              ElementsAre("{name=\"Copy of Cola\" storageType=1 "
                          "dimensionName=\"Product\" reserved530=changed reserved534=changed "
                          "reserved546=changed}, Year, 0)"));
  EXPECT_EQ(copy("Year", "Can", true), 0);
  EXPECT_THAT(added_dimensions(),
              ElementsAre(HasSubstr("{name=\"Copy of Can\" consolidation=5 shareOption=5 "
                                    "storageType=1 dimensionCategory=6 storageCategory=12 "
                                    "dimensionName=\"Pack\" attributeType=10 ")));
}

TEST_F(EditCopyTest, ADimensionNameThatDoesNotFitIsRefused) {
  const std::string name(72, 'n');  // "Copy of " and this are 80 characters
  api().add(name, api().find("Measures"));
  EXPECT_EQ(copy("Year", name.c_str(), true), 0);
  EXPECT_NE(api().find("Copy of " + name), 0u);
  EXPECT_EQ(copy("Year", name.c_str(), true), kStatusCopyFailed);
  api().add(name + 'n', api().find("Measures"));
  EXPECT_EQ(copy("Year", (name + 'n').c_str(), true), kStatusCopyFailed);
  EXPECT_EQ(added_dimensions().size(), 1u);
}

// ---- Subtrees ----

TEST_F(EditCopyTest, ASubtreeComesInBatchesOfFiveAndKeepsItsShape) {
  add_subtree();
  EXPECT_EQ(copy("Qtr2", "Root", false), 0);
  const HMember made = static_cast<HMember>(java.number(request, "getLastTargetHandle"));
  std::vector<int> counts;
  while (!finished() && counts.size() < 10) {
    EXPECT_EQ(go_on(), 0);
    counts.push_back(java.number(request, "getCount"));
  }
  EXPECT_THAT(counts, ElementsAre(6, 11, 13));
  EXPECT_EQ(java.number(request, "getTotal"), 12);
  EXPECT_EQ(shape(made), "Root(C0(D0 D1 D2) C1(D3 D4 D5) C2(D6 D7 D8))");
}

bool EditCopyTest::fail_and_go_on(int batch, int n) {
  api().reset();
  journal().clear();
  request = java.make("api/outline/CopyRequest");
  const HMember root = add_subtree();
  EXPECT_EQ(copy("Qtr2", "Root", false), 0);
  const HMember made = static_cast<HMember>(java.number(request, "getLastTargetHandle"));
  for (int i = 0; i < batch; ++i) EXPECT_EQ(go_on(), 0);

  const size_t called = api().called().size();
  api().fail_call(n, 77);
  const int status = go_on();
  if (api().called().size() < called + static_cast<size_t>(n)) return false;
  const std::string failed = api().called()[called + static_cast<size_t>(n) - 1];
  SCOPED_TRACE("batch " + std::to_string(batch) + ", call " + std::to_string(n) + ": " + failed);
  EXPECT_EQ(api().find("KEPTempNameForCopy"), 0U);
  EXPECT_EQ(java.number(request, "getCount"), size(made));
  EXPECT_EQ(api().name_of(static_cast<HMember>(java.number(request, "getLastTargetHandle"))),
            api().name_of(static_cast<HMember>(java.number(request, "getLastSourceHandle"))));
  if (failed == "OlvOtlGetChild") {
    EXPECT_EQ(status, 77);
    EXPECT_TRUE(finished());
    return true;
  }
  for (int i = 0; i < 3 && !finished(); ++i) EXPECT_EQ(go_on(), 0);
  EXPECT_EQ(shape(made), shape(root));
  check_balance();
  return true;
}

TEST_F(EditCopyTest, AfterAnyFailureTheCopyGoesOnFromTheLastPair) {
  int failures = 0;
  for (int batch = 0; batch < 3; ++batch) {
    bool called = true;
    for (int n = 1; called; ++n) {
      env_->PushLocalFrame(256);
      called = fail_and_go_on(batch, n);
      env_->PopLocalFrame(nullptr);
      if (called) ++failures;
    }
  }
  EXPECT_GT(failures, 100);
}

TEST_F(EditCopyTest, AParentThatCannotBeReadCountsAsAncestor) {
  api().fail_call(1, 77);
  EXPECT_EQ(IsCopySourceAncestorOfTarget(kOutline, api().find("Jan"), api().find("Sales")), 1);
  EXPECT_EQ(IsCopySourceAncestorOfTarget(kOutline, api().find("Jan"), api().find("Sales")), 0);
  EXPECT_EQ(IsCopySourceAncestorOfTarget(kOutline, api().find("Jan"), api().find("Jan")), 0);
  EXPECT_EQ(IsCopySourceAncestorOfTarget(kOutline, api().find("Jan"), api().find("Year")), 1);
}

TEST_F(EditCopyTest, CountersWrapAround) {
  const auto set = [&](const char* setter) { java.set(request, setter, "(I)V", jint{2147483647}); };
  set("setCount");
  set("setTotal");
  api().member("Qtr1").info.childCount = 2147483647;
  EXPECT_EQ(copy("Measures", "Qtr1", false), 0);
  EXPECT_EQ(java.number(request, "getCount"), -2147483647 - 1);
  EXPECT_EQ(java.number(request, "getTotal"), -2);
  EXPECT_EQ(copy("Year", "Qtr1", true), 0);
  EXPECT_EQ(java.number(request, "getTotal"), -2147483647 - 1);
}

}  // namespace
