// One entry per native method for the sweeps: how to call it with good arguments on the sample
// outline, and what comes of failures.
#pragma once

#include <functional>
#include <initializer_list>
#include <map>
#include <optional>
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
  bool applied = false;     // out: whether the kind fits the argument
  bool of_outline = false;  // out: whether the argument was the wrapper of an open outline
};

struct SweepCase {
  std::string name;
  size_t parameters = 0;
  // Makes the arguments, substitutes one if asked to, and calls; gives the method's answer, 0
  // when the substitution does not apply.
  std::function<long(JNIEnv* probe, JavaObjects& java, Substitution* substitution)> run;
  std::map<std::string, std::vector<long>> answers;  // by API function; passed on where not named
  long without_outline = 0;                          // the answer to a zero outline handle
  // The answer to successes that hand nothing out; 0, or what a method without blocks answers.
  std::optional<long> without_results;
  long without_texts = kStatusRefused;  // to strings without characters

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
  SweepCase& answers_without_results(long answer) {
    without_results = answer;
    return *this;
  }
  SweepCase& answers_without_texts(long answer) {
    without_texts = answer;
    return *this;
  }
};

// How a failure names the entry.
inline void PrintTo(const SweepCase& entry, std::ostream* out) {
  *out << entry.name;
}

// Replaces one argument where the kind applies to it. Overloads by parameter type.
void substitute(JavaObjects& java, Substitution& substitution, jobject* argument);
void substitute(JavaObjects& java, Substitution& substitution, jstring* argument);
void substitute(JavaObjects& java, Substitution& substitution, jint* argument);
template <typename Other>
void substitute(JavaObjects&, Substitution&, Other*) {}

// An entry for a native method. Arguments are made anew for each call, as JavaObjects::argument
// makes them.
template <typename Result, typename... Parameters, typename... Arguments>
SweepCase sweep_case(const char* name, Result(JNICALL* native)(JNIEnv*, jclass, Parameters...),
                     Arguments... arguments) {
  SweepCase entry;
  entry.name = name;
  entry.parameters = sizeof...(Parameters);
  entry.run = [=](JNIEnv* probe, JavaObjects& java, Substitution* substitution) {
    std::tuple<Parameters...> values{java.argument<Parameters>(arguments)...};
    const auto call = [&](auto&... each) {
      if (substitution != nullptr) {
        size_t index = 0;
        ((index++ == substitution->index ? substitute(java, *substitution, &each) : void()), ...);
        if (!substitution->applied) return 0L;
      }
      return static_cast<long>(native(probe, nullptr, each...));
    };
    return std::apply(call, values);
  };
  return entry;
}

// The entries of all native methods.
std::vector<SweepCase> all_cases();
