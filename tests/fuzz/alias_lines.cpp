// Lines of alias files, in blocks of exactly their size so that a byte too far is seen.
#include <cstring>
#include <memory>

#include "aliasfile/lines.h"
#include "bridge/plain_helpers.h"
#include "tests/fuzz/input.h"

namespace {

std::unique_ptr<char[]> copy(const std::string& line) {
  auto block = std::make_unique<char[]>(line.size() + 1);
  std::memcpy(block.get(), line.c_str(), line.size() + 1);
  return block;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string line = fuzz::texts(data, size, 1)[0];
  const auto table = std::make_unique<char[]>(kepotl::kAliasFieldSize);
  const auto member = std::make_unique<char[]>(kepotl::kAliasFieldSize);
  const auto alias = std::make_unique<char[]>(kepotl::kAliasFieldSize);
  CallReadAliasTableHeader(copy(line).get(), table.get());
  const int fields = CallReadMemberAliasLine(copy(line).get(), member.get(), alias.get());
  fuzz::demand(fields == 2 || fields == 0 || fields == -1);
  if (fields == 2) {
    fuzz::demand(member[0] != 0 && alias[0] != 0);
    fuzz::demand(line.find(member.get()) != std::string::npos);
    fuzz::demand(line.find(alias.get()) != std::string::npos);
  }
  return 0;
}
