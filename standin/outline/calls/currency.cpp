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
      const std::string_view category = base_.text(id, TextKind::kCurrencyMember);
      if (category.empty() || base_.member(id).dimension == country) continue;
      if (seen.emplace(category).second) categories.emplace_back(category);
    }
    return categories;
  }

  void copy_settings() {
    derived_.set_case_sensitive(base_.case_sensitive());
    derived_.outline_type = kOutlineTypeCurrency;
    derived_.configure_flags = base_.configure_flags;
    derived_.attribute_settings = base_.attribute_settings;
    for (size_t i = 0; i < base_.alias_tables().size(); ++i) {
      if (i > 0) derived_.add_table(base_.alias_tables()[i].name);
      derived_.series_aliases(i) = base_.series_aliases(i);
    }
    derived_.rename_table(0, base_.alias_tables().front().name);
  }

  // Copies a dimension with its members, their texts and aliases. Formulas stay behind: they may
  // name members of dimensions that are not copied.
  void copy_dimension(MemberId dimension) {
    std::unordered_map<MemberId, MemberId> copies{{kRoot, kRoot}};
    for (const MemberId id : base_.subtree(dimension)) {
      const MemberId copy = derived_.append(copies.at(base_.member(id).parent), base_.name(id));
      copies.emplace(id, copy);
      copy_details(id, copy);
    }
    const auto names = base_.dimension_names.find(dimension);
    if (names != base_.dimension_names.end()) {
      derived_.dimension_names[copies.at(dimension)] = names->second;
    }
  }

  void copy_details(MemberId id, MemberId copy) {
    derived_.set_properties(copy, base_.properties(id));
    for (const TextKind kind :
         {TextKind::kComment, TextKind::kExtendedComment, TextKind::kCurrencyMember}) {
      derived_.set_text(copy, kind, base_.text(id, kind));
    }
    for (const std::string_view uda : base_.udas(id)) derived_.add_uda(copy, uda);
    for (size_t i = 0; i < base_.alias_tables().size(); ++i) {
      const std::string_view alias = base_.alias(i, id);
      if (!alias.empty()) derived_.set_alias(i, copy, alias);
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
    MemberProperties properties;
    properties.storage_type = kStorageTypeRegular;
    derived_.set_properties(id, properties);
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
  return with_outline(h, [&](const OpenOutline& base) -> int {
    *currency = 0;
    auto derived = std::make_unique<OpenOutline>();
    derived->context = base.context;
    const int status = CurrencyDerivation(base.outline, derived->outline).run();
    if (status != kStatusOk) return status;
    return register_outline(std::move(derived), currency);
  });
}
