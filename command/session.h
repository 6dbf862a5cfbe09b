// What all subcommands share: the options that say which store and how to talk, the database that
// is worked on, questions and progress.
#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <string_view>

#include "command/layer/store.h"
#include "command/output.h"

namespace command {

// Exit codes.
inline constexpr int kDone = 0;      // done, or equal
inline constexpr int kFindings = 1;  // different, or something was found
inline constexpr int kMisuse = 2;    // a wrong command line
inline constexpr int kFailed = 3;    // refused or failed

// The common options as the command line set them, and the work of the chosen subcommand.
struct Session {
  std::string store;
  std::string user;
  bool json = false;
  bool quiet = false;
  std::function<int()> work;
  Output out;

  // The store, which has to exist.
  Store open() const { return Store(store, user, false); }
  // One line on stderr, unless --quiet.
  void say(std::string_view message) const;
  // Asks on the terminal; without one, and without --yes, it is refused with what --yes would do.
  void confirm(const std::string& question, bool yes) const;
};

// A database as the command line names it.
struct Database {
  std::string application;
  std::string name;

  Outline read(const Store& store) const { return store.read(application, name); }
  EditedOutline edit(const Store& store) const { return store.edit(application, name); }
};

// A line on the terminal with rate and time left, once work takes over a second.
class Progress {
 public:
  // `total` 0: not known. Says nothing when --quiet or when stderr is no terminal.
  Progress(const Session& session, std::string what, uint64_t total = 0);
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  // `done` of the total, in the unit of `rows` done.
  void step(uint64_t done, uint64_t rows) {
    if ((++calls_ & 0x3FF) == 0) show(done, rows);
  }
  // For work of which no more can be told than that it goes on.
  void tick();
  // Names what goes on now.
  void begin(std::string what);

 private:
  void show(uint64_t done, uint64_t rows);
  void write(std::string_view text);

  using Clock = std::chrono::steady_clock;
  bool on_;
  bool shown_ = false;
  std::string what_;
  uint64_t total_;
  uint32_t calls_ = 0;
  Clock::time_point begun_ = Clock::now();
  Clock::time_point next_ = begun_ + std::chrono::seconds(1);
};

}  // namespace command
