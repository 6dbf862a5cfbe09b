// Starts the Java virtual machine and listens to -Xcheck:jni through its
// vfprintf hook.
#include "tests/native/jvm.h"

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <sstream>
#include <string>
#include <utility>

namespace {

JavaVM* the_jvm = nullptr;
std::mutex output_mutex;
std::string output;

// Everything that the virtual machine prints arrives here, in pieces.
jint JNICALL receive_output(FILE* file, const char* format, va_list arguments) {
  va_list again;
  va_copy(again, arguments);
  const int length = std::vsnprintf(nullptr, 0, format, arguments);
  std::string piece(static_cast<size_t>(length > 0 ? length : 0) + 1, '\0');
  std::vsnprintf(piece.data(), piece.size(), format, again);
  va_end(again);
  piece.pop_back();
  const std::lock_guard<std::mutex> lock(output_mutex);
  if (piece.find("FATAL") != std::string::npos) std::fputs(piece.c_str(), file);
  output += piece;
  return length;
}

bool starts_with(const std::string& text, const char* prefix) {
  return text.rfind(prefix, 0) == 0;
}

}  // namespace

void start_jvm() {
  std::string class_path = "-Djava.class.path=" KEPOTL_TEST_JAR;
  JavaVMOption options[] = {
      {const_cast<char*>("-Xcheck:jni"), nullptr},
      {class_path.data(), nullptr},
      {const_cast<char*>("-Xmx64m"), nullptr},
      {const_cast<char*>("-XX:+UseSerialGC"), nullptr},
      {const_cast<char*>("-XX:TieredStopAtLevel=1"), nullptr},
      // Fewer signals: an emulator may give a thread another's storage after one.
      {const_cast<char*>("-XX:+UnlockDiagnosticVMOptions"), nullptr},
      {const_cast<char*>("-XX:GuaranteedSafepointInterval=0"), nullptr},
      {const_cast<char*>("vfprintf"), reinterpret_cast<void*>(&receive_output)},
  };
  JavaVMInitArgs arguments = {};
  arguments.version = JNI_VERSION_1_8;
  arguments.nOptions = sizeof options / sizeof *options;
  arguments.options = options;
  JNIEnv* env = nullptr;
  if (JNI_CreateJavaVM(&the_jvm, reinterpret_cast<void**>(&env), &arguments) != JNI_OK) {
    std::fprintf(stderr, "The Java virtual machine did not start:\n%s\n", output.c_str());
    std::exit(EXIT_FAILURE);
  }
  take_jni_warnings();
}

JavaVM* jvm() {
  return the_jvm;
}

JNIEnv* real_env() {
  void* env = nullptr;
  if (the_jvm->GetEnv(&env, JNI_VERSION_1_8) != JNI_OK) {
    std::fputs("The calling thread is not attached to the Java virtual machine.\n", stderr);
    std::abort();
  }
  return static_cast<JNIEnv*>(env);
}

std::vector<std::string> take_jni_warnings() {
  const std::lock_guard<std::mutex> lock(output_mutex);
  std::istringstream lines(std::exchange(output, {}));
  std::vector<std::string> warnings;
  for (std::string line; std::getline(lines, line);) {
    if (starts_with(line, "WARNING") || starts_with(line, "Warning")) warnings.push_back(line);
  }
  return warnings;
}

bool is_accepted_warning(const std::string& warning, bool exception_pending) {
  static const char kMethod[] = "WARNING in native method: ";
  if (starts_with(warning, "WARNING: JNI local refs: ")) return true;
  if (!starts_with(warning, kMethod)) return false;
  const std::string what = warning.substr(sizeof kMethod - 1);
  if (starts_with(what, "JNI call made without checking exceptions when required to from ")) {
    return true;
  }
  return exception_pending && starts_with(what, "JNI call made with exception pending");
}
