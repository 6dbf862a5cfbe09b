// Puts rows into an outline, in whatever order they come.
#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "command/layer/naming.h"
#include "command/rows/fields.h"
#include "command/rows/report.h"
#include "command/rows/waiting_rows.h"

namespace command {

enum class LoadMode {
  kAdd,      // every row is a new member
  kUpdate,   // rows of members that are there change them
  kReplace,  // the same, and what the file lacks goes; siblings take the file's order
};

struct LoadCounts {
  uint64_t added = 0;
  uint64_t changed = 0;
  uint64_t moved = 0;
  uint64_t removed = 0;
};

class Loader {
 public:
  Loader(const Outline& outline, LoadMode mode, bool clear_empty, Report& report);

  // The fields of the rows' values; may grow between rows.
  std::vector<Field>& fields() { return fields_; }
  // Checks that the field can be loaded: makes missing alias tables. To be called for each.
  void prepare(const Field& field);

  // Takes one row: places it, or keeps it until its parent is there.
  void take(Row& row);
  // A path of level columns, each below the one before, beginning below `top`.
  void take_levels(Member top, const std::vector<std::string>& names, uint64_t line);
  // Ends the rows: what still waits is rejected, attributes are associated.
  void finish();
  // The members that the file lacks, to be removed by replacing.
  uint64_t count_lacking() const;
  void remove_lacking();

  const LoadCounts& counts() const { return counts_; }

 private:
  enum class Placed { kDone, kRejected, kBlocked };

  std::string check(const Row& row) const;
  bool resolve(const std::string& text, Member* member, std::string* problem);
  static bool only_shared(const Named& named);
  void settle(Row& row);
  Placed place(const Row& row, Member parent);
  Member find_existing(const Row& row, Member parent, std::string* problem);
  Member add(const Row& row, Member parent, bool repeat);
  void update_record(const Row& row, MemberInfoRecord* record) const;
  bool has_record_values(const Row& row) const;
  void apply_details(const Row& row, Member member, bool fresh);
  void release(const std::string& name);
  void retry_blocked();
  void place_below_shared();
  std::vector<Row> take_waiting();
  void reject_waiting();
  void associate_attributes();
  Member last_placed(Member parent);
  void set_last_placed(Member parent, Member child);
  bool is_shared(const Row& row) const;
  bool is_repeat(const Row& row) const;
  uint64_t key_of(std::string_view name) const;
  uint64_t waiting_key(const std::string& parent) const;
  bool seen(Member member) const;
  void set_seen(Member member);
  const std::string* value(const Row& row, FieldKind kind) const;

  struct PendingAttribute {
    HMember member;
    uint32_t field;
    uint32_t text;  // in attribute_texts_
    uint64_t line;
  };

  const Outline& outline_;
  LoadMode mode_;
  bool clear_empty_;
  bool case_sensitive_;
  Report& report_;
  LoadCounts counts_;
  std::vector<Field> fields_;
  std::vector<std::string> tables_;  // alias tables by field, as the API spells them
  bool repeats_ = false;             // some name has several holders
  bool shared_ = false;              // some member is shared
  bool shared_parents_ = false;      // nothing else will come: they may have children
  bool attribute_dimensions_ = false;
  WaitingRows waiting_;
  std::vector<uint32_t> released_;  // chains of rows whose parent has come
  std::vector<Row> blocked_;        // rows whose parent lies below them for now
  std::string last_parent_text_;
  Member last_parent_;
  // By handle; the engine's handles are small numbers.
  std::vector<HMember> last_placed_;
  std::vector<bool> seen_;
  std::vector<PendingAttribute> attributes_;
  std::vector<std::string> attribute_texts_;
  std::unordered_map<std::string, uint32_t> attribute_numbers_;
};

}  // namespace command
