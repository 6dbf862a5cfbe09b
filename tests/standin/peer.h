// A second process on the same store, for tests of what processes share.
#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <functional>

namespace standin_test {

// Runs `work` in a child process, which then waits to be told to go on or to be killed. The child
// comes from a fork, so it has to be made while this process has no store open.
class Peer {
 public:
  // The work's place to stop: tells the test how far it is, and waits until the test goes on.
  using Pause = std::function<void(int status)>;

  explicit Peer(const std::function<void(const Pause&)>& work) {
    if (pipe(to_child_) != 0 || pipe(from_child_) != 0) abort();
    child_ = fork();
    if (child_ < 0) abort();
    if (child_ != 0) return;
    // Ends that stay open in the child would keep it waiting when the test dies.
    close(to_child_[1]);
    close(from_child_[0]);
    work([this](int status) {
      char byte = 0;
      if (write(from_child_[1], &status, sizeof status) != sizeof status) _exit(1);
      if (read(to_child_[0], &byte, 1) != 1) _exit(1);
    });
    _exit(0);
  }

  ~Peer() {
    kill();
    if (child_ > 0) reap();
    for (const int end : {to_child_[0], to_child_[1], from_child_[0], from_child_[1]}) close(end);
  }
  Peer(const Peer&) = delete;
  Peer& operator=(const Peer&) = delete;

  // Waits for the child's next pause and answers its status.
  int wait() {
    int status = -2;
    if (read(from_child_[0], &status, sizeof status) != sizeof status) ADD_FAILURE() << "no answer";
    return status;
  }

  // Lets the child go on behind its pause.
  void go_on() {
    const char byte = 1;
    EXPECT_EQ(write(to_child_[1], &byte, 1), 1);
  }

  // Waits until the child has ended by itself.
  void join() {
    int status = 0;
    EXPECT_EQ(waitpid(child_, &status, 0), child_);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    child_ = -1;
  }

  // Kills the child where it stands. Until reap() it stays in the process table as a zombie.
  void kill() {
    if (child_ <= 0) return;
    ::kill(child_, SIGKILL);
    siginfo_t ended{};
    waitid(P_PID, static_cast<id_t>(child_), &ended, WEXITED | WNOWAIT);
  }
  void reap() {
    waitpid(child_, nullptr, 0);
    child_ = -1;
  }

 private:
  int to_child_[2] = {-1, -1};
  int from_child_[2] = {-1, -1};
  pid_t child_ = -1;
};

}  // namespace standin_test
