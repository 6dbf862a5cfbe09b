// The registry of open outlines.
#include "standin/outline/calls/open_outlines.h"

#include <atomic>
#include <deque>
#include <unordered_map>
#include <utility>
#include <vector>

#include "standin/client.h"

namespace standin {

namespace {

struct Registry {
  struct Entry {
    OutlinePlace* place = nullptr;
    HCTX context = 0;
  };

  std::atomic<HOutline> next{
      0x00100001};   // far from member numbers: neither is taken for the other
  std::mutex mutex;  // of what follows; no place is locked under it
  std::unordered_map<HOutline, Entry> open;
  std::deque<OutlinePlace> places;
  std::vector<OutlinePlace*> free;
};

// Never destroyed: threads may outlive the exit handlers.
Registry& registry() {
  static auto* the_registry = new Registry;
  return *the_registry;
}

// A place where nothing is open. Throws std::bad_alloc.
OutlinePlace* take_place() {
  Registry& all = registry();
  const std::lock_guard<std::mutex> lock(all.mutex);
  if (all.free.empty()) {
    all.free.reserve(all.places.size() + 1);  // so that giving a place back asks for no memory
    all.free.push_back(&all.places.emplace_back());
  }
  OutlinePlace* place = all.free.back();
  all.free.pop_back();
  return place;
}

// Ends what is open in a place that is not entered any more, once no call is at work on it.
void close(OutlinePlace* place) {
  std::unique_ptr<OpenOutline> ending;
  {
    const std::lock_guard<std::mutex> lock(place->mutex);
    place->handle = 0;
    ending = std::move(place->open);
  }
  ending.reset();
  Registry& all = registry();
  const std::lock_guard<std::mutex> lock(all.mutex);
  all.free.push_back(place);
}

// Enters an outline under a new handle. Throws std::bad_alloc.
HOutline enter(std::unique_ptr<OpenOutline> open) {
  Registry& all = registry();
  OutlinePlace* place = take_place();
  const HCTX context = open->context;
  const HOutline handle = all.next++;
  {
    const std::lock_guard<std::mutex> lock(place->mutex);
    place->handle = handle;
    place->open = std::move(open);
  }
  try {
    const std::lock_guard<std::mutex> lock(all.mutex);
    all.open.emplace(handle, Registry::Entry{place, context});
  } catch (const std::bad_alloc&) {
    close(place);
    throw;
  }
  return handle;
}

void close_outlines_of(HCTX context) {
  Registry& all = registry();
  std::vector<OutlinePlace*> ending;
  {
    const std::lock_guard<std::mutex> lock(all.mutex);
    for (auto at = all.open.begin(); at != all.open.end();) {
      if (at->second.context == context) {
        ending.push_back(at->second.place);
        at = all.open.erase(at);
      } else {
        ++at;
      }
    }
  }
  for (OutlinePlace* place : ending) close(place);
}

}  // namespace

int register_outline(std::unique_ptr<OpenOutline> open, HOutline* handle) {
  static const bool kTold = (when_context_ends(close_outlines_of), true);
  (void)kTold;
  const HCTX context = open->context;
  const HOutline entered = enter(std::move(open));
  // From here on the end of the context closes it. It may have ended before.
  Context ignored;
  if (const int status = find_context(context, &ignored); status != kStatusOk) {
    unregister_outline(entered);
    return status;
  }
  *handle = entered;
  return kStatusOk;
}

OutlinePlace* find_outline(HOutline h) {
  // Most calls of a thread are on the outline of its last one, and need no registry then.
  struct Last {
    HOutline handle;
    OutlinePlace* place;
  };
  thread_local Last last = {0, nullptr};
  if (h == last.handle) return last.place;
  Registry& all = registry();
  const std::lock_guard<std::mutex> lock(all.mutex);
  const auto found = all.open.find(h);
  if (found == all.open.end()) return nullptr;
  last = {h, found->second.place};
  return last.place;
}

int unregister_outline(HOutline h) {
  OutlinePlace* place = nullptr;
  {
    Registry& all = registry();
    const std::lock_guard<std::mutex> lock(all.mutex);
    const auto found = all.open.find(h);
    if (found == all.open.end()) return kBadOutline;
    place = found->second.place;
    all.open.erase(found);
  }
  close(place);
  return kStatusOk;
}

}  // namespace standin
