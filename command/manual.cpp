// The manual page, made from the same tables as the help. The build runs this; people read the
// page.
#include <CLI/CLI.hpp>
#include <memory>

#include "command/commands.h"
#include "command/subcommand.h"

namespace command {
namespace {

// A text for troff: hyphens are minus signs, and no line begins with a request.
std::string roff(std::string_view text) {
  std::string result;
  bool line_begins = true;
  for (const char c : text) {
    if (line_begins && (c == '.' || c == '\'')) result += "\\&";
    if (c == '-') {
      result += "\\-";
    } else if (c == '\\') {
      result += "\\e";
    } else {
      result += c;
    }
    line_begins = c == '\n';
  }
  return result;
}

std::string synopsis(const CLI::App& app, const std::string& line) {
  std::string text = ".B " + roff(line) + "\n.RI [ options ]\n";
  for (const CLI::Option* option : app.get_options()) {
    if (!option->get_positional()) continue;
    const std::string name = roff(option->get_name(true));
    text += ".I " + (option->get_required() ? name : '[' + name + ']') + '\n';
  }
  return text;
}

void describe(const CLI::App& app, const std::string& line, std::string* page) {
  *page +=
      ".SS " + roff(line) + "\n" + roff(app.get_description()) + ".\n.PP\n" + synopsis(app, line);
  for (const CLI::Option* option : app.get_options()) {
    if (option->get_positional() && option->get_description().empty()) continue;
    std::string name = option->get_name(option->get_positional());
    if (!option->get_type_name().empty()) name += ' ' + option->get_type_name();
    *page += ".TP\n.B " + roff(name) + '\n' + roff(option->get_description()) + ".\n";
  }
  const std::string footer = app.get_footer();
  if (!footer.empty()) *page += ".PP\n.nf\n" + roff(footer) + "\n.fi\n";
}

void describe_all(const CLI::App& app, const std::string& line, std::string* page) {
  const auto visible = [](const CLI::App* subcommand) { return !subcommand->get_group().empty(); };
  for (const CLI::App* subcommand : app.get_subcommands(visible)) {
    const std::string below = line + ' ' + subcommand->get_name();
    if (subcommand->get_subcommands(visible).empty()) describe(*subcommand, below, page);
    describe_all(*subcommand, below, page);
  }
}

std::string manual(const CLI::App& app) {
  std::string page = ".TH OUTLINE 1 \"\" \"" + roff(app.version()) +
                     "\" \"User Commands\"\n.SH NAME\noutline \\- work on outlines of "
                     "multidimensional databases\n.SH SYNOPSIS\n.B outline\n.I COMMAND\n.RI [ "
                     "options ]\n.I ARGUMENTS\n.SH DESCRIPTION\n" +
                     roff(app.get_description()) +
                     "\nData goes to standard output, everything else to standard error.\n"
                     ".SH COMMANDS\n";
  describe_all(app, "outline", &page);
  page +=
      ".SH EXIT STATUS\n.TP\n.B 0\nDone, or equal.\n.TP\n.B 1\nDifferent, or something was found.\n"
      ".TP\n.B 2\nA wrong command line.\n.TP\n.B 3\nRefused or failed.\n"
      ".SH ENVIRONMENT\n.TP\n.B OUTLINE_STORE\nThe store, where \\-\\-store does not name one.\n";
  return page;
}

}  // namespace

void add_manual(CLI::App& app, Session& session) {
  auto file = std::make_shared<std::string>();
  CLI::App* subcommand = app.add_subcommand("manual", "Write the manual page")->group("");
  subcommand->add_option("FILE", *file, "The page to write")->required()->type_name("");
  subcommand->callback([&app, &session, file] {
    session.work = [&app, file] {
      Output page(*file);
      page.write(manual(app));
      page.finish();
      return kDone;
    };
  });
}

}  // namespace command
