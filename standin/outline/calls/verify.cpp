// Verification of a whole outline, in time linear in its members and aliases. The bits stand in
// verify_bits.h.
#include <algorithm>
#include <limits>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "api/olvotl.h"
#include "standin/client.h"
#include "standin/outline/calls/open_outlines.h"
#include "standin/outline/model/codes.h"
#include "standin/outline/model/sort_by_hash.h"
#include "standin/verify_bits.h"

namespace standin {
namespace {

class Verifier {
 public:
  explicit Verifier(const Outline& outline) : outline_(outline) {}

  void run() {
    check_dimensions();
    for (const MemberId id : outline_.subtree(kRoot)) {
      check_member(id);
      check_holders_of_name(id);
    }
    for (size_t i = 0; i < outline_.alias_tables().size(); ++i) check_aliases(i);
    check_alias_table_names();
  }

  uint32_t global() const { return global_; }

  // One entry for each member in error, in the order of the outline; null when there is none.
  int hand_out_errors(uint32_t* count, MemberErrorEntry** errors) const {
    *count = 0;
    *errors = nullptr;
    if (found_.empty()) return kStatusOk;
    auto* list = hand_out_records<MemberErrorEntry>(found_.size());
    for (const MemberId id : outline_.subtree(kRoot)) {
      const auto entry = found_.find(id);
      if (entry != found_.end())
        list[(*count)++] = {id, entry->second.error, entry->second.extended};
    }
    *errors = list;
    return kStatusOk;
  }

 private:
  struct Bits {
    uint32_t error = 0;
    uint32_t extended = 0;
  };

  bool shared(MemberId id) const { return outline_.properties(id).share_option == kShareShared; }
  void error(MemberId id, uint32_t bits) {
    if (bits != 0) found_[id].error |= bits;
  }
  void extended(MemberId id, uint32_t bits) { found_[id].extended |= bits; }

  void check_dimensions() {
    size_t base_dimensions = 0;
    MemberId time = kNoMember;
    MemberId accounts = kNoMember;
    MemberId country = kNoMember;
    const auto only_one = [this](MemberId* holder, MemberId id, uint32_t global, uint32_t own) {
      if (*holder == kNoMember) {
        *holder = id;
        return;
      }
      global_ |= global;
      error(id, own);
    };
    for (const MemberId id : outline_.children(kRoot)) {
      const int16_t category = outline_.properties(id).dimension_category;
      if (category != kCategoryAttribute) ++base_dimensions;
      if (category == kCategoryTime) only_one(&time, id, kGlobalTwoTime, kErrorSecondTime);
      if (category == kCategoryAccounts) {
        only_one(&accounts, id, kGlobalTwoAccounts, kErrorSecondAccounts);
      }
      if (category == kCategoryCountry) {
        only_one(&country, id, kGlobalTwoCountry, kErrorSecondCountry);
      }
      if (category == kCategoryAttribute) check_attribute_dimension(id);
      check_generation_and_level_names(id);
    }
    if (base_dimensions == 0) global_ |= kGlobalNoDimension;
    if (time != kNoMember) check_series(time);
  }

  void check_attribute_dimension(MemberId id) {
    if (!outline_.has_carriers(id)) error(id, kErrorAttributeUnused);
  }

  void check_series(MemberId time) {
    for (const SeriesEntry& entry : outline_.series) {
      if (static_cast<uint32_t>(entry.generation) > outline_.generation_count(time)) {
        extended(time, kExtendedSeriesGeneration);
      }
    }
  }

  void check_generation_and_level_names(MemberId dimension) {
    const auto found = outline_.dimension_names.find(dimension);
    if (found == outline_.dimension_names.end()) return;
    std::unordered_set<std::string> seen;
    for (const auto* names : {&found->second.generations, &found->second.levels}) {
      for (const auto& [number, name] : *names) {
        if (!seen.insert(comparable(name)).second || outline_.find(name) != kNoMember) {
          extended(dimension, kExtendedGenLevelName);
        }
      }
    }
  }

  void check_member(MemberId id) {
    const Member& member = outline_.member(id);
    uint32_t bits = name_error_bits(outline_.name(id));
    if (shared(id) && member.child_count != 0) bits |= kErrorSharedWithChildren;
    if (outline_.properties(id).share_option == kShareLabelOnly && member.child_count == 0) {
      bits |= kErrorLabelOnlyLevel0;
    }
    if (outline_.properties(member.dimension).dimension_category == kCategoryAttribute &&
        !outline_.text(id, TextKind::kFormula).empty()) {
      bits |= kErrorFormulaOnAttribute;
    }
    error(id, bits);
    if (member.generation > static_cast<uint32_t>(std::numeric_limits<int16_t>::max())) {
      extended(id, kExtendedTooDeep);
    }
  }

  // Checks all members of one name when `id` is the one that has had it longest.
  void check_holders_of_name(MemberId id) {
    if (outline_.next_of_same_name(id) == kNoMember && !shared(id)) return;
    if (outline_.find(outline_.name(id)) != id) return;
    std::unordered_set<MemberId> parents;
    std::unordered_set<MemberId> dimensions_with_base;
    bool has_base = false;
    for (MemberId holder = id; holder != kNoMember; holder = outline_.next_of_same_name(holder)) {
      const bool first_below_parent = parents.insert(outline_.member(holder).parent).second;
      if (!first_below_parent) error(holder, kErrorNameSibling);
      if (shared(holder)) continue;
      if (has_base && first_below_parent) error(holder, kErrorNameElsewhere);
      has_base = true;
      dimensions_with_base.insert(outline_.member(holder).dimension);
    }
    for (MemberId holder = id; holder != kNoMember; holder = outline_.next_of_same_name(holder)) {
      if (shared(holder) && dimensions_with_base.count(outline_.member(holder).dimension) == 0) {
        error(holder, kErrorSharedWithoutBase);
      }
    }
  }

  struct Alias {
    uint32_t hash;
    MemberId holder;
  };

  // Goes through the aliases by their hashes: so equal ones stand together, and names are looked up
  // in the order in which the index keeps them.
  void check_aliases(size_t table) {
    std::vector<Alias> aliases;
    aliases.reserve(outline_.alias_count(table));
    outline_.visit_aliases(table, [&](MemberId id, std::string_view alias) {
      if (kForbiddenFirst.find(alias.front()) != std::string_view::npos) {
        extended(id, kExtendedAliasFirst);
      }
      aliases.push_back({hash_text(alias, outline_.case_sensitive()), id});
    });
    sort_by_hash(aliases);
    for (auto begin = aliases.cbegin(); begin != aliases.cend();) {
      auto end = begin + 1;
      while (end != aliases.cend() && end->hash == begin->hash) ++end;
      if (end - begin > 1) check_aliases_of_one_hash(table, begin, end);
      for (; begin != end; ++begin) check_alias_as_name(table, *begin);
    }
  }

  void check_alias_as_name(size_t table, const Alias& alias) {
    if (!outline_.has_name_hash(alias.hash)) return;
    const std::string_view text = outline_.alias(table, alias.holder);
    if (outline_.find(text, alias.hash) != kNoMember &&
        !outline_.same_text(outline_.name(alias.holder), text)) {
      extended(alias.holder, kExtendedAliasIsName);
    }
  }

  void check_aliases_of_one_hash(size_t table, std::vector<Alias>::const_iterator begin,
                                 std::vector<Alias>::const_iterator end) {
    std::unordered_map<std::string, MemberId> holders;
    for (auto alias = begin; alias != end; ++alias) {
      if (shared(alias->holder)) continue;
      const auto [holder, added] =
          holders.emplace(comparable(outline_.alias(table, alias->holder)), alias->holder);
      if (added) continue;
      extended(holder->second, kExtendedAliasTwice);
      extended(alias->holder, kExtendedAliasTwice);
    }
  }

  void check_alias_table_names() {
    std::unordered_set<std::string> seen;
    for (const AliasTable& table : outline_.alias_tables()) {
      if (!seen.insert(comparable(table.name)).second) global_ |= kGlobalAliasTables;
    }
  }

  // A text that equals another one when the outline takes them for the same.
  std::string comparable(std::string_view text) const {
    return folded(text, outline_.case_sensitive());
  }

  const Outline& outline_;
  uint32_t global_ = 0;
  std::unordered_map<MemberId, Bits> found_;
};

}  // namespace
}  // namespace standin

using namespace standin;

extern "C" int OlvOtlVerifyOutline(HOutline h, uint32_t* global, uint32_t* count,
                                   MemberErrorEntry** errors) {
  if (global == nullptr || count == nullptr || errors == nullptr) return kBadArgument;
  return read_outline(h, [&](const Outline& outline) -> int {
    Verifier verifier(outline);
    verifier.run();
    *global = verifier.global();
    return verifier.hand_out_errors(count, errors);
  });
}
