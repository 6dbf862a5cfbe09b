// What libolv.so takes from this library.
#include <openssl/crypto.h>

#include "standin/guard.h"
#include "standin/postgresql/schema.h"
#include "standin/postgresql/server_store.h"
#include "standin/server_library.h"

namespace {

using standin::postgresql::Connection;
using standin::postgresql::ServerStore;

// OpenSSL, which libpq uses and this library, is not to end before the threads that keep logins.
void keep_openssl() {
  OPENSSL_init_crypto(OPENSSL_INIT_NO_ATEXIT, nullptr);
}

int open(const char* address, std::shared_ptr<standin::Store>* store) {
  return standin::run_guarded([&] {
    keep_openssl();
    *store = std::make_shared<ServerStore>(address);
    return kStatusOk;
  });
}

int make(const char* address) {
  return standin::run_guarded([&] {
    keep_openssl();
    Connection connection(address);
    standin::postgresql::make_tables(connection);
    return kStatusOk;
  });
}

}  // namespace

// NOLINTBEGIN(readability-identifier-naming): an exported name
extern "C" const standin::ServerLibrary olv_server_library;
const standin::ServerLibrary olv_server_library = {standin::kStoreInterface, open, make};
// NOLINTEND(readability-identifier-naming)
