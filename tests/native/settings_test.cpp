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
  jint read_info() {
    return call(NATIVE(getOutlineInfo), java.outline(),
                java.make("defs/outline/OutlineInformation"));
  }
  jint read_settings() {
    return on_outline(NATIVE(getSettings), java.make("defs/outline/OutlineSettings"));
  }
  jint read_specs() {
    return call(NATIVE(getAttributeSpecs), java.outline(),
                java.make("defs/outline/AttributeSpecification"));
  }
};

// ---- Reading ----

TEST_F(SettingsTest, OlderReaderSendsWholeBytesAndReleasesWithoutInstance) {
  api().info.configureFlags = 2;
  api().info.outlineType = -5;
  EXPECT_EQ(read_info(), 0);
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
  EXPECT_EQ(read_settings(), 0);
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
  EXPECT_EQ(read_info(), 0);
  EXPECT_EQ(read_settings(), 0);
  EXPECT_THAT(java_calls(), Not(Contains(HasSubstr("AliasTable"))));
}

TEST_F(SettingsTest, SpecificationsGoThroughSettersInOrderAndNullNamesAreSkipped) {
  EXPECT_EQ(read_specs(), 0);
  EXPECT_THAT(journal().lines(Entry::kApi),
              ElementsAre("OlvOtlGetAttributeSpecifications(outline)",
                          "OlvOtlFreeStructure(outline, 1, 92, attribute specification)"));
  EXPECT_THAT(
      calls_of("AttributeSpecification."),
      ElementsAre("setUseNameOf(2)", "setGenNameBy(1)", "setNameDelimiter(-3)",
                  "setCalcDimensionName(\"Attribute Calculations\")", "setCalcSumName(\"Sum\")",
                  "setCalcCountName(\"Count\")", "setCalcMinimumName(\"Min\")",
                  "setCalcAverageName(\"Avg\")", "setBooleanNameTrue(\"True\")",
                  "setBooleanNameFalse(\"False\")", "setDateMemberName(4)", "setNumericBound(5)"));
}

TEST_F(SettingsTest, FailedSpecificationReadReleasesTheNullRecord) {
  api().fail_call(1, 77);
  EXPECT_EQ(read_specs(), 77);
  EXPECT_THAT(api_calls(), ElementsAre("OlvOtlGetAttributeSpecifications(outline)",
                                       "OlvOtlFreeStructure(outline, 1, 92, null)"));
}

TEST_F(SettingsTest, SpecificationObjectsComeBeforeTheTexts) {
  EXPECT_EQ(on_outline(NATIVE(getAttributeSpecsEx), java.make("defs/outline/AttributeSettings")),
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
  for (int on : {1, 0, 2}) {
    on_outline(NATIVE(updateAutoConfigure), on);
    on_outline(NATIVE(updateCaseSensitivity), on);
  }
  EXPECT_THAT(calls_of("OlvOtlSetOutlineInfoEx(outline, "),
              ElementsAre("{})", "{caseSensitive=1})", "{configureFlags=2})", "{caseSensitive=0})",
                          "{configureFlags=3})", "{caseSensitive=1})"));
}

TEST_F(SettingsTest, EachSpecificationUpdateChangesItsOwnField) {
  on_outline(NATIVE(updateLongnameConstructor), java.code("LongNameConstructor", 11));
  on_outline(NATIVE(updateLongnameSource), java.code("LongNameSource", -12));
  on_outline(NATIVE(updateLongnameDelimiter), java.code("LongNameDelimiter", 256));
  on_outline(NATIVE(updateLongnameDelimiter), java.code("LongNameDelimiter", -1));
  on_outline(NATIVE(updateDateFormat), java.code("AttributeDateFormat", 14));
  on_outline(NATIVE(updateBucketingType), java.code("BucketingType", 15));
  on_outline(NATIVE(updateBooleanNameTrue), "a");
  on_outline(NATIVE(updateBooleanNameFalse), "b");
  on_outline(NATIVE(updateCalcDimName), "c");
  on_outline(NATIVE(updateSumMemberName), "");
  on_outline(NATIVE(updateCountMemberName), "e");
  on_outline(NATIVE(updateAverageMemberName), "f");
  on_outline(NATIVE(updateMinimumMemberName), "g");
  on_outline(NATIVE(updateMaximumMemberName), "h");
  EXPECT_THAT(calls_of("OlvOtlSetAttributeSpecifications(outline, "),
              ElementsAre("{longNameConstructor=11})", "{longNameSource=-12})",
                          "{longNameDelimiter=0})", "{longNameDelimiter=-1})", "{dateFormat=14})",
                          "{bucketingType=15})", "{trueName=\"a\"})", "{falseName=\"b\"})",
                          "{calcDimensionName=\"c\"})", "{sumName=\"\"})", "{countName=\"e\"})",
                          "{averageName=\"f\"})", "{minimumName=\"g\"})", "{maximumName=\"h\"})"));
}

TEST_F(SettingsTest, UpdatesReadTheValueOnlyAfterTheRecord) {
  EXPECT_EQ(on_outline(NATIVE(updateSumMemberName), "New"), 0);
  EXPECT_THAT(all_calls(),
              ElementsAre(HasSubstr("InstanceHandle"), HasSubstr("OutlineHandle"),
                          "OlvOtlGetAttributeSpecifications(outline)", "chars(\"New\")",
                          "OlvOtlSetAttributeSpecifications(outline, {sumName=\"New\"})",
                          "release(\"New\")", "OlvFree(inst, attribute specification)"));
  api().fail_call(1, 77);
  EXPECT_EQ(on_outline(NATIVE(updateDateFormat), java.code("AttributeDateFormat", 1)), 77);
  EXPECT_THAT(java_calls(), IsEmpty());
}

// ---- Alias tables ----

TEST_F(SettingsTest, AliasTableCallsSwapTheTwoNames) {
  EXPECT_EQ(on_outline(NATIVE(renameAliasTable), "Codes", "B"), 0);
  EXPECT_EQ(on_outline(NATIVE(copyAliasTable), "Codes", "B", JNI_TRUE), 0);
  EXPECT_EQ(on_outline(NATIVE(createAliasTable), "Codes"), kStatusAliasTableExists);
  EXPECT_EQ(on_outline(NATIVE(createAliasTable), ""), 0);
  EXPECT_EQ(on_outline(NATIVE(clearAliasTable), "Codes"), 0);
  EXPECT_EQ(on_outline(NATIVE(deleteAliasTable), "None"), kNoSuchTable);
  EXPECT_THAT(api_calls(), ElementsAre("OlvOtlRenameAliasTable(outline, \"B\", \"Codes\")",
                                       "OlvOtlCopyAliasTable(outline, \"B\", \"Codes\", 1)",
                                       "OlvOtlCreateAliasTable(outline, \"Codes\")",
                                       "OlvOtlCreateAliasTable(outline, \"\")",
                                       "OlvOtlClearAliasTable(outline, \"Codes\")",
                                       "OlvOtlDeleteAliasTable(outline, \"None\")"));
}

TEST_F(SettingsTest, AliasTableCallsReadNoNamesWithoutAnOutline) {
  EXPECT_EQ(call(NATIVE(createAliasTable), java.instance(), java.outline(0), "x"), 0);
  EXPECT_EQ(call(NATIVE(copyAliasTable), java.instance(), java.outline(0), "x", "y", JNI_FALSE), 0);
  EXPECT_THAT(journal().lines(Entry::kText), IsEmpty());
}

}  // namespace
