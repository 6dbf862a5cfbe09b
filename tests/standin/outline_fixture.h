// An empty outline opened for edit in the active database of a store of its own, and short ways to
// work on it through the outline API. At the end everything the API handed out must have come back.
#pragma once

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "api/olv.h"
#include "api/olvotl.h"
#include "standin/session.h"
#include "standin/status.h"
#include "tests/standin/outline_dump.h"
#include "tests/standin/test_store.h"

namespace standin_test {

using Names = std::vector<std::string>;
using Handles = std::vector<HMember>;

// An answer of a query: handles, and the counts that came with them.
struct Answer {
  int status = 0;
  Handles members;
  uint32_t total = 0;
};

class OutlineTest : public testing::Test {
 protected:
  void SetUp() override {
    before_ = ledger();
    session_ = std::make_unique<Session>(store_.address());
    context_ = session_->login_with_database();
    ASSERT_EQ(open_edit(&h_), 0);
  }

  void TearDown() override {
    OlvOtlCloseOutline(h_);
    session_->end();
    EXPECT_EQ(ledger().outstanding, before_.outstanding);
    EXPECT_EQ(ledger().wrongReleases, before_.wrongReleases);
  }

  ObjectDefinitionRecord object(const char* name = "Basic") const {
    return {context_, kObjectTypeOutline, "Sample", "Basic", name};
  }
  int open_edit(HOutline* opened) const {
    const ObjectDefinitionRecord basic = object();
    return OlvOtlOpenOutline(context_, &basic, 1, 1, opened);
  }
  // Of stores in folders.
  std::filesystem::path file() const { return store_.folder() / "Sample/Basic/Basic.otl"; }
  int write() const {
    const ObjectDefinitionRecord basic = object();
    return OlvOtlWriteOutline(h_, &basic);
  }
  // Everything in the stored outline; the status when it does not open.
  std::string stored() const {
    HOutline opened = 0;
    const int status = OlvOtlOpenOutlineQuery(context_, nullptr, &opened);
    if (status != 0) return std::to_string(status);
    const std::string text = dump(opened);
    EXPECT_EQ(OlvOtlCloseOutline(opened), 0);
    return text;
  }
  // Whether names are told apart by case; the other settings become 0.
  int tell_case(bool sensitive) const {
    const OutlineInfoRecord settings{static_cast<uint8_t>(sensitive), 0, 0, 0, 0, 0};
    return OlvOtlSetOutlineInfoEx(h_, &settings);
  }

  // ---- Members: 0 and a failure when it did not work ----

  static MemberInfoRecord blank(const std::string& name) {
    MemberInfoRecord info{};
    std::strncpy(info.name, name.c_str(), sizeof info.name - 1);
    return info;
  }
  HMember dimension(const std::string& name, int16_t category = kCategoryNone) {
    MemberInfoRecord info = blank(name);
    info.dimensionCategory = category;
    HMember last = 0;
    HMember added = 0;
    OlvOtlGetFirstMember(h_, &last);
    for (HMember next = last; next != 0; OlvOtlGetNextSibling(h_, last, &next)) last = next;
    EXPECT_EQ(OlvOtlAddDimension(h_, &info, last, 0, &added), 0) << name;
    return added;
  }
  // Adds a last child.
  HMember child(HMember parent, const std::string& name) {
    const MemberInfoRecord info = blank(name);
    const Handles others = children(parent);
    HMember added = 0;
    EXPECT_EQ(OlvOtlAddMemberEx(h_, &info, parent, others.empty() ? 0 : others.back(), &added,
                                kMemberOption),
              0)
        << name;
    return added;
  }
  // The status of adding a first child.
  int try_child(HMember parent, const std::string& name) {
    const MemberInfoRecord info = blank(name);
    HMember added = 0;
    return OlvOtlAddMemberEx(h_, &info, parent, 0, &added, kMemberOption);
  }
  int rename(HMember member, const std::string& name) {
    return OlvOtlRenameMemberEx(h_, member, name.c_str(), kMemberOption);
  }
  int remove(HMember member) { return OlvOtlDeleteMemberEx(h_, member, kMemberOption); }
  HMember find(const std::string& name) {
    HMember found = 0;
    return OlvOtlFindMember(h_, name.c_str(), &found) == 0 ? found : 0;
  }
  MemberInfoRecord info(HMember member) {
    MemberInfoRecord* record = nullptr;
    MemberInfoRecord copy{};
    EXPECT_EQ(OlvOtlGetMemberInfo(h_, member, &record), 0);
    if (record != nullptr) copy = *record;
    EXPECT_EQ(OlvOtlFreeStructure(h_, 1, kStructureMemberInfo, record), 0);
    return copy;
  }
  int set_info(HMember member, const MemberInfoRecord& record) {
    return OlvOtlSetMemberInfoEx(h_, member, &record, kMemberOption);
  }
  template <typename Field>
  void set(HMember member, Field MemberInfoRecord::*field, Field value) {
    MemberInfoRecord record = info(member);
    record.*field = value;
    EXPECT_EQ(set_info(member, record), 0);
  }
  std::string name(HMember member) { return info(member).name; }
  // Children by links; the dimensions for 0.
  Handles children(HMember parent) {
    Handles found;
    HMember next = 0;
    EXPECT_EQ(parent == 0 ? OlvOtlGetFirstMember(h_, &next) : OlvOtlGetChild(h_, parent, &next), 0);
    while (next != 0) {
      found.push_back(next);
      if (OlvOtlGetNextSibling(h_, found.back(), &next) != 0) break;
    }
    return found;
  }
  Names names(const Handles& members) {
    Names found;
    for (const HMember member : members) found.push_back(name(member));
    return found;
  }

  // ---- Texts: "(null)" for a null one, the status when there is none ----

  std::string taken(int status, char* text) {
    if (status != 0) return std::to_string(status);
    const std::string copy = text == nullptr ? "(null)" : text;
    EXPECT_EQ(OlvFree(session_->instance(), text), 0);
    return copy;
  }
  std::string alias(HMember member, const char* table = nullptr) {
    char* text = nullptr;
    const int status = OlvOtlGetMemberAlias(h_, member, table, &text);
    return taken(status, text);
  }
  std::string formula(HMember member) {
    char* text = nullptr;
    const int status = OlvOtlGetMemberFormula(h_, member, &text);
    return taken(status, text);
  }
  Names udas(HMember member) {
    uint16_t count = 0;
    char* block = nullptr;
    EXPECT_EQ(OlvOtlGetUserAttributes(h_, member, &count, &block), 0);
    return taken_udas(count, block);
  }
  Names taken_udas(uint32_t count, char* block) {
    Names found;
    for (uint32_t i = 0; i < count; ++i) found.emplace_back(block + size_t{i} * kUdaStride);
    EXPECT_EQ(OlvFree(session_->instance(), block), 0);
    return found;
  }

  // ---- Queries ----

  Answer query(uint32_t type, HMember start, uint32_t options = 0, const char* dimension = nullptr,
               const char* pattern1 = nullptr, const char* pattern2 = nullptr, uint32_t first = 0,
               uint32_t most = 0) {
    const MemberQuery asked{type, options, dimension, pattern1, pattern2};
    MemberQueryCounts counts{first, most, 0, 0};
    HMember* array = nullptr;
    Answer answer;
    answer.status = OlvOtlQueryMembers(h_, start, &asked, &counts, &array);
    return taken(answer, counts, array);
  }
  Answer query_by_name(uint32_t type, const char* start, uint32_t options = 0,
                       const char* dimension = nullptr, const char* pattern1 = nullptr) {
    const MemberQuery asked{type, options, dimension, pattern1, nullptr};
    MemberQueryCounts counts{};
    HMember* array = nullptr;
    Answer answer;
    answer.status = OlvOtlQueryMembersByName(h_, start, &asked, &counts, &array);
    return taken(answer, counts, array);
  }
  Handles associations(HMember member) {
    uint16_t count = 0;
    HMember* array = nullptr;
    EXPECT_EQ(OlvOtlGetAssociatedAttributes(h_, member, &count, &array), 0);
    const Handles found(array, array + count);
    EXPECT_EQ(OlvFree(session_->instance(), array), 0);
    return found;
  }

  TestStore store_;
  std::unique_ptr<Session> session_;
  HCTX context_ = 0;
  HOutline h_ = 0;

 private:
  Answer taken(Answer answer, const MemberQueryCounts& counts, HMember* array) {
    if (answer.status != 0) return answer;
    answer.total = counts.totalCount;
    answer.members.assign(array, array + counts.returned);
    EXPECT_EQ(OlvOtlFreeMembers(h_, counts.returned, array), 0);
    return answer;
  }

  OlvStandinLedgerCounts before_{};
};

}  // namespace standin_test
