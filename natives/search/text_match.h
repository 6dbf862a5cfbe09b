// Letter case as all searches see it.
#pragma once

namespace kepotl {

// Folds an ASCII letter to lower case and leaves every other byte, whatever the process's locale:
// under a Turkish one, too, INDIA has to find India.
constexpr char lower_ascii(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

}  // namespace kepotl
