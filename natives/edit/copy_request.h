// The copy request: the Java object that carries a copy from call to call.
#pragma once

#include "bridge/bridge.h"

namespace kepotl {

// Properties of a copy request, read and written by name. Handles and counters stay in the Java
// object; nothing is kept between calls.
class CopyRequest {
 public:
  CopyRequest(JNIEnv* env, jobject request) : env_(env), request_(request) {}

  HMember first_source() const { return handle("getFirstSourceHandle"); }
  HMember last_source() const { return handle("getLastSourceHandle"); }
  HMember last_target() const { return handle("getLastTargetHandle"); }
  void set_first_source(HMember member) const { set("setFirstSourceHandle", member); }

  // Notes the pair that was copied last.
  void set_last_pair(HMember source, HMember target) const {
    set("setLastSourceHandle", source);
    set("setLastTargetHandle", target);
  }
  jint count() const { return CallIntegerGetProperty(env_, request_, "getCount"); }
  void set_count(jint count) const { CallIntegerSetProperty(env_, request_, "setCount", count); }
  jint total() const { return CallIntegerGetProperty(env_, request_, "getTotal"); }
  void set_total(jint total) const { CallIntegerSetProperty(env_, request_, "setTotal", total); }
  void set_finished(bool finished) const {
    CallBooleanSetProperty(env_, request_, "setFinished", finished);
  }

 private:
  HMember handle(const char* getter) const {
    return static_cast<HMember>(CallIntegerGetProperty(env_, request_, getter));
  }
  void set(const char* setter, HMember member) const {
    CallIntegerSetProperty(env_, request_, setter, static_cast<jint>(member));
  }

  JNIEnv* env_;
  jobject request_;
};

}  // namespace kepotl
