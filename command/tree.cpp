// tree: the members of an outline as a tree, streamed by handle.
#include <limits>
#include <memory>

#include "command/commands.h"
#include "command/layer/naming.h"
#include "command/layer/text.h"
#include "command/subcommand.h"

namespace command {
namespace {

struct TreeOptions {
  Database database;
  std::string member;
  size_t depth = std::numeric_limits<size_t>::max();
  std::vector<std::string> tables;
};

// Draws the branches. Deep below, where they would fill the line, a number stands for them.
class Branches {
 public:
  std::string before(size_t depth, bool last) {
    last_.resize(depth + 1);
    last_[depth] = last;
    if (depth == 0) return "";
    constexpr size_t kDrawn = 24;
    const size_t first = depth > kDrawn ? depth - kDrawn : 1;
    std::string text = first > 1 ? fmt::format("⋯{} ", first - 1) : "";
    for (size_t level = first; level < depth; ++level) text += last_[level] ? "   " : "│  ";
    return text + (last ? "└─ " : "├─ ");
  }

 private:
  std::vector<bool> last_;  // by depth: no further sibling follows
};

class TreeWriter {
 public:
  TreeWriter(Output& out, const Outline& outline, const TreeOptions& options)
      : out_(out), outline_(outline), options_(options) {
    for (const std::string& table : options.tables) {
      if (!outline.has_alias_table(table)) {
        throw Failure(fmt::format("there is no alias table '{}'; the tables are: {}", table,
                                  fmt::join(outline.alias_tables(), ", ")));
      }
      tables_.push_back(inside(table));
    }
  }

  void write_text(Member top) {
    Branches branches;
    walk(top, [&](Member member, size_t depth) {
      const bool last = member == top || !member.next();
      const MemberInfoRecord record = member.record();
      std::string text = branches.before(depth, last) + printable(outside(record.name));
      const char* separator = "  ";
      for (const std::string& table : tables_) {
        const std::string alias = member.alias(table.c_str());
        if (alias.empty()) continue;
        text += separator + printable(alias);
        separator = " · ";
      }
      if (record.shareOption == kShareShared) text += "  (shared)";
      out_.line(text);
    });
  }

  void write_json(Member top) {
    size_t open = 0;  // members whose end has not been written
    out_.write("[");
    walk(top, [&](Member member, size_t depth) {
      if (open > depth) {
        for (; open > depth + 1; --open) out_.write("}]");
        out_.write("},\n");
        --open;
      } else {
        out_.write(depth == 0 ? "\n" : ",\"children\":[\n");
      }
      write_object(member);
      open = depth + 1;
    });
    for (; open > 0; --open) out_.write(open > 1 ? "}]" : "}");
    out_.line("\n]");
  }

 private:
  template <typename Visit>
  void walk(Member top, Visit&& visit) {
    for (auto at = subtree(top).begin(); at;) {
      visit(*at, at.depth());
      if (at.depth() < options_.depth) {
        ++at;
      } else {
        at.skip_children();
      }
    }
  }

  void write_object(Member member) {
    const MemberInfoRecord record = member.record();
    out_.write("{\"name\":" + json_text(outside(record.name)));
    if (record.shareOption == kShareShared) out_.write(",\"shared\":true");
    if (tables_.empty()) return;
    out_.write(",\"aliases\":{");
    const char* separator = "";
    for (size_t i = 0; i < tables_.size(); ++i) {
      const std::string alias = member.alias(tables_[i].c_str());
      if (alias.empty()) continue;
      out_.write(separator + json_text(options_.tables[i]) + ":" + json_text(alias));
      separator = ",";
    }
    out_.write("}");
  }

  Output& out_;
  const Outline& outline_;
  const TreeOptions& options_;
  std::vector<std::string> tables_;
};

int run(Session& session, const TreeOptions& options) {
  const Store store = session.open();
  const Outline outline = options.database.read(store);
  const Member top = options.member.empty() ? outline.root() : find_member(outline, options.member);
  TreeWriter writer(session.out, outline, options);
  if (session.json) {
    writer.write_json(top);
  } else {
    writer.write_text(top);
  }
  return kDone;
}

}  // namespace

void add_tree(CLI::App& app, Session& session) {
  auto options = std::make_shared<TreeOptions>();
  Subcommand(app, session, "tree", "Show members as a tree",
             "tree Demo World --depth 1\ntree Demo World --member JP --aliases Japanese",
             Json::kYes, [&session, options] { return run(session, *options); })
      .database(&options->database)
      .option("--member", &options->member, "MEMBER", "Begin with this member: its name or path")
      .number("--depth", &options->depth, "Generations to show below the beginning")
      .options("--aliases", &options->tables, "TABLE",
               "Show the aliases of this table; may be repeated");
}

}  // namespace command
