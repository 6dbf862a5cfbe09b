// What the lifecycle methods share: naming a stored object, and waiting for the process that a
// restructure starts.
#pragma once

#include "api/olv.h"
#include "api/olvotl.h"

namespace kepotl {

// The definition of an outline object in `context`; a database's own outline bears the database's
// name. The texts stay the caller's.
inline ObjectDefinitionRecord outline_object(HCTX context, const char* application,
                                             const char* database, const char* object) {
  ObjectDefinitionRecord record = {};
  record.context = context;
  record.objectType = kObjectTypeOutline;
  record.applicationName = application;
  record.databaseName = database;
  record.objectName = object;
  return record;
}

// Polls the context's process, back to back, until it is over or a poll fails; the status of the
// last poll.
int wait_for_process(HCTX context);

// Writes an outline to a database's outline object, makes the database active, restructures it
// with `option` and waits until that is over, all under the object's lock, which is given back on
// every path. The first failure of lock, write, activation and restructure is the result; the
// polls' statuses are not.
int write_and_restructure(HCTX context, HOutline outline, const char* application,
                          const char* database, uint16_t option);

}  // namespace kepotl
