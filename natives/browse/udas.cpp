// User-defined attributes (UDAs) of members and of whole dimensions.
#include <new>

#include "bridge/native.h"
#include "browse/member_methods.h"

namespace kepotl {
namespace {

void add_uda(JNIEnv* env, jobject collection, const char* uda) {
  jobject string = CreateStringObject(env, uda);
  if (string != nullptr) CallCollectionAddObject(env, collection, string);
}

int list_udas(const Frame& frame, HMember member, jobject collection) {
  return give_udas(frame.inst, frame.outline, member,
                   [&](const char* uda) { add_uda(frame.env, collection, uda); });
}

}  // namespace
}  // namespace kepotl

using namespace kepotl;

KEPOTL_NATIVE(jint, getMemberUDAS)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jstring jname, jint handle,
 jobject collection) {
  return on_member(env, jinst, joutline, jname, handle, [&](const Frame& frame, HMember member) {
    return list_udas(frame, member, collection);
  });
}

KEPOTL_NATIVE(jint, getMemberUDASQuery)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jstring jname, jobject collection) {
  return on_queried_member(env, jinst, joutline, jname, [&](const Frame& frame, HMember member) {
    return list_udas(frame, member, collection);
  });
}

KEPOTL_NATIVE(jint, getMemberUDASBlock)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jobject requests, jobject results) {
  TextContext text;
  const Frame frame = {env, text, RetrieveINST(env, jinst), RetrieveHOutline(env, joutline)};
  if (frame.outline == 0) return kStatusOk;
  return answer_requests(
      frame, requests, results, [&](HMember member, RequestResult& result, int status) {
        if (!result.make()) return status;
        return give_udas(frame.inst, frame.outline, member,
                         [&](const char* uda) { result.add(CreateStringObject(env, uda)); });
      });
}

KEPOTL_NATIVE(jint, getDimensionUDAS)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jstring jdimension, jint /*unread*/,
 jobject collection) {
  TextContext text;
  JavaText dimension(env, text, jdimension);
  const INST inst = RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusOk;
  if (dimension.lost()) return kStatusRefused;
  if (dimension.empty()) return kStatusOk;
  const GivenHandle found = find_by_name(outline, dimension.api());
  if (found.handle == 0) return found.status;
  MemberQuery query = {};
  query.queryType = kQueryDimensionUdas;
  query.dimension = dimension.api();
  MemberQueryCounts counts = {};
  ApiBlock<char> udas(inst);
  const int status = udas.take(OlvOtlGetDimensionUserAttributes, outline, &query, &counts);
  if (!udas) return status;
  for (uint32_t i = 0; i < counts.returned; ++i) {
    add_uda(env, collection, udas.get() + size_t{i} * kUdaStride);
  }
  return status;
}

void getDimensionUDASRecursive(JNIEnv* env, uintptr_t /*unread*/, HOutline outline, INST inst,
                               HMember member, jobject collection) {
  TextContext text;
  const Frame frame = {env, text, inst, outline};
  list_udas(frame, member, collection);
  try {
    walk_descendants(outline, member, [&](HMember descendant) {
      list_udas(frame, descendant, collection);
      return true;
    });
  } catch (const std::bad_alloc&) {
    // The collection keeps what it has.
  }
}
