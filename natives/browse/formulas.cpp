// Formulas of members.
#include "bridge/native.h"
#include "browse/requests.h"

using namespace kepotl;

KEPOTL_NATIVE(jint, getMemberFormula)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jstring jname, jint handle, jobject target) {
  TextContext text;
  JavaText name;
  const INST inst = RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusOk;
  HMember member = 0;
  const int status = find_by_handle_or_name(env, text, outline, handle, jname, &name, &member);
  if (status != kStatusOk || member == 0) return status;
  return give_formula(inst, outline, member, [&](const char* formula) {
    CallStringSetProperty(text, env, target, "setFormula", formula);
  });
}

KEPOTL_NATIVE(jint, getMemberFormulaQuery)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jstring jname, jobject target) {
  TextContext text;
  JavaText name(env, text, jname);
  const INST inst = RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusOk;
  HandleArray members(outline);
  const int status = find_by_query(name, &members);
  if (status != kStatusOk || members.size() == 0) return status;
  return give_formula(inst, outline, members[0], [&](const char* formula) {
    CallStringSetProperty(text, env, target, "setFormula", formula);
  });
}

KEPOTL_NATIVE(jint, getMemberFormulaBlock)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jobject requests, jobject results) {
  TextContext text;
  const INST inst = RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusOk;
  return for_each_request(env, text, outline, requests,
                          [&](HMember member, const JavaText& name, int& status) {
                            jobject result = create_request_result(env, text, member, name);
                            if (result == nullptr) return;
                            status = give_formula(inst, outline, member, [&](const char* formula) {
                              add_data(env, result, CreateStringObject(env, formula));
                            });
                            CallCollectionAddObject(env, results, result);
                          });
}
