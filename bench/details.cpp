// Details of many members: one block call for all of them against one call for each.
#include <jni.h>

#include <stdexcept>

#include "bench/jvm.h"
#include "bench/report.h"
#include "bench/store.h"
#include "com_olvane_kep_olvane_api_jni_OutlineJni.h"

namespace {

using bench::Jvm;

const std::vector<int64_t> kSizes = {1'000, 10'000, 100'000, 1'000'000};
constexpr int64_t kLargestOfSingle = 10'000;

// What the results of one member take on the Java heap at most.
constexpr int64_t kBytesPerMember = 900;

using BlockCall = jint(JNICALL*)(JNIEnv*, jclass, jobject, jobject, jobject, jobject);
// One member's details into `target`, a new object of its own.
using SingleCall = jint (*)(JNIEnv*, jobject inst, jobject outline, jint member, jobject target);

jint single_formula(JNIEnv* env, jobject inst, jobject outline, jint member, jobject target) {
  return Java_com_olvane_kep_olvane_api_jni_OutlineJni_getMemberFormula(env, nullptr, inst, outline,
                                                                        nullptr, member, target);
}

jint single_aliases(JNIEnv* env, jobject inst, jobject outline, jint member, jobject target) {
  return Java_com_olvane_kep_olvane_api_jni_OutlineJni_getMemberAliases(env, nullptr, inst, outline,
                                                                        member, target);
}

jint single_attributes(JNIEnv* env, jobject inst, jobject outline, jint member, jobject target) {
  return Java_com_olvane_kep_olvane_api_jni_OutlineJni_getMemberAttributes(env, nullptr, inst,
                                                                           outline, member, target);
}

jint single_udas(JNIEnv* env, jobject inst, jobject outline, jint member, jobject target) {
  return Java_com_olvane_kep_olvane_api_jni_OutlineJni_getMemberUDAS(env, nullptr, inst, outline,
                                                                     nullptr, member, target);
}

constexpr const char* kList = "java/util/ArrayList";
struct Kind {
  const char* title;
  BlockCall block;
  SingleCall single;
  const char* target;  // class of the object that a single call fills
};
const Kind kKinds[] = {
    {"Formulas (every tenth member has one)",
     Java_com_olvane_kep_olvane_api_jni_OutlineJni_getMemberFormulaBlock, single_formula,
     "com/olvane/kep/olvane/defs/outline/Formula"},
    {"Aliases in two tables", Java_com_olvane_kep_olvane_api_jni_OutlineJni_getMemberAliasesBlock,
     single_aliases, kList},
    {"Attributes (every member has one)",
     Java_com_olvane_kep_olvane_api_jni_OutlineJni_getMemberAttributesBlock, single_attributes,
     kList},
    {"UDAs (every fifth member has two)",
     Java_com_olvane_kep_olvane_api_jni_OutlineJni_getMemberUDASBlock, single_udas, kList},
};

// A list of requests for the first `count` members, by handle.
jobject make_requests(const Jvm& jvm, const bench::BushyOutline& filled, int64_t count) {
  JNIEnv* env = jvm.env();
  jobject list = jvm.list();
  jmethodID add = env->GetMethodID(env->GetObjectClass(list), "add", "(Ljava/lang/Object;)Z");
  for (int64_t i = 0; i < count; ++i) {
    const HMember member = filled.members[static_cast<size_t>(i)];
    jobject request = jvm.make("com/olvane/kep/olvane/api/outline/MemberRequest", "(I)V",
                               static_cast<jint>(member));
    env->CallBooleanMethod(list, add, request);
    env->DeleteLocalRef(request);
  }
  return jvm.keep(list);
}

int run(int argc, char** argv) {
  bench::Report report(argc, argv, "Details of many members: a block call against single calls");
  const int64_t largest = report.largest(kSizes);
  const Jvm jvm(largest * kBytesPerMember * 5 / 4);
  report.note(jvm.description());
  report.note(
      "Single calls are made from C++ in a frame of local references each; a Java client "
      "pays its own call on top.");
  const bench::TempFolder folder;
  const bench::Store store(folder.path());
  const bench::OpenOutline outline(store, "Details");
  const bench::BushyOutline filled = bench::fill_bushy(outline, largest, {true, true, true, true});
  jobject jinst = jvm.instance_handle(static_cast<jint>(store.instance()));
  jobject joutline = jvm.outline_handle(static_cast<jint>(outline.handle()));

  std::vector<bench::Table*> tables;
  for (const Kind& kind : kKinds) tables.push_back(&report.table(kind.title, "member"));
  for (const int64_t size : report.sizes(kSizes)) {
    jobject requests = make_requests(jvm, filled, size);
    for (size_t i = 0; i < tables.size(); ++i) {
      const Kind& kind = kKinds[i];
      tables[i]->add(size, "block call", [=, &jvm, &kind] {
        return jvm.time_call(size * kBytesPerMember, [&](JNIEnv* env) {
          jobject results = jvm.list();
          bench::require(kind.block(env, nullptr, jinst, joutline, requests, results),
                         "the block call");
          if (jvm.list_size(results) != size) throw std::runtime_error("results are missing");
        });
      });
      if (size > kLargestOfSingle) continue;
      const bench::Maker maker(jvm, kind.target);
      tables[i]->add(size, "single calls", [=, &jvm, &kind, &filled] {
        return jvm.time_call(size * kBytesPerMember, [&](JNIEnv*) {
          for (size_t at = 0; at < static_cast<size_t>(size); ++at) {
            const auto member = static_cast<jint>(filled.members[at]);
            jvm.call([&](JNIEnv* env) {
              bench::require(kind.single(env, jinst, joutline, member, maker(env)),
                             "a single call");
            });
          }
        });
      });
    }
  }
  return report.run();
}

}  // namespace

int main(int argc, char** argv) {
  return bench::guarded_main([&] { return run(argc, argv); });
}
