// A network between clients and a PostgreSQL server that can be cut: clients connect to its folder
// as they would to the server's. It counts the statements that pass.
#pragma once

#include <gtest/gtest.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <list>
#include <string>
#include <thread>
#include <vector>

#include "tests/standin/store_folder.h"

namespace standin_test {

class Proxy {
 public:
  // What happens at a statement: its connection is closed before the server has it, or after, with
  // the answer lost; all connections are closed and none can be made; nothing passes any more.
  enum class Fault { kNone, kCutBefore, kCutAfter, kCutAll, kStall };

  explicit Proxy(const std::string& server_folder) : server_folder_(server_folder) {
    listener_ = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const sockaddr_un address = socket_in(folder_.string());
    if (bind(listener_, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
        listen(listener_, 16) != 0) {
      ADD_FAILURE() << "no socket in " << folder_.string();
    }
    acceptor_ = std::thread([this] { accept_all(); });
  }
  ~Proxy() {
    ending_ = true;
    acceptor_.join();
    for (std::thread& connection : connections_) connection.join();
    close(listener_);
  }
  Proxy(const Proxy&) = delete;
  Proxy& operator=(const Proxy&) = delete;

  std::string folder() const { return folder_.string(); }

  // Has the n-th statement from now on fail, counted from 1.
  void fail_at(int statement, Fault fault) {
    fault_ = fault;
    left_ = statement;
  }
  // Whether it came to that; nothing fails any more.
  bool mend() {
    const bool failed = has_failed();
    fault_ = Fault::kNone;
    left_ = kNever;
    return failed;
  }
  bool has_failed() const { return left_ <= 0; }
  // Waits until a statement has failed.
  void wait_for_fault() const {
    while (!has_failed()) pause();
  }

 private:
  static constexpr int kNever = 1 << 30;

  static sockaddr_un socket_in(const std::string& folder) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    (folder + "/.s.PGSQL.5432").copy(address.sun_path, sizeof address.sun_path - 1);
    return address;
  }
  static void pause() { std::this_thread::sleep_for(std::chrono::milliseconds(2)); }
  // Whether the fault has struck and lasts.
  bool lasts(Fault fault) const { return fault_ == fault && has_failed(); }

  void accept_all() {
    while (!ending_) {
      pollfd waiting{listener_, POLLIN, 0};
      if (poll(&waiting, 1, 20) <= 0) continue;
      const int client = accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
      if (client >= 0) connections_.emplace_back([this, client] { serve(client); });
    }
  }

  void serve(int client) {
    const int server = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const sockaddr_un address = socket_in(server_folder_);
    if (!lasts(Fault::kCutAll) &&
        connect(server, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0) {
      std::string unsent;  // of the statement under way from the client
      size_t known = 0;    // how much of it is whole messages
      bool started = false;
      while (!ending_ && !lasts(Fault::kCutAll)) {
        if (lasts(Fault::kStall)) {
          pause();
          continue;
        }
        pollfd both[2] = {{client, POLLIN, 0}, {server, POLLIN, 0}};
        if (poll(both, 2, 20) < 0) break;
        if (both[1].revents != 0 && !pass(server, client)) break;
        if (both[0].revents != 0 && !pass_messages(client, server, &unsent, &known, &started))
          break;
      }
    }
    close(client);
    close(server);
  }

  static bool send_all(int to, const char* bytes, size_t count) {
    while (count > 0) {
      const ssize_t sent = send(to, bytes, count, MSG_NOSIGNAL);
      if (sent <= 0) return false;
      bytes += sent;
      count -= static_cast<size_t>(sent);
    }
    return true;
  }
  static bool pass(int from, int to) {
    char buffer[1 << 16];
    const ssize_t got = recv(from, buffer, sizeof buffer, 0);
    return got > 0 && send_all(to, buffer, static_cast<size_t>(got));
  }

  // Passes whole statements, which end with a query or with the request for its answer, so that
  // none is with the server in half.
  bool pass_messages(int from, int to, std::string* unsent, size_t* known, bool* started) {
    char buffer[1 << 16];
    const ssize_t got = recv(from, buffer, sizeof buffer, 0);
    if (got <= 0) return false;
    unsent->append(buffer, static_cast<size_t>(got));
    for (;;) {
      // The first message has no type.
      const size_t head = *known + (*started ? 1 : 0);
      if (unsent->size() < head + 4) return true;
      uint32_t length = 0;
      for (size_t i = 0; i < 4; ++i) {
        length = length << 8 | static_cast<unsigned char>((*unsent)[head + i]);
      }
      const size_t end = head + length;
      if (unsent->size() < end) return true;
      const char type = *started ? (*unsent)[*known] : '\0';
      *started = true;
      *known = end;
      const bool is_statement = type == 'Q' || type == 'S';
      if (!is_statement && type != '\0' && type != 'p' && type != 'X') continue;
      const bool strikes = is_statement && --left_ == 0;
      if (strikes && fault_ == Fault::kCutBefore) return false;
      while (lasts(Fault::kStall) && !ending_) pause();
      if (!send_all(to, unsent->data(), end)) return false;
      unsent->erase(0, end);
      *known = 0;
      if (strikes && fault_ == Fault::kCutAfter) {
        // The server has done it when it answers.
        char answer = 0;
        recv(to, &answer, 1, MSG_PEEK);
        return false;
      }
    }
  }

  TempFolder folder_;
  std::string server_folder_;
  int listener_ = -1;
  std::atomic<bool> ending_{false};
  std::atomic<Fault> fault_{Fault::kNone};
  std::atomic<int> left_{kNever};
  std::thread acceptor_;
  std::list<std::thread> connections_;
};

}  // namespace standin_test
