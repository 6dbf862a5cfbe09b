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
  // Repeats `call` with one allocation more each time until it succeeds; how often it failed.
  int failures_of(const char* what, const std::function<int()>& call) {
    const std::string before = dump(h_);
    int status = standin::kNoMemory;
    int calls = 0;
    for (; status == standin::kNoMemory && calls < 1000; ++calls) {
      allocations_left = calls;
      status = call();
      allocations_left = -1;
      if (status != 0) {
        EXPECT_EQ(dump(h_), before) << what << ", allocation " << calls;
      }
    }
    EXPECT_EQ(status, 0) << what;
    return calls - 1;
  }
  void sweep(const char* what, const std::function<int()>& call) {
    EXPECT_GT(failures_of(what, call), 0) << what << " allocates nothing";
  }
  // The same for what takes its memory from a store of it that is large: `call(0)`, `call(1)`, ...
  // until one has come to the end of it.
  void sweep_many(const char* what, const std::function<int(int)>& call) {
    int failures = 0;
    for (int i = 0; failures == 0 && i < 2000; ++i) {
      failures = failures_of(what, [&] { return call(i); });
    }
    EXPECT_GT(failures, 0) << what << " allocates nothing";
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
  std::string other = text;
  sweep_many("rename", [&](int i) {
    other[0] = static_cast<char>('a' + i % 26);
    return rename(east, other);
  });
  sweep("alias", [&] { return OlvOtlSetMemberAlias(h_, east, nullptr, text.c_str()); });
  sweep("formula", [&] { return OlvOtlSetMemberFormula(h_, east, text.c_str()); });
  sweep("comment", [&] { return OlvOtlSetMemberCommentEx(h_, red, text.c_str()); });
  sweep("UDA", [&] { return OlvOtlSetUserAttribute(h_, east, text.c_str()); });
  sweep_many("record", [&](int) { return set_info(added, record); });
  sweep("dimensions", [&] { return OlvOtlAssociateAttributeDimension(h_, market, colour); });
  Handles bases;
  for (int i = 0; i < 10; ++i) bases.push_back(child(market, "m" + std::to_string(i)));
  sweep_many("members", [&](int i) {
    return OlvOtlAssociateAttributeMember(h_, bases.at(static_cast<size_t>(i)), red);
  });
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
    const MemberInfoRecord plain = blank("n" + std::to_string(i));
    ASSERT_EQ(OlvOtlAddMemberEx(h_, &plain, market, 0, &added, kMemberOption), 0);
  }
  std::strcpy(record.name, "The first beyond what was there, with a long name");
  sweep("add", [&] { return OlvOtlAddMemberEx(h_, &record, market, 0, &added, kMemberOption); });
}
