// Everything that the outline API tells about an open outline, as text: two outlines with the same
// dump are the same to every caller.
#pragma once

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <unordered_map>
#include <vector>

#include "api/olv.h"
#include "api/olvotl.h"

namespace standin_test {

class OutlineDump {
 public:
  explicit OutlineDump(HOutline h) : h_(h) {
    collect_members();
    dump_settings();
    for (const HMember member : members_) dump_member(member);
    dump_series();
  }

  std::string text() const { return out_.str(); }

 private:
  // Members in pre-order; handles are told by their place in it, which outlives a save.
  void collect_members() {
    HMember at = 0;
    EXPECT_EQ(OlvOtlGetFirstMember(h_, &at), 0);
    while (at != 0) {
      places_[at] = members_.size();
      members_.push_back(at);
      HMember next = 0;
      EXPECT_EQ(OlvOtlGetChild(h_, at, &next), 0);
      while (next == 0 && at != 0) {
        EXPECT_EQ(OlvOtlGetNextSibling(h_, at, &next), 0);
        if (next == 0) {
          EXPECT_EQ(OlvOtlGetParent(h_, at, &at), 0);
        }
      }
      at = next;
    }
  }

  void bytes(const void* start, size_t count) {
    static const char kDigits[] = "0123456789abcdef";
    const auto* at = static_cast<const unsigned char*>(start);
    for (size_t i = 0; i < count; ++i) out_ << kDigits[at[i] >> 4] << kDigits[at[i] & 15];
    out_ << '\n';
  }

  void text(const char* label, const char* value) {
    out_ << label << (value == nullptr ? " (null)" : std::string(" \"") + value + '"') << '\n';
  }
  // The text that `get(&text)` hands out.
  template <typename Get>
  void taken_text(const char* label, Get&& get) {
    char* value = nullptr;
    ASSERT_EQ(get(&value), 0) << label;
    text(label, value);
    EXPECT_EQ(OlvFree(0, value), 0);
  }

  void dump_settings() {
    OutlineInfoRecord* info = nullptr;
    ASSERT_EQ(OlvOtlGetOutlineInfo(h_, &info), 0);
    bytes(info, sizeof *info);
    for (unsigned i = 0; i < info->aliasTableCount; ++i) {
      tables_.emplace_back(alias_table_name(info, i));
      text("table", tables_.back().c_str());
    }
    EXPECT_EQ(OlvFree(0, info), 0);

    AttributeSpecRecord* spec = nullptr;
    ASSERT_EQ(OlvOtlGetAttributeSpecifications(h_, &spec), 0);
    bytes(spec, offsetof(AttributeSpecRecord, reserved10) + sizeof spec->reserved10);
    for (const char* name :
         {spec->trueName, spec->falseName, spec->calcDimensionName, spec->sumName, spec->countName,
          spec->averageName, spec->minimumName, spec->maximumName}) {
      text("spec", name);
    }
    EXPECT_EQ(OlvOtlFreeStructure(h_, 1, kStructureAttributeSpec, spec), 0);
  }

  void dump_member(HMember member) {
    HMember parent = 0;
    EXPECT_EQ(OlvOtlGetParent(h_, member, &parent), 0);
    out_ << "member " << places_[member];
    if (parent != 0) out_ << " below " << places_[parent];
    out_ << '\n';
    MemberInfoRecord* info = nullptr;
    ASSERT_EQ(OlvOtlGetMemberInfo(h_, member, &info), 0);
    bytes(info, sizeof *info);
    HMember found = 0;
    EXPECT_EQ(OlvOtlFindMember(h_, info->name, &found), 0);
    out_ << "name of " << places_[found] << '\n';
    if (parent == 0) dump_generation_and_level_names(info->name);
    EXPECT_EQ(OlvOtlFreeStructure(h_, 1, kStructureMemberInfo, info), 0);

    taken_text("formula", [&](char** to) { return OlvOtlGetMemberFormula(h_, member, to); });
    taken_text("comment", [&](char** to) { return OlvOtlGetMemberCommentEx(h_, member, to); });
    for (const std::string& table : tables_) {
      taken_text("alias",
                 [&](char** to) { return OlvOtlGetMemberAlias(h_, member, table.c_str(), to); });
    }
    uint16_t count = 0;
    char* udas = nullptr;
    ASSERT_EQ(OlvOtlGetUserAttributes(h_, member, &count, &udas), 0);
    for (unsigned i = 0; i < count; ++i) text("uda", udas + size_t{i} * kUdaStride);
    EXPECT_EQ(OlvFree(0, udas), 0);
    HMember* attributes = nullptr;
    ASSERT_EQ(OlvOtlGetAssociatedAttributes(h_, member, &count, &attributes), 0);
    for (unsigned i = 0; i < count; ++i) out_ << "attribute " << places_[attributes[i]] << '\n';
    EXPECT_EQ(OlvFree(0, attributes), 0);
  }

  void dump_generation_and_level_names(const char* dimension) {
    for (const auto list : {OlvOtlGetGenNames, OlvOtlGetLevelNames}) {
      uint32_t count = 0;
      GenLevelNameEntry* names = nullptr;
      ASSERT_EQ(list(h_, dimension, kNamesPlain, &count, &names), 0);
      for (uint32_t i = 0; i < count; ++i) {
        out_ << names[i].number;
        text(" named", names[i].name);
      }
      EXPECT_EQ(OlvFree(0, names), 0);
    }
  }

  void dump_series() {
    uint16_t count = 0;
    DtsEntry* entries = nullptr;
    ASSERT_EQ(OlvOtlGetEnabledDTSMembers(h_, &count, &entries), 0);
    for (unsigned i = 0; i < count; ++i) {
      out_ << "series " << entries[i].name << ' ' << entries[i].generation << '\n';
      for (const std::string& table : tables_) {
        taken_text("alias", [&](char** to) {
          return OlvOtlGetDTSMemberAlias(h_, entries[i].name, table.c_str(), to);
        });
      }
    }
    EXPECT_EQ(OlvFree(0, entries), 0);
  }

  HOutline h_;
  std::vector<HMember> members_;
  std::unordered_map<HMember, size_t> places_;
  std::vector<std::string> tables_;
  std::ostringstream out_;
};

inline std::string dump(HOutline h) {
  return OutlineDump(h).text();
}

}  // namespace standin_test
