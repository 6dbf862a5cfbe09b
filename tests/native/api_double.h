// A double of the client and outline API in memory, behind the same functions
// as the real one. It holds one small outline, writes every call to the
// journal, can fail any call, and keeps a ledger of everything that it hands
// out.
#pragma once

#include <algorithm>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "api/records.h"

// The handles that the double knows. All have their top bit set, so that a
// handle treated as a signed number shows.
inline constexpr INST kInst = 0xA0000001;
inline constexpr HCTX kContext = 0xC0000001;
inline constexpr HCTX kLocalContext = 0xC0000002;
inline constexpr HOutline kOutline = 0x90000001;          // open from the start
inline constexpr HOutline kOpenedOutline = 0x90000002;    // what opening gives
inline constexpr HOutline kCurrencyOutline = 0x90000003;  // what currency generation gives
inline constexpr HMember kFirstMember = 0x80000001;       // handles count up from here

// Statuses of the double's own.
inline constexpr int kBadHandle = 9001;
inline constexpr int kNoSuchMember = 9002;
inline constexpr int kNoSuchTable = 9003;
inline constexpr int kNoSuchObject = 9004;
inline constexpr int kLocked = 9005;
inline constexpr int kRefusedByApi = 9006;

// One member, with everything that hangs on it.
struct DoubleMember {
  MemberInfoRecord info = {};  // structure fields are kept true
  HMember parent = 0;
  std::vector<HMember> children;
  std::map<std::string, std::string> aliases;  // by table
  std::vector<std::string> udas;
  std::optional<std::string> formula;
  std::optional<std::string> comment;
  std::vector<HMember> attributes;  // associated members or dimensions
  bool deleted = false;
};

// What the double gives back when it is asked, free for a test to change.
struct DoubleState {
  std::vector<DoubleMember> members;  // by handle - kFirstMember
  std::vector<HMember> dimensions;
  std::vector<std::string> alias_tables;
  OutlineInfoRecord info = {};
  AttributeSpecRecord spec = {};  // texts are literals or point into spec_texts
  std::deque<std::string> spec_texts;
  std::map<std::string, std::vector<GenLevelNameEntry>> generations;  // by dimension; plain names
  std::map<std::string, std::vector<GenLevelNameEntry>> levels;
  std::vector<DtsEntry> time_series;
  std::map<std::pair<std::string, std::string>, std::string> time_series_aliases;
  uint32_t global_errors = 0;
  std::vector<MemberErrorEntry> member_errors;
  std::set<std::string> scratch_objects;  // of the local context
  int process_polls = 0;                  // polls that still find the process going on
  uint16_t data_loaded = 0;
  uint8_t lock_byte = 0;
  double cell_count = 0;
  bool refuse_rename = false;
};

// An argument of a call as it reads in the journal: handles by what they name, texts in quotes.
struct Argument {
  Argument(std::string text) : text(std::move(text)) {}
  Argument(const char* needed);  // a null one is a fault
  Argument(uint32_t handle_or_number);
  Argument(int number) : text(std::to_string(number)) {}

  std::string text;
};
using Arguments = std::vector<Argument>;

class ApiDouble : public DoubleState {
 public:
  // Back to the sample outline, with an empty ledger and no failures ordered.
  void reset();
  // Back to an outline without members.
  void clear_outline();

  // ---- Failures ----

  // The n-th call from now (from 1) answers `status`, and with `onwards` every
  // one after it.
  void fail_call(int n, int status, bool onwards = false);
  // Calls of one function, from the n-th on from now, answer `status`.
  void fail_function(const std::string& function, int status, int n = 1);
  // Failing calls leave junk in all their out-parameters: an address that was never handed out, and
  // 3 for counts and handles. Those of the functions in `handing_out` leave a block that is to be
  // given back when their failure was ordered, and else nothing.
  void leave_junk(std::set<std::string> handing_out = {}) {
    leaves_junk_ = true;
    handing_out_ = std::move(handing_out);
  }
  // The n-th block from now is withheld: its call answers success, its count and a null pointer.
  void withhold_block(int n) { withheld_ = handed_out_ + n; }
  // All blocks are withheld, and the handles of found and added members are 0.
  void withhold_all() { withholds_all_ = true; }
  // Blocks handed out or withheld since the reset.
  int handed_out() const { return handed_out_; }
  // Runs at each call from now on, before it does anything.
  std::function<void(const std::string& function)> on_call;
  // Functions called since the reset, in order.
  const std::vector<std::string>& called() const { return called_; }

  // ---- Ledger ----

  // What is outstanding, as text lines: blocks, and locks and outlines.
  std::vector<std::string> blocks_outstanding() const;
  std::set<std::string> locks;
  std::set<HOutline> open_outlines;

  // ---- The outline ----

  // Adds a member below `parent` (0: a dimension) with plain properties and
  // gives its handle.
  HMember add(const std::string& name, HMember parent = 0);
  // Adds `length` members, each below the one before, named `prefix` and a
  // number.
  HMember add_chain(HMember parent, int length, const std::string& prefix);
  // Handle of a name; 0 when there is none.
  HMember find(const std::string& name) const;
  // The member; ends the test program when the handle is none.
  DoubleMember& member(HMember handle);
  DoubleMember& member(const std::string& name) { return member(find(name)); }
  bool exists(HMember handle) const;
  // Names of the children of a member (0: of the dimensions), in order.
  std::vector<std::string> children_of(HMember handle) const;

  // ---- For the API functions ----

  // Writes one call to the journal. The status that is ordered for it, else 0. Sets the
  // out-parameters to what a failure leaves; a success overwrites them.
  template <typename... Outs>
  int call(const char* function, const Arguments& arguments, Outs*... outs) {
    const bool hands_out = handing_out_.count(function) != 0;
    if (leaves_junk_ && !hands_out) (set_junk(outs), ...);
    const int status = record_call(function, arguments);
    if (hands_out && status != kStatusOk) (leave_block(outs), ...);
    return status;
  }
  // The same for a call on one member: handles come first, and unknown ones
  // have their statuses.
  template <typename... Outs>
  int call_on(const char* function, HOutline h, HMember member, Arguments rest, Outs*... outs) {
    rest.insert(rest.begin(), {h, member});
    const int status = call(function, rest, outs...);
    return status != kStatusOk ? status : check_member(h, member);
  }
  int call_on(const char* function, HOutline h, HMember member) {
    return call_on(function, h, member, {});
  }
  // Hands out a block and notes how it is to be given back; null when it is withheld.
  enum class Release { kFree, kMembers, kMemberRecord, kSpec };
  void* hand_out(const char* kind, Release release, size_t size, size_t count = 1);
  // Entries one behind the other, or one record.
  template <typename Entry>
  Entry* hand_out(const char* kind, const std::vector<Entry>& entries,
                  Release release = Release::kFree) {
    const size_t size = entries.size() * sizeof(Entry);
    auto* block = static_cast<Entry*>(hand_out(kind, release, size, entries.size()));
    if (block != nullptr) std::copy(entries.begin(), entries.end(), block);
    return block;
  }
  // A found or added member's handle.
  HMember give(HMember member) const { return withholds_all_ ? 0 : member; }
  char* hand_out_text(const char* kind, const std::string& text);
  // Takes a block back; a fault when that is not the way.
  int take_back(const void* block, Release release, uint32_t count);

  std::string name_of(HMember handle) const;     // for the journal
  std::string name_of_block(const void*) const;  // its kind, for the journal
  void remove(HMember handle);
  void insert(HMember handle, HMember parent, HMember previous);
  std::vector<HMember>& siblings(HMember handle);
  HMember dimension_of(HMember handle) const;

 private:
  struct Block {
    std::string kind;
    Release release;
    size_t count;
    size_t size;
    bool outstanding;
  };

  int record_call(const char* function, const Arguments& arguments);
  int check_member(HOutline h, HMember member) const;

  // What a failing call leaves. Nothing is mapped at the address.
  static constexpr uintptr_t kJunkAddress = 0x40;
  static constexpr uint8_t kJunkCount = 3;
  template <typename Entry>
  static void set_junk(Entry** block) {
    *block = reinterpret_cast<Entry*>(kJunkAddress);  // NOLINT(performance-no-int-to-ptr)
  }
  template <typename Number>
  static void set_junk(Number* number) {
    *number = kJunkCount;
  }
  static void set_junk(ProcessStateRecord* state) { state->state = kJunkCount; }
  static void set_junk(MemberQueryCounts* counts) {
    counts->totalCount = counts->returned = kJunkCount;
  }
  template <typename Entry>
  void leave_block(Entry** block) {
    const bool members = std::is_same_v<Entry, HMember>;
    *block = static_cast<Entry*>(hand_out("what a failed call left",
                                          members ? Release::kMembers : Release::kSpec, 1024,
                                          members ? kJunkCount : 1));
  }
  void leave_block(MemberQueryCounts* counts) { set_junk(counts); }
  template <typename Number>
  void leave_block(Number* number) {
    set_junk(number);
  }

  void update_levels(HMember handle);

  std::map<const void*, Block> blocks_;  // given back ones too, until the reset
  std::vector<std::string> called_;
  int fail_at_ = 0;  // 0: never
  int fail_status_ = 0;
  bool fail_onwards_ = false;
  int handed_out_ = 0;
  int withheld_ = 0;  // 0: none
  bool withholds_all_ = false;
  bool leaves_junk_ = false;
  std::set<std::string> handing_out_;
  std::map<std::string, std::pair<int, int>> function_failures_;  // calls to go, status
};

// The one double of the process.
ApiDouble& api();

// ---- Texts for the journal ----

// A text that the API needs; a null one is a fault.
std::string needed(const char* text);
// Name of one of the handles above.
std::string handle_name(uint32_t handle);
// The fields of a record that differ from `baseline`, as {field=value ...}.
std::string describe(const MemberInfoRecord& record, const MemberInfoRecord& baseline = {});
std::string describe(const OutlineInfoRecord& record, const OutlineInfoRecord& baseline);
std::string describe(const ObjectDefinitionRecord* object);
std::string describe(const MemberQuery* query);
std::string describe(const MemberQueryCounts* counts);
std::string describe(const AttributeQuery* query);
std::string describe(const AttributeSpecRecord& record, const AttributeSpecRecord& baseline);
