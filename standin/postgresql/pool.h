// The connections of a store: each piece of work has one to itself.
#pragma once

#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "standin/postgresql/connection.h"

namespace standin::postgresql {

class Pool {
 public:
  explicit Pool(std::string address) : address_(std::move(address)) {}

  // How long a transaction may do nothing: who is stuck in one must
  // not keep others waiting.
  void set_patience(std::chrono::milliseconds patience) {
    const std::lock_guard<std::mutex> lock(mutex_);
    patience_ = patience;
    for (const auto& connection : idle_) connection->limit_idle(patience);
  }

  // Calls work(connection) with a connection that nobody else uses meanwhile; throws what it
  // throws.
  template <typename Work>
  auto use(Work work) {
    Borrowed borrowed(*this);
    return work(*borrowed.connection);
  }
  // The same for work that may be done twice: when the connection breaks, it is done once more on a
  // new one.
  template <typename Work>
  auto use_again(Work work) {
    try {
      return use(work);
    } catch (const ServerFailure& failure) {
      if (failure.status() != kNoConnection) throw;
    }
    return use(work);
  }

 private:
  static constexpr size_t kMostIdle = 3;

  struct Borrowed {
    explicit Borrowed(Pool& owner) : pool(owner), connection(owner.take()) {}
    ~Borrowed() { pool.give_back(std::move(connection)); }
    Borrowed(const Borrowed&) = delete;
    Borrowed& operator=(const Borrowed&) = delete;

    Pool& pool;
    std::unique_ptr<Connection> connection;
  };

  std::unique_ptr<Connection> take() {
    std::chrono::milliseconds patience{};
    for (;;) {
      std::unique_ptr<Connection> idle;
      {
        const std::lock_guard<std::mutex> lock(mutex_);
        patience = patience_;
        if (idle_.empty()) break;
        idle = std::move(idle_.back());
        idle_.pop_back();
      }
      // One that the server has closed meanwhile is no use.
      if (idle->is_open()) return idle;
    }
    auto connection = std::make_unique<Connection>(address_);
    connection->limit_idle(patience);
    return connection;
  }
  void give_back(std::unique_ptr<Connection> connection) noexcept {
    const std::lock_guard<std::mutex> lock(mutex_);
    if (!connection->is_idle() || idle_.size() >= kMostIdle) return;
    run_guarded([&] {
      idle_.push_back(std::move(connection));
      return kStatusOk;
    });
  }

  std::string address_;
  std::mutex mutex_;
  std::vector<std::unique_ptr<Connection>> idle_;
  std::chrono::milliseconds patience_{0};
};

}  // namespace standin::postgresql
