// A store of the stand-in in a temporary folder, and outlines of any size in it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "api/olvotl.h"

namespace bench {

// "Product 0000017".
std::string member_name(const char* prefix, uint32_t number);

// A new temporary folder, removed with everything in it at the end.
class TempFolder {
 public:
  TempFolder();
  ~TempFolder();
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  const std::string& path() const { return path_; }

 private:
  std::string path_;
};

// A login to the store in a folder, which gets the one database if it has none yet. Failures throw
// std::runtime_error.
class Store {
 public:
  explicit Store(const std::string& folder);
  ~Store();
  Store(const Store&) = delete;
  Store& operator=(const Store&) = delete;

  INST instance() const { return instance_; }
  HCTX context() const { return context_; }

  // The outline object of a name in the database, and its file in the store in `folder`.
  ObjectDefinitionRecord object(const char* name) const;
  static std::string file(const std::string& folder, const char* name);

 private:
  INST instance_ = 0;
  HCTX context_ = 0;
};

// An open outline of a store, closed with the object.
class OpenOutline {
 public:
  // Opens an object for edit; one that was never written is empty. Its lock ends with the store.
  OpenOutline(const Store& store, const char* object);
  ~OpenOutline() { OlvOtlCloseOutline(handle_); }
  OpenOutline(const OpenOutline&) = delete;
  OpenOutline& operator=(const OpenOutline&) = delete;

  HOutline handle() const { return handle_; }
  void write(const Store& store, const char* object) const;

  // Adds a dimension as the first one, or a member as the first child of `parent`. `number` makes
  // the name.
  HMember add_dimension(const std::string& name, int16_t category = kCategoryNone) const;
  HMember add_member(HMember parent, const char* prefix, uint32_t number) const;

 private:
  HOutline handle_ = 0;
};

// What the members of a bushy outline carry besides their names.
struct Details {
  bool aliases = false;     // in the default table, and every other one in the table "Long"
  bool formulas = false;    // every tenth
  bool udas = false;        // every fifth
  bool attributes = false;  // all, members of the attribute dimension "Size"
};

inline constexpr uint32_t kGroupSize = 100;  // a group and its leaves
inline constexpr const char* kLongTable = "Long";

// A dimension "Product" with groups of leaves below it; every tenth group lies below the group
// before it, so that the tree has some depth.
struct BushyOutline {
  HMember dimension = 0;
  std::vector<HMember> members;  // without the dimension
};

// Fills an empty outline with `count` members below one dimension.
BushyOutline fill_bushy(const OpenOutline& outline, int64_t count, const Details& details);

// Adds `count` such members below a member, without aliases and attributes.
void add_bushes(const OpenOutline& outline, HMember top, int64_t count, const Details& details);

}  // namespace bench
