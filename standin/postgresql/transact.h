// Transactions that are tried again when the server asks for it.
#pragma once

#include <random>
#include <thread>

#include "standin/postgresql/connection.h"

namespace standin::postgresql {

// Does `work` in a transaction and commits it. When the server could not fit it between those of
// others, all of it is done again, some times; then kStoreBusy. `work` must not change anything
// else that a second time would not set right.
template <typename Work>
auto transact(Connection& connection, Work work, const char* begin = "BEGIN") {
  constexpr unsigned kAttempts = 20;
  thread_local std::minstd_rand random{std::random_device{}()};
  for (unsigned attempt = 1;; ++attempt) {
    try {
      Transaction transaction(connection, begin);
      if constexpr (std::is_void_v<decltype(work())>) {
        work();
        transaction.commit();
        return;
      } else {
        auto result = work();
        transaction.commit();
        return result;
      }
    } catch (const ServerFailure& failure) {
      if (!failure.may_try_again() || attempt == kAttempts) throw;
    }
    // Not all at the same moment again.
    std::this_thread::sleep_for(std::chrono::milliseconds(random() % (uint64_t{10} * attempt) + 1));
  }
}

}  // namespace standin::postgresql
