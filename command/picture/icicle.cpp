#include "command/picture/icicle.h"

#include <algorithm>
#include <tuple>

namespace command {
namespace {

// A member with its subtree.
struct Subtree {
  uint32_t members;
  uint64_t width;
};

std::vector<Subtree> measure_subtrees(const std::vector<IcicleMember>& members, uint32_t depths) {
  std::vector<Subtree> subtrees(members.size());
  // From the back, children come before their parent: what has been seen at each depth and not yet
  // been claimed by a parent waits here.
  std::vector<Subtree> waiting(depths + 1, Subtree{0, 0});
  for (size_t i = members.size(); i-- > 0;) {
    Subtree& below = waiting[members[i].depth + 1];
    subtrees[i] = {below.members + 1, below.width + members[i].weight};
    below = {0, 0};
    Subtree& beside = waiting[members[i].depth];
    beside.members += subtrees[i].members;
    beside.width += subtrees[i].width;
  }
  return subtrees;
}

// Siblings whose blocks are still to be made.
struct Siblings {
  uint32_t begin;
  uint32_t end;  // behind the last one's subtree
  uint32_t depth;
  uint64_t start;
};

class Layout {
 public:
  Layout(const std::vector<Subtree>& subtrees, uint64_t least_width, uint32_t rows)
      : subtrees_(subtrees), least_width_(least_width), rows_(rows) {}

  // Makes the blocks. Stops early when there are more than `most`.
  std::vector<IcicleBlock> make(size_t most) {
    std::vector<Siblings> open = {{0, static_cast<uint32_t>(subtrees_.size()), 0, 0}};
    while (!open.empty() && blocks_.size() <= most) {
      const Siblings siblings = open.back();
      open.pop_back();
      place(siblings, &open);
    }
    return std::move(blocks_);
  }

 private:
  void place(const Siblings& siblings, std::vector<Siblings>* open) {
    IcicleBlock run = {};
    uint64_t start = siblings.start;
    for (uint32_t i = siblings.begin; i < siblings.end; i += subtrees_[i].members) {
      const Subtree& subtree = subtrees_[i];
      const IcicleBlock block = {i, i, 1, subtree.members, siblings.depth, start, subtree.width};
      start += subtree.width;
      if (subtree.width >= least_width_) {
        close(&run);
        blocks_.push_back(block);
        if (subtree.members > 1 && siblings.depth + 1 < rows_) {
          open->push_back({i + 1, i + subtree.members, siblings.depth + 1, block.start});
        }
        continue;
      }
      if (run.siblings == 0) {
        run = block;
      } else {
        run.last = i;
        ++run.siblings;
        run.members += subtree.members;
        run.width += subtree.width;
      }
      if (run.width >= least_width_) close(&run);
    }
    close(&run);
  }

  void close(IcicleBlock* run) {
    if (run->siblings != 0) blocks_.push_back(*run);
    run->siblings = 0;
  }

  const std::vector<Subtree>& subtrees_;
  uint64_t least_width_;
  uint32_t rows_;
  std::vector<IcicleBlock> blocks_;
};

}  // namespace

Icicle lay_out_icicle(const std::vector<IcicleMember>& members, size_t most_blocks,
                      uint32_t most_rows) {
  Icicle icicle;
  if (members.empty()) return icicle;
  for (const IcicleMember& member : members) {
    icicle.depths = std::max(icicle.depths, member.depth + 1);
    icicle.width += member.weight;
  }
  icicle.rows = std::min(icicle.depths, most_rows);
  const std::vector<Subtree> subtrees = measure_subtrees(members, icicle.depths);
  const auto blocks = [&](uint64_t least_width) {
    return Layout(subtrees, least_width, icicle.rows).make(most_blocks);
  };
  // The least width that keeps the number of blocks within bounds; the fewer are merged the better.
  uint64_t too_small = 0;
  uint64_t enough = 1;
  while (enough < icicle.width && blocks(enough).size() > most_blocks) {
    too_small = enough;
    enough *= 2;
  }
  while (enough - too_small > 1) {
    const uint64_t middle = too_small + (enough - too_small) / 2;
    (blocks(middle).size() > most_blocks ? too_small : enough) = middle;
  }
  icicle.blocks = blocks(enough);
  std::sort(icicle.blocks.begin(), icicle.blocks.end(),
            [](const IcicleBlock& a, const IcicleBlock& b) {
              return std::tie(a.start, a.depth) < std::tie(b.start, b.depth);
            });
  return icicle;
}

}  // namespace command
