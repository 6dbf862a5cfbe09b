// aliases: the alias tables of an outline, and their files, byte for byte those of the natives.
#include <cstdio>
#include <memory>

#include "aliasfile/alias_file.h"
#include "aliasfile/lines.h"
#include "bridge/plain_helpers.h"
#include "command/commands.h"
#include "command/layer/naming.h"
#include "command/layer/text.h"
#include "command/subcommand.h"

namespace command {
namespace {

struct AliasOptions {
  Database database;
  std::string table;
  std::string to;
  std::string file;
  bool overwrite = false;
  bool yes = false;
};

void require_table(const Outline& outline, const std::string& table) {
  if (outline.has_alias_table(table)) return;
  throw Failure(fmt::format("there is no alias table '{}'; the tables are: {}", table,
                            fmt::join(outline.alias_tables(), ", ")));
}

uint64_t count_aliases(const Outline& outline, const std::string& table) {
  const std::string name = inside(table);
  uint64_t count = 0;
  for (const Member member : subtree(outline.root())) {
    if (!member.alias(name.c_str()).empty()) ++count;
  }
  return count;
}

int list(Session& session, const AliasOptions& options) {
  const Store store = session.open();
  const Outline outline = options.database.read(store);
  if (session.json) session.out.write("[");
  const char* separator = "";
  for (const std::string& table : outline.alias_tables()) {
    const uint64_t count = count_aliases(outline, table);
    if (session.json) {
      session.out.print("{}\n{{\"table\":{},\"aliases\":{}}}", separator, json_text(table), count);
      separator = ",";
    } else {
      session.out.print("{}  {} aliases\n", printable(table), count);
    }
  }
  if (session.json) session.out.line("\n]");
  return kDone;
}

// Opens for edit, does the work and saves.
template <typename Work>
int change(Session& session, const AliasOptions& options, Work&& work) {
  const Store store = session.open();
  const EditedOutline outline = options.database.edit(store);
  work(outline);
  outline.save();
  return kDone;
}

int clear(Session& session, const AliasOptions& options, bool whole_table) {
  return change(session, options, [&](const Outline& outline) {
    require_table(outline, options.table);
    const uint64_t count = count_aliases(outline, options.table);
    if (count > 0) {
      session.confirm(
          fmt::format("{} aliases of the table '{}' would be removed.", count, options.table),
          options.yes);
    }
    if (whole_table) {
      outline.delete_alias_table(options.table);
    } else {
      outline.clear_alias_table(options.table);
    }
  });
}

int export_table(Session& session, const AliasOptions& options) {
  const Store store = session.open();
  const Outline outline = options.database.read(store);
  require_table(outline, options.table);
  const std::string table = inside(options.table);
  kepotl::AliasFile file = kepotl::open_alias_file(inside(options.file).c_str(), "w");
  if (!file) {
    throw Failure(
        fmt::format("can't write '{}': it has to be a regular file in a folder that is "
                    "there",
                    options.file));
  }
  std::fprintf(file.get(), "$ALT_NAME  '%s'\n", table.c_str());
  uint64_t ambiguous = 0;
  uint64_t written = 0;
  for (const Member dimension : children(outline.root())) {
    for (const Member member : subtree(dimension)) {
      if (member.alias(table.c_str()).empty()) continue;
      check(CallWriteAliasToFile(outline.handle(), member.handle(), table.c_str(), file.get()),
            "write an alias");
      ++written;
      if (outline.find(member.name()) != member) ++ambiguous;
    }
  }
  std::fprintf(file.get(), "$END\n");
  if (!kepotl::close_written(std::move(file))) {
    throw Failure(fmt::format("can't write all of '{}'; make room and try again", options.file));
  }
  session.say(fmt::format("{} aliases written", written));
  if (ambiguous > 0) {
    session.say(
        fmt::format("{} of them are of shared members or repeated names: an import gives "
                    "them to the first member of the name",
                    ambiguous));
  }
  return kDone;
}

// Applies the lines of an alias file and says what could not be applied.
class Import {
 public:
  Import(Session& session, const Outline& outline, const std::string& file)
      : session_(session), outline_(outline), file_(file) {}

  // The table of the header; empty when it names none.
  std::string header(FILE* file) {
    char line[kepotl::kAliasLineSize] = "";
    char name[kepotl::kAliasFieldSize] = "";
    if (std::fgets(line, sizeof line, file) == nullptr) return "";
    ++number_;
    if (kepotl::read_alias_header(line, name) == kepotl::AliasHeader::kTooLong) {
      throw Failure(fmt::format("{}:1: the name of the table is too long", file_));
    }
    return outside(name);
  }

  void run(FILE* file, const std::string& table) {
    const std::string name = inside(table);
    char line[kepotl::kAliasLineSize];
    char member[kepotl::kAliasFieldSize];
    char alias[kepotl::kAliasFieldSize];
    while (std::fgets(line, sizeof line, file) != nullptr) {
      ++number_;
      const bool blank =
          std::string_view(line).find_first_not_of(" \t\r\n") == std::string_view::npos;
      const int fields = CallReadMemberAliasLine(line, member, alias);
      if (fields < 0) break;
      if (fields == 2) {
        apply(member, alias, name.c_str());
      } else if (!blank) {
        skip("the line has no member and alias of at most 255 bytes");
      }
    }
    if (std::ferror(file) != 0) throw Failure(fmt::format("can't read all of '{}'", file_));
  }

  uint64_t applied() const { return applied_; }
  uint64_t skipped() const { return skipped_; }

 private:
  void apply(const char* member, const char* alias, const char* table) {
    const std::vector<Member> holders = outline_.holders(outside(member));
    if (holders.empty()) return skip(fmt::format("there is no member '{}'", outside(member)));
    if (holders.size() > 1) {
      ++ambiguous_;
      if (ambiguous_ <= kShown) {
        session_.say(fmt::format("{}:{}: {} members are called '{}'; the alias goes to {}", file_,
                                 number_, holders.size(), outside(member),
                                 path_of(outline_, outline_.find(outside(member)))));
      }
    }
    try {
      outline_.find(outside(member)).set_alias(table, outside(alias));
      ++applied_;
    } catch (const Failure& failure) {
      skip(failure.what());
    }
  }

  void skip(const std::string& why) {
    if (++skipped_ <= kShown) complain(fmt::format("{}:{}: {}", file_, number_, why));
  }

  static constexpr uint64_t kShown = 20;

  Session& session_;
  const Outline& outline_;
  const std::string& file_;
  uint64_t number_ = 0;
  uint64_t applied_ = 0;
  uint64_t skipped_ = 0;
  uint64_t ambiguous_ = 0;
};

int import_table(Session& session, const AliasOptions& options) {
  const Store store = session.open();
  const kepotl::AliasFile file = kepotl::open_alias_file(inside(options.file).c_str(), "r");
  if (!file) {
    throw Failure(fmt::format("can't read '{}': there is no such regular file", options.file));
  }
  const EditedOutline outline = options.database.edit(store);
  Import import(session, outline, options.file);
  std::string table = import.header(file.get());
  if (!options.table.empty()) table = options.table;
  if (table.empty()) {
    throw Failure(
        fmt::format("{}:1: the file names no alias table; give one with --table", options.file));
  }
  if (!outline.has_alias_table(table)) {
    outline.create_alias_table(table);
  } else if (!options.overwrite && count_aliases(outline, table) > 0) {
    throw Failure(
        fmt::format("the table '{}' has aliases already; --overwrite puts the file's in "
                    "their place, member by member",
                    table));
  }
  import.run(file.get(), table);
  outline.save();
  session.say(fmt::format("{} aliases applied to the table '{}', {} lines not", import.applied(),
                          table, import.skipped()));
  return import.skipped() > 0 ? kFindings : kDone;
}

}  // namespace

void add_aliases(CLI::App& app, Session& session) {
  CLI::App& group = add_group(app, "aliases", "Work with alias tables");
  auto options = std::make_shared<AliasOptions>();
  const auto add = [&](const char* name, const char* description, const char* example,
                       std::function<int()> run, Json json = Json::kNo) {
    Subcommand subcommand(group, session, name, description, example, json, std::move(run));
    subcommand.database(&options->database);
    return subcommand;
  };
  add(
      "list", "List the tables and how many aliases they have", "aliases list Demo World",
      [&session, options] { return list(session, *options); }, Json::kYes);
  add("create", "Create an empty table", "aliases create Demo World French", [&session, options] {
    return change(session, *options,
                  [&](const Outline& outline) { outline.create_alias_table(options->table); });
  }).positional("TABLE", &options->table, "The new table");
  add("rename", "Rename a table", "aliases rename Demo World French Français",
      [&session, options] {
        return change(session, *options, [&](const Outline& outline) {
          require_table(outline, options->table);
          outline.rename_alias_table(options->table, options->to);
        });
      })
      .positional("TABLE", &options->table, "The table")
      .positional("NAME", &options->to, "Its new name");
  add("copy", "Copy a table", "aliases copy Demo World French Belgian",
      [&session, options] {
        return change(session, *options, [&](const Outline& outline) {
          require_table(outline, options->table);
          outline.copy_alias_table(options->table, options->to, options->overwrite);
        });
      })
      .positional("TABLE", &options->table, "The table")
      .positional("NAME", &options->to, "The copy")
      .flag("--overwrite", &options->overwrite, "Replace the aliases of a table that is there");
  add("clear", "Remove all aliases of a table", "aliases clear Demo World French",
      [&session, options] { return clear(session, *options, false); })
      .positional("TABLE", &options->table, "The table")
      .flag("--yes", &options->yes, "Do it without asking");
  add("delete", "Delete a table with its aliases", "aliases delete Demo World French",
      [&session, options] { return clear(session, *options, true); })
      .positional("TABLE", &options->table, "The table")
      .flag("--yes", &options->yes, "Do it without asking");
  add("export", "Write a table to a text file", "aliases export Demo World French french.txt",
      [&session, options] { return export_table(session, *options); })
      .positional("TABLE", &options->table, "The table")
      .positional("FILE", &options->file, "File to write anew");
  add("import", "Read a table from a text file", "aliases import Demo World french.txt",
      [&session, options] { return import_table(session, *options); })
      .positional("FILE", &options->file, "File that export or the Java client wrote")
      .option("--table", &options->table, "TABLE", "Table to fill instead of the one it names")
      .flag("--overwrite", &options->overwrite, "The table may have aliases already");
}

}  // namespace command
