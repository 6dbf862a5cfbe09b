// The sweeps: every native method runs with each of its API calls failing, once and from there on,
// with blocks that the API hands out missing, without the characters of its strings, and with each
// argument missing or wrong. Whatever happens, everything goes back.
#include "tests/native/sweep.h"

#include <algorithm>
#include <cstdio>
#include <map>
#include <set>

namespace {

using Kind = Substitution::Kind;

constexpr int kInjected = 4242;
constexpr jint kUnknown = 0x70000001;  // a handle that nothing has

// Longer than every fixed field, and a byte longer than a name.
std::string too_long() {
  return std::string(kMaxMemberName + 1, 'n');
}

// The calls that give back what they have left even when they fail. What any other failing call
// leaves is nobody's.
const std::map<std::string, std::set<std::string>>& given_back_after_failure() {
  static const std::map<std::string, std::set<std::string>> kCalls = {
      {"listOutlineMembers", {"OlvOtlQueryMembersByName", "OlvOtlGetMemberAlias"}},
      {"listFindMembers", {"OlvOtlQueryMembers"}},
      {"listDTSLatestMembers", {"OlvOtlQueryMembers"}},
      {"getSettings", {"OlvOtlGetOutlineInfo"}},
      {"getAttributeSpecs", {"OlvOtlGetAttributeSpecifications"}},
      {"getAttributeSpecsEx", {"OlvOtlGetAttributeSpecifications"}},
      {"getActualGenerations", {"OlvOtlGetGenNamesEx"}},
      {"getActualLevels", {"OlvOtlGetLevelNamesEx"}},
  };
  return kCalls;
}

// What a run is to meet; nothing unless told.
struct Weather {
  int fail_at = 0;  // a call
  bool onwards = false;
  int withheld = 0;  // a block
  bool withholds_all = false;
  bool has_memory = true;
  Substitution* substitution = nullptr;
};

struct Outcome {
  long result = 0;
  int texts_lost = 0;
  std::string exception;
  std::vector<std::string> functions;  // API functions called
  int blocks = 0;                      // handed out by them
  std::set<std::string> locks;
  std::set<HOutline> outlines;
};

class SweepTest : public NativeTest, public testing::WithParamInterface<SweepCase> {
 protected:
  void TearDown() override { env_->PopLocalFrame(nullptr); }

  // The files that the entries of alias exports and imports leave.
  static void TearDownTestSuite() {
    for (const char* file : {"sweep_export.alt", "sweep_import.alt"}) {
      std::remove(temporary_path(file).c_str());
    }
    std::remove(too_long().c_str());  // as the name of a file to export to
  }

  // Runs the entry on a fresh sample outline and checks what must hold whatever happens. Failing
  // calls leave junk.
  Outcome run(const Weather& weather = {}) {
    api().reset();
    journal().clear();
    env_->PushLocalFrame(512);
    const auto given_back = given_back_after_failure().find(GetParam().name);
    api().leave_junk(given_back == given_back_after_failure().end() ? std::set<std::string>()
                                                                    : given_back->second);
    if (weather.fail_at != 0) api().fail_call(weather.fail_at, kInjected, weather.onwards);
    if (weather.withheld != 0) api().withhold_block(weather.withheld);
    if (weather.withholds_all) api().withhold_all();
    Outcome outcome;
    JniProbe probe(env_);
    probe.has_memory = weather.has_memory;
    outcome.result = GetParam().run(&probe, java, weather.substitution);
    outcome.texts_lost = probe.texts_lost;
    probe.finish();
    outcome.exception = probe.exception();
    outcome.functions = api().called();
    outcome.blocks = api().handed_out();
    outcome.locks = api().locks;
    outcome.outlines = api().open_outlines;
    EXPECT_THAT(journal().take_faults(), testing::IsEmpty());
    EXPECT_THAT(api().blocks_outstanding(), testing::IsEmpty());
    env_->PopLocalFrame(nullptr);
    return outcome;
  }

  // As many locks are held and outlines open as before, or as the method leaves when it succeeds.
  static void expect_nothing_kept(const Outcome& outcome, const Outcome& clean) {
    EXPECT_THAT(outcome.locks.size(), testing::AnyOf(1u, clean.locks.size()));
    EXPECT_THAT(outcome.outlines.size(), testing::AnyOf(1u, clean.outlines.size()));
  }
};

// Whether a call may change an outline or a stored object, or takes a lock.
bool is_change(const std::string& function) {
  const std::string name = function.substr(function.rfind("OlvOtl", 0) == 0 ? 6 : 3);
  const auto starts_name = [&](const char* verb) { return name.rfind(verb, 0) == 0; };
  constexpr const char* kVerbs[] = {"Set",         "Add",    "Rename",    "Move",         "Delete",
                                    "Clear",       "Copy",   "Create",    "Write",        "Lock",
                                    "Restructure", "Enable", "Associate", "Disassociate", "Open"};
  return std::any_of(std::begin(kVerbs), std::end(kVerbs), starts_name);
}

// Giving back and unlocking never decide a method's answer.
bool is_release(const std::string& function) {
  return function == "OlvFree" || function == "OlvOtlFreeStructure" ||
         function == "OlvOtlFreeMembers" || function == "OlvUnlockObject";
}

}  // namespace

TEST_P(SweepTest, EachFailingCall) {
  const Outcome clean = run();
  EXPECT_EQ(clean.exception, "");
  ASSERT_FALSE(clean.functions.empty());
  for (size_t n = 1; n <= clean.functions.size(); ++n) {
    const std::string& function = clean.functions[n - 1];
    SCOPED_TRACE("call " + std::to_string(n) + " fails, " + function);
    const Outcome outcome = run({static_cast<int>(n)});
    EXPECT_EQ(outcome.exception, "");
    expect_nothing_kept(outcome, clean);
    std::vector<long> allowed = {is_release(function) ? kSwallowed : kPassedOn};
    const auto named = GetParam().answers.find(function);
    if (named != GetParam().answers.end()) allowed = named->second;
    std::replace(allowed.begin(), allowed.end(), kPassedOn, long{kInjected});
    std::replace(allowed.begin(), allowed.end(), kSwallowed, clean.result);
    EXPECT_THAT(allowed, testing::Contains(outcome.result));
  }
}

TEST_P(SweepTest, EachCallFailingFromThereOn) {
  const Outcome clean = run();
  for (size_t n = 1; n <= clean.functions.size(); ++n) {
    SCOPED_TRACE("calls fail from " + std::to_string(n) + " on, " + clean.functions[n - 1]);
    const Outcome outcome = run({static_cast<int>(n), true});
    EXPECT_EQ(outcome.exception, "");
    expect_nothing_kept(outcome, clean);
  }
}

TEST_P(SweepTest, EachBlockMissingInASuccess) {
  const Outcome clean = run();
  for (int n = 1; n <= clean.blocks; ++n) {
    SCOPED_TRACE("block " + std::to_string(n) + " is withheld");
    Weather weather;
    weather.withheld = n;
    const Outcome outcome = run(weather);
    EXPECT_EQ(outcome.exception, "");
    expect_nothing_kept(outcome, clean);
  }
}

TEST_P(SweepTest, SuccessesThatHandNothingOut) {
  const Outcome clean = run();
  Weather weather;
  weather.withholds_all = true;
  const Outcome outcome = run(weather);
  EXPECT_EQ(outcome.exception, "");
  EXPECT_EQ(outcome.result,
            GetParam().without_results.value_or(clean.blocks == 0 ? clean.result : kStatusOk));
  expect_nothing_kept(outcome, clean);
}

TEST_P(SweepTest, StringsWithoutCharacters) {
  const Outcome clean = run();
  Weather weather;
  weather.has_memory = false;
  const Outcome outcome = run(weather);
  EXPECT_EQ(outcome.exception, "");
  expect_nothing_kept(outcome, clean);
  if (outcome.texts_lost == 0) return;
  EXPECT_EQ(outcome.result, GetParam().without_texts);
  for (const std::string& function : outcome.functions) {
    EXPECT_FALSE(is_change(function)) << function;
  }
}

TEST_P(SweepTest, EachArgumentMissingOrWrong) {
  const Outcome clean = run();
  for (size_t index = 0; index < GetParam().parameters; ++index) {
    for (Kind kind : {Kind::kNull, Kind::kNoMethods, Kind::kZeroHandle, Kind::kUnknownHandle,
                      Kind::kEmpty, Kind::kLong}) {
      SCOPED_TRACE("argument " + std::to_string(index) + ", substitution " +
                   std::to_string(static_cast<int>(kind)));
      Substitution substitution = {index, kind};
      Weather weather;
      weather.substitution = &substitution;
      const Outcome outcome = run(weather);
      if (!substitution.applied) continue;
      expect_nothing_kept(outcome, clean);
      // Only an object without the methods that it needs leaves an exception to Java.
      if (kind != Kind::kNoMethods) {
        EXPECT_EQ(outcome.exception, "");
      }
      if (substitution.of_outline && kind != Kind::kUnknownHandle) {
        EXPECT_EQ(outcome.result, GetParam().without_outline);
        EXPECT_THAT(outcome.functions, testing::IsEmpty());
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Natives, SweepTest, testing::ValuesIn(all_cases()),
                         [](const auto& test) { return test.param.name; });

TEST(SweepTable, HoldsEveryNativeMethodOnce) {
  std::set<std::string> names;
  for (const SweepCase& entry : all_cases())
    names.insert(entry.name.substr(0, entry.name.find('_')));
  EXPECT_EQ(names.size(), 116u);
}

// ---- Substitutions ----

void substitute(JavaObjects& java, Substitution& substitution, jobject* argument) {
  const Kind kind = substitution.kind;
  substitution.of_outline =
      java.is(*argument, "api/OutlineHandle") && java.number(*argument, "getValue") != 0;
  // An unknown instance would be the caller's fault, not the library's.
  const bool is_handle = java.is(*argument, "api/Handle");
  const bool may_be_unknown = is_handle && !java.is(*argument, "api/InstanceHandle");
  substitution.applied = kind == Kind::kNull || kind == Kind::kNoMethods ||
                         (kind == Kind::kZeroHandle && is_handle) ||
                         (kind == Kind::kUnknownHandle && may_be_unknown);
  if (!substitution.applied) return;
  if (kind == Kind::kNull) {
    *argument = nullptr;
  } else if (kind == Kind::kNoMethods) {
    *argument = real_env()->AllocObject(real_env()->FindClass("java/lang/Object"));
  } else {
    java.set(*argument, "setValue", "(I)V", jint{kind == Kind::kZeroHandle ? 0 : kUnknown});
  }
}

void substitute(JavaObjects& java, Substitution& substitution, jstring* argument) {
  const Kind kind = substitution.kind;
  substitution.applied = kind == Kind::kNull || kind == Kind::kEmpty || kind == Kind::kLong;
  if (!substitution.applied) return;
  *argument =
      kind == Kind::kNull ? nullptr : java.text(kind == Kind::kEmpty ? "" : too_long().c_str());
}

void substitute(JavaObjects&, Substitution& substitution, jint* argument) {
  const Kind kind = substitution.kind;
  substitution.applied = kind == Kind::kZeroHandle || kind == Kind::kUnknownHandle;
  if (substitution.applied) *argument = kind == Kind::kZeroHandle ? 0 : kUnknown;
}
