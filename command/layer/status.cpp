// The sentences of the API's statuses.
#include "command/layer/status.h"

#include "command/layer/formatting.h"
#include "standin/session.h"

namespace command {

const char* Status::sentence() const {
  return OlvStandinStatusText(code_);
}

void check(int status, std::string_view what) {
  if (status == 0) return;
  throw Failure(fmt::format("can't {}: {}", what, Status(status).sentence()), status);
}

}  // namespace command
