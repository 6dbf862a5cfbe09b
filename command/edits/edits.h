// Single edits of an outline, as commands of their own and as lines of a script.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "command/layer/outline.h"

namespace CLI {
class App;
}

namespace command {

// What the words of one edit say.
struct Edit {
  std::string verb;
  std::string member;
  std::string text;    // new name, value
  std::string second;  // alias table, dimension, number
  std::string below;
  std::string after;
  bool first = false;
  bool repeat = false;
  bool subtree = false;
  bool descending = false;
  bool remove = false;
  std::vector<std::string> values;  // FIELD=VALUE
};

// Does an edit; a Failure says why not, and the outline may then be half changed.
void perform(const Outline& outline, const Edit& edit);

// Reads scripts: one edit a line. Blank lines and lines that begin with a number sign are skipped.
class ScriptParser {
 public:
  ScriptParser();
  ~ScriptParser();
  // False for a line without an edit. A Failure says what is wrong with the line.
  bool parse(const std::string& line, Edit* edit);

 private:
  std::unique_ptr<CLI::App> app_;
  Edit edit_;
};

// The words of a line: separated by blanks; one that holds blanks, quotes or other marks is a JSON
// string.
std::vector<std::string> split_words(const std::string& line);
std::string join_words(const std::vector<std::string>& words);

// The edits that are subcommands as well, and those that only scripts have. `define` adds the one
// of a name with its words to a parser.
struct EditVerb {
  const char* name;
  const char* description;
  const char* example;
  bool subcommand;
  std::function<void(CLI::App& app, Edit& edit)> define;
};
const std::vector<EditVerb>& edit_verbs();

}  // namespace command
