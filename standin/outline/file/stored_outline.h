// Outlines in files.
#pragma once

#include <string>

#include "standin/outline/model/outline.h"

namespace standin {

// Reads the file at `path` into an outline that is new and empty: load_object (client.h).
int load_outline(const std::string& path, Outline* outline);

// Writes an outline into the file at `path`, which is there and empty; nothing is synced. Both
// throw StoreFailure. The index of members is what a restructure adds.
void write_outline(const Outline& outline, const std::string& path);
void write_outline_with_index(const Outline& outline, const std::string& path);

}  // namespace standin
