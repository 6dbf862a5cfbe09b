// Processes: work on a thread of the stand-in, one at a time for a context and for a database.
#include <chrono>
#include <system_error>

#include "standin/context.h"
#include "standin/guard.h"
#include "standin/object.h"

namespace standin {
namespace {

// Does the work and tells the store, and last those who wait, that it is over.
void run_process(const std::shared_ptr<ContextState>& state, int64_t login,
                 const std::function<int()>& work) {
  const int worked = run_guarded(work);
  const int ended = run_guarded([&] {
    state->store->end_process(login);
    return kStatusOk;
  });
  ContextProcess& process = state->process;
  const std::lock_guard<std::mutex> lock(process.mutex);
  process.result = worked != kStatusOk ? worked : ended;
  process.running = false;
  process.over.notify_all();
}

}  // namespace

int start_process(const Context& context, std::function<int()> work) {
  return run_guarded([&] {
    const auto state = require_login(context.handle);
    if (context.application.empty()) return static_cast<int>(kNoActiveDatabase);
    const std::string database =
        existing_database(*state, context.application.c_str(), context.database.c_str());

    ContextProcess& process = state->process;
    const std::lock_guard<std::mutex> lock(process.mutex);
    if (process.closed) return static_cast<int>(kBadContext);
    if (process.running) return static_cast<int>(kProcessRunning);
    if (process.thread.joinable()) process.thread.join();
    const int64_t login = require_known_login(*state);
    state->store->begin_process(login, database);
    try {
      process.thread = std::thread(run_process, state, login, std::move(work));
    } catch (const std::system_error&) {
      state->store->end_process(login);
      return static_cast<int>(kNoMemory);
    }
    process.started = true;
    process.running = true;
    process.result = kStatusOk;
    return kStatusOk;
  });
}

void close_process(ContextProcess& process) {
  {
    const std::lock_guard<std::mutex> lock(process.mutex);
    process.closed = true;
  }
  if (process.thread.joinable()) process.thread.join();
}

}  // namespace standin
