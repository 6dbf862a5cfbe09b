// Connecting, sending, waiting, and what the server's errors mean.
#include "standin/postgresql/connection.h"

#include <poll.h>

#include <cerrno>
#include <cstdlib>
#include <vector>

namespace standin::postgresql {
namespace {

// Settings that hold unless the address says otherwise.
constexpr std::array<std::array<const char*, 2>, 7> kDefaults = {{
    {"fallback_application_name", "outline"},
    {"connect_timeout", "10"},
    {"target_session_attrs", "read-write"},
    {"tcp_user_timeout", "20000"},
    {"keepalives_idle", "5"},
    {"keepalives_interval", "3"},
    {"keepalives_count", "3"},
}};

// What sessions ask of a server that knows it, one at a time: to wait for nobody too long, to find
// out when a client is gone, and to acknowledge only
// what a failover finds.
constexpr std::array kSessionSettings = {
    "SET lock_timeout = '15s'",
    "SET tcp_keepalives_idle = 5; SET tcp_keepalives_interval = 3; SET tcp_keepalives_count = 3; "
    "SET tcp_user_timeout = '20s'",
    "SELECT set_config('synchronous_commit', 'on', false) "
    "WHERE current_setting('synchronous_commit') IN ('off', 'local')",
};

int status_of(std::string_view state) {
  const std::string_view kind = state.substr(0, 2);
  if (state == "42P01" || state == "3F000") return kNoStoreTables;
  if (state == "42501" || state == "25006" || kind == "28") return kNotPermitted;
  if (state == "55P03" || state == "57014" || kind == "40") return kStoreBusy;
  if (state == "53100") return kNoSpace;
  if (kind == "08" || kind == "53" || kind == "57" || kind == "25") return kNoConnection;
  return kStoreError;
}

// A message of libpq without the end of its last line.
std::string one_line(const char* message) {
  std::string text = message == nullptr ? "" : message;
  while (!text.empty() && text.back() == '\n') text.pop_back();
  for (char& c : text) {
    if (c == '\n' || c == '\t') c = ' ';
  }
  return text;
}

}  // namespace

Value::Value(int64_t number) : is_number_(true) {
  auto bits = static_cast<uint64_t>(number);
  for (size_t i = number_.size(); i > 0; --i, bits >>= 8) {
    number_[i - 1] = static_cast<char>(bits & 0xff);
  }
}

int64_t Rows::number(int row, int column) const {
  uint64_t bits = 0;
  for (const char c : bytes(row, column)) bits = (bits << 8) | static_cast<unsigned char>(c);
  return static_cast<int64_t>(bits);
}

std::string_view Rows::bytes(int row, int column) const {
  return {PQgetvalue(result_.get(), row, column),
          static_cast<size_t>(PQgetlength(result_.get(), row, column))};
}

Connection::Connection(const std::string& address) : connection_(nullptr, PQfinish) {
  char* error = nullptr;
  const std::unique_ptr<PQconninfoOption, decltype(&PQconninfoFree)> parsed(
      PQconninfoParse(address.c_str(), &error), PQconninfoFree);
  const std::unique_ptr<char, decltype(&PQfreemem)> error_text(error, PQfreemem);
  if (parsed == nullptr) {
    note_detail(kBadStoreAddress, one_line(error));
    throw StoreFailure(kBadStoreAddress);
  }
  std::vector<const char*> names;
  std::vector<const char*> values;
  for (const auto& [name, value] : kDefaults) {
    names.push_back(name);
    values.push_back(value);
  }
  // What an address says overrides what stands before it.
  names.insert(names.end(), {"dbname", nullptr});
  values.insert(values.end(), {address.c_str(), nullptr});
  connection_.reset(PQconnectdbParams(names.data(), values.data(), 1));
  if (connection_ == nullptr) throw std::bad_alloc();
  if (PQstatus(connection_.get()) != CONNECTION_OK) {
    const int status =
        PQconnectionNeedsPassword(connection_.get()) != 0 ? kNotPermitted : kNoConnection;
    note_detail(status, one_line(PQerrorMessage(connection_.get())));
    throw ServerFailure(status, "08001");
  }
  PQsetNoticeProcessor(
      connection_.get(), [](void*, const char*) {}, nullptr);
  PQsetnonblocking(connection_.get(), 1);
  for (const char* setting : kSessionSettings) try_all(setting);
}

void Connection::lose(const std::string& reason) {
  connection_.reset();
  note_detail(kNoConnection, reason);
  throw ServerFailure(kNoConnection, "08006");
}

void Connection::fail(const PGresult* result) {
  const char* const field =
      result == nullptr ? nullptr : PQresultErrorField(result, PG_DIAG_SQLSTATE);
  const std::string state = field == nullptr ? "08006" : field;
  if (PQstatus(connection_.get()) != CONNECTION_OK) {
    lose(one_line(PQerrorMessage(connection_.get())));
  }
  const int status = status_of(state);
  const char* const message =
      result == nullptr ? nullptr : PQresultErrorField(result, PG_DIAG_MESSAGE_PRIMARY);
  note_detail(status, status == kNoStoreTables ? "" : one_line(message));
  throw ServerFailure(status, state);
}

// Waits until the socket is ready. Time that passes without a byte counts against the server.
void Connection::wait_for(short events) {
  pollfd one{PQsocket(connection_.get()), events, 0};
  int ready = 0;
  do {
    ready = poll(&one, 1, static_cast<int>(std::chrono::milliseconds(kPatience).count()));
  } while (ready < 0 && errno == EINTR);
  if (ready == 0) lose("the server has not answered for half a minute");
  if (ready < 0 || ((one.revents & POLLIN) != 0 && PQconsumeInput(connection_.get()) == 0)) {
    lose(one_line(PQerrorMessage(connection_.get())));
  }
}

void Connection::send(const char* sql, const Value* values, size_t count) {
  if (connection_ == nullptr) lose("the connection broke before");
  std::vector<Oid> types(count);
  std::vector<const char*> data(count);
  std::vector<int> sizes(count);
  const std::vector<int> formats(count, 1);
  for (size_t i = 0; i < count; ++i) {
    types[i] = values[i].type();
    data[i] = values[i].data();
    sizes[i] = values[i].size();
    // A null pointer would be a null value.
    if (data[i] == nullptr) data[i] = "";
  }
  if (PQsendQueryParams(connection_.get(), sql, static_cast<int>(count), types.data(), data.data(),
                        sizes.data(), formats.data(), 1) == 0) {
    lose(one_line(PQerrorMessage(connection_.get())));
  }
}

// The next result of the statement under way; null when there is none left.
PGresult* Connection::next_result() {
  for (;;) {
    const int unsent = PQflush(connection_.get());
    if (unsent < 0) lose(one_line(PQerrorMessage(connection_.get())));
    if (unsent == 0) break;
    wait_for(POLLIN | POLLOUT);
  }
  while (PQisBusy(connection_.get()) != 0) wait_for(POLLIN);
  return PQgetResult(connection_.get());
}

Rows Connection::receive() {
  Rows rows(next_result());
  while (PGresult* const more = next_result()) {
    if (PQresultStatus(rows.get()) != PGRES_FATAL_ERROR) {
      rows = Rows(more);
    } else {
      PQclear(more);
    }
  }
  const ExecStatusType status = PQresultStatus(rows.get());
  if (status != PGRES_TUPLES_OK && status != PGRES_COMMAND_OK) fail(rows.get());
  return rows;
}

Rows Connection::run_with(const char* sql, const Value* values, size_t count) {
  send(sql, values, count);
  return receive();
}

void Connection::receive_rows(const std::function<void(const Rows&)>& row) {
  PQsetSingleRowMode(connection_.get());
  while (PGresult* const next = next_result()) {
    const Rows rows(next);
    const ExecStatusType status = PQresultStatus(next);
    if (status == PGRES_SINGLE_TUPLE) {
      row(rows);
    } else if (status != PGRES_TUPLES_OK) {
      while (PGresult* const more = next_result()) PQclear(more);
      fail(next);
    }
  }
}

void Connection::run_all(const char* sql) {
  if (connection_ == nullptr) lose("the connection broke before");
  if (PQsendQuery(connection_.get(), sql) == 0) {
    lose(one_line(PQerrorMessage(connection_.get())));
  }
  receive();
}

bool Connection::try_all(const char* sql) {
  try {
    run_all(sql);
    return true;
  } catch (const ServerFailure& failure) {
    if (failure.status() == kNoConnection) throw;
    return false;
  }
}

void Connection::limit_idle(std::chrono::milliseconds limit) {
  const std::string sql =
      "SET idle_in_transaction_session_timeout = " + std::to_string(limit.count());
  try_all(sql.c_str());
}

bool Connection::is_open() {
  if (connection_ == nullptr) return false;
  pollfd one{PQsocket(connection_.get()), POLLIN, 0};
  if (poll(&one, 1, 0) > 0 && PQconsumeInput(connection_.get()) == 0) return false;
  // What a server says unasked before it goes is a last error.
  if (PQisBusy(connection_.get()) == 0 && PQtransactionStatus(connection_.get()) == PQTRANS_IDLE) {
    while (PGresult* const unasked = PQgetResult(connection_.get())) PQclear(unasked);
  }
  return PQstatus(connection_.get()) == CONNECTION_OK;
}

Transaction::Transaction(Connection& connection, const char* begin) : connection_(connection) {
  connection_.run_all(begin);
}

Transaction::~Transaction() {
  if (!open_ || connection_.is_lost()) return;
  run_guarded([&] {
    connection_.run_all("ROLLBACK");
    return kStatusOk;
  });
}

void Transaction::commit() {
  open_ = false;
  connection_.run_all("COMMIT");
}

}  // namespace standin::postgresql
