// Changes of the outline's shape, of member properties, and of attribute dimensions.
#include <cstring>

#include "bridge/bridge.h"
#include "tests/native/native_test.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class EditTest : public NativeTest {
 protected:
  jint create(jint parent, jint sibling, const char* name) {
    return on_outline(NATIVE(createMember), parent, sibling, name, list);
  }
  // Calls a method that takes a member and one argument.
  template <typename Native, typename Value>
  jint on(const char* member, Native native, Value value) {
    return on_outline(native, java.handle(member), value);
  }
  // The write-backs of member records so far, each from the member on.
  std::vector<std::string> written() { return calls_of("OlvOtlSetMemberInfoEx(outline, "); }

  jobject list = java.list();
};

// ---- Creating ----

TEST_F(EditTest, NewMemberGetsThePlainDefaults) {
  EXPECT_EQ(create(java.handle("Qtr1"), java.handle("Jan"), "New"), 0);
  std::vector<std::string> calls = api_calls();
  calls.resize(5);
  EXPECT_THAT(calls, ElementsAre("OlvOtlGetParent(outline, Qtr1)", "OlvOtlGetParent(outline, Year)",
                                 "OlvOtlGetMemberInfo(outline, Year)",
                                 "OlvOtlFreeStructure(outline, 1, 65, member record)",
                                 "OlvOtlAddMemberEx(outline, {name=\"New\" storageType=1}, Qtr1, "
                                 "Jan, 3)"));
  EXPECT_EQ(java.number(list, "size"), 1);
  EXPECT_THAT(api().children_of(api().find("Qtr1")), ElementsAre("Jan", "New", "Feb"));
}

TEST_F(EditTest, NewDimensionIsPlacedBehindItsSibling) {
  EXPECT_EQ(create(0, 0, "First"), 0);
  EXPECT_EQ(create(0, java.handle("Measures"), "Third"), 0);
  EXPECT_EQ(create(0, java.handle("Pack"), "Ounces"), 0);
  EXPECT_THAT(api_calls(),
              testing::AllOf(Contains("OlvOtlAddDimension(outline, {name=\"First\" storageType=1}, "
                                      "0, 0)"),
                             Contains("OlvOtlAddDimension(outline, {name=\"Third\" storageType=1}, "
                                      "Measures, 0)"),
                             Contains("OlvOtlAddDimension(outline, {name=\"Ounces\" "
                                      "consolidation=5 shareOption=5 storageType=1 "
                                      "dimensionCategory=6 storageCategory=12 attributeType=10}, "
                                      "Pack, 0)")));
  EXPECT_THAT(api().children_of(0),
              ElementsAre("First", "Year", "Measures", "Third", "Product", "Pack", "Ounces"));
}

TEST_F(EditTest, ANameInUseIsAddedUnderATemporaryNameAndRenamed) {
  EXPECT_EQ(create(java.handle("Pack"), 0, "Sales"), 0);
  std::vector<std::string> changes;
  for (const std::string& line : api_calls()) {
    if (line.find("Add") != std::string::npos || line.find("Rename") != std::string::npos) {
      changes.push_back(line);
    }
  }
  const std::string defaults =
      " consolidation=5 shareOption=5 storageType=1 dimensionCategory=6 storageCategory=12 "
      "attributeType=255}, Pack, 0, 3)";
  EXPECT_THAT(
      changes,
      ElementsAre("OlvOtlAddMemberEx(outline, {name=\"Sales\"" + defaults,
                  "OlvOtlAddMemberEx(outline, {name=\"KEPTempNameForDuplicateAdd\"" + defaults,
                  "OlvOtlRenameMemberEx(outline, KEPTempNameForDuplicateAdd, \"Sales\", "
                  "3)"));
  EXPECT_EQ(java.number(list, "size"), 1);
}

TEST_F(EditTest, ARefusedRenameLeavesNoTemporaryMember) {
  api().refuse_rename = true;
  EXPECT_EQ(create(java.handle("Qtr1"), 0, "Sales"), kStatusDuplicateName);
  EXPECT_EQ(api().find("KEPTempNameForDuplicateAdd"), 0u);
  EXPECT_EQ(api_calls().back(), "OlvOtlDeleteMemberEx(outline, KEPTempNameForDuplicateAdd, 3)");
  EXPECT_EQ(java.number(list, "size"), 0);
}

TEST_F(EditTest, ADimensionsNameInUseIsNotRetried) {
  EXPECT_EQ(create(0, 0, "Sales"), kStatusDuplicateName);
  EXPECT_THAT(api_calls(), ElementsAre(HasSubstr("OlvOtlAddDimension")));
}

TEST_F(EditTest, NamesAreNeverCut) {
  const std::string longest(80, 'n');
  EXPECT_EQ(create(java.handle("Qtr1"), 0, longest.c_str()), 0);
  EXPECT_NE(api().find(longest), 0u);
  api_calls();
  EXPECT_EQ(create(java.handle("Qtr1"), 0, (longest + 'n').c_str()), kStatusRefused);
  EXPECT_EQ(create(0, 0, (longest + 'n').c_str()), kStatusRefused);
  EXPECT_EQ(create(java.handle("Qtr1"), 0, ""), 0);
  EXPECT_THAT(api_calls(), Not(Contains(HasSubstr("Add"))));
}

// ---- Renaming, moving, deleting, sorting ----

TEST_F(EditTest, ShapeCallsPassTheirArguments) {
  const auto move = [&](const char* reference, const char* member, jboolean sibling) {
    return on_outline(NATIVE(moveMember), java.handle(reference), java.handle(member), sibling);
  };
  EXPECT_EQ(on("Jan", NATIVE(renameMember), "January"), 0);
  EXPECT_EQ(move("Qtr2", "Feb", JNI_TRUE), 0);
  EXPECT_EQ(move("Qtr2", "Feb", JNI_FALSE), 0);
  EXPECT_EQ(move("none", "Pack", JNI_TRUE), 0);
  EXPECT_EQ(move("none", "Pack", JNI_FALSE), 0);
  EXPECT_EQ(on("Qtr1", NATIVE(sortChildren), JNI_TRUE), 0);
  EXPECT_EQ(on("Qtr1", NATIVE(sortChildren), JNI_FALSE), 0);
  EXPECT_EQ(on_outline(NATIVE(deleteMember), java.handle("Qtr2")), 0);
  EXPECT_THAT(api_calls(), ElementsAre("OlvOtlRenameMemberEx(outline, Jan, \"January\", 3)",
                                       "OlvOtlMoveMember(outline, Feb, 0, Qtr2)",
                                       "OlvOtlMoveMember(outline, Feb, Qtr2, 0)",
                                       "OlvOtlMoveMember(outline, Pack, 0, 0)",
                                       "OlvOtlMoveMember(outline, Pack, 0, 0)",
                                       "OlvOtlSortChildren(outline, Qtr1, 0, 0, 0)",
                                       "OlvOtlSortChildren(outline, Qtr1, 1, 0, 0)",
                                       "OlvOtlDeleteMemberEx(outline, Qtr2, 3)"));
}

TEST_F(EditTest, ZeroMembersAndEmptyTextsCallNothing) {
  EXPECT_EQ(on("none", NATIVE(renameMember), "x"), 0);
  EXPECT_EQ(on("Jan", NATIVE(renameMember), ""), 0);
  EXPECT_EQ(on_outline(NATIVE(moveMember), java.handle("Jan"), 0, true), 0);
  EXPECT_EQ(on_outline(NATIVE(deleteMember), 0), 0);
  EXPECT_EQ(on("none", NATIVE(sortChildren), true), 0);
  EXPECT_EQ(on("none", NATIVE(assignMemberShare), java.code("Share", 1)), 0);
  EXPECT_EQ(on("none", NATIVE(assignMemberComment), "x"), 0);
  EXPECT_EQ(on("none", NATIVE(updateMemberFormula), ""), 0);
  EXPECT_EQ(on("Jan", NATIVE(setMemberUDA), ""), 0);
  EXPECT_EQ(on("Jan", NATIVE(deleteMemberUDA), ""), 0);
  EXPECT_EQ(on_outline(NATIVE(assignMemberAlias), java.handle("Jan"), "", "x"), 0);
  EXPECT_THAT(api_calls(), IsEmpty());
}

// ---- Properties ----

TEST_F(EditTest, EachPropertyChangesItsOwnFieldOnly) {
  on("Jan", NATIVE(assignMemberConsolidation), java.code("Consolidation", 4));
  on("Jan", NATIVE(assignMemberShare), java.code("Share", -2));
  on("Jan", NATIVE(assignMemberTimeBalance), java.code("TimeBalance", 2));
  on("Jan", NATIVE(assignMemberTimeBalanceSkip), java.code("TimeBalanceSkip", 3));
  on("Jan", NATIVE(assignMemberConversion), java.code("CurrencyConversion", 5));
  on("Jan", NATIVE(assignMemberTwoPass), JNI_TRUE);
  on("Costs", NATIVE(assignMemberTwoPass), JNI_FALSE);
  on("Jan", NATIVE(assignMemberVariance), JNI_TRUE);
  on("Costs", NATIVE(assignMemberCategory), "EUR");
  on("Costs", NATIVE(assignMemberComment), "");
  on("Year", NATIVE(assignDimensionHybridAnalysis), JNI_TRUE);
  EXPECT_THAT(
      written(),
      ElementsAre("Jan, {consolidation=4}, 3)", "Jan, {shareOption=-2}, 3)",
                  "Jan, {timeBalance=2}, 3)", "Jan, {timeBalanceSkip=3}, 3)",
                  "Jan, {conversionType=5}, 3)", "Jan, {twoPass=1}, 3)", "Costs, {twoPass=0}, 3)",
                  "Jan, {expense=1}, 3)", "Costs, {currencyMember=\"EUR\"}, 3)",
                  "Costs, {comment=\"\"}, 3)", "Year, {hybridAnalysisEnabled=1}, 3)"));
}

TEST_F(EditTest, RecordsAreReadChangedWrittenAndReleased) {
  EXPECT_EQ(on("Jan", NATIVE(assignMemberShare), java.code("Share", 1)), 0);
  EXPECT_THAT(all_calls(), ElementsAre(HasSubstr("InstanceHandle"), HasSubstr("OutlineHandle"),
                                       "OlvOtlGetMemberInfo(outline, Jan)", "Share.getValue()",
                                       "OlvOtlSetMemberInfoEx(outline, Jan, {shareOption=1}, 3)",
                                       "OlvOtlFreeStructure(outline, 1, 65, member record)"));
  EXPECT_EQ(on("Jan", NATIVE(assignMemberComment), "x"), 0);
  EXPECT_THAT(journal().lines(Entry::kText), ElementsAre("chars(\"x\")", "release(\"x\")"));
  EXPECT_EQ(journal().all_lines().front(), "chars(\"x\")");
}

TEST_F(EditTest, BytesBehindAShorterTextGoBackAsTheyWereRead) {
  MemberInfoRecord& info = api().member("Jan").info;
  std::strcpy(info.comment, "before");
  info.currencyMember[81] = '\x7F';  // padding
  EXPECT_EQ(on("Jan", NATIVE(assignMemberComment), "x"), 0);
  EXPECT_EQ(on("Jan", NATIVE(assignMemberCategory), "EUR"), 0);
  EXPECT_EQ(std::string(info.comment, 7), std::string("x\0fore\0", 7));
  EXPECT_EQ(info.currencyMember[81], '\x7F');
}

TEST_F(EditTest, LongTextsAreRefusedWhole) {
  const std::string category(81, 'c');
  const std::string comment(258, 'c');
  EXPECT_EQ(on("Jan", NATIVE(assignMemberCategory), category), kStatusRefused);
  EXPECT_EQ(on("Jan", NATIVE(assignMemberComment), comment), kStatusRefused);
  EXPECT_THAT(written(), IsEmpty());
  EXPECT_EQ(on("Jan", NATIVE(assignMemberCategory), category.c_str() + 1), 0);
  EXPECT_EQ(on("Jan", NATIVE(assignMemberComment), comment.c_str() + 1), 0);
  EXPECT_STREQ(api().member("Jan").info.currencyMember, category.c_str() + 1);
  EXPECT_STREQ(api().member("Jan").info.comment, comment.c_str() + 1);
}

TEST_F(EditTest, AValueObjectWithoutAValueStoresZero) {
  exceptions_allowed = true;
  EXPECT_EQ(on("Costs", NATIVE(assignMemberConsolidation), java.list()), 0);
  EXPECT_THAT(written(), ElementsAre("Costs, {consolidation=0}, 3)"));
}

TEST_F(EditTest, EmptyFormulasAndAliasesAreRemoved) {
  on("Jan", NATIVE(updateMemberFormula), "1;");
  on("Jan", NATIVE(updateMemberFormula), "");
  on("Jan", NATIVE(updateMemberFormula), jstring{nullptr});
  on("Jan", NATIVE(setMemberUDA), "Warm");
  on("Jan", NATIVE(deleteMemberUDA), "Warm");
  for (const char* alias : {"First", ""}) {
    on_outline(NATIVE(assignMemberAlias), java.handle("Jan"), "Codes", alias);
  }
  EXPECT_THAT(api_calls(), ElementsAre("OlvOtlSetMemberFormula(outline, Jan, \"1;\")",
                                       "OlvOtlDeleteMemberFormula(outline, Jan)",
                                       "OlvOtlDeleteMemberFormula(outline, Jan)",
                                       "OlvOtlSetUserAttribute(outline, Jan, \"Warm\")",
                                       "OlvOtlDeleteUserAttribute(outline, Jan, \"Warm\")",
                                       "OlvOtlSetMemberAlias(outline, Jan, \"Codes\", \"First\")",
                                       "OlvOtlDeleteMemberAlias(outline, Jan, \"Codes\")"));
}

// ---- Attribute associations ----

TEST_F(EditTest, AssociationsNameBothSides) {
  EXPECT_EQ(on("Measures", NATIVE(assignAttributeDimension), java.handle("Pack")), 0);
  EXPECT_EQ(on("Measures", NATIVE(unassignAttributeDimension), "Pack"), 0);
  EXPECT_EQ(on("Tea", NATIVE(assignAttributeMember), "Bottle"), 0);
  EXPECT_EQ(on("Tea", NATIVE(unassignAttributeMember), "Bottle"), 0);
  EXPECT_THAT(api_calls(),
              ElementsAre("OlvOtlAssociateAttributeDimension(outline, Measures, Pack)",
                          "OlvOtlFindMember(outline, \"Pack\")",
                          "OlvOtlDisassociateAttributeDimension(outline, Measures, Pack)",
                          "OlvOtlFindMember(outline, \"Bottle\")",
                          "OlvOtlAssociateAttributeMember(outline, Tea, Bottle)",
                          "OlvOtlFindMember(outline, \"Bottle\")",
                          "OlvOtlDisassociateAttributeMember(outline, Tea, Bottle)"));
}

TEST_F(EditTest, AssociationsWithMissingHandles) {
  jobject none = java.outline(0);
  jobject inst = java.instance();
  EXPECT_EQ(on("none", NATIVE(assignAttributeDimension), java.handle("Pack")), -1);
  EXPECT_EQ(on("Measures", NATIVE(assignAttributeDimension), 0), -1);
  EXPECT_EQ(call(NATIVE(assignAttributeDimension), inst, none, 0, 0), 0);
  EXPECT_EQ(on("none", NATIVE(unassignAttributeDimension), "Pack"), -1);
  EXPECT_EQ(call(NATIVE(unassignAttributeDimension), inst, none, 0, "Pack"), 0);
  EXPECT_EQ(on("none", NATIVE(assignAttributeMember), "Can"), -1);
  EXPECT_EQ(call(NATIVE(assignAttributeMember), inst, none, java.handle("Tea"), "Can"), -1);
  EXPECT_THAT(api_calls(), IsEmpty());
  EXPECT_EQ(on("none", NATIVE(unassignAttributeMember), "Nowhere"), kNoSuchMember);
  EXPECT_EQ(on("none", NATIVE(unassignAttributeMember), "Can"), 0);
  EXPECT_EQ(on("Tea", NATIVE(assignAttributeMember), "Nowhere"), kNoSuchMember);
  EXPECT_THAT(api_calls(), Not(Contains(HasSubstr("ssociate"))));
}

TEST_F(EditTest, StorageTypeTakesAllAssociationsOffFirst) {
  const HMember second = api().add("Size");
  api().member("Product").attributes.push_back(second);
  api().fail_function("OlvOtlDisassociateAttributeDimension", 77);
  EXPECT_EQ(on("Product", NATIVE(assignDimensionStorageType), java.code("DimensionStorageType", 1)),
            0);
  EXPECT_THAT(api_calls(),
              ElementsAre("OlvOtlGetMemberInfo(outline, Product)",
                          "OlvOtlGetAssociatedAttributes(outline, Product)",
                          "OlvOtlDisassociateAttributeDimension(outline, Product, Pack)",
                          "OlvOtlDisassociateAttributeDimension(outline, Product, Size)",
                          "OlvFree(inst, associated attributes)",
                          "OlvOtlSetMemberInfoEx(outline, Product, {}, 3)",
                          "OlvOtlFreeStructure(outline, 1, 65, member record)"));
  EXPECT_EQ(on("Year", NATIVE(assignDimensionStorageType), java.code("DimensionStorageType", 0)),
            0);
  EXPECT_THAT(api_calls(), Contains("OlvOtlSetMemberInfoEx(outline, Year, {storageType=0}, 3)"));
}

TEST_F(EditTest, RemovingAssociationsAnswersWithTheListsOwnStatus) {
  api().fail_call(1, 77);
  EXPECT_EQ(removeAllAttributeAssociations(kInst, kOutline, api().find("Product")), 77);
  api().fail_call(3, 78);
  EXPECT_EQ(removeAllAttributeAssociations(kInst, kOutline, api().find("Product")), 78);
}

// ---- Becoming an attribute dimension ----

class CategoryTest : public EditTest {
 protected:
  jint categorise(const char* member, jshort category, jobject attribute_type = nullptr) {
    return on_outline(NATIVE(assignMemberDimensionCategory), java.handle(member),
                      java.code("DimensionCategory", category), attribute_type);
  }
};

TEST_F(CategoryTest, ARegularDimensionGetsTheDefaultsAndMovesBehindTheOthers) {
  EXPECT_EQ(categorise("Year", kCategoryAttribute), 0);
  EXPECT_THAT(
      written(),
      ElementsAre("Year, {consolidation=5 shareOption=5 dimensionCategory=6 storageCategory=12 "
                  "attributeType=10}, 3)"));
  EXPECT_THAT(api().children_of(0), ElementsAre("Measures", "Product", "Year", "Pack"));
  EXPECT_EQ(categorise("Product", kCategoryAttribute, java.code("AttributeType", 7)), 0);
  EXPECT_THAT(written(), ElementsAre(HasSubstr("attributeType=7}")));
  EXPECT_THAT(api().children_of(0), ElementsAre("Measures", "Product", "Year", "Pack"));
}

TEST_F(CategoryTest, OtherChangesStoreTheCategoryAlone) {
  EXPECT_EQ(categorise("Pack", kCategoryAttribute), 0);
  EXPECT_THAT(written(), ElementsAre("Pack, {}, 3)"));
  EXPECT_EQ(categorise("Pack", kCategoryAttribute, java.code("AttributeType", 7)), 0);
  EXPECT_THAT(written(), ElementsAre("Pack, {attributeType=7}, 3)"));
  EXPECT_EQ(categorise("Pack", kCategoryTime), 0);
  EXPECT_THAT(written(), ElementsAre("Pack, {dimensionCategory=2}, 3)"));
  EXPECT_THAT(api().children_of(0), ElementsAre("Year", "Measures", "Product", "Pack"));
}

TEST_F(CategoryTest, AFailedWriteSkipsTheMove) {
  api().fail_function("OlvOtlSetMemberInfoEx", 77);
  EXPECT_EQ(categorise("Year", kCategoryAttribute), 77);
  EXPECT_THAT(api_calls(), Not(Contains(HasSubstr("Move"))));
}

TEST_F(CategoryTest, TheLastRegularDimensionIsFoundFromTheStart) {
  const auto last = [](const char* start) {
    return api().name_of(FindLastNonAttributeDimension(kOutline, api().find(start)));
  };
  EXPECT_EQ(last("Year"), "Product");
  EXPECT_EQ(last("Pack"), "Product");
  EXPECT_EQ(FindLastNonAttributeDimension(kOutline, 0), 0u);
  // A dimension whose record cannot be read counts as regular.
  api().fail_call(1, 77);
  EXPECT_EQ(last("Pack"), "Pack");
  api().clear_outline();
  const HMember only = api().add("Only");
  EXPECT_EQ(last("Only"), "Only");
  api().member(only).info.dimensionCategory = kCategoryAttribute;
  EXPECT_EQ(last("Only"), "0");
  expected_locks.clear();
}

TEST_F(CategoryTest, AnAttributeDimensionCanReplaceARegularOne) {
  EXPECT_EQ(CreateAttributeDimension(0, kOutline, api().find("Measures"), "Measures", 300), 0);
  const std::vector<std::string> calls = api_calls();
  EXPECT_THAT(calls, Contains("OlvOtlAddDimension(outline, "
                              "{name=\"xyzzyAttributeDimensionForKEPInternalUse\" "
                              "consolidation=5 shareOption=5 storageType=1 dimensionCategory=6 "
                              "storageCategory=12 attributeType=300}, Product, 0)"));
  EXPECT_EQ(calls.back(),
            "OlvOtlRenameMemberEx(outline, xyzzyAttributeDimensionForKEPInternalUse, "
            "\"Measures\", 3)");
  EXPECT_THAT(api().children_of(0), ElementsAre("Year", "Product", "Measures", "Pack"));
  // The old dimension's deletion is not what is reported; a failed addition is.
  api().fail_function("OlvOtlAddDimension", 77);
  EXPECT_EQ(CreateAttributeDimension(0, kOutline, api().find("Year"), "Year", 10), 77);
  // Nor does the old dimension go when the new one has no handle.
  api().reset();
  api().withhold_all();
  EXPECT_EQ(CreateAttributeDimension(0, kOutline, api().find("Year"), "Year", 10), -1);
  EXPECT_NE(api().find("Year"), 0u);
}

}  // namespace
