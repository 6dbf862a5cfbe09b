// One entry per native method for the sweeps: how to call it with good arguments on the sample
// outline, and what comes of failures.
#pragma once

#include <functional>
#include <initializer_list>
#include <map>
#include <ostream>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "tests/native/native_test.h"

// What a method answers when a call that it makes fails.
inline constexpr long kPassedOn = 1L << 20;        // the failing call's status
inline constexpr long kSwallowed = kPassedOn + 1;  // what it answers without the failure

// A change to one argument of a good call.
struct Substitution {
  enum class Kind { kNull, kNoMethods, kZeroHandle, kUnknownHandle, kEmpty, kLong };
  size_t index;
  Kind kind;
};

struct SweepCase {
  std::string name;
  size_t parameters = 0;
  // Makes the arguments, substitutes one if asked to, and calls. False when the substitution does
  // not apply to the argument.
  std::function<bool(JNIEnv* probe, JavaObjects& java, const Substitution* substitution,
                     long* result)>
      run;
  // Whether an argument is the wrapper of an open outline.
  std::function<bool(JavaObjects& java, size_t index)> is_outline;
  std::map<std::string, std::vector<long>> answers;  // by API function; passed on where not named
  long without_outline = 0;                          // the answer to a zero outline handle

  // Failures of a function become one of these answers.
  SweepCase& on(const std::string& function, std::vector<long> allowed) {
    answers[function] = std::move(allowed);
    return *this;
  }
  SweepCase& swallows(std::initializer_list<const char*> functions) {
    for (const char* function : functions) on(function, {kSwallowed});
    return *this;
  }
  // Failures that a later call's success overwrites.
  SweepCase& may_swallow(std::initializer_list<const char*> functions) {
    for (const char* function : functions) on(function, {kPassedOn, kSwallowed});
    return *this;
  }
  SweepCase& answers_without_outline(long answer) {
    without_outline = answer;
    return *this;
  }
};

// How a failure names the entry.
inline void PrintTo(const SweepCase& entry, std::ostream* out) {
  *out << entry.name;
}

// Replaces one argument; false when the kind does not apply to it. Overloads by parameter type.
bool substitute(JNIEnv* env, JavaObjects& java, Substitution::Kind kind, jobject* argument);
bool substitute(JNIEnv* env, JavaObjects& java, Substitution::Kind kind, jstring* argument);
bool substitute(JNIEnv* env, JavaObjects& java, Substitution::Kind kind, jint* argument);
template <typename Other>
bool substitute(JNIEnv*, JavaObjects&, Substitution::Kind, Other*) {
  return false;
}

template <typename Tuple, size_t... indices>
bool substitute_at(JNIEnv* env, JavaObjects& java, const Substitution& substitution,
                   Tuple* arguments, std::index_sequence<indices...>) {
  bool applied = false;
  ((indices == substitution.index &&
    (applied = substitute(env, java, substitution.kind, &std::get<indices>(*arguments)))),
   ...);
  return applied;
}

bool is_open_outline(JavaObjects& java, jobject argument);
template <typename Other>
bool is_open_outline(JavaObjects&, Other) {
  return false;
}

// An entry for a native method; `arguments` makes a tuple of good arguments.
template <typename Result, typename... Parameters, typename Arguments>
SweepCase sweep_case(const char* name, Result(JNICALL* native)(JNIEnv*, jclass, Parameters...),
                     Arguments arguments) {
  using Tuple = std::tuple<Parameters...>;
  SweepCase entry;
  entry.name = name;
  entry.parameters = sizeof...(Parameters);
  entry.run = [=](JNIEnv* probe, JavaObjects& java, const Substitution* substitution,
                  long* result) {
    Tuple values = arguments(java);
    if (substitution != nullptr && !substitute_at(real_env(), java, *substitution, &values,
                                                  std::index_sequence_for<Parameters...>())) {
      return false;
    }
    *result = std::apply(
        [&](auto... each) { return static_cast<long>(native(probe, nullptr, each...)); }, values);
    return true;
  };
  entry.is_outline = [=](JavaObjects& java, size_t index) {
    Tuple values = arguments(java);
    size_t at = 0;
    bool found = false;
    std::apply(
        [&](auto... each) { ((found |= at++ == index && is_open_outline(java, each)), ...); },
        values);
    return found;
  };
  return entry;
}

// The entries of each family.
std::vector<SweepCase> lifecycle_cases();
std::vector<SweepCase> browse_cases();
std::vector<SweepCase> settings_cases();
std::vector<SweepCase> edit_cases();
std::vector<SweepCase> other_cases();  // calculation scripts, generations and levels, searches,
                                       // alias files
