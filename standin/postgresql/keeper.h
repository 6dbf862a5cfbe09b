// The logins of this process in a store: rows that are renewed over one connection, and end with
// it.
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <thread>

#include "standin/postgresql/connection.h"

namespace standin::postgresql {

// When the connection breaks, all logins are over, whatever the server still believes; their rows
// are removed as soon as it can be reached again, or run out by themselves.
class Keeper {
 public:
  using Clock = std::chrono::steady_clock;

  Keeper(std::string address, std::chrono::milliseconds lease);
  ~Keeper();
  Keeper(const Keeper&) = delete;
  Keeper& operator=(const Keeper&) = delete;

  // Enters a login and answers its number in the store.
  int64_t enter(const std::string& user);
  void leave(int64_t login);
  // False when the login is over: its connection broke, or somebody has removed it.
  bool is_kept(int64_t login);

 private:
  void keep();
  void renew();
  void notice_loss();
  void connect(std::unique_lock<std::mutex>& lock);
  void remove_orphans(std::unique_lock<std::mutex>& lock);

  std::string address_;
  std::chrono::milliseconds lease_;
  std::mutex mutex_;  // guards what follows
  std::condition_variable changed_;
  std::unique_ptr<Connection> connection_;
  std::set<int64_t> logins_;
  std::set<int64_t> orphans_;        // of a broken connection
  Clock::time_point orphans_until_;  // from then on they have run out
  bool ending_ = false;
  std::thread thread_;  // from the first login on
};

}  // namespace standin::postgresql
