// The lock of a stored object as a scope guard.
#pragma once

#include <utility>

#include "standin/guard.h"
#include "standin/store.h"

namespace standin {

// The lock of an object, held while this lives.
class HeldLock {
 public:
  HeldLock(Store& store, int64_t login, ObjectName object)
      : store_(store), login_(login), object_(std::move(object)) {
    store_.lock(login_, object_);
  }
  ~HeldLock() {
    run_guarded([&] {
      store_.unlock(login_, object_);
      return kStatusOk;
    });
  }
  HeldLock(const HeldLock&) = delete;
  HeldLock& operator=(const HeldLock&) = delete;

 private:
  Store& store_;
  int64_t login_;
  ObjectName object_;
};

}  // namespace standin
