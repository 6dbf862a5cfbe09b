// Measures the same work done in several ways, side by side and at growing sizes, and prints what
// came out as one table per comparison. Google Benchmark does the measuring.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace bench {

// Does a piece of work once, with what it needs before and after; seconds that the work itself
// took. Throws std::exception to give up the program.
using Run = std::function<double()>;

// Seconds of CPU time that the calling thread spends in work(). Other work on the machine disturbs
// this less than the time on the clock.
double cpu_seconds(const std::function<void()>& work);

// One comparison. The first way that is added is what is being judged, the others are what it is
// judged by.
class Table {
 public:
  Table(std::string title, std::string unit) : title_(std::move(title)), unit_(std::move(unit)) {}

  // Adds one way at one size; `size` counts the table's units that one run handles.
  void add(int64_t size, const std::string& way, Run run);

 private:
  friend class Report;
  friend class Collector;
  struct Entry {
    Run run;
    std::vector<double> seconds;  // of one run, by turn
  };
  void print() const;
  double nanoseconds_per_unit(int64_t size, const std::string& way) const;
  double ratio(int64_t size, const std::string& yardstick) const;

  std::string title_;
  std::string unit_;
  std::vector<std::string> ways_;
  std::map<int64_t, std::map<std::string, Entry>> entries_;  // by size and way
};

// What one benchmark program measures and prints.
class Report {
 public:
  // Takes the options of the command line: --quick (sizes up to 10,000), --smoke (the smallest
  // sizes, once), --turns=N. Ends the program with a message and status 2 when one is not known.
  Report(int argc, char** argv, const std::string& subject);

  // The sizes among `all` that the options allow; at least the first.
  std::vector<int64_t> sizes(const std::vector<int64_t>& all) const;
  // The largest of them.
  int64_t largest(const std::vector<int64_t>& all) const { return sizes(all).back(); }

  // Adds a line below the head of the report.
  void note(const std::string& line) { notes_.push_back(line); }

  // Adds a table; `unit` is what costs are counted by, in the singular. The reference stays good.
  Table& table(const std::string& title, const std::string& unit);

  // Adds a table of figures that were taken elsewhere; its first row is the head.
  void figures(const std::string& title, std::vector<std::vector<std::string>> rows);

  // Prints the head, runs everything and prints the tables. Exit status of the program.
  int run();

 private:
  int turns(int64_t size) const;

  std::string command_;
  std::string subject_;
  int64_t largest_;
  bool smoke_ = false;
  int turns_ = 9;
  std::vector<std::string> notes_;
  std::deque<Table> tables_;
  std::vector<std::pair<std::string, std::vector<std::vector<std::string>>>> figures_;
};

// A number with commas between the thousands.
std::string grouped(int64_t number);

// Runs a program's body; what it throws becomes a message and status 1.
int guarded_main(const std::function<int()>& body);

}  // namespace bench
