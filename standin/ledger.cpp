// The ledger: every block handed out is entered with its kind, count and code in a table keyed by
// address, so that a wrong release is noticed without touching the memory it names.
#include "standin/ledger.h"

#include <array>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <mutex>
#include <unordered_map>

#include "standin/client.h"
#include "standin/guard.h"

namespace standin {
namespace {

struct Entry {
  BlockKind kind;
  uint32_t count;
  uint32_t code;
};

// One of several tables, so that threads on different outlines seldom wait for each other.
struct alignas(64) Shard {
  std::mutex mutex;
  std::unordered_map<const void*, Entry> blocks;
};

constexpr size_t kShards = 32;

// Never destroyed: blocks may come back from threads that outlive the exit handlers.
std::array<Shard, kShards>& shards() {
  static auto* all = new std::array<Shard, kShards>;
  return *all;
}

Shard& shard_of(const void* block) {
  // Allocations are 16 bytes apart at least; neighbours go to different shards.
  return shards()[(reinterpret_cast<uintptr_t>(block) >> 4) % kShards];
}

std::atomic<uint64_t> handed_out{0};
std::atomic<uint64_t> given_back{0};
std::atomic<uint64_t> wrong_releases{0};

const char* function_of(BlockKind kind) {
  switch (kind) {
    case BlockKind::kPlain:
      return "OlvFree";
    case BlockKind::kMembers:
      return "OlvOtlFreeMembers";
    case BlockKind::kStructure:
      return "OlvOtlFreeStructure";
  }
  return "no function";
}

bool fits(const Entry& entry, BlockKind kind, uint32_t count, uint32_t code) {
  if (entry.kind == BlockKind::kStructure && kind == BlockKind::kPlain) return true;
  if (entry.kind != kind) return false;
  return kind == BlockKind::kPlain || (entry.count == count && entry.code == code);
}

}  // namespace

LedgerCounts ledger_counts() {
  LedgerCounts counts;
  // In this order a block that comes back meanwhile can't make more returns than hand-outs.
  counts.given_back = given_back.load();
  counts.handed_out = handed_out.load();
  counts.wrong_releases = wrong_releases.load();
  counts.outstanding = counts.handed_out - counts.given_back;
  return counts;
}

bool strict() {
  // NOLINTNEXTLINE(concurrency-mt-unsafe): nothing here changes the environment
  const char* value = std::getenv("OLV_STANDIN_STRICT");
  return value != nullptr && std::strcmp(value, "1") == 0;
}

int wrong_release(int status, const void* block, const char* reason) {
  ++wrong_releases;
  if (strict()) {
    std::fprintf(stderr, "olv: wrong release of block %p: %s\n", block, reason);
    std::abort();
  }
  return status;
}

void* hand_out(BlockKind kind, size_t bytes, uint32_t count, uint32_t code) {
  void* block = std::calloc(1, bytes == 0 ? 1 : bytes);
  if (block == nullptr) throw std::bad_alloc();
  try {
    Shard& shard = shard_of(block);
    const std::lock_guard<std::mutex> lock(shard.mutex);
    shard.blocks[block] = Entry{kind, count, code};
  } catch (...) {
    std::free(block);
    throw;
  }
  ++handed_out;
  return block;
}

HMember* hand_out_handles(BlockKind kind, const std::vector<HMember>& handles) {
  if (handles.empty()) return nullptr;
  const size_t bytes = handles.size() * sizeof(HMember);
  const auto count = static_cast<uint32_t>(handles.size());
  void* block = hand_out(kind, bytes, kind == BlockKind::kMembers ? count : 0);
  std::memcpy(block, handles.data(), bytes);
  return static_cast<HMember*>(block);
}

char* hand_out_text(std::string_view text) {
  char* block = hand_out_records<char>(text.size() + 1);
  text.copy(block, text.size());
  return block;
}

int take_back(BlockKind kind, const void* block, uint32_t count, uint32_t code) {
  if (block == nullptr) return kStatusOk;
  Entry entry{};
  {
    Shard& shard = shard_of(block);
    std::unique_lock<std::mutex> lock(shard.mutex);
    const auto found = shard.blocks.find(block);
    if (found == shard.blocks.end()) {
      lock.unlock();
      return wrong_release(kBlockUnknown, block, "not handed out, or given back already");
    }
    entry = found->second;
    if (fits(entry, kind, count, code)) {
      shard.blocks.erase(found);
      lock.unlock();
      ++given_back;
      std::free(const_cast<void*>(block));
      return kStatusOk;
    }
  }
  char reason[160];
  std::snprintf(reason, sizeof reason,
                "given back with %s, count %u, code %u; it belongs to %s, count %u, code %u",
                function_of(kind), static_cast<unsigned>(count), static_cast<unsigned>(code),
                function_of(entry.kind), static_cast<unsigned>(entry.count),
                static_cast<unsigned>(entry.code));
  return wrong_release(kBlockWrongRelease, block, reason);
}

}  // namespace standin
