// The sentences of the API's statuses.
#include "command/layer/status.h"

#include "command/layer/formatting.h"
#include "command/layer/text.h"
#include "standin/session.h"

namespace command {

const char* Status::sentence() const {
  return OlvStandinStatusText(code_);
}

void fail(int status, std::string_view what) {
  std::string message = fmt::format("can't {}: {}", what, Status(status).sentence());
  const std::string detail = OlvStandinStatusDetail(status);
  if (!detail.empty()) message += fmt::format(" ({})", printable(detail));
  throw Failure(message, status);
}

void check(int status, std::string_view what) {
  if (status != 0) fail(status, what);
}

}  // namespace command
