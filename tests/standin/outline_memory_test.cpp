// Memory that runs out at the first, second, third, ... allocation of a call: the call says so and
// the outline is as it was before.
#include <cstdlib>
#include <functional>
#include <new>

#include "tests/standin/outline_fixture.h"

namespace {

// Allocations of this thread that still succeed; negative: all.
thread_local long allocations_left = -1;

}  // namespace

// Not inlined: the compiler would see free() meet memory of operator new and warn.
[[gnu::noinline]] void* operator new(size_t bytes) {
  const bool fails = allocations_left == 0;
  if (allocations_left >= 0) --allocations_left;
  void* block = fails ? nullptr : std::malloc(bytes == 0 ? 1 : bytes);
  if (block == nullptr) throw std::bad_alloc();
  return block;
}
[[gnu::noinline]] void* operator new(size_t bytes, const std::nothrow_t&) noexcept {
  return std::malloc(bytes == 0 ? 1 : bytes);
}
[[gnu::noinline]] void operator delete(void* block) noexcept {
  std::free(block);
}
[[gnu::noinline]] void operator delete(void* block, const std::nothrow_t&) noexcept {
  std::free(block);
}
[[gnu::noinline]] void operator delete(void* block, size_t) noexcept {
  std::free(block);
}

using namespace standin_test;

class OutOfMemory : public OutlineTest {
 protected:
  // Repeats `call` with one allocation more each time until it succeeds.
  void sweep(const char* what, const std::function<int()>& call) {
    const std::string before = dump(h_);
    int status = standin::kNoMemory;
    int failures = 0;
    for (; status == standin::kNoMemory && failures < 1000; ++failures) {
      allocations_left = failures;
      status = call();
      allocations_left = -1;
      if (status != 0) {
        ASSERT_EQ(dump(h_), before) << what << ", allocation " << failures;
      }
    }
    EXPECT_EQ(status, 0) << what;
    EXPECT_GT(failures, 1) << what << " allocates nothing";
  }
};

TEST_F(OutOfMemory, LeavesTheOutlineAsItWas) {
  const HMember market = dimension("Market");
  const HMember colour = dimension("Colour", kCategoryAttribute);
  const HMember east = child(market, "East");
  const HMember red = child(colour, "Red");
  const std::string text(60, 't');
  HMember added = 0;
  MemberInfoRecord record = blank("A member with a name that is not short");
  std::strcpy(record.comment, text.c_str());

  sweep("add", [&] { return OlvOtlAddMemberEx(h_, &record, market, 0, &added, kMemberOption); });
  sweep("rename", [&] { return rename(east, text); });
  sweep("alias", [&] { return OlvOtlSetMemberAlias(h_, east, nullptr, text.c_str()); });
  sweep("formula", [&] { return OlvOtlSetMemberFormula(h_, east, text.c_str()); });
  sweep("comment", [&] { return OlvOtlSetMemberCommentEx(h_, red, text.c_str()); });
  sweep("UDA", [&] { return OlvOtlSetUserAttribute(h_, east, text.c_str()); });
  sweep("record", [&] { return set_info(added, record); });
  sweep("dimensions", [&] { return OlvOtlAssociateAttributeDimension(h_, market, colour); });
  sweep("members", [&] { return OlvOtlAssociateAttributeMember(h_, east, red); });
  sweep("sort", [&] { return OlvOtlSortChildren(h_, market, kSortAscending, 0, 0); });
  sweep("case", [&] { return tell_case(true); });

  const MemberQuery everything{kQuerySearch, kQueryOptionNames, nullptr, "*", nullptr};
  MemberQueryCounts counts{};
  HMember* found = nullptr;
  sweep("query", [&] { return OlvOtlQueryMembers(h_, 0, &everything, &counts, &found); });
  EXPECT_EQ(OlvOtlFreeMembers(h_, counts.returned, found), 0);
  MemberInfoRecord* read = nullptr;
  sweep("read", [&] { return OlvOtlGetMemberInfo(h_, east, &read); });
  EXPECT_EQ(OlvOtlFreeStructure(h_, 1, kStructureMemberInfo, read), 0);

  // As many members as make the next one need a larger index and a new chunk.
  for (int i = 0; added != 1023; ++i) {
    const MemberInfoRecord plain = blank("m" + std::to_string(i));
    ASSERT_EQ(OlvOtlAddMemberEx(h_, &plain, market, 0, &added, kMemberOption), 0);
  }
  std::strcpy(record.name, "The first beyond what was there, with a long name");
  sweep("add", [&] { return OlvOtlAddMemberEx(h_, &record, market, 0, &added, kMemberOption); });
}
