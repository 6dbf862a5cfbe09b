// Handle types and the named numbers of the client and outline API. Numbers that cross the
// interface have their names here and nowhere else.
#pragma once

#include <cstdint>

// Opaque handles issued by the API; 0 always means "no handle".
using INST = uint32_t;      // an initialised client API instance
using HCTX = uint32_t;      // a login context, or a local context for client-side objects
using HOutline = uint32_t;  // an open outline
using HMember = uint32_t;   // one member of an open outline

// Statuses that the native methods act on or answer themselves. Every other status is passed on.
inline constexpr int kStatusOk = 0;
inline constexpr int kStatusRefused = -1;          // the library's own refusal
inline constexpr int kStatusCopyFailed = 1060013;  // a copy was refused or a member not copied
inline constexpr int kStatusAliasTableExists = 1060040;
inline constexpr int kStatusDuplicateName = 1060051;  // the member name is already in use

// The one object type used here: an outline.
inline constexpr uint32_t kObjectTypeOutline = 1;

// Structure codes of OlvOtlFreeStructure.
inline constexpr uint32_t kStructureMemberInfo = 65;
inline constexpr uint32_t kStructureAttributeSpec = 92;

// The option of every member write, add, rename and delete.
inline constexpr uint32_t kMemberOption = 3;

// MemberQuery::queryType.
inline constexpr uint32_t kQueryChildren = 1;
inline constexpr uint32_t kQueryParent = 7;
inline constexpr uint32_t kQueryTimeSeriesMembers = 10;
inline constexpr uint32_t kQueryNamedMember = 11;
inline constexpr uint32_t kQuerySearch = 12;
inline constexpr uint32_t kQueryDimensionUdas = 16;

// MemberQuery::options.
inline constexpr uint32_t kQueryOptionNone = 0;
inline constexpr uint32_t kQueryOptionNames = 1;
inline constexpr uint32_t kQueryOptionAliases = 2;

// Fixed values of an AttributeQuery; a dimension is asked for with values of its own.
inline constexpr uint8_t kAttributeQueryUsage = 1;
inline constexpr int16_t kAttributeQueryMemberInput = 5;
inline constexpr int16_t kAttributeQueryMemberOutput = 9;
inline constexpr int16_t kAttributeQueryDimensionInput = 7;
inline constexpr int16_t kAttributeQueryDimensionOutput = 11;
inline constexpr int16_t kAttributeQueryOperation = 7;

// MemberInfoRecord::dimensionCategory.
inline constexpr int16_t kCategoryNone = 0;
inline constexpr int16_t kCategoryAccounts = 1;
inline constexpr int16_t kCategoryTime = 2;
inline constexpr int16_t kCategoryAttribute = 6;

// Codes of a member of an attribute dimension, and of the dimension itself.
inline constexpr int16_t kConsolidationAttribute = 5;
inline constexpr int16_t kShareAttribute = 5;
inline constexpr int16_t kStorageCategoryAttribute = 12;
inline constexpr int16_t kAttributeTypeDimension = 10;
inline constexpr int16_t kAttributeTypeMember = 255;

inline constexpr int16_t kShareNone = 0;
inline constexpr int16_t kShareShared = 2;  // the member repeats another one
inline constexpr int16_t kStorageTypeRegular = 1;

// OutlineInfoRecord::configureFlags.
inline constexpr uint8_t kConfigureAuto = 1;
inline constexpr uint8_t kConfigureWarnings = 2;

// OlvOtlGetGenNames and its siblings: the plain list and the extended list.
inline constexpr uint32_t kNamesPlain = 0;
inline constexpr uint32_t kNamesExtended = 1;

// Options of OlvOtlRestructure.
inline constexpr uint16_t kRestructureCurrency = 1;
inline constexpr uint16_t kRestructureSaveAs = 2;

// OlvOtlSortChildren.
inline constexpr uint16_t kSortAscending = 0;
inline constexpr uint16_t kSortDescending = 1;

// Text widths: characters without the terminating NUL.
inline constexpr int kMaxMemberName = 80;
inline constexpr int kMaxComment = 257;
inline constexpr int kMaxUda = 80;
inline constexpr int kMaxAliasTableName = 30;
inline constexpr int kUdaStride = kMaxUda + 1;                    // bytes per packed UDA entry
inline constexpr int kAliasTableStride = kMaxAliasTableName + 1;  // bytes per alias table name
