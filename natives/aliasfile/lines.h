// The alias table file: a header line, one line per member that has an alias, an end line. The
// functions that read the lines are exported (bridge/plain_helpers.h).
#pragma once

namespace kepotl {

// Bytes of a field of the file (table name, member, alias), its NUL included.
inline constexpr int kAliasFieldSize = 256;

// Most bytes that one read takes, its NUL included; a longer line is read as several.
inline constexpr int kAliasLineSize = 1023;

// What a header line says of the table.
enum class AliasHeader { kNone, kNamed, kTooLong };

// Reads the table name from a header line into a field of kAliasFieldSize bytes: left alone by a
// line that is no header, and else empty unless there is a name that fits. The line is changed.
AliasHeader read_alias_header(char* line, char* table_name);

}  // namespace kepotl
