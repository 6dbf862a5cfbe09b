// show: everything about members.
#include <memory>
#include <nlohmann/json.hpp>

#include "command/commands.h"
#include "command/layer/details.h"
#include "command/layer/naming.h"
#include "command/layer/properties.h"
#include "command/layer/text.h"
#include "command/subcommand.h"

namespace command {
namespace {

using Tree = nlohmann::ordered_json;

struct ShowOptions {
  Database database;
  std::vector<std::string> members;
};

Tree describe(const Outline& outline, const DetailsReader& reader, Member member) {
  Details details;
  reader.read(member, &details);
  const MemberInfoRecord& record = details.record;
  Tree entry = {{"name", details.name},
                {"path", path_of(outline, member)},
                {"generation", record.generation},
                {"level", record.level},
                {"children", record.childCount}};
  const auto put = [&](const char* key, Tree value) {
    if (!value.empty()) entry[key] = std::move(value);
  };
  Tree aliases = Tree::object();
  for (size_t i = 0; i < details.aliases.size(); ++i) {
    if (!details.aliases[i].empty()) aliases[reader.tables()[i]] = details.aliases[i];
  }
  put("aliases", std::move(aliases));
  put("udas", details.udas);
  Tree attributes = Tree::object();
  for (const Association& one : details.attributes) attributes[one.dimension] = one.attribute;
  put("attributes", std::move(attributes));
  const auto put_text = [&](const char* key, const std::string& text) {
    if (!text.empty()) entry[key] = text;
  };
  put_text("formula", details.formula);
  put_text("comment", details.comment);
  put_text("extended-comment", details.extended_comment);
  put_text("currency", details.currency);
  for (const Property& property : properties()) {
    entry[property.name] = property.text(property.get(record));
  }
  return entry;
}

void print(Output& out, const Tree& entry) {
  for (const auto& [key, value] : entry.items()) {
    if (value.is_object()) {
      out.line(key);
      for (const auto& [name, item] : value.items()) {
        out.print("  {:<20} {}\n", printable(name), printable(item.get<std::string>()));
      }
    } else if (value.is_array()) {
      std::vector<std::string> items;
      for (const Tree& item : value) items.push_back(printable(item.get<std::string>()));
      out.print("{:<22} {}\n", key, fmt::join(items, ", "));
    } else {
      out.print("{:<22} {}\n", key,
                value.is_string() ? printable(value.get<std::string>()) : value.dump());
    }
  }
}

int run(Session& session, const ShowOptions& options) {
  const Store store = session.open();
  const Outline outline = options.database.read(store);
  const DetailsReader reader(outline);
  // All are looked up before the first is shown.
  std::vector<Member> members;
  for (const std::string& text : options.members) members.push_back(find_member(outline, text));
  Tree list = Tree::array();
  for (size_t i = 0; i < members.size(); ++i) {
    Tree entry = describe(outline, reader, members[i]);
    if (session.json) {
      list.push_back(std::move(entry));
      continue;
    }
    if (i > 0) session.out.line("");
    print(session.out, entry);
  }
  if (session.json) {
    session.out.line(list.dump(2, ' ', false, Tree::error_handler_t::replace));
  }
  return kDone;
}

}  // namespace

void add_show(CLI::App& app, Session& session) {
  auto options = std::make_shared<ShowOptions>();
  Subcommand(app, session, "show", "Show everything about members",
             "show Demo World JP\nshow Demo World Geography/Countries", Json::kYes,
             [&session, options] { return run(session, *options); })
      .database(&options->database)
      .positionals("MEMBER", &options->members, "Members: their names or paths");
}

}  // namespace command
