// The counts of the ledger of memory handed out (client.h).
#pragma once

#include <cstdint>

namespace standin {

struct LedgerCounts {
  uint64_t handed_out = 0;
  uint64_t given_back = 0;
  uint64_t wrong_releases = 0;
  uint64_t outstanding = 0;  // handed out and not given back yet
};

// Counts since the library was loaded.
LedgerCounts ledger_counts();

// True when OLV_STANDIN_STRICT is 1: misuse ends the process.
bool strict();

// Counts a wrong release and answers `status`; in strict mode it ends the process with a message.
int wrong_release(int status, const void* block, const char* reason);

}  // namespace standin
