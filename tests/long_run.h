// How a long run, tests/soak, tells the test programs to do more than they do by themselves.
#pragma once

#include <cstdlib>

// The number in the environment variable `name`, `otherwise` when it is not set.
inline unsigned long_run_number(const char* name, unsigned otherwise) {
  const char* const number = std::getenv(name);
  return number == nullptr ? otherwise : static_cast<unsigned>(std::strtoul(number, nullptr, 10));
}
