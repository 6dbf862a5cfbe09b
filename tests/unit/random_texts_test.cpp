// Text matching and alias lines on random texts, against plain models of both. The texts are made
// of few different characters, so that overlaps, runs and delimiters meet often.
#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "aliasfile/lines.h"
#include "bridge/plain_helpers.h"
#include "tests/long_run.h"

namespace {

class RandomTexts : public testing::Test {
 protected:
  // Some tens of thousands, or as many as a long run asks for.
  static unsigned count() { return 100 * long_run_number("KEPOTL_SEQUENCES", 500); }
  size_t pick(size_t below) { return random_() % below; }
  std::string text(const std::string& characters, size_t longest) {
    std::string made(pick(longest + 1), ' ');
    for (char& c : made) c = characters[pick(characters.size())];
    return made;
  }

  // Each round of a long run takes other texts.
  std::mt19937 random_{20261 + long_run_number("KEPOTL_ROUND", 0)};
};

std::string lower(std::string text) {
  for (char& c : text) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  return text;
}

bool model_matches(std::string search, std::string candidate, bool match_case, bool whole_word,
                   const std::string& delimiters) {
  if (search.empty() || candidate.empty()) return false;
  if (!match_case) {
    search = lower(search);
    candidate = lower(candidate);
  }
  const std::string ends = delimiters.empty() ? " \n" : delimiters;
  const auto is_end = [&](size_t at) {
    return at == candidate.size() || ends.find(candidate[at]) != std::string::npos;
  };
  for (size_t at = 0; at + search.size() <= candidate.size(); ++at) {
    if (candidate.compare(at, search.size(), search) != 0) continue;
    if (!whole_word || ((at == 0 || is_end(at - 1)) && is_end(at + search.size()))) return true;
  }
  return false;
}

// Pieces of a text between any of the separators, empty ones left out.
std::vector<std::string> pieces(const std::string& text, const std::string& separators) {
  std::vector<std::string> found;
  size_t at = text.find_first_not_of(separators);
  while (at != std::string::npos) {
    const size_t end = text.find_first_of(separators, at);
    found.push_back(text.substr(at, end - at));
    at = text.find_first_not_of(separators, end);
  }
  return found;
}

std::string trimmed(const std::string& text) {
  const size_t first = text.find_first_not_of(" \t\n");
  if (first == std::string::npos) return "";
  return text.substr(first, text.find_last_not_of(" \t\n") - first + 1);
}

struct Line {
  int result = 0;
  std::string member;
  std::string alias;
};

Line model_line(const std::string& line) {
  if (line.find("$END") != std::string::npos) return {-1, "", ""};
  Line read;
  if (line.find('"') == std::string::npos) {
    const std::vector<std::string> words = pieces(line, " \t\n");
    if (!words.empty()) read.member = words[0];
    if (words.size() > 1) read.alias = words[1];
  } else {
    const std::vector<std::string> parts = pieces(line, "\"");
    for (size_t i = 1; i < parts.size() && read.alias.empty(); ++i) read.alias = trimmed(parts[i]);
    read.member = parts.empty() ? "" : trimmed(parts[0]);
  }
  for (std::string* field : {&read.member, &read.alias}) {
    if (field->size() >= kepotl::kAliasFieldSize) field->clear();
  }
  read.result = read.member.empty() || read.alias.empty() ? 0 : 2;
  return read;
}

}  // namespace

TEST_F(RandomTexts, MatchAsThePlainModelSays) {
  const std::string characters = "aAb -\n";
  const std::string delimiters[] = {"", "-", " -"};
  unsigned long matches = 0;
  for (unsigned long i = 0; i < count(); ++i) {
    const std::string search = text(characters, 4);
    const std::string candidate = text(characters, pick(200) == 0 ? 5000 : 12);
    const bool match_case = pick(2) == 0;
    const bool whole_word = pick(2) == 0;
    const std::string& ends = delimiters[pick(3)];
    const bool wanted = model_matches(search, candidate, match_case, whole_word, ends);
    matches += wanted;
    ASSERT_EQ(CallCompareStrings(search.c_str(), candidate.c_str(), match_case, whole_word,
                                 ends.c_str()) != 0,
              wanted)
        << testing::PrintToString(search) << " in " << testing::PrintToString(candidate);
  }
  EXPECT_GT(matches, count() / 10);
}

TEST_F(RandomTexts, AliasLinesReadAsThePlainModelSays) {
  unsigned long pairs = 0;
  for (unsigned long i = 0; i < count(); ++i) {
    // Now and then any byte but NUL, long fields, or an end mark in the middle.
    std::string line = text("ab\" \t'", pick(50) == 0 ? 1000 : 16);
    if (pick(20) == 0) line.insert(pick(line.size() + 1), "$END");
    if (pick(10) == 0) line.insert(pick(line.size() + 1), 1, static_cast<char>(1 + pick(255)));
    if (pick(3) != 0) line += '\n';
    const Line wanted = model_line(line);
    pairs += wanted.result == 2;
    std::vector<char> copy(line.c_str(), line.c_str() + line.size() + 1);
    char member[kepotl::kAliasFieldSize] = "";
    char alias[kepotl::kAliasFieldSize] = "";
    ASSERT_EQ(CallReadMemberAliasLine(copy.data(), member, alias), wanted.result)
        << testing::PrintToString(line);
    ASSERT_EQ(member, wanted.member) << testing::PrintToString(line);
    ASSERT_EQ(alias, wanted.alias) << testing::PrintToString(line);
  }
  EXPECT_GT(pairs, count() / 10);
}
