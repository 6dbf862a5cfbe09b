// The operations of the fast lane. Each carries out a request that take_request accepted.
#pragma once

#include "bulk/request.h"

namespace bulk {

// Writes members as records behind the request, as many as fit, and moves START and NEXT in the
// header on. False when the request is not well-formed; nothing was done then.
bool read_members(const Request& request, Answer* answer);

// Writes one member as a record. `dimension` is the handle of its dimension. `last_dimension` is
// the dimension's name in the record before, null in the first one, and is set to that of this
// record once it fits. The status of the first API call that failed, and what it was about.
Outcome write_record(const Request& request, HMember member, HMember dimension,
                     const char** last_dimension, Writer* out);

// Counts the siblings before a member.
void find_position(const Request& request, Answer* answer);

// Makes or changes members, up to the first one that is refused. A member that can't be given all
// its details is not left behind. False when the request is not well-formed; nothing was done
// then.
bool make_members(const Request& request, Answer* answer);

}  // namespace bulk
