// The page that shows an icicle: one self-contained SVG, or the same within an HTML page. Blocks
// have tooltips; a click on one widens it to the whole width, and its ancestors with it.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "command/picture/icicle.h"

namespace command {

// Colours of blocks: 0 for what belongs to no group, then as many groups as can be told apart.
inline constexpr size_t kPictureColours = 11;

// What stands in the page beside the blocks. Texts are UTF-8.
struct PictureCaption {
  std::string title;                // the outline
  std::string summary;              // how much it holds, and what width and colour mean
  std::vector<std::string> legend;  // what each colour means, from 0 on; an empty text is left out
  std::string unit;                 // what a block's width counts: "members" or "leaves"
};

enum class PictureFormat { kSvg, kHtml };

// The page. `name(i)` and `colour(i)` tell of the member at place i in pre-order; they are asked
// for members that are drawn, and for the ends of merged runs.
std::string write_picture(const Icicle& icicle, const PictureCaption& caption, PictureFormat format,
                          const std::function<std::string(uint32_t)>& name,
                          const std::function<uint8_t(uint32_t)>& colour);

// A whole number with separators, for people.
std::string grouped(uint64_t number);

}  // namespace command
