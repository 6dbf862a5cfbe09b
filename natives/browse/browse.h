// What browse/ offers the other families: members.h, and how what it finds reaches Java.
#pragma once

#include "bridge/scope.h"
#include "browse/members.h"

namespace kepotl {

// Adds a new Java string of an API text to a list.
void add_string(const Frame& frame, jobject list, const char* text);

// Sends the whole property set of a record to a properties object, in fixed order.
void send_member_properties(const Frame& frame, jobject properties, const MemberInfoRecord& info);

}  // namespace kepotl
