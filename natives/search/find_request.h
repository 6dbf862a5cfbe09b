// The find request: the Java object that carries a search from batch to batch.
#pragma once

#include "bridge/scope.h"

namespace kepotl {

// Properties of a find request as read at the start of a batch. String references are the native
// call's.
struct FindRequest {
  static constexpr jshort kOneDimension = 1;
  static constexpr jshort kAllAliasTables = 1;
  static constexpr jshort kOneAliasTable = 2;

  // Reads the sixteen properties in their fixed order.
  static FindRequest read(JNIEnv* env, jobject request);

  jshort dimension_scope;
  jshort alias_table_usage;
  jboolean whole_words;
  jboolean match_case;
  jboolean names;
  jboolean formulas;
  jboolean udas;
  jint matches_found;
  jint members_processed;
  jstring text;
  jstring dimension_name;
  jstring alias_table;
  jint max_matches_per_batch;
  jint max_matches_total;  // 0: no limit
  jint max_members_per_batch;
  HMember last_handle;  // 0: from the beginning
};

}  // namespace kepotl
