// Loading a whole file into an outline that is not saved.
#pragma once

#include <string>

#include "command/session.h"

namespace command {

// Loads a file that export wrote; anything wrong in it is a Failure. True when the file tells of
// the outline as a whole, too, and not of its members only.
bool load_for_comparison(const Session& session, const std::string& file, const Outline& outline);

}  // namespace command
