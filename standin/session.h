// The stand-in's own session functions: opening a store, logging in, and what a test or a
// demonstration needs besides. Each returns a status, 0 for success, unless it says otherwise.
// A process that has opened a store must not fork and go on using it in the child.
#pragma once

#include <cstdint>

#include "api/types.h"

extern "C" {

// Opens the store at an address: a folder, or a database on a PostgreSQL server as
// "postgresql://USER@HOST:PORT/DATABASE" with all that its client library takes there. A folder
// that does not exist is made, and an empty one becomes a store; a server's database is made one by
// OlvStandinMakeStore. A store that this user may not write, or whose disk is full, opens for
// looking: reading outlines and counting cells work, what changes the store gives kNotPermitted or
// kNoSpace, and nothing counts as locked, loaded or restructured that only a writer could see. Ends
// with OlvStandinTerminate.
int OlvStandinInitialize(const char* store, INST* instance);

// Makes a store at an address where there is none, and brings one of an earlier version up to date;
// what is in it stays.
int OlvStandinMakeStore(const char* store);

// 1 when there may be a store at an address, 0 when a folder is not there. A server is not asked.
int OlvStandinHasStore(const char* store);

// Ends an instance: waits for its processes and ends its contexts. In strict mode blocks that are
// still out are reported on stderr.
int OlvStandinTerminate(INST instance);

// Logs a user in; any name of 1 to 80 bytes will do. Ends with OlvStandinLogout.
int OlvStandinLogin(INST instance, const char* user, HCTX* context);

// Ends a login or a local context: waits for its process, closes the outlines that are still open
// in it and gives its locks back.
int OlvStandinLogout(HCTX context);

// Makes a database, and its application if need be; kDatabaseExists when it is there. It has no
// stored outline until one is written: opening it for edit starts an empty one, opening it for
// reading gives kNoSuchObject.
int OlvStandinCreateDatabase(HCTX context, const char* application, const char* database);

// What is known of one database.
struct OlvStandinDatabase {
  char application[31];
  char database[31];
  uint32_t members;  // of the stored outline
  uint64_t size;     // bytes of its file; 0 while none was stored
  int64_t saved;     // when it was stored, in seconds since 1970
};

// Lists the databases of the store, or for a local context those of the scratch area, sorted by
// name. `*databases` holds `*count` records, null when there are none, and is given back with
// OlvFree. An outline that cannot be read has 0 members.
int OlvStandinListDatabases(HCTX context, uint32_t* count, OlvStandinDatabase** databases);

// Removes a database, or for a local context one of the scratch area, with everything stored in it,
// and its application when that was its last one. kObjectLocked while another login edits its
// outline, kProcessRunning while it is restructured.
int OlvStandinDeleteDatabase(HCTX context, const char* application, const char* database);

// Writes a copy of a database's stored outline to a file, replacing what is there. The copy is of
// one saved state, also while others save. kBadArgument when the path names no regular file.
int OlvStandinBackup(HCTX context, const char* application, const char* database, const char* file);

// Stores the outline in a file as a database's outline, as a save does, after reading all of it.
// kDamagedOutline when it is none and kObjectLocked while another login edits; nothing is changed
// then.
int OlvStandinRestore(HCTX context, const char* file, const char* application,
                      const char* database);

// Stores the outline of a database as that of the same database of another login, on whatever
// store, as OlvStandinRestore does. kNoSuchObject when it has none.
int OlvStandinCopyOutline(HCTX from, const char* application, const char* database, HCTX to);

// One English sentence for a status; static, never null.
const char* OlvStandinStatusText(int status);

// What is known beside the sentence when this status was the last that a server's store gave on the
// calling thread: what the server said, or where something was kept; empty for nothing, never null.
// Good until the next call on this thread.
const char* OlvStandinStatusDetail(int status);

// Sets whether a database counts as holding data.
int OlvStandinSetDataLoaded(HCTX context, const char* application, const char* database,
                            int loaded);

// How often a database has been restructured since it was made.
int OlvStandinRestructured(HCTX context, const char* application, const char* database,
                           uint32_t* times);

// Somebody who holds the lock of an object or runs a restructure.
struct OlvStandinLock {
  char object[128];  // "application/database/object" of a lock; "application/database" of a process
  char user[81];     // empty for an object of the scratch area
  char host[65];     // name of the machine or container
  uint64_t process;  // as that machine or container numbers it
  int64_t since;     // seconds since 1970
};

// Lists who has locks and processes in the store, those of this process included. A holder that has
// died on this machine is not listed. The array goes back with OlvFree; null when there is nobody.
int OlvStandinListLocks(INST instance, OlvStandinLock** locks, uint32_t* count);

// Takes the lock of "application/database/object", or the process of "application/database", away
// from whoever has it, as from a container that is gone; kNoSuchLock when nobody has. Its holder
// can't write the object any more.
int OlvStandinBreakLock(INST instance, const char* object);

// What the ledger counted since the library was loaded.
struct OlvStandinLedgerCounts {
  uint64_t handedOut;
  uint64_t givenBack;
  uint64_t wrongReleases;
  uint64_t outstanding;
};
int OlvStandinLedger(OlvStandinLedgerCounts* counts);

}  // extern "C"
