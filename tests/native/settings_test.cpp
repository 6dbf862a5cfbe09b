// Outline-wide settings, attribute specifications and alias tables.
#include "tests/native/native_test.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class SettingsTest : public NativeTest {
 protected:
  template <typename Native>
  jint update_code(Native native, const char* class_name, jshort value) {
    return call(native, java.instance(), java.outline(), java.code(class_name, value));
  }
  template <typename Native>
  jint update_text(Native native, const char* text) {
    return call(native, java.instance(), java.outline(), java.text(text));
  }
};

// ---- Reading ----

TEST_F(SettingsTest, OlderReaderSendsWholeBytesAndReleasesWithoutInstance) {
  api().info.configureFlags = 2;
  api().info.outlineType = -5;
  EXPECT_EQ(
      call(NATIVE(getOutlineInfo), java.outline(), java.make("defs/outline/OutlineInformation")),
      0);
  // Whatever bit is set, Java sees true.
  EXPECT_THAT(journal().lines(Entry::kJava),
              ElementsAre("OutlineHandle.getValue()", "OutlineInformation.setAutoConfigure(2)",
                          "OutlineInformation.setCaseSensitive(false)",
                          "OutlineInformation.setOutlineType(-5)",
                          "OutlineInformation.addAliasTable(\"Default\")",
                          "OutlineInformation.addAliasTable(\"Long Names\")",
                          "OutlineInformation.addAliasTable(\"Codes\")"));
  EXPECT_THAT(api_calls(),
              ElementsAre("OlvOtlGetOutlineInfo(outline)", "OlvFree(0, outline info)"));
}

TEST_F(SettingsTest, NewerReaderSeparatesFlagsAndMarksTheDefaultTable) {
  api().info.configureFlags = 2;
  api().alias_tables = {"Default", std::string(30, 't')};
  EXPECT_EQ(call(NATIVE(getSettings), java.instance(), java.outline(),
                 java.make("defs/outline/OutlineSettings")),
            0);
  EXPECT_THAT(
      java_calls(),
      ElementsAre("OutlineSettings.setAutoConfigure(false)", HasSubstr("setProvideWarnings("),
                  "OutlineSettings.setCaseSensitive(false)", "new OutlineType()",
                  "OutlineType.setValue(1)", "OutlineSettings.setOutlineType(OutlineType)",
                  "new AliasTable()", "AliasTable.setDefaultTable(true)",
                  "AliasTable.setName(\"Default\")", "OutlineSettings.addAliasTable(AliasTable)",
                  "new AliasTable()", "AliasTable.setName(\"" + std::string(30, 't') + "\")",
                  "OutlineSettings.addAliasTable(AliasTable)"));
}

TEST_F(SettingsTest, WithoutAliasTablesNoneIsAdded) {
  api().alias_tables.clear();
  EXPECT_EQ(
      call(NATIVE(getOutlineInfo), java.outline(), java.make("defs/outline/OutlineInformation")),
      0);
  EXPECT_EQ(call(NATIVE(getSettings), java.instance(), java.outline(),
                 java.make("defs/outline/OutlineSettings")),
            0);
  EXPECT_THAT(java_calls(), Not(Contains(HasSubstr("AliasTable"))));
}

TEST_F(SettingsTest, SpecificationsGoThroughSettersInOrderAndNullNamesAreSkipped) {
  EXPECT_EQ(call(NATIVE(getAttributeSpecs), java.outline(),
                 java.make("defs/outline/AttributeSpecification")),
            0);
  std::vector<std::string> calls = java_calls();
  for (std::string& line : calls) line = line.substr(line.find('.') + 1);
  EXPECT_THAT(calls, ElementsAre("setUseNameOf(2)", "setGenNameBy(1)", "setNameDelimiter(-3)",
                                 "setCalcDimensionName(\"Attribute Calculations\")",
                                 "setCalcSumName(\"Sum\")", "setCalcCountName(\"Count\")",
                                 "setCalcMinimumName(\"Min\")", "setCalcAverageName(\"Avg\")",
                                 "setBooleanNameTrue(\"True\")", "setBooleanNameFalse(\"False\")",
                                 "setDateMemberName(4)", "setNumericBound(5)"));
  EXPECT_EQ(call(NATIVE(getAttributeSpecs), java.outline(),
                 java.make("defs/outline/AttributeSpecification")),
            0);
  EXPECT_THAT(api_calls(),
              ElementsAre("OlvOtlGetAttributeSpecifications(outline)",
                          "OlvOtlFreeStructure(outline, 1, 92, attribute specification)"));
}

TEST_F(SettingsTest, FailedSpecificationReadReleasesTheNullRecord) {
  api().fail_call(1, 77);
  EXPECT_EQ(call(NATIVE(getAttributeSpecs), java.outline(),
                 java.make("defs/outline/AttributeSpecification")),
            77);
  EXPECT_THAT(api_calls(), ElementsAre("OlvOtlGetAttributeSpecifications(outline)",
                                       "OlvOtlFreeStructure(outline, 1, 92, null)"));
}

TEST_F(SettingsTest, SpecificationObjectsComeBeforeTheTexts) {
  EXPECT_EQ(call(NATIVE(getAttributeSpecsEx), java.instance(), java.outline(),
                 java.make("defs/outline/AttributeSettings")),
            0);
  EXPECT_THAT(
      java_calls(),
      ElementsAre(
          "new LongNameConstructor()", "LongNameConstructor.setValue(1)", "new LongNameSource()",
          "LongNameSource.setValue(2)", "new LongNameDelimiter()", "LongNameDelimiter.setValue(-3)",
          "new AttributeDateFormat()", "AttributeDateFormat.setValue(4)", "new BucketingType()",
          "BucketingType.setValue(5)",
          "AttributeSettings.setLongNameConstructor(LongNameConstructor)",
          "AttributeSettings.setLongNameSource(LongNameSource)",
          "AttributeSettings.setLongNameDelimiter(LongNameDelimiter)",
          "AttributeSettings.setDateFormat(AttributeDateFormat)",
          "AttributeSettings.setBucketingType(BucketingType)",
          "AttributeSettings.setTrueText(\"True\")", "AttributeSettings.setFalseText(\"False\")",
          "AttributeSettings.setCalculationDimension(\"Attribute Calculations\")",
          "AttributeSettings.setSum(\"Sum\")", "AttributeSettings.setCount(\"Count\")",
          "AttributeSettings.setAverage(\"Avg\")", "AttributeSettings.setMinimum(\"Min\")"));
}

// ---- Changing ----

TEST_F(SettingsTest, InfoUpdatesChangeOneFieldAndKeepTheWarningsBit) {
  for (jboolean on : {jboolean{JNI_TRUE}, jboolean{JNI_FALSE}, jboolean{2}}) {
    call(NATIVE(updateAutoConfigure), java.instance(), java.outline(), on);
    call(NATIVE(updateCaseSensitivity), java.instance(), java.outline(), on);
  }
  std::vector<std::string> written;
  for (const std::string& line : api_calls()) {
    if (line.find("Set") != std::string::npos) written.push_back(line);
  }
  EXPECT_THAT(written, ElementsAre("OlvOtlSetOutlineInfoEx(outline, {})",
                                   "OlvOtlSetOutlineInfoEx(outline, {caseSensitive=1})",
                                   "OlvOtlSetOutlineInfoEx(outline, {configureFlags=2})",
                                   "OlvOtlSetOutlineInfoEx(outline, {caseSensitive=0})",
                                   "OlvOtlSetOutlineInfoEx(outline, {configureFlags=3})",
                                   "OlvOtlSetOutlineInfoEx(outline, {caseSensitive=1})"));
}

TEST_F(SettingsTest, EachSpecificationUpdateChangesItsOwnField) {
  update_code(NATIVE(updateLongnameConstructor), "LongNameConstructor", 11);
  update_code(NATIVE(updateLongnameSource), "LongNameSource", -12);
  update_code(NATIVE(updateLongnameDelimiter), "LongNameDelimiter", 256);
  update_code(NATIVE(updateLongnameDelimiter), "LongNameDelimiter", -1);
  update_code(NATIVE(updateDateFormat), "AttributeDateFormat", 14);
  update_code(NATIVE(updateBucketingType), "BucketingType", 15);
  update_text(NATIVE(updateBooleanNameTrue), "a");
  update_text(NATIVE(updateBooleanNameFalse), "b");
  update_text(NATIVE(updateCalcDimName), "c");
  update_text(NATIVE(updateSumMemberName), "");
  update_text(NATIVE(updateCountMemberName), "e");
  update_text(NATIVE(updateAverageMemberName), "f");
  update_text(NATIVE(updateMinimumMemberName), "g");
  update_text(NATIVE(updateMaximumMemberName), "h");
  std::vector<std::string> changes;
  const std::string prefix = "OlvOtlSetAttributeSpecifications(outline, ";
  for (const std::string& line : api_calls()) {
    if (line.rfind(prefix, 0) == 0) changes.push_back(line.substr(prefix.size()));
  }
  EXPECT_THAT(changes,
              ElementsAre("{longNameConstructor=11})", "{longNameSource=-12})",
                          "{longNameDelimiter=0})", "{longNameDelimiter=-1})", "{dateFormat=14})",
                          "{bucketingType=15})", "{trueName=\"a\"})", "{falseName=\"b\"})",
                          "{calcDimensionName=\"c\"})", "{sumName=\"\"})", "{countName=\"e\"})",
                          "{averageName=\"f\"})", "{minimumName=\"g\"})", "{maximumName=\"h\"})"));
}

TEST_F(SettingsTest, UpdatesReadTheValueOnlyAfterTheRecord) {
  EXPECT_EQ(update_text(NATIVE(updateSumMemberName), "New"), 0);
  EXPECT_THAT(all_calls(),
              ElementsAre(HasSubstr("InstanceHandle"), HasSubstr("OutlineHandle"),
                          "OlvOtlGetAttributeSpecifications(outline)", "chars(\"New\")",
                          "OlvOtlSetAttributeSpecifications(outline, {sumName=\"New\"})",
                          "release(\"New\")", "OlvFree(inst, attribute specification)"));
  api().fail_call(1, 77);
  EXPECT_EQ(update_code(NATIVE(updateDateFormat), "AttributeDateFormat", 1), 77);
  EXPECT_THAT(java_calls(), IsEmpty());
}

// ---- Alias tables ----

TEST_F(SettingsTest, AliasTableCallsSwapTheTwoNames) {
  const auto two = [&](jint (*native)(JNIEnv*, jclass, jobject, jobject, jstring, jstring)) {
    return call(native, java.instance(), java.outline(), java.text("Codes"), java.text("B"));
  };
  EXPECT_EQ(two(NATIVE(renameAliasTable)), 0);
  EXPECT_EQ(call(NATIVE(copyAliasTable), java.instance(), java.outline(), java.text("Codes"),
                 java.text("B"), jboolean{JNI_TRUE}),
            0);
  EXPECT_EQ(update_text(NATIVE(createAliasTable), "Codes"), kStatusAliasTableExists);
  EXPECT_EQ(update_text(NATIVE(createAliasTable), ""), 0);
  EXPECT_EQ(update_text(NATIVE(clearAliasTable), "Codes"), 0);
  EXPECT_EQ(update_text(NATIVE(deleteAliasTable), "None"), kNoSuchTable);
  EXPECT_THAT(api_calls(), ElementsAre("OlvOtlRenameAliasTable(outline, \"B\", \"Codes\")",
                                       "OlvOtlCopyAliasTable(outline, \"B\", \"Codes\", 1)",
                                       "OlvOtlCreateAliasTable(outline, \"Codes\")",
                                       "OlvOtlCreateAliasTable(outline, \"\")",
                                       "OlvOtlClearAliasTable(outline, \"Codes\")",
                                       "OlvOtlDeleteAliasTable(outline, \"None\")"));
}

TEST_F(SettingsTest, AliasTableCallsReadNoNamesWithoutAnOutline) {
  EXPECT_EQ(call(NATIVE(createAliasTable), java.instance(), java.outline(0), java.text("x")), 0);
  EXPECT_EQ(call(NATIVE(copyAliasTable), java.instance(), java.outline(0), java.text("x"),
                 java.text("y"), jboolean{JNI_FALSE}),
            0);
  EXPECT_THAT(journal().lines(Entry::kText), IsEmpty());
}

}  // namespace
