// The records exchanged with the client and outline API: plain structures in natural alignment,
// little-endian, with every offset asserted for 32 bits and, where pointers widen, for 64 bits.
// Texts are NUL-terminated API characters.
#pragma once

#include <cstddef>
#include <cstdint>

#include "api/types.h"

// Names one stored object. The texts belong to the caller and live as long as the call.
struct ObjectDefinitionRecord {
  uint32_t context;  // HCTX of a login, or a local context
  uint32_t objectType;
  const char* applicationName;
  const char* databaseName;
  const char* objectName;  // for a database's outline, the database name again
};

// State of the process that a context has started. Only `state` is read by the native methods.
struct ProcessStateRecord {
  uint16_t action;
  uint16_t state;  // not 0 while the process goes on
  uint32_t reserved[3];
};

// What is known of one stored object; allocated by the API, given back with OlvFree.
struct ObjectInfoRecord {
  uint8_t reserved0[36];
  uint32_t size;   // bytes
  uint8_t locked;  // lock indicator
  uint8_t reserved41[3];
};

// What is known of one database; allocated by the API, given back with OlvFree.
struct DatabaseInfoRecord {
  uint8_t reserved0[32];
  uint16_t dataLoaded;  // not 0 when the database holds data
  uint8_t reserved34[2];
};

// The errors of one member, as verification reports them.
struct MemberErrorEntry {
  HMember member;  // 0: the entry is to be skipped
  uint32_t errorPortion;
  uint32_t extendedPortion;
};

// One member. Allocated by OlvOtlGetMemberInfo and given back with
// OlvOtlFreeStructure(outline, 1, kStructureMemberInfo, record); a record built by the caller is
// cleared to zeros first. Reserved bytes are written back exactly as they were read.
struct MemberInfoRecord {
  char name[82];              // at most 80 characters
  int16_t level;              // 0: no children
  int16_t generation;         // 1: a dimension
  int16_t consolidation;      // operator code
  uint8_t twoPass;            // two-pass calculation
  uint8_t expense;            // variance reporting
  int16_t conversionType;     // currency conversion code
  char currencyMember[82];    // at most 80 characters
  int16_t timeBalance;        // option code
  int16_t timeBalanceSkip;    // option code
  int16_t shareOption;        // data storage code
  int16_t storageType;        // of a dimension
  int16_t dimensionCategory;  // 2 time, 6 attribute
  int16_t storageCategory;    // code
  char comment[258];          // at most 257 characters
  uint32_t childCount;        // direct children
  char dimensionName[81];     // of the member's dimension
  uint8_t isAttributed;       // carries attribute associations
  uint8_t reserved530[2];
  int16_t attributeType;  // of an attribute dimension or member
  uint8_t reserved534[10];
  uint8_t hybridFlag;             // of a level-0 member
  uint8_t hybridAnalysisEnabled;  // of a dimension
  uint8_t reserved546[10];
};

// A request for members; cleared to zeros before it is filled.
struct MemberQuery {
  uint32_t queryType;
  uint32_t options;
  const char* dimension;  // null: none given
  const char* pattern1;   // null: unused
  const char* pattern2;   // null: unused
};

// How much of a query's answer is wanted and how much came; cleared to zeros before it is filled.
struct MemberQueryCounts {
  uint32_t start;       // in: index of the first match to return
  uint32_t maxCount;    // in: most handles to return, 0 for all
  uint32_t totalCount;  // out: matches in all
  uint32_t returned;    // out: handles in the array
};

// A request for the attributes of a member; cleared to zeros before it is filled.
struct AttributeQuery {
  uint8_t usage;
  uint8_t reserved1[3];
  HMember member;
  int16_t inputType;
  int16_t outputType;
  uint8_t reserved12[12];
  int16_t operation;
  uint8_t reserved26[2];
};

// Outline-wide settings, allocated by OlvOtlGetOutlineInfo. The alias table names follow the
// structure: slot i of kAliasTableStride bytes is what alias_table_name(record, i) points to;
// name 0 is the default table.
struct OutlineInfoRecord {
  uint8_t caseSensitive;
  uint8_t reserved1;
  int16_t outlineType;
  uint8_t configureFlags;
  uint8_t reserved5;
  uint16_t aliasTableCount;
};

// Name of alias table `index` (below aliasTableCount) of a record handed out by the API.
inline const char* alias_table_name(const OutlineInfoRecord* info, unsigned index) {
  return reinterpret_cast<const char*>(info) + sizeof(OutlineInfoRecord) +
         static_cast<size_t>(index) * kAliasTableStride;
}

// How attribute members are named and calculated, allocated by OlvOtlGetAttributeSpecifications.
// Text fields may be null.
struct AttributeSpecRecord {
  int16_t longNameConstructor;
  int16_t longNameSource;
  int8_t longNameDelimiter;
  uint8_t reserved5;
  int16_t dateFormat;
  int16_t bucketingType;
  uint8_t reserved10[2];
  const char* trueName;
  const char* falseName;
  const char* calcDimensionName;
  const char* sumName;
  const char* countName;
  const char* averageName;
  const char* minimumName;
  const char* maximumName;
};

// A named generation or level.
struct GenLevelNameEntry {
  uint16_t number;
  char name[82];
};

// An enabled dynamic-time-series entry.
struct DtsEntry {
  char name[82];
  int16_t generation;
};

static_assert(offsetof(ObjectDefinitionRecord, context) == 0);
static_assert(offsetof(ObjectDefinitionRecord, objectType) == 4);
static_assert(offsetof(ObjectDefinitionRecord, applicationName) == 8);
static_assert(offsetof(ObjectDefinitionRecord, databaseName) == 8 + sizeof(void*));
static_assert(offsetof(ObjectDefinitionRecord, objectName) == 8 + 2 * sizeof(void*));
static_assert(sizeof(ObjectDefinitionRecord) == (sizeof(void*) == 4 ? 20 : 32));

static_assert(offsetof(ProcessStateRecord, action) == 0);
static_assert(offsetof(ProcessStateRecord, state) == 2);
static_assert(sizeof(ProcessStateRecord) == 16);

static_assert(offsetof(ObjectInfoRecord, size) == 36);
static_assert(offsetof(ObjectInfoRecord, locked) == 40);
static_assert(offsetof(DatabaseInfoRecord, dataLoaded) == 32);

static_assert(offsetof(MemberErrorEntry, member) == 0);
static_assert(offsetof(MemberErrorEntry, errorPortion) == 4);
static_assert(offsetof(MemberErrorEntry, extendedPortion) == 8);
static_assert(sizeof(MemberErrorEntry) == 12);

static_assert(offsetof(MemberInfoRecord, name) == 0);
static_assert(offsetof(MemberInfoRecord, level) == 82);
static_assert(offsetof(MemberInfoRecord, generation) == 84);
static_assert(offsetof(MemberInfoRecord, consolidation) == 86);
static_assert(offsetof(MemberInfoRecord, twoPass) == 88);
static_assert(offsetof(MemberInfoRecord, expense) == 89);
static_assert(offsetof(MemberInfoRecord, conversionType) == 90);
static_assert(offsetof(MemberInfoRecord, currencyMember) == 92);
static_assert(offsetof(MemberInfoRecord, timeBalance) == 174);
static_assert(offsetof(MemberInfoRecord, timeBalanceSkip) == 176);
static_assert(offsetof(MemberInfoRecord, shareOption) == 178);
static_assert(offsetof(MemberInfoRecord, storageType) == 180);
static_assert(offsetof(MemberInfoRecord, dimensionCategory) == 182);
static_assert(offsetof(MemberInfoRecord, storageCategory) == 184);
static_assert(offsetof(MemberInfoRecord, comment) == 186);
static_assert(offsetof(MemberInfoRecord, childCount) == 444);
static_assert(offsetof(MemberInfoRecord, dimensionName) == 448);
static_assert(offsetof(MemberInfoRecord, isAttributed) == 529);
static_assert(offsetof(MemberInfoRecord, reserved530) == 530);
static_assert(offsetof(MemberInfoRecord, attributeType) == 532);
static_assert(offsetof(MemberInfoRecord, reserved534) == 534);
static_assert(offsetof(MemberInfoRecord, hybridFlag) == 544);
static_assert(offsetof(MemberInfoRecord, hybridAnalysisEnabled) == 545);
static_assert(offsetof(MemberInfoRecord, reserved546) == 546);
static_assert(sizeof(MemberInfoRecord) == 556);

static_assert(offsetof(MemberQuery, queryType) == 0);
static_assert(offsetof(MemberQuery, options) == 4);
static_assert(offsetof(MemberQuery, dimension) == 8);
static_assert(offsetof(MemberQuery, pattern1) == 8 + sizeof(void*));
static_assert(offsetof(MemberQuery, pattern2) == 8 + 2 * sizeof(void*));
static_assert(sizeof(MemberQuery) == (sizeof(void*) == 4 ? 20 : 32));

static_assert(offsetof(MemberQueryCounts, start) == 0);
static_assert(offsetof(MemberQueryCounts, maxCount) == 4);
static_assert(offsetof(MemberQueryCounts, totalCount) == 8);
static_assert(offsetof(MemberQueryCounts, returned) == 12);
static_assert(sizeof(MemberQueryCounts) == 16);

static_assert(offsetof(AttributeQuery, usage) == 0);
static_assert(offsetof(AttributeQuery, member) == 4);
static_assert(offsetof(AttributeQuery, inputType) == 8);
static_assert(offsetof(AttributeQuery, outputType) == 10);
static_assert(offsetof(AttributeQuery, operation) == 24);
static_assert(sizeof(AttributeQuery) == 28);

static_assert(offsetof(OutlineInfoRecord, caseSensitive) == 0);
static_assert(offsetof(OutlineInfoRecord, outlineType) == 2);
static_assert(offsetof(OutlineInfoRecord, configureFlags) == 4);
static_assert(offsetof(OutlineInfoRecord, aliasTableCount) == 6);
static_assert(sizeof(OutlineInfoRecord) == 8);

static_assert(offsetof(AttributeSpecRecord, longNameConstructor) == 0);
static_assert(offsetof(AttributeSpecRecord, longNameSource) == 2);
static_assert(offsetof(AttributeSpecRecord, longNameDelimiter) == 4);
static_assert(offsetof(AttributeSpecRecord, dateFormat) == 6);
static_assert(offsetof(AttributeSpecRecord, bucketingType) == 8);
static_assert(offsetof(AttributeSpecRecord, trueName) == (sizeof(void*) == 4 ? 12 : 16));
static_assert(offsetof(AttributeSpecRecord, falseName) ==
              offsetof(AttributeSpecRecord, trueName) + sizeof(void*));
static_assert(offsetof(AttributeSpecRecord, calcDimensionName) ==
              offsetof(AttributeSpecRecord, trueName) + 2 * sizeof(void*));
static_assert(offsetof(AttributeSpecRecord, sumName) ==
              offsetof(AttributeSpecRecord, trueName) + 3 * sizeof(void*));
static_assert(offsetof(AttributeSpecRecord, countName) ==
              offsetof(AttributeSpecRecord, trueName) + 4 * sizeof(void*));
static_assert(offsetof(AttributeSpecRecord, averageName) ==
              offsetof(AttributeSpecRecord, trueName) + 5 * sizeof(void*));
static_assert(offsetof(AttributeSpecRecord, minimumName) ==
              offsetof(AttributeSpecRecord, trueName) + 6 * sizeof(void*));
static_assert(offsetof(AttributeSpecRecord, maximumName) ==
              offsetof(AttributeSpecRecord, trueName) + 7 * sizeof(void*));
static_assert(sizeof(AttributeSpecRecord) == (sizeof(void*) == 4 ? 44 : 80));

static_assert(offsetof(GenLevelNameEntry, number) == 0);
static_assert(offsetof(GenLevelNameEntry, name) == 2);
static_assert(sizeof(GenLevelNameEntry) == 84);

static_assert(offsetof(DtsEntry, name) == 0);
static_assert(offsetof(DtsEntry, generation) == 82);
static_assert(sizeof(DtsEntry) == 84);
