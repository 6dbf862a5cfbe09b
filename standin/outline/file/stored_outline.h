// Outlines in files: reading one, and replacing one so that a crash at any moment leaves the old
// outline or the new one whole.
#pragma once

#include <string>

#include "standin/outline/model/outline.h"

namespace standin {

// Reads the file at `path` into an outline that is new and empty. kNoSuchObject when there is no
// file or kNewerOutline when a later version of this engine wrote it, and the outline stays empty;
// kDamagedOutline when anything in it is not as it was written, and the outline is of no use.
int load_outline(const std::string& path, Outline* outline);

// Writes an outline to `path`, durably, in place of what is there. kNoSpace or kStoreError when
// that fails; the old file is untouched then and nothing is left beside it.
int save_outline(const Outline& outline, const std::string& path);

// Writes the outline at `path` anew, with the index of its members. An outline that somebody
// stores there meanwhile is the one that gets the index; it is never replaced by an older one.
int restructure_outline(const std::string& path);

}  // namespace standin
