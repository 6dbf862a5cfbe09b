// Arithmetic on Java's int.
#pragma once

#include <jni.h>

#include <cstdint>

namespace kepotl {

// The sum as Java adds it: it wraps around where a C++ int must not overflow.
inline jint java_sum(jint a, jint b) {
  return static_cast<jint>(static_cast<uint32_t>(a) + static_cast<uint32_t>(b));
}

}  // namespace kepotl
