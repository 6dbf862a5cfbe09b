// Restructuring a database: after a write, and waiting for its end.
#pragma once

#include "api/olv.h"
#include "api/olvotl.h"

namespace kepotl {

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
