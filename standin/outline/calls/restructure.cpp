// Restructuring a stored database: its outline file is written anew with the index of its members,
// on a thread that OlvGetProcessState reports.
#include <unistd.h>

#include "api/olvotl.h"
#include "standin/client.h"
#include "standin/outline/calls/open_outlines.h"
#include "standin/outline/file/stored_outline.h"

using namespace standin;

// The option tells a server what data to keep; there is none here, so every option does the same.
extern "C" int OlvOtlRestructure(HCTX ctx, uint16_t /*option*/) {
  return run_guarded([&]() -> int {
    Context context;
    int status = find_context(ctx, &context);
    if (status != kStatusOk) return status;
    std::string path;
    status = active_outline_path(context, &path);
    if (status != kStatusOk) return status;
    if (access(path.c_str(), F_OK) != 0) return kNoSuchObject;
    return start_process(context, [context, path] {
      const int restructured = restructure_outline(path);
      if (restructured != kStatusOk) return restructured;
      return mark_restructured(context, context.application, context.database);
    });
  });
}
