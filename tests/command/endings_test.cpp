// How the command bears what comes from outside: interrupts, readers that go away, full disks,
// narrow terminals, other locales.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/command/command_fixture.h"

namespace command_test {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

std::string many_rows(int count) {
  std::string rows;
  for (int i = 0; i < count; ++i) rows += "Year,member number " + std::to_string(i) + "\n";
  return rows;
}

// A key on the terminal, pressed once `$condition` holds; the pipe stays open meanwhile.
constexpr char kPressKey[] =
    "press() { key=$1; shift; for i in $(seq 200); do if eval \"$*\"; then break; fi; sleep 0.05; "
    "done; printf \"$key\"; }\n"
    "export outline OUTLINE_STORE; mkfifo pipe\n";

TEST_F(CommandTest, LeavesTheStoredOutlineAsItWasWhenInterrupted) {
  load_world();
  const std::string tree = out({"tree", "Demo", "World"});
  const Ended load = run.shell(
      std::string(kPressKey) +
      "(exec 3>pipe; printf 'parent,name\\n,New\\n' >&3; until test -e over; do sleep 0.05; done) "
      "&\n"
      "press '\\003' '$outline locks --json | grep -q Demo/World' |\n"
      "  script -qec \"exec $outline load Demo World pipe\" /dev/null; echo \"code $?\"\n"
      "touch over; wait; ls $OUTLINE_STORE/Demo/World; $outline locks\n"
      "printf 'parent,name\\n,Next\\n' | $outline load Demo World - --dry-run --quiet");
  EXPECT_THAT(load.out, HasSubstr("code 130\nWorld.otl\n"));
  EXPECT_EQ(load.code, 0) << load.err;  // the lock is free again
  EXPECT_EQ(out({"tree", "Demo", "World"}), tree);

  // An export that is cut short leaves the file of last week alone.
  ASSERT_EQ(run({"create", "Demo", "Many"}).code, 0);
  ASSERT_EQ(run({"load", "Demo", "Many", "-"}, "parent,name\n,Year\n" + many_rows(9'000)).code, 0);
  const Ended exported = run.shell(
      "rm pipe\n" + std::string(kPressKey) +
      "rm -f over; (exec 3<pipe; read line <&3; touch begun; until test -e over; do sleep 0.05; "
      "done) &\n"
      "press '\\003' test -e begun |\n"
      "  script -qec \"exec $outline export Demo Many pipe\" /dev/null; echo \"code $?\"\n"
      "touch over; wait; $outline tree Demo Many | tail -n 1");
  EXPECT_THAT(exported.out, HasSubstr("code 130\n└─ member number 8999\n"));
}

TEST_F(CommandTest, WritesWhateverTheLocaleAndToWhateverEnd) {
  load_world();
  const std::string tree = out({"tree", "Demo", "World", "--aliases", "Default"});
  EXPECT_EQ(run.shell("LC_ALL=C $outline tree Demo World --aliases Default").out, tree);
  const Ended full = run.shell("$outline export Demo World >/dev/full");
  EXPECT_EQ(full.code, 3);
  EXPECT_THAT(full.err, HasSubstr("can't write to stdout"));
  EXPECT_EQ(run({"export", "Demo", "World", "/dev/full"}).code, 3);
}

// More than a pipe holds, so that the reader is gone before the last write.
TEST_F(CommandTest, EndsQuietlyWhenTheReaderGoes) {
  ASSERT_EQ(run({"create", "Demo", "Many"}).code, 0);
  ASSERT_EQ(run({"load", "Demo", "Many", "-"}, "parent,name\n,Year\n" + many_rows(9'000)).code, 0);
  for (const char* words : {"tree", "tree --json", "export", "find member", "diff empty.csv"}) {
    run.file("empty.csv", "parent,name\n,Year\n");
    std::string line(words);
    const size_t verb = line.find(' ');
    line.insert(std::min(verb, line.size()), " Demo Many");
    // With the signal of a broken pipe at its default, and ignored as some programs leave it.
    for (const char* before : {"", "trap '' PIPE; "}) {
      const Ended ended = run.shell(before + ("$outline " + line) + " | head -c 4");
      EXPECT_EQ(ended.out.size(), 4U) << line;
      EXPECT_THAT(ended.err, IsEmpty()) << line;
    }
  }
}

TEST_F(CommandTest, LeavesOutlineAndFilesWholeOnAFullDisk) {
  run.file("many.csv", "parent,name\n" + many_rows(20'000));
  const Ended full = run.shell(
      "export outline; mkdir full\n"
      "for how in -m -rm; do unshare $how true 2>/dev/null && exec unshare $how sh -c '\n"
      "  mount -t tmpfs -o size=600k tmpfs full || exit 77; export OUTLINE_STORE=$PWD/full/store\n"
      "  $outline create A B; printf \"parent,name\\n,Year\\n\" | $outline load A B -\n"
      "  $outline load A B many.csv; echo \"code $?\"; $outline tree A B; ls full/store/A/B\n"
      "  $outline export A B full/small.csv\n"
      "  OUTLINE_STORE=$PWD/store; $outline create A B; $outline load A B - <many.csv\n"
      "  printf \"parent,name\\n,Year\\n\" | $outline load A B - --quiet; \n"
      "  $outline load A B many.csv; dd if=/dev/zero of=full/zeros bs=1k count=400 2>/dev/null\n"
      "  $outline export A B full/small.csv; echo \"code $?\"; rm full/zeros\n"
      "  ls full; cat full/small.csv'\n"
      "done; exit 77");
  // Containers mostly forbid it.
  if (full.code == 77) GTEST_SKIP() << "no mount name space to be had: " << full.err;
  EXPECT_EQ(full.out, "code 3\nYear\nB.otl\ncode 3\nsmall.csv\nstore\nparent,name\n,Year\n");
  EXPECT_THAT(full.err, HasSubstr("The disk is full"));
  EXPECT_THAT(full.err, HasSubstr("No space left"));
}

// The system ends a process that writes beyond its limit.
TEST_F(CommandTest, LeavesNoPieceOfAFileWhenItIsKilled) {
  ASSERT_EQ(run({"create", "Demo", "World"}).code, 0);
  run.file("many.csv", "parent,name\n,Year\n" + many_rows(20'000));
  ASSERT_EQ(run({"load", "Demo", "World", "many.csv"}).code, 0);
  const Ended killed = run.shell(
      "echo before >out.csv; (ulimit -f 64; exec $outline export Demo World out.csv)\n"
      "test $? -gt 128 && echo killed; ls out.csv*; cat out.csv");
  EXPECT_EQ(killed.out, "killed\nout.csv\nbefore\n") << killed.err;
}

// Children long before their parent: beyond 16 MB they wait in a file that has no name.
TEST_F(CommandTest, KeepsWaitingRowsInATemporaryFile) {
  std::string rows = "parent,name,formula\n";
  for (int i = 0; i < 1'500; ++i) {
    rows += "Late,m" + std::to_string(i) + "," + std::string(20'000, 'x') + "\n";
  }
  run.file("rows.csv", rows);
  ASSERT_EQ(run({"create", "Demo", "Late"}).code, 0);
  const Ended loaded = run.shell(
      "mkfifo pipe; mkdir temporary; export TMPDIR=$PWD/temporary\n"
      "$outline load Demo Late pipe & exec 3>pipe; cat rows.csv >&3\n"
      "ls temporary; ls -l /proc/[0-9]*/fd 2>/dev/null | grep -c \"$TMPDIR.*(deleted)\"\n"
      "printf ',Late,\\n' >&3; exec 3>&-; wait $!");
  EXPECT_EQ(loaded.code, 0) << loaded.err;
  EXPECT_THAT(loaded.err, HasSubstr("1501 added"));
  EXPECT_EQ(loaded.out, "1\n");
  const std::string tree = out({"tree", "Demo", "Late"});
  EXPECT_THAT(tree, StartsWith("Late\n├─ m0\n├─ m1\n├─ m2\n"));
  EXPECT_THAT(tree, HasSubstr("└─ m1499\n"));
  EXPECT_THAT(out({"show", "Demo", "Late", "m77"}), HasSubstr(std::string(20'000, 'x')));

  const Ended nowhere = run.shell(
      "$outline create Demo No --quiet; TMPDIR=$PWD/nowhere $outline load Demo No rows.csv");
  EXPECT_EQ(nowhere.code, 3);
  EXPECT_THAT(nowhere.err, HasSubstr("name a folder with room in TMPDIR"));
}

// Each piece of progress fits a terminal of 60 columns, and is gone in the end.
TEST_F(CommandTest, CutsProgressToTheTerminal) {
  ASSERT_EQ(run({"create", "Demo", "World"}).code, 0);
  run.file("head.csv", "parent,name\n,Year\n");
  run.file("tail.csv", many_rows(5'000));
  run.file("slow.sh", "(cat head.csv; sleep 1.2; cat tail.csv) | $outline load Demo World -");
  const Ended shown = run.shell("export outline; script -qec 'stty cols 60; sh slow.sh' /dev/null");
  EXPECT_EQ(shown.code, 0) << shown.out;
  EXPECT_THAT(shown.out, HasSubstr("\rloading: "));
  EXPECT_THAT(shown.out, HasSubstr("\r\x1b[K"));
  for (size_t at = 0; (at = shown.out.find("\rloading", at)) != std::string::npos; ++at) {
    EXPECT_LE(shown.out.find('\x1b', at) - at, 60U);
  }
}

}  // namespace
}  // namespace command_test
