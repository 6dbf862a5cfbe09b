// One connection to the server, on libpq: statements with binary values, bounded waiting, and
// errors as StoreFailure.
#pragma once

#include <libpq-fe.h>

#include <array>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "standin/guard.h"

namespace standin::postgresql {

// What a statement failed with, beside the status: the server's five letters, as "40001".
class ServerFailure : public StoreFailure {
 public:
  ServerFailure(int status, std::string_view state) : StoreFailure(status) {
    state.copy(state_.data(), state_.size());
  }
  std::string_view state() const { return {state_.data(), state_.size()}; }
  // Nothing was done because of what others did at the same moment; the transaction may be tried
  // again. Tables and schemas that two make at once count, too.
  bool may_try_again() const {
    return state() == "40001" || state() == "40P01" || state() == "42P06" || state() == "42P07";
  }
  bool is_duplicate() const { return state() == "23505"; }

 private:
  std::array<char, 5> state_{};
};

// A value of a statement: bigint, or bytea that has to outlive the statement.
class Value {
 public:
  Value(int64_t number);         // NOLINT(google-explicit-constructor)
  Value(std::string_view bytes)  // NOLINT(google-explicit-constructor)
      : bytes_(bytes) {}
  Value(const std::string& bytes)  // NOLINT(google-explicit-constructor)
      : bytes_(bytes) {}

  Oid type() const { return is_number_ ? kBigint : kBytea; }
  const char* data() const { return is_number_ ? number_.data() : bytes_.data(); }
  int size() const { return static_cast<int>(is_number_ ? number_.size() : bytes_.size()); }

 private:
  static constexpr Oid kBytea = 17;
  static constexpr Oid kBigint = 20;

  bool is_number_ = false;
  std::array<char, 8> number_{};  // most significant byte first
  std::string_view bytes_;
};

// The rows of a statement, whose columns are bigint or bytea.
class Rows {
 public:
  explicit Rows(PGresult* result) : result_(result, PQclear) {}

  int count() const { return PQntuples(result_.get()); }
  bool empty() const { return count() == 0; }
  bool is_null(int row, int column) const { return PQgetisnull(result_.get(), row, column) != 0; }
  int64_t number(int row, int column) const;
  std::string_view bytes(int row, int column) const;
  std::string text(int row, int column) const { return std::string(bytes(row, column)); }
  // How many rows a changing statement changed.
  int64_t changed() const { return std::strtoll(PQcmdTuples(result_.get()), nullptr, 10); }
  const PGresult* get() const { return result_.get(); }

 private:
  std::unique_ptr<PGresult, decltype(&PQclear)> result_;
};

// Not for several threads at once. Every wait ends: kNoConnection when the server says nothing for
// kPatience, and the connection is then of no more use.
class Connection {
 public:
  static constexpr std::chrono::seconds kPatience{30};

  // Connects. Of the settings that the address leaves open, those are chosen that find a dead peer
  // and, of several hosts, the one that takes changes.
  explicit Connection(const std::string& address);

  // Runs one statement whose values are $1, $2 and so on.
  template <typename... Values>
  Rows run(const char* sql, const Values&... values) {
    const std::array<Value, sizeof...(values)> list = {Value(values)...};
    return run_with(sql, list.data(), list.size());
  }
  // Runs a statement and calls row(rows) with one row at a time.
  template <typename... Values>
  void for_each(const char* sql, const std::function<void(const Rows&)>& row,
                const Values&... values) {
    const std::array<Value, sizeof...(values)> list = {Value(values)...};
    send(sql, list.data(), list.size());
    receive_rows(row);
  }
  // Has the server end a transaction in which nothing happens for so long, if it knows how to.
  void limit_idle(std::chrono::milliseconds limit);
  // Runs several statements without values.
  void run_all(const char* sql);
  // The same where the server may not know them; true when it did.
  bool try_all(const char* sql);

  // Whether it can be used, as far as is known without asking the server. Notices that the server
  // has closed it.
  bool is_open();
  // Whether it has broken.
  bool is_lost() const { return connection_ == nullptr; }
  // Whether no statement and no transaction is under way.
  bool is_idle() const {
    return connection_ != nullptr && PQtransactionStatus(connection_.get()) == PQTRANS_IDLE;
  }

 private:
  Rows run_with(const char* sql, const Value* values, size_t count);
  void send(const char* sql, const Value* values, size_t count);
  void receive_rows(const std::function<void(const Rows&)>& row);
  Rows receive();
  PGresult* next_result();
  void wait_for(short events);
  [[noreturn]] void fail(const PGresult* result);
  [[noreturn]] void lose(const std::string& reason);

  std::unique_ptr<PGconn, decltype(&PQfinish)> connection_;
};

// A transaction, taken back unless it was committed.
class Transaction {
 public:
  explicit Transaction(Connection& connection, const char* begin = "BEGIN");
  ~Transaction();
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;

  void commit();

 private:
  Connection& connection_;
  bool open_ = true;
};

}  // namespace standin::postgresql
