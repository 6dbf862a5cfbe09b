// The registry of open outlines.
#include "standin/outline/calls/open_outlines.h"

#include <unordered_map>
#include <utility>
#include <vector>

#include "standin/client.h"

namespace standin {

namespace {

struct Registry {
  std::mutex mutex;
  HOutline next = 0x00100001;  // far from member numbers, so that one is not taken for the other
  std::unordered_map<HOutline, std::shared_ptr<OpenOutline>> open;
};

// Never destroyed: threads may outlive the exit handlers.
Registry& registry() {
  static auto* the_registry = new Registry;
  return *the_registry;
}

void close(OpenOutline& open) {
  const std::lock_guard<std::mutex> lock(open.mutex);
  open.closed = true;
}

void close_outlines_of(HCTX context) {
  Registry& all = registry();
  std::vector<std::shared_ptr<OpenOutline>> ending;
  {
    const std::lock_guard<std::mutex> lock(all.mutex);
    for (auto at = all.open.begin(); at != all.open.end();) {
      if (at->second->context == context) {
        ending.push_back(std::move(at->second));
        at = all.open.erase(at);
      } else {
        ++at;
      }
    }
  }
  for (const auto& open : ending) close(*open);
}

}  // namespace

int register_outline(std::shared_ptr<OpenOutline> open, HOutline* handle) {
  static const bool told = (when_context_ends(close_outlines_of), true);
  (void)told;
  const HCTX context = open->context;
  Registry& all = registry();
  HOutline entered = 0;
  {
    const std::lock_guard<std::mutex> lock(all.mutex);
    entered = all.next;
    all.open.emplace(entered, std::move(open));
    ++all.next;
  }
  // From here on the end of the context closes it. It may have ended before.
  Context ignored;
  if (const int status = find_context(context, &ignored); status != kStatusOk) {
    unregister_outline(entered);
    return status;
  }
  *handle = entered;
  return kStatusOk;
}

std::shared_ptr<OpenOutline> find_outline(HOutline h) {
  Registry& all = registry();
  const std::lock_guard<std::mutex> lock(all.mutex);
  const auto found = all.open.find(h);
  return found == all.open.end() ? nullptr : found->second;
}

int unregister_outline(HOutline h) {
  std::shared_ptr<OpenOutline> open;
  {
    Registry& all = registry();
    const std::lock_guard<std::mutex> lock(all.mutex);
    const auto found = all.open.find(h);
    if (found == all.open.end()) return kBadOutline;
    open = std::move(found->second);
    all.open.erase(found);
  }
  close(*open);
  return kStatusOk;
}

}  // namespace standin
