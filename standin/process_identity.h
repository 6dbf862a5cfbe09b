// Who a process is, so that other processes can tell whether it still lives.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace standin {

struct ProcessIdentity {
  std::string host;       // name of the machine or container
  std::string machine;    // identifier of the installed system, empty when it has none
  std::string boot;       // identifier of the kernel's current run
  std::string pid_space;  // process identifiers mean something only within it
  int64_t pid = 0;
  int64_t started = 0;  // start time in clock ticks, as a pid may be used again
  std::string mark;     // no other process has it, whatever the numbers say
};

// The calling process.
ProcessIdentity this_process();

// False only when the process is known to be over: an identity that can't be judged from here, as
// one of another pid namespace or of another machine, counts as living.
bool is_alive(const ProcessIdentity& process);

// A text that no other process and no other call makes: process namespace, process, start time and
// a random number, for names of files and the marks of processes.
std::string new_mark();
// True for a text of that form.
bool is_mark(std::string_view text);

}  // namespace standin
