// Everything that an outline keeps of one member, read at once.
#pragma once

#include <string>
#include <vector>

#include "command/layer/outline.h"

namespace command {

// An association of a member: "JP is [Continent: Asia]". Of a dimension: its attribute dimension,
// twice.
struct Association {
  std::string dimension;
  std::string attribute;
  bool operator==(const Association& other) const {
    return dimension == other.dimension && attribute == other.attribute;
  }
  bool operator<(const Association& other) const {
    return dimension != other.dimension ? dimension < other.dimension : attribute < other.attribute;
  }
};

struct Details {
  MemberInfoRecord record = {};
  std::string name;
  std::string currency;
  std::string comment;
  std::string extended_comment;
  std::string formula;
  std::vector<std::string> aliases;  // by alias table
  std::vector<std::string> udas;
  std::vector<Association> attributes;  // sorted
};

// Which details are worth asking for; each costs a call.
struct WantedDetails {
  bool formula = true;
  bool extended_comment = true;
  bool udas = true;
  std::vector<bool> aliases;  // by alias table
};

// Reads details; the alias tables are named as the API spells them.
class DetailsReader {
 public:
  explicit DetailsReader(const Outline& outline);
  // Their names as people read them.
  const std::vector<std::string>& tables() const { return tables_; }
  void read(Member member, Details* details) const;
  // True when two members have the same details and as many children, told without taking their
  // texts over. False when they differ, or when only read() can tell: members with attributes. The
  // alias tables of both outlines have to be the same ones in the same order.
  bool same(Member member, const DetailsReader& others, Member other) const;
  // Says what read() asks for from now on; the rest is left empty. Everything at first.
  void want(WantedDetails wanted) { wanted_ = std::move(wanted); }

 private:
  const Outline& outline_;
  std::vector<std::string> tables_;
  std::vector<std::string> inside_;
  WantedDetails wanted_;
};

}  // namespace command
