// Changes the shape of an outline: creates, renames, moves, deletes and sorts members.
#include "bridge/native.h"
#include "edit/edit.h"

namespace kepotl {
namespace {

// Under this name a member is added when its own name is in use already; the rename that follows
// is allowed to make a duplicate.
constexpr const char* kDuplicateAddName = "KEPTempNameForDuplicateAdd";

// The plain record of a new member or dimension.
void set_plain(MemberInfoRecord* info, const char* name) {
  *info = {};
  store_text(info->name, kMaxMemberName, name);
  info->storageType = kStorageTypeRegular;
}

// Category of a dimension; none for 0 and for one that cannot be read.
int16_t category_of(HOutline outline, HMember dimension) {
  if (dimension == 0) return kCategoryNone;
  MemberRecord record(outline);
  return record.read(dimension) == kStatusOk ? record->dimensionCategory : kCategoryNone;
}

// What a member and a dimension have in common when they are attributes.
void set_attribute(MemberInfoRecord* info, int16_t attribute_type) {
  info->consolidation = kConsolidationAttribute;
  info->shareOption = kShareAttribute;
  info->dimensionCategory = kCategoryAttribute;
  info->storageCategory = kStorageCategoryAttribute;
  info->attributeType = attribute_type;
}

// Adds a member whose name is in use: under a temporary name first, then renamed. Nothing is left
// behind when the rename is refused.
int add_duplicate(HOutline outline, MemberInfoRecord* info, HMember parent, HMember sibling,
                  const char* name, HMember* added) {
  store_text(info->name, kMaxMemberName, kDuplicateAddName);
  const int status = OlvOtlAddMemberEx(outline, info, parent, sibling, added, kMemberOption);
  if (status != kStatusOk || *added == 0) return status;
  const int renamed = OlvOtlRenameMemberEx(outline, *added, name, kMemberOption);
  if (renamed == kStatusOk) return renamed;
  OlvOtlDeleteMemberEx(outline, *added, kMemberOption);
  *added = 0;
  return kStatusDuplicateName;
}

}  // namespace
}  // namespace kepotl

using namespace kepotl;

HMember locateDimension(HOutline outline, HMember parent, HMember sibling) {
  HMember dimension = 0;
  HMember current = parent != 0 ? parent : sibling;
  while (current != 0) {
    dimension = current;
    HMember above = 0;
    if (OlvOtlGetParent(outline, current, &above) != kStatusOk) break;
    current = above;
  }
  return dimension;
}

void populateMemberInfo(HOutline outline, HMember dimension, MemberInfoRecord* info,
                        const char* name) {
  const int16_t category = category_of(outline, dimension);
  set_plain(info, name);
  if (category == kCategoryAttribute) set_attribute(info, kAttributeTypeMember);
}

void populateDimensionInfo(HOutline outline, HMember previous_dimension, MemberInfoRecord* info,
                           const char* name) {
  const int16_t category = category_of(outline, previous_dimension);
  set_plain(info, name);
  if (category == kCategoryAttribute) set_attribute(info, kAttributeTypeDimension);
}

KEPOTL_NATIVE(jint, createMember)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jint jparent, jint jsibling, jstring jname,
 jobject collection) {
  TextContext text;
  RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusOk;
  JavaText name(env, text, jname);
  if (name.empty()) return kStatusOk;
  if (std::strlen(name.api()) > kMaxMemberName) return kStatusRefused;

  const HMember parent = static_cast<HMember>(jparent);
  const HMember sibling = static_cast<HMember>(jsibling);
  const HMember dimension = locateDimension(outline, parent, sibling);
  MemberInfoRecord info;
  HMember added = 0;
  int status;
  if (parent == 0) {
    populateDimensionInfo(outline, sibling, &info, name.api());
    status = OlvOtlAddDimension(outline, &info, sibling, 0, &added);
  } else {
    populateMemberInfo(outline, dimension, &info, name.api());
    status = OlvOtlAddMemberEx(outline, &info, parent, sibling, &added, kMemberOption);
    if (status == kStatusDuplicateName) {
      added = 0;
      status = add_duplicate(outline, &info, parent, sibling, name.api(), &added);
    }
  }
  if (status == kStatusOk && added != 0) {
    jobject member = CreateMemberObject(env, outline, added);
    if (member != nullptr) CallCollectionAddObject(env, collection, member);
  }
  return status;
}

KEPOTL_NATIVE(jint, renameMember)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jint handle, jstring jname) {
  TextContext text;
  JavaText name(env, text, jname);
  RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0 || handle == 0 || name.empty()) return kStatusOk;
  return OlvOtlRenameMemberEx(outline, static_cast<HMember>(handle), name.api(), kMemberOption);
}

KEPOTL_NATIVE(jint, moveMember)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jint jreference, jint handle,
 jboolean reference_is_sibling) {
  TextContext text;
  RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0 || handle == 0) return kStatusOk;
  const HMember reference = static_cast<HMember>(jreference);
  const HMember parent = reference_is_sibling ? 0 : reference;
  const HMember previous = reference_is_sibling ? reference : 0;
  return OlvOtlMoveMember(outline, static_cast<HMember>(handle), parent, previous);
}

KEPOTL_NATIVE(jint, deleteMember)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jint handle) {
  TextContext text;
  RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0 || handle == 0) return kStatusOk;
  return OlvOtlDeleteMemberEx(outline, static_cast<HMember>(handle), kMemberOption);
}

KEPOTL_NATIVE(jint, sortChildren)
(JNIEnv* env, jclass, jobject jinst, jobject joutline, jint jparent, jboolean ascending) {
  TextContext text;
  RetrieveINST(env, jinst);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0 || jparent == 0) return kStatusOk;
  return OlvOtlSortChildren(outline, static_cast<HMember>(jparent),
                            ascending ? kSortAscending : kSortDescending, 0, 0);
}
