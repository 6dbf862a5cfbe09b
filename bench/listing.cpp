// Listing children as member objects, against the floor: the same JNI calls made in a plain loop,
// with the identifiers at hand and no API. A third way adds what the library's rule to keep nothing
// between calls costs most: the class and the add method of the list are looked up for each member.
#include <jni.h>

#include <stdexcept>

#include "bench/flat_api.h"
#include "bench/jvm.h"
#include "bench/report.h"
#include "bridge/jni_calls.h"
#include "com_olvane_kep_olvane_api_jni_OutlineJni.h"

using namespace kepotl;

namespace {

using bench::Jvm;

const std::vector<int64_t> kSizes = {1'000, 10'000, 100'000, 1'000'000};

// What the objects of one leaf take on the Java heap at most.
constexpr int64_t kBytesPerMember = 500;

jmethodID find_add(JNIEnv* env, jobject list) {
  return env->GetMethodID(env->GetObjectClass(list), "add", "(Ljava/lang/Object;)Z");
}

struct Identifiers {
  explicit Identifiers(const Jvm& jvm) {
    JNIEnv* env = jvm.env();
    type = static_cast<jclass>(
        jvm.keep(env->FindClass("com/olvane/kep/olvane/defs/outline/DefaultMember")));
    const auto find = [&](const char* name, const char* signature) {
      jmethodID method = env->GetMethodID(type, name, signature);
      jvm.check(name);
      return method;
    };
    constructor = find("<init>", "()V");
    hold_exceptions = find("setHoldExceptions", "(Z)V");
    handle = find("setHandle", "(I)V");
    name = find("setName", "(Ljava/lang/String;)V");
    dimension_name = find("setDimensionName", "(Ljava/lang/String;)V");
    dimension_handle = find("setDimensionHandle", "(I)V");
    generation = find("setGeneration", "(S)V");
    consolidation = find("setConsolidation", "(S)V");
    share = find("setShare", "(S)V");
    comment = find("setComment", "(Ljava/lang/String;)V");
    add = find_add(env, jvm.list());
    jvm.check("add");
  }

  jclass type;
  jmethodID constructor, hold_exceptions, handle, name, dimension_name, dimension_handle,
      generation, consolidation, share, comment, add;
};

void set_text(JNIEnv* env, jobject object, jmethodID setter, const char* text) {
  jstring string = env->NewStringUTF(text);
  call_void(env, object, setter, string);
  env->DeleteLocalRef(string);
}

// The calls that a listing of flat leaves makes, value by value and in the same order.
void list_at_the_floor(JNIEnv* env, const Identifiers& ids, HMember first, int64_t count,
                       jobject list, bool looks_up_add) {
  jmethodID add = ids.add;
  for (HMember leaf = first; leaf < first + static_cast<HMember>(count); ++leaf) {
    const MemberInfoRecord& record = bench::flat_leaf_record(leaf);
    jobject object = new_object(env, ids.type, ids.constructor);
    call_void(env, object, ids.hold_exceptions, jboolean{JNI_TRUE});
    call_void(env, object, ids.handle, static_cast<jint>(leaf));
    set_text(env, object, ids.name, record.name);
    set_text(env, object, ids.dimension_name, record.dimensionName);
    call_void(env, object, ids.dimension_handle, static_cast<jint>(bench::kFlatDimension));
    call_void(env, object, ids.generation, record.generation);
    if (record.consolidation != 0) call_void(env, object, ids.consolidation, record.consolidation);
    if (record.shareOption != 0) call_void(env, object, ids.share, record.shareOption);
    if (record.comment[0] != '\0') set_text(env, object, ids.comment, record.comment);
    call_void(env, object, ids.hold_exceptions, jboolean{JNI_FALSE});
    if (looks_up_add) add = find_add(env, list);
    call_boolean(env, list, add, object);
  }
}

int run(int argc, char** argv) {
  bench::Report report(argc, argv, "Listing children as member objects");
  const Jvm jvm(2 * report.largest(kSizes) * kBytesPerMember);
  report.note(jvm.description());
  const Identifiers ids(jvm);
  jobject outline = jvm.outline_handle(static_cast<jint>(bench::kFlatOutline));

  bench::Table& table = report.table(
      "getChildrenEx on an API that costs nothing, against the same JNI calls in a plain loop",
      "member");
  const auto add = [&](const char* way, int64_t size, auto list_members) {
    table.add(size, way, [&jvm, size, list_members] {
      jint listed = 0;
      const double seconds = jvm.time_call(size * kBytesPerMember, [&](JNIEnv* env) {
        jobject list = jvm.list();
        list_members(env, list);
        listed = jvm.list_size(list);
      });
      if (listed != size) throw std::runtime_error("members are missing in the list");
      return seconds;
    });
  };
  for (const int64_t size : report.sizes(kSizes)) {
    HMember first = 0;
    const HMember parent = bench::add_flat_parent(static_cast<uint32_t>(size), &first);
    add("getChildrenEx", size, [outline, parent](JNIEnv* env, jobject list) {
      bench::require(Java_com_olvane_kep_olvane_api_jni_OutlineJni_getChildrenEx(
                         env, nullptr, nullptr, outline, nullptr, static_cast<jint>(parent), list),
                     "getChildrenEx");
    });
    add("floor", size, [&ids, first, size](JNIEnv* env, jobject list) {
      list_at_the_floor(env, ids, first, size, list, false);
    });
    add("floor + look-up of add", size, [&ids, first, size](JNIEnv* env, jobject list) {
      list_at_the_floor(env, ids, first, size, list, true);
    });
  }
  return report.run();
}

}  // namespace

int main(int argc, char** argv) {
  return bench::guarded_main([&] { return run(argc, argv); });
}
