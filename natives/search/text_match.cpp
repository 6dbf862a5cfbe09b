// The one rule by which all searches decide whether a text matches: substring or whole word, with
// or without case, on bytes.
#include "search/text_match.h"

#include <cstring>
#include <memory>
#include <new>

#include "bridge/plain_helpers.h"

namespace kepotl {
namespace {

// A lower-case copy of a text: on the stack while it fits, so that a search over a million members
// allocates nothing. Throws std::bad_alloc.
class FoldedText {
 public:
  explicit FoldedText(const char* text) {
    const size_t size = std::strlen(text) + 1;
    if (size > sizeof stack_) heap_.reset(new char[size]);
    std::memcpy(data(), text, size);
    CallLowercase(data());
  }
  char* data() { return heap_ ? heap_.get() : stack_; }

 private:
  char stack_[2048];
  std::unique_ptr<char[]> heap_;
};

// The first occurrence in [text, end); null when there is none. strstr would take quadratic time on
// some machines, half a minute for a megabyte; memmem never does.
const char* find_bytes(const char* text, const char* end, const char* search, size_t length) {
  return static_cast<const char*>(memmem(text, static_cast<size_t>(end - text), search, length));
}

bool matches(const char* search_text, const char* candidate, bool whole_word,
             const char* delimiters) {
  if (whole_word) return CallFindWholeWord(search_text, candidate, delimiters) != 0;
  return find_bytes(candidate, candidate + std::strlen(candidate), search_text,
                    std::strlen(search_text)) != nullptr;
}

}  // namespace
}  // namespace kepotl

using namespace kepotl;

void CallLowercase(char* text) {
  if (text == nullptr) return;
  for (; *text != '\0'; ++text) *text = lower_ascii(*text);
}

uint8_t CallFindWholeWord(const char* search_text, const char* candidate, const char* delimiters) {
  if (search_text == nullptr || candidate == nullptr) return 0;
  if (delimiters == nullptr || *delimiters == '\0') delimiters = " \n";
  const size_t length = std::strlen(search_text);
  const char* const end = candidate + std::strlen(candidate);
  const char* at = candidate;
  while ((at = find_bytes(at, end, search_text, length)) != nullptr) {
    const bool starts = at == candidate || std::strchr(delimiters, at[-1]) != nullptr;
    // strchr finds the terminating NUL too: the end of the candidate ends a word.
    const bool ends = std::strchr(delimiters, at[length]) != nullptr;
    if (starts && ends) return 1;
    // The next one that can be a word, overlapping or not, stands behind a delimiter. Trying those
    // in between would take hours on a megabyte of one letter.
    at = std::strpbrk(at, delimiters);
    if (at == nullptr) return 0;
    ++at;
  }
  return 0;
}

uint8_t CallCompareStrings(const char* search_text, const char* candidate, uint8_t case_sensitive,
                           uint8_t whole_word, const char* delimiters) try {
  if (search_text == nullptr || *search_text == '\0') return 0;
  if (candidate == nullptr || *candidate == '\0') return 0;
  if (case_sensitive != 0) return matches(search_text, candidate, whole_word != 0, delimiters);
  FoldedText folded_search(search_text);
  FoldedText folded_candidate(candidate);
  return matches(folded_search.data(), folded_candidate.data(), whole_word != 0, delimiters);
} catch (const std::bad_alloc&) {
  return 0;
}
