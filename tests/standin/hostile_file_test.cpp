// Outline files that are not as this engine writes them: opening and counting cells refuse them
// alike, in bounded time and memory, and run nothing that is in them.
#include <sys/mman.h>
#include <unistd.h>

#include "standin/outline/model/member_fields.h"
#include "tests/standin/outline_fixture.h"
#include "tests/standin/sql.h"

using namespace standin_test;

namespace {

class HostileFile : public OutlineTest {
 protected:
  void write_small_outline() {
    const HMember product = dimension("Product");
    for (int i = 0; i < 50; ++i) child(product, "p" + std::to_string(i));
    ASSERT_EQ(write(), 0);
  }

  // The status of opening and of counting cells, which are to be the same; the count for 0.
  int status_of_both() {
    HOutline opened = 0;
    const int opening = OlvOtlOpenOutlineQuery(context_, nullptr, &opened);
    double cells = 0;
    EXPECT_EQ(OlvPartitionGetAreaCellCount(context_, "", &cells), opening);
    if (opening == 0) {
      EXPECT_EQ(OlvOtlCloseOutline(opened), 0);
      EXPECT_EQ(cells, 50);
    }
    return opening;
  }

  // Sets a big-endian number in the file's header.
  void set_header(size_t at, uint32_t value) {
    std::string content = read_file(file());
    for (size_t i = 0; i < 4; ++i) content[at + i] = static_cast<char>(value >> (24 - 8 * i));
    write_file(file(), content);
  }
};

TEST_F(HostileFile, TablesOtherThanOursAreDamage) {
  write_small_outline();
  const std::string sound = read_file(file());
  EXPECT_EQ(status_of_both(), 0);
  for (const char* hostile : {
           "ALTER TABLE member RENAME TO m; CREATE VIEW member AS SELECT * FROM m",
           "CREATE TRIGGER t AFTER INSERT ON member BEGIN SELECT 1; END",
           "CREATE TABLE more(a)",
           "CREATE INDEX i ON member(name)",
           "ALTER TABLE name_order ADD COLUMN twice INTEGER AS (2 * member)",
           "ALTER TABLE uda RENAME COLUMN text TO words",
       }) {
    SCOPED_TRACE(hostile);
    run_sql(file(), hostile);
    EXPECT_EQ(status_of_both(), standin::kDamagedOutline);
    write_file(file(), sound);
  }
}

TEST_F(HostileFile, AHugeMemberNumberInASparseFileAsksForNoMemory) {
  write_small_outline();
  run_sql(file(), "UPDATE member SET id = 2000000000 WHERE id = 51");
  constexpr uint32_t kPages = 40'000'000;
  set_header(28, kPages);
  std::filesystem::resize_file(file(), uint64_t{kPages} * 4096);
  EXPECT_EQ(status_of_both(), standin::kDamagedOutline);
}

// Interior pages whose children are all one page: a tree with as many rows as there are paths.
TEST_F(HostileFile, PagesThatRepeatEndAtTheFirstRowThatComesAgain) {
  const HMember product = dimension("Product");
  for (int i = 0; i < 50; ++i) child(product, "p" + std::to_string(i));
  for (int i = 0; i < 2000; ++i) {
    ASSERT_EQ(OlvOtlSetUserAttribute(h_, find("p0"), std::to_string(100000 + i).c_str()), 0);
  }
  ASSERT_EQ(write(), 0);
  sqlite3* opened = nullptr;
  sqlite3_stmt* query = nullptr;
  ASSERT_EQ(sqlite3_open(file().c_str(), &opened), SQLITE_OK);
  ASSERT_EQ(sqlite3_prepare_v2(opened, "SELECT rootpage FROM sqlite_schema WHERE name = 'uda'", -1,
                               &query, nullptr),
            SQLITE_OK);
  ASSERT_EQ(sqlite3_step(query), SQLITE_ROW);
  const auto root = static_cast<size_t>(sqlite3_column_int(query, 0));
  sqlite3_finalize(query);
  sqlite3_close(opened);

  std::string content = read_file(file());
  char* const page = content.data() + (root - 1) * 4096;
  ASSERT_EQ(page[0], 5) << "the table's root is no interior page";
  const auto two_bytes = [](const char* at) {
    return static_cast<size_t>(static_cast<unsigned char>(at[0]) * 256 +
                               static_cast<unsigned char>(at[1]));
  };
  const size_t cells = two_bytes(page + 3);
  ASSERT_GT(cells, 2u);
  const char* const first = page + two_bytes(page + 12);
  for (size_t cell = 1; cell < cells; ++cell) {
    std::memcpy(page + two_bytes(page + 12 + 2 * cell), first, 4);
  }
  write_file(file(), content);
  EXPECT_EQ(status_of_both(), standin::kDamagedOutline);
}

TEST_F(HostileFile, AJournalBesideItIsNotTaken) {
  write_small_outline();
  // The start of a journal that SQLite takes for one to play back.
  const std::string magic("\xd9\xd5\x05\xf9\x20\xa1\x63\xd7", 8);
  write_file(file().string() + "-journal", magic + std::string(1016, '\1'));
  EXPECT_EQ(status_of_both(), 0);
  EXPECT_TRUE(std::filesystem::exists(file().string() + "-journal"));
}

// The same page of letters again and again, so that the text takes addresses and no memory.
TEST_F(HostileFile, ATextThatNoFileHoldsIsRefusedWhenItIsSet) {
  constexpr size_t kPiece = size_t{1} << 20;
  constexpr size_t kPieces = standin::kMaxLongText / kPiece + 2;
  const int memory = memfd_create("text", MFD_CLOEXEC);
  ASSERT_GE(memory, 0);
  const std::string letters(kPiece, 'x');
  ASSERT_EQ(::write(memory, letters.data(), kPiece), static_cast<ssize_t>(kPiece));
  void* const space = mmap(nullptr, kPieces * kPiece, PROT_READ | PROT_WRITE,
                           MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
  ASSERT_NE(space, MAP_FAILED);
  char* const text = static_cast<char*>(space);
  for (size_t i = 0; i + 1 < kPieces; ++i) {
    ASSERT_NE(mmap(text + i * kPiece, kPiece, PROT_READ, MAP_PRIVATE | MAP_FIXED, memory, 0),
              MAP_FAILED);
  }
  const HMember product = dimension("Product");
  EXPECT_EQ(OlvOtlSetMemberFormula(h_, product, text), standin::kTextTooLong);
  EXPECT_EQ(OlvOtlSetMemberCommentEx(h_, product, text), standin::kTextTooLong);
  EXPECT_EQ(write(), 0);
  munmap(space, kPieces * kPiece);
  close(memory);
}

}  // namespace
