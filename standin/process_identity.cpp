// Process identities from /proc.
#include "standin/process_identity.h"

#include <sys/random.h>
#include <sys/utsname.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cinttypes>
#include <csignal>
#include <cstdio>
#include <fstream>
#include <mutex>
#include <sstream>

#include "standin/guard.h"

namespace standin {
namespace {

struct ProcessStat {
  char state = '?';
  int64_t threads = 0;
  int64_t started = 0;
};

// Reads the stat line of the process's first thread: user-mode emulators answer the one of the
// process itself with values of their own, which no other process would see.
bool read_stat(int64_t pid, ProcessStat* stat) {
  const std::string number = std::to_string(pid);
  std::ifstream file("/proc/" + number + "/task/" + number + "/stat");
  std::string line;
  if (!std::getline(file, line)) return false;
  // The name, field 2, stands in parentheses and may hold anything, blanks and parentheses too.
  const size_t name_end = line.rfind(')');
  if (name_end == std::string::npos) return false;
  std::istringstream fields(line.substr(name_end + 1));
  if (!(fields >> stat->state)) return false;  // field 3
  std::string field;
  for (int i = 4; i <= 22; ++i) {
    if (!(fields >> field)) return false;
    if (i == 20) stat->threads = std::stoll(field);
    if (i == 22) stat->started = std::stoll(field);
  }
  return true;
}

std::string first_line(const char* path) {
  std::ifstream file(path);
  std::string line;
  std::getline(file, line);
  return line;
}

std::string boot_identifier() {
  return first_line("/proc/sys/kernel/random/boot_id");
}

std::string host_name() {
  utsname names{};
  return uname(&names) == 0 ? names.nodename : "";
}

std::string pid_namespace() {
  char target[64];
  const ssize_t length = readlink("/proc/self/ns/pid", target, sizeof target);
  return length < 0 ? std::string() : std::string(target, static_cast<size_t>(length));
}

int64_t start_time(int64_t pid) {
  ProcessStat stat;
  return read_stat(pid, &stat) ? stat.started : 0;
}

// The mark of this process; a child from a fork has one of its own.
std::string own_mark() {
  static std::mutex mutex;
  static pid_t process = 0;
  static auto* mark = new std::string;  // threads may outlive the exit handlers
  const std::lock_guard<std::mutex> lock(mutex);
  if (process != getpid()) {
    *mark = new_mark();
    process = getpid();
  }
  return *mark;
}

}  // namespace

ProcessIdentity this_process() {
  ProcessIdentity self;
  self.host = host_name();
  self.machine = first_line("/etc/machine-id");
  self.boot = boot_identifier();
  self.pid_space = pid_namespace();
  self.pid = getpid();
  self.started = start_time(self.pid);
  self.mark = own_mark();
  return self;
}

bool is_alive(const ProcessIdentity& process) {
  if (process.boot != boot_identifier()) {
    // An earlier run of this machine, or a machine that is not to be judged from here.
    return process.host != host_name() || process.machine != first_line("/etc/machine-id");
  }
  if (process.pid_space != pid_namespace()) return true;
  if (process.pid == getpid()) return process.mark == own_mark();
  ProcessStat stat;
  if (!read_stat(process.pid, &stat)) {
    // Processes of other users may be hidden from /proc.
    return kill(static_cast<pid_t>(process.pid), 0) == 0 || errno == EPERM;
  }
  if (stat.started != process.started && process.started != 0) return false;
  // A process whose first thread has ended lives on while it has others.
  const bool ended = stat.state == 'Z' || stat.state == 'X';
  return !ended || stat.threads > 1;
}

std::string new_mark() {
  uint64_t random[2];
  if (getrandom(random, sizeof random, 0) != ssize_t{sizeof random})
    throw StoreFailure(kStoreError);
  // "pid:[4026531836]", of which the number tells the namespace.
  std::string space = pid_namespace();
  space.erase(std::remove_if(space.begin(), space.end(), [](char c) { return c < '0' || c > '9'; }),
              space.end());
  char mark[128];
  std::snprintf(mark, sizeof mark, "%s-%d-%" PRId64 "-%016" PRIx64 "%016" PRIx64, space.c_str(),
                static_cast<int>(getpid()), start_time(getpid()), random[0], random[1]);
  return mark;
}

bool is_mark(std::string_view text) {
  constexpr size_t kRandomDigits = 32;
  const size_t last = text.rfind('-');
  return last != std::string_view::npos && text.size() - last - 1 == kRandomDigits &&
         std::count(text.begin(), text.end(), '-') == 3 &&
         text.find_first_not_of("0123456789abcdef-") == std::string_view::npos;
}

}  // namespace standin
