// The store's folder: what becomes a store, which names are allowed, and that nothing outside the
// folder is reached.
#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <thread>
#include <vector>

#include "api/olvotl.h"
#include "tests/standin/peer.h"
#include "tests/standin/sql.h"
#include "tests/standin/test_store.h"

namespace standin_test {
namespace {

namespace fs = std::filesystem;

int open_and_close(const std::string& folder) {
  INST instance = 0;
  const int status = OlvStandinInitialize(folder.c_str(), &instance);
  if (status == kStatusOk) OlvStandinTerminate(instance);
  return status;
}

TEST(StoreFolder, IsRefusedWhenItHoldsSomethingElse) {
  const TempFolder folder;
  write_file(folder / "letter.txt", "dear");
  EXPECT_EQ(open_and_close(folder.string()), standin::kNotAStore);
  EXPECT_EQ(open_and_close((folder / "letter.txt").string()), standin::kNotAStore);
  EXPECT_EQ(open_and_close((folder / "letter.txt/below").string()), standin::kNotAStore);
  EXPECT_EQ(read_file(folder / "letter.txt"), "dear");
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.string()), fs::directory_iterator()), 1);

  fs::create_directory(folder / "garbled");
  const std::string garbage(8192, 'x');
  write_file(folder / "garbled/.control.db", garbage);
  EXPECT_EQ(open_and_close((folder / "garbled").string()), standin::kNotAStore);
  EXPECT_EQ(read_file(folder / "garbled/.control.db"), garbage);

  const std::filesystem::path later = folder / "later/.control.db";
  ASSERT_EQ(open_and_close((folder / "later").string()), kStatusOk);
  std::string control = read_file(later);
  ASSERT_GE(control.size(), 100u);
  control[63] = 99;  // the file's user version is the big-endian number at byte 60
  write_file(later, control);
  EXPECT_EQ(open_and_close((folder / "later").string()), standin::kNewerStore);
}

// What the first version made, and what somebody may have put in its place.
TEST(ControlFile, OfVersionOneIsTakenOverAndOtherTablesAreRefused) {
  constexpr char kVersionOne[] = R"(
    CREATE TABLE login(
      id INTEGER PRIMARY KEY AUTOINCREMENT,
      user TEXT NOT NULL,
      boot TEXT NOT NULL, pid_space TEXT NOT NULL, pid INTEGER NOT NULL, started INTEGER NOT NULL);
    CREATE TABLE object_lock(
      object TEXT PRIMARY KEY,
      login INTEGER NOT NULL REFERENCES login ON DELETE CASCADE,
      times INTEGER NOT NULL) WITHOUT ROWID;
    CREATE INDEX object_lock_login ON object_lock(login);
    CREATE TABLE process(
      login INTEGER PRIMARY KEY REFERENCES login ON DELETE CASCADE,
      database TEXT NOT NULL UNIQUE);
    CREATE TABLE database_state(
      database TEXT PRIMARY KEY,
      data_loaded INTEGER NOT NULL DEFAULT 0,
      restructures INTEGER NOT NULL DEFAULT 0) WITHOUT ROWID;
    PRAGMA application_id = 0x4f4c5653;
    PRAGMA user_version = 1;
    PRAGMA journal_mode = WAL;
    INSERT INTO login VALUES(1, 'anna', 'boot', 'pid:[1]', 1, 1);
    INSERT INTO object_lock VALUES('Sample/Basic/Basic.otl', 1, 1);
    INSERT INTO database_state VALUES('Sample/Basic', 1, 3);)";
  const TempFolder folder;
  fs::create_directories(folder / "Sample/Basic");
  run_sql(folder / ".control.db", kVersionOne);
  {
    const Session session(folder.string());
    const HCTX context = session.login_with_database();
    uint32_t times = 0;
    EXPECT_EQ(OlvStandinRestructured(context, "Sample", "Basic", &times), kStatusOk);
    EXPECT_EQ(times, 3u);
    EXPECT_EQ(OlvLockObject(context, 1, "Sample", "Basic", "Basic"), kStatusOk);
  }
  for (const char* hostile :
       {"CREATE TRIGGER t AFTER INSERT ON login BEGIN DELETE FROM object_lock; END",
        "ALTER TABLE login RENAME TO people; CREATE VIEW login AS SELECT * FROM people"}) {
    const fs::path copy = folder / "Sample/copy";
    fs::create_directories(copy);
    fs::copy_file(folder / ".control.db", copy / ".control.db",
                  fs::copy_options::overwrite_existing);
    run_sql(copy / ".control.db", hostile);
    EXPECT_EQ(open_and_close(copy.string()), standin::kNotAStore) << hostile;
  }
}

// The control file is made by whoever comes first; the others must wait for it, not trip over it.
TEST(StoreFolder, IsMadeByManyProcessesAtOnce) {
  for (int round = 0; round < 5; ++round) {
    const TempFolder folder;
    const auto work = [&](const Peer::Pause& pause) {
      pause(0);
      pause(open_and_close((folder / "store").string()));
    };
    std::vector<std::unique_ptr<Peer>> peers;
    for (int i = 0; i < 6; ++i) peers.push_back(std::make_unique<Peer>(work));
    for (const auto& peer : peers) EXPECT_EQ(peer->wait(), 0);
    for (const auto& peer : peers) peer->go_on();
    for (const auto& peer : peers) EXPECT_EQ(peer->wait(), kStatusOk);
  }
}

std::vector<std::string> database_names(HCTX context) {
  uint32_t count = 0;
  OlvStandinDatabase* databases = nullptr;
  EXPECT_EQ(OlvStandinListDatabases(context, &count, &databases), kStatusOk);
  std::vector<std::string> names;
  for (uint32_t i = 0; i < count; ++i) {
    names.push_back(std::string(databases[i].application) + "/" + databases[i].database);
  }
  EXPECT_EQ(OlvFree(0, databases), kStatusOk);
  return names;
}

TEST(ObjectNames, OutsideTheRulesAreRefusedEverywhere) {
  const TestStore store;
  const Session session(store.address());
  const HCTX context = session.login_with_database();
  const HCTX local = session.local_context();

  const std::string too_long(31, 'n');
  for (const char* bad :
       {"", ".", "..", ".hidden", "a/b", "/", "../x", "a\\b", "a\nb", "a\x7f", too_long.c_str()}) {
    SCOPED_TRACE(bad);
    uint16_t access = 0;
    char* path = nullptr;
    ObjectInfoRecord* info = nullptr;
    DatabaseInfoRecord* database = nullptr;
    EXPECT_EQ(OlvStandinCreateDatabase(context, bad, "Basic"), standin::kBadObjectName);
    EXPECT_EQ(OlvStandinCreateDatabase(context, "Sample", bad), standin::kBadObjectName);
    EXPECT_EQ(OlvSetActive(context, bad, "Basic", &access), standin::kBadObjectName);
    EXPECT_EQ(OlvSetActive(context, "Sample", bad, &access), standin::kBadObjectName);
    EXPECT_EQ(OlvLockObject(context, 1, "Sample", "Basic", bad), standin::kBadObjectName);
    EXPECT_EQ(OlvGetObjectInfo(context, 1, "Sample", "Basic", bad, &info), standin::kBadObjectName);
    EXPECT_EQ(OlvGetDatabaseInfo(context, "Sample", bad, &database), standin::kBadObjectName);
    EXPECT_EQ(OlvGetLocalPath(local, 1, bad, "b", "c", 1, &path), standin::kBadObjectName);
    EXPECT_EQ(OlvGetLocalPath(local, 1, "a", "b", bad, 1, &path), standin::kBadObjectName);
  }
  EXPECT_EQ(database_names(context), std::vector<std::string>{"Sample/Basic"});

  const std::string longest(30, 'n');
  // The last one is no UTF-8.
  for (const char* good :
       {"a", "A b", "r\xc3\xa9gion", "control.db", longest.c_str(), "\xed\xa0\xbd\xed\xb8\x80"}) {
    EXPECT_EQ(OlvStandinCreateDatabase(context, good, good), kStatusOk) << good;
    EXPECT_EQ(OlvLockObject(context, 1, good, good, good), kStatusOk) << good;
  }
}

TEST(ObjectNames, OfWhatDoesNotExist) {
  const TestStore store;
  const Session session(store.address());
  const HCTX context = session.login_with_database();
  EXPECT_EQ(OlvStandinCreateDatabase(context, "Sample", "Basic"), standin::kDatabaseExists);
  uint16_t access = 0;
  ObjectInfoRecord* info = nullptr;
  EXPECT_EQ(OlvSetActive(context, "Sample", "None", &access), standin::kNoSuchDatabase);
  EXPECT_EQ(OlvLockObject(context, 1, "None", "Basic", "Basic"), standin::kNoSuchDatabase);
  EXPECT_EQ(OlvGetObjectInfo(context, 1, "Sample", "Basic", "Basic", &info),
            standin::kNoSuchObject);
  EXPECT_EQ(OlvGetObjectInfo(context, 2, "Sample", "Basic", "Basic", &info), standin::kBadArgument);
}

TEST(ObjectNames, LinksDoNotLeadOutOfTheStore) {
  const TempFolder folder;
  const Session session((folder / "store").string());
  const HCTX context = session.login_with_database();
  fs::create_directories(folder / "outside/Basic");
  write_file(folder / "outside/secret", "secret");
  fs::create_symlink(folder / "outside", folder / "store/Link");
  fs::create_symlink(folder / "outside", folder / "store/Sample/Link");
  fs::create_symlink(folder / "outside/secret", folder / "store/Sample/Basic/Basic.otl");

  uint16_t access = 0;
  ObjectInfoRecord* info = nullptr;
  EXPECT_EQ(OlvSetActive(context, "Link", "Basic", &access), standin::kNoSuchDatabase);
  EXPECT_EQ(OlvSetActive(context, "Sample", "Link", &access), standin::kNoSuchDatabase);
  EXPECT_NE(OlvStandinCreateDatabase(context, "Link", "New"), kStatusOk);
  EXPECT_FALSE(fs::exists(folder / "outside/New"));
  EXPECT_EQ(OlvGetObjectInfo(context, 1, "Sample", "Basic", "Basic", &info), standin::kStoreError);

  const ObjectDefinitionRecord link{context, 1, "Sample", "Basic", "Basic"};
  HOutline h = 0;
  EXPECT_NE(OlvOtlOpenOutline(context, &link, 1, 1, &h), kStatusOk);
  double count = 0;
  EXPECT_EQ(OlvSetActive(context, "Sample", "Basic", &access), kStatusOk);
  EXPECT_NE(OlvPartitionGetAreaCellCount(context, "", &count), kStatusOk);
}

TEST(DatabaseState, OutlivesSessionsButNotTheDatabase) {
  const TestStore store;
  HCTX context = 0;
  const auto is_loaded = [&] {
    DatabaseInfoRecord* info = nullptr;
    EXPECT_EQ(OlvGetDatabaseInfo(context, "Sample", "Basic", &info), kStatusOk);
    const bool loaded = info->dataLoaded != 0;
    EXPECT_EQ(OlvFree(0, info), kStatusOk);
    return loaded;
  };
  const auto restructured = [&] {
    uint32_t times = 99;
    EXPECT_EQ(OlvStandinRestructured(context, "Sample", "Basic", &times), kStatusOk);
    return times;
  };
  {
    const Session session(store.address());
    context = session.login_with_database();
    EXPECT_FALSE(is_loaded());
    EXPECT_EQ(restructured(), 0u);
    EXPECT_EQ(OlvStandinSetDataLoaded(context, "Sample", "Basic", 1), kStatusOk);
    const ObjectDefinitionRecord basic{context, 1, "Sample", "Basic", "Basic"};
    HOutline h = 0;
    ASSERT_EQ(OlvOtlOpenOutline(context, &basic, 1, 1, &h), kStatusOk);
    ASSERT_EQ(OlvOtlWriteOutline(h, &basic), kStatusOk);
    for (int time = 0; time < 2; ++time) {
      EXPECT_EQ(OlvOtlRestructure(context, 1), kStatusOk);
      EXPECT_EQ(wait_for_process(context), kStatusOk);
    }
  }
  const Session session(store.address());
  context = session.login();
  EXPECT_TRUE(is_loaded());
  EXPECT_EQ(restructured(), 2u);
  EXPECT_EQ(OlvStandinSetDataLoaded(context, "Sample", "Basic", 0), kStatusOk);
  EXPECT_FALSE(is_loaded());

  ASSERT_EQ(OlvStandinDeleteDatabase(context, "Sample", "Basic"), kStatusOk);
  EXPECT_EQ(OlvStandinSetDataLoaded(context, "Sample", "Basic", 1), standin::kNoSuchDatabase);
  ASSERT_EQ(OlvStandinCreateDatabase(context, "Sample", "Basic"), kStatusOk);
  EXPECT_EQ(restructured(), 0u);
}

TEST(StatusText, IsASentenceOfItsOwnForEveryStatus) {
  std::set<std::string> texts{OlvStandinStatusText(12345)};
  std::vector<int> statuses = {kStatusOk, kStatusRefused, kStatusCopyFailed,
                               kStatusAliasTableExists, kStatusDuplicateName};
  for (int status = standin::kBadInstance; status <= standin::kSaveUnknown; ++status) {
    statuses.push_back(status);
  }
  for (const int status : statuses) {
    const std::string text = OlvStandinStatusText(status);
    EXPECT_EQ(text.back(), '.') << status;
    EXPECT_TRUE(texts.insert(text).second) << status << ": " << text;
  }
}

}  // namespace
}  // namespace standin_test
