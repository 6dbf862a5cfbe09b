// Listing children on the stand-in: the native method against Java code that binds the outline API
// through JNA, in the customary way and in the fastest.
#include <jni.h>

#include <stdexcept>

#include "bench/jvm.h"
#include "bench/report.h"
#include "bench/store.h"
#include "com_olvane_kep_olvane_api_jni_OutlineJni.h"

namespace {

using bench::Jvm;

const std::vector<int64_t> kSizes = {1'000, 10'000, 100'000, 1'000'000};

// What the objects of one member take on the Java heap at most, JNA's own included.
constexpr int64_t kBytesPerMember = 1600;
constexpr int64_t kLargestOfStructures = 10'000;

// The method list(outline, parent, list) of a Java class.
class JavaListing {
 public:
  JavaListing(const Jvm& jvm, const char* class_name)
      : type_(static_cast<jclass>(jvm.keep(jvm.env()->FindClass(class_name)))),
        method_(jvm.env()->GetStaticMethodID(type_, "list", "(IILjava/util/Collection;)V")) {
    jvm.check(class_name);
  }
  void list(JNIEnv* env, jint outline, jint parent, jobject list) const {
    env->CallStaticVoidMethod(type_, method_, outline, parent, list);
  }

 private:
  jclass type_;
  jmethodID method_;
};

int run(int argc, char** argv) {
  bench::Report report(argc, argv, "Listing children through the library and through JNA");
  const Jvm jvm(report.largest(kSizes) * kBytesPerMember * 5 / 4, BENCH_JNA_CLASS_PATH,
                {"-Djna.library.path=" BENCH_LIBRARY_FOLDER});
  report.note(jvm.description());
  const bench::TempFolder folder;
  const bench::Store store(folder.path());
  const bench::OpenOutline outline(store, "Wide");
  jobject joutline = jvm.outline_handle(static_cast<jint>(outline.handle()));
  const JavaListing structures(jvm, "com/olvane/kep/olvane/bench/JnaStructureListing");
  const JavaListing direct(jvm, "com/olvane/kep/olvane/bench/JnaDirectListing");
  const auto handle = static_cast<jint>(outline.handle());

  bench::Table& table =
      report.table("Children of one member of the stand-in as member objects", "member");
  const auto add = [&](const char* way, int64_t size, auto list_members) {
    table.add(size, way, [&jvm, size, list_members] {
      jint listed = 0;
      const double seconds = jvm.time_call(size * kBytesPerMember, [&](JNIEnv* frame) {
        jobject list = jvm.list();
        list_members(frame, list);
        listed = jvm.list_size(list);
      });
      if (listed != size) throw std::runtime_error("members are missing in the list");
      return seconds;
    });
  };
  const HMember dimension = outline.add_dimension("Product");
  uint32_t number = 0;
  for (const int64_t size : report.sizes(kSizes)) {
    const auto parent = static_cast<jint>(outline.add_member(dimension, "Range", number));
    for (int64_t i = 0; i < size; ++i) {
      outline.add_member(static_cast<HMember>(parent), "Product", number++);
    }
    add("getChildrenEx", size, [joutline, parent](JNIEnv* frame, jobject list) {
      bench::require(Java_com_olvane_kep_olvane_api_jni_OutlineJni_getChildrenEx(
                         frame, nullptr, nullptr, joutline, nullptr, parent, list),
                     "getChildrenEx");
    });
    // A hundred times as slow as the others: the smaller sizes tell enough.
    if (size <= kLargestOfStructures) {
      add("JNA", size, [&structures, handle, parent](JNIEnv* frame, jobject list) {
        structures.list(frame, handle, parent, list);
      });
    }
    add("JNA, direct", size, [&direct, handle, parent](JNIEnv* frame, jobject list) {
      direct.list(frame, handle, parent, list);
    });
  }
  return report.run();
}

}  // namespace

int main(int argc, char** argv) {
  return bench::guarded_main([&] { return run(argc, argv); });
}
