// Reads and writes JSON Lines: one member, or one thing that belongs to the outline as a whole, a
// line.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "command/layer/outline.h"
#include "command/rows/loader.h"
#include "command/rows/source.h"

namespace command {

// Loads all lines. Settings and alias tables are applied as they come, names of generations and
// levels and time series when all members are there. `step` is called after each line.
void load_json_lines(Source& source, const Outline& outline, Loader& loader, Report& report,
                     const std::function<void()>& step);

// Applies one line of what belongs to the outline as a whole; a Failure says why not.
void apply_outline_line(const Outline& outline, const std::string& line);

// The lines of what belongs to the outline as a whole: those that come before the members and
// those behind them.
std::vector<std::string> outline_lines(const Outline& outline);
std::vector<std::string> closing_lines(const Outline& outline);

}  // namespace command
