// The session functions (session.h).
#include "standin/session.h"

#include <cinttypes>
#include <cstdio>
#include <cstring>

#include "standin/context.h"
#include "standin/guard.h"
#include "standin/ledger.h"
#include "standin/object.h"

using namespace standin;

namespace {

constexpr size_t kMaxUser = 80;

}  // namespace

extern "C" {

int OlvStandinInitialize(const char* folder, INST* instance) {
  return run_guarded([&] {
    if (folder == nullptr || *folder == 0 || instance == nullptr) {
      return static_cast<int>(kBadArgument);
    }
    *instance = add_instance(folder);
    return kStatusOk;
  });
}

int OlvStandinTerminate(INST instance) {
  return run_guarded([&] {
    const int status = remove_instance(instance);
    const LedgerCounts counts = ledger_counts();
    if (status != kBadInstance && counts.outstanding != 0 && strict()) {
      std::fprintf(stderr, "olv: %" PRIu64 " blocks were not given back\n", counts.outstanding);
    }
    return status;
  });
}

int OlvStandinLogin(INST instance, const char* user, HCTX* context) {
  return run_guarded([&] {
    if (user == nullptr || context == nullptr) return static_cast<int>(kBadArgument);
    const size_t length = strnlen(user, kMaxUser + 1);
    if (length == 0) return static_cast<int>(kEmptyName);
    if (length > kMaxUser) return static_cast<int>(kNameTooLong);
    *context = add_login_context(instance, user);
    return kStatusOk;
  });
}

int OlvStandinLogout(HCTX context) {
  return run_guarded([&] { return remove_context(context); });
}

int OlvStandinCreateDatabase(HCTX context, const char* application, const char* database) {
  return run_guarded([&] {
    const auto state = require_login(context);
    const std::string name = database_name(application, database);
    make_database(describe(*state), application, database);
    // A database of this name may have been removed together with its folder.
    state->store->reset_database(name);
    return kStatusOk;
  });
}

const char* OlvStandinStatusText(int status) {
  return status_text(status);
}

int OlvStandinSetDataLoaded(HCTX context, const char* application, const char* database,
                            int loaded) {
  return run_guarded([&] {
    const auto state = require_login(context);
    state->store->set_data_loaded(existing_database(describe(*state), application, database),
                                  loaded != 0);
    return kStatusOk;
  });
}

int OlvStandinRestructured(HCTX context, const char* application, const char* database,
                           uint32_t* times) {
  return run_guarded([&] {
    if (times == nullptr) return static_cast<int>(kBadArgument);
    const auto state = require_login(context);
    *times = static_cast<uint32_t>(
        state->store->restructures(existing_database(describe(*state), application, database)));
    return kStatusOk;
  });
}

int OlvStandinLedger(OlvStandinLedgerCounts* counts) {
  if (counts == nullptr) return kBadArgument;
  const LedgerCounts now = ledger_counts();
  *counts = {now.handed_out, now.given_back, now.wrong_releases, now.outstanding};
  return kStatusOk;
}

}  // extern "C"
