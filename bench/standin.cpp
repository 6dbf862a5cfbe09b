// The stand-in's engine at growing sizes: creating, writing, opening and verifying outlines, with
// the sqlite3 shell on the same rows as the yardstick, and peak memory.
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <stdexcept>

#include "api/olv.h"
#include "bench/process.h"
#include "bench/report.h"
#include "bench/store.h"

namespace {

const std::vector<int64_t> kSizes = {10'000, 100'000, 1'000'000};
constexpr bench::Details kDetails = {true, true, true, true};
constexpr const char* kStored = "Stored";
// More than an outline takes with what working on it needs.
constexpr int64_t kBytesPerMember = 1500;

void require(bool good, const char* what) {
  if (!good) throw std::runtime_error(what);
}

// What the shell works on: the rows of a written outline as CSV files, and commands that import
// them into a new database or read them from the written one.
class ShellYardstick {
 public:
  ShellYardstick(const std::string& folder, const std::string& outline_file)
      : folder_(folder), outline_file_(outline_file) {
    std::filesystem::create_directory(folder_);
    write_script("list.sql",
                 "SELECT name FROM sqlite_schema WHERE type='table' AND name<>'member_index';\n");
    shell(outline_file_, "list.sql", "tables.txt");
    std::ostringstream dump;
    dump << ".output schema.sql\n.schema\n.mode csv\n";
    std::ifstream tables(folder_ + "/tables.txt");
    std::string import_commands;
    std::string read_commands;
    for (std::string table; std::getline(tables, table);) {
      const std::string rows = folder_ + "/" + table + ".csv";
      dump << ".output " << rows << "\nSELECT * FROM " << table << ";\n";
      import_commands += ".import --csv " + rows + " " + table + "\n";
      read_commands += "SELECT * FROM " + table + ";\n";
    }
    std::string text = dump.str();
    text.replace(text.find("schema.sql"), 10, folder_ + "/schema.sql");
    write_script("dump.sql", text);
    shell(outline_file_, "dump.sql", "dump.txt");
    write_script("import.sql",
                 "BEGIN;\n.read " + folder_ + "/schema.sql\n" + import_commands + "COMMIT;\n");
    write_script("read.sql", read_commands);
  }

  // CPU seconds for writing all rows to a new database.
  double write_rows() const {
    const std::string database = folder_ + "/copy.db";
    std::filesystem::remove(database);
    return shell(database, "import.sql", "import.txt");
  }
  // CPU seconds for reading all rows.
  double read_rows() const {
    return bench::run_sqlite_shell(outline_file_, folder_ + "/read.sql", "/dev/null");
  }

 private:
  void write_script(const char* name, const std::string& text) const {
    std::ofstream(folder_ + "/" + name) << text;
  }
  double shell(const std::string& database, const char* script, const char* output) const {
    return bench::run_sqlite_shell(database, folder_ + "/" + script, folder_ + "/" + output);
  }

  std::string folder_;
  std::string outline_file_;
};

// A store with a written outline of one size. Everything is timed in a process of its own, as a
// heap in which other outlines came and went would add to the time.
class Fixture {
 public:
  Fixture(const std::string& folder, int64_t size)
      : folder_(folder + "/store" + std::to_string(size)), size_(size) {
    bench::figure_of_child([this] {
      const bench::Store store(folder_);
      const bench::OpenOutline outline(store, kStored);
      bench::fill_bushy(outline, size_, kDetails);
      outline.write(store, kStored);
      return 0;
    });
    if (bench::has_sqlite_shell()) {
      shell_ = std::make_unique<ShellYardstick>(folder + "/shell" + std::to_string(size),
                                                bench::Store::file(folder_, kStored));
    }
  }

  const ShellYardstick* shell() const { return shell_.get(); }

  double time_creating() const {
    return bench::figure_of_child([this] {
      bench::touch_heap(size_ * kBytesPerMember);
      const bench::TempFolder folder;
      const bench::Store store(folder.path());
      const bench::OpenOutline outline(store, kStored);
      return bench::cpu_seconds([&] { bench::fill_bushy(outline, size_, kDetails); });
    });
  }
  double time_writing() const {
    return bench::figure_of_child([this] {
      bench::touch_heap(size_ * kBytesPerMember);
      const bench::Store store(folder_);
      const bench::OpenOutline outline(store, kStored);
      return bench::cpu_seconds([&] { outline.write(store, kStored); });
    });
  }
  double time_opening(bool touched) const {
    return bench::figure_of_child([this, touched] {
      if (touched) bench::touch_heap(size_ * kBytesPerMember);
      const bench::Store store(folder_);
      std::unique_ptr<bench::OpenOutline> opened;
      return bench::cpu_seconds(
          [&] { opened = std::make_unique<bench::OpenOutline>(store, kStored); });
    });
  }
  double time_verifying() const {
    return bench::figure_of_child([this] {
      bench::touch_heap(size_ * kBytesPerMember);
      const bench::Store store(folder_);
      const bench::OpenOutline outline(store, kStored);
      uint32_t global = 0;
      uint32_t count = 0;
      MemberErrorEntry* errors = nullptr;
      const double seconds = bench::cpu_seconds([&] {
        require(OlvOtlVerifyOutline(outline.handle(), &global, &count, &errors) == kStatusOk,
                "verify failed");
      });
      OlvFree(store.instance(), errors);
      require(count == 0, "the outline has errors");
      return seconds;
    });
  }

 private:
  std::string folder_;
  int64_t size_;
  std::unique_ptr<ShellYardstick> shell_;
};

// Peak memory of processes that build and write an outline, and that open it.
void measure_memory(bench::Report& report) {
  std::vector<std::vector<std::string>> rows = {{"members", "built and written", "opened"}};
  for (const int64_t size : report.sizes(kSizes)) {
    const bench::TempFolder folder;
    const int64_t built = bench::peak_memory_of([&] {
      const bench::Store store(folder.path());
      const bench::OpenOutline outline(store, kStored);
      bench::fill_bushy(outline, size, kDetails);
      outline.write(store, kStored);
    });
    const int64_t opened = bench::peak_memory_of([&] {
      const bench::Store store(folder.path());
      const bench::OpenOutline outline(store, kStored);
    });
    rows.push_back(
        {bench::grouped(size), std::to_string(built / size), std::to_string(opened / size)});
  }
  report.figures("Peak memory of a process with the outline (bytes per member)", std::move(rows));
}

int run(int argc, char** argv) {
  bench::Report report(argc, argv, "The stand-in's engine at growing sizes");
  measure_memory(report);
  const bench::TempFolder folder;
  report.note(
      "Each member has one or two aliases and an attribute, every tenth a formula, every "
      "fifth two UDAs. Each work runs in a new process with a heap that has been touched.");
  if (!bench::has_sqlite_shell()) {
    report.note("Not compared with the sqlite3 shell, which this machine has for 64 bits only.");
  }

  bench::Table& creating = report.table("Creating through the API, details included", "member");
  bench::Table& writing = report.table(
      "Writing, against the sqlite3 shell importing the same rows into a new database", "member");
  bench::Table& opening =
      report.table("Opening, against the sqlite3 shell reading the same rows", "member");
  bench::Table& verifying = report.table("Verifying", "member");
  std::vector<std::unique_ptr<Fixture>> fixtures;
  for (const int64_t size : report.sizes(kSizes)) {
    const Fixture& fixture = *fixtures.emplace_back(std::make_unique<Fixture>(folder.path(), size));
    creating.add(size, "create", [&fixture] { return fixture.time_creating(); });
    writing.add(size, "write", [&fixture] { return fixture.time_writing(); });
    opening.add(size, "open", [&fixture] { return fixture.time_opening(true); });
    opening.add(size, "with page faults", [&fixture] { return fixture.time_opening(false); });
    verifying.add(size, "verify", [&fixture] { return fixture.time_verifying(); });
    if (fixture.shell() == nullptr) continue;
    writing.add(size, "sqlite3", [&fixture] { return fixture.shell()->write_rows(); });
    opening.add(size, "sqlite3", [&fixture] { return fixture.shell()->read_rows(); });
  }
  return report.run();
}

}  // namespace

int main(int argc, char** argv) {
  return bench::guarded_main([&] { return run(argc, argv); });
}
