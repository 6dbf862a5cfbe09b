// The lines of an alias table file, and trimming.
#include <gtest/gtest.h>

#include <string>

#include "aliasfile/lines.h"
#include "bridge/plain_helpers.h"

namespace {

// What a line reads as.
struct Read {
  int result;
  std::string member;
  std::string alias;

  bool operator==(const Read& other) const {
    return result == other.result && member == other.member && alias == other.alias;
  }
};

void PrintTo(const Read& read, std::ostream* out) {
  *out << read.result << " [" << read.member << "] [" << read.alias << ']';
}

// Reads a line into fields that hold something from the line before.
Read read(const std::string& text) {
  std::string line = text;
  char member[kepotl::kAliasFieldSize] = "old member";
  char alias[kepotl::kAliasFieldSize] = "old alias";
  const int result = CallReadMemberAliasLine(line.data(), member, alias);
  return {result, member, alias};
}

// The table name that a header line gives, "null" when it gives none, and "kept" when the field
// was left alone.
std::string header(const std::string& text) {
  std::string line = text;
  char name[kepotl::kAliasFieldSize] = "kept";
  const char* result = CallReadAliasTableHeader(line.data(), name);
  if (result == nullptr) return std::string("null ") + name;
  EXPECT_EQ(result, name);
  return name;
}

std::string trimmed(const std::string& text) {
  std::string buffer = text;
  EXPECT_EQ(getStrTrimInPlace(0, buffer.data()), buffer.data());
  return buffer.substr(0, buffer.find('\0'));
}

TEST(AliasLines, FieldsAreQuotedOrWords) {
  EXPECT_EQ(read("\"New York\" \"The Big Apple\""), (Read{2, "New York", "The Big Apple"}));
  EXPECT_EQ(read("\" Jan \"\t\" January \" \"third\"\n"), (Read{2, "Jan", "January"}));
  EXPECT_EQ(read("\"Jan\" January\n"), (Read{2, "Jan", "January"}));
  EXPECT_EQ(read("  Jan\t\tJanuary third"), (Read{2, "Jan", "January"}));
  // Nothing of the line before is left to apply.
  EXPECT_EQ(read("\n"), (Read{0, "", ""}));
  EXPECT_EQ(read("Jan\n"), (Read{0, "Jan", ""}));
  // Blanks before the first quote are a piece of their own: an empty member.
  EXPECT_EQ(read("  \"Jan\" \"January\"\n"), (Read{0, "", "Jan"}));
}

TEST(AliasLines, EndAnywhere) {
  EXPECT_EQ(read("$END\n").result, -1);
  EXPECT_EQ(read("  the $END of it").result, -1);
  EXPECT_EQ(read("\"Jan\" \"$ENDING\"").result, -1);
  EXPECT_EQ(read("$end\n").result, 0);
}

TEST(AliasLines, FieldsUpTo255CharactersAreWholeAndLongerOnesSkipTheLine) {
  const std::string longest(255, 'm');
  EXPECT_EQ(read('"' + longest + "\" \"" + longest + '"'), (Read{2, longest, longest}));
  EXPECT_EQ(read('"' + longest + "m\" \"alias\"").result, 0);
  EXPECT_EQ(read("\"member\" \"" + longest + "m\"").result, 0);
  EXPECT_EQ(read(longest + "m alias").result, 0);
}

TEST(AliasLines, Header) {
  EXPECT_EQ(header("$ALT_NAME  'Long Names'\n"), "Long Names");
  EXPECT_EQ(header("  $ALT_NAME 'x' 'y'\n"), "x");
  EXPECT_EQ(header("$ALT_NAME ''quoted'\n"), "quoted");
  EXPECT_EQ(header("$ALT_NAME 'open"), "open");
  EXPECT_EQ(header("$ALT_NAME  ''\n"), "null ");
  EXPECT_EQ(header("$ALT_NAME\n"), "null ");
  EXPECT_EQ(header("\"Jan\" \"January\"\n"), "null kept");
  EXPECT_EQ(header("\n"), "null kept");
  const std::string longest(255, 't');
  EXPECT_EQ(header("$ALT_NAME '" + longest + "'"), longest);
  EXPECT_EQ(header("$ALT_NAME '" + longest + "t'"), "null ");
}

TEST(Trimming, TakesBlanksTabsAndLineFeedsOffBothEnds) {
  EXPECT_EQ(trimmed("  a b\t\n"), "a b");
  EXPECT_EQ(trimmed("a b"), "a b");
  EXPECT_EQ(trimmed("\t \n"), "");
  EXPECT_EQ(trimmed(""), "");
  EXPECT_EQ(trimmed("\ra\r"), "\ra\r");
  EXPECT_EQ(trimmed(" \xC3\xA9 "), "\xC3\xA9");
  char text[] = " x ";
  EXPECT_EQ(trimStr(text), text);
  EXPECT_STREQ(text, "x");
}

}  // namespace
