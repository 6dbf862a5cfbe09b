// Sweep entries of changes to the outline's shape, to member properties, and of copies.
#include "tests/native/sweep.h"

namespace {

// The two wrappers and a member's handle, then whatever `rest` makes.
template <typename Native, typename Rest>
SweepCase on_member(const char* name, Native native, const char* member, Rest rest) {
  return sweep_case(name, native, [=](JavaObjects& java) {
    return std::tuple_cat(
        std::make_tuple(java.instance(), java.outline(), JavaObjects::handle(member)), rest(java));
  });
}

template <typename Native>
SweepCase code_on(const char* name, Native native, const char* member, const char* class_name) {
  return on_member(name, native, member,
                   [=](JavaObjects& java) { return std::make_tuple(java.code(class_name, 7)); });
}

template <typename Native>
SweepCase flag_on(const char* name, Native native, const char* member) {
  return on_member(name, native, member,
                   [](JavaObjects&) { return std::make_tuple(jboolean{JNI_TRUE}); });
}

template <typename Native>
SweepCase text_on(const char* name, Native native, const char* member, const char* text) {
  return on_member(name, native, member,
                   [=](JavaObjects& java) { return std::make_tuple(java.text(text)); });
}

std::vector<SweepCase> shape_cases() {
  const auto create = [](const char* parent, const char* name) {
    return [=](JavaObjects& java) {
      return std::make_tuple(java.instance(), java.outline(), JavaObjects::handle(parent), jint{0},
                             java.text(name), java.list());
    };
  };
  return {
      // The defaults do without the dimension's record, and an object that cannot be built is no
      // failure of the change.
      sweep_case("createMember", NATIVE(createMember), create("Qtr1", "New"))
          .swallows({"OlvOtlGetParent", "OlvOtlGetMemberInfo"}),
      sweep_case("createMember_InAttributeDimension", NATIVE(createMember), create("Pack", "New"))
          .swallows({"OlvOtlGetParent", "OlvOtlGetMemberInfo"}),
      sweep_case("createMember_NameInUse", NATIVE(createMember), create("Qtr1", "Sales"))
          .swallows({"OlvOtlGetParent", "OlvOtlGetMemberInfo"})
          .on("OlvOtlRenameMemberEx", {kStatusDuplicateName}),
      text_on("renameMember", NATIVE(renameMember), "Jan", "January"),
      on_member("moveMember", NATIVE(moveMember), "Qtr2",
                [](JavaObjects&) {
                  return std::make_tuple(JavaObjects::handle("Jan"), jboolean{JNI_FALSE});
                }),
      on_member("deleteMember", NATIVE(deleteMember), "Qtr1",
                [](JavaObjects&) { return std::make_tuple(); }),
      flag_on("sortChildren", NATIVE(sortChildren), "Qtr1"),
  };
}

std::vector<SweepCase> property_cases() {
  return {
      code_on("assignMemberConsolidation", NATIVE(assignMemberConsolidation), "Jan",
              "Consolidation"),
      code_on("assignMemberShare", NATIVE(assignMemberShare), "Jan", "Share"),
      code_on("assignMemberTimeBalance", NATIVE(assignMemberTimeBalance), "Jan", "TimeBalance"),
      code_on("assignMemberTimeBalanceSkip", NATIVE(assignMemberTimeBalanceSkip), "Jan",
              "TimeBalanceSkip"),
      code_on("assignMemberConversion", NATIVE(assignMemberConversion), "Jan",
              "CurrencyConversion"),
      flag_on("assignMemberTwoPass", NATIVE(assignMemberTwoPass), "Jan"),
      flag_on("assignMemberVariance", NATIVE(assignMemberVariance), "Jan"),
      text_on("assignMemberCategory", NATIVE(assignMemberCategory), "Jan", "EUR"),
      text_on("assignMemberComment", NATIVE(assignMemberComment), "Jan", "A comment"),
      text_on("updateMemberFormula", NATIVE(updateMemberFormula), "Jan", "Feb*2;"),
      text_on("setMemberUDA", NATIVE(setMemberUDA), "Jan", "Warm"),
      text_on("deleteMemberUDA", NATIVE(deleteMemberUDA), "Cola", "Cold"),
      on_member("assignMemberAlias", NATIVE(assignMemberAlias), "Jan",
                [](JavaObjects& java) {
                  return std::make_tuple(java.text("Default"), java.text("First"));
                }),
  };
}

std::vector<SweepCase> attribute_cases() {
  return {
      on_member("assignAttributeDimension", NATIVE(assignAttributeDimension), "Measures",
                [](JavaObjects&) { return std::make_tuple(JavaObjects::handle("Pack")); }),
      text_on("unassignAttributeDimension", NATIVE(unassignAttributeDimension), "Product", "Pack"),
      text_on("assignAttributeMember", NATIVE(assignAttributeMember), "Tea", "Bottle")
          .answers_without_outline(kStatusRefused),
      text_on("unassignAttributeMember", NATIVE(unassignAttributeMember), "Cola", "Can"),
      flag_on("assignDimensionHybridAnalysis", NATIVE(assignDimensionHybridAnalysis), "Year"),
      code_on("assignDimensionStorageType", NATIVE(assignDimensionStorageType), "Product",
              "DimensionStorageType")
          .swallows({"OlvOtlGetAssociatedAttributes", "OlvOtlDisassociateAttributeDimension"}),
      // Where the dimension goes is found as well as it can be.
      on_member("assignMemberDimensionCategory", NATIVE(assignMemberDimensionCategory), "Measures",
                [](JavaObjects& java) {
                  return std::make_tuple(java.code("DimensionCategory", kCategoryAttribute),
                                         java.code("AttributeType", 3));
                })
          .may_swallow({"OlvOtlGetMemberInfo"})
          .swallows({"OlvOtlGetNextSibling", "OlvOtlGetPrevSibling"}),
  };
}

std::vector<SweepCase> copy_cases() {
  const auto copy = [](const char* target, const char* source, bool as_sibling) {
    return [=](JavaObjects& java) {
      return std::make_tuple(java.instance(), java.outline(), java.text(target), jint{0},
                             java.text(source), jint{0},
                             static_cast<jboolean>(as_sibling ? JNI_TRUE : JNI_FALSE),
                             java.make("api/outline/CopyRequest"), java.list());
    };
  };
  const std::initializer_list<const char*> details = {
      "OlvOtlGetUserAttributes",       "OlvOtlSetUserAttribute",        "OlvOtlGetMemberCommentEx",
      "OlvOtlSetMemberCommentEx",      "OlvOtlGetMemberFormula",        "OlvOtlSetMemberFormula",
      "OlvOtlGetAssociatedAttributes", "OlvOtlAssociateAttributeMember"};
  const std::vector<long> failed = {kStatusCopyFailed};
  const std::vector<long> failed_or_swallowed = {kStatusCopyFailed, kSwallowed};
  const auto with_answers = [=](SweepCase entry) {
    return entry.swallows(details)
        .swallows({"OlvOtlGetChild"})
        .on("OlvOtlFindMember", failed)
        .on("OlvOtlAddMemberEx", failed)
        .on("OlvOtlAddDimension", failed)
        .on("OlvOtlRenameMemberEx", failed)
        .on("OlvOtlGetParent", failed_or_swallowed)
        .on("OlvOtlGetMemberInfo", failed_or_swallowed);
  };
  return {
      with_answers(sweep_case("copyMember", NATIVE(copyMember), copy("Product", "Cola", false))),
      // The search for a free name takes a failure for a name that is free.
      with_answers(
          sweep_case("copyMember_AsDimension", NATIVE(copyMember), copy("Product", "Cola", true)))
          .on("OlvOtlFindMember", failed_or_swallowed),
      with_answers(sweep_case("copyContinue", NATIVE(copyContinue),
                              [](JavaObjects& java) {
                                jobject request = java.make("api/outline/CopyRequest");
                                java.set(request, "setFirstSourceHandle", "(I)V",
                                         JavaObjects::handle("Year"));
                                java.set(request, "setLastSourceHandle", "(I)V",
                                         JavaObjects::handle("Year"));
                                java.set(request, "setLastTargetHandle", "(I)V",
                                         JavaObjects::handle("Sales"));
                                return std::make_tuple(java.instance(), java.outline(), request);
                              }))
          .on("OlvOtlGetChild", {kPassedOn})
          .on("OlvOtlGetParent", {kStatusCopyFailed, kPassedOn, kSwallowed})
          .on("OlvOtlGetNextSibling", {kPassedOn, kSwallowed}),
  };
}

}  // namespace

std::vector<SweepCase> edit_cases() {
  std::vector<SweepCase> cases;
  for (const std::vector<SweepCase>& group :
       {shape_cases(), property_cases(), attribute_cases(), copy_cases()}) {
    cases.insert(cases.end(), group.begin(), group.end());
  }
  return cases;
}
