// The sweep entries of all native methods, by family.
#include <fstream>

#include "tests/native/sweep.h"

namespace {

#define NAMED_NATIVE(method) #method, NATIVE(method)

// ---- Arguments ----

jobject instance(JavaObjects& java) {
  return java.instance();
}

jobject context(JavaObjects& java) {
  return java.context();
}

jobject outline(JavaObjects& java) {
  return java.outline();
}

jobject no_outline(JavaObjects& java) {
  return java.outline(0);
}

jobject list(JavaObjects& java) {
  return java.list();
}

auto handle(const char* name) {
  return [=](JavaObjects&) { return JavaObjects::handle(name); };
}

auto object(const char* class_name) {
  return [=](JavaObjects& java) { return java.make(class_name); };
}

auto code(const char* class_name, jshort value = 7) {
  return [=](JavaObjects& java) { return java.code(class_name, value); };
}

auto buffer(const char* text) {
  return [=](JavaObjects& java) { return java.buffer(text); };
}

// Requests by handle and by name, one of them for a member that does not exist.
jobject requests(JavaObjects& java) {
  return java.list({java.request(JavaObjects::handle("Cola")), java.request("Nowhere"),
                    java.request("Sales"), java.request("Jan")});
}

jobject names_of_members(JavaObjects& java) {
  return java.list({java.text("Jan"), java.text("Nowhere"), java.text(""), java.text("Year")});
}

// A search that tries every source for every member.
jobject wide_request(JavaObjects& java) {
  jobject request = java.make("api/outline/FindRequest");
  java.set(request, "setText", "(Ljava/lang/String;)V", java.text("Co"));
  java.set(request, "setAliasTableUsage", "(S)V", jshort{1});
  for (const char* source : {"setSearchMemberNames", "setSearchFormulas", "setSearchUDAS"}) {
    java.set(request, source, "(Z)V", jboolean{JNI_TRUE});
  }
  return request;
}

// A copy of Year that has got as far as the year itself.
jobject begun_copy(JavaObjects& java) {
  jobject request = java.make("api/outline/CopyRequest");
  java.set(request, "setFirstSourceHandle", "(I)V", JavaObjects::handle("Year"));
  java.set(request, "setLastSourceHandle", "(I)V", JavaObjects::handle("Year"));
  java.set(request, "setLastTargetHandle", "(I)V", JavaObjects::handle("Sales"));
  return request;
}

jstring file_to_import(JavaObjects& java) {
  const std::string path = temporary_path("sweep_import.alt");
  std::ofstream(path) << "$ALT_NAME  'New'\n"
                         "\"Jan\"   \"January\"\n"
                         "\"Nowhere\"   \"Nothing\"\n"
                         "Feb February\n"
                         "$END\n";
  return java.text(path.c_str());
}

// ---- Shapes of entries ----

// The two wrappers first.
template <typename Native, typename... Arguments>
SweepCase on_outline(const char* name, Native native, Arguments... arguments) {
  return sweep_case(name, native, instance, outline, arguments...);
}

// The two wrappers and a member's handle first.
template <typename Native, typename... Arguments>
SweepCase on_member(const char* name, Native native, const char* member, Arguments... arguments) {
  return on_outline(name, native, handle(member), arguments...);
}

// A method that reads a record, changes it and writes it back: without one nothing is changed.
template <typename Native, typename... Arguments>
SweepCase updates(const char* name, Native native, Arguments... arguments) {
  return on_outline(name, native, arguments...).answers_without_results(kStatusRefused);
}

template <typename Native>
SweepCase block(const char* name, Native native) {
  return on_outline(name, native, requests, list)
      .may_swallow({"OlvOtlFindMember", "OlvOtlGetMemberFormula", "OlvOtlGetMemberAlias",
                    "OlvOtlGetMemberInfo", "OlvOtlGetAssociatedAttributes",
                    "OlvOtlGetUserAttributes"});
}

// ---- Families ----

std::vector<SweepCase> lifecycle_cases() {
  return {
      sweep_case(NAMED_NATIVE(openOutlineQuery), context, no_outline),
      sweep_case(NAMED_NATIVE(closeOutlineQuery), outline),
      sweep_case(NAMED_NATIVE(openOutlineEdit), context, "App", "Db2", "Object", no_outline),
      sweep_case(NAMED_NATIVE(closeOutlineEdit), context, outline, "App", "Db"),
      sweep_case(NAMED_NATIVE(verifyOutlineEdit), instance, context, outline, list)
          .swallows({"OlvOtlGetMemberInfo"}),
      sweep_case(NAMED_NATIVE(write), context, outline, "App", "Db"),
      sweep_case(NAMED_NATIVE(saveAsObject), instance, context, outline, context, "App", "Db2")
          .swallows({"OlvGetProcessState"}),
      sweep_case(NAMED_NATIVE(saveAsFileBegin), instance, context, outline,
                 object("api/outline/SavedFile"))
          // The search for a free name takes every failure for an object that does not exist.
          .on("OlvGetLocalPath", {kPassedOn, kStatusRefused})
          .may_swallow({"OlvGetObjectInfo"}),
      sweep_case(NAMED_NATIVE(restructure), context, 2, "App", "Db"),
      sweep_case(NAMED_NATIVE(getCellCount), context, "Sales", object("api/IntHolder")),
      // -1 means that data is loaded; the API sees an empty name.
      sweep_case(NAMED_NATIVE(getDataLoaded), instance, context, "App", "Db")
          .answers_without_texts(-1),
      sweep_case(NAMED_NATIVE(getLockedState), instance, context, "App", "Db"),
      on_outline(NAMED_NATIVE(generateCurrencyDB), context, "App", "Db2")
          .swallows({"OlvGetProcessState", "OlvOtlCloseOutline"}),
  };
}

std::vector<SweepCase> listing_cases() {
  return {
      sweep_case(NAMED_NATIVE(getMemberInfo), outline, "Costs",
                 object("defs/OutlineMemberProperties")),
      sweep_case(NAMED_NATIVE(getDimensions), outline, list).may_swallow({"OlvOtlGetMemberInfo"}),
      on_outline(NAMED_NATIVE(getDimensionsAlias), "Default", list)
          .may_swallow({"OlvOtlGetMemberInfo"})
          .swallows({"OlvOtlGetMemberAlias"}),
      sweep_case(NAMED_NATIVE(getChildrenFor), outline, "Year", "Qtr1", list)
          .may_swallow({"OlvOtlGetMemberInfo"}),
      on_outline(NAMED_NATIVE(getChildrenAliasFor), "Year", "Qtr1", "Default", list)
          .may_swallow({"OlvOtlGetMemberInfo"})
          .swallows({"OlvOtlGetMemberAlias"}),
      on_outline(NAMED_NATIVE(getChildrenWithProperties), "Product", "Product", 0, 2, list)
          .may_swallow({"OlvOtlGetMemberInfo"})
          .swallows({"OlvOtlQueryAttributes", "OlvOtlGetMemberAlias"}),
      on_outline(NAMED_NATIVE(getChildrenEx), "Product", 0, list)
          .swallows({"OlvOtlGetMemberInfo", "OlvOtlGetParent"}),
      sweep_case(NAMED_NATIVE(getChildrenExQuery), outline, "Year", "Qtr1", list)
          .swallows({"OlvOtlGetMemberInfo", "OlvOtlGetParent"}),
      on_outline(NAMED_NATIVE(getDimensionsEx), list)
          .swallows({"OlvOtlGetMemberInfo", "OlvOtlGetParent", "OlvOtlGetChild"}),
      sweep_case(NAMED_NATIVE(getDimensionsExQuery), outline, list)
          .swallows({"OlvOtlGetMemberInfo", "OlvOtlGetParent", "OlvOtlGetChild"}),
      on_outline(NAMED_NATIVE(getMemberAncestors), "Jan", 0, list)
          .may_swallow({"OlvOtlGetParent"})
          .swallows({"OlvOtlGetMemberInfo", "OlvOtlGetChild"}),
      on_outline(NAMED_NATIVE(getMemberChildCount), "Qtr1", 0, list),
      on_outline(NAMED_NATIVE(getMemberLevel), "Qtr1", 0, list),
  };
}

std::vector<SweepCase> detail_cases() {
  const auto target = object("defs/outline/DefaultMember");
  return {
      on_outline(NAMED_NATIVE(getMemberFormula), "Sales", 0, target),
      on_outline(NAMED_NATIVE(getMemberFormulaQuery), "Sales", target),
      block(NAMED_NATIVE(getMemberFormulaBlock)),
      on_member(NAMED_NATIVE(getMemberAliases), "Jan", list).may_swallow({"OlvOtlGetMemberAlias"}),
      on_outline(NAMED_NATIVE(getMemberAliasesQuery), "Jan", list)
          .may_swallow({"OlvOtlGetMemberAlias"}),
      block(NAMED_NATIVE(getMemberAliasesBlock)),
      on_outline(NAMED_NATIVE(getMemberAliasesForTable), "Default", names_of_members, list, false)
          .may_swallow({"OlvOtlFindMember", "OlvOtlGetMemberAlias"}),
      on_member(NAMED_NATIVE(getMemberAttributes), "Cola", list)
          .may_swallow({"OlvOtlGetMemberInfo"}),
      on_outline(NAMED_NATIVE(getMemberAttributesQuery), "Cola"),
      block(NAMED_NATIVE(getMemberAttributesBlock)),
      on_outline(NAMED_NATIVE(getMemberUDAS), "Cola", 0, list),
      on_outline(NAMED_NATIVE(getMemberUDASQuery), "Cola", list),
      block(NAMED_NATIVE(getMemberUDASBlock)),
      on_outline(NAMED_NATIVE(getDimensionUDAS), "Product", 0, list),
  };
}

std::vector<SweepCase> settings_cases() {
  return {
      sweep_case(NAMED_NATIVE(getOutlineInfo), outline, object("defs/outline/OutlineInformation")),
      on_outline(NAMED_NATIVE(getSettings), object("defs/outline/OutlineSettings")),
      sweep_case(NAMED_NATIVE(getAttributeSpecs), outline,
                 object("defs/outline/AttributeSpecification")),
      on_outline(NAMED_NATIVE(getAttributeSpecsEx), object("defs/outline/AttributeSettings")),
      updates(NAMED_NATIVE(updateAutoConfigure), true),
      updates(NAMED_NATIVE(updateCaseSensitivity), true),
      updates(NAMED_NATIVE(updateLongnameConstructor), code("LongNameConstructor")),
      updates(NAMED_NATIVE(updateLongnameSource), code("LongNameSource")),
      updates(NAMED_NATIVE(updateLongnameDelimiter), code("LongNameDelimiter")),
      updates(NAMED_NATIVE(updateDateFormat), code("AttributeDateFormat")),
      updates(NAMED_NATIVE(updateBucketingType), code("BucketingType")),
      updates(NAMED_NATIVE(updateBooleanNameTrue), "New"),
      updates(NAMED_NATIVE(updateBooleanNameFalse), "New"),
      updates(NAMED_NATIVE(updateCalcDimName), "New"),
      updates(NAMED_NATIVE(updateSumMemberName), "New"),
      updates(NAMED_NATIVE(updateCountMemberName), "New"),
      updates(NAMED_NATIVE(updateAverageMemberName), "New"),
      updates(NAMED_NATIVE(updateMinimumMemberName), "New"),
      updates(NAMED_NATIVE(updateMaximumMemberName), "New"),
      on_outline(NAMED_NATIVE(createAliasTable), "New"),
      on_outline(NAMED_NATIVE(deleteAliasTable), "New"),
      on_outline(NAMED_NATIVE(clearAliasTable), "New"),
      on_outline(NAMED_NATIVE(renameAliasTable), "Codes", "New"),
      on_outline(NAMED_NATIVE(copyAliasTable), "Codes", "New", true),
  };
}

std::vector<SweepCase> shape_cases() {
  // The defaults do without the dimension's record, and an object that cannot be built is no
  // failure of the change.
  const auto create = [](const char* name, const char* parent, const char* member) {
    return on_member(name, NATIVE(createMember), parent, 0, member, list)
        .swallows({"OlvOtlGetParent", "OlvOtlGetMemberInfo"});
  };
  return {
      create("createMember", "Qtr1", "New"),
      create("createMember_InAttributeDimension", "Pack", "New"),
      create("createMember_NameInUse", "Qtr1", "Sales")
          .on("OlvOtlRenameMemberEx", {kStatusDuplicateName}),
      on_member(NAMED_NATIVE(renameMember), "Jan", "January"),
      on_member(NAMED_NATIVE(moveMember), "Qtr2", handle("Jan"), false),
      on_member(NAMED_NATIVE(deleteMember), "Qtr1"),
      on_member(NAMED_NATIVE(sortChildren), "Qtr1", true),
  };
}

std::vector<SweepCase> property_cases() {
  return {
      updates(NAMED_NATIVE(assignMemberConsolidation), handle("Jan"), code("Consolidation")),
      updates(NAMED_NATIVE(assignMemberShare), handle("Jan"), code("Share")),
      updates(NAMED_NATIVE(assignMemberTimeBalance), handle("Jan"), code("TimeBalance")),
      updates(NAMED_NATIVE(assignMemberTimeBalanceSkip), handle("Jan"), code("TimeBalanceSkip")),
      updates(NAMED_NATIVE(assignMemberConversion), handle("Jan"), code("CurrencyConversion")),
      updates(NAMED_NATIVE(assignMemberTwoPass), handle("Jan"), true),
      updates(NAMED_NATIVE(assignMemberVariance), handle("Jan"), true),
      updates(NAMED_NATIVE(assignMemberCategory), handle("Jan"), "EUR"),
      updates(NAMED_NATIVE(assignMemberComment), handle("Jan"), "A comment"),
      on_member(NAMED_NATIVE(updateMemberFormula), "Jan", "Feb*2;"),
      on_member(NAMED_NATIVE(setMemberUDA), "Jan", "Warm"),
      on_member(NAMED_NATIVE(deleteMemberUDA), "Cola", "Cold"),
      on_member(NAMED_NATIVE(assignMemberAlias), "Jan", "Default", "First"),
  };
}

std::vector<SweepCase> attribute_cases() {
  return {
      on_member(NAMED_NATIVE(assignAttributeDimension), "Measures", handle("Pack")),
      // A handle of 0 is handed on, and the API refuses it.
      on_member(NAMED_NATIVE(unassignAttributeDimension), "Product", "Pack")
          .answers_without_results(kNoSuchMember),
      on_member(NAMED_NATIVE(assignAttributeMember), "Tea", "Bottle")
          .answers_without_outline(kStatusRefused),
      on_member(NAMED_NATIVE(unassignAttributeMember), "Cola", "Can"),
      updates(NAMED_NATIVE(assignDimensionHybridAnalysis), handle("Year"), true),
      updates(NAMED_NATIVE(assignDimensionStorageType), handle("Product"),
              code("DimensionStorageType"))
          .swallows({"OlvOtlGetAssociatedAttributes", "OlvOtlDisassociateAttributeDimension"}),
      // Where the dimension goes is found as well as it can be.
      updates(NAMED_NATIVE(assignMemberDimensionCategory), handle("Measures"),
              code("DimensionCategory", kCategoryAttribute), code("AttributeType"))
          .may_swallow({"OlvOtlGetMemberInfo"})
          .swallows({"OlvOtlGetNextSibling", "OlvOtlGetPrevSibling"}),
  };
}

std::vector<SweepCase> copy_cases() {
  const std::vector<long> failed = {kStatusCopyFailed};
  const std::vector<long> failed_or_swallowed = {kStatusCopyFailed, kSwallowed};
  const auto with_answers = [=](SweepCase entry) {
    return entry.answers_without_results(kStatusCopyFailed)
        .answers_without_texts(kStatusCopyFailed)
        .swallows({"OlvOtlGetUserAttributes", "OlvOtlSetUserAttribute", "OlvOtlGetMemberCommentEx",
                   "OlvOtlSetMemberCommentEx", "OlvOtlGetMemberFormula", "OlvOtlSetMemberFormula",
                   "OlvOtlGetAssociatedAttributes", "OlvOtlAssociateAttributeMember",
                   "OlvOtlGetChild"})
        .on("OlvOtlFindMember", failed)
        .on("OlvOtlAddMemberEx", failed)
        .on("OlvOtlAddDimension", failed)
        .on("OlvOtlRenameMemberEx", failed)
        .on("OlvOtlGetParent", failed_or_swallowed)
        .on("OlvOtlGetMemberInfo", failed_or_swallowed);
  };
  const auto copy = [=](const char* name, bool as_sibling) {
    return with_answers(on_outline(name, NATIVE(copyMember), "Product", 0, "Cola", 0, as_sibling,
                                   object("api/outline/CopyRequest"), list));
  };
  return {
      copy("copyMember", false),
      // The search for a free name takes a failure for a name that is free.
      copy("copyMember_AsDimension", true).on("OlvOtlFindMember", failed_or_swallowed),
      with_answers(on_outline(NAMED_NATIVE(copyContinue), begun_copy))
          .on("OlvOtlGetChild", {kPassedOn})
          .on("OlvOtlGetParent", {kStatusCopyFailed, kPassedOn, kSwallowed})
          .on("OlvOtlGetNextSibling", {kPassedOn, kSwallowed}),
  };
}

std::vector<SweepCase> name_cases() {
  const std::initializer_list<const char*> per_dimension = {
      "OlvOtlGetMemberInfo", "OlvOtlGetGenNamesEx", "OlvOtlGetLevelNamesEx"};
  return {
      on_outline(NAMED_NATIVE(getGenerations), "Year", list),
      on_outline(NAMED_NATIVE(getLevels), "Year", list),
      on_outline(NAMED_NATIVE(getActualGenerations), "Year", list),
      on_outline(NAMED_NATIVE(getActualLevels), "Year", list),
      on_outline(NAMED_NATIVE(getAllGenerations), list).swallows(per_dimension),
      on_outline(NAMED_NATIVE(getAllLevels), list).swallows(per_dimension),
      on_outline(NAMED_NATIVE(getAllGenerationsQuery), list).may_swallow(per_dimension),
      on_outline(NAMED_NATIVE(getAllLevelsQuery), list).may_swallow(per_dimension),
      on_outline(NAMED_NATIVE(createGeneration), "Year", "New", 2),
      on_outline(NAMED_NATIVE(createLevel), "Year", "New", 2),
      on_outline(NAMED_NATIVE(deleteGeneration), "Year", 2),
      on_outline(NAMED_NATIVE(deleteLevel), "Year", 2),
      on_outline(NAMED_NATIVE(getDTSMembers), list),
      on_outline(NAMED_NATIVE(getDTSMembersEx), list)
          .swallows({"OlvOtlGetOutlineInfo", "OlvOtlGetDTSMemberAlias"}),
      on_outline(NAMED_NATIVE(enableDTSMember), "Q-T-D", 1, true)
          .swallows({"OlvOtlGetEnabledDTSMembers"})
          .may_swallow({"OlvOtlEnableDTSMember"}),
      on_outline(NAMED_NATIVE(setDTSMemberAlias), "Y-T-D", "Alias", "Default"),
      on_outline(NAMED_NATIVE(deleteDTSMemberAlias), "Y-T-D", "Default"),
      on_outline(NAMED_NATIVE(listDTSLatestMembers), "Year", list)
          .answers_without_outline(kStatusRefused),
  };
}

std::vector<SweepCase> search_cases() {
  return {
      on_outline(NAMED_NATIVE(listOutlineMembers), "Qtr1", true, "default", list),
      sweep_case(NAMED_NATIVE(listFindMembers), outline, "Year", "*", true, "Long Names", list)
          // The parent's failures end the walk unless the member's own alias can be read.
          .may_swallow({"OlvOtlGetMemberInfo", "OlvOtlGetMemberAlias"}),
      sweep_case(NAMED_NATIVE(findMember), outline, "Jan")
          .on("OlvOtlFindMember", {JNI_FALSE})
          .answers_without_results(JNI_FALSE)
          .answers_without_texts(JNI_FALSE),
      on_outline(NAMED_NATIVE(findRequest), wide_request, list)
          .answers_without_texts(kStatusOk)
          .swallows({"OlvOtlGetOutlineInfo", "OlvOtlGetFirstMember", "OlvOtlGetChild",
                     "OlvOtlGetParent", "OlvOtlGetNextSibling", "OlvOtlGetMemberInfo",
                     "OlvOtlGetMemberAlias", "OlvOtlGetUserAttributes", "OlvOtlGetMemberFormula"}),
      sweep_case(NAMED_NATIVE(findMemberQuery), outline, "Jan", "Default", false, false, list)
          .may_swallow({"OlvOtlQueryMembers", "OlvOtlGetMemberInfo"})
          .swallows({"OlvOtlGetMemberAlias"}),
  };
}

std::vector<SweepCase> file_cases() {
  return {
      on_outline(NAMED_NATIVE(exportAliasTable), "Default", temporary_path("sweep_export.alt"))
          .may_swallow({"OlvOtlGetChild", "OlvOtlGetNextSibling"})
          .swallows({"OlvOtlGetMemberInfo", "OlvOtlGetMemberAlias"}),
      on_outline(NAMED_NATIVE(importAliasTable), file_to_import, buffer(""), true, buffer(""))
          .may_swallow({"OlvOtlFindMember", "OlvOtlSetMemberAlias"}),
  };
}

}  // namespace

std::vector<SweepCase> all_cases() {
  std::vector<SweepCase> all;
  for (const std::vector<SweepCase>& family :
       {lifecycle_cases(), listing_cases(), detail_cases(), settings_cases(), shape_cases(),
        property_cases(), attribute_cases(), copy_cases(), name_cases(), search_cases(),
        file_cases()}) {
    all.insert(all.end(), family.begin(), family.end());
  }
  return all;
}
