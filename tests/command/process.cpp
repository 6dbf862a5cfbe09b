// Processes with their input and output in files of the test's folder.
#include "tests/command/process.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace command_test {
namespace {

std::string content_of(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream content;
  content << file.rdbuf();
  return content.str();
}

// Another one for each store of this process.
std::string database_name(int number) {
  return "command_" + std::to_string(getpid()) + "_" + std::to_string(number);
}

std::string quoted(const std::string& word) {
  std::string text = "'";
  for (const char c : word) text += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return text + "'";
}

std::set<std::string>& all_tried() {
  static std::set<std::string> tried;
  return tried;
}

// Notes the words that stand behind "$outline" in a line of a shell.
void note_tried(const std::string& line) {
  static const std::string kCommand = "$outline ";
  for (size_t at = 0; (at = line.find(kCommand, at)) != std::string::npos;) {
    at = line.find_first_not_of('\'', at + kCommand.size());
    if (at == std::string::npos) return;
    all_tried().insert(line.substr(at, line.find_first_of(" '|;\n", at) - at));
  }
}

}  // namespace

const std::set<std::string>& CommandRun::tried() {
  return all_tried();
}

CommandRun::CommandRun() {
  std::string name = (std::filesystem::temp_directory_path() / "outline_test.XXXXXX").string();
  folder_ = mkdtemp(name.data());
  store_ = folder_ + "/store";
  const char* const server = std::getenv("KEPOTL_SERVER");
  if (server == nullptr) return;
  static int number = 0;
  const std::string database = database_name(++number);
  store_ = "postgresql:///" + database + "?host=" + server + "&user=outline";
  shell("psql -X -q -h " + quoted(server) + " -U outline -d postgres -c 'CREATE DATABASE " +
        database + "' && $outline store init --quiet");
}

CommandRun::~CommandRun() {
  std::filesystem::remove_all(folder_);
}

std::string CommandRun::file(const std::string& name, const std::string& content) const {
  const std::string path = folder_ + "/" + name;
  std::ofstream(path, std::ios::binary) << content;
  return path;
}

Ended CommandRun::operator()(const std::vector<std::string>& words,
                             const std::string& input) const {
  std::string line = "$outline";  // a command with its words
  for (const std::string& word : words) line += " " + quoted(word);
  return shell(line, input);
}

Ended CommandRun::shell(const std::string& line, const std::string& input) const {
  note_tried(line);
  const std::string in = file("stdin", input);
  const std::string script =
      file("script", "outline=\"" OUTLINE_COMMAND "\"\nexport OUTLINE_STORE=" + quoted(store_) +
                         "\n" + line + "\n");
  const std::string command = "cd " + quoted(folder_) + " && sh " + quoted(script) + " <" +
                              quoted(in) + " >" + quoted(folder_ + "/stdout") + " 2>" +
                              quoted(folder_ + "/stderr");
  const int status = std::system(command.c_str());
  return {WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status),
          content_of(folder_ + "/stdout"), content_of(folder_ + "/stderr")};
}

}  // namespace command_test
