// Seconds for saving or opening an outline in a store at any address. "save" makes and saves it
// first when there is none, and then saves it once more.
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <stdexcept>
#include <string>

#include "bench/store.h"
#include "standin/session.h"

namespace {

constexpr bench::Details kDetails = {true, true, true, true};
constexpr const char* kStored = "Stored";

using Clock = std::chrono::steady_clock;

double seconds_since(Clock::time_point begun) {
  return std::chrono::duration<double>(Clock::now() - begun).count();
}

double save(const bench::Store& store, int64_t members) {
  const bench::OpenOutline outline(store, kStored);
  HMember first = 0;
  if (OlvOtlGetFirstMember(outline.handle(), &first) != 0 || first == 0) {
    fill_bushy(outline, members, kDetails);
    outline.write(store, kStored);
  }
  const auto begun = Clock::now();
  outline.write(store, kStored);
  return seconds_since(begun);
}

double open(const bench::Store& store) {
  const ObjectDefinitionRecord object = store.object(kStored);
  HOutline handle = 0;
  const auto begun = Clock::now();
  const int status = OlvOtlOpenOutline(store.context(), &object, 0, 0, &handle);
  const double took = seconds_since(begun);
  if (status != 0) throw std::runtime_error(OlvStandinStatusText(status));
  OlvOtlCloseOutline(handle);
  return took;
}

}  // namespace

int main(int count, char** words) {
  const std::string work = count > 2 ? words[1] : "";
  try {
    if (work == "save" && count == 4) {
      std::printf("%.3f\n", save(bench::Store(words[2]), std::strtoll(words[3], nullptr, 10)));
    } else if (work == "open" && count == 3) {
      std::printf("%.3f\n", open(bench::Store(words[2])));
    } else {
      std::fputs("usage: bench_stores save ADDRESS MEMBERS | open ADDRESS\n", stderr);
      return 2;
    }
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "bench_stores: %s\n", failure.what());
    return 1;
  }
  return 0;
}
