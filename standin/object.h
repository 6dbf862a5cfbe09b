// Names of databases and stored objects. Functions throw StoreFailure.
#pragma once

#include <string>

#include "standin/context.h"

namespace standin {

// "application/database" after both names are checked: no separators, no dot names, at most 30
// bytes, not empty.
std::string database_name(const char* app, const char* db);

// The same for a database that exists for the context; kNoSuchDatabase when it doesn't.
std::string existing_database(const ContextState& state, const char* app, const char* db);

// An object after all names are checked; its database has to exist, the object need not.
ObjectName object_name(const ContextState& state, uint32_t type, const char* app, const char* db,
                       const char* object);

// The outline of the context's active database; kNoActiveDatabase when it has none.
ObjectName active_outline(ContextState& state);

}  // namespace standin
