// Walks over members, for range-for.
#pragma once

#include <utility>

#include "standin/outline/model/member.h"

namespace standin {

// From a first member (0: none) on to what `step(id)` answers, until that is 0. The step is taken
// when the loop comes round, so the body may change what lies behind its member, not the member's
// own place.
template <typename Step>
class MemberWalk {
 public:
  MemberWalk(MemberId first, Step step) : first_(first), step_(std::move(step)) {}

  class Iterator {
   public:
    Iterator(MemberId id, const Step& step) : id_(id), step_(step) {}
    MemberId operator*() const { return id_; }
    Iterator& operator++() {
      id_ = step_(id_);
      return *this;
    }
    bool operator!=(const Iterator& other) const { return id_ != other.id_; }

   private:
    MemberId id_;
    const Step& step_;
  };

  Iterator begin() const { return {first_, step_}; }
  Iterator end() const { return {kNoMember, step_}; }

 private:
  MemberId first_;
  Step step_;
};

}  // namespace standin
