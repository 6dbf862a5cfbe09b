// The frame of the native tests: each case starts on the sample outline of the API double, calls
// native methods with a watching JNIEnv, and fails when something was not given back or anything
// else went wrong on the way.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <jni.h>
#include <unistd.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "com_olvane_kep_olvane_api_jni_OutlineJni.h"
#include "tests/native/api_double.h"
#include "tests/native/java_objects.h"
#include "tests/native/jni_probe.h"
#include "tests/native/journal.h"
#include "tests/native/jvm.h"

// The exported function of a native method.
#define NATIVE(method) Java_com_olvane_kep_olvane_api_jni_OutlineJni_##method

// A path for a file of this process, as several may run the tests at once.
inline std::string temporary_path(const std::string& name) {
  return testing::TempDir() + "kepotl_" + std::to_string(getpid()) + '_' + name;
}

class NativeTest : public testing::Test {
 protected:
  void SetUp() override {
    api().reset();
    journal().clear();
    journal().take_faults();
    env_->PushLocalFrame(4096);
  }

  void TearDown() override {
    check_balance();
    env_->PopLocalFrame(nullptr);
  }

  // Fails for what is outstanding now.
  void check_balance() {
    EXPECT_THAT(journal().faults(), testing::IsEmpty());
    EXPECT_THAT(api().blocks_outstanding(), testing::IsEmpty());
    EXPECT_EQ(api().locks, expected_locks);
    EXPECT_EQ(api().open_outlines, expected_outlines);
  }

  // Calls a native method and ends its watch; arguments as JavaObjects::argument takes them.
  // Journal lines and faults of earlier calls stay.
  template <typename Result, typename... Parameters, typename... Arguments>
  Result call(Result(JNICALL* native)(JNIEnv*, jclass, Parameters...), Arguments... arguments) {
    JniProbe probe(env_);
    probe.has_memory = has_memory;
    const Result result = native(&probe, nullptr, java.argument<Parameters>(arguments)...);
    live_strings = probe.live_strings();
    probe.finish();
    if (!probe.exception().empty() && !exceptions_allowed) {
      journal().fault("Pending exception: " + probe.exception());
    }
    return result;
  }
  // The same on the sample outline, for methods that take the instance and the outline first.
  template <typename Native, typename... Arguments>
  jint on_outline(Native native, Arguments... arguments) {
    return call(native, java.instance(), java.outline(), arguments...);
  }

  // The API calls, the Java calls but for the reading of handles, or all lines, since the last
  // take, which forgets them.
  std::vector<std::string> api_calls() { return take(journal().lines(Entry::kApi)); }
  std::vector<std::string> java_calls() {
    std::vector<std::string> lines = take(journal().lines(Entry::kJava));
    const auto reads_handle = [](const std::string& line) {
      return line.find("Handle.getValue()") != std::string::npos;
    };
    lines.erase(std::remove_if(lines.begin(), lines.end(), reads_handle), lines.end());
    return lines;
  }
  std::vector<std::string> all_calls() { return take(journal().all_lines()); }
  // Of all lines since the last take, those that start with `prefix`, without it.
  std::vector<std::string> calls_of(const std::string& prefix) {
    return rests(all_calls(), prefix);
  }
  static std::vector<std::string> rests(const std::vector<std::string>& lines,
                                        const std::string& prefix) {
    std::vector<std::string> found;
    for (const std::string& line : lines) {
      if (line.rfind(prefix, 0) == 0) found.push_back(line.substr(prefix.size()));
    }
    return found;
  }

  // What must be held when the case is over; a case that opens or locks says so here.
  std::set<std::string> expected_locks = {"App/Db/Db"};
  std::set<HOutline> expected_outlines = {kOutline};
  // Set by cases whose Java objects lack methods on purpose.
  bool exceptions_allowed = false;
  // Whether the virtual machine gives out the characters of strings.
  bool has_memory = true;
  // Java strings that the last call made and left to the frame.
  int live_strings = 0;

  JNIEnv* env_ = real_env();
  JavaObjects java{env_};

 private:
  static std::vector<std::string> take(std::vector<std::string> lines) {
    journal().clear();
    return lines;
  }
};
