// Opening, closing and writing outlines.
#include "api/olvotl.h"
#include "standin/client.h"
#include "standin/outline/calls/open_outlines.h"
#include "standin/outline/file/stored_outline.h"

namespace standin {

namespace {

// The object's file with the context it belongs to.
int find_object(const ObjectDefinitionRecord& object, Context* context, std::string* path) {
  const int status = find_context(object.context, context);
  if (status != kStatusOk) return status;
  return object_path(*context, object.objectType, object.applicationName, object.databaseName,
                     object.objectName, path);
}

// Registers what `open` holds; the handle goes to the caller.
int hand_over(std::shared_ptr<OpenOutline> open, HOutline* opened) {
  *opened = register_outline(std::move(open));
  return kStatusOk;
}

// An object that nobody has written yet opens as an empty outline.
int open_for_edit(const std::string& path, HOutline* opened) {
  auto open = std::make_shared<OpenOutline>();
  const int status = load_outline(path, &open->outline);
  if (status != kStatusOk && status != kNoSuchObject) return status;
  return hand_over(std::move(open), opened);
}

int open_for_query(HCTX ctx, HOutline* opened) {
  Context context;
  int status = find_context(ctx, &context);
  if (status != kStatusOk) return status;
  std::string path;
  status = active_outline_path(context, &path);
  if (status != kStatusOk) return status;
  auto open = std::make_shared<OpenOutline>();
  open->read_only = true;
  status = load_outline(path, &open->outline);
  if (status != kStatusOk) return status;
  return hand_over(std::move(open), opened);
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
    Context context;
    std::string path;
    const int found = find_object(*object, &context, &path);
    if (found != kStatusOk) return found;
    const auto& [handle, type, app, db, name] = *object;
    if (flag1 != 1 || flag2 != 1) return open_for_edit(path, opened);
    const bool held_before = holds_lock(context, type, app, db, name);
    const int locked = held_before ? kStatusOk : lock_object(context, type, app, db, name);
    if (locked != kStatusOk) return locked;
    const int status = run_guarded([&] { return open_for_edit(path, opened); });
    if (status != kStatusOk && !held_before) unlock_object(context, type, app, db, name);
    return status;
  });
}

int OlvOtlCloseOutline(HOutline h) {
  return run_guarded([&] { return unregister_outline(h); });
}

int OlvOtlWriteOutline(HOutline h, const ObjectDefinitionRecord* object) {
  if (object == nullptr) return kBadArgument;
  return edit_outline(h, [&](const Outline& outline) -> int {
    Context context;
    std::string path;
    const int status = find_object(*object, &context, &path);
    if (status != kStatusOk) return status;
    if (!context.local && !holds_lock(context, object->objectType, object->applicationName,
                                      object->databaseName, object->objectName)) {
      return kNotLocked;
    }
    return save_outline(outline, path);
  });
}

}  // extern "C"
