// The packed UDA array of the interface.
#pragma once

#include <string_view>
#include <vector>

namespace standin {

// Hands out UDAs of at most kMaxUda bytes as entries of kUdaStride bytes. Given back with OlvFree.
// Throws std::bad_alloc.
char* hand_out_udas(const std::vector<std::string_view>& udas);

}  // namespace standin
