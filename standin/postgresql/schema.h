// The store's tables, in a schema of their own.
#pragma once

#include <chrono>
#include <string>

#include "standin/postgresql/connection.h"

namespace standin::postgresql {

// What holds for a whole store.
struct StoreSettings {
  std::string identity;               // another one for each store
  std::chrono::milliseconds lease{};  // how long a login counts as living without a sign of life
};

// Reads the settings; kNoStoreTables, kOlderStore or kNewerStore when the tables are not those of
// this version.
StoreSettings read_settings(Connection& connection);

// Makes the tables, or brings those of an earlier version up to date.
void make_tables(Connection& connection);

}  // namespace standin::postgresql
