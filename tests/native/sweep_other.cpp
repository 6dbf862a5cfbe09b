// Sweep entries of calculation-script lists, generations and levels, time series, searches and
// alias files.
#include <cstdio>
#include <fstream>

#include "tests/native/sweep.h"

namespace {

// The two wrappers, then whatever `rest` makes.
template <typename Native, typename Rest>
SweepCase with_wrappers(const char* name, Native native, Rest rest) {
  return sweep_case(name, native, [=](JavaObjects& java) {
    return std::tuple_cat(std::make_tuple(java.instance(), java.outline()), rest(java));
  });
}

template <typename Native>
SweepCase into_list(const char* name, Native native) {
  return with_wrappers(name, native,
                       [](JavaObjects& java) { return std::make_tuple(java.list()); });
}

template <typename Native>
SweepCase dimension_into_list(const char* name, Native native) {
  return with_wrappers(name, native, [](JavaObjects& java) {
    return std::make_tuple(java.text("Year"), java.list());
  });
}

std::vector<SweepCase> name_cases() {
  const auto create = [](JavaObjects& java) {
    return std::make_tuple(java.text("Year"), java.text("New"), jshort{2});
  };
  const auto remove = [](JavaObjects& java) {
    return std::make_tuple(java.text("Year"), jshort{2});
  };
  const std::initializer_list<const char*> per_dimension = {
      "OlvOtlGetMemberInfo", "OlvOtlGetGenNamesEx", "OlvOtlGetLevelNamesEx"};
  return {
      dimension_into_list("getGenerations", NATIVE(getGenerations)),
      dimension_into_list("getLevels", NATIVE(getLevels)),
      dimension_into_list("getActualGenerations", NATIVE(getActualGenerations)),
      dimension_into_list("getActualLevels", NATIVE(getActualLevels)),
      into_list("getAllGenerations", NATIVE(getAllGenerations)).swallows(per_dimension),
      into_list("getAllLevels", NATIVE(getAllLevels)).swallows(per_dimension),
      into_list("getAllGenerationsQuery", NATIVE(getAllGenerationsQuery))
          .may_swallow(per_dimension),
      into_list("getAllLevelsQuery", NATIVE(getAllLevelsQuery)).may_swallow(per_dimension),
      with_wrappers("createGeneration", NATIVE(createGeneration), create),
      with_wrappers("createLevel", NATIVE(createLevel), create),
      with_wrappers("deleteGeneration", NATIVE(deleteGeneration), remove),
      with_wrappers("deleteLevel", NATIVE(deleteLevel), remove),
  };
}

std::vector<SweepCase> time_series_cases() {
  return {
      into_list("getDTSMembers", NATIVE(getDTSMembers)),
      into_list("getDTSMembersEx", NATIVE(getDTSMembersEx))
          .swallows({"OlvOtlGetOutlineInfo", "OlvOtlGetDTSMemberAlias"}),
      with_wrappers("enableDTSMember", NATIVE(enableDTSMember),
                    [](JavaObjects& java) {
                      return std::make_tuple(java.text("Q-T-D"), jshort{1}, jboolean{JNI_TRUE});
                    })
          .swallows({"OlvOtlGetEnabledDTSMembers"})
          .may_swallow({"OlvOtlEnableDTSMember"}),
      with_wrappers("setDTSMemberAlias", NATIVE(setDTSMemberAlias),
                    [](JavaObjects& java) {
                      return std::make_tuple(java.text("Y-T-D"), java.text("Alias"),
                                             java.text("Default"));
                    }),
      with_wrappers("deleteDTSMemberAlias", NATIVE(deleteDTSMemberAlias),
                    [](JavaObjects& java) {
                      return std::make_tuple(java.text("Y-T-D"), java.text("Default"));
                    }),
      dimension_into_list("listDTSLatestMembers", NATIVE(listDTSLatestMembers))
          .answers_without_outline(kStatusRefused),
  };
}

// A request that tries every source for every member.
jobject wide_request(JavaObjects& java) {
  jobject request = java.make("api/outline/FindRequest");
  java.set(request, "setText", "(Ljava/lang/String;)V", java.text("Co"));
  java.set(request, "setAliasTableUsage", "(S)V", jshort{1});
  java.set(request, "setSearchMemberNames", "(Z)V", jboolean{JNI_TRUE});
  java.set(request, "setSearchFormulas", "(Z)V", jboolean{JNI_TRUE});
  java.set(request, "setSearchUDAS", "(Z)V", jboolean{JNI_TRUE});
  return request;
}

std::vector<SweepCase> search_cases() {
  return {
      with_wrappers("listOutlineMembers", NATIVE(listOutlineMembers),
                    [](JavaObjects& java) {
                      return std::make_tuple(java.text("Qtr1"), jboolean{JNI_TRUE},
                                             java.text("default"), java.list());
                    }),
      sweep_case("listFindMembers", NATIVE(listFindMembers),
                 [](JavaObjects& java) {
                   return std::make_tuple(java.outline(), java.text("Year"), java.text("*"),
                                          jboolean{JNI_TRUE}, java.text("Long Names"), java.list());
                 })
          // The parent's failures end the walk unless the member's own alias can be read.
          .may_swallow({"OlvOtlGetMemberInfo", "OlvOtlGetMemberAlias"}),
      sweep_case(
          "findMember", NATIVE(findMember),
          [](JavaObjects& java) { return std::make_tuple(java.outline(), java.text("Jan")); })
          .on("OlvOtlFindMember", {JNI_FALSE}),
      with_wrappers(
          "findRequest", NATIVE(findRequest),
          [](JavaObjects& java) { return std::make_tuple(wide_request(java), java.list()); })
          .swallows({"OlvOtlGetOutlineInfo", "OlvOtlGetFirstMember", "OlvOtlGetChild",
                     "OlvOtlGetParent", "OlvOtlGetNextSibling", "OlvOtlGetMemberInfo",
                     "OlvOtlGetMemberAlias", "OlvOtlGetUserAttributes", "OlvOtlGetMemberFormula"}),
      sweep_case("findMemberQuery", NATIVE(findMemberQuery),
                 [](JavaObjects& java) {
                   return std::make_tuple(java.outline(), java.text("Jan"), java.text("Default"),
                                          jboolean{JNI_FALSE}, jboolean{JNI_FALSE}, java.list());
                 })
          .may_swallow({"OlvOtlQueryMembers", "OlvOtlGetMemberInfo"})
          .swallows({"OlvOtlGetMemberAlias"}),
  };
}

std::vector<SweepCase> file_cases() {
  const std::string exported = temporary_path("sweep_export.alt");
  const std::string imported = temporary_path("sweep_import.alt");
  return {
      with_wrappers("exportAliasTable", NATIVE(exportAliasTable),
                    [=](JavaObjects& java) {
                      return std::make_tuple(java.text("Default"), java.text(exported.c_str()));
                    })
          .may_swallow({"OlvOtlGetChild", "OlvOtlGetNextSibling"})
          .swallows({"OlvOtlGetMemberInfo", "OlvOtlGetMemberAlias"}),
      with_wrappers("importAliasTable", NATIVE(importAliasTable),
                    [=](JavaObjects& java) {
                      std::ofstream(imported) << "$ALT_NAME  'New'\n"
                                                 "\"Jan\"   \"January\"\n"
                                                 "\"Nowhere\"   \"Nothing\"\n"
                                                 "Feb February\n"
                                                 "$END\n";
                      return std::make_tuple(java.text(imported.c_str()), java.buffer(""),
                                             jboolean{JNI_TRUE}, java.buffer(""));
                    })
          .may_swallow({"OlvOtlFindMember", "OlvOtlSetMemberAlias"}),
  };
}

}  // namespace

std::vector<SweepCase> other_cases() {
  std::vector<SweepCase> cases;
  for (const std::vector<SweepCase>& group :
       {name_cases(), time_series_cases(), search_cases(), file_cases()}) {
    cases.insert(cases.end(), group.begin(), group.end());
  }
  return cases;
}
