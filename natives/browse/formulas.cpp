// Formulas of members.
#include "bridge/native.h"
#include "browse/member_methods.h"

namespace kepotl {
namespace {

int send_formula(const Frame& frame, HMember member, jobject target) {
  return give_formula(frame.inst, frame.outline, member, [&](const char* formula) {
    CallStringSetProperty(frame.text, frame.env, target, "setFormula", formula);
  });
}

}  // namespace
}  // namespace kepotl

using namespace kepotl;

KEPOTL_NATIVE(jint, getMemberFormula)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jstring jname, jint handle, jobject target) {
  return on_member(env, jinst, joutline, jname, handle, [&](const Frame& frame, HMember member) {
    return send_formula(frame, member, target);
  });
}

KEPOTL_NATIVE(jint, getMemberFormulaQuery)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jstring jname, jobject target) {
  return on_queried_member(env, jinst, joutline, jname, [&](const Frame& frame, HMember member) {
    return send_formula(frame, member, target);
  });
}

KEPOTL_NATIVE(jint, getMemberFormulaBlock)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jobject requests, jobject results) {
  TextContext text;
  const Frame frame = {env, text, RetrieveINST(env, jinst), RetrieveHOutline(env, joutline)};
  if (frame.outline == 0) return kStatusOk;
  return answer_requests(
      frame, requests, results, [&](HMember member, RequestResult& result, int status) {
        if (!result.make()) return status;
        return give_formula(frame.inst, frame.outline, member, [&](const char* formula) {
          result.add(CreateStringObject(env, formula));
        });
      });
}
