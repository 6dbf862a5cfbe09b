// Who a process is, so that other processes can tell whether it still lives.
#pragma once

#include <cstdint>
#include <string>

namespace standin {

struct ProcessIdentity {
  std::string boot;       // identifier of the machine's current run
  std::string pid_space;  // process identifiers mean something only within it
  int64_t pid = 0;
  int64_t started = 0;  // start time in clock ticks, as a pid may be used again
};

// The calling process.
ProcessIdentity this_process();

// False only when the process is known to be over: an identity that can't be judged from here, as
// one of another pid namespace, counts as living.
bool is_alive(const ProcessIdentity& process);

}  // namespace standin
