// Help that fits the terminal.
#include <CLI/CLI.hpp>
#include <algorithm>

#include "command/layer/text.h"
#include "command/output.h"
#include "command/subcommand.h"

namespace command {
namespace {

constexpr size_t kUsual = 80;  // where there is no terminal
constexpr size_t kWidest = 100;
constexpr size_t kLeastText = 20;

// Where the last column of a line of help begins; 0 when it has one only.
size_t last_column(const std::string& line) {
  const size_t gap = line.rfind("  ");
  return gap == std::string::npos ? 0 : gap + 2;
}

// Breaks a line between words; what follows stands below the beginning of its last column.
void append_wrapped(const std::string& line, size_t width, std::string* text) {
  size_t indent = last_column(line);
  if (indent + kLeastText > width) indent = 4;
  std::string left = line;
  while (columns(left) > width) {
    const size_t first_word = left.find_first_not_of(' ');
    size_t end = left.rfind(' ', width);
    if (end == std::string::npos || end < first_word) end = left.find(' ', first_word);
    if (end == std::string::npos) break;
    *text += left.substr(0, left.find_last_not_of(' ', end) + 1) + '\n';
    left = std::string(indent, ' ') +
           left.substr(std::min(left.find_first_not_of(' ', end), left.size()));
  }
  *text += left + '\n';
}

class HelpFormatter : public CLI::Formatter {
 public:
  std::string make_help(const CLI::App* app, std::string name,
                        CLI::AppFormatMode mode) const override {
    const size_t terminal = terminal_width(1);
    const size_t width = terminal == 0 ? kUsual : std::min(terminal, kWidest);
    std::istringstream help(CLI::Formatter::make_help(app, std::move(name), mode));
    std::string text;
    bool examples = false;  // which are to be copied as they are
    for (std::string line; std::getline(help, line);) {
      examples = examples || line == "Examples:";
      append_wrapped(line, examples ? std::string::npos : width, &text);
    }
    return text;
  }
};

}  // namespace

void wrap_help(CLI::App& app) {
  app.formatter(std::make_shared<HelpFormatter>());
}

}  // namespace command
