// Copies a member with its subtree in batches: copyMember copies the root, each copyContinue the
// next few members, mirroring a pre-order walk of the source onto the copy.
#include "edit/copy.h"
#include "bridge/native.h"

#include "browse/browse.h"

namespace kepotl {
namespace {

constexpr int kMembersPerBatch = 5;

// The pair that was copied last, and the dimensions that both walks stay in.
class CopyWalk {
 public:
  CopyWalk(JNIEnv* env, jobject jrequest, INST inst, HOutline outline)
      : env_(env), jrequest_(jrequest), request_(env, jrequest), inst_(inst), outline_(outline) {
    source_ = request_.last_source();
    target_ = request_.last_target();
    first_source_ = request_.first_source();
    source_dimension_ = LocateDimensionForMember(outline_, source_);
    target_dimension_ = LocateDimensionForMember(outline_, target_);
  }

  // Copies up to one batch. The status of the last step of the walk, or kStatusCopyFailed; the
  // request then still names the last pair that was copied.
  int copy_batch() {
    int status = kStatusOk;
    for (int copied = 0; copied < kMembersPerBatch && source_ != 0; ++copied) {
      HMember next = 0;
      status = OlvOtlGetChild(outline_, source_, &next);
      if (status != kStatusOk) {
        request_.set_finished(true);
        return status;
      }
      const bool as_sibling = next == 0;
      if (as_sibling) {
        status = next_behind(&next);
        if (status != kStatusOk || next == 0) return status;
      }
      if (!copy(next, as_sibling)) return kStatusCopyFailed;
    }
    return status;
  }

 private:
  // Finds the member behind the current source, climbing with both sides where a list of siblings
  // ends. `*next` stays 0, and the request is finished, at the end of the subtree.
  int next_behind(HMember* next) {
    while (source_ != first_source_) {
      int status = OlvOtlGetNextSibling(outline_, source_, next);
      if (status != kStatusOk || *next != 0) return status;
      status = climb(&source_);
      if (status != kStatusOk) return status;
      status = climb(&target_);
      if (source_ == first_source_) break;  // complete, whatever lies above the copy
      if (status != kStatusOk) return status;
      if (source_ == 0 || target_ == 0) break;
    }
    request_.set_finished(true);
    return kStatusOk;
  }

  int climb(HMember* member) const {
    HMember parent = 0;
    const int status = OlvOtlGetParent(outline_, *member, &parent);
    if (status == kStatusOk) *member = parent;
    return status;
  }

  bool copy(HMember source, bool as_sibling) {
    const HMember copied =
        CopyCreateMember(env_, jrequest_, inst_, outline_, target_, target_dimension_, source,
                         source_dimension_, as_sibling ? JNI_TRUE : JNI_FALSE);
    if (copied == 0) return false;
    source_ = source;
    target_ = copied;
    return true;
  }

  JNIEnv* env_;
  jobject jrequest_;
  CopyRequest request_;
  INST inst_;
  HOutline outline_;
  HMember source_ = 0;
  HMember target_ = 0;
  HMember first_source_ = 0;
  HMember source_dimension_ = 0;
  HMember target_dimension_ = 0;
};

// The given handle, or the member of a name that is not empty; 0 when there is none.
HMember given_or_named(HOutline outline, jint handle, const JavaText& name) {
  HMember member = static_cast<HMember>(handle);
  if (member == 0 && !name.empty()) find_by_name(outline, name.api(), &member);
  return member;
}

}  // namespace
}  // namespace kepotl

using namespace kepotl;

jboolean IsCopySourceAncestorOfTarget(HOutline outline, HMember target, HMember source) {
  HMember current = target;
  while (current != 0) {
    HMember parent = 0;
    if (OlvOtlGetParent(outline, current, &parent) != kStatusOk) return JNI_TRUE;
    if (parent == source && parent != 0) return JNI_TRUE;
    current = parent;
  }
  return JNI_FALSE;
}

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
  HMember child = 0;
  if (OlvOtlGetChild(outline, source, &child) != kStatusOk || child == 0) {
    request.set_finished(true);
  }
  if (copy == 0) return kStatusCopyFailed;
  jobject member = CreateMemberObject(env, outline, copy);
  if (member != nullptr) CallCollectionAddObject(env, results, member);
  request.set_first_source(source);
  return kStatusOk;
}

KEPOTL_NATIVE(jint, copyContinue)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jobject jrequest) {
  TextContext text;
  const INST inst = RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusOk;
  CopyWalk walk(env, jrequest, inst, outline);
  return walk.copy_batch();
}
