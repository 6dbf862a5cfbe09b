// Opening, closing and writing outlines.
#include "api/olvotl.h"
#include "standin/client.h"
#include "standin/outline/calls/open_outlines.h"

namespace standin {
namespace {

std::unique_ptr<OpenOutline> new_outline(HCTX context) {
  auto open = std::make_unique<OpenOutline>();
  open->context = context;
  return open;
}

// An object that nobody has written yet opens as an empty outline.
int open_for_edit(const ObjectDefinitionRecord& object, HOutline* opened) {
  auto open = new_outline(object.context);
  const int status = load_object(object, &open->outline);
  if (status != kStatusOk && status != kNoSuchObject) return status;
  return register_outline(std::move(open), opened);
}

int open_for_query(HCTX ctx, HOutline* opened) {
  auto open = new_outline(ctx);
  open->read_only = true;
  const int status = load_active_outline(ctx, &open->outline);
  if (status != kStatusOk) return status;
  return register_outline(std::move(open), opened);
}

}  // namespace
}  // namespace standin

using namespace standin;

extern "C" {

int OlvOtlOpenOutlineQuery(HCTX ctx, const ObjectDefinitionRecord*, HOutline* opened) {
  if (opened == nullptr) return kBadArgument;
  return run_guarded([&] { return open_for_query(ctx, opened); });
}

int OlvOtlOpenOutline(HCTX ctx, const ObjectDefinitionRecord* object, int flag1, int flag2,
                      HOutline* opened) {
  if (object == nullptr || opened == nullptr || object->context != ctx) return kBadArgument;
  return run_guarded([&]() -> int {
    if (flag1 != 1 || flag2 != 1) return open_for_edit(*object, opened);
    // Each open has a lock of its own, so that the first close leaves the others theirs.
    const int locked = lock_object(*object);
    if (locked != kStatusOk) return locked;
    const int status = run_guarded([&] { return open_for_edit(*object, opened); });
    if (status != kStatusOk) unlock_object(*object);
    return status;
  });
}

int OlvOtlCloseOutline(HOutline h) {
  return run_guarded([&] { return unregister_outline(h); });
}

int OlvOtlWriteOutline(HOutline h, const ObjectDefinitionRecord* object) {
  if (object == nullptr) return kBadArgument;
  return edit_outline(h, [&](const Outline& outline) { return save_object(*object, outline); });
}

}  // extern "C"
