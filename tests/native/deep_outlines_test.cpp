// Outlines deeper than a thread's stack: a chain of 100,000 members on a thread with 256 KiB.
#include <pthread.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <functional>

#include "bridge/bridge.h"
#include "tests/native/native_test.h"

namespace {

constexpr int kLength = 100000;
constexpr size_t kStack = size_t{256} * 1024;

using Code = std::function<void(JNIEnv& probe, JavaObjects& objects)>;

void* run_attached(void* code) {
  JNIEnv* env = nullptr;
  jvm()->AttachCurrentThread(reinterpret_cast<void**>(&env), nullptr);
  JavaObjects objects(env);
  JniProbe probe(env);
  (*static_cast<Code*>(code))(probe, objects);
  probe.finish();
  jvm()->DetachCurrentThread();
  return nullptr;
}

// Runs code on an attached thread with a small stack.
void on_small_stack(Code code) {
  pthread_attr_t attributes;
  pthread_attr_init(&attributes);
  ASSERT_EQ(pthread_attr_setstacksize(&attributes, kStack), 0);
  pthread_t thread;
  ASSERT_EQ(pthread_create(&thread, &attributes, run_attached, &code), 0);
  pthread_join(thread, nullptr);
  pthread_attr_destroy(&attributes);
}

class DeepOutlinesTest : public NativeTest {
 protected:
  void SetUp() override {
    NativeTest::SetUp();
    api().clear_outline();
    root = api().add("Root");
    deepest = api().add_chain(root, kLength, "M");
    journal().recording = false;
    expected_locks.clear();
  }
  void TearDown() override {
    NativeTest::TearDown();
    journal().recording = true;
    api().reset();
  }

  HMember root = 0;
  HMember deepest = 0;
};

TEST_F(DeepOutlinesTest, PathSearchReachesTheDeepestMember) {
  // Found near the top: a path of 100,000 names would only test how -Xcheck:jni counts references.
  api().member("M10").aliases["Default"] = "needle";
  on_small_stack([](JNIEnv& probe, JavaObjects& objects) {
    jobject results = objects.list();
    EXPECT_EQ(NATIVE(findMemberQuery)(&probe, nullptr, objects.outline(), objects.text("needle"),
                                      objects.text("Default"), JNI_FALSE, JNI_FALSE, results),
              0);
    EXPECT_EQ(objects.number(results, "size"), 1);
  });
  // The children of the outline, of the root and of every member below were asked for.
  EXPECT_GE(std::count(api().called().begin(), api().called().end(), "OlvOtlQueryMembers"),
            kLength + 2);
}

TEST_F(DeepOutlinesTest, AliasExportWritesTheDeepestMember) {
  api().member(deepest).aliases["Default"] = "needle";
  const std::string path = temporary_path("depth.alt");
  on_small_stack([&](JNIEnv& probe, JavaObjects& objects) {
    EXPECT_EQ(NATIVE(exportAliasTable)(&probe, nullptr, objects.instance(), objects.outline(),
                                       objects.text("Default"), objects.text(path.c_str())),
              0);
  });
  std::ifstream file(path);
  std::string header;
  std::string line;
  std::getline(file, header);
  std::getline(file, line);
  EXPECT_EQ(line, "\"M99999\"   \"needle\"");
  std::remove(path.c_str());
}

TEST_F(DeepOutlinesTest, RecursiveUdasReachTheDeepestMember) {
  api().member(deepest).udas = {"needle"};
  on_small_stack([&](JNIEnv& probe, JavaObjects& objects) {
    jobject udas = objects.list();
    getDimensionUDASRecursive(&probe, 0, kOutline, kInst, root, udas);
    EXPECT_EQ(objects.elements(udas), "[needle]");
  });
}

TEST_F(DeepOutlinesTest, FindRequestWalksTheChain) {
  on_small_stack([](JNIEnv& probe, JavaObjects& objects) {
    jobject request = objects.make("api/outline/FindRequest");
    objects.set(request, "setText", "(Ljava/lang/String;)V", objects.text("M99999"));
    objects.set(request, "setMaximumMembersPerBatch", "(I)V", jint{2 * kLength});
    jobject results = objects.list();
    NATIVE(findRequest)(&probe, nullptr, objects.instance(), objects.outline(), request, results);
    EXPECT_EQ(objects.number(results, "size"), 1);
    EXPECT_EQ(objects.number(request, "getMembersProcessed"), kLength + 1);
  });
}

}  // namespace
