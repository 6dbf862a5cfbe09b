// Outlines of unusual shape, and what one call costs: a parent with very many children sorted,
// moved and paged, a chain that is as deep as it is long, and a reading call beside other threads.
#include <algorithm>
#include <cstdio>
#include <functional>
#include <memory>
#include <mutex>
#include <random>
#include <stdexcept>
#include <string>
#include <thread>
#include <unordered_map>
#include <utility>
#include <vector>

#include "api/olv.h"
#include "bench/report.h"
#include "bench/store.h"

namespace {

constexpr const char* kStored = "Stored";
constexpr uint32_t kPage = 100;
constexpr int kCalls = 1'000'000;
constexpr int kThreads = 16;
constexpr int kRuns = 9;

void require(int status) {
  if (status != kStatusOk)
    throw std::runtime_error("the outline API answered " + std::to_string(status));
}

// An outline in a store of its own, with one dimension.
struct Shape {
  bench::TempFolder folder;
  bench::Store store{folder.path()};
  bench::OpenOutline outline{store, kStored};
  HMember dimension = outline.add_dimension("Product");
};

std::shared_ptr<Shape> make_wide(int64_t size) {
  auto shape = std::make_shared<Shape>();
  for (int64_t i = size; i-- > 0;) {
    shape->outline.add_member(shape->dimension, "Product", static_cast<uint32_t>(i));
  }
  return shape;
}

std::shared_ptr<Shape> make_chain(int64_t size) {
  auto shape = std::make_shared<Shape>();
  HMember parent = shape->dimension;
  for (int64_t i = 1; i < size; ++i) {
    parent = shape->outline.add_member(parent, "Link", static_cast<uint32_t>(i));
  }
  return shape;
}

double median(std::vector<double> figures) {
  std::sort(figures.begin(), figures.end());
  return figures[figures.size() / 2];
}

// Nanoseconds of processor time of the piece of work, the median of some runs.
std::string cost(const std::function<void()>& work) {
  std::vector<double> seconds;
  for (int i = 0; i < kRuns; ++i) seconds.push_back(bench::cpu_seconds(work));
  return bench::grouped(static_cast<int64_t>(median(seconds) * 1e9));
}

// One page of the children of the dimension.
void read_page(const Shape& shape, int64_t start) {
  MemberQuery query = {};
  query.queryType = kQueryChildren;
  MemberQueryCounts counts = {static_cast<uint32_t>(start), kPage, 0, 0};
  HMember* members = nullptr;
  require(OlvOtlQueryMembers(shape.outline.handle(), shape.dimension, &query, &counts, &members));
  if (counts.returned != kPage) throw std::runtime_error("a page is not full");
  require(OlvOtlFreeMembers(shape.outline.handle(), counts.returned, members));
}

void sort(const Shape& shape, uint16_t order) {
  require(OlvOtlSortChildren(shape.outline.handle(), shape.dimension, order, 0, 0));
}

void move_first_behind(const Shape& shape, HMember last) {
  HMember first = 0;
  require(OlvOtlGetChild(shape.outline.handle(), shape.dimension, &first));
  require(OlvOtlMoveMember(shape.outline.handle(), first, 0, last));
}

HMember last_child(const Shape& shape, int64_t size) {
  MemberQuery query = {};
  query.queryType = kQueryChildren;
  MemberQueryCounts counts = {static_cast<uint32_t>(size - 1), 1, 0, 0};
  HMember* members = nullptr;
  require(OlvOtlQueryMembers(shape.outline.handle(), shape.dimension, &query, &counts, &members));
  const HMember last = members[0];
  require(OlvOtlFreeMembers(shape.outline.handle(), 1, members));
  return last;
}

void measure_wide(bench::Report& report) {
  std::vector<std::vector<std::string>> rows = {{"children", "first page", "last page",
                                                 "first into last place", "sort downwards",
                                                 "per child"}};
  for (const int64_t size : report.sizes({1'000, 10'000, 100'000, 1'000'000})) {
    const auto shape = make_wide(size);
    const HMember last = last_child(*shape, size);
    read_page(*shape, size / 2);  // what is made once, for the first page behind the first
    std::vector<std::string> row = {bench::grouped(size)};
    row.push_back(cost([&] { read_page(*shape, 0); }));
    row.push_back(cost([&] { read_page(*shape, size - kPage); }));
    row.push_back(cost([&] { move_first_behind(*shape, last); }));
    const double seconds = bench::cpu_seconds([&] { sort(*shape, kSortDescending); });
    row.push_back(bench::grouped(static_cast<int64_t>(seconds * 1e9)));
    row.push_back(bench::grouped(static_cast<int64_t>(seconds * 1e9 / static_cast<double>(size))));
    rows.push_back(std::move(row));
  }
  report.figures("Children of one parent (nanoseconds; a page has 100)", std::move(rows));
}

void measure_chains(bench::Report& report) {
  bench::Table& creating =
      report.table("Creating a chain, each member below the one before", "member");
  bench::Table& opening = report.table("Opening a chain", "member");
  bench::Table& verifying = report.table("Verifying a chain", "member");
  for (const int64_t size : report.sizes({1'000, 10'000, 100'000})) {
    creating.add(size, "create", [size] { return bench::cpu_seconds([&] { make_chain(size); }); });
    opening.add(size, "open", [size] {
      const auto shape = make_chain(size);
      shape->outline.write(shape->store, kStored);
      return bench::cpu_seconds([&] { bench::OpenOutline(shape->store, kStored); });
    });
    verifying.add(size, "verify", [size] {
      const auto shape = make_chain(size);
      uint32_t global = 0;
      uint32_t count = 0;
      MemberErrorEntry* errors = nullptr;
      const double seconds = bench::cpu_seconds(
          [&] { require(OlvOtlVerifyOutline(shape->outline.handle(), &global, &count, &errors)); });
      require(OlvFree(shape->store.instance(), errors));
      return seconds;
    });
  }
}

std::vector<std::string> shuffled_names(int64_t size) {
  std::vector<std::string> names;
  for (int64_t i = 0; i < size; ++i)
    names.push_back(bench::member_name("Product", static_cast<uint32_t>(i)));
  std::shuffle(names.begin(), names.end(),
               std::mt19937(20'080));  // NOLINT(cert-msc51-cpp): the same each time
  return names;
}

// Each name once in no order, and the same in the standard library's hash table, whose growth shows
// what the caches cost.
void measure_finding(bench::Report& report) {
  bench::Table& finding = report.table("Finding by name, against a plain hash table", "member");
  for (const int64_t size : report.sizes({10'000, 100'000, 1'000'000})) {
    const auto names = std::make_shared<std::vector<std::string>>();
    const auto shape = std::make_shared<std::shared_ptr<Shape>>();
    const auto table = std::make_shared<std::unordered_map<std::string, uint32_t>>();
    const auto prepare = [=] {
      if (!names->empty()) return;
      *names = shuffled_names(size);
      *shape = make_wide(size);
      for (int64_t i = 0; i < size; ++i) {
        table->emplace(bench::member_name("Product", static_cast<uint32_t>(i)), i);
      }
    };
    finding.add(size, "find", [=] {
      prepare();
      return bench::cpu_seconds([&] {
        HMember found = 0;
        for (const std::string& name : *names) {
          require(OlvOtlFindMember((*shape)->outline.handle(), name.c_str(), &found));
        }
      });
    });
    finding.add(size, "hash table", [=] {
      prepare();
      return bench::cpu_seconds([&] {
        for (const std::string& name : *names) {
          if (table->find(name) == table->end()) throw std::logic_error("a name is gone");
        }
      });
    });
  }
}

// A call that reads one link of a member, in a process with one thread and beside others that
// sleep: locks cost more once a process has several.
void measure_calls(bench::Report& report) {
  const auto shape = make_wide(1'000);
  HMember child = 0;
  require(OlvOtlGetChild(shape->outline.handle(), shape->dimension, &child));
  const auto read = [&] {
    std::vector<double> seconds;
    for (int i = 0; i < kRuns; ++i) {
      seconds.push_back(bench::cpu_seconds([&] {
        HMember parent = 0;
        for (int call = 0; call < kCalls; ++call) {
          OlvOtlGetParent(shape->outline.handle(), child, &parent);
        }
      }));
    }
    char text[16];
    std::snprintf(text, sizeof text, "%.1f", median(seconds) * 1e9 / kCalls);
    return std::string(text);
  };
  const std::string alone = read();
  std::mutex sleeping;
  std::vector<std::thread> threads;
  std::string beside;
  {
    const std::lock_guard<std::mutex> lock(sleeping);
    for (int i = 0; i < kThreads; ++i) {
      threads.emplace_back([&] { const std::lock_guard<std::mutex> wait(sleeping); });
    }
    beside = read();
  }
  for (std::thread& thread : threads) thread.join();
  report.figures("A call that reads a member's parent (nanoseconds)",
                 {{"alone", "beside sixteen threads"}, {alone, beside}});
}

int run(int argc, char** argv) {
  bench::Report report(argc, argv, "Outlines of unusual shape, and a single call");
  measure_calls(report);
  measure_wide(report);
  measure_finding(report);
  measure_chains(report);
  return report.run();
}

}  // namespace

int main(int argc, char** argv) {
  return bench::guarded_main([&] { return run(argc, argv); });
}
