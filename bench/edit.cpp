// Changing an outline: copying subtrees in batches, copying, renaming and clearing alias tables,
// and assigning properties against the API calls that this takes.
#include <jni.h>

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

constexpr int64_t kBytesPerCall = 200;

// ---- Copying ----

// Fills an empty outline with a tree of `count` members and returns its root, which is no
// dimension.
using Fill = HMember (*)(const OpenOutline& outline, int64_t count);

HMember fill_wide(const OpenOutline& outline, int64_t count) {
  const HMember root = outline.add_member(outline.add_dimension("Source"), "Root", 0);
  for (uint32_t i = 1; i < count; ++i) outline.add_member(root, "Product", i);
  return root;
}

HMember fill_chain(const OpenOutline& outline, int64_t count) {
  const HMember root = outline.add_member(outline.add_dimension("Source"), "Root", 0);
  HMember last = root;
  for (uint32_t i = 1; i < count; ++i) last = outline.add_member(last, "Product", i);
  return root;
}

HMember fill_bushes(const OpenOutline& outline, int64_t count) {
  const HMember root = outline.add_member(outline.add_dimension("Source"), "Root", 0);
  bench::add_bushes(outline, root, count - 1, {false, true, true, false});
  return root;
}

// Copies the tree below another dimension, batch by batch, as a client does.
class CopyBench {
 public:
  CopyBench(const Jvm& jvm, const bench::Store& store)
      : jvm_(jvm), store_(store), inst_(jvm.instance_handle(static_cast<jint>(store.instance()))) {}

  double time(Fill fill, int64_t count) const {
    const OpenOutline outline(store_, "Copy");
    const HMember source = fill(outline, count);
    const HMember target = outline.add_dimension("Target");
    jobject joutline = jvm_.outline_handle(static_cast<jint>(outline.handle()));
    jobject request = jvm_.keep(jvm_.make("com/olvane/kep/olvane/api/outline/CopyRequest", "()V"));
    const double seconds = jvm_.time_call(count * kBytesPerCall, [&](JNIEnv*) {
      jvm_.call([&](JNIEnv* env) {
        bench::require(Java_com_olvane_kep_olvane_api_jni_OutlineJni_copyMember(
                           env, nullptr, inst_, joutline, nullptr, static_cast<jint>(target),
                           nullptr, static_cast<jint>(source), JNI_FALSE, request, jvm_.list()),
                       "copyMember");
      });
      while (!jvm_.get_boolean(request, "isFinished")) {
        jvm_.call([&](JNIEnv* env) {
          bench::require(Java_com_olvane_kep_olvane_api_jni_OutlineJni_copyContinue(
                             env, nullptr, inst_, joutline, request),
                         "copyContinue");
        });
      }
    });
    if (jvm_.get_int(request, "getCount") != count) {
      throw std::runtime_error("members are missing in the copy");
    }
    jvm_.env()->DeleteGlobalRef(request);
    jvm_.env()->DeleteGlobalRef(joutline);
    return seconds;
  }

 private:
  const Jvm& jvm_;
  const bench::Store& store_;
  jobject inst_;
};

// ---- Assigning ----

// The API calls of an assignment to a record.
template <typename Change>
int update_record(HOutline outline, HMember member, Change change) {
  MemberInfoRecord* info = nullptr;
  const int status = OlvOtlGetMemberInfo(outline, member, &info);
  if (status != kStatusOk) return status;
  change(*info);
  const int written = OlvOtlSetMemberInfoEx(outline, member, info, kMemberOption);
  OlvOtlFreeStructure(outline, 1, kStructureMemberInfo, info);
  return written;
}

// Runs `assign` for each member `count` times in all; each call of a native in its own frame.
template <typename Assign>
double time_natives(const Jvm& jvm, const std::vector<HMember>& members, int64_t count,
                    const Assign& assign) {
  return jvm.time_call(count * kBytesPerCall, [&](JNIEnv*) {
    for (size_t i = 0; i < static_cast<size_t>(count); ++i) {
      jvm.call([&](JNIEnv* env) {
        bench::require(assign(env, static_cast<jint>(members[i])), "an assignment");
      });
    }
  });
}

template <typename Assign>
double time_api(const std::vector<HMember>& members, int64_t count, const Assign& assign) {
  return bench::cpu_seconds([&] {
    for (size_t i = 0; i < static_cast<size_t>(count); ++i) {
      bench::require(assign(members[i]), "an API call");
    }
  });
}

constexpr const char* kComment = "Discontinued at the end of the season";
constexpr const char* kFormula = "\"Units\" * \"Price\" - \"Rebate\";";
constexpr const char* kAlias = "Article of the catalogue";

class AssignBench {
 public:
  AssignBench(const Jvm& jvm, const bench::Store& store, int64_t count)
      : jvm_(jvm), count_(count), outline_(store, "Assign") {
    filled_ = bench::fill_bushy(outline_, count, {});
    inst_ = jvm.instance_handle(static_cast<jint>(store.instance()));
    joutline_ = jvm.outline_handle(static_cast<jint>(outline_.handle()));
  }

  // Adds a table with a native and the API calls that it makes.
  template <typename Native, typename Api>
  void add(bench::Report& report, const char* title, Native native, Api api) const {
    bench::Table& table = report.table(title, "call");
    table.add(count_, "native", [=] {
      return time_natives(jvm_, filled_.members, count_, [&](JNIEnv* env, jint member) {
        return native(env, inst_, joutline_, member);
      });
    });
    table.add(count_, "API calls", [=] {
      return time_api(filled_.members, count_,
                      [&](HMember member) { return api(outline_.handle(), member); });
    });
  }

  // A Java string that stays.
  jstring text(const char* chars) const {
    return static_cast<jstring>(jvm_.keep(jvm_.env()->NewStringUTF(chars)));
  }

  void add_all(bench::Report& report) const {
    jobject code = jvm_.make("com/olvane/kep/olvane/defs/outline/Consolidation", "()V");
    jvm_.set(code, "setValue", "(S)V", jshort{2});
    code = jvm_.keep(code);
    add(
        report, "assignMemberConsolidation against reading and writing the record",
        [code](JNIEnv* env, jobject inst, jobject outline, jint member) {
          return Java_com_olvane_kep_olvane_api_jni_OutlineJni_assignMemberConsolidation(
              env, nullptr, inst, outline, member, code);
        },
        [](HOutline outline, HMember member) {
          return update_record(outline, member,
                               [](MemberInfoRecord& info) { info.consolidation = 2; });
        });
    jstring comment = text(kComment);
    add(
        report, "assignMemberComment against reading and writing the record",
        [comment](JNIEnv* env, jobject inst, jobject outline, jint member) {
          return Java_com_olvane_kep_olvane_api_jni_OutlineJni_assignMemberComment(
              env, nullptr, inst, outline, member, comment);
        },
        [](HOutline outline, HMember member) {
          return update_record(outline, member,
                               [](MemberInfoRecord& info) { std::strcpy(info.comment, kComment); });
        });
    jstring formula = text(kFormula);
    add(
        report, "updateMemberFormula against the one API call",
        [formula](JNIEnv* env, jobject inst, jobject outline, jint member) {
          return Java_com_olvane_kep_olvane_api_jni_OutlineJni_updateMemberFormula(
              env, nullptr, inst, outline, member, formula);
        },
        [](HOutline outline, HMember member) {
          return OlvOtlSetMemberFormula(outline, member, kFormula);
        });
    jstring alias = text(kAlias);
    jstring table = text("Default");
    add(
        report, "assignMemberAlias against the one API call",
        [table, alias](JNIEnv* env, jobject inst, jobject outline, jint member) {
          return Java_com_olvane_kep_olvane_api_jni_OutlineJni_assignMemberAlias(
              env, nullptr, inst, outline, member, table, alias);
        },
        [](HOutline outline, HMember member) {
          return OlvOtlSetMemberAlias(outline, member, "Default", kAlias);
        });
  }

 private:
  const Jvm& jvm_;
  int64_t count_;
  OpenOutline outline_;
  bench::BushyOutline filled_;
  jobject inst_;
  jobject joutline_;
};

// ---- Alias tables ----

// An outline in whose default table every member has an alias.
class AliasTableBench {
 public:
  AliasTableBench(const Jvm& jvm, const bench::Store& store, int64_t count)
      : jvm_(jvm), outline_(store, ("Aliases" + std::to_string(count)).c_str()) {
    bench::fill_bushy(outline_, count, {true, false, false, false});
    inst_ = jvm.instance_handle(static_cast<jint>(store.instance()));
    joutline_ = jvm.outline_handle(static_cast<jint>(outline_.handle()));
  }

  double time_copying() const {
    const double seconds = time([&](JNIEnv* env) { return copy(env); });
    bench::require(OlvOtlDeleteAliasTable(outline_.handle(), kCopy), "OlvOtlDeleteAliasTable");
    return seconds;
  }
  double time_renaming() const {
    bench::require(copy(jvm_.env()), "copyAliasTable");
    const double seconds = time([&](JNIEnv* env) {
      return Java_com_olvane_kep_olvane_api_jni_OutlineJni_renameAliasTable(
          env, nullptr, inst_, joutline_, env->NewStringUTF(kCopy), env->NewStringUTF(kOther));
    });
    bench::require(OlvOtlDeleteAliasTable(outline_.handle(), kOther), "OlvOtlDeleteAliasTable");
    return seconds;
  }
  double time_clearing() const {
    bench::require(copy(jvm_.env()), "copyAliasTable");
    const double seconds = time([&](JNIEnv* env) {
      return Java_com_olvane_kep_olvane_api_jni_OutlineJni_clearAliasTable(
          env, nullptr, inst_, joutline_, env->NewStringUTF(kCopy));
    });
    bench::require(OlvOtlDeleteAliasTable(outline_.handle(), kCopy), "OlvOtlDeleteAliasTable");
    return seconds;
  }

 private:
  static constexpr const char* kCopy = "Copied";
  static constexpr const char* kOther = "Renamed";

  template <typename Native>
  double time(Native native) const {
    return jvm_.time_call(kBytesPerCall, [&](JNIEnv* env) { bench::require(native(env), "call"); });
  }
  jint copy(JNIEnv* env) const {
    return Java_com_olvane_kep_olvane_api_jni_OutlineJni_copyAliasTable(
        env, nullptr, inst_, joutline_, env->NewStringUTF("Default"), env->NewStringUTF(kCopy),
        JNI_FALSE);
  }

  const Jvm& jvm_;
  OpenOutline outline_;
  jobject inst_;
  jobject joutline_;
};

int run(int argc, char** argv) {
  bench::Report report(argc, argv, "Changing an outline");
  const std::vector<int64_t> sizes = {1'000, 10'000, 100'000};
  // A chain costs more per member the longer it is: each batch climbs from its last member to the
  // dimension on both sides.
  const std::vector<int64_t> chain_sizes = {1'000, 3'000, 10'000};
  const int64_t calls = report.largest({1'000, 10'000});
  const Jvm jvm(report.largest(sizes) * kBytesPerCall * 2);
  report.note(jvm.description());
  const bench::TempFolder folder;
  const bench::Store store(folder.path());

  const CopyBench copy(jvm, store);
  const auto add_copies = [&](const char* title, const std::vector<int64_t>& counts, Fill fill) {
    bench::Table& table = report.table(title, "member");
    for (const int64_t count : report.sizes(counts)) {
      table.add(count, "copy", [&copy, fill, count] { return copy.time(fill, count); });
    }
  };
  add_copies("Copying a member with its children, all on one level", sizes, fill_wide);
  add_copies("Copying a bushy tree with formulas and UDAs", sizes, fill_bushes);
  add_copies("Copying a chain, one member below the other", chain_sizes, fill_chain);

  bench::Table& copying = report.table("copyAliasTable", "text");
  bench::Table& renaming = report.table("renameAliasTable", "text");
  bench::Table& clearing = report.table("clearAliasTable", "text");
  std::vector<std::unique_ptr<AliasTableBench>> tables;
  for (const int64_t count : report.sizes({10'000, 100'000, 1'000'000})) {
    const AliasTableBench& table =
        *tables.emplace_back(std::make_unique<AliasTableBench>(jvm, store, count));
    copying.add(count, "copy", [&table] { return table.time_copying(); });
    renaming.add(count, "rename", [&table] { return table.time_renaming(); });
    clearing.add(count, "clear", [&table] { return table.time_clearing(); });
  }

  const AssignBench assign(jvm, store, calls);
  assign.add_all(report);
  return report.run();
}

}  // namespace

int main(int argc, char** argv) {
  return bench::guarded_main([&] { return run(argc, argv); });
}
