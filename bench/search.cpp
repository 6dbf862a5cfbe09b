// Searching an outline, against the same API calls with a plain substring search, and alias tables
// as files, against copying the same bytes.
#include <jni.h>

#include <cstdio>
#include <cstring>
#include <memory>
#include <stdexcept>

#include "api/olv.h"
#include "bench/jvm.h"
#include "bench/report.h"
#include "bench/store.h"
#include "com_olvane_kep_olvane_api_jni_OutlineJni.h"

namespace {

using bench::Jvm;
using bench::OpenOutline;

const std::vector<int64_t> kSizes = {10'000, 100'000, 1'000'000};
constexpr int64_t kJavaBytes = 1 << 20;  // searches without a match and files make few objects

// What is searched; the text occurs nowhere, so that every member is looked at.
struct Search {
  const char* title;
  bool names;
  bool all_alias_tables;
  bool formulas;
  bool match_case;
};
constexpr const char* kText = "nowhere to be found";
constexpr jshort kAllAliasTables = 1;
constexpr Search kSearches[] = {
    {"Full find by name, case told", true, false, false, true},
    {"Full find by name, any case", true, false, false, false},
    {"Full find by the aliases of both tables, any case", false, true, false, false},
    {"Full find by formula (every tenth member has one), any case", false, false, true, false},
};

// ---- The floor ----

bool contains(const char* text, bool match_case) {
  return (match_case ? std::strstr(text, kText) : strcasestr(text, kText)) != nullptr;
}

bool take_and_search(INST inst, int status, char* text, bool match_case) {
  if (status != kStatusOk || text == nullptr) return false;
  const bool found = contains(text, match_case);
  OlvFree(inst, text);
  return found;
}

bool look_at(INST inst, HOutline h, HMember member, const Search& search,
             const OutlineInfoRecord* info) {
  bool found = false;
  if (search.names) {
    MemberInfoRecord* record = nullptr;
    if (OlvOtlGetMemberInfo(h, member, &record) == kStatusOk) {
      found = contains(record->name, search.match_case);
      OlvOtlFreeStructure(h, 1, kStructureMemberInfo, record);
    }
  }
  for (unsigned i = 0; search.all_alias_tables && i < info->aliasTableCount; ++i) {
    char* alias = nullptr;
    const int status = OlvOtlGetMemberAlias(h, member, alias_table_name(info, i), &alias);
    found = take_and_search(inst, status, alias, search.match_case) || found;
  }
  if (search.formulas) {
    char* formula = nullptr;
    const int status = OlvOtlGetMemberFormula(h, member, &formula);
    found = take_and_search(inst, status, formula, search.match_case) || found;
  }
  return found;
}

// The member behind `member` in pre-order, with the API calls that this takes.
HMember next_in_outline(HOutline h, HMember member) {
  HMember next = 0;
  OlvOtlGetChild(h, member, &next);
  while (next == 0 && member != 0) {
    HMember parent = 0;
    OlvOtlGetParent(h, member, &parent);
    OlvOtlGetNextSibling(h, member, &next);
    member = parent;
  }
  return next;
}

int64_t search_at_the_floor(INST inst, HOutline h, const Search& search) {
  OutlineInfoRecord* info = nullptr;
  bench::require(OlvOtlGetOutlineInfo(h, &info), "OlvOtlGetOutlineInfo");
  HMember member = 0;
  OlvOtlGetFirstMember(h, &member);
  int64_t visited = 0;
  int64_t matches = 0;
  for (; member != 0; member = next_in_outline(h, member)) {
    ++visited;
    if (look_at(inst, h, member, search, info)) ++matches;
  }
  OlvFree(inst, info);
  if (matches != 0) throw std::runtime_error("the floor found what is not there");
  return visited;
}

// ---- The library ----

// A find of the whole outline in batches of the request's own size.
int64_t search_by_library(const Jvm& jvm, jobject inst, jobject outline, const Search& search) {
  jobject request = jvm.make("com/olvane/kep/olvane/api/outline/FindRequest", "()V");
  jvm.set(request, "setText", "(Ljava/lang/String;)V", jvm.env()->NewStringUTF(kText));
  jvm.set(request, "setSearchMemberNames", "(Z)V", static_cast<jboolean>(search.names));
  jvm.set(request, "setSearchFormulas", "(Z)V", static_cast<jboolean>(search.formulas));
  jvm.set(request, "setMatchCaseOnly", "(Z)V", static_cast<jboolean>(search.match_case));
  if (search.all_alias_tables) jvm.set(request, "setAliasTableUsage", "(S)V", kAllAliasTables);
  jobject results = jvm.list();
  do {
    jvm.call([&](JNIEnv* env) {
      bench::require(Java_com_olvane_kep_olvane_api_jni_OutlineJni_findRequest(
                         env, nullptr, inst, outline, request, results),
                     "findRequest");
    });
  } while (jvm.get_int(request, "getLastHandle") != 0);
  if (jvm.list_size(results) != 0) {
    throw std::runtime_error("the library found what is not there");
  }
  return jvm.get_int(request, "getMembersProcessed");
}

// ---- Alias tables as files ----

void copy_with_stdio(const std::string& from, const std::string& to) {
  FILE* in = std::fopen(from.c_str(), "r");
  FILE* out = std::fopen(to.c_str(), "w");
  if (in == nullptr || out == nullptr) throw std::runtime_error("cannot open the alias files");
  char line[1024];
  while (std::fgets(line, sizeof line, in) != nullptr) std::fputs(line, out);
  std::fclose(in);
  if (std::fclose(out) != 0) throw std::runtime_error("cannot write the alias file");
}

class AliasFiles {
 public:
  AliasFiles(const Jvm& jvm, jobject inst, jobject outline, const std::string& path)
      : jvm_(jvm), inst_(inst), outline_(outline), path_(path) {}

  const std::string& path() const { return path_; }

  double time_export() const {
    return jvm_.time_call(kJavaBytes, [&](JNIEnv* env) {
      bench::require(Java_com_olvane_kep_olvane_api_jni_OutlineJni_exportAliasTable(
                         env, nullptr, inst_, outline_, env->NewStringUTF("Default"),
                         env->NewStringUTF(path_.c_str())),
                     "exportAliasTable");
    });
  }
  // Into a new table, which is gone afterwards.
  double time_import(HOutline h) const {
    const double seconds = jvm_.time_call(kJavaBytes, [&](JNIEnv* env) {
      jstring name = env->NewStringUTF(kImported);
      jobject wanted = jvm_.make("java/lang/StringBuffer", "(Ljava/lang/String;)V", name);
      jobject used = jvm_.make("java/lang/StringBuffer", "()V");
      bench::require(Java_com_olvane_kep_olvane_api_jni_OutlineJni_importAliasTable(
                         env, nullptr, inst_, outline_, env->NewStringUTF(path_.c_str()), wanted,
                         JNI_FALSE, used),
                     "importAliasTable");
    });
    bench::require(OlvOtlDeleteAliasTable(h, kImported), "OlvOtlDeleteAliasTable");
    return seconds;
  }
  double time_copy() const {
    return bench::cpu_seconds([&] { copy_with_stdio(path_, path_ + ".copy"); });
  }

 private:
  static constexpr const char* kImported = "Imported";

  const Jvm& jvm_;
  jobject inst_;
  jobject outline_;
  std::string path_;
};

int run(int argc, char** argv) {
  bench::Report report(argc, argv, "Searching, and alias tables as files");
  const Jvm jvm(64 * kJavaBytes);
  report.note(jvm.description());
  report.note("Finds run in batches of 10,000 members, the request's default.");
  const bench::TempFolder folder;
  const bench::Store store(folder.path() + "/store");
  jobject jinst = jvm.instance_handle(static_cast<jint>(store.instance()));

  std::vector<bench::Table*> searches;
  for (const Search& search : kSearches) searches.push_back(&report.table(search.title, "member"));
  bench::Table& exporting =
      report.table("exportAliasTable, against copying the file line by line with stdio", "line");
  bench::Table& importing =
      report.table("importAliasTable, against copying the file line by line with stdio", "line");
  std::vector<std::unique_ptr<OpenOutline>> outlines;
  std::vector<std::unique_ptr<AliasFiles>> files;
  for (const int64_t size : report.sizes(kSizes)) {
    const std::string name = "Find" + std::to_string(size);
    const OpenOutline& outline =
        *outlines.emplace_back(std::make_unique<OpenOutline>(store, name.c_str()));
    bench::fill_bushy(outline, size, {true, true, false, false});
    const HOutline h = outline.handle();
    jobject joutline = jvm.outline_handle(static_cast<jint>(h));

    const auto expect_all = [size](int64_t visited) {
      if (visited != size + 1) throw std::runtime_error("the search did not see every member");
    };
    for (size_t i = 0; i < searches.size(); ++i) {
      const Search& search = kSearches[i];
      searches[i]->add(size, "findRequest", [=, &jvm, &search] {
        return jvm.time_call(kJavaBytes, [&](JNIEnv*) {
          expect_all(search_by_library(jvm, jinst, joutline, search));
        });
      });
      searches[i]->add(size, "floor", [=, &store, &search] {
        return bench::cpu_seconds(
            [&] { expect_all(search_at_the_floor(store.instance(), h, search)); });
      });
    }

    const AliasFiles& file = *files.emplace_back(
        std::make_unique<AliasFiles>(jvm, jinst, joutline, folder.path() + "/" + name + ".alt"));
    file.time_export();  // makes the file
    exporting.add(size, "export", [&file] { return file.time_export(); });
    exporting.add(size, "copy", [&file] { return file.time_copy(); });
    importing.add(size, "import", [&file, h] { return file.time_import(h); });
    importing.add(size, "copy", [&file] { return file.time_copy(); });
  }
  return report.run();
}

}  // namespace

int main(int argc, char** argv) {
  return bench::guarded_main([&] { return run(argc, argv); });
}
