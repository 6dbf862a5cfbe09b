// The control file of a store in a folder: an SQLite file in write-ahead mode, so that readers and
// the writer of different processes don't wait for each other.
#pragma once

#include <memory>
#include <string>

#include "standin/sqlite.h"

namespace standin {

// Opens the control file at `path` and makes it when there is none. Only those who may write the
// folder may read it, or they could keep its locks. kNotAStore when it is anything else than what
// this engine makes, kNewerStore when a later version of it did, kNotPermitted when this user may
// not write the folder.
std::unique_ptr<Connection> open_control_file(const std::string& path);

// Opens it as it is, for somebody who may only look at the store: without locks, and without what
// the write-ahead log beside it holds back.
std::unique_ptr<Connection> read_control_file(const std::string& path);

}  // namespace standin
