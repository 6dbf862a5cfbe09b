// Area texts: names come out that go in again, quoted, as the same names.
#include "standin/cell_count.h"
#include "standin/guard.h"
#include "tests/fuzz/input.h"

namespace {

std::string quoted(const std::vector<std::string>& names) {
  std::string area;
  for (const std::string& name : names) {
    if (!area.empty()) area += ", ";
    area += '"';
    for (const char c : name) area.append(c == '"' ? 2 : 1, c);
    area += '"';
  }
  return area;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string area(reinterpret_cast<const char*>(data), size);
  try {
    const std::vector<std::string> names = standin::parse_area(area);
    fuzz::demand(standin::parse_area(quoted(names)) == names);
  } catch (const standin::StoreFailure& failure) {
    fuzz::demand(failure.status() == standin::kBadArgument);
  }
  return 0;
}
