// Subcommands and their options, on CLI11.
#include "command/subcommand.h"

#include <CLI/CLI.hpp>
#include <charconv>

namespace command {

void add_common(CLI::App& app, Session& session) {
  // Not by the library's way with environment variables, which would let the variable have the last
  // word, as the subcommands share the value.
  app.add_option("--store", session.store,
                 "Folder or postgresql:// address of the databases; else OUTLINE_STORE says it")
      ->type_name("STORE")
      ->capture_default_str();
  app.add_option("--user", session.user, "Name to log in with")->type_name("NAME");
  app.add_flag("--quiet", session.quiet, "Say nothing but errors");
}

Subcommand::Subcommand(CLI::App& app, Session& session, const char* name, const char* description,
                       const char* examples, Json json, std::function<int()> run)
    : app_(app.add_subcommand(name, description)) {
  std::string footer = "Examples:";
  std::string_view left = examples;
  while (!left.empty()) {
    const size_t end = left.find('\n');
    footer += fmt::format("\n  outline {}", left.substr(0, end));
    left.remove_prefix(end == std::string_view::npos ? left.size() : end + 1);
  }
  app_->footer(footer);
  add_common(*app_, session);
  if (json == Json::kYes) app_->add_flag("--json", session.json, "Write JSON");
  app_->callback([&session, run = std::move(run)] { session.work = run; });
}

Subcommand& Subcommand::database(Database* database) {
  return positional("APP", &database->application, "Application")
      .positional("DB", &database->name, "Database");
}

Subcommand& Subcommand::positional(const char* name, std::string* value, const char* help,
                                   Given given) {
  app_->add_option(name, *value, help)->required(given == Given::kRequired)->type_name("");
  return *this;
}

Subcommand& Subcommand::positionals(const char* name, std::vector<std::string>* values,
                                    const char* help) {
  app_->add_option(name, *values, help)->required()->type_name("");
  return *this;
}

Subcommand& Subcommand::flag(const char* name, bool* value, const char* help) {
  app_->add_flag(name, *value, help);
  return *this;
}

Subcommand& Subcommand::option(const char* name, std::string* value, const char* type,
                               const char* help) {
  app_->add_option(name, *value, help)->type_name(type);
  return *this;
}

Subcommand& Subcommand::options(const char* name, std::vector<std::string>* values,
                                const char* type, const char* help) {
  app_->add_option(name, *values, help)
      ->type_name(type)
      ->expected(1)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
  return *this;
}

Subcommand& Subcommand::number(const char* name, size_t* value, const char* help) {
  const auto check = [](const std::string& text) {
    size_t number = 0;
    const char* const end = text.data() + text.size();
    const auto [at, fault] = std::from_chars(text.data(), end, number);
    return fault == std::errc() && at == end ? "" : fmt::format("'{}' is no number", text);
  };
  app_->add_option(name, *value, help)->check(CLI::Validator(check, ""))->type_name("N");
  return *this;
}

Subcommand& Subcommand::choice(const char* name, std::string* value,
                               const std::vector<std::string>& words, const char* help) {
  app_->add_option(name, *value, help)
      ->check(CLI::IsMember(words).description(""))
      ->type_name(fmt::format("{}", fmt::join(words, "|")));
  return *this;
}

CLI::App& add_group(CLI::App& app, const char* name, const char* description) {
  return *app.add_subcommand(name, description)->require_subcommand(1);
}

}  // namespace command
