// Names and enabled entries of dynamic time series.
#include "standin/outline/model/series.h"

#include <algorithm>

namespace standin {

bool is_series_name(std::string_view name) {
  return std::find(kSeriesNames.begin(), kSeriesNames.end(), name) != kSeriesNames.end();
}

const SeriesEntry* find_series(const Outline& outline, std::string_view name) {
  for (const SeriesEntry& entry : outline.series) {
    if (entry.name == name) return &entry;
  }
  return nullptr;
}

}  // namespace standin
