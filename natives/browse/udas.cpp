// User-defined attributes (UDAs) of members and of whole dimensions.
#include <new>

#include "bridge/native.h"
#include "browse/requests.h"

namespace kepotl {
namespace {

void add_uda(JNIEnv* env, jobject collection, const char* uda) {
  jobject string = CreateStringObject(env, uda);
  if (string != nullptr) CallCollectionAddObject(env, collection, string);
}

int list_udas(JNIEnv* env, INST inst, HOutline outline, HMember member, jobject collection) {
  return give_udas(inst, outline, member, [&](const char* uda) { add_uda(env, collection, uda); });
}

}  // namespace
}  // namespace kepotl

using namespace kepotl;

KEPOTL_NATIVE(jint, getMemberUDAS)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jstring jname, jint handle,
 jobject collection) {
  TextContext text;
  JavaText name;
  const INST inst = RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusOk;
  HMember member = 0;
  const int status = find_by_handle_or_name(env, text, outline, handle, jname, &name, &member);
  if (status != kStatusOk || member == 0) return status;
  return list_udas(env, inst, outline, member, collection);
}

KEPOTL_NATIVE(jint, getMemberUDASQuery)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jstring jname, jobject collection) {
  TextContext text;
  JavaText name(env, text, jname);
  const INST inst = RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusOk;
  HandleArray members(outline);
  const int status = find_by_query(name, &members);
  if (status != kStatusOk || members.size() == 0) return status;
  return list_udas(env, inst, outline, members[0], collection);
}

KEPOTL_NATIVE(jint, getMemberUDASBlock)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jobject requests, jobject results) {
  TextContext text;
  const INST inst = RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusOk;
  return for_each_request(env, text, outline, requests,
                          [&](HMember member, const JavaText& name, int& status) {
                            jobject result = create_request_result(env, text, member, name);
                            if (result == nullptr) return;
                            status = give_udas(inst, outline, member, [&](const char* uda) {
                              add_data(env, result, CreateStringObject(env, uda));
                            });
                            CallCollectionAddObject(env, results, result);
                          });
}

KEPOTL_NATIVE(jint, getDimensionUDAS)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jstring jdimension, jint /*unread*/,
 jobject collection) {
  TextContext text;
  JavaText dimension(env, text, jdimension);
  const INST inst = RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0 || dimension.empty()) return kStatusOk;
  HMember member = 0;
  int status = find_by_name(outline, dimension.api(), &member);
  if (member == 0) return status;
  MemberQuery query = {};
  query.queryType = kQueryDimensionUdas;
  query.dimension = dimension.api();
  MemberQueryCounts counts = {};
  ApiBlock<char> udas(inst);
  status = OlvOtlGetDimensionUserAttributes(outline, &query, &counts, udas.out());
  if (status != kStatusOk || !udas) return status;
  for (uint32_t i = 0; i < counts.returned; ++i) {
    add_uda(env, collection, udas.get() + size_t{i} * kUdaStride);
  }
  return status;
}

void getDimensionUDASRecursive(JNIEnv* env, uintptr_t /*unread*/, HOutline outline, INST inst,
                               HMember member, jobject collection) {
  list_udas(env, inst, outline, member, collection);
  try {
    walk_descendants(outline, member, [&](HMember descendant) {
      list_udas(env, inst, outline, descendant, collection);
      return true;
    });
  } catch (const std::bad_alloc&) {
    // The collection keeps what it has.
  }
}
