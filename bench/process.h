// Other processes: the sqlite3 shell as a yardstick, and children whose memory is looked at.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace bench {

// Runs the sqlite3 shell on a database file with the commands in the file `script`; its output
// goes to the file `output`. CPU seconds that it took. Throws std::runtime_error when it fails.
double run_sqlite_shell(const std::string& database, const std::string& script,
                        const std::string& output);

// Whether there is an sqlite3 shell of this program's width.
bool has_sqlite_shell();

// What work() answers in a child process, whose memory is as fresh as that of a program that has
// just started. Not for a process that has a store open. Throws std::runtime_error when the child
// fails.
double figure_of_child(const std::function<double()>& work);

// Makes the heap of this process grow by `bytes` and keep them: what is allocated then costs no
// page faults, which cost many times as much on one machine as on another.
void touch_heap(int64_t bytes);

// Bytes by which a child process that calls work() grows at its peak.
int64_t peak_memory_of(const std::function<void()>& work);

}  // namespace bench
