// Dynamic time series of an outline: their names and the enabled ones.
#pragma once

#include <string_view>

#include "standin/outline/model/outline.h"

namespace standin {

// The standard entry names, spelled as they are kept: history, year, season, period, quarter,
// month, week and day to date.
inline constexpr std::array<std::string_view, 8> kSeriesNames = {
    "H-T-D", "Y-T-D", "S-T-D", "P-T-D", "Q-T-D", "M-T-D", "W-T-D", "D-T-D"};

// True for a standard entry name as it is kept.
bool is_series_name(std::string_view name);

// The enabled entry of a name; null when it is not enabled.
const SeriesEntry* find_series(const Outline& outline, std::string_view name);

}  // namespace standin
