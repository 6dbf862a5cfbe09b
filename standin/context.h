// The instances and contexts of this process behind their handles.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <thread>

#include "standin/client.h"
#include "standin/store.h"

namespace standin {

// The process that a context started last.
struct ContextProcess {
  std::mutex mutex;
  std::condition_variable over;
  std::thread thread;  // joinable from the first start on
  bool started = false;
  bool running = false;
  bool closed = false;  // the context has ended: nothing may be started any more
  int result = kStatusOk;
};

// What stands behind a context handle. `mutex` guards the members that change.
struct ContextState {
  HCTX handle = 0;
  INST instance = 0;
  bool local = false;
  std::shared_ptr<Store> store;
  std::mutex mutex;
  std::string user;    // empty for a local context
  int64_t login = 0;   // in the store, from the first lock or process on; 0 before
  bool ended = false;  // nothing may be locked any more
  std::string application;
  std::string database;
  ContextProcess process;
};

// Opens the store and answers a new instance.
INST add_instance(const std::string& folder);
// Ends an instance with all its contexts; kBadInstance when there is none.
int remove_instance(INST instance);
bool is_instance(INST instance);
// Throws kBadInstance when there is none.
std::shared_ptr<Store> require_store(INST instance);

// Logs `user` in; throws StoreFailure.
HCTX add_login_context(INST instance, const std::string& user);
HCTX add_local_context(INST instance);
// Ends a context: waits for its process and gives its locks back. kBadContext when there is none.
int remove_context(HCTX handle);

// The state of a context; null when there is none.
std::shared_ptr<ContextState> find_state(HCTX handle);
// The same; throws kBadContext when there is none.
std::shared_ptr<ContextState> require_state(HCTX handle);
// The same for a login: a local context is refused with kBadContext.
std::shared_ptr<ContextState> require_login(HCTX handle);

// Copies what is known of a context.
Context describe(ContextState& state);

// The context's login in the store, 0 when it has needed none yet; and one that is made when there
// is none.
int64_t known_login(ContextState& state);
int64_t require_known_login(ContextState& state);

// Waits until the context's process is over and lets it start no other.
void close_process(ContextProcess& process);

}  // namespace standin
