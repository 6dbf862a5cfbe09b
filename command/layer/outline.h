// An open outline and its members, over the C interface. All texts are standard UTF-8. What the API
// refuses is thrown as a Failure.
#pragma once

#include <cstdint>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "api/records.h"
#include "command/layer/status.h"

namespace command {

// A named generation or level of a dimension.
struct NumberedName {
  uint16_t number;
  std::string name;
};

// An enabled dynamic time series.
struct Series {
  std::string name;
  int16_t generation;
};

// A member of an open outline: a handle, to be copied freely, good while the outline is open and
// the member lives. Handle 0 is the root above the dimensions.
class Member {
 public:
  Member() = default;
  Member(HOutline outline, HMember handle) : outline_(outline), handle_(handle) {}

  HMember handle() const { return handle_; }
  explicit operator bool() const { return handle_ != 0; }
  bool operator==(const Member& other) const { return handle_ == other.handle_; }
  bool operator!=(const Member& other) const { return handle_ != other.handle_; }

  // Neighbours; without one the member is false. The first child of the root is a dimension.
  Member first_child() const;
  Member next() const;
  Member previous() const;
  Member parent() const;
  // The last child, found by walking.
  Member last_child() const;
  // The dimension that it belongs to, itself for a dimension.
  Member dimension() const;

  // The whole record, its texts as the API spells them.
  MemberInfoRecord record() const;
  void set_record(const MemberInfoRecord& record) const;
  std::string name() const;
  bool shared() const;

  // Details; empty where there is none. A null table is the default one.
  std::string formula() const;
  std::string extended_comment() const;
  std::string alias(const char* table) const;
  std::vector<std::string> udas() const;
  // True when another member, of this or another outline, has the same UDAs in the same order.
  bool has_udas_of(Member other) const;
  // Attribute members of a member, attribute dimensions of a dimension.
  std::vector<Member> attributes() const;

  // An empty text removes.
  void set_formula(std::string_view text) const;
  void set_extended_comment(std::string_view text) const;
  void set_alias(const char* table, std::string_view alias) const;
  void add_uda(std::string_view uda) const;
  void remove_uda(std::string_view uda) const;
  void associate(Member attribute) const;
  void disassociate(Member attribute) const;

  void rename(std::string_view name) const;
  // Behind `previous` (false: first) below `parent` (the root for a dimension).
  void move(Member parent, Member previous) const;
  void remove() const;
  void sort_children(bool descending) const;

 private:
  HOutline outline_ = 0;
  HMember handle_ = 0;
};

// The children of a member, for a range-based for. The next one is asked for before the body runs,
// so that the body may move or remove the member it is given.
class Children {
 public:
  explicit Children(Member first) : first_(first) {}

  class Iterator {
   public:
    explicit Iterator(Member at) : at_(at), next_(at ? at.next() : Member()) {}
    Member operator*() const { return at_; }
    Iterator& operator++() {
      *this = Iterator(next_);
      return *this;
    }
    bool operator!=(const Iterator& other) const { return at_ != other.at_; }

   private:
    Member at_;
    Member next_;
  };
  Iterator begin() const { return Iterator(first_); }
  Iterator end() const { return Iterator(Member()); }

 private:
  Member first_;
};
inline Children children(Member parent) {
  return Children(parent.first_child());
}

// A member and all below it in pre-order (of the root: all members), for a range-based for that
// changes no shape. Nothing recurses: outlines may be deeper than a stack.
class Subtree {
 public:
  explicit Subtree(Member top) : top_(top) {}

  class Iterator {
   public:
    Iterator(Member top, Member at) : top_(top), at_(at) {}
    Member operator*() const { return at_; }
    // Generations below the top, or below the root's dimensions.
    size_t depth() const { return depth_; }
    Iterator& operator++() {
      step(true);
      return *this;
    }
    // The same, sparing a call where the member's record tells that it has no children.
    void advance(const MemberInfoRecord& record) { step(record.childCount > 0); }
    // Goes on behind the member's descendants.
    void skip_children() { step(false); }
    explicit operator bool() const { return static_cast<bool>(at_); }
    bool operator!=(const Iterator& other) const { return at_ != other.at_; }

   private:
    void step(bool down);

    Member top_;
    Member at_;
    size_t depth_ = 0;
  };
  Iterator begin() const { return Iterator(top_, top_ ? top_ : top_.first_child()); }
  Iterator end() const { return Iterator(top_, Member()); }

 private:
  Member top_;
};
inline Subtree subtree(Member top) {
  return Subtree(top);
}

// Outline-wide settings; `texts` of the attribute names in the record's order, where given.
struct Settings {
  bool case_sensitive = false;
  int16_t type = 0;
  uint8_t configure_flags = 0;
  uint8_t reserved[2] = {};
};
struct AttributeNaming {
  int16_t constructor = 0;
  int16_t source = 0;
  int8_t delimiter = 0;
  int16_t date_format = 0;
  int16_t bucketing = 0;
  uint8_t reserved[3] = {};
  std::optional<std::string> texts[8];
};
// How the eight texts are called, in their order.
extern const char* const kAttributeNamingTexts[8];

// What a verification found on one member.
struct MemberFinding {
  Member member;
  uint32_t error;
  uint32_t extended;
};
struct Findings {
  uint32_t global = 0;
  std::vector<MemberFinding> members;
  bool empty() const { return global == 0 && members.empty(); }
};

// An open outline; closed with the object. Not copied.
class Outline {
 public:
  Outline(HCTX context, HOutline handle) : context_(context), handle_(handle) {}
  Outline(Outline&& other) noexcept;
  Outline& operator=(Outline&&) = delete;
  ~Outline();

  HOutline handle() const { return handle_; }
  Member root() const { return Member(handle_, 0); }
  Member member(HMember handle) const { return Member(handle_, handle); }

  // The member that has had a name longest; false when there is none.
  Member find(std::string_view name) const;
  // All members of a name, the oldest holder first.
  std::vector<Member> holders(std::string_view name) const;
  // Members of all dimensions, counted by walking.
  uint32_t count_members() const;

  // Adds a member behind `previous` (false: first) below `parent`; the root's become dimensions. A
  // repeated name is refused unless `repeat` says that it is meant.
  Member add(const MemberInfoRecord& record, Member parent, Member previous,
             bool repeat = false) const;

  Settings settings() const;
  void set_settings(const Settings& settings) const;
  AttributeNaming attribute_naming() const;
  void set_attribute_naming(const AttributeNaming& naming) const;

  // The names of the alias tables, the default table first.
  std::vector<std::string> alias_tables() const;
  bool has_alias_table(std::string_view name) const;
  void create_alias_table(std::string_view name) const;
  void delete_alias_table(std::string_view name) const;
  void clear_alias_table(std::string_view name) const;
  void rename_alias_table(std::string_view from, std::string_view to) const;
  void copy_alias_table(std::string_view from, std::string_view to, bool overwrite) const;

  // Given names of generations or levels; with `all` those without a name get a generated one.
  std::vector<NumberedName> generations(Member dimension, bool all = false) const;
  std::vector<NumberedName> levels(Member dimension, bool all = false) const;
  // An empty name removes.
  void set_generation(Member dimension, uint16_t number, std::string_view name) const;
  void set_level(Member dimension, uint16_t number, std::string_view name) const;

  std::vector<Series> series() const;
  void enable_series(std::string_view name, int16_t generation, bool enable) const;
  std::string series_alias(std::string_view name, const char* table) const;
  void set_series_alias(std::string_view name, const char* table, std::string_view alias) const;
  std::vector<std::string> udas_of_dimension(Member dimension) const;

  Findings verify() const;
  // Derives the currency outline, which is open and unsaved.
  Outline derive_currency() const;
  // Writes it to the outline of a database whose lock the login holds.
  void write(const std::string& application, const std::string& database) const;

 private:
  HCTX context_;
  HOutline handle_;
};

}  // namespace command
