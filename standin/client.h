// What libolv.so offers libolvotl.so: the ledger of memory handed out, contexts, the place and the
// locks of stored objects, and processes that run on a thread of the stand-in.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "api/records.h"
#include "standin/status.h"

namespace standin {

// ---- The ledger ----

// How a block must come back: OlvFree, OlvOtlFreeMembers or OlvOtlFreeStructure.
enum class BlockKind { kPlain, kMembers, kStructure };

// Hands out `bytes` zeroed bytes (at least 1) and enters them in the ledger. `count` and `code` are
// what the release has to repeat (structures, handle arrays). Throws std::bad_alloc, as do the
// functions made of it.
void* hand_out(BlockKind kind, size_t bytes, uint32_t count = 0, uint32_t code = 0);

// hand_out for `count` records of one type that go back with OlvFree.
template <typename Record>
Record* hand_out_records(size_t count) {
  return static_cast<Record*>(hand_out(BlockKind::kPlain, count * sizeof(Record)));
}

// hand_out for an array of handles; null for an empty one. Those of kMembers go back with their
// count.
HMember* hand_out_handles(BlockKind kind, const std::vector<HMember>& handles);

// hand_out for a text with its NUL.
char* hand_out_text(std::string_view text);

// Gives a block back. Null succeeds. kBlockUnknown or kBlockWrongRelease when it does not fit; both
// are counted, and abort the process when OLV_STANDIN_STRICT is 1. A structure may also come back
// as kPlain: some callers only hold an instance.
int take_back(BlockKind kind, const void* block, uint32_t count = 0, uint32_t code = 0);

// ---- Contexts ----

struct Context {
  HCTX handle = 0;
  INST instance = 0;
  bool local = false;       // objects kept on this machine, outside the store
  std::string application;  // the active database, empty when none
  std::string database;
};

// Copies what is known of `handle` into `*context`; kBadContext when there is none.
int find_context(HCTX handle, Context* context);

// Has `ended` called after a context has ended, from now on. For one caller.
void when_context_ends(void (*ended)(HCTX));

// ---- Stored outlines ----

class Outline;

// Reads a stored outline into one that is new and empty. kNoSuchObject when there is none or
// kNewerOutline when a later version of this engine wrote it, and the outline stays empty;
// kDamagedOutline when anything in it is not as it was written, and the outline is of no use.
int load_object(const ObjectDefinitionRecord& object, Outline* outline);
// The same for the outline of the context's active database; kNoActiveDatabase when it has none.
int load_active_outline(HCTX context, Outline* outline);

// Stores an outline in place of what is there, durably, at once and whole, or fails and changes
// nothing. kNotLocked unless the context holds the object's lock; local objects need none.
int save_object(const ObjectDefinitionRecord& object, const Outline& outline);

// Starts a process that writes the outline of the context's active database anew, with the index of
// its members, and counts that. An outline that somebody stores meanwhile is the one that gets the
// index; it is never replaced by an older one.
int start_restructure(HCTX context);

// Locks of objects are shared by all processes on the store and belong to a login.
int lock_object(const ObjectDefinitionRecord& object);
int unlock_object(const ObjectDefinitionRecord& object);

// ---- Processes ----

// Runs `work` on a thread; OlvGetProcessState of `context` reports it until it is over, in every
// process that uses the store, and a process that died counts as over. kProcessRunning when one
// runs already for this context.
int start_process(const Context& context, std::function<int()> work);

}  // namespace standin
