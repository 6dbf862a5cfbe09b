// Entering, renewing and losing logins.
#include "standin/postgresql/keeper.h"

#include <sys/random.h>

#include <algorithm>

#include "standin/process_identity.h"

namespace standin::postgresql {
namespace {

// A login is renewed several times before it would run out.
constexpr int kRenewalsInALease = 5;
// How soon the loss of the connection is noticed.
constexpr std::chrono::milliseconds kLook{250};
// Without logins there is nothing to look for. (Waiting without an end takes a newer library.)
constexpr std::chrono::hours kIdle{1};

int64_t random_number() {
  uint64_t bits = 0;
  if (getrandom(&bits, sizeof bits, 0) != ssize_t{sizeof bits}) throw StoreFailure(kStoreError);
  return static_cast<int64_t>(bits >> 1) | 1;
}

}  // namespace

Keeper::Keeper(std::string address, std::chrono::milliseconds lease)
    : address_(std::move(address)), lease_(lease) {}

Keeper::~Keeper() {
  {
    const std::lock_guard<std::mutex> lock(mutex_);
    ending_ = true;
    changed_.notify_all();
  }
  if (thread_.joinable()) thread_.join();
}

// Others may look at the logins meanwhile: connecting takes its time when the server is gone.
void Keeper::connect(std::unique_lock<std::mutex>& lock) {
  lock.unlock();
  std::unique_ptr<Connection> connection;
  try {
    connection = std::make_unique<Connection>(address_);
  } catch (...) {
    lock.lock();
    throw;
  }
  lock.lock();
  if (connection_ == nullptr) connection_ = std::move(connection);
}

int64_t Keeper::enter(const std::string& user) {
  const ProcessIdentity self = this_process();
  std::unique_lock<std::mutex> lock(mutex_);
  notice_loss();
  if (connection_ == nullptr) connect(lock);
  const int64_t login = random_number();
  connection_->run(
      "INSERT INTO kepotl.login"
      "(id, user_name, host, machine, boot, pid_space, pid, started, mark) "
      "VALUES($1, $2, $3, $4, $5, $6, $7, $8, $9)",
      login, user, self.host, self.machine, self.boot, self.pid_space, self.pid, self.started,
      self.mark);
  logins_.insert(login);
  if (!thread_.joinable()) thread_ = std::thread([this] { keep(); });
  changed_.notify_all();
  return login;
}

void Keeper::leave(int64_t login) {
  const std::lock_guard<std::mutex> lock(mutex_);
  notice_loss();
  if (logins_.erase(login) == 0) return;
  connection_->run("DELETE FROM kepotl.login WHERE id = $1", login);
}

bool Keeper::is_kept(int64_t login) {
  const std::lock_guard<std::mutex> lock(mutex_);
  notice_loss();
  return logins_.count(login) != 0;
}

// With the mutex held, as all that follows.
void Keeper::notice_loss() {
  if (connection_ == nullptr || connection_->is_open()) return;
  connection_ = nullptr;
  orphans_.insert(logins_.begin(), logins_.end());
  orphans_until_ = Clock::now() + 2 * lease_;
  logins_.clear();
}

void Keeper::renew() {
  for (auto login = logins_.begin(); login != logins_.end();) {
    const Rows renewed =
        connection_->run("UPDATE kepotl.login SET renewed = DEFAULT WHERE id = $1", *login);
    login = renewed.changed() == 0 ? logins_.erase(login) : std::next(login);
  }
}

// Makes the way free for others before the logins run out, if the server is there again.
void Keeper::remove_orphans(std::unique_lock<std::mutex>& lock) {
  if (Clock::now() > orphans_until_) orphans_.clear();
  if (orphans_.empty()) return;
  if (connection_ == nullptr) connect(lock);
  while (!orphans_.empty()) {
    connection_->run("DELETE FROM kepotl.login WHERE id = $1", *orphans_.begin());
    orphans_.erase(orphans_.begin());
  }
}

void Keeper::keep() {
  std::unique_lock<std::mutex> lock(mutex_);
  Clock::time_point due = Clock::now();
  while (!ending_) {
    if (logins_.empty() && orphans_.empty()) {
      changed_.wait_for(lock, kIdle);
      due = Clock::now() + lease_ / kRenewalsInALease;
      continue;
    }
    changed_.wait_for(lock, std::min(kLook, lease_ / kRenewalsInALease));
    // What fails is tried again; a broken connection is noticed the next time.
    run_guarded([&] {
      notice_loss();
      remove_orphans(lock);
      if (Clock::now() < due || connection_ == nullptr) return kStatusOk;
      due = Clock::now() + lease_ / kRenewalsInALease;
      renew();
      return kStatusOk;
    });
    if (connection_ != nullptr && connection_->is_lost()) notice_loss();
  }
}

}  // namespace standin::postgresql
