// What stands in the cells of a member, and which fields an outline has use for.
#pragma once

#include <string>
#include <vector>

#include "command/layer/details.h"
#include "command/rows/fields.h"

namespace command {

// The text of a field that a member keeps as one text, as it is kept; null for other fields.
const std::string* kept_text(const Field& field, size_t table, const Details& details);

// The text of a field; empty when there is nothing to say. `table` is the alias table's position.
// Properties are given in words whatever they are.
std::string value_of(const Field& field, size_t table, const Details& details);

// All fields that members of an outline can have besides parent and name, each alias table and
// attribute dimension one.
std::vector<Field> all_fields(const Outline& outline);

// Walks members with what is known of their places.
class PlaceWalk {
 public:
  PlaceWalk(const Outline& outline, Member top);

  explicit operator bool() const { return static_cast<bool>(at_); }
  Member member() const { return *at_; }
  size_t depth() const { return at_.depth(); }
  // Goes on; `record` is the one of the member that is left.
  void advance(const MemberInfoRecord& record);
  // True below a member of the category attribute.
  bool below_attribute() const;
  bool at_dimension() const { return path_.empty() && !outer_; }
  // How the parent is named in a table, empty for a dimension.
  const std::string& parent();

 private:
  struct Above {
    Member member;
    bool attribute;
    std::string reference;  // empty while nobody asked
  };

  const Outline& outline_;
  Subtree::Iterator at_;
  Member outer_;  // the parent of the top
  bool outer_attribute_ = false;
  std::string outer_reference_;
  std::vector<Above> path_;
};

// The records of new members: what the cells of a member need not say.
class DefaultRecords {
 public:
  DefaultRecords();
  // The one for the place that a walk is at, where the member has `record`.
  const MemberInfoRecord& at(const PlaceWalk& walk, const MemberInfoRecord& record) const;

 private:
  MemberInfoRecord records_[2][2] = {};  // of dimensions, of attributes
};

}  // namespace command
