// The user's folders by the rules of the XDG base directories.
#include "standin/postgresql/user_folders.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>

namespace standin::postgresql {
namespace {

std::string absolute_path_in(const char* variable) {
  const char* const path = std::getenv(variable);
  return path != nullptr && *path == '/' ? path : "";
}

std::string folder(const char* variable, const char* below_home) {
  std::string path = absolute_path_in(variable);
  if (path.empty()) {
    path = absolute_path_in("HOME");
    const passwd* const entry = path.empty() ? getpwuid(getuid()) : nullptr;
    if (entry != nullptr) path = entry->pw_dir;
    path += below_home;
  }
  return path + "/outline";
}

}  // namespace

std::string state_folder() {
  return folder("XDG_STATE_HOME", "/.local/state");
}

std::string cache_folder() {
  return folder("XDG_CACHE_HOME", "/.cache");
}

}  // namespace standin::postgresql
