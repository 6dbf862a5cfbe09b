// Names and places of databases and stored objects. Functions throw StoreFailure.
#pragma once

#include <string>

#include "standin/client.h"

namespace standin {

// Makes a folder unless it exists, durably. A file or a link in its place is kStoreError.
void make_folder(const std::string& path);

// "application/database" after both names are checked.
std::string database_name(const char* app, const char* db);

// The same for a database that exists in the context's folder; kNoSuchDatabase when it doesn't.
// For a local context the folders are made.
std::string existing_database(const Context& context, const char* app, const char* db);

// Makes the folders of a new database; kDatabaseExists when it is there already.
void make_database(const Context& context, const char* app, const char* db);

// Path of an object's file; the database has to exist, the object need not.
std::string object_file(const Context& context, uint32_t type, const char* app, const char* db,
                        const char* object);

// Name of an object in the lock table: its path within the store's folder.
std::string object_key(const Context& context, uint32_t type, const char* app, const char* db,
                       const char* object);

// Size in bytes of an object's file in `*size`; false when there is no such file.
bool object_size(const std::string& file, uint64_t* size);

}  // namespace standin
