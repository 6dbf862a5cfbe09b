// What a failed operation of SQLite on its file came from. Both libraries of the stand-in ask.
#pragma once

#include <sqlite3.h>

#include "standin/guard.h"

namespace standin {

// The status for SQLITE_IOERR, from the last operations that failed on the connection's file and on
// its journal. sqlite3_system_errno() may tell of a later one.
inline int status_of_io_error(sqlite3* connection) {
  for (const int code : {SQLITE_FCNTL_FILE_POINTER, SQLITE_FCNTL_JOURNAL_POINTER}) {
    sqlite3_file* file = nullptr;
    int error = 0;
    if (sqlite3_file_control(connection, "main", code, &file) != SQLITE_OK) continue;
    if (file == nullptr || file->pMethods == nullptr) continue;
    file->pMethods->xFileControl(file, SQLITE_FCNTL_LAST_ERRNO, &error);
    if (status_of_error(error) == kNoSpace) return kNoSpace;
  }
  return kStoreError;
}

}  // namespace standin
