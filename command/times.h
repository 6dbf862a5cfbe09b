// Times and sizes as people read them.
#pragma once

#include <cstdint>
#include <string>

namespace command {

// Seconds since 1970 as local time, "never" for 0.
std::string time_text(int64_t seconds);
// "80 KB"
std::string size_text(uint64_t bytes);

}  // namespace command
