// How search texts match candidates.
#include <gtest/gtest.h>

#include <string>

#include "bridge/plain_helpers.h"

// This program's C library has the letter case of a Turkish locale, in which a byte I is the
// capital of no byte i.
extern "C" int tolower(int c) noexcept {
  return c >= 'A' && c <= 'Z' && c != 'I' ? c - 'A' + 'a' : c;
}

namespace {

constexpr const char* kFormulaDelimiters = " \n();\"'[]{}@+-\\=,.<>";

bool contains(const char* search, const char* candidate, bool match_case = false) {
  return CallCompareStrings(search, candidate, match_case ? 1 : 0, 0, nullptr) != 0;
}

bool word(const char* search, const char* candidate, const char* delimiters = nullptr) {
  return CallCompareStrings(search, candidate, 1, 1, delimiters) != 0;
}

TEST(TextMatch, EmptyAndNullTextsNeverMatch) {
  for (const char* text : {static_cast<const char*>(nullptr), ""}) {
    EXPECT_FALSE(contains(text, "Sales"));
    EXPECT_FALSE(contains("Sales", text));
    EXPECT_FALSE(word(text, "Sales"));
    EXPECT_FALSE(word("Sales", text));
  }
  EXPECT_EQ(CallFindWholeWord(nullptr, "Sales", nullptr), 0);
  EXPECT_EQ(CallFindWholeWord("Sales", nullptr, nullptr), 0);
}

// The comparison of texts refuses an empty one; the search for words takes it as it is.
TEST(TextMatch, AnEmptyWordStandsBetweenTwoDelimitersOrEnds) {
  for (const char* candidate : {"", " a", "a ", "a \n b"}) {
    EXPECT_EQ(CallFindWholeWord("", candidate, nullptr), 1) << candidate;
  }
  for (const char* candidate : {"a", "a b"}) {
    EXPECT_EQ(CallFindWholeWord("", candidate, nullptr), 0) << candidate;
  }
}

TEST(TextMatch, EveryNonZeroFlagByteIsOn) {
  EXPECT_EQ(CallCompareStrings("a", "ba", 0, 0, nullptr), 1);
  EXPECT_EQ(CallCompareStrings("A", "a", 0xFF, 0, nullptr), 0);
  EXPECT_EQ(CallCompareStrings("a", "ba", 1, 0x80, nullptr), 0);
}

TEST(TextMatch, WholeWords) {
  for (const char* delimiters : {static_cast<const char*>(nullptr), ""}) {
    EXPECT_TRUE(word("Sales", "East\nSales West", delimiters));
    EXPECT_FALSE(word("Sales", "East-Sales", delimiters));
  }
  EXPECT_FALSE(word("Sales", "Presales Sales2"));
  EXPECT_TRUE(word("aa", "aaa aa"));
  EXPECT_TRUE(word("a a", "ba a a"));
}

TEST(TextMatch, EveryFormulaDelimiterEndsAWord) {
  for (const char* delimiter = kFormulaDelimiters; *delimiter != '\0'; ++delimiter) {
    const std::string candidate = std::string("x") + *delimiter + "Sales" + *delimiter + "y";
    EXPECT_TRUE(word("Sales", candidate.c_str(), kFormulaDelimiters)) << candidate;
  }
  EXPECT_FALSE(word("Sales", "Sales*2", kFormulaDelimiters));
  EXPECT_FALSE(word("Sales", "a\tSales", nullptr));
}

TEST(TextMatch, LongTextsAreComparedWhole) {
  for (size_t length : {2046u, 2047u, 2048u, 2049u, 10000u}) {
    const std::string candidate = std::string(length, 'X') + " End";
    EXPECT_TRUE(contains("end", candidate.c_str())) << length;
    EXPECT_TRUE(word("End", candidate.c_str())) << length;
    const std::string search(length, 'x');
    EXPECT_TRUE(contains(search.c_str(), candidate.c_str())) << length;
    EXPECT_FALSE(contains((search + "x").c_str(), candidate.c_str())) << length;
  }
}

TEST(TextMatch, AMegabyteOfRepetitionsTakesNoQuadraticTime) {
  std::string repeated;
  while (repeated.size() < 1 << 20) repeated += "Sales+";
  EXPECT_FALSE(contains((repeated + "Coats").c_str(), (repeated + "Costs").c_str()));
  const std::string candidate(1 << 20, 'a');
  const std::string search(1 << 19, 'a');
  EXPECT_TRUE(contains(search.c_str(), candidate.c_str()));
  EXPECT_FALSE(word(search.c_str(), candidate.c_str()));
  EXPECT_TRUE(word(search.c_str(), (candidate + ' ' + search).c_str()));
}

TEST(TextMatch, CallersTextsAreNotChanged) {
  char search[] = "SALES";
  char candidate[] = "East SALES";
  EXPECT_TRUE(contains(search, candidate));
  EXPECT_STREQ(search, "SALES");
  EXPECT_STREQ(candidate, "East SALES");
}

TEST(TextMatch, LettersFoldWhateverTheLocale) {
  EXPECT_TRUE(contains("INTEL", "Intel inside"));
  EXPECT_TRUE(contains("intel", "INTEL INSIDE"));
}

TEST(TextMatch, BytesBeyondAsciiStayWhole) {
  // Nothing beyond ASCII folds, and no such byte ends a word.
  EXPECT_TRUE(contains("CAF\xC3\xA9", "caf\xC3\xA9 noir"));
  EXPECT_FALSE(contains("caf\xC3\x89", "caf\xC3\xA9"));
  EXPECT_FALSE(word("Caf", "Caf\xC3\xA9"));
  char text[] = "\xC3\x89T\xC3\x89";
  CallLowercase(text);
  EXPECT_STREQ(text, "\xC3\x89t\xC3\x89");
}

}  // namespace
