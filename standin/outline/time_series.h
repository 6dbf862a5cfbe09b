// Dynamic time series of an outline: their names and the enabled ones.
#pragma once

#include <string_view>

#include "standin/outline/outline.h"

namespace standin {

// True for one of the standard entry names, spelled as they are kept: "H-T-D" (history to date),
// "Y-T-D", "S-T-D" (season), "P-T-D" (period), "Q-T-D", "M-T-D", "W-T-D" and "D-T-D".
bool is_series_name(std::string_view name);

// The enabled entry of a name; null when it is not enabled.
const SeriesEntry* find_series(const Outline& outline, std::string_view name);

// The first time dimension; 0 when there is none.
MemberId time_dimension(const Outline& outline);

// Generations of a dimension, at least 1.
inline uint32_t generation_count(const Outline& outline, MemberId dimension) {
  return outline.level(dimension) + 1;
}

}  // namespace standin
