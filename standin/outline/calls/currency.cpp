// Deriving the currency outline of a main outline: its time dimension, the currency categories
// that its members name, and its countries.
#include <memory>
#include <unordered_set>
#include <utility>

#include "api/olvotl.h"
#include "standin/outline/calls/open_outlines.h"
#include "standin/outline/model/codes.h"

namespace standin {
namespace {

constexpr const char* kCategoryDimension = "Currency Category";
constexpr const char* kTypeDimension = "Currency Type";

class CurrencyDerivation {
 public:
  CurrencyDerivation(const Outline& base, Outline& derived) : base_(base), derived_(derived) {}

  // kNoSuchDimension when the base outline gives nothing to derive from.
  int run() {
    const MemberId time = base_.first_dimension_of(kCategoryTime);
    const MemberId country = base_.first_dimension_of(kCategoryCountry);
    const std::vector<std::string> categories = currency_categories(country);
    if (time == kNoMember && country == kNoMember && categories.empty()) return kNoSuchDimension;

    copy_settings();
    if (time != kNoMember) copy_dimension(time);
    if (country != kNoMember) copy_dimension(country);
    if (time != kNoMember) derived_.series = base_.series;
    const MemberId dimension = add_dimension(kCategoryDimension);
    for (const std::string& category : categories) {
      if (derived_.find(category) == kNoMember) add_member(dimension, category);
    }
    // Types of exchange rates are the administrator's to add.
    add_dimension(kTypeDimension);
    return kStatusOk;
  }

 private:
  // The distinct currency categories in order of appearance. Those of the country dimension are
  // currencies, not categories.
  std::vector<std::string> currency_categories(MemberId country) const {
    std::vector<std::string> categories;
    std::unordered_set<std::string> seen;
    for (const MemberId id : base_.subtree(kRoot)) {
      const Member& member = base_.member(id);
      if (!member.extra || member.extra->currency_member.empty()) continue;
      if (member.dimension == country) continue;
      const std::string& category = member.extra->currency_member;
      if (seen.insert(category).second) categories.push_back(category);
    }
    return categories;
  }

  void copy_settings() {
    derived_.set_case_sensitive(base_.case_sensitive());
    derived_.outline_type = kOutlineTypeCurrency;
    derived_.configure_flags = base_.configure_flags;
    derived_.attribute_settings = base_.attribute_settings;
    derived_.alias_tables.resize(base_.alias_tables.size());
    for (size_t i = 0; i < base_.alias_tables.size(); ++i) {
      derived_.alias_tables[i].name = base_.alias_tables[i].name;
      derived_.alias_tables[i].series_aliases = base_.alias_tables[i].series_aliases;
    }
  }

  // Copies a dimension with its members, their texts and aliases. Formulas stay behind: they may
  // name members of dimensions that are not copied.
  void copy_dimension(MemberId dimension) {
    std::unordered_map<MemberId, MemberId> copies{{kRoot, kRoot}};
    for (const MemberId id : base_.subtree(dimension)) {
      const Member& source = base_.member(id);
      const MemberId copy = derived_.append(copies.at(source.parent), source.name);
      copies.emplace(id, copy);
      derived_.member(copy).properties = source.properties;
      if (!source.extra) continue;
      MemberExtras& extra = derived_.member(copy).extras();
      extra.comment = source.extra->comment;
      extra.currency_member = source.extra->currency_member;
      extra.extended_comment = source.extra->extended_comment;
      extra.udas = source.extra->udas;
    }
    for (size_t i = 0; i < base_.alias_tables.size(); ++i) {
      copy_aliases(base_.alias_tables[i], derived_.alias_tables[i], copies);
    }
    const auto names = base_.dimension_names.find(dimension);
    if (names != base_.dimension_names.end()) {
      derived_.dimension_names[copies.at(dimension)] = names->second;
    }
  }

  static void copy_aliases(const AliasTable& from, AliasTable& to,
                           const std::unordered_map<MemberId, MemberId>& copies) {
    for (const auto& [id, copy] : copies) {
      const auto alias = from.aliases.find(id);
      if (alias != from.aliases.end()) to.aliases.emplace(copy, alias->second);
    }
  }

  // A new last dimension, with a number behind its name when a copied member has that name.
  MemberId add_dimension(const std::string& name) {
    std::string free = name;
    for (int i = 2; derived_.find(free) != kNoMember; ++i) free = name + " " + std::to_string(i);
    return add_member(kRoot, free);
  }

  MemberId add_member(MemberId parent, const std::string& name) {
    const MemberId id = derived_.append(parent, name);
    derived_.member(id).properties.storage_type = kStorageTypeRegular;
    return id;
  }

  const Outline& base_;
  Outline& derived_;
};

}  // namespace
}  // namespace standin

using namespace standin;

extern "C" int OlvOtlGenerateCurrencyOutline(HOutline h, HOutline* currency) {
  if (currency == nullptr) return kBadArgument;
  return read_outline(h, [&](const Outline& base) -> int {
    *currency = 0;
    auto derived = std::make_shared<OpenOutline>();
    const int status = CurrencyDerivation(base, derived->outline).run();
    if (status != kStatusOk) return status;
    *currency = register_outline(std::move(derived));
    return kStatusOk;
  });
}
