// The stand-in's own statuses and their readable texts. Numbers that the native methods know
// stand in api/types.h.
#pragma once

#include <string>

#include "api/types.h"

namespace standin {

enum Status : int {
  kBadInstance = 1900001,  // no such instance
  kBadContext,             // no such login or local context
  kBadOutline,             // no such open outline
  kBadMember,              // no such member, or it was deleted
  kBadArgument,            // a null or impossible argument
  kNoMemory,
  kNotAStore,       // the folder is not a store of this engine
  kStoreError,      // reading or writing the store failed
  kNoSpace,         // the disk is full
  kDamagedOutline,  // the outline file is damaged
  kNewerOutline,    // the outline file has tables of a later version of this engine
  kBadObjectName,   // application, database or object name not allowed
  kNoSuchDatabase,
  kNoSuchObject,
  kDatabaseExists,
  kNoActiveDatabase,  // the context has no active database
  kObjectLocked,      // another context holds the object's lock
  kNotLocked,         // this context does not hold the object's lock
  kReadOnly,          // the outline was opened for reading
  kProcessRunning,    // the context's restructure is still going on
  kMemberNotFound,
  kEmptyName,
  kNameTooLong,
  kMoveBelowItself,
  kBadPosition,  // parent and previous sibling do not fit together
  kBadQuery,     // query type, options or arguments not known
  kNoSuchAliasTable,
  kDefaultAliasTable,  // the default alias table cannot be deleted
  kAliasTooLong,
  kAliasTableNameTooLong,
  kUdaExists,
  kNoSuchUda,
  kUdaTooLong,
  kNotAnAttribute,  // no attribute dimension or member
  kNotAssociated,
  kAlreadyAssociated,
  kNoSuchDimension,
  kNoSuchGeneration,  // no such generation or level, or it has no name
  kNotATimeDimension,
  kSeriesEnabled,  // the dynamic-time-series entry is enabled already
  kSeriesNotEnabled,
  kNoSuchSeries,       // no dynamic-time-series entry of that name
  kBlockUnknown,       // memory that was not handed out, or given back already
  kBlockWrongRelease,  // given back with the wrong function, code or count
  kVerificationFailed,
  kNotPermitted,     // the system does not let this user write or read there
  kStoreBusy,        // somebody else kept the store for too long
  kNoSuchLock,       // nobody holds this lock or runs this process
  kTextTooLong,      // a formula or an extended comment that no file could hold
  kNewerStore,       // the store is one of a later version of this engine
  kNoStoreLibrary,   // the library for stores on a server, or what it needs, is not installed
  kBadStoreAddress,  // the address of a store on a server can't be read
  kNoConnection,     // the server can't be reached, or the connection broke
  kNoStoreTables,    // the server's database is no store yet
  kOlderStore,       // the server's store is one of an earlier version of this engine
  kLockLost,         // the lock went with the connection; what was to be saved is kept
  kSaveUnknown,      // the connection broke at the end of a save; what was to be saved is kept
};

// One English sentence for any status, the API's own numbers included; never null.
const char* status_text(int status);

// Notes what a server said, or where something was kept, for who asks about this status next on
// this thread; and answers it, empty when another status was noted last.
void note_detail(int status, const std::string& detail);
const char* noted_detail(int status);

}  // namespace standin
