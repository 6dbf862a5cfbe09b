// Scope guards that need no virtual machine: the text-conversion context, and what the API hands
// out. Each owns exactly one thing and gives it back in its destructor; one that holds null gives
// nothing back.
//
// The guards of API memory make the calls themselves, so that one rule holds everywhere: an
// out-parameter counts only when the call answered 0. What a failed call leaves there is neither
// read nor given back. A guard may hold null after a success, too: whoever reads it asks the guard.
#pragma once

#include "api/olv.h"
#include "api/olvotl.h"
#include "bridge/plain_helpers.h"

namespace kepotl {

// The text-conversion context of a native method.
class TextContext {
 public:
  TextContext() : context_(LoInitialize()) {}
  ~TextContext() { LoUninitialize(context_); }
  TextContext(const TextContext&) = delete;
  TextContext& operator=(const TextContext&) = delete;

  operator int() const { return context_; }

 private:
  int context_;
};

// API memory that comes back where no instance is at hand goes back under instance 0.
inline constexpr INST kNoInstance = 0;

// What becomes of an out-pointer that a failed call has set. A few calls are known to hand
// something out even then; their guards say so.
enum class AfterFailure { kForget, kGiveBack };

// A handle that a call gave, with the call's status. 0 after every failure.
struct GivenHandle {
  int status;
  uint32_t handle;
};

// Calls function(arguments..., &handle).
template <typename Function, typename... Arguments>
GivenHandle ask_handle(Function function, Arguments... arguments) {
  uint32_t handle = 0;
  const int status = function(arguments..., &handle);
  return {status, status == kStatusOk ? handle : 0};
}

// The status of a change that needs a record which the API did not give: success without a record
// counts as refused, as nothing was changed.
inline int status_without_record(int status) {
  return status == kStatusOk ? kStatusRefused : status;
}

// A member's record, as the API hands it out.
class MemberRecord {
 public:
  explicit MemberRecord(HOutline outline) : outline_(outline) {}
  ~MemberRecord() { release(); }
  MemberRecord(const MemberRecord&) = delete;
  MemberRecord& operator=(const MemberRecord&) = delete;

  // Reads the record of `member`, giving back the one held. The API's status.
  int read(HMember member) {
    release();
    MemberInfoRecord* info = nullptr;
    const int status = OlvOtlGetMemberInfo(outline_, member, &info);
    if (status == kStatusOk) info_ = info;
    return status;
  }

  explicit operator bool() const { return info_ != nullptr; }
  MemberInfoRecord* get() const { return info_; }
  MemberInfoRecord* operator->() const { return info_; }
  MemberInfoRecord& operator*() const { return *info_; }

 private:
  void release() {
    if (info_ != nullptr) OlvOtlFreeStructure(outline_, 1, kStructureMemberInfo, info_);
    info_ = nullptr;
  }

  HOutline outline_;
  MemberInfoRecord* info_ = nullptr;
};

// A block that goes back with OlvFree: a text, a record or an array.
template <typename T>
class ApiBlock {
 public:
  explicit ApiBlock(INST inst, AfterFailure after_failure = AfterFailure::kForget)
      : inst_(inst), after_failure_(after_failure) {}
  ~ApiBlock() { release(); }
  ApiBlock(const ApiBlock&) = delete;
  ApiBlock& operator=(const ApiBlock&) = delete;

  // Calls function(arguments..., &block) and takes the block, giving back the one held. The call's
  // status.
  template <typename Function, typename... Arguments>
  int take(Function function, Arguments... arguments) {
    release();
    const int status = function(arguments..., &block_);
    if (status != kStatusOk) {
      if (after_failure_ == AfterFailure::kGiveBack) release();
      block_ = nullptr;
    }
    return status;
  }
  // Gives the block back now; the status of that call, 0 when there was none.
  int release() {
    if (block_ == nullptr) return kStatusOk;
    const int status = OlvFree(inst_, block_);
    block_ = nullptr;
    return status;
  }

  explicit operator bool() const { return block_ != nullptr; }
  T* get() const { return block_; }
  T* operator->() const { return block_; }
  T& operator*() const { return *block_; }

 private:
  INST inst_;
  AfterFailure after_failure_;
  T* block_ = nullptr;
};

// An array that goes back with OlvFree, and its count, for a range-for over its entries.
template <typename Entry, typename Count>
class ApiArray {
 public:
  explicit ApiArray(INST inst, AfterFailure after_failure = AfterFailure::kForget)
      : block_(inst, after_failure) {}

  // Calls function(arguments..., &count, &array), once. The call's status.
  template <typename Function, typename... Arguments>
  int take(Function function, Arguments... arguments) {
    Count count = 0;
    const int status = block_.take(function, arguments..., &count);
    count_ = block_ ? count : Count{0};
    return status;
  }
  // Gives the array back now; the status of that call, 0 when there was none.
  int release() {
    count_ = 0;
    return block_.release();
  }

  Count size() const { return count_; }
  Entry* begin() const { return block_.get(); }
  Entry* end() const { return block_.get() + count_; }

 private:
  ApiBlock<Entry> block_;
  Count count_ = 0;
};

// The handles that answered a query, with their counts. Holds one answer: ask once.
class HandleArray {
 public:
  explicit HandleArray(HOutline outline, AfterFailure after_failure = AfterFailure::kForget)
      : outline_(outline), after_failure_(after_failure) {}
  ~HandleArray() { release(); }
  HandleArray(const HandleArray&) = delete;
  HandleArray& operator=(const HandleArray&) = delete;

  // The query from a start member given by handle or by name. The call's status.
  int query(HMember start, const MemberQuery& query) {
    return accept(OlvOtlQueryMembers(outline_, start, &query, &counts_, &handles_));
  }
  int query_by_name(const char* start, const MemberQuery& query) {
    return accept(OlvOtlQueryMembersByName(outline_, start, &query, &counts_, &handles_));
  }
  // The same for at most `max_count` (0: all) of the matches, from the `first` on.
  int query_by_name(const char* start, const MemberQuery& query, uint32_t first,
                    uint32_t max_count) {
    counts_.start = first;
    counts_.maxCount = max_count;
    return query_by_name(start, query);
  }
  // The attribute members asked for.
  int query_attributes(const AttributeQuery& query) {
    return accept(OlvOtlQueryAttributes(outline_, &query, &counts_.returned, &handles_));
  }

  // Handles that were returned, and how many match in all, as the API counts them.
  uint32_t size() const { return handles_ == nullptr ? 0 : counts_.returned; }
  uint32_t total() const { return handles_ == nullptr ? 0 : counts_.totalCount; }
  HMember operator[](uint32_t index) const { return handles_[index]; }

 private:
  int accept(int status) {
    if (status != kStatusOk) {
      if (after_failure_ == AfterFailure::kGiveBack) release();
      handles_ = nullptr;
    }
    return status;
  }
  void release() {
    if (handles_ != nullptr) OlvOtlFreeMembers(outline_, counts_.returned, handles_);
    handles_ = nullptr;
  }

  HOutline outline_;
  AfterFailure after_failure_;
  MemberQueryCounts counts_ = {};
  HMember* handles_ = nullptr;
};

}  // namespace kepotl
