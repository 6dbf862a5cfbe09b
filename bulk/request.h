// A request, taken from a buffer and checked, and the answer's part of the header.
#pragma once

#include <vector>

#include "api/types.h"
#include "bulk/format.h"

namespace bulk {

// What went wrong, and with which part of a member; status 0 when nothing did.
struct Outcome {
  int status = kStatusOk;
  uint32_t field = KEPOTL_FORMAT(FIELD_MEMBER);

  explicit operator bool() const { return status == kStatusOk; }
};

// The texts point into the buffer.
struct Request {
  uint8_t* header;
  uint8_t* answer;  // behind the request
  uint8_t* end;     // of the buffer
  uint32_t operation;
  HOutline outline;
  INST inst;
  uint32_t details;
  HMember member;
  uint32_t start;
  uint32_t next;
  uint32_t limit;
  std::vector<const char*> tables;
  Reader body;  // behind the tables: handles or records

  bool wants(uint32_t detail) const { return (details & detail) != 0; }
};

// What a call writes into the header.
struct Answer {
  Outcome outcome;
  HMember failed_member = 0;
  uint32_t count = 0;
  bool done = false;
  size_t needed = 0;

  void fail(Outcome what, HMember member) {
    outcome = what;
    failed_member = member;
  }
};

// Takes the header and the alias tables; false when they are not well-formed. `size` is at least
// the header's. May throw std::bad_alloc.
bool take_request(uint8_t* buffer, size_t size, Request* request);

// Writes an answer into the header.
void give_answer(const Answer& answer, uint8_t* header);

}  // namespace bulk
