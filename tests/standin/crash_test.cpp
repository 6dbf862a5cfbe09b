// Processes that are killed, and disks that fill, in the middle of saving: the stored outline is
// always the old one or the new one, whole and free to be opened.
#include <fcntl.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <random>

#include "tests/long_run.h"
#include "tests/standin/editor.h"
#include "tests/standin/peer.h"

using namespace standin_test;

namespace {

size_t temporary_files(const TestStore& store) {
  size_t count = 0;
  if (on_server()) return 0;
  for (const auto& entry : std::filesystem::directory_iterator(store.folder() / "Sample/Basic")) {
    if (entry.path().extension() == ".tmp") ++count;
  }
  return count;
}

// Saves versions above `version` one after the other and tells each one that is stored.
[[noreturn]] void save_until_killed(const std::string& store, int version, int report) {
  Editor editor(store);
  for (;;) {
    editor.set_version(++version);
    if (editor.write() != 0) _exit(1);
    if (::write(report, &version, sizeof version) != sizeof version) _exit(2);
    if (version % 2 == 0 && editor.restructure() != 0) _exit(3);
  }
}

TEST(Crash, AKilledSaveLeavesTheOldOrTheNewOutline) {
  const TestStore store;
  make_outline(store.address());
  const unsigned rounds = on_server() ? long_run_number("KEPOTL_KILLS", 10) : 100;
  std::mt19937 random(20240229);
  int version = 0;
  for (unsigned round = 0; round < rounds && !testing::Test::HasFailure(); ++round) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) save_until_killed(store.address(), version, ends[1]);
    close(ends[1]);
    ASSERT_EQ(read(ends[0], &version, sizeof version), ssize_t{sizeof version});
    usleep(static_cast<useconds_t>(random() % 20000));
    ASSERT_EQ(kill(child, SIGKILL), 0);
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status)) << "the child ended by itself: " << WEXITSTATUS(status);
    while (read(ends[0], &version, sizeof version) == sizeof version) {
    }
    close(ends[0]);

    // The killed editor's lock is free, and what it was told to be stored is there.
    Editor editor(store.address());
    const int stored = editor.version();
    EXPECT_TRUE(stored == version || stored == version + 1) << stored << " after " << version;
    version = stored;
    if (round % 10 == 9) {
      EXPECT_EQ(editor.write(), 0);
      EXPECT_EQ(temporary_files(store), 0U);
    }
    editor.close();
  }
}

// The status of writing a large outline with files limited to `limit` bytes.
int write_large_with_limit(const std::string& folder, rlim_t limit) {
  const Editor editor(folder);
  const HMember dimension = editor.dimension();
  for (int i = 0; i < 20000; ++i) {
    editor.add(dimension, std::string(70, 'n') + std::to_string(i));
  }
  signal(SIGXFSZ, SIG_IGN);
  const struct rlimit limited { limit, limit };
  return setrlimit(RLIMIT_FSIZE, &limited) != 0 ? -1 : editor.write();
}

TEST(Crash, AFullDiskLeavesTheOldOutline) {
  const TestStore store;
  make_outline(store.address());
  for (const rlim_t limit : {rlim_t{200000}, rlim_t{1000000}}) {
    Peer peer(
        [&](const Peer::Pause& pause) { pause(write_large_with_limit(store.address(), limit)); });
    EXPECT_EQ(peer.wait(), standin::kNoSpace);
    EXPECT_EQ(temporary_files(store), 0U);
    peer.kill();
    Editor editor(store.address());
    EXPECT_EQ(editor.version(), 0);
    editor.close();
  }
}

}  // namespace
