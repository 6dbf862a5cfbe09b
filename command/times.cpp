// Times and sizes.
#include "command/times.h"

#include <ctime>

#include "command/layer/formatting.h"

namespace command {

std::string time_text(int64_t seconds) {
  if (seconds == 0) return "never";
  const auto time = static_cast<std::time_t>(seconds);
  std::tm local = {};
  localtime_r(&time, &local);
  char text[32];
  std::strftime(text, sizeof text, "%Y-%m-%d %H:%M", &local);
  return text;
}

constexpr uint64_t kMegabyte = 1 << 20;

std::string size_text(uint64_t bytes) {
  if (bytes < 1024) return fmt::format("{} B", bytes);
  if (bytes < kMegabyte) return fmt::format("{} KB", bytes / 1024);
  return fmt::format("{:.1f} MB", static_cast<double>(bytes) / kMegabyte);
}

}  // namespace command
