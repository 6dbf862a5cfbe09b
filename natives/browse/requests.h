// How the block methods answer a whole list of requests in one call, and how the query methods
// find their one member.
#pragma once

#include "browse/browse.h"

namespace kepotl {

// Asks for the member of a name; its handle is the first of `*members`. An empty name asks for
// nothing. The query's status.
inline int find_by_query(const JavaText& name, HandleArray* members) {
  if (name.empty()) return kStatusOk;
  return members->query_by_name(nullptr, named_member_query(name.api()));
}

// The result object of one request, or null. A request by handle has no name to send.
inline jobject create_request_result(JNIEnv* env, int context, HMember member,
                                     const JavaText& name) {
  jobject result = CreateSimpleObject(env, CNAME_MEMBER_RESULT);
  if (result == nullptr) return nullptr;
  CallIntegerSetProperty(env, result, "setHandle", static_cast<jint>(member));
  if (!name.is_null()) CallStringSetProperty(context, env, result, "setName", name.api());
  return result;
}

// Hands one datum, if it could be made, to a request's result.
inline void add_data(JNIEnv* env, jobject result, jobject datum) {
  if (datum != nullptr) CallSingleArgumentObjectMethod(env, result, "addData", datum);
}

// Calls answer(member, name, status) for each request whose member is known, by its handle or else
// by its name; answer replaces `status` by that of each call whose status is kept. The last one,
// 0 when there was none.
template <typename Answer>
int for_each_request(JNIEnv* env, int context, HOutline outline, jobject requests, Answer answer) {
  int status = kStatusOk;
  const jint count = CallListGetCount(env, requests);
  for (jint i = 0; i < count; ++i) {
    jobject request = CallListGetObject(env, requests, i);
    HMember member = static_cast<HMember>(CallIntegerGetProperty(env, request, "getHandle"));
    JavaText name;
    if (member == 0) {
      name = JavaText(env, context, CallStringGetProperty(env, request, "getName"));
      if (!name.empty()) status = find_by_name(outline, name.api(), &member);
    }
    if (member != 0) answer(member, name, status);
  }
  return status;
}

}  // namespace kepotl
