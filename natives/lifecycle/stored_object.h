// Naming a stored outline object.
#pragma once

#include "api/olv.h"

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

// Where outlines that are saved to a local file live, and the bytes of a name there, its NUL
// included.
inline constexpr const char* kScratchApplication = "KEPOTL";
inline constexpr const char* kScratchDatabase = "OTLTEMP";
inline constexpr size_t kScratchNameSize = 128;

}  // namespace kepotl
