// How libolv.so finds what a library with another kind of store offers.
#pragma once

#include <cstdint>
#include <memory>

#include "standin/store.h"

namespace standin {

// Changes with store.h and with what libolv.so exports to such a library.
inline constexpr uint32_t kStoreInterface = 1;

// What the library exports, as a constant of this name. The functions throw nothing.
inline constexpr char kServerLibraryEntry[] = "olv_server_library";
struct ServerLibrary {
  uint32_t interface;
  // Opens the store at an address, or makes one; they answer a status.
  int (*open)(const char* address, std::shared_ptr<Store>* store);
  int (*make)(const char* address);
};

}  // namespace standin
