// Every helper that libkepotl.so exports beside its native methods, grouped by the folder that
// implements it, and the exported table of Java class names and signatures. The helpers that need
// no virtual machine stand in plain_helpers.h.
//
// Rules that hold for all of them: `env` is the calling thread's and is not stored. A missing
// class, method or constructor, a null object and a null name make a helper do nothing and return 0
// or null; Java exceptions are neither checked nor cleared. Returned Java objects are local
// references of the caller. Texts are NUL-terminated API characters. Nothing is cached between
// calls.
#pragma once

#include <jni.h>

#include <cstdint>

#include "api/records.h"
#include "bridge/plain_helpers.h"

// ---- bridge/handles.cpp ----

// The handle that a wrapper object answers with getValue()I; 0 when it cannot be read.
KEPOTL_EXPORT INST RetrieveINST(JNIEnv* env, jobject wrapper);
KEPOTL_EXPORT HCTX RetrieveHCTX(JNIEnv* env, jobject wrapper);
KEPOTL_EXPORT HOutline RetrieveHOutline(JNIEnv* env, jobject wrapper);

// ---- bridge/java_calls.cpp ----

// Getters and setters: the method `name` of the object's own class with the signature that
// follows from the type.
KEPOTL_EXPORT jboolean CallBooleanGetProperty(JNIEnv* env, jobject object, const char* name);
KEPOTL_EXPORT void CallBooleanSetProperty(JNIEnv* env, jobject object, const char* name,
                                          jboolean value);
KEPOTL_EXPORT jint CallIntegerGetProperty(JNIEnv* env, jobject object, const char* name);
KEPOTL_EXPORT void CallIntegerSetProperty(JNIEnv* env, jobject object, const char* name,
                                          jint value);
KEPOTL_EXPORT void CallLongSetProperty(JNIEnv* env, jobject object, const char* name, jlong value);
KEPOTL_EXPORT jshort CallShortGetProperty(JNIEnv* env, jobject object, const char* name);
KEPOTL_EXPORT void CallShortSetProperty(JNIEnv* env, jobject object, const char* name,
                                        jshort value);
// The string may be null; the local reference is the caller's.
KEPOTL_EXPORT jstring CallStringGetProperty(JNIEnv* env, jobject object, const char* name);
// A null text calls nothing, so that the property keeps its value.
KEPOTL_EXPORT void CallStringSetProperty(int context, JNIEnv* env, jobject object, const char* name,
                                         const char* text);
// A null value calls nothing.
KEPOTL_EXPORT void CallObjectSetProperty(JNIEnv* env, jobject object, const char* name,
                                         const char* signature, jobject value);
// Calls `name`(Object)V; the argument may be null.
KEPOTL_EXPORT void CallSingleArgumentObjectMethod(JNIEnv* env, jobject object, const char* name,
                                                  jobject argument);
// Appends a text to a StringBuffer.
KEPOTL_EXPORT void CallStringBufferAppend(JNIEnv* env, jobject buffer, const char* text);
// Adds an item (null included); what add(Object)Z returned.
KEPOTL_EXPORT jboolean CallCollectionAddObject(JNIEnv* env, jobject collection, jobject item);
KEPOTL_EXPORT jboolean CallListAddObject(JNIEnv* env, jobject list, jobject item);
// Number of elements.
KEPOTL_EXPORT jint CallListGetCount(JNIEnv* env, jobject list);
// Element at an index.
KEPOTL_EXPORT jobject CallListGetObject(JNIEnv* env, jobject list, jint index);

// ---- bridge/factories.cpp ----

// New object of a class by its no-argument constructor.
KEPOTL_EXPORT jobject CreateSimpleObject(JNIEnv* env, const char* class_name);
// New Java string of an API text, in the caller's text-conversion context or in one of its own.
KEPOTL_EXPORT jstring NewStringUTFfromAPI(int context, JNIEnv* env, const char* text);
KEPOTL_EXPORT jstring CreateStringObject(JNIEnv* env, const char* text);
// New value object whose setValue(short) or setValue(long) has been called. Unsigned 32-bit
// values are zero-extended.
KEPOTL_EXPORT jobject CreateShortObject(JNIEnv* env, const char* class_name, jshort value);
KEPOTL_EXPORT jobject CreateLongObject(JNIEnv* env, const char* class_name, uint32_t value);
// New java.lang.Short and java.lang.Long, the latter zero-extended.
KEPOTL_EXPORT jobject CreateJavaShort(JNIEnv* env, jshort value);
KEPOTL_EXPORT jobject CreateJavaLong(JNIEnv* env, uint32_t value);

// ---- lifecycle/ ----

// New MemberVerifyError of one entry; null when the entry is null or names no member.
KEPOTL_EXPORT jobject CreateMemberError(JNIEnv* env, HOutline outline, MemberErrorEntry* entry);

// ---- browse/ ----

// The class, constructor and setters of DefaultMember, looked up once for a whole listing. A slot
// is null when its look-up failed. Lives in the frame of one native call.
struct MemberInfoIDStruct {
  jclass type;
  jmethodID constructor;
  jmethodID set_hold_exceptions;
  jmethodID set_handle;
  jmethodID set_name;
  jmethodID set_dimension_name;
  jmethodID set_dimension_handle;
  jmethodID set_level;
  jmethodID set_generation;
  jmethodID set_consolidation;
  jmethodID set_two_pass_calculation;
  jmethodID set_currency_conversion_type;
  jmethodID set_expense_member;
  jmethodID set_currency_member;
  jmethodID set_time_balance_option;
  jmethodID set_time_balance_skip_option;
  jmethodID set_share;
  jmethodID set_dimension_storage_type;
  jmethodID set_dimension_category;
  jmethodID set_comment;
  jmethodID set_child_count;
  jmethodID set_attribute_type;
  jmethodID set_has_hybrid_descendants;
  jmethodID set_hybrid_analysis_enabled;
  jmethodID set_attributed;
};
static_assert(sizeof(MemberInfoIDStruct) == 25 * sizeof(void*));

// Fills all slots; all null when the class is missing. A null structure does nothing.
KEPOTL_EXPORT void populateMemberInfoIDStruct(JNIEnv* env, MemberInfoIDStruct* ids);
// New DefaultMember of a record, each setter looked up per call.
KEPOTL_EXPORT jobject CreateMemberObjectWithInfo(JNIEnv* env, HOutline outline, HMember member,
                                                 MemberInfoRecord* info);
// The same through looked-up identifiers; it alone also sends setAttributed.
KEPOTL_EXPORT jobject CreateMemberObjectWithInfoEx(JNIEnv* env, HOutline outline, HMember member,
                                                   MemberInfoRecord* info, MemberInfoIDStruct* ids);
// Both again, reading the member's record themselves; null when it cannot be read.
KEPOTL_EXPORT jobject CreateMemberObject(JNIEnv* env, HOutline outline, HMember member);
KEPOTL_EXPORT jobject CreateMemberObjectEx(JNIEnv* env, HOutline outline, HMember member,
                                           MemberInfoIDStruct* ids);
// New OutlineMemberProperties.
KEPOTL_EXPORT jobject CreateMemberPropertiesObject(JNIEnv* env);
// Puts (dimension, attribute member) into the attribute table of a properties object.
KEPOTL_EXPORT void CreateMemberAttributesObject(JNIEnv* env, jobject properties,
                                                const char* dimension, const char* member);
// Adds the UDAs of a member and of all its descendants to a collection, in pre-order.
KEPOTL_EXPORT void getDimensionUDASRecursive(JNIEnv* env, uintptr_t unread, HOutline outline,
                                             INST inst, HMember member, jobject collection);

// ---- calcscript/ ----

// New calculation-script MemberInfo; `parent` may be null.
KEPOTL_EXPORT jobject CreateMemberInfoObject(JNIEnv* env, MemberInfoRecord* info, jstring parent);

// ---- edit/ ----

// Copies one member (behind the target, or as its first child) or one member out as a dimension
// behind the target's, and updates the copy request. 0 when nothing was copied.
KEPOTL_EXPORT HMember CopyCreateMember(JNIEnv* env, jobject request, INST inst, HOutline outline,
                                       HMember target, HMember target_dimension, HMember source,
                                       HMember source_dimension, jboolean as_sibling);
KEPOTL_EXPORT HMember CopyCreateDimension(JNIEnv* env, jobject request, INST inst, HOutline outline,
                                          HMember target, HMember target_dimension, HMember source,
                                          HMember source_dimension);

// ---- genlevel/ ----

// New DefinedGeneration or DefinedLevel.
KEPOTL_EXPORT jobject CreateGenerationOrLevelObject(JNIEnv* env, const char* class_name,
                                                    const char* dimension, uint16_t number,
                                                    const char* name);
// Hands the aliases of one entry in every table to a DynamicTimeSeries object.
KEPOTL_EXPORT void getDTSAliases(JNIEnv* env, int context, INST inst, HOutline outline,
                                 const char* entry, jobject series);

// ---- search/ ----

// Adds a MemberPath for every match below a parent (0: the whole outline) to a collection.
KEPOTL_EXPORT int CallFindMemberRecursor(JNIEnv* env, HOutline outline, HMember parent,
                                         const char* text, const char* alias_table,
                                         jboolean match_case, jboolean whole_word, jobject results);
// New MemberPath from a member up to its dimension; null when a record cannot be read.
KEPOTL_EXPORT jobject CallCreateMemberPath(JNIEnv* env, HOutline outline, HMember member);

// ---- bridge/class_names.cpp ----

// Names of Java classes (CNAME_), the constructor's name, and signatures that take one object of
// the matching class (PTYPE_).
KEPOTL_EXPORT const int TABLE_SIZE;
KEPOTL_EXPORT const char* const CNAME_OUTLINE_TYPE;
KEPOTL_EXPORT const char* const CNAME_ALIAS_TABLE;
KEPOTL_EXPORT const char* const CNAME_LONGNAME_CONSTRUCTOR;
KEPOTL_EXPORT const char* const CNAME_LONGNAME_SOURCE;
KEPOTL_EXPORT const char* const CNAME_LONGNAME_DELIMITER;
KEPOTL_EXPORT const char* const CNAME_ATTRDATE_FORMAT;
KEPOTL_EXPORT const char* const CNAME_BUCKETING;
KEPOTL_EXPORT const char* const CNAME_DEFAULT_MEMBER;
KEPOTL_EXPORT const char* const CNAME_CONSOLIDATION;
KEPOTL_EXPORT const char* const CNAME_CONVERSION;
KEPOTL_EXPORT const char* const CNAME_TIME_BALANCE;
KEPOTL_EXPORT const char* const CNAME_TIME_BALANCE_SKIP;
KEPOTL_EXPORT const char* const CNAME_SHARE;
KEPOTL_EXPORT const char* const CNAME_DIM_STORAGE_TYPE;
KEPOTL_EXPORT const char* const CNAME_DIM_CATEGORY;
KEPOTL_EXPORT const char* const CNAME_ATTRIBUTE_TYPE;
KEPOTL_EXPORT const char* const CNAME_GLOBAL_ERROR;
KEPOTL_EXPORT const char* const CNAME_MEMBER_ERROR;
KEPOTL_EXPORT const char* const CNAME_MEMBER_FORMULA;
KEPOTL_EXPORT const char* const CNAME_MEMBER_ATTRIBUTE;
KEPOTL_EXPORT const char* const CNAME_MEMBER_ALIAS;
KEPOTL_EXPORT const char* const CNAME_GENERATION;
KEPOTL_EXPORT const char* const CNAME_LEVEL;
KEPOTL_EXPORT const char* const CNAME_DTS;
KEPOTL_EXPORT const char* const CNAME_MEMBER_PATH;
KEPOTL_EXPORT const char* const CNAME_MEMBER_RESULT;
KEPOTL_EXPORT const char* const MNAME_CONSTRUCTOR;
KEPOTL_EXPORT const char* const PTYPE_CONSTRUCTOR;
KEPOTL_EXPORT const char* const PTYPE_LONGNAME_CONSTRUCTOR;
KEPOTL_EXPORT const char* const PTYPE_LONGNAME_SOURCE;
KEPOTL_EXPORT const char* const PTYPE_LONGNAME_DELIMITER;
KEPOTL_EXPORT const char* const PTYPE_ATTRDATE_FORMAT;
KEPOTL_EXPORT const char* const PTYPE_BUCKETING;
KEPOTL_EXPORT const char* const PTYPE_CONSOLIDATION;
KEPOTL_EXPORT const char* const PTYPE_CONVERSION;
KEPOTL_EXPORT const char* const PTYPE_TIME_BALANCE;
KEPOTL_EXPORT const char* const PTYPE_TIME_BALANCE_SKIP;
KEPOTL_EXPORT const char* const PTYPE_SHARE;
KEPOTL_EXPORT const char* const PTYPE_DIM_STORAGE_TYPE;
KEPOTL_EXPORT const char* const PTYPE_DIM_CATEGORY;
KEPOTL_EXPORT const char* const PTYPE_ATTRIBUTE_TYPE;
KEPOTL_EXPORT const char* const PTYPE_GLOBAL_ERROR;
KEPOTL_EXPORT const char* const PTYPE_MEMBER_ERROR;
