// The three ways in which the methods for one member's details get at their members: by handle or
// name, by query, and by a block of requests.
#pragma once

#include "browse/browse.h"

namespace kepotl {

// Runs act(frame, member) on the member of a handle or, when that is 0, of a name, whose characters
// are obtained only then. An empty name finds nothing and is no failure. The status of act, or of
// the look-up when nothing was found.
template <typename Act>
jint on_member(JNIEnv* env, jobject jinst, jobject joutline, jstring jname, jint handle, Act act) {
  TextContext text;
  JavaText name;
  const Frame frame = {env, text, RetrieveINST(env, jinst), RetrieveHOutline(env, joutline)};
  if (frame.outline == 0) return kStatusOk;
  GivenHandle member = {kStatusOk, static_cast<HMember>(handle)};
  if (member.handle == 0) {
    name = JavaText(env, text, jname);
    if (name.lost()) return kStatusRefused;
    if (!name.empty()) member = find_by_name(frame.outline, name.api());
  }
  return member.handle == 0 ? member.status : act(frame, member.handle);
}

// Runs act(frame, member) on the first member that a query for a name gives. An empty name asks for
// nothing. The status of act, or of the query when nothing was found.
template <typename Act>
jint on_queried_member(JNIEnv* env, jobject jinst, jobject joutline, jstring jname, Act act) {
  TextContext text;
  JavaText name(env, text, jname);
  const Frame frame = {env, text, RetrieveINST(env, jinst), RetrieveHOutline(env, joutline)};
  if (frame.outline == 0) return kStatusOk;
  if (name.lost()) return kStatusRefused;
  if (name.empty()) return kStatusOk;
  HandleArray members(frame.outline);
  const int status = members.query_by_name(nullptr, named_member_query(name.api()));
  return members.size() == 0 ? status : act(frame, members[0]);
}

// What answers one request of a block. The Java object is made when the answer is known to be
// wanted.
class RequestResult {
 public:
  // `name` is null for a request by handle.
  RequestResult(const Frame& frame, HMember member, const JavaText& name)
      : frame_(frame), member_(member), name_(name) {}

  // Makes the object, once. False when it could not be made.
  bool make() {
    object_ = CreateSimpleObject(frame_.env, CNAME_MEMBER_RESULT);
    if (object_ == nullptr) return false;
    CallIntegerSetProperty(frame_.env, object_, "setHandle", static_cast<jint>(member_));
    CallStringSetProperty(frame_.text, frame_.env, object_, "setName", name_.api_or_null());
    return true;
  }
  // Adds one datum, if it could be made.
  void add(jobject datum) {
    if (datum != nullptr) CallSingleArgumentObjectMethod(frame_.env, object_, "addData", datum);
  }
  // The object; null when it was not made.
  jobject object() const { return object_; }

 private:
  const Frame& frame_;
  HMember member_;
  const JavaText& name_;
  jobject object_ = nullptr;
};

// Answers each request whose member is known, by its handle or else by its name:
// answer(member, result, status) makes and fills the result and gives the status to keep, as the
// last call whose status is kept left it. Results that were made go to the collection. The last
// status, 0 when there was none.
template <typename Answer>
int answer_requests(const Frame& frame, jobject requests, jobject results, Answer answer) {
  JNIEnv* env = frame.env;
  int status = kStatusOk;
  const jint count = CallListGetCount(env, requests);
  for (jint i = 0; i < count; ++i) {
    jobject request = CallListGetObject(env, requests, i);
    HMember member = static_cast<HMember>(CallIntegerGetProperty(env, request, "getHandle"));
    JavaText name;
    if (member == 0) {
      name = JavaText(env, frame.text, CallStringGetProperty(env, request, "getName"));
      if (name.lost()) return kStatusRefused;
      if (!name.empty()) {
        const GivenHandle found = find_by_name(frame.outline, name.api());
        status = found.status;
        member = found.handle;
      }
    }
    if (member == 0) continue;
    RequestResult result(frame, member, name);
    status = answer(member, result, status);
    if (result.object() != nullptr) CallCollectionAddObject(env, results, result.object());
  }
  return status;
}

}  // namespace kepotl
