// Process identities from /proc.
#include "standin/process_identity.h"

#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <fstream>
#include <sstream>

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

std::string boot_identifier() {
  std::ifstream file("/proc/sys/kernel/random/boot_id");
  std::string boot;
  std::getline(file, boot);
  return boot;
}

std::string pid_namespace() {
  char target[64];
  const ssize_t length = readlink("/proc/self/ns/pid", target, sizeof target);
  return length < 0 ? std::string() : std::string(target, static_cast<size_t>(length));
}

}  // namespace

ProcessIdentity this_process() {
  ProcessIdentity self;
  self.boot = boot_identifier();
  self.pid_space = pid_namespace();
  self.pid = getpid();
  ProcessStat stat;
  if (read_stat(self.pid, &stat)) self.started = stat.started;
  return self;
}

bool is_alive(const ProcessIdentity& process) {
  if (process.boot != boot_identifier()) return false;
  if (process.pid_space != pid_namespace()) return true;
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

}  // namespace standin
