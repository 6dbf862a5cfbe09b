// The command line, the measuring and the tables of a benchmark program.
#include "bench/report.h"

#include <benchmark/benchmark.h>
#include <time.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <limits>
#include <stdexcept>

namespace bench {
namespace {

constexpr int64_t kQuickLargest = 10'000;
constexpr int64_t kGrowthFrom = 10'000;    // growth is told from this size on
constexpr int64_t kUnitsPerTurn = 50'000;  // small sizes run several times a turn
constexpr int64_t kLarge = 1'000'000;      // from here on half the turns have to do
constexpr int kMostTurns = 999;

double thread_cpu_now() {
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

double median(std::vector<double> values) {
  if (values.empty()) return std::numeric_limits<double>::quiet_NaN();
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

std::string fixed(double value, int digits) {
  char text[64];
  std::snprintf(text, sizeof text, "%.*f", digits, value);
  return text;
}

// Three significant digits at least, and none behind the point that mean nothing.
std::string duration(double nanoseconds) {
  return fixed(nanoseconds, nanoseconds < 100 ? 1 : 0);
}

using Row = std::vector<std::string>;

bool valid_turns(const char* text, int* turns) {
  char* end = nullptr;
  const long number = std::strtol(text, &end, 10);
  if (end == text || *end != '\0' || number < 1 || number > kMostTurns) return false;
  *turns = static_cast<int>(number);
  return true;
}

// Right-aligned columns, two blanks apart.
void print_rows(const std::vector<Row>& rows) {
  std::vector<size_t> widths;
  for (const Row& row : rows) {
    widths.resize(std::max(widths.size(), row.size()));
    for (size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], row[i].size());
  }
  for (const Row& row : rows) {
    for (size_t i = 0; i < row.size(); ++i) {
      std::printf("  %*s", static_cast<int>(widths[i]), row[i].c_str());
    }
    std::printf("\n");
  }
}

}  // namespace

// Passes what Google Benchmark measured on to the tables, and prints nothing.
class Collector : public benchmark::BenchmarkReporter {
 public:
  using Ways = std::map<std::string, Table::Entry>;

  void expect(const std::string& name, Ways* ways) { expected_[name] = ways; }
  bool failed() const { return failed_; }

  bool ReportContext(const Context&) override { return true; }
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.error_occurred) {
        std::fprintf(stderr, "%s: %s\n", run.run_name.function_name.c_str(),
                     run.error_message.c_str());
        failed_ = true;
      } else if (run.run_type == Run::RT_Iteration) {
        for (auto& [way, entry] : *expected_.at(run.run_name.function_name)) {
          entry.seconds.push_back(run.counters.at(way).value);
        }
      }
    }
  }

  // One turn: every way as often as the benchmark wants, one after the other, so that what slows
  // the machine for a while slows all of them.
  static void take_turn(benchmark::State& state, Ways& ways) {
    std::map<std::string, double> seconds;
    for (auto unused : state) {
      static_cast<void>(unused);
      try {
        double turn = 0;
        for (auto& [way, entry] : ways) {
          const double taken = entry.run();
          seconds[way] += taken;
          turn += taken;
        }
        state.SetIterationTime(turn);
      } catch (const std::exception& failure) {
        state.SkipWithError(failure.what());
        return;
      }
    }
    for (const auto& [way, taken] : seconds) {
      state.counters[way] = taken / static_cast<double>(state.iterations());
    }
  }

 private:
  std::map<std::string, Ways*> expected_;
  bool failed_ = false;
};

std::string grouped(int64_t number) {
  std::string text = std::to_string(number);
  for (int at = static_cast<int>(text.size()) - 3; at > 0; at -= 3) {
    text.insert(static_cast<size_t>(at), ",");
  }
  return text;
}

double cpu_seconds(const std::function<void()>& work) {
  const double start = thread_cpu_now();
  work();
  return thread_cpu_now() - start;
}

void Table::add(int64_t size, const std::string& way, bench::Run run) {
  if (std::find(ways_.begin(), ways_.end(), way) == ways_.end()) ways_.push_back(way);
  entries_[size][way].run = std::move(run);
}

double Table::nanoseconds_per_unit(int64_t size, const std::string& way) const {
  const auto row = entries_.find(size);
  if (row == entries_.end()) return std::numeric_limits<double>::quiet_NaN();
  const auto entry = row->second.find(way);
  if (entry == row->second.end()) return std::numeric_limits<double>::quiet_NaN();
  return median(entry->second.seconds) * 1e9 / static_cast<double>(size);
}

// The median of the ratios, turn by turn.
double Table::ratio(int64_t size, const std::string& yardstick) const {
  const auto& ways = entries_.at(size);
  const auto own = ways.find(ways_[0]);
  const auto other = ways.find(yardstick);
  if (own == ways.end() || other == ways.end()) return std::numeric_limits<double>::quiet_NaN();
  std::vector<double> ratios;
  const size_t turns = std::min(own->second.seconds.size(), other->second.seconds.size());
  for (size_t i = 0; i < turns; ++i) {
    ratios.push_back(own->second.seconds[i] / other->second.seconds[i]);
  }
  return median(std::move(ratios));
}

void Table::print() const {
  std::printf("\n%s\n(nanoseconds per %s", title_.c_str(), unit_.c_str());
  if (ways_.size() > 1) std::printf("; \"x %s\": times what that takes", ways_[1].c_str());
  const auto base = entries_.lower_bound(kGrowthFrom);
  const bool growth = base != entries_.end() && std::next(base) != entries_.end();
  if (growth) std::printf("; growth: against %s %ss", grouped(base->first).c_str(), unit_.c_str());
  std::printf(")\n");

  std::vector<Row> rows(1, Row{unit_ + "s"});
  for (const std::string& way : ways_) rows[0].push_back(way);
  for (size_t i = 1; i < ways_.size(); ++i) rows[0].push_back("x " + ways_[i]);
  if (growth) {
    for (const std::string& way : ways_) rows[0].push_back("growth " + way);
  }
  for (const auto& entry : entries_) {
    const int64_t size = entry.first;
    Row row{grouped(size)};
    const auto cell = [&](double value, int digits) {
      row.push_back(value != value ? "-" : fixed(value, digits));
    };
    for (const std::string& way : ways_) {
      const double cost = nanoseconds_per_unit(size, way);
      row.push_back(cost != cost ? "-" : duration(cost));
    }
    for (size_t i = 1; i < ways_.size(); ++i) cell(ratio(size, ways_[i]), 2);
    for (size_t i = 0; growth && i < ways_.size(); ++i) {
      cell(size < base->first
               ? std::numeric_limits<double>::quiet_NaN()
               : nanoseconds_per_unit(size, ways_[i]) / nanoseconds_per_unit(base->first, ways_[i]),
           2);
    }
    rows.push_back(std::move(row));
  }
  print_rows(rows);
}

Report::Report(int argc, char** argv, const std::string& subject)
    : subject_(subject), largest_(std::numeric_limits<int64_t>::max()) {
  const std::string program = argv[0];
  command_ = program.substr(program.rfind('/') + 1);
  for (int i = 1; i < argc; ++i) {
    const std::string option = argv[i];
    command_ += " " + option;
    if (option == "--quick") {
      largest_ = kQuickLargest;
    } else if (option.rfind("--turns=", 0) == 0 && valid_turns(option.c_str() + 8, &turns_)) {
      continue;
    } else if (option == "--smoke") {
      smoke_ = true;
      turns_ = 1;
      largest_ = 0;
    } else {
      std::fprintf(stderr,
                   "%s: unknown option '%s'.\nOptions: --quick (sizes up to 10,000), "
                   "--smoke (the smallest sizes, once), --turns=N (1 to 999; 9 unless told).\n",
                   command_.c_str(), option.c_str());
      std::exit(2);
    }
  }
}

int Report::turns(int64_t size) const {
  return size < kLarge ? turns_ : (turns_ + 1) / 2;
}

std::vector<int64_t> Report::sizes(const std::vector<int64_t>& all) const {
  std::vector<int64_t> allowed;
  for (const int64_t size : all) {
    if (size <= largest_ || allowed.empty()) allowed.push_back(size);
  }
  return allowed;
}

Table& Report::table(const std::string& title, const std::string& unit) {
  return tables_.emplace_back(title, unit);
}

void Report::figures(const std::string& title, std::vector<Row> rows) {
  figures_.emplace_back(title, std::move(rows));
}

int Report::run() {
  std::printf("%s\ncommand: %s\nwidth: %zu bits\n", subject_.c_str(), command_.c_str(),
              sizeof(void*) * 8);
  for (const std::string& line : notes_) std::printf("%s\n", line.c_str());
  if (smoke_) {
    std::printf("A smoke run: each work once, so the figures mean nothing.\n");
  } else {
    std::printf(
        "CPU time; medians of %d turns, %d from %s on. In each turn all ways run side by side.\n",
        turns_, turns(kLarge), grouped(kLarge).c_str());
  }
  std::fflush(stdout);

  Collector collector;
  for (size_t i = 0; i < tables_.size(); ++i) {
    for (auto& entry : tables_[i].entries_) {
      const int64_t size = entry.first;
      Collector::Ways& ways = entry.second;
      const std::string name = tables_[i].title_ + " (" + grouped(size) + ")";
      collector.expect(name, &ways);
      benchmark::RegisterBenchmark(
          name.c_str(), [&ways](benchmark::State& state) { Collector::take_turn(state, ways); })
          ->UseManualTime()
          ->Iterations(smoke_ ? 1 : std::max<int64_t>(1, kUnitsPerTurn / size))
          ->Repetitions(turns(size));
    }
  }
  // The turns of all sizes mix, so that growth is not what else the machine did meanwhile.
  std::string words[] = {"bench", "--benchmark_enable_random_interleaving=true"};
  char* arguments[] = {words[0].data(), words[1].data(), nullptr};
  int count = smoke_ ? 1 : 2;
  benchmark::Initialize(&count, arguments);
  benchmark::RunSpecifiedBenchmarks(&collector);
  for (const Table& table : tables_) table.print();
  for (const auto& [title, rows] : figures_) {
    std::printf("\n%s\n", title.c_str());
    print_rows(rows);
  }
  return collector.failed() ? EXIT_FAILURE : EXIT_SUCCESS;
}

int guarded_main(const std::function<int()>& body) {
  try {
    return body();
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "The benchmark cannot go on: %s\n", failure.what());
    return EXIT_FAILURE;
  }
}

}  // namespace bench
