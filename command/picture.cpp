// picture: an outline as an icicle, in one self-contained page.
#include <algorithm>
#include <map>
#include <memory>

#include "command/commands.h"
#include "command/layer/naming.h"
#include "command/layer/text.h"
#include "command/picture/page.h"
#include "command/subcommand.h"

namespace command {
namespace {

constexpr size_t kMostBytes = 1'900'000;  // of a page, so that every program opens it at ease
constexpr size_t kMostBlocks = 10'000;
constexpr uint32_t kMostRows = 60;

struct PictureOptions {
  Database database;
  std::string file;
  std::string member;
  std::string width = "members";
  std::string colour = "generation";
};

bool ends_with(const std::string& text, std::string_view end) {
  return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

PictureFormat format_of(const std::string& file) {
  if (ends_with(file, ".svg")) return PictureFormat::kSvg;
  if (ends_with(file, ".html")) return PictureFormat::kHtml;
  throw Failure(fmt::format(
      "what kind of picture shall '{}' be? Give the file a name that ends in .svg or .html", file));
}

// Gives each member its colour, and says what the colours mean.
class Colours {
 public:
  explicit Colours(const std::string& by) : by_(by) {}

  // Called for every member in turn.
  void add(Member member, size_t depth) {
    size_t group = 0;
    if (by_ == "generation") {
      group = depth + 1;
    } else if (by_ == "level") {
      group = static_cast<size_t>(std::max<int16_t>(member.record().level, 0)) + 1;
    } else if (const std::vector<std::string> udas = member.udas(); !udas.empty()) {
      group = groups_.emplace(udas.front(), groups_.size() + 1).first->second;
    }
    of_member_.push_back(static_cast<uint32_t>(group));
    if (group >= sizes_.size()) sizes_.resize(group + 1);
    ++sizes_[group];
  }

  // Called after the last member: each group gets a colour. When there are more groups than
  // colours, the last colour stands for the rest.
  std::vector<std::string> finish() {
    const bool by_uda = by_ == "uda";
    std::vector<size_t> order(sizes_.empty() ? 0 : sizes_.size() - 1);
    for (size_t i = 0; i < order.size(); ++i) order[i] = i + 1;
    if (by_uda) {
      std::stable_sort(order.begin(), order.end(),
                       [&](size_t a, size_t b) { return sizes_[a] > sizes_[b]; });
    }
    std::vector<std::string> names(sizes_.size());
    for (const auto& [name, group] : groups_) names[group] = name;
    std::vector<std::string> legend(kPictureColours);
    if (by_uda && !sizes_.empty() && sizes_[0] > 0) legend[0] = "no UDA";
    colours_.assign(sizes_.size(), 0);
    for (size_t i = 0; i < order.size(); ++i) {
      const size_t colour = std::min(i + 1, kPictureColours - 1);
      colours_[order[i]] = static_cast<uint8_t>(colour);
      const bool rest = i + 1 >= kPictureColours;
      if (by_uda) {
        legend[colour] = rest ? "other UDAs" : names[order[i]];
      } else if (by_ == "level") {
        legend[colour] = numbered("Level", colour - 1, i == 0, rest ? " and above" : "");
      } else {
        legend[colour] = numbered("Generation", colour, i == 0, rest ? " and below" : "");
      }
    }
    return legend;
  }

  uint8_t of(uint32_t place) const { return colours_[of_member_[place]]; }

 private:
  // The kind is told once: "Generation 1", "2", "3 and below".
  static std::string numbered(const char* kind, size_t number, bool first, const char* end) {
    return fmt::format("{}{}{}{}", first ? kind : "", first ? " " : "", number, end);
  }

  const std::string& by_;
  std::map<std::string, size_t> groups_;  // of UDAs
  std::vector<uint32_t> of_member_;       // the group, by place
  std::vector<size_t> sizes_;             // members, by group; 0 is for those of no group
  std::vector<uint8_t> colours_;          // by group
};

// Pre-order makes a leaf of every member that the next one does not lie below.
void weigh_leaves(std::vector<IcicleMember>* members) {
  for (size_t i = 0; i < members->size(); ++i) {
    const bool leaf = i + 1 == members->size() || (*members)[i + 1].depth <= (*members)[i].depth;
    (*members)[i].weight = leaf ? 1 : 0;
  }
}

std::string summary(const Icicle& icicle, size_t members, const PictureOptions& options) {
  std::string text = fmt::format("{} members in {} generations. Width: {}. Colour: {}.",
                                 grouped(members), icicle.depths, options.width,
                                 options.colour == "uda" ? "first UDA" : options.colour);
  if (icicle.rows < icicle.depths) {
    text += fmt::format(" What lies below the first {} generations is not drawn.", icicle.rows);
  }
  return text;
}

int run(Session& session, const PictureOptions& options) {
  const PictureFormat format = format_of(options.file);
  const Store store = session.open();
  const Outline outline = options.database.read(store);
  const Member top = options.member.empty() ? outline.root() : find_member(outline, options.member);
  std::vector<IcicleMember> members;
  std::vector<HMember> handles;
  Colours colours(options.colour);
  {
    Progress progress(session, "reading members");
    for (auto at = subtree(top).begin(); at; ++at) {
      members.push_back({static_cast<uint32_t>(at.depth()), 1});
      handles.push_back((*at).handle());
      colours.add(*at, at.depth());
      progress.step(members.size(), members.size());
    }
  }
  if (members.empty()) {
    throw Failure(
        "the outline has no members, so there is nothing to draw; load or add some first");
  }
  if (options.width == "leaves") weigh_leaves(&members);
  PictureCaption caption;
  caption.title = options.database.application + ' ' + options.database.name;
  if (top) caption.title += ": " + path_of(outline, top);
  caption.legend = colours.finish();
  caption.unit = options.width;

  std::string page;
  Icicle icicle;
  for (size_t most = kMostBlocks;; most = most * kMostBytes / page.size() * 9 / 10) {
    icicle = lay_out_icicle(members, most, kMostRows);
    caption.summary = summary(icicle, members.size(), options);
    page = write_picture(
        icicle, caption, format,
        [&](uint32_t place) { return outline.member(handles[place]).name(); },
        [&](uint32_t place) { return colours.of(place); });
    if (page.size() <= kMostBytes || most < 100) break;
  }
  Output file(options.file);
  file.write(page);
  file.finish();
  session.say(fmt::format("drew {} members in {} blocks into {}", members.size(),
                          icicle.blocks.size(), options.file));
  return kDone;
}

}  // namespace

void add_picture(CLI::App& app, Session& session) {
  auto options = std::make_shared<PictureOptions>();
  Subcommand(app, session, "picture", "Draw an outline as one page to look at and to zoom into",
             "picture Demo World world.html\n"
             "picture Demo World world.svg --member Geography --width leaves --colour level",
             Json::kNo, [&session, options] { return run(session, *options); })
      .database(&options->database)
      .positional("FILE", &options->file, "The page to write; its name ends in .svg or .html")
      .option("--member", &options->member, "MEMBER", "Draw this member and what lies below it")
      .choice("--width", &options->width, {"members", "leaves"}, "What a block's width counts")
      .choice("--colour", &options->colour, {"generation", "level", "uda"},
              "What a block's colour tells");
}

}  // namespace command
