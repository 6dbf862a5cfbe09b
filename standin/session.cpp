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

template <size_t Size>
void copy_text(const std::string& text, char (&field)[Size]) {
  text.copy(field, Size - 1);
}

}  // namespace

extern "C" {

int OlvStandinInitialize(const char* store, INST* instance) {
  return run_guarded([&] {
    if (store == nullptr || *store == 0 || instance == nullptr) {
      return static_cast<int>(kBadArgument);
    }
    *instance = add_instance(store);
    return kStatusOk;
  });
}

int OlvStandinMakeStore(const char* store) {
  return run_guarded([&] {
    if (store == nullptr || *store == 0) return static_cast<int>(kBadArgument);
    make_store(store);
    return kStatusOk;
  });
}

int OlvStandinHasStore(const char* store) {
  return run_guarded([&] { return store != nullptr && has_store(store) ? 1 : 0; }) == 1 ? 1 : 0;
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
    state->store->make_database(database_name(application, database));
    return kStatusOk;
  });
}

const char* OlvStandinStatusText(int status) {
  return status_text(status);
}

const char* OlvStandinStatusDetail(int status) {
  return noted_detail(status);
}

int OlvStandinSetDataLoaded(HCTX context, const char* application, const char* database,
                            int loaded) {
  return run_guarded([&] {
    const auto state = require_login(context);
    state->store->set_data_loaded(existing_database(*state, application, database), loaded != 0);
    return kStatusOk;
  });
}

int OlvStandinRestructured(HCTX context, const char* application, const char* database,
                           uint32_t* times) {
  return run_guarded([&] {
    if (times == nullptr) return static_cast<int>(kBadArgument);
    const auto state = require_login(context);
    *times = static_cast<uint32_t>(
        state->store->restructures(existing_database(*state, application, database)));
    return kStatusOk;
  });
}

int OlvStandinListLocks(INST instance, OlvStandinLock** locks, uint32_t* count) {
  return run_guarded([&] {
    if (locks == nullptr || count == nullptr) return static_cast<int>(kBadArgument);
    const std::vector<Holding> holdings = require_store(instance)->holdings();
    *locks = nullptr;
    *count = 0;
    if (holdings.empty()) return kStatusOk;
    OlvStandinLock* const records = hand_out_records<OlvStandinLock>(holdings.size());
    for (size_t i = 0; i < holdings.size(); ++i) {
      copy_text(holdings[i].name, records[i].object);
      copy_text(holdings[i].user, records[i].user);
      copy_text(holdings[i].host, records[i].host);
      records[i].process = static_cast<uint64_t>(holdings[i].process);
      records[i].since = holdings[i].since;
    }
    *locks = records;
    *count = static_cast<uint32_t>(holdings.size());
    return kStatusOk;
  });
}

int OlvStandinBreakLock(INST instance, const char* object) {
  return run_guarded([&] {
    if (object == nullptr) return static_cast<int>(kBadArgument);
    require_store(instance)->break_holding(object);
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
