// completion: what a shell needs to complete command lines, made from the option tables.
#include <CLI/CLI.hpp>
#include <memory>

#include "command/commands.h"
#include "command/subcommand.h"

namespace command {
namespace {

struct Word {
  std::string text;
  std::string meaning;
};

// What may follow the words of `line`, which begin with the program's name.
struct Completions {
  std::string line;
  std::vector<Word> words;
};

void collect(const CLI::App& app, const std::string& line, std::vector<Completions>* all) {
  Completions here = {line, {}};
  std::vector<Completions> values;
  const std::vector<const CLI::App*> subcommands = app.get_subcommands(
      [](const CLI::App* subcommand) { return !subcommand->get_group().empty(); });
  for (const CLI::App* subcommand : subcommands) {
    here.words.push_back({subcommand->get_name(), subcommand->get_description()});
  }
  for (const CLI::Option* option : app.get_options()) {
    for (const std::string& name : option->get_lnames()) {
      here.words.push_back({"--" + name, option->get_description()});
      // "members|leaves", and behind a colon how that is checked.
      const std::string type = CLI::detail::split(option->get_type_name(), ':').front();
      if (type.find('|') == std::string::npos) continue;
      Completions choices = {fmt::format("{} --{}", line, name), {}};
      for (const std::string& word : CLI::detail::split(type, '|')) {
        choices.words.push_back({word, ""});
      }
      values.push_back(std::move(choices));
    }
  }
  all->push_back(std::move(here));
  all->insert(all->end(), values.begin(), values.end());
  for (const CLI::App* subcommand : subcommands) {
    collect(*subcommand, line + ' ' + subcommand->get_name(), all);
  }
}

// A text within single quotes.
std::string quoted(const std::string& text) {
  return "'" + CLI::detail::find_and_replace(text, "'", R"('\'')") + "'";
}

// The lines of a case that finds `line`: how far the words so far are known. The word before the
// one to be completed counts when it is an option with few values.
std::string known_lines(const std::vector<Completions>& all) {
  std::string text;
  for (size_t i = 1; i < all.size(); ++i) text += (i > 1 ? "|" : "") + quoted(all[i].line);
  return text;
}

std::string bash_script(const std::vector<Completions>& all) {
  std::string script =
      "# Completion of outline's command lines for bash.\n"
      "_outline() {\n"
      "  local line=outline words= i\n"
      "  for ((i = 1; i < COMP_CWORD; ++i)); do\n"
      "    case \"${line%% --*} ${COMP_WORDS[i]}\" in\n"
      "      " +
      known_lines(all) +
      ") line=\"${line%% --*} ${COMP_WORDS[i]}\" ;;\n"
      "      *) line=${line%% --*} ;;\n"
      "    esac\n"
      "  done\n"
      "  case $line in\n";
  for (const Completions& here : all) {
    script += "    " + quoted(here.line) + ") words='";
    for (const Word& word : here.words) script += word.text + ' ';
    script += "' ;;\n";
  }
  return script +
         "  esac\n"
         "  mapfile -t COMPREPLY < <(compgen -W \"$words\" -- \"${COMP_WORDS[COMP_CWORD]}\")\n"
         "}\n"
         "complete -o default -F _outline outline\n";
}

std::string zsh_script(const std::vector<Completions>& all) {
  std::string script =
      "#compdef outline\n"
      "_outline() {\n"
      "  local line=outline i\n"
      "  local -a items\n"
      "  for ((i = 2; i < CURRENT; ++i)); do\n"
      "    case \"${line%% --*} ${words[i]}\" in\n"
      "      (" +
      known_lines(all) +
      ") line=\"${line%% --*} ${words[i]}\" ;;\n"
      "      (*) line=${line%% --*} ;;\n"
      "    esac\n"
      "  done\n"
      "  case $line in\n";
  for (const Completions& here : all) {
    script += "    (" + quoted(here.line) + ") items=(";
    for (const Word& word : here.words) {
      const std::string meaning = word.meaning.empty() ? "" : ':' + word.meaning;
      script += quoted(CLI::detail::find_and_replace(word.text, ":", "\\:") + meaning) + ' ';
    }
    script += ") ;;\n";
  }
  return script +
         "  esac\n"
         "  _describe outline items\n"
         "  _files\n"
         "}\n"
         // As a file on zsh's path of functions it is called itself, else sourced.
         "if [[ ${funcstack[1]} = _outline ]]; then _outline \"$@\"\n"
         "else compdef _outline outline; fi\n";
}

}  // namespace

void add_completion(CLI::App& app, Session& session) {
  auto shell = std::make_shared<std::string>();
  CLI::App* subcommand = app.add_subcommand(
      "completion", "Write the script with which a shell completes command lines");
  subcommand->add_option("SHELL", *shell, "bash or zsh")
      ->required()
      ->check(CLI::IsMember({"bash", "zsh"}))
      ->type_name("");
  subcommand->footer("Examples:\n  source <(outline completion bash)");
  subcommand->callback([&app, &session, shell] {
    session.work = [&app, &session, shell] {
      std::vector<Completions> all;
      collect(app, "outline", &all);
      session.out.write(*shell == "bash" ? bash_script(all) : zsh_script(all));
      return kDone;
    };
  });
}

}  // namespace command
