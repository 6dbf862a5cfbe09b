// Where this user's files of all stores on servers lie.
#pragma once

#include <string>

namespace standin::postgresql {

// XDG_STATE_HOME/outline, or .local/state/outline in the home folder; not made here.
std::string state_folder();
// XDG_CACHE_HOME/outline, or .cache/outline in the home folder; not made here.
std::string cache_folder();

}  // namespace standin::postgresql
