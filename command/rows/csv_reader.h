// Reads CSV records, with libcsv.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "command/rows/source.h"

namespace command {

// The cells of a record and the line on which it begins. The cells may be taken away.
using TakeRecord = std::function<void(std::vector<std::string>& cells, uint64_t line)>;

// Reads all records; comma, semicolon or tab is told by the first line. Empty lines are skipped.
// Text that is not UTF-8 and quotes out of place are thrown as a Failure with their line.
void read_csv(Source& source, const TakeRecord& take);

}  // namespace command
