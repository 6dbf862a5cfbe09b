// One store and several who use it: other users, containers, a full disk, copies of the folder.
#include <fcntl.h>
#include <grp.h>
#include <sched.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <vector>

#include "tests/long_run.h"
#include "tests/standin/editor.h"
#include "tests/standin/peer.h"
#include "tests/standin/sql.h"

using namespace standin_test;

namespace {

namespace fs = std::filesystem;
using Mode = Editor::Mode;

constexpr uid_t kNobody = 65534;

fs::path outline_file(const TempFolder& folder) {
  return folder / "Sample/Basic/Basic.otl";
}

mode_t mode_of(const fs::path& path) {
  struct stat state {};
  EXPECT_EQ(stat(path.c_str(), &state), 0);
  return state.st_mode & 07777;
}

int open_for_edit(HCTX context, HOutline* h) {
  const ObjectDefinitionRecord basic = object(context);
  return OlvOtlOpenOutline(context, &basic, 1, 1, h);
}

int unlock(HCTX context) {
  return OlvUnlockObject(context, 1, "Sample", "Basic", "Basic");
}

TEST(SharedStore, EachOpenHoldsTheLockForItself) {
  const TestStore store;
  make_outline(store.address());
  Editor editor(store.address());
  const HCTX other = editor.session.login("other");
  HOutline second = 0;
  ASSERT_EQ(open_for_edit(editor.context, &second), 0);
  EXPECT_EQ(unlock(editor.context), 0);
  EXPECT_EQ(OlvOtlCloseOutline(second), 0);

  HOutline taken = 0;
  EXPECT_EQ(open_for_edit(other, &taken), standin::kObjectLocked);
  editor.set_version(1);
  EXPECT_EQ(editor.write(), 0);
  EXPECT_EQ(unlock(editor.context), 0);
  EXPECT_EQ(open_for_edit(other, &taken), 0);
  EXPECT_EQ(editor.write(), standin::kNotLocked);
}

TEST(SharedStore, WhoHasLostTheLockWritesNothing) {
  const TestStore store;
  make_outline(store.address());
  Editor editor(store.address());
  editor.set_version(1);
  ASSERT_EQ(OlvStandinBreakLock(editor.session.instance(), "Sample/Basic/Basic"), 0);
  EXPECT_EQ(editor.write(), TestStore::lost_status());
  const Editor reader(store.address(), Mode::kQuery);
  EXPECT_EQ(reader.version(), 0);
}

TEST(SharedStore, TheEndOfALoginClosesItsOutlines) {
  const TestStore store;
  make_outline(store.address());
  Editor editor(store.address());
  const HCTX other = editor.session.login_with_database();
  HOutline kept = 0;
  ASSERT_EQ(OlvOtlOpenOutlineQuery(other, nullptr, &kept), 0);
  EXPECT_EQ(OlvStandinLogout(editor.context), 0);
  HMember first = 0;
  EXPECT_EQ(OlvOtlGetFirstMember(editor.h, &first), standin::kBadOutline);
  EXPECT_EQ(OlvOtlGetFirstMember(kept, &first), 0);
  editor.session.end();
  EXPECT_EQ(OlvOtlGetFirstMember(kept, &first), standin::kBadOutline);
}

TEST(SharedStore, ASaveKeepsTheModeAndANewFileFollowsTheUmask) {
  const TempFolder folder;
  const mode_t before = umask(027);
  make_outline(folder.string());
  umask(before);
  EXPECT_EQ(mode_of(outline_file(folder)), 0640u);
  for (const mode_t mode : {0600u, 0664u}) {
    ASSERT_EQ(chmod(outline_file(folder).c_str(), mode), 0);
    Editor editor(folder.string());
    EXPECT_EQ(editor.write(), 0);
    EXPECT_EQ(mode_of(outline_file(folder)), mode);
    EXPECT_EQ(editor.restructure(), 0);
    EXPECT_EQ(mode_of(outline_file(folder)), mode);
  }
  if (geteuid() != 0) return;  // the system lets nobody else give files away
  ASSERT_EQ(chown(outline_file(folder).c_str(), kNobody, kNobody), 0);
  Editor editor(folder.string());
  EXPECT_EQ(editor.write(), 0);
  struct stat state {};
  ASSERT_EQ(stat(outline_file(folder).c_str(), &state), 0);
  EXPECT_EQ(state.st_uid, kNobody);
  EXPECT_EQ(state.st_gid, kNobody);
}

// Who may read the folder may lock it, as a file; the control file only who may write there.
TEST(SharedStore, ReadersCanNotStallASave) {
  const TempFolder folder;
  make_outline(folder.string());
  EXPECT_EQ(mode_of(folder / ".control.db") & 0077, 0u);
  Peer reader([&](const Peer::Pause& pause) {
    const int held = open((folder / "Sample/Basic").c_str(), O_RDONLY | O_DIRECTORY);
    pause(flock(held, LOCK_EX));
  });
  ASSERT_EQ(reader.wait(), 0);
  const Editor editor(folder.string());
  EXPECT_EQ(editor.write(), 0);
}

TEST(SharedStore, WaitingForAnotherSaverHasALimit) {
  const TempFolder folder;
  make_outline(folder.string());
  Peer saver([&](const Peer::Pause& pause) {
    sqlite3* control = nullptr;
    sqlite3_open((folder / ".control.db").c_str(), &control);
    pause(sqlite3_exec(control, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr));
  });
  const Session session(folder.string());
  const HCTX context = session.login_with_database();
  ASSERT_EQ(saver.wait(), 0);
  HOutline h = 0;
  EXPECT_EQ(open_for_edit(context, &h), standin::kStoreBusy);
}

// What looking at the store gives in a process that may not, or can't, write there: the version
// that it reads, the status of counting cells and those of what needs to write.
std::vector<int> look(const std::string& folder) {
  Editor editor(folder, Mode::kQuery);
  double cells = 0;
  std::vector<int> seen{editor.version(), OlvPartitionGetAreaCellCount(editor.context, "", &cells)};
  HOutline h = 0;
  seen.push_back(open_for_edit(editor.context, &h));
  seen.push_back(OlvOtlRestructure(editor.context, 1));
  return seen;
}

void expect_looked(Peer& peer, int refusal) {
  for (const int expected : {0, 0, refusal, refusal}) {
    EXPECT_EQ(peer.wait(), expected);
    peer.go_on();
  }
  peer.join();
}

TEST(SharedStore, LookingNeedsNoRightToWrite) {
  const TempFolder folder;
  make_outline(folder.string());
  for (const char* path : {"", "Sample", "Sample/Basic"}) {
    ASSERT_EQ(chmod((folder / path).c_str(), 0555), 0);
  }
  Peer peer([&](const Peer::Pause& pause) {
    // The superuser may write everywhere.
    if (geteuid() == 0 &&
        (setgroups(0, nullptr) != 0 || setgid(kNobody) != 0 || setuid(kNobody) != 0)) {
      _exit(3);
    }
    for (const int status : look(folder.string())) pause(status);
  });
  expect_looked(peer, standin::kNotPermitted);
  for (const char* path : {"", "Sample", "Sample/Basic"}) {
    ASSERT_EQ(chmod((folder / path).c_str(), 0755), 0);
  }
}

TEST(SharedStore, LookingNeedsNoRoomOnTheDisk) {
  const TempFolder folder;
  make_outline(folder.string());
  Peer peer([&](const Peer::Pause& pause) {
    signal(SIGXFSZ, SIG_IGN);
    const struct rlimit none { 0, 0 };
    if (setrlimit(RLIMIT_FSIZE, &none) != 0) _exit(3);
    for (const int status : look(folder.string())) pause(status);
  });
  expect_looked(peer, standin::kNoSpace);
}

TEST(SharedStore, FoldersAndOutlinesAloneAreAStore) {
  const TempFolder folder;
  const TempFolder copy;
  make_outline(folder.string());
  fs::copy(folder / "Sample", copy / "Sample", fs::copy_options::recursive);
  {
    Editor editor(copy.string());
    EXPECT_EQ(editor.version(), 0);
    editor.set_version(1);
    EXPECT_EQ(editor.write(), 0);
  }
  fs::remove(copy / ".control.db");
  write_file(copy / "Sample/Basic/letter.txt", "dear");
  INST instance = 0;
  EXPECT_EQ(OlvStandinInitialize(copy.string().c_str(), &instance), standin::kNotAStore);
}

// Runs `work` as process 1 of a process namespace of its own; 77 where none can be made.
pid_t fork_as_first_process(const std::function<int()>& work) {
  const pid_t outer = fork();
  if (outer != 0) return outer;
  if (unshare(CLONE_NEWPID) != 0 && unshare(CLONE_NEWUSER | CLONE_NEWPID) != 0) _exit(77);
  const pid_t inner = fork();
  if (inner < 0) _exit(77);
  if (inner == 0) _exit(getpid() == 1 ? work() : 77);
  int status = 0;
  _exit(waitpid(inner, &status, 0) == inner && WIFEXITED(status) ? WEXITSTATUS(status) : 1);
}

// KEPOTL_ROUNDS sets how often.
TEST(SharedStore, ASaveAndARestructureOfTwoFirstProcessesLoseNothing) {
  const int rounds = static_cast<int>(long_run_number("KEPOTL_ROUNDS", 20));
  const TestStore store;
  const TempFolder folder;
  make_outline(store.address());
  const auto over = folder / "over";
  const pid_t saver = fork_as_first_process([&] {
    Editor editor(store.address());
    int failed = 0;
    for (int version = 1; version <= rounds && failed == 0; ++version) {
      editor.set_version(version);
      failed = editor.write();
      const Editor reader(store.address(), Mode::kQuery);
      if (reader.version() != version) failed = 1;
    }
    editor.session.end();
    write_file(over, "");
    return failed == 0 && !testing::Test::HasFailure() ? 0 : 1;
  });
  const pid_t restructurer = fork_as_first_process([&] {
    const Session session(store.address());
    const HCTX context = session.login_with_database();
    int failed = 0;
    for (int n = 0; failed == 0 && (n == 0 || !fs::exists(over)); ++n) {
      failed = OlvOtlRestructure(context, 1);
      if (failed == 0) failed = wait_for_process(context);
    }
    return failed == 0 ? 0 : 1;
  });
  int status[2] = {};
  ASSERT_EQ(waitpid(saver, &status[0], 0), saver);
  write_file(over, "");
  ASSERT_EQ(waitpid(restructurer, &status[1], 0), restructurer);
  if (WEXITSTATUS(status[0]) == 77) {
    GTEST_LOG_(WARNING) << "not tried: no process namespace can be made here";
    return;
  }
  EXPECT_EQ(WEXITSTATUS(status[0]), 0);
  EXPECT_EQ(WEXITSTATUS(status[1]), 0);
  const Editor editor(store.address(), Mode::kQuery);
  EXPECT_EQ(editor.version(), rounds);
}

}  // namespace
