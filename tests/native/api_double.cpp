// The double's books: calls and ordered failures, the ledger, and the shape of
// the outline.
#include "tests/native/api_double.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "tests/native/journal.h"

ApiDouble& api() {
  static ApiDouble instance;
  return instance;
}

// ---- Calls and failures ----

void ApiDouble::fail_call(int n, int status, bool onwards) {
  fail_at_ = static_cast<int>(called_.size()) + n;
  fail_status_ = status;
  fail_onwards_ = onwards;
}

void ApiDouble::fail_function(const std::string& function, int status, int n) {
  function_failures_[function] = {n, status};
}

int ApiDouble::record_call(const char* function, const Arguments& arguments) {
  called_.push_back(function);
  if (on_call) on_call(function);
  std::string line = std::string(function) + '(';
  for (size_t i = 0; i < arguments.size(); ++i) line += (i == 0 ? "" : ", ") + arguments[i].text;
  journal().add(Entry::kApi, line + ')');
  const int now = static_cast<int>(called_.size());
  if (fail_at_ != 0 && (now == fail_at_ || (fail_onwards_ && now > fail_at_))) return fail_status_;
  const auto failure = function_failures_.find(function);
  if (failure != function_failures_.end() && --failure->second.first <= 0) {
    return failure->second.second;
  }
  return kStatusOk;
}

int ApiDouble::check_member(HOutline h, HMember member) const {
  if (open_outlines.count(h) == 0) return kBadHandle;
  return exists(member) ? kStatusOk : kNoSuchMember;
}

// ---- Ledger ----

void* ApiDouble::hand_out(const char* kind, Release release, size_t size, size_t count) {
  if (++handed_out_ == withheld_ || withholds_all_) return nullptr;
  // Exactly as large as asked for, so that an address sanitizer sees reads
  // beyond the end.
  void* block = std::malloc(size == 0 ? 1 : size);
  if (block == nullptr) std::abort();
  std::memset(block, 0, size);
  blocks_[block] = {kind, release, count, size, true};
  return block;
}

char* ApiDouble::hand_out_text(const char* kind, const std::string& text) {
  auto* block = static_cast<char*>(hand_out(kind, Release::kFree, text.size() + 1));
  if (block != nullptr) std::memcpy(block, text.c_str(), text.size() + 1);
  return block;
}

int ApiDouble::take_back(const void* block, Release release, uint32_t count) {
  if (block == nullptr) return kStatusOk;
  const auto found = blocks_.find(block);
  if (found == blocks_.end()) {
    journal().fault("A block is given back that was never handed out");
    return kRefusedByApi;
  }
  Block& entry = found->second;
  // A record with a structure code may go back as a plain block too.
  const bool fits =
      entry.release == release || (release == Release::kFree && entry.release != Release::kMembers);
  const bool count_fits = release == Release::kFree || count == entry.count;
  if (!entry.outstanding || !fits || !count_fits) {
    journal().fault((!entry.outstanding ? "Given back twice: "
                     : !fits            ? "Given back with the wrong function or code: "
                                        : "Given back with the wrong count: ") +
                    entry.kind);
    return kRefusedByApi;
  }
  entry.outstanding = false;
  // Kept until the reset, filled with what no reader takes for data.
  std::memset(const_cast<void*>(block), 0xDD, entry.size);
  return kStatusOk;
}

std::vector<std::string> ApiDouble::blocks_outstanding() const {
  std::vector<std::string> result;
  for (const auto& [address, block] : blocks_) {
    if (block.outstanding) result.push_back("Not given back: " + block.kind);
  }
  return result;
}

std::string ApiDouble::name_of_block(const void* block) const {
  if (block == nullptr) return "null";
  const auto found = blocks_.find(block);
  return found == blocks_.end() ? "unknown block" : found->second.kind;
}

// ---- Shape ----

void ApiDouble::clear_outline() {
  for (const auto& [address, block] : blocks_) std::free(const_cast<void*>(address));
  blocks_.clear();
  called_.clear();
  function_failures_.clear();
  fail_at_ = 0;
  handed_out_ = 0;
  withheld_ = 0;
  withholds_all_ = false;
  on_call = nullptr;
  leaves_junk_ = false;
  handing_out_.clear();
  locks.clear();
  open_outlines = {kOutline};
  static_cast<DoubleState&>(*this) = DoubleState();
  alias_tables = {"Default"};
}

bool ApiDouble::exists(HMember handle) const {
  return handle >= kFirstMember && handle - kFirstMember < members.size() &&
         !members[handle - kFirstMember].deleted;
}

DoubleMember& ApiDouble::member(HMember handle) {
  if (!exists(handle)) {
    std::fprintf(stderr, "The API double has no member %x\n", handle);
    std::abort();
  }
  return members[handle - kFirstMember];
}

std::vector<HMember>& ApiDouble::siblings(HMember handle) {
  const HMember parent = member(handle).parent;
  return parent == 0 ? dimensions : member(parent).children;
}

HMember ApiDouble::dimension_of(HMember handle) const {
  HMember parent = members[handle - kFirstMember].parent;
  while (parent != 0) {
    handle = parent;
    parent = members[handle - kFirstMember].parent;
  }
  return handle;
}

void ApiDouble::insert(HMember handle, HMember parent, HMember previous) {
  if (parent == 0 && previous != 0) parent = member(previous).parent;
  member(handle).parent = parent;
  std::vector<HMember>& list = siblings(handle);
  const auto after = std::find(list.begin(), list.end(), previous);
  list.insert(after == list.end() ? list.begin() : after + 1, handle);
  update_levels(handle);
}

// Generation, dimension and child count of a member that has found its place,
// and the levels of those above it.
void ApiDouble::update_levels(HMember handle) {
  DoubleMember& self = member(handle);
  const HMember parent = self.parent;
  self.info.generation =
      parent == 0 ? int16_t{1} : static_cast<int16_t>(member(parent).info.generation + 1);
  const char* dimension = parent == 0 ? self.info.name : member(parent).info.dimensionName;
  std::snprintf(self.info.dimensionName, sizeof self.info.dimensionName, "%.80s", dimension);
  int level = self.info.level;
  for (HMember above = parent; above != 0; above = member(above).parent) {
    DoubleMember& ancestor = member(above);
    ancestor.info.childCount = static_cast<uint32_t>(ancestor.children.size());
    if (ancestor.info.level > level) break;
    ancestor.info.level = static_cast<int16_t>(++level);
  }
}

void ApiDouble::remove(HMember handle) {
  std::vector<HMember>& list = siblings(handle);
  list.erase(std::find(list.begin(), list.end(), handle));
  const HMember parent = member(handle).parent;
  if (parent != 0) member(parent).info.childCount = static_cast<uint32_t>(list.size());
}

HMember ApiDouble::add(const std::string& name, HMember parent) {
  members.emplace_back();
  const HMember handle = kFirstMember + static_cast<HMember>(members.size()) - 1;
  MemberInfoRecord& info = members.back().info;
  std::snprintf(info.name, sizeof info.name, "%s", name.c_str());
  // Reserved bytes are the API's and must come back as they are.
  std::memset(info.reserved530, 0xA1, sizeof info.reserved530);
  std::memset(info.reserved534, 0xA2, sizeof info.reserved534);
  std::memset(info.reserved546, 0xA3, sizeof info.reserved546);
  const std::vector<HMember>& list = parent == 0 ? dimensions : member(parent).children;
  insert(handle, parent, list.empty() ? 0 : list.back());
  return handle;
}

HMember ApiDouble::add_chain(HMember parent, int length, const std::string& prefix) {
  // Levels are left at 0: raising those of all ancestors for each member would
  // take the square.
  for (int i = 0; i < length; ++i) {
    members.emplace_back();
    const HMember handle = kFirstMember + static_cast<HMember>(members.size()) - 1;
    DoubleMember& added = members.back();
    added.parent = parent;
    std::snprintf(added.info.name, sizeof added.info.name, "%s%d", prefix.c_str(), i);
    members[parent - kFirstMember].children.push_back(handle);
    parent = handle;
  }
  return parent;
}

HMember ApiDouble::find(const std::string& name) const {
  for (size_t i = 0; i < members.size(); ++i) {
    if (!members[i].deleted && name == members[i].info.name) {
      return kFirstMember + static_cast<HMember>(i);
    }
  }
  return 0;
}

std::vector<std::string> ApiDouble::children_of(HMember handle) const {
  std::vector<std::string> names;
  for (HMember child : handle == 0 ? dimensions : members[handle - kFirstMember].children) {
    names.push_back(members[child - kFirstMember].info.name);
  }
  return names;
}

// ---- The sample outline ----

void ApiDouble::reset() {
  clear_outline();
  locks = {"App/Db/Db"};

  const HMember year = add("Year");
  const HMember quarter = add("Qtr1", year);
  const HMember january = add("Jan", quarter);
  add("Feb", quarter);
  add("Qtr2", year);
  const HMember measures = add("Measures");
  const HMember sales = add("Sales", measures);
  const HMember costs = add("Costs", measures);
  const HMember product = add("Product");
  const HMember cola = add("Cola", product);
  const HMember tea = add("Tea", product);
  const HMember pack = add("Pack");
  const HMember can = add("Can", pack);
  add("Bottle", pack);

  member(year).info.dimensionCategory = kCategoryTime;
  member(measures).info.dimensionCategory = kCategoryAccounts;
  for (HMember dimension : {year, measures, product}) member(dimension).info.storageType = 1;
  member(product).info.isAttributed = 1;
  member(product).info.hybridAnalysisEnabled = 1;
  member(product).attributes = {pack};
  member(cola).info.isAttributed = 1;
  member(cola).info.hybridFlag = 1;
  member(cola).attributes = {can};
  member(cola).udas = {"Cold", "Sweet"};
  member(cola).comment = "A long story";
  member(tea).info.shareOption = kShareShared;
  for (HMember attribute : {pack, can, find("Bottle")}) {
    MemberInfoRecord& info = member(attribute).info;
    info.consolidation = kConsolidationAttribute;
    info.shareOption = kShareAttribute;
    info.dimensionCategory = kCategoryAttribute;
    info.storageCategory = kStorageCategoryAttribute;
    info.attributeType = attribute == pack ? kAttributeTypeDimension : kAttributeTypeMember;
  }
  member(january).aliases = {{"Default", "January"}, {"Long Names", "The first month"}};
  member(year).aliases = {{"Default", "Calendar"}};
  member(sales).formula = "Costs*2;";
  MemberInfoRecord& info = member(costs).info;
  info.consolidation = 1;
  info.twoPass = 1;
  info.expense = 1;
  info.conversionType = 3;
  std::strcpy(info.currencyMember, "USD");
  info.timeBalance = 2;
  info.timeBalanceSkip = 3;
  info.storageCategory = 4;
  std::strcpy(info.comment, "What it costs");

  alias_tables = {"Default", "Long Names", "Codes"};
  this->info.outlineType = 1;
  this->info.configureFlags = kConfigureAuto | kConfigureWarnings;
  this->info.reserved1 = 0xB1;
  this->info.reserved5 = 0xB5;
  spec = {1,     2,       -3,     0xB5,    4,
          5,     {0xBA},  "True", "False", "Attribute Calculations",
          "Sum", "Count", "Avg",  "Min",   nullptr};
  generations["Year"] = {{0, "None"}, {1, "Years"}, {2, "Quarters"}};
  levels["Year"] = {{0, "Months"}, {1, "Quarter level"}};
  time_series = {{"Y-T-D", 1}, {"Q-T-D", 2}};
  time_series_aliases[{"Q-T-D", "Long Names"}] = "Quarter to date";
  global_errors = 0x80000001;
  member_errors = {{january, 1, 0x80000000}, {0, 2, 3}, {cola, 4, 0}};
  scratch_objects = {"E0", "E1"};
  process_polls = 2;
  data_loaded = 1;
  lock_byte = 200;
  cell_count = 12.9;
}
