// find: members by name, alias, UDA, formula or attribute; hits are written as they are found.
#include <algorithm>
#include <memory>

#include "bridge/plain_helpers.h"
#include "command/commands.h"
#include "command/layer/naming.h"
#include "command/layer/text.h"
#include "command/subcommand.h"
#include "standin/outline/calls/wildcard.h"

namespace command {
namespace {

struct FindOptions {
  Database database;
  std::string text;
  std::string table;
  std::string member;
  bool alias = false;
  bool uda = false;
  bool formula = false;
  bool attribute = false;
  bool name = false;
  bool word = false;
  bool match_case = false;
  bool path = false;
  size_t limit = 0;
};

// One comparison for all that is searched, the one of the native methods; wildcards match the whole
// text.
class Matcher {
 public:
  explicit Matcher(const FindOptions& options)
      : text_(inside(options.text)),
        match_case_(options.match_case),
        word_(options.word),
        wildcards_(text_.find_first_of("*?") != std::string::npos) {}

  bool operator()(const std::string& candidate) const {
    if (candidate.empty()) return false;
    if (wildcards_) return standin::matches_wildcards(text_, candidate, match_case_);
    return CallCompareStrings(text_.c_str(), candidate.c_str(), match_case_ ? 1 : 0, word_ ? 1 : 0,
                              nullptr) != 0;
  }

 private:
  std::string text_;
  bool match_case_;
  bool word_;
  bool wildcards_;
};

class Finder {
 public:
  Finder(Session& session, const Outline& outline, const FindOptions& options)
      : session_(session), outline_(outline), options_(options), matches_(options) {
    all_ = !options.name && !options.alias && options.table.empty() && !options.uda &&
           !options.formula && !options.attribute;
    tables_ = outline.alias_tables();
    if (!options.table.empty()) {
      if (!outline.has_alias_table(options.table)) {
        throw Failure(fmt::format("there is no alias table '{}'; the tables are: {}", options.table,
                                  fmt::join(tables_, ", ")));
      }
      tables_ = {options.table};
    }
  }

  size_t run(Member top) {
    if (session_.json) session_.out.write("[");
    for (const Member member : subtree(top)) {
      std::string where;
      std::string hit;
      if (!find_in(member, &where, &hit)) continue;
      report(member, where, hit);
      if (++hits_ == options_.limit) break;
    }
    if (session_.json) session_.out.line("\n]");
    return hits_;
  }

 private:
  bool find_in(Member member, std::string* where, std::string* hit) const {
    const auto test = [&](const char* place, const std::string& text) {
      if (!matches_(inside(text))) return false;
      *where = place;
      *hit = text;
      return true;
    };
    if ((all_ || options_.name) && test("name", member.name())) return true;
    if (all_ || options_.alias || !options_.table.empty()) {
      for (const std::string& table : tables_) {
        if (test(table.c_str(), member.alias(inside(table).c_str()))) return true;
      }
    }
    if (options_.uda) {
      for (const std::string& uda : member.udas()) {
        if (test("uda", uda)) return true;
      }
    }
    if (options_.attribute) {
      for (const Member attribute : member.attributes()) {
        if (test("attribute", attribute.name())) return true;
      }
    }
    return options_.formula && test("formula", member.formula());
  }

  void report(Member member, const std::string& where, const std::string& hit) {
    Output& out = session_.out;
    const std::string name = options_.path ? path_of(outline_, member) : member.name();
    if (session_.json) {
      out.print("{}\n{{\"{}\":{},\"in\":{},\"text\":{}}}", hits_ == 0 ? "" : ",",
                options_.path ? "path" : "name", json_text(name), json_text(where), json_text(hit));
    } else if (where == "name") {
      out.line(printable(name));
    } else {
      out.print("{}  {}: {}\n", printable(name), printable(where), printable(hit));
    }
  }

  Session& session_;
  const Outline& outline_;
  const FindOptions& options_;
  Matcher matches_;
  bool all_ = false;
  std::vector<std::string> tables_;
  size_t hits_ = 0;
};

int run(Session& session, const FindOptions& options) {
  if (options.text.empty()) throw Failure("give a text to look for");
  const Store store = session.open();
  const Outline outline = options.database.read(store);
  const Member top = options.member.empty() ? outline.root() : find_member(outline, options.member);
  if (Finder(session, outline, options).run(top) == 0) {
    session.say(fmt::format("nothing matches '{}'", options.text));
  }
  return kDone;
}

}  // namespace

void add_find(CLI::App& app, Session& session) {
  auto options = std::make_shared<FindOptions>();
  Subcommand(app, session, "find", "Find members by name or alias, or where you say",
             "find Demo World japan --path\nfind Demo World 'JP-0?' --name\n"
             "find Demo World island --uda --limit 20",
             Json::kYes, [&session, options] { return run(session, *options); })
      .database(&options->database)
      .positional("TEXT", &options->text, "Part of a text, or a whole one with * and ?")
      .flag("--name", &options->name, "Look in names")
      .flag("--alias", &options->alias, "Look in the aliases of all tables")
      .option("--table", &options->table, "TABLE", "Look in the aliases of this table")
      .flag("--uda", &options->uda, "Look in user-defined attributes")
      .flag("--formula", &options->formula, "Look in formulas")
      .flag("--attribute", &options->attribute, "Look in the names of associated attributes")
      .option("--member", &options->member, "MEMBER", "Look at this member and below it only")
      .flag("--word", &options->word, "Match whole words only")
      .flag("--case", &options->match_case, "Tell upper case from lower case")
      .flag("--path", &options->path, "Show paths instead of names")
      .number("--limit", &options->limit, "Stop after so many members");
}

}  // namespace command
