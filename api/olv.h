// The client API: memory, contexts, locks, stored objects and databases. Each function returns a
// status, 0 for success; out-parameters are defined only after success unless it says otherwise.
#pragma once

#include "api/records.h"

extern "C" {

// Gives back one block that the API handed out: a text, an information record, a name array, an
// association array or a UDA array. `inst` is the instance, or 0 where none is at hand.
// Records with a structure code go back with OlvOtlFreeStructure, query results with
// OlvOtlFreeMembers. A null block is nothing and succeeds.
int OlvFree(INST inst, const void* block);

// Takes the lock of one stored object for `ctx`. Fails when another context holds it.
int OlvLockObject(HCTX ctx, uint32_t type, const char* app, const char* db, const char* object);

// Gives a lock back. Fails when `ctx` does not hold it.
int OlvUnlockObject(HCTX ctx, uint32_t type, const char* app, const char* db, const char* object);

// Makes a database the active one of `ctx`. `*access` receives the access level.
int OlvSetActive(HCTX ctx, const char* app, const char* db, uint16_t* access);

// Fills the caller's record with the state of the process that `ctx` started last;
// `state->state` is not 0 while it goes on.
int OlvGetProcessState(HCTX ctx, ProcessStateRecord* state);

// Makes a context for objects kept on this machine. It ends with the instance.
int OlvCreateLocalContext(INST inst, uint32_t zero1, uint32_t zero2, HCTX* local);

// Path of an object of a local context. `flag` 1 asks for a place to write to, 0 for a written
// object. `*path` is given back with OlvFree.
int OlvGetLocalPath(HCTX ctx, uint32_t type, const char* app, const char* db, const char* object,
                    int flag, char** path);

// Size and lock state of a stored object. Fails when there is none. `*info` is given back with
// OlvFree.
int OlvGetObjectInfo(HCTX ctx, uint32_t type, const char* app, const char* db, const char* object,
                     ObjectInfoRecord** info);

// State of a database. `*info` is given back with OlvFree.
int OlvGetDatabaseInfo(HCTX ctx, const char* app, const char* db, DatabaseInfoRecord** info);

// Number of cells in an area of the active database. `area` lists member names, comma-separated.
int OlvPartitionGetAreaCellCount(HCTX ctx, const char* area, double* count);

}  // extern "C"
