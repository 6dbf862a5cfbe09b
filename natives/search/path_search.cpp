// The member-path search: every member whose alias or name matches, with the names up to its
// dimension.
#include <memory>
#include <new>
#include <vector>

#include "bridge/native.h"
#include "bridge/scope.h"
#include "browse/members.h"

namespace kepotl {
namespace {

// What is searched for, and where the matches go.
struct PathSearch {
  JNIEnv* env;
  HOutline outline;
  const char* text;
  const char* alias_table;  // null: names only
  jboolean match_case;
  jboolean whole_word;
  jobject results;

  // Compares one member by its alias, or by its name where it has none, and adds its path. False,
  // with the failure in `*status`, when the record that is needed cannot be read.
  bool visit(HMember member, int* status) const {
    ApiBlock<char> alias(kNoInstance);
    if (alias_table != nullptr) alias.take(OlvOtlGetMemberAlias, outline, member, alias_table);
    MemberRecord record(outline);
    const bool by_alias = alias && *alias != '\0';
    if (!by_alias) {
      const int read = record.read(member);
      if (!record) {
        *status = read;
        return false;
      }
    }
    const char* candidate = by_alias ? alias.get() : record->name;
    if (CallCompareStrings(text, candidate, match_case, whole_word, nullptr)) {
      jobject path = CallCreateMemberPath(env, outline, member);
      if (path != nullptr) CallCollectionAddObject(env, results, path);
    }
    return true;
  }
};

// The children of one member on the way down, and which of them comes next.
struct Siblings {
  explicit Siblings(HOutline outline) : members(outline) {}
  HandleArray members;
  uint32_t next = 0;
};

}  // namespace
}  // namespace kepotl

using namespace kepotl;

// Keeps its own stack: an outline may be deeper than a Java thread's.
int CallFindMemberRecursor(JNIEnv* env, HOutline outline, HMember parent, const char* text,
                           const char* alias_table, jboolean match_case, jboolean whole_word,
                           jobject results) try {
  const PathSearch search = {env, outline, text, alias_table, match_case, whole_word, results};
  std::vector<std::unique_ptr<Siblings>> path;
  int status = kStatusOk;
  const auto descend = [&](HMember member) {
    auto children = std::make_unique<Siblings>(outline);
    status = children->members.query(member, children_query(nullptr, kQueryOptionNames));
    if (children->members.size() != 0) path.push_back(std::move(children));
  };
  descend(parent);
  while (!path.empty()) {
    Siblings& siblings = *path.back();
    if (siblings.next == siblings.members.size()) {
      path.pop_back();
      continue;
    }
    const HMember member = siblings.members[siblings.next++];
    if (search.visit(member, &status)) descend(member);
  }
  return status;
} catch (const std::bad_alloc&) {
  return kStatusRefused;
}

jobject CallCreateMemberPath(JNIEnv* env, HOutline outline, HMember member) {
  jobject path = CreateSimpleObject(env, CNAME_MEMBER_PATH);
  if (path == nullptr) return nullptr;
  while (member != 0) {
    {
      MemberRecord record(outline);
      record.read(member);
      if (!record) return nullptr;
      LocalRef name(env, CreateStringObject(env, record->name));
      CallSingleArgumentObjectMethod(env, path, "addParent", name.get());
    }
    HandleArray parents(outline);
    parents.query(member, parent_query(kQueryOptionNames));
    member = parents.size() != 0 ? parents[0] : 0;
  }
  return path;
}

KEPOTL_NATIVE(jint, findMemberQuery)
(JNIEnv* env, jclass, jobject joutline, jstring jtext, jstring jtable, jboolean match_case,
 jboolean whole_word, jobject results) {
  TextContext context;
  JavaText table(env, context, jtable);
  const HOutline outline = RetrieveHOutline(env, joutline);
  if (outline == 0) return kStatusOk;
  JavaText text(env, context, jtext);
  if (any_lost(table, text)) return kStatusRefused;
  if (text.empty()) return kStatusOk;
  return CallFindMemberRecursor(env, outline, 0, text.api(), table.api_if_any(), match_case,
                                whole_word, results);
}
