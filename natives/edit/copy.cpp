// Copies a member with its subtree in batches: copyMember copies the root, each copyContinue the
// next few members, mirroring a pre-order walk of the source onto the copy.
#include "bridge/native.h"
#include "edit/copy_request.h"

#include "bridge/scope.h"
#include "browse/members.h"

namespace kepotl {
namespace {

constexpr int kMembersPerBatch = 5;

// The pair that was copied last, and the dimensions that both walks stay in.
class CopyWalk {
 public:
  CopyWalk(const Frame& frame, jobject jrequest)
      : frame_(frame), jrequest_(jrequest), request_(frame.env, jrequest) {
    source_ = request_.last_source();
    target_ = request_.last_target();
    first_source_ = request_.first_source();
    source_dimension_ = LocateDimensionForMember(frame.outline, source_);
    target_dimension_ = LocateDimensionForMember(frame.outline, target_);
  }

  // Copies up to one batch. The status of the last step of the walk, or kStatusCopyFailed; the
  // request then still names the last pair that was copied.
  int copy_batch() {
    int status = kStatusOk;
    for (int copied = 0; copied < kMembersPerBatch && source_ != 0; ++copied) {
      GivenHandle next = ask_handle(OlvOtlGetChild, frame_.outline, source_);
      status = next.status;
      if (status != kStatusOk) {
        request_.set_finished(true);
        return status;
      }
      const bool as_sibling = next.handle == 0;
      if (as_sibling) {
        next = next_behind();
        status = next.status;
        if (next.handle == 0) return status;
      }
      if (!copy(next.handle, as_sibling)) return kStatusCopyFailed;
    }
    return status;
  }

 private:
  // The member behind the current source, climbing with both sides where a list of siblings ends.
  // 0, and the request is finished, at the end of the subtree.
  GivenHandle next_behind() {
    while (source_ != first_source_) {
      const GivenHandle next = ask_handle(OlvOtlGetNextSibling, frame_.outline, source_);
      if (next.status != kStatusOk || next.handle != 0) return next;
      int status = climb(&source_);
      if (status != kStatusOk) return {status, 0};
      status = climb(&target_);
      if (source_ == first_source_) break;  // complete, whatever lies above the copy
      if (status != kStatusOk) return {status, 0};
      if (source_ == 0 || target_ == 0) break;
    }
    request_.set_finished(true);
    return {kStatusOk, 0};
  }

  // Stays where it is when the parent cannot be read. The API's status.
  int climb(HMember* member) const {
    const GivenHandle parent = ask_handle(OlvOtlGetParent, frame_.outline, *member);
    if (parent.status == kStatusOk) *member = parent.handle;
    return parent.status;
  }

  bool copy(HMember source, bool as_sibling) {
    const HMember copied = CopyCreateMember(frame_.env, jrequest_, frame_.inst, frame_.outline,
                                            target_, target_dimension_, source, source_dimension_,
                                            as_sibling ? JNI_TRUE : JNI_FALSE);
    if (copied == 0) return false;
    source_ = source;
    target_ = copied;
    return true;
  }

  const Frame& frame_;
  jobject jrequest_;
  CopyRequest request_;
  HMember source_ = 0;
  HMember target_ = 0;
  HMember first_source_ = 0;
  HMember source_dimension_ = 0;
  HMember target_dimension_ = 0;
};

// The given handle, or the member of a name that is not empty; 0 when there is none.
HMember given_or_named(HOutline outline, jint handle, const JavaText& name) {
  if (handle != 0) return static_cast<HMember>(handle);
  return name.empty() ? 0 : find_by_name(outline, name.api()).handle;
}

}  // namespace
}  // namespace kepotl

using namespace kepotl;

KEPOTL_NATIVE(jint, copyMember)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jstring jtarget_name, jint jtarget,
 jstring jsource_name, jint jsource, jboolean as_sibling, jobject jrequest, jobject results) {
  TextContext text;
  JavaText target_name(env, text, jtarget_name);
  JavaText source_name(env, text, jsource_name);
  const INST inst = RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusOk;
  const HMember target = given_or_named(outline, jtarget, target_name);
  const HMember source = given_or_named(outline, jsource, source_name);
  if (target == 0 || source == 0) return kStatusCopyFailed;
  if (IsCopySourceAncestorOfTarget(outline, target, source)) return kStatusCopyFailed;
  if (target == source && !as_sibling) return kStatusCopyFailed;

  const HMember target_dimension = LocateDimensionForMember(outline, target);
  const HMember source_dimension = LocateDimensionForMember(outline, source);
  const bool becomes_dimension = target == target_dimension && as_sibling;
  const HMember copy =
      becomes_dimension ? CopyCreateDimension(env, jrequest, inst, outline, target,
                                              target_dimension, source, source_dimension)
                        : CopyCreateMember(env, jrequest, inst, outline, target, target_dimension,
                                           source, source_dimension, as_sibling);
  const CopyRequest request(env, jrequest);
  if (ask_handle(OlvOtlGetChild, outline, source).handle == 0) request.set_finished(true);
  if (copy == 0) return kStatusCopyFailed;
  jobject member = CreateMemberObject(env, outline, copy);
  if (member != nullptr) CallCollectionAddObject(env, results, member);
  request.set_first_source(source);
  return kStatusOk;
}

KEPOTL_NATIVE(jint, copyContinue)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jobject jrequest) {
  TextContext text;
  const Frame frame = {env, text, RetrieveINST(env, jinst), RetrieveHOutline(env, joutline)};
  if (frame.outline == 0) return kStatusOk;
  CopyWalk walk(frame, jrequest);
  return walk.copy_batch();
}
