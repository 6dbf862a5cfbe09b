// The open outlines behind the HOutline handles, and the wrappers that every exported function
// runs in: they look the handle up, serialise calls on one outline and stop exceptions.
#pragma once

#include <memory>
#include <mutex>

#include "standin/guard.h"
#include "standin/outline/model/outline.h"
#include "standin/status.h"

namespace standin {

struct OpenOutline {
  Outline outline;
  HCTX context = 0;  // the outline closes when this ends
  bool read_only = false;
};

// A place for an open outline. Places are used again but never freed, so that a thread may remember
// the one that it used last: what tells whether an outline is still there is the handle.
struct OutlinePlace {
  std::mutex mutex;     // serialises the calls on the outline
  HOutline handle = 0;  // 0 while nothing is open here
  std::unique_ptr<OpenOutline> open;
};

// Enters an outline and answers its handle; handles are never used twice. kBadContext when its
// context has ended meanwhile. Throws std::bad_alloc.
int register_outline(std::unique_ptr<OpenOutline> open, HOutline* handle);
// The place where an outline is or was; null when there is none.
OutlinePlace* find_outline(HOutline h);
// Takes an outline out and closes it once no call is at work on it; kBadOutline when there is none.
int unregister_outline(HOutline h);

// Runs `work(OpenOutline&)` with the outline to itself.
template <typename Work>
int with_outline(HOutline h, Work&& work) noexcept {
  return run_guarded([&]() -> int {
    OutlinePlace* place = find_outline(h);
    if (place == nullptr) return kBadOutline;
    const std::lock_guard<std::mutex> lock(place->mutex);
    if (place->handle != h) return kBadOutline;
    return work(*place->open);
  });
}

// Runs `work(const Outline&)` with the outline to itself.
template <typename Work>
int read_outline(HOutline h, Work&& work) noexcept {
  return with_outline(h, [&](const OpenOutline& open) -> int { return work(open.outline); });
}

// Runs `work(Outline&)` with the outline to itself; kReadOnly when it was opened for reading.
template <typename Work>
int edit_outline(HOutline h, Work&& work) noexcept {
  return with_outline(h, [&](OpenOutline& open) -> int {
    if (open.read_only) return kReadOnly;
    return work(open.outline);
  });
}

// edit_outline and read_outline for one member: kBadMember when it does not exist.
template <typename Work>
int read_member(HOutline h, HMember member, Work&& work) noexcept {
  return read_outline(h, [&](const Outline& outline) -> int {
    if (!outline.contains(member)) return kBadMember;
    return work(outline);
  });
}
template <typename Work>
int edit_member(HOutline h, HMember member, Work&& work) noexcept {
  return edit_outline(h, [&](Outline& outline) -> int {
    if (!outline.contains(member)) return kBadMember;
    return work(outline);
  });
}

}  // namespace standin
