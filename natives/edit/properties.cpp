// Assigns the properties of one member: those in its record, its formula, UDAs and aliases.
#include "bridge/native.h"
#include "bridge/scope.h"
#include "edit/edit.h"

namespace kepotl {
namespace {

// The read-modify-write of a member's record inside the frame of a native method.
template <typename Change>
jint assign(JNIEnv* env, jobject jinst, jobject joutline, jint handle, Change change) {
  TextContext text;
  RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0 || handle == 0) return kStatusOk;
  return update_member(outline, static_cast<HMember>(handle), change);
}

// Stores the code of a value object.
jint assign_code(JNIEnv* env, jobject jinst, jobject joutline, jint handle, jobject value,
                 int16_t MemberInfoRecord::*field) {
  return assign(env, jinst, joutline, handle, [&](MemberInfoRecord& info) {
    info.*field = CallShortGetProperty(env, value, "getValue");
  });
}

// Stores a boolean byte as Java passed it.
jint assign_flag(JNIEnv* env, jobject jinst, jobject joutline, jint handle, jboolean value,
                 uint8_t MemberInfoRecord::*field) {
  return assign(env, jinst, joutline, handle, [&](MemberInfoRecord& info) { info.*field = value; });
}

// A text field of a member's record, and how many characters it allows.
template <size_t Size>
struct TextField {
  char (MemberInfoRecord::*field)[Size];
  size_t limit;
};

// Stores a text; one that does not fit its field is refused before anything is read or written.
template <size_t Size>
jint assign_text(JNIEnv* env, jobject jinst, jobject joutline, jint handle, jstring jvalue,
                 TextField<Size> field) {
  TextContext text;
  JavaText value(env, text, jvalue);
  RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0 || handle == 0) return kStatusOk;
  if (value.lost() || std::strlen(value.api()) > field.limit) return kStatusRefused;
  return update_member(outline, static_cast<HMember>(handle), [&](MemberInfoRecord& info) {
    store_text(info.*field.field, field.limit, value.api());
  });
}

// Adds or removes one UDA.
jint with_uda(JNIEnv* env, jobject jinst, jobject joutline, jint handle, jstring juda,
              int (*operation)(HOutline, HMember, const char*)) {
  TextContext text;
  JavaText uda(env, text, juda);
  RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0 || handle == 0) return kStatusOk;
  if (uda.lost()) return kStatusRefused;
  if (uda.empty()) return kStatusOk;
  return operation(outline, static_cast<HMember>(handle), uda.api());
}

}  // namespace
}  // namespace kepotl

using namespace kepotl;

KEPOTL_NATIVE(jint, assignMemberConsolidation)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jint handle, jobject value) {
  return assign_code(env, jinst, joutline, handle, value, &MemberInfoRecord::consolidation);
}

KEPOTL_NATIVE(jint, assignMemberShare)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jint handle, jobject value) {
  return assign_code(env, jinst, joutline, handle, value, &MemberInfoRecord::shareOption);
}

KEPOTL_NATIVE(jint, assignMemberTimeBalance)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jint handle, jobject value) {
  return assign_code(env, jinst, joutline, handle, value, &MemberInfoRecord::timeBalance);
}

KEPOTL_NATIVE(jint, assignMemberTimeBalanceSkip)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jint handle, jobject value) {
  return assign_code(env, jinst, joutline, handle, value, &MemberInfoRecord::timeBalanceSkip);
}

KEPOTL_NATIVE(jint, assignMemberConversion)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jint handle, jobject value) {
  return assign_code(env, jinst, joutline, handle, value, &MemberInfoRecord::conversionType);
}

KEPOTL_NATIVE(jint, assignMemberTwoPass)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jint handle, jboolean value) {
  return assign_flag(env, jinst, joutline, handle, value, &MemberInfoRecord::twoPass);
}

KEPOTL_NATIVE(jint, assignMemberVariance)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jint handle, jboolean value) {
  return assign_flag(env, jinst, joutline, handle, value, &MemberInfoRecord::expense);
}

KEPOTL_NATIVE(jint, assignMemberCategory)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jint handle, jstring value) {
  return assign_text(env, jinst, joutline, handle, value,
                     TextField<sizeof MemberInfoRecord::currencyMember>{
                         &MemberInfoRecord::currencyMember, kMaxMemberName});
}

KEPOTL_NATIVE(jint, assignMemberComment)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jint handle, jstring value) {
  return assign_text(
      env, jinst, joutline, handle, value,
      TextField<sizeof MemberInfoRecord::comment>{&MemberInfoRecord::comment, kMaxComment});
}

KEPOTL_NATIVE(jint, updateMemberFormula)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jint handle, jstring jformula) {
  TextContext text;
  JavaText formula(env, text, jformula);
  RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0 || handle == 0) return kStatusOk;
  if (formula.lost()) return kStatusRefused;
  const HMember member = static_cast<HMember>(handle);
  if (formula.empty()) return OlvOtlDeleteMemberFormula(outline, member);
  return OlvOtlSetMemberFormula(outline, member, formula.api());
}

KEPOTL_NATIVE(jint, setMemberUDA)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jint handle, jstring uda) {
  return with_uda(env, jinst, joutline, handle, uda, OlvOtlSetUserAttribute);
}

KEPOTL_NATIVE(jint, deleteMemberUDA)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jint handle, jstring uda) {
  return with_uda(env, jinst, joutline, handle, uda, OlvOtlDeleteUserAttribute);
}

KEPOTL_NATIVE(jint, assignMemberAlias)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jint handle, jstring jtable,
 jstring jalias) {
  TextContext text;
  JavaText alias(env, text, jalias);
  JavaText table(env, text, jtable);
  RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0 || handle == 0) return kStatusOk;
  if (any_lost(alias, table)) return kStatusRefused;
  if (table.empty()) return kStatusOk;
  const HMember member = static_cast<HMember>(handle);
  if (alias.empty()) return OlvOtlDeleteMemberAlias(outline, member, table.api());
  return OlvOtlSetMemberAlias(outline, member, table.api(), alias.api());
}
