// Lines of scripts.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <nlohmann/json.hpp>

#include "command/edits/edits.h"
#include "command/layer/formatting.h"
#include "command/layer/similar.h"

namespace command {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";

bool is_plain(const std::string& word) {
  return !word.empty() && word.front() != '#' && std::none_of(word.begin(), word.end(), [](char c) {
    return static_cast<unsigned char>(c) <= ' ' || c == '"' || c == '\\' || c == '\'';
  });
}

}  // namespace

std::vector<std::string> split_words(const std::string& line) {
  std::vector<std::string> words;
  for (size_t at = 0; (at = line.find_first_not_of(kBlanks, at)) != std::string::npos;) {
    size_t end = at;
    if (line[at] != '"') {
      end = std::min(line.find_first_of(kBlanks, at), line.size());
      words.push_back(line.substr(at, end - at));
    } else {
      for (++end; end < line.size() && line[end] != '"'; ++end) end += line[end] == '\\' ? 1 : 0;
      if (end >= line.size()) throw Failure("a quote is left open");
      ++end;
      try {
        words.push_back(nlohmann::json::parse(line.substr(at, end - at)).get<std::string>());
      } catch (const nlohmann::json::exception&) {
        throw Failure(fmt::format("{} is no JSON string", line.substr(at, end - at)));
      }
      if (end < line.size() && kBlanks.find(line[end]) == std::string_view::npos) {
        throw Failure("a blank has to follow a closing quote; quote the whole word as JSON does");
      }
    }
    at = end;
  }
  return words;
}

std::string join_words(const std::vector<std::string>& words) {
  std::string line;
  for (const std::string& word : words) {
    if (!line.empty()) line += ' ';
    line += is_plain(word) ? word : nlohmann::json(word).dump();
  }
  return line;
}

ScriptParser::ScriptParser() : app_(std::make_unique<CLI::App>()) {
  app_->set_help_flag();
  app_->require_subcommand(1);
  for (const EditVerb& verb : edit_verbs()) {
    CLI::App* subcommand = app_->add_subcommand(verb.name);
    subcommand->set_help_flag();
    verb.define(*subcommand, edit_);
  }
}

ScriptParser::~ScriptParser() = default;

bool ScriptParser::parse(const std::string& line, Edit* edit) {
  const size_t first = line.find_first_not_of(kBlanks);
  if (first == std::string::npos || line[first] == '#') return false;
  std::vector<std::string> words = split_words(line);
  const std::string verb = words.front();
  const auto& verbs = edit_verbs();
  if (std::none_of(verbs.begin(), verbs.end(),
                   [&](const EditVerb& known) { return known.name == verb; })) {
    Similar similar(verb);
    for (const EditVerb& known : verbs) similar.offer(known.name);
    throw Failure(fmt::format("there is no edit '{}'{}", verb, similar.sentence()));
  }
  edit_ = Edit();
  std::reverse(words.begin(), words.end());  // as CLI11 takes them
  try {
    app_->parse(words);
  } catch (const CLI::ParseError& error) {
    throw Failure(error.what());
  }
  edit_.verb = verb;
  *edit = edit_;
  return true;
}

}  // namespace command
