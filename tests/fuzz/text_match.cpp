// Text matching: a match without case holds where one with case does, and a whole word is found
// nowhere but where the text is.
#include "bridge/plain_helpers.h"
#include "tests/fuzz/input.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::vector<std::string> texts = fuzz::texts(data, size, 3);
  const auto matches = [&](bool match_case, bool whole_word) {
    return CallCompareStrings(texts[0].c_str(), texts[1].c_str(), match_case ? 1 : 0,
                              whole_word ? 1 : 0, texts[2].c_str()) != 0;
  };
  if (matches(true, false)) fuzz::demand(matches(false, false));
  if (matches(true, true)) fuzz::demand(matches(true, false));
  if (matches(false, true)) fuzz::demand(matches(false, false));
  if (!texts[0].empty() && texts[1].find(texts[0]) != std::string::npos) {
    fuzz::demand(matches(true, false));
  }
  return 0;
}
