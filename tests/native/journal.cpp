// The journal of a test case.
#include "tests/native/journal.h"

#include <utility>

void Journal::add(Entry kind, std::string line) {
  if (recording) lines_.push_back({kind, std::move(line)});
}

void Journal::fault(std::string what) {
  faults_.push_back(std::move(what));
}

void Journal::clear() {
  lines_.clear();
}

std::vector<std::string> Journal::lines(Entry kind) const {
  std::vector<std::string> result;
  for (const Line& line : lines_) {
    if (line.kind == kind) result.push_back(line.text);
  }
  return result;
}

std::vector<std::string> Journal::all_lines() const {
  std::vector<std::string> result;
  for (const Line& line : lines_) result.push_back(line.text);
  return result;
}

std::vector<std::string> Journal::take_faults() {
  return std::exchange(faults_, {});
}

Journal& journal() {
  static Journal instance;
  return instance;
}

std::string quoted(const char* text) {
  return text == nullptr ? "null" : '"' + std::string(text) + '"';
}
