// The registry of instances and contexts. Handles are never used twice, and the numbers of
// instances and contexts don't overlap, so that one is not taken for the other.
#include "standin/context.h"

#include <atomic>
#include <map>
#include <vector>

#include "standin/guard.h"

namespace standin {
namespace {

constexpr uint32_t kFirstInstance = 0x00010001;
constexpr uint32_t kFirstContext = 0x20000001;

struct Registry {
  std::mutex mutex;
  INST next_instance = kFirstInstance;
  HCTX next_context = kFirstContext;
  std::map<INST, std::shared_ptr<Store>> instances;
  std::map<HCTX, std::shared_ptr<ContextState>> contexts;
};

// Never destroyed: threads may outlive the exit handlers, and a store left open at exit counts as
// one whose process has died.
Registry& registry() {
  static auto* the_registry = new Registry;
  return *the_registry;
}

// Who wants to know that a context has ended.
std::atomic<void (*)(HCTX)> context_ended{nullptr};

// Enters a context unless its instance has ended meanwhile.
HCTX enter(const std::shared_ptr<ContextState>& state) {
  Registry& all = registry();
  const std::lock_guard<std::mutex> lock(all.mutex);
  if (all.instances.count(state->instance) == 0) throw StoreFailure(kBadInstance);
  state->handle = all.next_context;
  all.contexts.emplace(state->handle, state);
  return all.next_context++;
}

std::shared_ptr<ContextState> new_context(INST instance) {
  auto state = std::make_shared<ContextState>();
  state->instance = instance;
  state->store = require_store(instance);
  return state;
}

}  // namespace

INST add_instance(const std::string& folder) {
  auto store = open_store(folder);
  Registry& all = registry();
  const std::lock_guard<std::mutex> lock(all.mutex);
  all.instances.emplace(all.next_instance, std::move(store));
  return all.next_instance++;
}

int remove_instance(INST instance) {
  Registry& all = registry();
  std::vector<HCTX> contexts;
  {
    const std::lock_guard<std::mutex> lock(all.mutex);
    if (all.instances.erase(instance) == 0) return kBadInstance;
    for (const auto& [handle, state] : all.contexts) {
      if (state->instance == instance) contexts.push_back(handle);
    }
  }
  int status = kStatusOk;
  for (const HCTX handle : contexts) {
    const int removed = remove_context(handle);
    if (status == kStatusOk) status = removed;
  }
  return status;
}

bool is_instance(INST instance) {
  Registry& all = registry();
  const std::lock_guard<std::mutex> lock(all.mutex);
  return all.instances.count(instance) != 0;
}

std::shared_ptr<Store> require_store(INST instance) {
  Registry& all = registry();
  const std::lock_guard<std::mutex> lock(all.mutex);
  const auto found = all.instances.find(instance);
  if (found == all.instances.end()) throw StoreFailure(kBadInstance);
  return found->second;
}

HCTX add_login_context(INST instance, const std::string& user) {
  const auto state = new_context(instance);
  state->user = user;
  return enter(state);
}

HCTX add_local_context(INST instance) {
  const auto state = new_context(instance);
  state->local = true;
  return enter(state);
}

int remove_context(HCTX handle) {
  Registry& all = registry();
  std::shared_ptr<ContextState> state;
  {
    const std::lock_guard<std::mutex> lock(all.mutex);
    const auto found = all.contexts.find(handle);
    if (found == all.contexts.end()) return kBadContext;
    state = std::move(found->second);
    all.contexts.erase(found);
  }
  close_process(state->process);
  if (auto* const tell = context_ended.load()) tell(handle);
  const std::lock_guard<std::mutex> lock(state->mutex);
  state->ended = true;
  if (state->login == 0) return kStatusOk;
  return run_guarded([&] {
    state->store->remove_login(state->login);
    return kStatusOk;
  });
}

std::shared_ptr<ContextState> find_state(HCTX handle) {
  Registry& all = registry();
  const std::lock_guard<std::mutex> lock(all.mutex);
  const auto found = all.contexts.find(handle);
  return found == all.contexts.end() ? nullptr : found->second;
}

std::shared_ptr<ContextState> require_state(HCTX handle) {
  auto state = find_state(handle);
  if (state == nullptr) throw StoreFailure(kBadContext);
  return state;
}

std::shared_ptr<ContextState> require_login(HCTX handle) {
  auto state = require_state(handle);
  if (state->local) throw StoreFailure(kBadContext);
  return state;
}

Context describe(ContextState& state) {
  Context context;
  context.handle = state.handle;
  context.instance = state.instance;
  context.local = state.local;
  const std::lock_guard<std::mutex> lock(state.mutex);
  context.application = state.application;
  context.database = state.database;
  return context;
}

int64_t known_login(ContextState& state) {
  const std::lock_guard<std::mutex> lock(state.mutex);
  return state.login;
}

int64_t require_known_login(ContextState& state) {
  const std::lock_guard<std::mutex> lock(state.mutex);
  if (state.ended) throw StoreFailure(kBadContext);
  if (state.login == 0) state.login = state.store->add_login(state.user);
  return state.login;
}

void when_context_ends(void (*ended)(HCTX)) {
  context_ended = ended;
}

int find_context(HCTX handle, Context* context) {
  if (context == nullptr) return kBadArgument;
  return run_guarded([&] {
    *context = describe(*require_state(handle));
    return kStatusOk;
  });
}

}  // namespace standin
