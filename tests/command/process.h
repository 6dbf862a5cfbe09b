// Runs the outline command as its users do.
#pragma once

#include <set>
#include <string>
#include <vector>

namespace command_test {

struct Ended {
  int code;  // 128 + N after signal N
  std::string out;
  std::string err;
};

// Runs the command on a store of this test's own: a folder or, when KEPOTL_SERVER names the folder
// of a running PostgreSQL server, a database there.
class CommandRun {
 public:
  CommandRun();
  ~CommandRun();

  // Runs `outline WORDS...` with `input` on stdin.
  Ended operator()(const std::vector<std::string>& words, const std::string& input = "") const;
  // Runs a line of a shell in which "$outline" is the command.
  Ended shell(const std::string& line, const std::string& input = "") const;

  // Writes a file into the test's folder and answers its path.
  std::string file(const std::string& name, const std::string& content) const;
  const std::string& folder() const { return folder_; }
  const std::string& store() const { return store_; }

  // The subcommands that any test of this program has run.
  static const std::set<std::string>& tried();

 private:
  std::string folder_;
  std::string store_;
};

}  // namespace command_test
