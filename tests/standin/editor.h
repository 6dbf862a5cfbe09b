// An editor of a small outline in whose members one number stands, the version: whoever reads the
// outline sees whether it is whole.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "api/olvotl.h"
#include "tests/standin/test_store.h"

namespace standin_test {

constexpr int kVersionedMembers = 400;

inline ObjectDefinitionRecord object(HCTX context) {
  return {context, kObjectTypeOutline, "Sample", "Basic", "Basic"};
}

// A session with the outline open, for edit unless told, in whatever process makes it.
struct Editor {
  enum class Mode { kEdit, kQuery };

  explicit Editor(const std::string& store, Mode mode = Mode::kEdit)
      : session(store), context(session.login_with_database()) {
    const ObjectDefinitionRecord basic = object(context);
    EXPECT_EQ(mode == Mode::kQuery ? OlvOtlOpenOutlineQuery(context, nullptr, &h)
                                   : OlvOtlOpenOutline(context, &basic, 1, 1, &h),
              0);
  }

  HMember dimension() const {
    HMember first = 0;
    EXPECT_EQ(OlvOtlGetFirstMember(h, &first), 0);
    return first;
  }
  HMember add(HMember parent, const std::string& name) const {
    MemberInfoRecord info{};
    name.copy(info.name, kMaxMemberName);
    HMember added = 0;
    EXPECT_EQ(parent == 0 ? OlvOtlAddDimension(h, &info, 0, 0, &added)
                          : OlvOtlAddMemberEx(h, &info, parent, 0, &added, kMemberOption),
              0);
    return added;
  }
  // Writes `version` into every member.
  void set_version(int version) const {
    HMember member = 0;
    EXPECT_EQ(OlvOtlGetChild(h, dimension(), &member), 0);
    for (; member != 0; OlvOtlGetNextSibling(h, member, &member)) {
      EXPECT_EQ(OlvOtlSetMemberFormula(h, member, std::to_string(version).c_str()), 0);
    }
  }
  int write() const {
    const ObjectDefinitionRecord basic = object(context);
    return OlvOtlWriteOutline(h, &basic);
  }
  // The first status that is not 0.
  int restructure() const {
    const int status = OlvOtlRestructure(context, kRestructureSaveAs);
    return status != 0 ? status : wait_for_process(context);
  }
  // The version in all members; -1 and a failure when they do not agree.
  int version() const {
    int count = 0;
    int agreed = -1;
    HMember member = 0;
    EXPECT_EQ(OlvOtlGetChild(h, dimension(), &member), 0);
    for (; member != 0; OlvOtlGetNextSibling(h, member, &member)) {
      char* formula = nullptr;
      EXPECT_EQ(OlvOtlGetMemberFormula(h, member, &formula), 0);
      const int own = formula == nullptr ? -1 : std::stoi(formula);
      EXPECT_EQ(OlvFree(0, formula), 0);
      if (count++ == 0) agreed = own;
      if (own != agreed) {
        ADD_FAILURE() << "versions " << agreed << " and " << own << " in one outline";
        return -1;
      }
    }
    EXPECT_EQ(count, kVersionedMembers);
    return agreed;
  }
  void close() { EXPECT_EQ(OlvOtlCloseOutline(h), 0); }

  Session session;
  HCTX context;
  HOutline h = 0;
};

// Writes version 0.
inline void make_outline(const std::string& store) {
  Editor editor(store);
  const HMember dimension = editor.add(0, "Versions");
  for (int i = 0; i < kVersionedMembers; ++i) editor.add(dimension, "m" + std::to_string(i));
  editor.set_version(0);
  ASSERT_EQ(editor.write(), 0);
  editor.close();
}

}  // namespace standin_test
