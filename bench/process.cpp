// Starts child processes and reads what they used.
#include "bench/process.h"

#include <fcntl.h>
#include <malloc.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <vector>

namespace bench {
namespace {

double seconds(const timeval& time) {
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
}

// Waits for a child; CPU seconds that it took.
double wait_for(pid_t child, const char* what) {
  int status = 0;
  rusage usage{};
  while (wait4(child, &status, 0, &usage) < 0) {
    if (errno != EINTR) throw std::runtime_error(std::string("cannot wait for ") + what);
  }
  if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) {
    throw std::runtime_error(std::string(what) + " failed");
  }
  return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

// A figure in kilobytes of /proc/self/status, in bytes.
int64_t own_memory(const std::string& field) {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.rfind(field + ":", 0) == 0) return std::stoll(line.substr(field.size() + 1)) * 1024;
  }
  return 0;
}

[[noreturn]] void tell_figure(int pipe, const std::function<double()>& work) {
  try {
    const double figure = work();
    if (write(pipe, &figure, sizeof figure) == sizeof figure) _exit(EXIT_SUCCESS);
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
  }
  _exit(EXIT_FAILURE);
}

}  // namespace

double run_sqlite_shell(const std::string& database, const std::string& script,
                        const std::string& output) {
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, script.c_str(), O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, output.c_str(),
                                   O_WRONLY | O_CREAT | O_TRUNC, 0600);
  std::string words[] = {"sqlite3", "-batch", "-bail", database};
  char* arguments[] = {words[0].data(), words[1].data(), words[2].data(), words[3].data(), nullptr};
  pid_t child = 0;
  const int failed = posix_spawnp(&child, "sqlite3", &actions, nullptr, arguments, environ);
  posix_spawn_file_actions_destroy(&actions);
  if (failed != 0) throw std::runtime_error("cannot start sqlite3; install the package sqlite3");
  return wait_for(child, "sqlite3");
}

bool has_sqlite_shell() {
  return sizeof(void*) == 8;
}

double figure_of_child(const std::function<double()>& work) {
  int ends[2];
  if (pipe(ends) != 0) throw std::runtime_error("cannot make a pipe");
  std::fflush(nullptr);
  const pid_t child = fork();
  if (child < 0) throw std::runtime_error("cannot start a child process");
  if (child == 0) tell_figure(ends[1], work);
  close(ends[1]);
  double figure = 0;
  const bool told = read(ends[0], &figure, sizeof figure) == sizeof figure;
  close(ends[0]);
  wait_for(child, "the measured child process");
  if (!told) throw std::runtime_error("the measured child process did not answer");
  return figure;
}

void touch_heap(int64_t bytes) {
  constexpr size_t kBlock = 1 << 16;
  mallopt(M_TRIM_THRESHOLD, -1);  // never
  mallopt(M_MMAP_MAX, 0);
  std::vector<std::unique_ptr<char[]>> blocks(static_cast<size_t>(bytes) / kBlock + 1);
  for (std::unique_ptr<char[]>& block : blocks) {
    block.reset(new char[kBlock]);
    std::memset(block.get(), 1, kBlock);
  }
}

int64_t peak_memory_of(const std::function<void()>& work) {
  return static_cast<int64_t>(figure_of_child([&] {
    const int64_t before = own_memory("VmRSS");
    std::ofstream("/proc/self/clear_refs") << "5";  // the peak starts anew
    work();
    return static_cast<double>(own_memory("VmHWM") - before);
  }));
}

}  // namespace bench
