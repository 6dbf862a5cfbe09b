// Makes temporary stores and fills outlines through the API.
#include "bench/store.h"

#include <stdlib.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <stdexcept>

#include "standin/session.h"
#include "standin/status.h"

namespace bench {
namespace {

constexpr const char* kApplication = "Bench";
constexpr const char* kDatabase = "Outline";

void require_ok(int status, const char* what) {
  if (status == kStatusOk) return;
  throw std::runtime_error(std::string(what) + ": " + OlvStandinStatusText(status));
}

MemberInfoRecord blank(const std::string& name) {
  MemberInfoRecord record = {};
  std::memcpy(record.name, name.data(), std::min(name.size(), sizeof record.name - 1));
  return record;
}

constexpr size_t kSizes = 10;

std::array<HMember, kSizes> add_sizes(HOutline h, const OpenOutline& outline, HMember base) {
  const HMember dimension = outline.add_dimension("Size", kCategoryAttribute);
  require_ok(OlvOtlAssociateAttributeDimension(h, base, dimension), "associate a dimension");
  std::array<HMember, kSizes> sizes{};
  for (uint32_t i = 0; i < kSizes; ++i) sizes[i] = outline.add_member(dimension, "Size", i);
  return sizes;
}

void add_texts(HOutline h, HMember member, uint32_t number, const Details& details) {
  if (details.aliases) {
    const std::string alias = member_name("Article of the catalogue", number);
    require_ok(OlvOtlSetMemberAlias(h, member, nullptr, alias.c_str()), "set an alias");
    if (number % 2 == 0) {
      const std::string other = member_name("The same article in many more words", number);
      require_ok(OlvOtlSetMemberAlias(h, member, kLongTable, other.c_str()), "set an alias");
    }
  }
  if (details.formulas && number % 10 == 0) {
    require_ok(OlvOtlSetMemberFormula(
                   h, member, "IF (@ISLEV(\"Time\", 0)) \"Units\" * \"Price\" - \"Rebate\"; ENDIF"),
               "set a formula");
  }
  if (details.udas && number % 5 == 0) {
    require_ok(OlvOtlSetUserAttribute(h, member, "Seasonal"), "set a UDA");
    require_ok(OlvOtlSetUserAttribute(h, member, "Imported"), "set a UDA");
  }
}

// Adds groups of leaves below `top` and calls added(member, number) for each member.
template <typename Added>
void grow_bushes(const OpenOutline& outline, HMember top, int64_t count, Added added) {
  HMember group = 0;
  for (uint32_t number = 0; number < count; ++number) {
    const bool opens_group = number % kGroupSize == 0;
    const bool nested = number / kGroupSize % 10 == 9;
    const HMember parent = !opens_group || nested ? group : top;
    const HMember member = outline.add_member(parent, opens_group ? "Group" : "Product", number);
    if (opens_group) group = member;
    added(member, number);
  }
}

}  // namespace

std::string member_name(const char* prefix, uint32_t number) {
  char name[96];
  std::snprintf(name, sizeof name, "%s %07u", prefix, static_cast<unsigned>(number));
  return name;
}

TempFolder::TempFolder() : path_(std::filesystem::temp_directory_path() / "kepotl-bench-XXXXXX") {
  if (mkdtemp(path_.data()) == nullptr) {
    throw std::runtime_error("cannot make a folder like " + path_);
  }
}

TempFolder::~TempFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

Store::Store(const std::string& folder) {
  require_ok(OlvStandinInitialize(folder.c_str(), &instance_), "use a store");
  require_ok(OlvStandinLogin(instance_, "bench", &context_), "log in");
  const int created = OlvStandinCreateDatabase(context_, kApplication, kDatabase);
  if (created != standin::kDatabaseExists) require_ok(created, "create a database");
}

Store::~Store() {
  OlvStandinTerminate(instance_);
}

ObjectDefinitionRecord Store::object(const char* name) const {
  return {context_, kObjectTypeOutline, kApplication, kDatabase, name};
}

std::string Store::file(const std::string& folder, const char* name) {
  return folder + "/" + kApplication + "/" + kDatabase + "/" + name + ".otl";
}

OpenOutline::OpenOutline(const Store& store, const char* object) {
  const ObjectDefinitionRecord record = store.object(object);
  require_ok(OlvOtlOpenOutline(store.context(), &record, 1, 1, &handle_), "open an outline");
}

void OpenOutline::write(const Store& store, const char* object) const {
  const ObjectDefinitionRecord record = store.object(object);
  require_ok(OlvOtlWriteOutline(handle_, &record), "write an outline");
}

HMember OpenOutline::add_dimension(const std::string& name, int16_t category) const {
  MemberInfoRecord record = blank(name);
  record.dimensionCategory = category;
  HMember added = 0;
  require_ok(OlvOtlAddDimension(handle_, &record, 0, 0, &added), "add a dimension");
  return added;
}

HMember OpenOutline::add_member(HMember parent, const char* prefix, uint32_t number) const {
  MemberInfoRecord record = blank(member_name(prefix, number));
  record.consolidation = static_cast<int16_t>(number % 4);
  HMember added = 0;
  require_ok(OlvOtlAddMemberEx(handle_, &record, parent, 0, &added, kMemberOption), "add a member");
  return added;
}

BushyOutline fill_bushy(const OpenOutline& outline, int64_t count, const Details& details) {
  const HOutline h = outline.handle();
  BushyOutline filled;
  filled.dimension = outline.add_dimension("Product");
  filled.members.reserve(static_cast<size_t>(count));
  if (details.aliases) require_ok(OlvOtlCreateAliasTable(h, kLongTable), "create an alias table");
  std::array<HMember, kSizes> sizes{};
  if (details.attributes) sizes = add_sizes(h, outline, filled.dimension);
  grow_bushes(outline, filled.dimension, count, [&](HMember member, uint32_t number) {
    add_texts(h, member, number, details);
    if (details.attributes) {
      require_ok(OlvOtlAssociateAttributeMember(h, member, sizes[number % kSizes]),
                 "associate a member");
    }
    filled.members.push_back(member);
  });
  return filled;
}

void add_bushes(const OpenOutline& outline, HMember top, int64_t count, const Details& details) {
  grow_bushes(outline, top, count, [&](HMember member, uint32_t number) {
    add_texts(outline.handle(), member, number, details);
  });
}

}  // namespace bench
