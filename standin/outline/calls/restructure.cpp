// Restructuring a stored database: its outline file is written anew with the index of its members,
// on a thread that OlvGetProcessState reports.
#include "api/olvotl.h"
#include "standin/client.h"

// The option tells a server what data to keep; there is none here, so every option does the same.
extern "C" int OlvOtlRestructure(HCTX ctx, uint16_t /*option*/) {
  return standin::start_restructure(ctx);
}
