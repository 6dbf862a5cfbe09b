// The file that holds an alias table: opened so that nothing but a regular file is waited for or
// written, under a path in the system's UTF-8.
#pragma once

#include <cstdio>
#include <memory>
#include <string>

namespace kepotl {

struct FileCloser {
  void operator()(FILE* file) const { std::fclose(file); }
};
using AliasFile = std::unique_ptr<FILE, FileCloser>;

// A path as the system spells it: Java's modified UTF-8 writes a character outside the basic plane
// as two halves and U+0000 as two bytes. Halves without a partner stay as they are. May throw
// std::bad_alloc.
std::string system_path(const char* modified_utf8);

// Opens a regular file for reading, or for writing from its beginning, making it where there is
// none. Null when it cannot be opened, and for folders, pipes and devices, which are neither waited
// for nor changed. May throw std::bad_alloc.
AliasFile open_alias_file(const char* modified_utf8_path, const char* mode);

// Closes a file that was written. False when not all of it reached the file.
bool close_written(AliasFile file);

}  // namespace kepotl
