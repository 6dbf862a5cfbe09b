// Sweep entries of outline settings and alias tables.
#include "tests/native/sweep.h"

namespace {

// The outline and an object that takes what is read.
template <typename Native>
SweepCase reader(const char* name, Native native, const char* target) {
  return sweep_case(name, native, [=](JavaObjects& java) {
    return std::make_tuple(java.outline(), java.make(target));
  });
}

// The two wrappers, then whatever `rest` makes.
template <typename Native, typename Rest>
SweepCase with_wrappers(const char* name, Native native, Rest rest) {
  return sweep_case(name, native, [=](JavaObjects& java) {
    return std::tuple_cat(std::make_tuple(java.instance(), java.outline()), rest(java));
  });
}

template <typename Native>
SweepCase text_update(const char* name, Native native) {
  return with_wrappers(name, native,
                       [](JavaObjects& java) { return std::make_tuple(java.text("New")); });
}

template <typename Native>
SweepCase code_update(const char* name, Native native, const char* class_name) {
  return with_wrappers(
      name, native, [=](JavaObjects& java) { return std::make_tuple(java.code(class_name, 7)); });
}

template <typename Native>
SweepCase flag_update(const char* name, Native native) {
  return with_wrappers(name, native,
                       [](JavaObjects&) { return std::make_tuple(jboolean{JNI_TRUE}); });
}

}  // namespace

std::vector<SweepCase> settings_cases() {
  const auto two_tables = [](JavaObjects& java) {
    return std::make_tuple(java.text("Codes"), java.text("New"));
  };
  return {
      reader("getOutlineInfo", NATIVE(getOutlineInfo), "defs/outline/OutlineInformation"),
      with_wrappers("getSettings", NATIVE(getSettings),
                    [](JavaObjects& java) {
                      return std::make_tuple(java.make("defs/outline/OutlineSettings"));
                    }),
      reader("getAttributeSpecs", NATIVE(getAttributeSpecs), "defs/outline/AttributeSpecification"),
      with_wrappers("getAttributeSpecsEx", NATIVE(getAttributeSpecsEx),
                    [](JavaObjects& java) {
                      return std::make_tuple(java.make("defs/outline/AttributeSettings"));
                    }),
      flag_update("updateAutoConfigure", NATIVE(updateAutoConfigure)),
      flag_update("updateCaseSensitivity", NATIVE(updateCaseSensitivity)),
      code_update("updateLongnameConstructor", NATIVE(updateLongnameConstructor),
                  "LongNameConstructor"),
      code_update("updateLongnameSource", NATIVE(updateLongnameSource), "LongNameSource"),
      code_update("updateLongnameDelimiter", NATIVE(updateLongnameDelimiter), "LongNameDelimiter"),
      code_update("updateDateFormat", NATIVE(updateDateFormat), "AttributeDateFormat"),
      code_update("updateBucketingType", NATIVE(updateBucketingType), "BucketingType"),
      text_update("updateBooleanNameTrue", NATIVE(updateBooleanNameTrue)),
      text_update("updateBooleanNameFalse", NATIVE(updateBooleanNameFalse)),
      text_update("updateCalcDimName", NATIVE(updateCalcDimName)),
      text_update("updateSumMemberName", NATIVE(updateSumMemberName)),
      text_update("updateCountMemberName", NATIVE(updateCountMemberName)),
      text_update("updateAverageMemberName", NATIVE(updateAverageMemberName)),
      text_update("updateMinimumMemberName", NATIVE(updateMinimumMemberName)),
      text_update("updateMaximumMemberName", NATIVE(updateMaximumMemberName)),
      text_update("createAliasTable", NATIVE(createAliasTable)),
      text_update("deleteAliasTable", NATIVE(deleteAliasTable)),
      text_update("clearAliasTable", NATIVE(clearAliasTable)),
      with_wrappers("renameAliasTable", NATIVE(renameAliasTable), two_tables),
      with_wrappers("copyAliasTable", NATIVE(copyAliasTable),
                    [=](JavaObjects& java) {
                      return std::tuple_cat(two_tables(java), std::make_tuple(jboolean{JNI_TRUE}));
                    }),
  };
}
