// Gives one field of one member a value, as loading and editing do.
#pragma once

#include <string>

#include "command/layer/outline.h"
#include "command/rows/fields.h"

namespace command {

// An empty value removes what is there; of a property it is refused. Throws a Failure with what can
// be said instead.
void assign(const Outline& outline, Member member, const Field& field, const std::string& value);

// Gives a member an attribute of a dimension, in place of another of it, or none for an empty text.
// The member's dimension becomes associated where it is not yet. To a dimension any text but the
// empty one means the attribute dimension itself.
void assign_attribute(const Outline& outline, Member member, const std::string& dimension,
                      const std::string& text);

// Replaces the UDAs by the items of a list.
void assign_udas(Member member, const std::string& list);

}  // namespace command
