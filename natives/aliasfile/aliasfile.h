// The alias table file: a header line, one line per member that has an alias, an end line.
#pragma once

#include <cstdio>
#include <memory>

namespace kepotl {

// Bytes of a field of the file (table name, member, alias), its NUL included.
inline constexpr int kAliasFieldSize = 256;

// Most bytes that one read takes, its NUL included; a longer line is read as several.
inline constexpr int kAliasLineSize = 1023;

struct FileCloser {
  void operator()(FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<FILE, FileCloser>;

}  // namespace kepotl
