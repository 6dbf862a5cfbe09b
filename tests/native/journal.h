// What happened while native methods ran: the API calls, Java calls and string
// accesses in order, and every fault that the harness noticed. Shared by the
// API double and the JNI probe.
#pragma once

#include <string>
#include <vector>

enum class Entry { kApi, kJava, kText };

class Journal {
 public:
  // Adds one line, unless recording is off.
  void add(Entry kind, std::string line);
  // Notes a fault; a case with faults fails.
  void fault(std::string what);
  // Forgets the lines; faults stay.
  void clear();

  // The lines of one kind, or of all kinds, in order.
  std::vector<std::string> lines(Entry kind) const;
  std::vector<std::string> all_lines() const;
  const std::vector<std::string>& faults() const { return faults_; }
  // Hands the faults over and forgets them.
  std::vector<std::string> take_faults();

  // Off for outlines so large that their lines would fill the memory.
  bool recording = true;

 private:
  struct Line {
    Entry kind;
    std::string text;
  };
  std::vector<Line> lines_;
  std::vector<std::string> faults_;
};

// The one journal of the process.
Journal& journal();

// A text in double quotes, or null.
std::string quoted(const char* text);
