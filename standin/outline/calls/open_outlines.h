// The open outlines behind the HOutline handles, and the wrappers that every exported function
// runs in: they look the handle up, serialise calls on one outline and stop exceptions.
#pragma once

#include <memory>
#include <mutex>

#include "standin/guard.h"
#include "standin/outline/model/outline.h"
#include "standin/status.h"

namespace standin {

// An open outline with the mutex that serialises the calls on it.
struct OpenOutline {
  std::mutex mutex;
  Outline outline;
  HCTX context = 0;  // the outline closes when this ends
  bool read_only = false;
  bool closed = false;  // set under the mutex; calls that waited meanwhile are refused
};

// Enters an outline and answers its handle; handles are never used twice. kBadContext when its
// context has ended meanwhile. Throws std::bad_alloc.
int register_outline(std::shared_ptr<OpenOutline> open, HOutline* handle);
// The outline of a handle; null when there is none.
std::shared_ptr<OpenOutline> find_outline(HOutline h);
// Takes an outline out and closes it once no call is at work on it; kBadOutline when there is none.
int unregister_outline(HOutline h);

// Runs `work(const Outline&)` with the outline to itself.
template <typename Work>
int read_outline(HOutline h, Work&& work) noexcept {
  return run_guarded([&]() -> int {
    const std::shared_ptr<OpenOutline> open = find_outline(h);
    if (!open) return kBadOutline;
    const std::lock_guard<std::mutex> lock(open->mutex);
    if (open->closed) return kBadOutline;
    return work(static_cast<const Outline&>(open->outline));
  });
}

// Runs `work(Outline&)` with the outline to itself; kReadOnly when it was opened for reading.
template <typename Work>
int edit_outline(HOutline h, Work&& work) noexcept {
  return run_guarded([&]() -> int {
    const std::shared_ptr<OpenOutline> open = find_outline(h);
    if (!open) return kBadOutline;
    const std::lock_guard<std::mutex> lock(open->mutex);
    if (open->closed) return kBadOutline;
    if (open->read_only) return kReadOnly;
    return work(open->outline);
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
