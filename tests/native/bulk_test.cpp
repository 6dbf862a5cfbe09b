// The fast lane against the API double: each of its operations with every API call that it makes
// failing in turn, with junk in what failing calls leave, and with blocks missing in successes.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "bulk/operations.h"
#include "tests/native/api_double.h"
#include "tests/native/journal.h"

namespace {

using bulk::Writer;

constexpr int kInjected = 4711;

// A buffer with a request, written by a test.
class Buffer {
 public:
  Buffer(uint32_t operation, const std::function<void(Writer*)>& write, size_t size = 4096)
      : bytes_(size) {
    Writer out(bytes_.data(), bytes_.data() + size);
    out.gap(KEPOTL_FORMAT(REQUEST));
    write(&out);
    set(0, KEPOTL_FORMAT(VERSION));
    set(KEPOTL_FORMAT(OPERATION), operation);
    set(KEPOTL_FORMAT(OUTLINE), kOutline);
    set(KEPOTL_FORMAT(INSTANCE), kInst);
    set(KEPOTL_FORMAT(DETAILS), 0x3f);
    set(KEPOTL_FORMAT(REQUEST_END), static_cast<uint32_t>(out.size()));
  }

  Buffer& set(size_t at, uint32_t value) {
    bulk::store(bytes_.data() + at, value);
    return *this;
  }
  uint32_t get(size_t at) const { return bulk::load<uint32_t>(bytes_.data() + at); }
  // Carries the request out, in as many calls as it takes; the status.
  int run() {
    for (;;) {
      bulk::Request request;
      EXPECT_TRUE(bulk::take_request(bytes_.data(), bytes_.size(), &request));
      bulk::Answer answer;
      switch (request.operation) {
        case KEPOTL_FORMAT(POSITION):
          bulk::find_position(request, &answer);
          break;
        case KEPOTL_FORMAT(CREATE):
        case KEPOTL_FORMAT(UPDATE):
          EXPECT_TRUE(bulk::make_members(request, &answer));
          break;
        default:
          EXPECT_TRUE(bulk::read_members(request, &answer));
      }
      records += answer.count;
      EXPECT_EQ(answer.needed, 0u);
      if (!answer.outcome || answer.done || answer.needed != 0) return answer.outcome.status;
    }
  }

  uint32_t records = 0;

 private:
  std::vector<uint8_t> bytes_;
};

void write_tables(Writer* out) {
  out->number(static_cast<uint32_t>(api().alias_tables.size()));
  for (const std::string& table : api().alias_tables) out->text(table.c_str());
}

// A record with everything in it. `parent` is a handle, or an index with `given`.
void write_record(Writer* out, const char* name, uint32_t parent, uint32_t given) {
  std::vector<uint8_t> bytes(1024);
  Writer record(bytes.data(), bytes.data() + bytes.size());
  record.gap(KEPOTL_FORMAT(MAKE_FIXED));
  record.put(KEPOTL_FORMAT(MAKE_HANDLE), parent);
  record.put(KEPOTL_FORMAT(MAKE_PARENT), parent);
  record.put(KEPOTL_FORMAT(MAKE_GIVEN), given | 0x7c);
  record.text(name);
  for (const char* text : {"currency", "comment", "extended", "formula"}) record.text(text);
  record.number(1);
  record.number(0);
  record.text("alias");
  record.number(1);
  record.text("uda");
  record.number(0);
  record.put(KEPOTL_FORMAT(MAKE_LENGTH), static_cast<uint32_t>(record.size()));
  out->bytes(bytes.data(), record.size());
}

struct Case {
  const char* name;
  std::function<Buffer()> request;
};

std::vector<Case> cases() {
  const auto parent = [] { return api().dimensions.front(); };
  const auto subtree = [parent](uint32_t operation, size_t size) {
    Buffer buffer(operation, write_tables, size);
    buffer.set(KEPOTL_FORMAT(MEMBER), parent());
    return buffer;
  };
  return {
      {"children", [=] { return subtree(KEPOTL_FORMAT(READ_CHILDREN), 4096); }},
      {"children from a position",
       [=] {
         Buffer buffer = subtree(KEPOTL_FORMAT(READ_CHILDREN), 4096);
         return buffer.set(KEPOTL_FORMAT(START), KEPOTL_FORMAT(FROM_POSITION))
             .set(KEPOTL_FORMAT(NEXT), 1);
       }},
      {"dimensions", [] { return Buffer(KEPOTL_FORMAT(READ_CHILDREN), write_tables); }},
      {"subtree in small buffers", [=] { return subtree(KEPOTL_FORMAT(READ_SUBTREE), 512); }},
      {"members",
       [=] {
         return Buffer(KEPOTL_FORMAT(READ_MEMBERS), [&](Writer* out) {
           write_tables(out);
           out->number(parent());
           out->number(kFirstMember + 1);
         });
       }},
      {"find",
       [=] {
         return Buffer(KEPOTL_FORMAT(FIND), [&](Writer* out) {
           write_tables(out);
           out->text(api().member(parent()).info.name);
         });
       }},
      {"position",
       [=] {
         return Buffer(KEPOTL_FORMAT(POSITION), write_tables)
             .set(KEPOTL_FORMAT(MEMBER), api().member(parent()).children.back());
       }},
      {"create",
       [=] {
         return Buffer(KEPOTL_FORMAT(CREATE), [&](Writer* out) {
           write_tables(out);
           write_record(out, "Made", parent(), 0);
           write_record(out, "Made below", 0, KEPOTL_FORMAT(GIVEN_PARENT_INDEX));
         });
       }},
      {"update",
       [=] {
         return Buffer(KEPOTL_FORMAT(UPDATE), [&](Writer* out) {
           write_tables(out);
           write_record(out, "", parent(), 0);
         });
       }},
  };
}

bool is_release(const std::string& function) {
  return function == "OlvFree" || function == "OlvOtlFreeStructure" ||
         function == "OlvOtlFreeMembers";
}

// Runs a case on the sample outline after `prepare`, and checks what must hold whatever happens.
int run(const Case& one, const std::function<void()>& prepare, Buffer* ran) {
  api().reset();
  journal().clear();
  *ran = one.request();
  api().leave_junk();
  prepare();
  const int status = ran->run();
  EXPECT_THAT(journal().take_faults(), testing::IsEmpty());
  EXPECT_THAT(api().blocks_outstanding(), testing::IsEmpty());
  return status;
}

}  // namespace

TEST(Bulk, EachFailingCallReachesTheHeader) {
  for (const Case& one : cases()) {
    SCOPED_TRACE(one.name);
    Buffer buffer(0, [](Writer*) {});
    ASSERT_EQ(run(
                  one, [] {}, &buffer),
              kStatusOk);
    const std::vector<std::string> called = api().called();
    const uint32_t all = buffer.records;
    for (size_t n = 1; n <= called.size(); ++n) {
      SCOPED_TRACE("call " + std::to_string(n) + " fails, " + called[n - 1]);
      for (const bool onwards : {false, true}) {
        const int status = run(
            one, [&] { api().fail_call(static_cast<int>(n), kInjected, onwards); }, &buffer);
        // A dimension that cannot be found is told as 0, and hybrid members as none.
        const bool passed_over = is_release(called[n - 1]) || called[n - 1] == "OlvOtlGetParent" ||
                                 called[n - 1] == "OlvOtlGetChild" ||
                                 called[n - 1] == "OlvOtlGetMemberInfo";
        if (!passed_over) {
          EXPECT_EQ(status, kInjected);
        }
        if (status == kStatusOk) {
          EXPECT_EQ(buffer.records, all);
        }
        EXPECT_THAT(status, testing::AnyOf(kStatusOk, kInjected));
        // Of a member that was refused nothing is left, unless that was refused, too.
        if (std::string(one.name) == "create" && !onwards) {
          EXPECT_EQ(api().find("Made") != 0, buffer.records > 0);
          EXPECT_EQ(api().find("Made below") != 0, buffer.records > 1);
        }
      }
    }
  }
}

TEST(Bulk, BlocksMissingInSuccesses) {
  for (const Case& one : cases()) {
    SCOPED_TRACE(one.name);
    Buffer buffer(0, [](Writer*) {});
    run(
        one, [] {}, &buffer);
    const int blocks = api().handed_out();
    for (int n = 1; n <= blocks; ++n) {
      SCOPED_TRACE("block " + std::to_string(n) + " is withheld");
      run(
          one, [&] { api().withhold_block(n); }, &buffer);
    }
    run(
        one, [] { api().withhold_all(); }, &buffer);
  }
}

TEST(Bulk, NamesInUseAndTextsThatDoNotFit) {
  api().reset();
  const HMember parent = api().dimensions.front();
  const std::string taken = api().member(api().member(parent).children.front()).info.name;
  Buffer twice(KEPOTL_FORMAT(CREATE), [&](Writer* out) {
    write_tables(out);
    write_record(out, taken.c_str(), parent, 0);
  });
  EXPECT_EQ(twice.run(), kStatusOk);
  EXPECT_EQ(api().children_of(parent).front(), taken);
  for (const std::string& name : {std::string(), std::string(kMaxMemberName + 1, 'x')}) {
    Buffer refused(KEPOTL_FORMAT(CREATE), [&](Writer* out) {
      write_tables(out);
      write_record(out, name.c_str(), parent, 0);
    });
    journal().clear();
    EXPECT_EQ(refused.run(), kStatusRefused);
    EXPECT_EQ(refused.records, 0u);
  }
  EXPECT_THAT(api().blocks_outstanding(), testing::IsEmpty());
  api().reset();
}
