// Which store an address means: the one place that tells the kinds apart. Stores on a server are in
// a library of their own, which is loaded when the first one is opened, so that nothing else needs
// what it needs.
#include <dlfcn.h>
#include <sys/stat.h>

#include "standin/folder_store.h"
#include "standin/guard.h"
#include "standin/server_library.h"

namespace standin {
namespace {

bool is_on_a_server(const std::string& address) {
  return address.rfind("postgresql://", 0) == 0 || address.rfind("postgres://", 0) == 0;
}

// Kept until the process ends, as are its threads.
const ServerLibrary& server_library() {
  void* const library = dlopen("libolv-postgresql.so", RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
  const auto* entry = library == nullptr
                          ? nullptr
                          : static_cast<const ServerLibrary*>(dlsym(library, kServerLibraryEntry));
  if (entry == nullptr || entry->interface != kStoreInterface) {
    const char* const reason = library == nullptr ? dlerror() : "it is of another version";
    note_detail(kNoStoreLibrary, reason == nullptr ? "" : reason);
    throw StoreFailure(kNoStoreLibrary);
  }
  return *entry;
}

}  // namespace

std::shared_ptr<Store> open_store(const std::string& address) {
  if (!is_on_a_server(address)) return std::make_shared<FolderStore>(address);
  std::shared_ptr<Store> store;
  require(server_library().open(address.c_str(), &store));
  return store;
}

void make_store(const std::string& address) {
  if (is_on_a_server(address)) {
    require(server_library().make(address.c_str()));
  } else {
    const FolderStore made(address);
  }
}

bool has_store(const std::string& address) {
  struct stat state {};
  return is_on_a_server(address) || stat(address.c_str(), &state) == 0;
}

}  // namespace standin
