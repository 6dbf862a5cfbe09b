// Export of an alias table to a file, and import from one.
#include <cstdio>
#include <fstream>
#include <sstream>

#include "tests/native/native_test.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class AliasFileTest : public NativeTest {
 protected:
  void TearDown() override {
    std::remove(path.c_str());
    NativeTest::TearDown();
  }

  jint write(const char* table, HOutline outline = kOutline) {
    return call(NATIVE(exportAliasTable), java.instance(), java.outline(outline), table, path);
  }
  std::string content() const {
    std::ostringstream text;
    text << std::ifstream(path).rdbuf();
    return text.str();
  }
  // Writes a file and imports it. `wanted` and `used` hold the buffers' texts afterwards.
  jint read(const std::string& text, const char* table, bool allow_existing = false) {
    std::ofstream(path) << text;
    return read_file(table, allow_existing);
  }
  jint read_file(const char* table, bool allow_existing = false) {
    jobject wanted_buffer = java.buffer(table);
    jobject used_buffer = java.buffer("");
    const jint status =
        on_outline(NATIVE(importAliasTable), path, wanted_buffer, allow_existing, used_buffer);
    wanted = java.string(wanted_buffer);
    used = java.string(used_buffer);
    return status;
  }
  static std::string alias(const char* member, const char* table) {
    return api().member(member).aliases[table];
  }

  const std::string path = temporary_path("aliases.alt");
  std::string wanted;
  std::string used;
};

// ---- Export ----

TEST_F(AliasFileTest, ExportWritesMembersWithAliasesInPreOrder) {
  api().member("Cola").aliases["Default"] = "";
  api().member("Can").aliases["Default"] = "Tin";
  EXPECT_EQ(write("Default"), 0);
  EXPECT_EQ(content(),
            "$ALT_NAME  'Default'\n"
            "\"Year\"   \"Calendar\"\n"
            "\"Jan\"   \"January\"\n"
            "\"Can\"   \"Tin\"\n"
            "$END\n");
  EXPECT_THAT(api_calls(), Contains("OlvFree(0, alias)"));
}

TEST_F(AliasFileTest, ExportWithoutAliasesOrOutlineWritesTheFrame) {
  EXPECT_EQ(write("Codes"), 0);
  EXPECT_EQ(content(), "$ALT_NAME  'Codes'\n$END\n");
  EXPECT_EQ(write("x", 0), 0);
  EXPECT_EQ(content(), "$ALT_NAME  'x'\n$END\n");
}

TEST_F(AliasFileTest, ExportWithoutATableNameAsksForTheDefault) {
  EXPECT_EQ(write(""), 0);
  EXPECT_THAT(content(), testing::StartsWith("$ALT_NAME  ''\n\"Year\"   \"Calendar\"\n"));
  EXPECT_THAT(api_calls(), Contains("OlvOtlGetMemberAlias(outline, Year, null)"));
}

TEST_F(AliasFileTest, ExportLeavesOutSubtreesOfUnreadableMembersAndEndsTheFile) {
  api().fail_call(2, 77);  // the record of Year
  EXPECT_EQ(write("Default"), 0);
  EXPECT_EQ(content(), "$ALT_NAME  'Default'\n$END\n");
  api_calls();
  api().fail_function("OlvOtlGetNextSibling", 78);
  EXPECT_EQ(write("Default"), 78);
  EXPECT_THAT(content(), testing::EndsWith("$END\n"));
}

TEST_F(AliasFileTest, FilesThatCannotBeOpenedOrWrittenAreRefused) {
  EXPECT_EQ(on_outline(NATIVE(exportAliasTable), "x", "/no/such/folder/file"), kStatusRefused);
  EXPECT_EQ(on_outline(NATIVE(exportAliasTable), "Default", "/dev/full"), kStatusRefused);
  // A folder opens, but does not read.
  for (const std::string& file : {std::string("/no/such/folder/file"), testing::TempDir()}) {
    EXPECT_EQ(on_outline(NATIVE(importAliasTable), file, java.buffer("x"), true, java.buffer("")),
              kStatusRefused);
  }
}

// ---- Import ----

TEST_F(AliasFileTest, ExportedFilesImportWhole) {
  api().member("Cola").aliases["Default"] = "caf\xC3\xA9  'noir'";
  EXPECT_EQ(write("Default"), 0);
  EXPECT_EQ(read_file("New"), 0);
  for (const char* member : {"Year", "Jan", "Cola"}) {
    EXPECT_EQ(alias(member, "New"), alias(member, "Default"));
  }
  EXPECT_EQ(alias("Feb", "New"), "");
  EXPECT_EQ(used, "New");
}

TEST_F(AliasFileTest, TheNameComesFromTheFileOnlyWhenNoneIsWanted) {
  const std::string file = "$ALT_NAME  'From File'\n\"Jan\"   \"One\"\n$END\n";
  EXPECT_EQ(read(file, ""), 0);
  EXPECT_EQ(used, "From File");
  EXPECT_EQ(wanted, "From File");
  EXPECT_EQ(alias("Jan", "From File"), "One");
  EXPECT_EQ(read(file, "Wanted"), 0);
  EXPECT_EQ(used, "Wanted");
  EXPECT_EQ(wanted, "Wanted");
  EXPECT_EQ(alias("Jan", "Wanted"), "One");
}

TEST_F(AliasFileTest, AnExistingTableNeedsPermission) {
  const std::string file = "$ALT_NAME  'Codes'\nJan One\n$END\n";
  EXPECT_EQ(read(file, ""), kStatusAliasTableExists);
  EXPECT_EQ(used, "Codes");
  EXPECT_EQ(wanted, "");
  EXPECT_EQ(alias("Jan", "Codes"), "");
  EXPECT_EQ(read(file, "", true), 0);
  EXPECT_EQ(alias("Jan", "Codes"), "One");
  api().fail_function("OlvOtlCreateAliasTable", 77);
  EXPECT_EQ(read(file, "Other", true), 77);
}

TEST_F(AliasFileTest, WithoutAnyNameTheDefaultTableIsUsedWithPermission) {
  const std::string file = "no header\nJan One\n$END\n";
  EXPECT_EQ(read(file, ""), kStatusAliasTableExists);
  EXPECT_THAT(api_calls(), IsEmpty());
  EXPECT_EQ(read(file, "", true), 0);
  EXPECT_THAT(api_calls(), ElementsAre("OlvOtlFindMember(outline, \"Jan\")",
                                       "OlvOtlSetMemberAlias(outline, Jan, null, \"One\")"));
  // With no pair to apply the status stays what no name gives.
  EXPECT_EQ(read("no header\n$END\n", "", true), kStatusAliasTableExists);
}

TEST_F(AliasFileTest, TheFirstLineIsAlwaysTakenForTheHeader) {
  EXPECT_EQ(read("\"Jan\" \"One\"\n\"Feb\" \"Two\"\n$END\n", "New"), 0);
  EXPECT_EQ(alias("Jan", "New"), "");
  EXPECT_EQ(alias("Feb", "New"), "Two");
}

TEST_F(AliasFileTest, UnknownMembersAndHalfLinesAreSkippedAndTheLastPairDecides) {
  const std::string start = "$ALT_NAME 'x'\nNowhere None\nFeb\n";
  EXPECT_EQ(read(start + "Jan One\n$END\n", "A"), 0);
  EXPECT_EQ(alias("Jan", "A"), "One");
  EXPECT_EQ(read(start + "$END\n", "B"), kNoSuchMember);
  EXPECT_THAT(api_calls(), Not(Contains(HasSubstr("\"Feb\""))));
}

TEST_F(AliasFileTest, NothingBehindTheEndIsReadAndAMissingEndLosesNothing) {
  EXPECT_EQ(read("h\nJan One\nthe $END\nFeb Two\n", "A"), 0);
  EXPECT_EQ(alias("Jan", "A"), "One");
  EXPECT_EQ(alias("Feb", "A"), "");
  EXPECT_EQ(read("h\nJan One\nFeb Two", "B"), 0);
  EXPECT_EQ(alias("Feb", "B"), "Two");
  EXPECT_EQ(read("", "C"), 0);
}

TEST_F(AliasFileTest, LongLinesAreReadAsSeveral) {
  // 1022 characters make one read; the rest of the line is a line of its own.
  const std::string blanks(1022 - std::string("Jan One").size(), ' ');
  EXPECT_EQ(read("h\nJan One" + blanks + "Feb Two\n$END\n", "A"), 0);
  EXPECT_EQ(alias("Jan", "A"), "One");
  EXPECT_EQ(alias("Feb", "A"), "Two");
}

TEST_F(AliasFileTest, LongFieldsSkipTheirLine) {
  const std::string longer(256, 'x');
  EXPECT_EQ(read("h\n\"Jan\" \"" + longer + "\"\nFeb Two\n$END\n", "A"), 0);
  EXPECT_EQ(alias("Jan", "A"), "");
  EXPECT_EQ(alias("Feb", "A"), "Two");
  // A table name passes whole; the API answers.
  EXPECT_EQ(read("h\n$END\n", longer.c_str()), 0);
  EXPECT_THAT(api_calls(), Contains("OlvOtlCreateAliasTable(outline, \"" + longer + "\")"));
}

}  // namespace
