// What a failed operation of SQLite on its file came from.
#pragma once

#include <sqlite3.h>

#include "standin/guard.h"

namespace standin {

// The error number of the last operation that failed on the connection's file or on its journal, 0
// when none did. sqlite3_system_errno() may tell of a later one.
inline int system_error_of(sqlite3* connection) {
  for (const int code : {SQLITE_FCNTL_FILE_POINTER, SQLITE_FCNTL_JOURNAL_POINTER}) {
    sqlite3_file* file = nullptr;
    int error = 0;
    if (sqlite3_file_control(connection, "main", code, &file) != SQLITE_OK) continue;
    if (file == nullptr || file->pMethods == nullptr) continue;
    file->pMethods->xFileControl(file, SQLITE_FCNTL_LAST_ERRNO, &error);
    if (error != 0) return error;
  }
  return 0;
}

// The status for SQLITE_IOERR.
inline int status_of_io_error(sqlite3* connection) {
  return status_of_error(system_error_of(connection));
}

// The status for a file that SQLite calls malformed: `otherwise`, unless reading it failed, which
// SQLite gives the same name.
inline int status_of_damage(sqlite3* connection, int otherwise) {
  const int error = system_error_of(connection);
  return error == 0 ? otherwise : status_of_error(error);
}

}  // namespace standin
