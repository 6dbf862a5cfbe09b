// The outline command: parses the command line, runs a subcommand and turns what goes wrong into a
// message and an exit code.
#include <pwd.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdlib>
#include <new>

#include "command/commands.h"
#include "command/layer/similar.h"
#include "command/subcommand.h"

namespace command {

void add_commands(CLI::App& app, Session& session) {
  for (const auto add :
       {add_list,   add_create,  add_delete_database, add_info,        add_tree,     add_show,
        add_find,   add_load,    add_export,          add_apply,       add_edits,    add_diff,
        add_verify, add_aliases, add_save_as,         add_restructure, add_currency, add_locks,
        add_unlock, add_backup,  add_restore,         add_picture,     add_stores,   add_completion,
        add_manual}) {
    add(app, session);
  }
}

namespace {

std::string login_name() {
  if (const char* name = std::getenv("USER"); name != nullptr && *name != '\0') return name;
  const passwd* entry = getpwuid(getuid());
  return entry != nullptr ? entry->pw_name : "nobody";
}

int misuse(const std::string& message, const std::string& hint) {
  complain(message + hint);
  return kMisuse;
}

const CLI::App* find_subcommand(const CLI::App& app, const std::string& name) {
  for (const CLI::App* subcommand : app.get_subcommands({})) {
    if (subcommand->get_name() == name) return subcommand;
  }
  return nullptr;
}

// Tells what is wrong with a command line that could not be parsed: the first option or command
// that there is not, else what the parser says.
int explain(const CLI::App& program, const CLI::ParseError& error) {
  std::vector<const CLI::App*> path = {&program};
  while (!path.back()->get_subcommands().empty()) {
    path.push_back(path.back()->get_subcommands().front());
  }
  const CLI::App& last = *path.back();
  const std::vector<std::string> words = program.remaining(true);
  const auto is_option = [](const std::string& word) { return word.rfind('-', 0) == 0; };

  const auto option = std::find_if(words.begin(), words.end(), is_option);
  if (option != words.end()) {
    Similar similar(option->substr(0, option->find('=')));
    for (const CLI::Option* known : last.get_options()) {
      for (const std::string& name : known->get_lnames()) similar.offer("--" + name);
    }
    return misuse(fmt::format("there is no option '{}'", *option), similar.sentence());
  }
  const std::vector<const CLI::App*> commands = last.get_subcommands([](auto*) { return true; });
  if (commands.empty()) return misuse(error.what(), "");
  std::string line;
  for (size_t i = 1; i < path.size(); ++i) line += path[i]->get_name() + ' ';
  const std::string list = fmt::format("'outline {}--help' lists the commands", line);
  if (words.empty()) return misuse("what shall be done? ", list);
  Similar similar(words.front());
  for (const CLI::App* command : commands) similar.offer(command->get_name());
  const std::string hint = similar.sentence();
  return misuse(fmt::format("there is no command '{}{}'", line, words.front()),
                hint.empty() ? "; " + list : hint);
}

int parse_and_run(int count, char** words) {
  CLI::App app("Everything an administrator does with an outline: look, load, edit, compare, save.",
               "outline");
  Session session;
  const char* const store = std::getenv("OUTLINE_STORE");
  session.store = store != nullptr && *store != '\0' ? store : "outlines";
  session.user = login_name();
  wrap_help(app);
  app.require_subcommand(1);
  app.set_version_flag("--version",
                       "outline " KEPOTL_VERSION " (embedded engine " KEPOTL_VERSION ")",
                       "Show the versions of command and engine");
  add_common(app, session);
  add_commands(app, session);
  std::string about;
  CLI::App* help = app.add_subcommand("help", "Show what there is, or how a command is used");
  help->add_option("COMMAND", about, "The command")->type_name("");
  help->callback([&] {
    session.work = [&] {
      const CLI::App* subject = about.empty() ? &app : find_subcommand(app, about);
      if (subject == nullptr) throw Failure(fmt::format("there is no command '{}'", about));
      const std::string program = about.empty() ? "outline" : "outline " + about;
      session.out.write(
          app.get_formatter()->make_help(subject, program, CLI::AppFormatMode::Normal));
      return kDone;
    };
  });

  try {
    app.parse(count, words);
  } catch (const CLI::Success& asked) {
    std::ostringstream text;
    app.exit(asked, text, text);
    session.out.write(text.str());
    session.out.finish();
    return kDone;
  } catch (const CLI::ParseError& error) {
    return explain(app, error);
  }
  const int code = session.work();
  session.out.finish();
  return code;
}

}  // namespace
}  // namespace command

int main(int count, char** words) {
  try {
    return command::parse_and_run(count, words);
  } catch (const std::bad_alloc&) {
    command::complain("memory ran out; nothing was saved");
  } catch (const std::exception& failure) {
    command::complain(failure.what());
  }
  return command::kFailed;
}
