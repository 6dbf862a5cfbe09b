// How errors travel inside libolv.so: as a StoreFailure that carries a status, turned into that
// status before it could leave the library.
#pragma once

#include <cerrno>
#include <exception>
#include <new>

#include "standin/status.h"

namespace standin {

// Ends the work under way with a status.
class StoreFailure : public std::exception {
 public:
  explicit StoreFailure(int status) : status_(status) {}
  int status() const noexcept { return status_; }
  const char* what() const noexcept override { return status_text(status_); }

 private:
  int status_;
};

// The status for an error number of the system: kNoSpace for a full disk, a quota and the largest
// file size, kNotPermitted where this user may not go, kStoreError for any other.
inline int status_of_error(int error) {
  switch (error) {
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return kNoSpace;
    case EACCES:
    case EPERM:
    case EROFS:
      return kNotPermitted;
    default:
      return kStoreError;
  }
}

// Throws StoreFailure when `status` is not 0.
inline void require(int status) {
  if (status != kStatusOk) throw StoreFailure(status);
}

// Runs `work` and answers its status, or the status of what it throws. Every function that
// libolv.so exports runs in here.
template <typename Work>
int run_guarded(Work&& work) noexcept {
  try {
    return work();
  } catch (const StoreFailure& failure) {
    return failure.status();
  } catch (const std::bad_alloc&) {
    return kNoMemory;
  } catch (...) {
    return kStoreError;
  }
}

}  // namespace standin
