// Sweep entries of listings and member details.
#include "tests/native/sweep.h"

namespace {

// Requests by handle and by name, one of them for a member that does not exist.
jobject requests(JavaObjects& java) {
  return java.list({java.request(JavaObjects::handle("Cola")), java.request("Nowhere"),
                    java.request("Sales"), java.request("Jan")});
}

// An entry whose native method takes the instance, the outline, a name, a handle and a target.
template <typename Native, typename Target>
SweepCase by_handle_or_name(const char* name, Native native, const char* member, Target target) {
  return sweep_case(name, native, [=](JavaObjects& java) {
    return std::make_tuple(java.instance(), java.outline(), java.text(member), jint{0},
                           target(java));
  });
}

template <typename Native>
SweepCase block(const char* name, Native native) {
  return sweep_case(name, native,
                    [](JavaObjects& java) {
                      return std::make_tuple(java.instance(), java.outline(), requests(java),
                                             java.list());
                    })
      .may_swallow({"OlvOtlFindMember", "OlvOtlGetMemberFormula", "OlvOtlGetMemberAlias",
                    "OlvOtlGetMemberInfo", "OlvOtlGetAssociatedAttributes",
                    "OlvOtlGetUserAttributes"});
}

std::vector<SweepCase> listing_cases() {
  const auto list = [](JavaObjects& java) { return java.list(); };
  return {
      sweep_case("getMemberInfo", NATIVE(getMemberInfo),
                 [](JavaObjects& java) {
                   return std::make_tuple(java.outline(), java.text("Costs"),
                                          java.make("defs/OutlineMemberProperties"));
                 }),
      sweep_case("getDimensions", NATIVE(getDimensions),
                 [](JavaObjects& java) { return std::make_tuple(java.outline(), java.list()); })
          .may_swallow({"OlvOtlGetMemberInfo"}),
      sweep_case("getDimensionsAlias", NATIVE(getDimensionsAlias),
                 [](JavaObjects& java) {
                   return std::make_tuple(java.instance(), java.outline(), java.text("Default"),
                                          java.list());
                 })
          .may_swallow({"OlvOtlGetMemberInfo"})
          .swallows({"OlvOtlGetMemberAlias"}),
      sweep_case("getChildrenFor", NATIVE(getChildrenFor),
                 [](JavaObjects& java) {
                   return std::make_tuple(java.outline(), java.text("Year"), java.text("Qtr1"),
                                          java.list());
                 })
          .may_swallow({"OlvOtlGetMemberInfo"}),
      sweep_case("getChildrenAliasFor", NATIVE(getChildrenAliasFor),
                 [](JavaObjects& java) {
                   return std::make_tuple(java.instance(), java.outline(), java.text("Year"),
                                          java.text("Qtr1"), java.text("Default"), java.list());
                 })
          .may_swallow({"OlvOtlGetMemberInfo"})
          .swallows({"OlvOtlGetMemberAlias"}),
      sweep_case("getChildrenWithProperties", NATIVE(getChildrenWithProperties),
                 [](JavaObjects& java) {
                   return std::make_tuple(java.instance(), java.outline(), java.text("Product"),
                                          java.text("Product"), jlong{0}, jint{2}, java.list());
                 })
          .may_swallow({"OlvOtlGetMemberInfo"})
          .swallows({"OlvOtlQueryAttributes", "OlvOtlGetMemberAlias"}),
      sweep_case("getChildrenEx", NATIVE(getChildrenEx),
                 [](JavaObjects& java) {
                   return std::make_tuple(java.instance(), java.outline(), java.text("Product"),
                                          jint{0}, java.list());
                 })
          .swallows({"OlvOtlGetMemberInfo", "OlvOtlGetParent"}),
      sweep_case("getChildrenExQuery", NATIVE(getChildrenExQuery),
                 [](JavaObjects& java) {
                   return std::make_tuple(java.outline(), java.text("Year"), java.text("Qtr1"),
                                          java.list());
                 })
          .swallows({"OlvOtlGetMemberInfo", "OlvOtlGetParent"}),
      sweep_case("getDimensionsEx", NATIVE(getDimensionsEx),
                 [](JavaObjects& java) {
                   return std::make_tuple(java.instance(), java.outline(), java.list());
                 })
          .swallows({"OlvOtlGetMemberInfo", "OlvOtlGetParent", "OlvOtlGetChild"}),
      sweep_case("getDimensionsExQuery", NATIVE(getDimensionsExQuery),
                 [](JavaObjects& java) { return std::make_tuple(java.outline(), java.list()); })
          .swallows({"OlvOtlGetMemberInfo", "OlvOtlGetParent", "OlvOtlGetChild"}),
      by_handle_or_name("getMemberAncestors", NATIVE(getMemberAncestors), "Jan", list)
          .may_swallow({"OlvOtlGetParent"})
          .swallows({"OlvOtlGetMemberInfo", "OlvOtlGetChild"}),
      by_handle_or_name("getMemberChildCount", NATIVE(getMemberChildCount), "Qtr1", list),
      by_handle_or_name("getMemberLevel", NATIVE(getMemberLevel), "Qtr1", list),
  };
}

std::vector<SweepCase> detail_cases() {
  const auto list = [](JavaObjects& java) { return java.list(); };
  const auto target = [](JavaObjects& java) { return java.make("defs/outline/DefaultMember"); };
  return {
      by_handle_or_name("getMemberFormula", NATIVE(getMemberFormula), "Sales", target),
      sweep_case("getMemberFormulaQuery", NATIVE(getMemberFormulaQuery),
                 [=](JavaObjects& java) {
                   return std::make_tuple(java.instance(), java.outline(), java.text("Sales"),
                                          target(java));
                 }),
      block("getMemberFormulaBlock", NATIVE(getMemberFormulaBlock)),
      sweep_case("getMemberAliases", NATIVE(getMemberAliases),
                 [](JavaObjects& java) {
                   return std::make_tuple(java.instance(), java.outline(),
                                          JavaObjects::handle("Jan"), java.list());
                 })
          .may_swallow({"OlvOtlGetMemberAlias"}),
      sweep_case("getMemberAliasesQuery", NATIVE(getMemberAliasesQuery),
                 [](JavaObjects& java) {
                   return std::make_tuple(java.instance(), java.outline(), java.text("Jan"),
                                          java.list());
                 })
          .may_swallow({"OlvOtlGetMemberAlias"}),
      block("getMemberAliasesBlock", NATIVE(getMemberAliasesBlock)),
      sweep_case("getMemberAliasesForTable", NATIVE(getMemberAliasesForTable),
                 [](JavaObjects& java) {
                   jobject names = java.list(
                       {java.text("Jan"), java.text("Nowhere"), java.text(""), java.text("Year")});
                   return std::make_tuple(java.instance(), java.outline(), java.text("Default"),
                                          names, java.list(), jboolean{JNI_FALSE});
                 })
          .may_swallow({"OlvOtlFindMember", "OlvOtlGetMemberAlias"}),
      sweep_case("getMemberAttributes", NATIVE(getMemberAttributes),
                 [](JavaObjects& java) {
                   return std::make_tuple(java.instance(), java.outline(),
                                          JavaObjects::handle("Cola"), java.list());
                 })
          .may_swallow({"OlvOtlGetMemberInfo"}),
      sweep_case("getMemberAttributesQuery", NATIVE(getMemberAttributesQuery),
                 [](JavaObjects& java) {
                   return std::make_tuple(java.instance(), java.outline(), java.text("Cola"));
                 }),
      block("getMemberAttributesBlock", NATIVE(getMemberAttributesBlock)),
      by_handle_or_name("getMemberUDAS", NATIVE(getMemberUDAS), "Cola", list),
      sweep_case("getMemberUDASQuery", NATIVE(getMemberUDASQuery),
                 [](JavaObjects& java) {
                   return std::make_tuple(java.instance(), java.outline(), java.text("Cola"),
                                          java.list());
                 }),
      block("getMemberUDASBlock", NATIVE(getMemberUDASBlock)),
      by_handle_or_name("getDimensionUDAS", NATIVE(getDimensionUDAS), "Product", list),
  };
}

}  // namespace

std::vector<SweepCase> browse_cases() {
  std::vector<SweepCase> cases = listing_cases();
  const std::vector<SweepCase> details = detail_cases();
  cases.insert(cases.end(), details.begin(), details.end());
  return cases;
}
