// How a subcommand describes itself to the command line.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "command/session.h"

namespace CLI {
class App;
}

namespace command {

enum class Json { kNo, kYes };
enum class Given { kRequired, kOptional };

// Adds the options that every subcommand has, and the program itself for those who name them first.
void add_common(CLI::App& app, Session& session);

// A subcommand with the common options. What its options set has to live as long as its work.
class Subcommand {
 public:
  // `app` may be another subcommand's. `run` is the work. The examples are lines of command lines
  // without the program's name.
  Subcommand(CLI::App& app, Session& session, const char* name, const char* description,
             const char* examples, Json json, std::function<int()> run);

  Subcommand& database(Database* database);
  Subcommand& positional(const char* name, std::string* value, const char* help,
                         Given given = Given::kRequired);
  // One or more words.
  Subcommand& positionals(const char* name, std::vector<std::string>* values, const char* help);
  Subcommand& flag(const char* name, bool* value, const char* help);
  Subcommand& option(const char* name, std::string* value, const char* type, const char* help);
  // An option that may be given more than once.
  Subcommand& options(const char* name, std::vector<std::string>* values, const char* type,
                      const char* help);
  Subcommand& number(const char* name, size_t* value, const char* help);
  // An option that takes one of a few words.
  Subcommand& choice(const char* name, std::string* value, const std::vector<std::string>& words,
                     const char* help);

 private:
  CLI::App* app_;
};

// Has the help of a program and of the subcommands that it gets wrapped to the terminal's width.
void wrap_help(CLI::App& app);

// Adds a subcommand that only holds others.
CLI::App& add_group(CLI::App& app, const char* name, const char* description);

}  // namespace command
