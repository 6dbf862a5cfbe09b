// Questions and progress.
#include "command/session.h"

#include <unistd.h>

#include <iostream>

#include "command/layer/text.h"

namespace command {

void Session::say(std::string_view message) const {
  if (!quiet) complain(message);
}

void Session::confirm(const std::string& question, bool yes) const {
  if (yes) return;
  if (isatty(0) == 0) throw Failure(question + " Nobody is there to answer: say --yes to do it");
  std::cerr << question << " [y/N] " << std::flush;
  std::string answer;
  std::getline(std::cin, answer);
  if (answer != "y" && answer != "Y" && answer != "yes") throw Failure("nothing was changed");
}

Progress::Progress(const Session& session, std::string what, uint64_t total)
    : on_(!session.quiet && terminal_width(2) > 0), what_(std::move(what)), total_(total) {}

Progress::~Progress() {
  if (shown_) write("\r\033[K");
}

void Progress::begin(std::string what) {
  what_ = std::move(what);
  total_ = 0;
}

void Progress::tick() {
  const auto now = Clock::now();
  if (!on_ || now < next_) return;
  next_ = now + std::chrono::milliseconds(100);
  const double seconds = std::chrono::duration<double>(now - begun_).count();
  write(fmt::format("\r{}\033[K",
                    cut(fmt::format("{}: {:.0f} s", what_, seconds), terminal_width(2) - 1)));
}

void Progress::show(uint64_t done, uint64_t rows) {
  const auto now = Clock::now();
  if (!on_ || now < next_) return;
  next_ = now + std::chrono::milliseconds(100);
  const double seconds = std::chrono::duration<double>(now - begun_).count();
  std::string text =
      fmt::format("{}: {} rows, {:.0f} a second", what_, rows, static_cast<double>(rows) / seconds);
  if (total_ > 0 && done > 0 && done <= total_) {
    const double share = static_cast<double>(done) / static_cast<double>(total_);
    text += fmt::format(", {:.0f} %, {:.0f} s left", 100 * share, seconds / share - seconds);
  }
  write(fmt::format("\r{}\033[K", cut(text, terminal_width(2) - 1)));
}

void Progress::write(std::string_view text) {
  shown_ = true;
  if (::write(2, text.data(), text.size()) < 0) on_ = false;
}

}  // namespace command
