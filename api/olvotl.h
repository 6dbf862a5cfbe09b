// The outline API: opening, walking, querying and changing outlines. Each function returns a
// status, 0 for success; out-parameters are defined only after success unless it says otherwise.
// Handles out are 0 where there is no such member. Texts are NUL-terminated API characters and
// are copied by the API.
#pragma once

#include "api/records.h"

extern "C" {

// ---- Opening, saving, restructuring ----

// Opens the outline of the context's active database for reading. `object` is not read.
int OlvOtlOpenOutlineQuery(HCTX ctx, const ObjectDefinitionRecord* object, HOutline* opened);

// Opens an outline for edit; with both flags 1 its object is locked for `ctx` until the lock is
// given back with OlvUnlockObject.
int OlvOtlOpenOutline(HCTX ctx, const ObjectDefinitionRecord* object, int flag1, int flag2,
                      HOutline* opened);

// Closes an outline; unsaved changes are gone. Its member handles end with it.
int OlvOtlCloseOutline(HOutline h);

// Checks an outline. `*global` receives the bits that concern the whole, `*errors` one entry per
// member in error (null when none), given back with OlvFree.
int OlvOtlVerifyOutline(HOutline h, uint32_t* global, uint32_t* count, MemberErrorEntry** errors);

// Writes an outline to the named object, replacing what is there.
int OlvOtlWriteOutline(HOutline h, const ObjectDefinitionRecord* object);

// Starts a restructure of the context's active database; OlvGetProcessState tells when it is over.
int OlvOtlRestructure(HCTX ctx, uint16_t option);

// Derives the currency outline that belongs to `h`. The new outline is open and is the caller's
// to close.
int OlvOtlGenerateCurrencyOutline(HOutline h, HOutline* currency);

// ---- Walking ----

// First dimension of the outline.
int OlvOtlGetFirstMember(HOutline h, HMember* first);
// First child of a member.
int OlvOtlGetChild(HOutline h, HMember member, HMember* child);
// Parent of a member; 0 for a dimension.
int OlvOtlGetParent(HOutline h, HMember member, HMember* parent);
// Next sibling; 0 after the last.
int OlvOtlGetNextSibling(HOutline h, HMember member, HMember* next);
// Previous sibling; 0 before the first.
int OlvOtlGetPrevSibling(HOutline h, HMember member, HMember* previous);
// Member of a name. Fails when there is none.
int OlvOtlFindMember(HOutline h, const char* name, HMember* member);

// ---- Queries ----

// Answers a MemberQuery from a start member (0: the root). `*members` holds counts->returned
// handles and is given back with OlvOtlFreeMembers; it may be null when there are none.
int OlvOtlQueryMembers(HOutline h, HMember start, const MemberQuery* query,
                       MemberQueryCounts* counts, HMember** members);
// The same with the start member given by name (null: the root).
int OlvOtlQueryMembersByName(HOutline h, const char* start, const MemberQuery* query,
                             MemberQueryCounts* counts, HMember** members);
// The attribute members associated with a member. `*members` holds `*count` handles and is given
// back with OlvOtlFreeMembers.
int OlvOtlQueryAttributes(HOutline h, const AttributeQuery* query, uint32_t* count,
                          HMember** members);
// Gives back the handle array of a query; `count` is the count that came with it.
int OlvOtlFreeMembers(HOutline h, uint32_t count, const HMember* members);

// ---- Member records ----

// Record of a member, given back with OlvOtlFreeStructure(h, 1, kStructureMemberInfo, *info).
int OlvOtlGetMemberInfo(HOutline h, HMember member, MemberInfoRecord** info);
// Replaces the properties of a member by those of the record. `option` is kMemberOption.
int OlvOtlSetMemberInfoEx(HOutline h, HMember member, const MemberInfoRecord* info,
                          uint32_t option);
// Gives back `count` records of structure code `code`. A null block is nothing and succeeds.
int OlvOtlFreeStructure(HOutline h, uint32_t count, uint32_t code, const void* block);

// ---- Shape ----

// Adds a dimension after `previous` (0: first). `zero` is 0.
int OlvOtlAddDimension(HOutline h, const MemberInfoRecord* info, HMember previous, uint32_t zero,
                       HMember* added);
// Adds a member after `sibling`, or as the first child of `parent` when `sibling` is 0; with a
// sibling the parent may be 0. kStatusDuplicateName when the name is in use.
int OlvOtlAddMemberEx(HOutline h, const MemberInfoRecord* info, HMember parent, HMember sibling,
                      HMember* added, uint32_t option);
// Renames a member. `option` is kMemberOption.
int OlvOtlRenameMemberEx(HOutline h, HMember member, const char* name, uint32_t option);
// Moves a member behind `previous`, or to be the first child of `parent`; both 0: to be the
// first dimension.
int OlvOtlMoveMember(HOutline h, HMember member, HMember parent, HMember previous);
// Deletes a member with its subtree. `option` is kMemberOption.
int OlvOtlDeleteMemberEx(HOutline h, HMember member, uint32_t option);
// Sorts the children of a member by name; order is kSortAscending or kSortDescending.
int OlvOtlSortChildren(HOutline h, HMember parent, uint16_t order, uint32_t zero1, uint32_t zero2);

// ---- Formulas, aliases, user-defined attributes (UDAs), comments ----

// Formula of a member, or null. Given back with OlvFree.
int OlvOtlGetMemberFormula(HOutline h, HMember member, char** formula);
// Sets the formula of a member.
int OlvOtlSetMemberFormula(HOutline h, HMember member, const char* formula);
// Removes the formula of a member.
int OlvOtlDeleteMemberFormula(HOutline h, HMember member);
// Alias of a member in a table (null: the default table), or null. Given back with OlvFree.
int OlvOtlGetMemberAlias(HOutline h, HMember member, const char* table, char** alias);
// Sets the alias of a member in a table (null: the default table).
int OlvOtlSetMemberAlias(HOutline h, HMember member, const char* table, const char* alias);
// Removes the alias of a member from a table (null: the default table).
int OlvOtlDeleteMemberAlias(HOutline h, HMember member, const char* table);
// UDAs of a member: `*count` entries of kUdaStride bytes. Given back with OlvFree.
int OlvOtlGetUserAttributes(HOutline h, HMember member, uint16_t* count, char** udas);
// Adds a UDA to a member.
int OlvOtlSetUserAttribute(HOutline h, HMember member, const char* uda);
// Removes a UDA from a member.
int OlvOtlDeleteUserAttribute(HOutline h, HMember member, const char* uda);
// UDAs of a whole dimension, asked for with a MemberQuery of kQueryDimensionUdas: counts->returned
// entries of kUdaStride bytes. Given back with OlvFree.
int OlvOtlGetDimensionUserAttributes(HOutline h, const MemberQuery* query,
                                     MemberQueryCounts* counts, char** udas);
// Extended comment of a member, or null. Given back with OlvFree.
int OlvOtlGetMemberCommentEx(HOutline h, HMember member, char** comment);
// Sets the extended comment of a member.
int OlvOtlSetMemberCommentEx(HOutline h, HMember member, const char* comment);

// ---- Attributes ----

// Attribute members of a member, or attribute dimensions of a dimension. Given back with OlvFree.
int OlvOtlGetAssociatedAttributes(HOutline h, HMember member, uint16_t* count,
                                  HMember** attributes);
// Associates an attribute dimension with a base dimension.
int OlvOtlAssociateAttributeDimension(HOutline h, HMember base, HMember attribute);
// Undoes that, and with it the associations of the members.
int OlvOtlDisassociateAttributeDimension(HOutline h, HMember base, HMember attribute);
// Associates an attribute member with a base member; their dimensions must be associated.
int OlvOtlAssociateAttributeMember(HOutline h, HMember base, HMember attribute);
// Undoes that.
int OlvOtlDisassociateAttributeMember(HOutline h, HMember base, HMember attribute);

// ---- Settings and alias tables ----

// Outline-wide settings with the alias table names. Given back with OlvFree.
int OlvOtlGetOutlineInfo(HOutline h, OutlineInfoRecord** info);
// Replaces the settings; the alias table names are not changed by it.
int OlvOtlSetOutlineInfoEx(HOutline h, const OutlineInfoRecord* info);
// Attribute specifications. Given back with OlvFree, or with
// OlvOtlFreeStructure(h, 1, kStructureAttributeSpec, *spec).
int OlvOtlGetAttributeSpecifications(HOutline h, AttributeSpecRecord** spec);
// Replaces the attribute specifications, copying the texts.
int OlvOtlSetAttributeSpecifications(HOutline h, const AttributeSpecRecord* spec);
// Creates an empty alias table; kStatusAliasTableExists when there is one of that name.
int OlvOtlCreateAliasTable(HOutline h, const char* table);
// Removes an alias table with its aliases.
int OlvOtlDeleteAliasTable(HOutline h, const char* table);
// Removes all aliases from a table.
int OlvOtlClearAliasTable(HOutline h, const char* table);
// Gives an existing table (`table2`) a new name (`table1`).
int OlvOtlRenameAliasTable(HOutline h, const char* table1, const char* table2);
// Copies an existing table (`table2`) to the name `table1`; `flag` 1 overwrites a table there.
int OlvOtlCopyAliasTable(HOutline h, const char* table1, const char* table2, uint8_t flag);

// ---- Generation and level names ----
// The listings hand out `*count` entries, given back with OlvFree. The plain ones (kNamesPlain)
// give what has a name, the extended ones (kNamesExtended) every generation or level.

int OlvOtlGetGenNames(HOutline h, const char* dimension, uint32_t option, uint32_t* count,
                      GenLevelNameEntry** names);
int OlvOtlGetGenNamesEx(HOutline h, const char* dimension, uint32_t option, uint32_t* count,
                        GenLevelNameEntry** names);
int OlvOtlGetLevelNames(HOutline h, const char* dimension, uint32_t option, uint32_t* count,
                        GenLevelNameEntry** names);
int OlvOtlGetLevelNamesEx(HOutline h, const char* dimension, uint32_t option, uint32_t* count,
                          GenLevelNameEntry** names);
// Names a generation (from 1) or a level (from 0) of a dimension.
int OlvOtlSetGenName(HOutline h, const char* dimension, uint16_t number, const char* name);
int OlvOtlSetLevelName(HOutline h, const char* dimension, uint16_t number, const char* name);
// Removes such a name.
int OlvOtlDeleteGenName(HOutline h, const char* dimension, uint16_t number);
int OlvOtlDeleteLevelName(HOutline h, const char* dimension, uint16_t number);

// ---- Dynamic time series ----

// The enabled entries. Given back with OlvFree.
int OlvOtlGetEnabledDTSMembers(HOutline h, uint16_t* count, DtsEntry** entries);
// Enables (1) or disables (0) an entry on a generation.
int OlvOtlEnableDTSMember(HOutline h, const char* name, int16_t generation, uint8_t enable);
// Alias of an entry in a table, or null. Given back with OlvFree.
int OlvOtlGetDTSMemberAlias(HOutline h, const char* name, const char* table, char** alias);
// Sets the alias (`text3`) of an entry (`text1`) in a table (`text2`).
int OlvOtlSetDTSMemberAlias(HOutline h, const char* text1, const char* text2, const char* text3);
// Removes the alias of an entry (`text1`) from a table (`text2`).
int OlvOtlDeleteDTSMemberAlias(HOutline h, const char* text1, const char* text2);

}  // extern "C"
