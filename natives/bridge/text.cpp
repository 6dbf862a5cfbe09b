// Text conversion between Java's modified UTF-8 and the API's characters. On this platform both
// are the same bytes; every text still passes through here, so that a platform where they differ
// has one place to change.
#include <cstring>

#include "bridge/plain_helpers.h"

namespace kepotl {
namespace {

bool is_space(char c) {
  return c == ' ' || c == '\t' || c == '\n';
}

}  // namespace
}  // namespace kepotl

using namespace kepotl;

int LoInitialize() {
  return 0;
}

void LoUninitialize(int) {}

char* getAPICharsFromUTFChars(int, const char* text) {
  return const_cast<char*>(text);
}

char* getUTFCharsFromAPIChars(int, const char* text) {
  return const_cast<char*>(text);
}

char* getStrTrimInPlace(int, char* text) {
  if (text == nullptr) return nullptr;
  const char* first = text;
  while (is_space(*first)) ++first;
  size_t length = std::strlen(first);
  while (length > 0 && is_space(first[length - 1])) --length;
  std::memmove(text, first, length);
  text[length] = '\0';
  return text;
}
