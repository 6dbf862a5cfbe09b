// Takes requests from buffers. Nothing in a buffer is trusted: whoever calls may have filled it
// with anything.
#include "bulk/request.h"

namespace bulk {

bool take_request(uint8_t* buffer, size_t size, Request* request) {
  const auto field = [buffer](size_t offset) { return load<uint32_t>(buffer + offset); };
  const size_t request_end = field(KEPOTL_FORMAT(REQUEST_END));
  if (field(0) != KEPOTL_FORMAT(VERSION)) return false;
  if (request_end < KEPOTL_FORMAT(REQUEST) || request_end > size) return false;
  request->header = buffer;
  request->answer = buffer + request_end;
  request->end = buffer + size;
  request->operation = field(KEPOTL_FORMAT(OPERATION));
  request->outline = field(KEPOTL_FORMAT(OUTLINE));
  request->inst = field(KEPOTL_FORMAT(INSTANCE));
  request->details = field(KEPOTL_FORMAT(DETAILS));
  request->member = field(KEPOTL_FORMAT(MEMBER));
  request->start = field(KEPOTL_FORMAT(START));
  request->next = field(KEPOTL_FORMAT(NEXT));
  request->limit = field(KEPOTL_FORMAT(LIMIT));
  request->body = Reader(buffer + KEPOTL_FORMAT(REQUEST), request->answer);
  const uint32_t tables = request->body.number();
  for (uint32_t i = 0; i < tables; ++i) {
    const char* const table = request->body.text();
    if (table == nullptr) return false;
    request->tables.push_back(table);
  }
  return request->body.ok();
}

void give_answer(const Answer& answer, uint8_t* header) {
  const auto set = [header](size_t offset, uint32_t value) { store(header + offset, value); };
  set(KEPOTL_FORMAT(STATUS), static_cast<uint32_t>(answer.outcome.status));
  set(KEPOTL_FORMAT(COUNT), answer.count);
  set(KEPOTL_FORMAT(DONE), answer.done ? 1 : 0);
  set(KEPOTL_FORMAT(NEEDED), static_cast<uint32_t>(answer.needed));
  set(KEPOTL_FORMAT(FAILED_MEMBER), answer.failed_member);
  set(KEPOTL_FORMAT(FAILED_FIELD), answer.outcome.field);
}

}  // namespace bulk
