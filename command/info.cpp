// info: what an outline is made of, in words.
#include <memory>
#include <nlohmann/json.hpp>

#include "command/commands.h"
#include "command/layer/naming.h"
#include "command/layer/properties.h"
#include "command/layer/text.h"
#include "command/subcommand.h"

namespace command {
namespace {

using Tree = nlohmann::ordered_json;

const char* type_word(int16_t type) {
  return type == 0 ? "regular" : type == 1 ? "currency" : "other";
}

Tree settings_of(const Outline& outline) {
  const Settings settings = outline.settings();
  return {{"case-sensitive", settings.case_sensitive},
          {"type", type_word(settings.type)},
          {"auto-configure", (settings.configure_flags & kConfigureAuto) != 0},
          {"warnings", (settings.configure_flags & kConfigureWarnings) != 0}};
}

// Names by number: "2 Quarter, 3 Month".
Tree names_of(const std::vector<NumberedName>& names) {
  Tree list = Tree::object();
  for (const NumberedName& name : names) list[std::to_string(name.number)] = name.name;
  return list;
}

Tree dimension_of(const Outline& outline, Member dimension) {
  const MemberInfoRecord record = dimension.record();
  uint32_t members = 0;
  for (auto at = subtree(dimension).begin(); at; ++at) ++members;
  Tree entry = {{"name", dimension.name()},
                {"category", find_property("category")->text(record.dimensionCategory)},
                {"members", members},
                {"children", record.childCount},
                {"generations", record.level + 1}};
  const auto put = [&](const char* key, Tree value) {
    if (!value.empty()) entry[key] = std::move(value);
  };
  put("generation-names", names_of(outline.generations(dimension)));
  put("level-names", names_of(outline.levels(dimension)));
  Tree attributes = Tree::array();
  for (const Member attribute : dimension.attributes()) attributes.push_back(attribute.name());
  put("attributes", std::move(attributes));
  put("udas", outline.udas_of_dimension(dimension));
  return entry;
}

Tree describe(const Outline& outline) {
  Tree info = {{"settings", settings_of(outline)}, {"alias-tables", outline.alias_tables()}};
  info["dimensions"] = Tree::array();
  for (const Member dimension : children(outline.root())) {
    info["dimensions"].push_back(dimension_of(outline, dimension));
  }
  info["time-series"] = Tree::array();
  for (const Series& series : outline.series()) {
    info["time-series"].push_back({{"name", series.name}, {"generation", series.generation}});
  }
  return info;
}

std::string words(const Tree& value) {
  if (value.is_boolean()) return value.get<bool>() ? "yes" : "no";
  if (value.is_string()) return printable(value.get<std::string>());
  if (!value.is_structured()) return value.dump();
  std::vector<std::string> items;
  for (const auto& [key, item] : value.items()) {
    items.push_back(value.is_object() ? key + " " + words(item) : words(item));
  }
  return fmt::format("{}", fmt::join(items, ", "));
}

// A line of a key and its value; long lists are wrapped on a terminal.
void print_value(Output& out, const char* margin, const std::string& key, const Tree& value) {
  const std::string begin = fmt::format("{}{:<16} ", margin, key);
  const size_t terminal = terminal_width(1);
  out.line(wrapped(begin + words(value), terminal == 0 ? SIZE_MAX : terminal, begin.size()));
}

void print(Output& out, const Tree& info) {
  for (const auto& [key, value] : info.at("settings").items()) print_value(out, "", key, value);
  print_value(out, "", "alias-tables", info.at("alias-tables"));
  if (!info.at("time-series").empty()) out.line("time-series");
  for (const Tree& series : info.at("time-series")) {
    out.print("  {} to generation {}\n", words(series.at("name")), words(series.at("generation")));
  }
  out.line(info.at("dimensions").empty() ? "no dimensions" : "dimensions");
  for (const Tree& dimension : info.at("dimensions")) {
    out.print("  {}\n", words(dimension.at("name")));
    for (const auto& [key, value] : dimension.items()) {
      if (key == "name" || (key == "category" && value == "none")) continue;
      print_value(out, "    ", key, value);
    }
  }
}

}  // namespace

void add_info(CLI::App& app, Session& session) {
  auto database = std::make_shared<Database>();
  Subcommand(app, session, "info", "Show settings, dimensions, alias tables, names and attributes",
             "info Demo World\ninfo Demo World --json", Json::kYes,
             [&session, database] {
               const Store store = session.open();
               const Tree info = describe(database->read(store));
               if (session.json) {
                 session.out.line(info.dump(2, ' ', false, Tree::error_handler_t::replace));
               } else {
                 print(session.out, info);
               }
               return kDone;
             })
      .database(database.get());
}

}  // namespace command
