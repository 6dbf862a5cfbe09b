// Export of an alias table to a file, and import from one.
#include <fcntl.h>
#include <sys/stat.h>

#include <cstdio>
#include <filesystem>
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
    std::filesystem::remove_all(path);
    NativeTest::TearDown();
  }

  // A table of more than a stream's buffer.
  static void add_many_aliases() {
    for (int i = 0; i < 300; ++i) {
      const HMember member = api().add("Member " + std::to_string(i), api().find("Measures"));
      api().member(member).aliases["Default"] = std::string(40, 'a');
    }
  }
  // Puts another file behind the library's descriptor of the test's file. A descriptor of the
  // latter's, to put back.
  int put_behind(const char* other) const {
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
      std::error_code gone;
      if (std::filesystem::read_symlink(entry, gone) != path) continue;
      const int descriptor = std::stoi(entry.path().filename());
      const int kept = dup(descriptor);
      const int opened = open(other, O_RDWR);
      dup2(opened, descriptor);
      close(opened);
      replaced_ = descriptor;
      return kept;
    }
    ADD_FAILURE() << "The file is not open";
    return -1;
  }
  void put_back(int kept) const {
    dup2(kept, replaced_);
    close(kept);
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

 private:
  mutable int replaced_ = -1;
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

// ---- Files that are not as they should be ----

TEST_F(AliasFileTest, OnlyRegularFilesAreOpenedAndPipesAreNotWaitedFor) {
  ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
  for (const std::string& file : {path, std::string("/no/such/folder/file"), testing::TempDir(),
                                  std::string("/dev/null"), path + "\xC0\x80"}) {
    EXPECT_EQ(on_outline(NATIVE(exportAliasTable), "Default", file), kStatusRefused) << file;
    EXPECT_EQ(on_outline(NATIVE(importAliasTable), file, java.buffer("x"), true, java.buffer("")),
              kStatusRefused)
        << file;
  }
  EXPECT_THAT(api_calls(), IsEmpty());
}

TEST_F(AliasFileTest, PathsAreTheSystemsUtf8) {
  // As Java spells a character outside the basic plane, and a half of one.
  const std::string folder = path + "/caf\xC3\xA9 ";
  std::filesystem::create_directory(path);
  EXPECT_EQ(on_outline(NATIVE(exportAliasTable), "Default",
                       folder + "\xED\xA0\xBD\xED\xB8\x80\xED\xA0\xBD.alt"),
            0);
  EXPECT_TRUE(std::filesystem::exists(folder + "\xF0\x9F\x98\x80\xED\xA0\xBD.alt"));
}

TEST_F(AliasFileTest, WritesThatFailOnceOrAtTheEndAreToldOf) {
  add_many_aliases();
  for (const bool for_good : {false, true}) {
    int kept = -1;
    int calls = 0;
    api().on_call = [&](const std::string&) {
      if (++calls == 10) kept = put_behind("/dev/full");
      // Long after a buffer was to be written, and long before the end.
      if (calls == 1000 && !for_good) put_back(kept);
    };
    EXPECT_EQ(write("Default"), kStatusRefused);
    EXPECT_GT(calls, 1000);
    if (for_good) close(kept);
  }
}

TEST_F(AliasFileTest, ReadsThatFailAreToldOfWhateverWasApplied) {
  // A regular file that opens and does not read.
  EXPECT_EQ(on_outline(NATIVE(importAliasTable), "/proc/self/mem", java.buffer("x"), true,
                       java.buffer("")),
            kStatusRefused);
  api_calls();
  std::string lines = "$ALT_NAME 'A'\nJan One\n";
  while (lines.size() < 10000) lines += "Nowhere None\n";
  api().on_call = [&](const std::string& function) {
    if (function == "OlvOtlSetMemberAlias") close(put_behind("/proc/self/mem"));
  };
  EXPECT_EQ(read(lines + "$END\n", ""), kStatusRefused);
  EXPECT_EQ(alias("Jan", "A"), "One");
}

TEST_F(AliasFileTest, ALostTableNameLeavesTheFileAsItIs) {
  std::ofstream(path) << "kept";
  has_memory = false;
  EXPECT_EQ(write("Default"), kStatusRefused);
  EXPECT_EQ(content(), "kept");
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
  // A wanted table name passes whole; the API answers.
  EXPECT_EQ(read("h\n$END\n", longer.c_str()), 0);
  EXPECT_THAT(api_calls(), Contains("OlvOtlCreateAliasTable(outline, \"" + longer + "\")"));
}

TEST_F(AliasFileTest, ATableNameInTheFileThatIsTooLongRefusesTheImport) {
  for (const size_t length : {256u, 2000u}) {
    const std::string longer(length, 'x');
    EXPECT_EQ(read("$ALT_NAME  '" + longer + "'\nJan One\n$END\n", "", true), kStatusRefused);
    EXPECT_THAT(api_calls(), IsEmpty());
    EXPECT_EQ(used, "");
  }
}

}  // namespace
