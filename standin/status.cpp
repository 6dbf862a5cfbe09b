// The readable texts of the statuses.
#include "standin/status.h"

namespace standin {
namespace {

const char* api_status_text(int status) {
  switch (status) {
    case kStatusOk:
      return "Success.";
    case kStatusRefused:
      return "The library refused the call: a handle, a path or a text that it needs is missing or "
             "too long.";
    case kStatusCopyFailed:
      return "The members were not copied: the source or target is missing, the target lies below "
             "the source, or a name does not fit.";
    case kStatusAliasTableExists:
      return "An alias table of this name exists already; choose another name.";
    case kStatusDuplicateName:
      return "The member name is already in use in this outline; choose another name.";
    default:
      return nullptr;
  }
}

const char* store_status_text(int status) {
  switch (status) {
    case kBadInstance:
      return "There is no such instance; it was never initialised or has been terminated.";
    case kBadContext:
      return "There is no such login, or the call does not suit this kind of context; log in "
             "again.";
    case kBadOutline:
      return "There is no such open outline; open it first.";
    case kBadMember:
      return "There is no such member in this outline; it may have been deleted.";
    case kBadArgument:
      return "An argument is missing or has a value that cannot be used.";
    case kNoMemory:
      return "Memory ran out; close outlines that are not needed and try again.";
    case kNotAStore:
      return "The folder is not a store of this engine; name a store, an empty folder or a new "
             "one.";
    case kStoreError:
      return "Reading or writing the store failed; check that its folder exists and that its files "
             "may be read and written.";
    case kNoSpace:
      return "The disk is full, so nothing was written; make room and try again.";
    case kDamagedOutline:
      return "The outline file is damaged or is no outline of this engine; restore it from a "
             "backup.";
    case kNewerOutline:
      return "A later version of this engine wrote the outline file; open it with that version.";
    case kBadObjectName:
      return "The application, database or object name is not allowed: use 1 to 30 bytes without "
             "slashes or control characters, not starting with a dot.";
    case kNoSuchDatabase:
      return "There is no such application or database; create it or check the names.";
    case kNoSuchObject:
      return "There is no such stored object; the outline has not been saved yet, or its name is "
             "different.";
    case kDatabaseExists:
      return "The database exists already; choose another name or use the one that is there.";
    case kNoActiveDatabase:
      return "No database is active for this login; set one active first.";
    case kObjectLocked:
      return "Another login holds the lock of this object; wait until it is released.";
    case kNotLocked:
      return "This login does not hold the lock of the object; open the outline for edit first.";
    case kReadOnly:
      return "The outline was opened for reading; open it for edit to change it.";
    case kProcessRunning:
      return "A restructure of this database or login is still going on; wait until it is over.";
    case kNotPermitted:
      return "This user may not do that here: the system protects the store's folder or a file in "
             "it, or the store's server refuses the user; ask its owner.";
    case kStoreBusy:
      return "Another process kept the store busy for too long; try again.";
    case kNoSuchLock:
      return "Nobody holds a lock or runs a process of this name; list the locks to see who does.";
    case kNewerStore:
      return "A later version of this engine made the store; use that version.";
    default:
      return nullptr;
  }
}

const char* server_status_text(int status) {
  switch (status) {
    case kNoStoreLibrary:
      return "Stores on a PostgreSQL server need the package libolv-postgresql of this version; "
             "install it.";
    case kBadStoreAddress:
      return "The store's address cannot be read; write it as "
             "postgresql://USER@HOST:PORT/DATABASE.";
    case kNoConnection:
      return "The store's server does not answer or refuses the connection; check the address, the "
             "network and that the server runs.";
    case kNoStoreTables:
      return "The server's database is no store yet; make it one with: outline store init.";
    case kOlderStore:
      return "An earlier version of this engine made the store; bring it up to date with: outline "
             "store init.";
    case kLockLost:
      return "This login's lock of the outline is gone, as its connection to the store's server "
             "broke or somebody took it away; what was to be saved lies in the scratch area.";
    case kSaveUnknown:
      return "The connection to the store's server broke at the end of the save, and whether it "
             "arrived is not known; open the outline to see. What was to be saved lies in the "
             "scratch area, too.";
    default:
      return nullptr;
  }
}

const char* outline_status_text(int status) {
  switch (status) {
    case kMemberNotFound:
      return "There is no member of this name in the outline.";
    case kEmptyName:
      return "The name is empty; give one.";
    case kNameTooLong:
      return "The name is longer than 80 bytes; shorten it.";
    case kMoveBelowItself:
      return "A member cannot be moved to itself or below itself.";
    case kBadPosition:
      return "The position does not exist: the previous sibling is not a child of the parent, or a "
             "dimension and a member would change places.";
    case kBadQuery:
      return "The query's type, options or arguments are not known.";
    case kNoSuchAliasTable:
      return "There is no alias table of this name.";
    case kDefaultAliasTable:
      return "The default alias table cannot be deleted; clear it to remove its aliases.";
    case kAliasTooLong:
      return "The alias is longer than 80 bytes; shorten it.";
    case kAliasTableNameTooLong:
      return "The name of the alias table is longer than 30 bytes; shorten it.";
    case kTextTooLong:
      return "The formula or comment is longer than an outline file can hold; shorten it.";
    case kUdaExists:
      return "The member has this user-defined attribute already.";
    case kNoSuchUda:
      return "The member does not have this user-defined attribute.";
    case kUdaTooLong:
      return "The user-defined attribute is longer than 80 bytes; shorten it.";
    case kNotAnAttribute:
      return "The member does not belong to an attribute dimension.";
    case kNotAssociated:
      return "The two are not associated; associate their dimensions first.";
    case kAlreadyAssociated:
      return "The two are associated already.";
    case kNoSuchDimension:
      return "There is no dimension of this name.";
    case kNoSuchGeneration:
      return "The dimension has no such generation or level, or it has no name.";
    case kNotATimeDimension:
      return "There is no time dimension; mark a dimension as the time dimension first.";
    case kSeriesEnabled:
      return "The dynamic-time-series entry is enabled already.";
    case kSeriesNotEnabled:
      return "The dynamic-time-series entry is not enabled.";
    case kNoSuchSeries:
      return "There is no dynamic-time-series entry of this name.";
    case kBlockUnknown:
      return "Memory was given back that was not handed out, or was given back before.";
    case kBlockWrongRelease:
      return "Memory was given back with the wrong function, code or count.";
    case kVerificationFailed:
      return "The outline has errors; verify it to see them.";
    default:
      return nullptr;
  }
}

}  // namespace

const char* status_text(int status) {
  if (const char* text = api_status_text(status)) return text;
  if (const char* text = store_status_text(status)) return text;
  if (const char* text = server_status_text(status)) return text;
  if (const char* text = outline_status_text(status)) return text;
  return "An error without a text of its own; its number is all that is known.";
}

namespace {

struct Detail {
  int status = kStatusOk;
  std::string text;
};

Detail& detail_of_thread() {
  thread_local Detail detail;
  return detail;
}

}  // namespace

void note_detail(int status, const std::string& detail) {
  detail_of_thread() = {status, detail};
}

const char* noted_detail(int status) {
  const Detail& detail = detail_of_thread();
  return detail.status == status ? detail.text.c_str() : "";
}

}  // namespace standin
