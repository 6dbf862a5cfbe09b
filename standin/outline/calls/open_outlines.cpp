// The registry of open outlines.
#include "standin/outline/calls/open_outlines.h"

#include <unordered_map>
#include <utility>

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

}  // namespace

HOutline register_outline(std::shared_ptr<OpenOutline> open) {
  Registry& all = registry();
  const std::lock_guard<std::mutex> lock(all.mutex);
  all.open.emplace(all.next, std::move(open));
  return all.next++;
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
  const std::lock_guard<std::mutex> lock(open->mutex);
  open->closed = true;
  return kStatusOk;
}

}  // namespace standin
