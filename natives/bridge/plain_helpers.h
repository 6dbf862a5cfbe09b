// The exported helpers that need no virtual machine, grouped by the folder that implements them.
// What is built from their files links without one. bridge.h has the others, and the rules that
// hold for all of them.
#pragma once

#include <cstdint>
#include <cstdio>

#include "api/records.h"

#define KEPOTL_EXPORT extern "C" __attribute__((visibility("default")))

// ---- bridge/text.cpp ----

// Opens a text-conversion context; always 0 on this platform.
KEPOTL_EXPORT int LoInitialize();
// Ends a text-conversion context.
KEPOTL_EXPORT void LoUninitialize(int context);
// Converts modified UTF-8 to API characters; the same bytes on this platform, so `text` itself.
KEPOTL_EXPORT char* getAPICharsFromUTFChars(int context, const char* text);
// Converts API characters to modified UTF-8; `text` itself on this platform.
KEPOTL_EXPORT char* getUTFCharsFromAPIChars(int context, const char* text);
// Removes leading and trailing blanks, tabs and line feeds in place. Returns `text`.
KEPOTL_EXPORT char* getStrTrimInPlace(int context, char* text);

// ---- lifecycle/ ----

// Writes the first scratch object name that is free into `name`, or the empty text when the local
// path cannot be had. Returns `name`; a null one is returned at once.
KEPOTL_EXPORT char* getLocalPathCandidate(INST inst, HCTX local, char name[128]);

// ---- browse/ ----

// Dimension of a member (a dimension yields itself); 0 when a parent cannot be read.
KEPOTL_EXPORT HMember LocateDimensionForMember(HOutline outline, HMember member);
// Hybrid flag of the leaf reached through first children only; 0 on any failure.
KEPOTL_EXPORT uint8_t DetermineIfDimensionHasHybridChildren(HOutline outline, HMember member);

// ---- edit/ ----

// Dimension that holds the insertion point given by a parent or, when that is 0, by a sibling.
KEPOTL_EXPORT HMember locateDimension(HOutline outline, HMember parent, HMember sibling);
// Fill the record of a new member of `dimension`, or of a new dimension behind
// `previous_dimension`. `name` has at most kMaxMemberName characters. A null record or name does
// nothing.
KEPOTL_EXPORT void populateMemberInfo(HOutline outline, HMember dimension, MemberInfoRecord* info,
                                      const char* name);
KEPOTL_EXPORT void populateDimensionInfo(HOutline outline, HMember previous_dimension,
                                         MemberInfoRecord* info, const char* name);
// Takes all attribute dimensions off a dimension, going on past failures; the status of giving
// the association list back, or of reading it.
KEPOTL_EXPORT int removeAllAttributeAssociations(INST inst, HOutline outline, HMember dimension);
// The last dimension before the first attribute dimension at or behind `start`; 0 when there is
// none.
KEPOTL_EXPORT HMember FindLastNonAttributeDimension(HOutline outline, HMember start);
// Replaces a regular dimension by a new attribute dimension of the given name; -1 for a null one.
KEPOTL_EXPORT int CreateAttributeDimension(uintptr_t unread, HOutline outline, HMember dimension,
                                           const char* name, uint16_t attribute_type);
// 1 when the source lies above the target, and when a parent cannot be read; else 0.
KEPOTL_EXPORT uint8_t IsCopySourceAncestorOfTarget(HOutline outline, HMember target,
                                                   HMember source);
// Copy one kind of detail; best effort.
KEPOTL_EXPORT void CopyUDAS(INST inst, HOutline outline, HMember target, HMember source);
KEPOTL_EXPORT void CopyExtendedComments(INST inst, HOutline outline, HMember target,
                                        HMember source);
KEPOTL_EXPORT void CopyFormula(INST inst, HOutline outline, HMember target, HMember source);
KEPOTL_EXPORT void CopyAttributeMaps(INST inst, HOutline outline, HMember target, HMember source);

// ---- search/ ----

// Folds the ASCII letters of a text to lower case in place, whatever the locale.
KEPOTL_EXPORT void CallLowercase(char* text);
// 1 when the search text occurs between delimiters or ends; null or empty delimiters are blank
// and line feed. An empty search text occurs between any two bytes. Null texts give 0.
KEPOTL_EXPORT uint8_t CallFindWholeWord(const char* search_text, const char* candidate,
                                        const char* delimiters);
// The one comparison of all searches: 1 for a match, else 0. Null or empty texts never match.
KEPOTL_EXPORT uint8_t CallCompareStrings(const char* search_text, const char* candidate,
                                         uint8_t case_sensitive, uint8_t whole_word,
                                         const char* delimiters);
// First member of a search and the member after one in pre-order; 0 at the end.
KEPOTL_EXPORT HMember findRequestGetFirstMember(HOutline outline, uint8_t one_dimension,
                                                const char* dimension);
KEPOTL_EXPORT HMember findRequestGetNextMember(HOutline outline, HMember member,
                                               uint8_t one_dimension);

// ---- aliasfile/ ----

// Writes the line of one member, if it has an alias; the status of the alias query. -1 for a null
// file.
KEPOTL_EXPORT int CallWriteAliasToFile(HOutline outline, HMember member, const char* table,
                                       FILE* file);
// Writes the lines of a member's descendants; the status of the last walk step. -1 for a null file.
KEPOTL_EXPORT int CallGetChildrenAliasRecursive(HOutline outline, HMember parent, const char* table,
                                                FILE* file);
// Trims blanks, tabs and line feeds in place. Returns `text`.
KEPOTL_EXPORT char* trimStr(char* text);
// Reads the table name from a header line into a field of 256 bytes. Returns it, or null when
// there is none. The line is changed.
KEPOTL_EXPORT char* CallReadAliasTableHeader(char* line, char* table_name);
// Reads one line into two fields of 256 bytes: -1 for an end line, 2 for both fields, else 0.
// The line is changed.
KEPOTL_EXPORT int CallReadMemberAliasLine(char* line, char* member, char* alias);
