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

// Where what is broken off a line of help goes on: below the beginning of its last column.
size_t indent_of(const std::string& line, size_t width) {
  const size_t gap = line.rfind("  ");
  const size_t column = gap == std::string::npos ? 0 : gap + 2;
  return column + kLeastText > width ? 4 : column;
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
      text += (examples ? line : wrapped(line, width, indent_of(line, width))) + '\n';
    }
    return text;
  }
};

}  // namespace

void wrap_help(CLI::App& app) {
  app.formatter(std::make_shared<HelpFormatter>());
}

}  // namespace command
