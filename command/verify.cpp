// verify: what is wrong with an outline, member by member, in sentences.
#include <memory>

#include "command/commands.h"
#include "command/layer/naming.h"
#include "command/layer/text.h"
#include "command/subcommand.h"

namespace command {
namespace {

// The sentences of the bits in standin/verify_bits.h, from bit 0 on.
constexpr const char* kOutlineSentences[] = {
    "has no dimension but attribute dimensions", "has more than one time dimension",
    "has more than one accounts dimension",      "has more than one country dimension",
    "has two alias tables of one name",
};
constexpr const char* kMemberSentences[] = {
    "has an empty name",
    "has a name that is longer than 80 bytes",
    "has a name that begins with a character that formulas read as syntax",
    "has a name that contains a double quote, tab or line end",
    "has the same name as an earlier sibling",
    "has the name of a member elsewhere in the outline and is not marked as shared",
    "is marked as shared but its dimension has no unshared member of that name",
    "is marked as shared but has children",
    "belongs to an attribute dimension but has a formula",
    "is label only but has no children",
    "is an attribute dimension that no base dimension is associated with",
    "is a further time dimension",
    "is a further accounts dimension",
    "is a further country dimension",
};
constexpr const char* kExtendedSentences[] = {
    "has an alias that another member has in the same table",
    "has an alias that is another member's name",
    "has an alias that begins with a character that formulas read as syntax",
    "names a generation or level twice, or like a member",
    "enables a dynamic time series on a generation that it does not have",
    "has more generations below it than can be told",
};

template <size_t kCount>
void add_sentences(uint32_t bits, const char* const (&texts)[kCount],
                   std::vector<std::string>* sentences) {
  for (uint32_t bit = 0; bit < 32; ++bit) {
    if ((bits >> bit & 1) == 0) continue;
    sentences->push_back(bit < kCount ? texts[bit] : fmt::format("has the error of bit {}", bit));
  }
}

void report(Session& session, const std::string& path, const std::vector<std::string>& sentences,
            const char** separator) {
  Output& out = session.out;
  if (!session.json) {
    for (const std::string& sentence : sentences) {
      out.print("{} {}\n", path.empty() ? "the outline" : printable(path), sentence);
    }
    return;
  }
  out.print("{}\n{{", *separator);
  if (!path.empty()) out.print("\"member\":{},", json_text(path));
  out.write("\"findings\":[");
  for (size_t i = 0; i < sentences.size(); ++i) {
    out.write((i == 0 ? "" : ",") + json_text(sentences[i]));
  }
  out.write("]}");
  *separator = ",";
}

int run(Session& session, const Database& database) {
  const Store store = session.open();
  const Outline outline = database.read(store);
  const Findings findings = outline.verify();
  const char* separator = "";
  if (session.json) session.out.write("[");
  std::vector<std::string> sentences;
  add_sentences(findings.global, kOutlineSentences, &sentences);
  if (!sentences.empty()) report(session, "", sentences, &separator);
  for (const MemberFinding& finding : findings.members) {
    sentences.clear();
    add_sentences(finding.error, kMemberSentences, &sentences);
    add_sentences(finding.extended, kExtendedSentences, &sentences);
    report(session, path_of(outline, finding.member), sentences, &separator);
  }
  if (session.json) session.out.line("\n]");
  if (findings.empty()) {
    session.say(fmt::format("{} {} is in order", database.application, database.name));
    return kDone;
  }
  session.say(fmt::format("{} member{} with findings", findings.members.size(),
                          findings.members.size() == 1 ? "" : "s"));
  return kFindings;
}

}  // namespace

void add_verify(CLI::App& app, Session& session) {
  auto database = std::make_shared<Database>();
  Subcommand(app, session, "verify", "Say what is wrong with an outline; exit 1 if anything is",
             "verify Demo World\nverify Demo World --json", Json::kYes,
             [&session, database] { return run(session, *database); })
      .database(database.get());
}

}  // namespace command
