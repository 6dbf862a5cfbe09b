// The layout of an icicle: each member a block below its parent's block, as wide as its share of
// the outline. What is too small to be seen is merged with its neighbours, so that the number of
// blocks is bounded whatever the size of the outline.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace command {

// One member of an outline that is given in pre-order.
struct IcicleMember {
  uint32_t depth;   // 0 for a dimension
  uint32_t weight;  // its own width, its descendants' not counted
};

// One block of the picture: a member, or a run of siblings that were merged.
struct IcicleBlock {
  uint32_t first;     // the member, or the first of the run, as its place in pre-order
  uint32_t last;      // the last of the run; the same as `first` for one member
  uint32_t siblings;  // members side by side in the block
  uint32_t members;   // these and all their descendants
  uint32_t depth;
  uint64_t start;  // in units of weight from the left
  uint64_t width;  // in units of weight
};

struct Icicle {
  std::vector<IcicleBlock> blocks;  // in pre-order
  uint64_t width = 0;               // all weights
  uint32_t rows = 0;                // depths that are drawn
  uint32_t depths = 0;              // depths that there are
};

// Lays out `members` in at most `most_rows` rows (at least 1) and `most_blocks` blocks (at least
// 2). Every member's subtree must have a width. Takes time and memory in proportion to the members.
Icicle lay_out_icicle(const std::vector<IcicleMember>& members, size_t most_blocks,
                      uint32_t most_rows);

}  // namespace command
