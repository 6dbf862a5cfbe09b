// Starts the virtual machine of a benchmark program and times calls in it.
#include "bench/jvm.h"

#include <stdexcept>

#include "bench/report.h"

namespace bench {
namespace {

constexpr int64_t kMegabyte = 1 << 20;

std::string megabytes(int64_t bytes) {
  return std::to_string(bytes / kMegabyte) + "m";
}

std::string property(JNIEnv* env, const char* name) {
  jclass system = env->FindClass("java/lang/System");
  jmethodID get =
      env->GetStaticMethodID(system, "getProperty", "(Ljava/lang/String;)Ljava/lang/String;");
  jstring key = env->NewStringUTF(name);
  auto value = static_cast<jstring>(env->CallStaticObjectMethod(system, get, key));
  if (value == nullptr) return "?";
  const char* chars = env->GetStringUTFChars(value, nullptr);
  std::string text = chars;
  env->ReleaseStringUTFChars(value, chars);
  return text;
}

}  // namespace

// What outlives the timed calls, requests of a million members for one, gets its own tenth.
Jvm::Jvm(int64_t young_bytes, const std::string& class_path,
         const std::vector<std::string>& more_options)
    : old_bytes_(48 * kMegabyte + young_bytes / 10) {
  // The survivor spaces take two parts in 32.
  young_bytes += young_bytes / 8 + 64 * kMegabyte;
  const std::string young = megabytes(young_bytes);
  const std::string heap = megabytes(young_bytes + old_bytes_);
  std::vector<std::string> words = more_options;
  words.insert(words.end(), {"-Djava.class.path=" BENCH_KEPOTL_JAR ":" + class_path,
                             "-XX:+UseSerialGC", "-XX:+AlwaysPreTouch", "-XX:SurvivorRatio=30",
                             "-Xms" + heap, "-Xmx" + heap, "-Xmn" + young});
  std::vector<JavaVMOption> options;
  for (std::string& word : words) options.push_back({word.data(), nullptr});
  JavaVMInitArgs arguments = {};
  arguments.version = JNI_VERSION_1_8;
  arguments.nOptions = static_cast<jint>(options.size());
  arguments.options = options.data();
  JavaVM* machine = nullptr;
  if (JNI_CreateJavaVM(&machine, reinterpret_cast<void**>(&env_), &arguments) != JNI_OK) {
    throw std::runtime_error("the Java virtual machine did not start. It asks for a heap of " +
                             heap + "; make that much memory free");
  }
  description_ = "JVM: " + property(env_, "java.vm.name") + " " +
                 property(env_, "java.vm.version") + ", " + property(env_, "java.vm.info") +
                 "; serial collector, fixed heap of " + heap + ", " + young + " of it young";

  runtime_class_ = static_cast<jclass>(keep(env_->FindClass("java/lang/Runtime")));
  jmethodID get = env_->GetStaticMethodID(runtime_class_, "getRuntime", "()Ljava/lang/Runtime;");
  runtime_ = keep(env_->CallStaticObjectMethod(runtime_class_, get));
  check("Runtime.getRuntime");
}

void Jvm::make_room(int64_t bytes) const {
  jmethodID free_memory = env_->GetMethodID(runtime_class_, "freeMemory", "()J");
  if (env_->CallLongMethod(runtime_, free_memory) - old_bytes_ >= bytes) return;
  env_->CallVoidMethod(runtime_, env_->GetMethodID(runtime_class_, "gc", "()V"));
  check("Runtime.gc");
}

double Jvm::time_call(int64_t bytes, const std::function<void(JNIEnv*)>& call) const {
  make_room(bytes);
  return cpu_seconds([&] { this->call(call); });
}

void Jvm::call(const std::function<void(JNIEnv*)>& work) const {
  env_->PushLocalFrame(16);
  work(env_);
  env_->PopLocalFrame(nullptr);
  check("a native call");
}

void Jvm::check(const char* what) const {
  if (!env_->ExceptionCheck()) return;
  env_->ExceptionDescribe();
  env_->ExceptionClear();
  throw std::runtime_error(std::string("a Java exception in ") + what);
}

jint Jvm::get_int(jobject object, const char* name) const {
  const jint value = env_->CallIntMethod(object, method(object, name, "()I"));
  check(name);
  return value;
}

bool Jvm::get_boolean(jobject object, const char* name) const {
  const jboolean value = env_->CallBooleanMethod(object, method(object, name, "()Z"));
  check(name);
  return value != JNI_FALSE;
}

jobject Jvm::instance_handle(jint value) const {
  return keep(make("com/olvane/kep/olvane/api/InstanceHandle", "(I)V", value));
}

jobject Jvm::outline_handle(jint value) const {
  jobject wrapper = make("com/olvane/kep/olvane/api/OutlineHandle", "()V");
  set(wrapper, "setValue", "(I)V", value);
  return keep(wrapper);
}

jobject Jvm::keep(jobject local) const {
  check("making an object");
  jobject global = env_->NewGlobalRef(local);
  env_->DeleteLocalRef(local);
  return global;
}

jmethodID Jvm::method(jobject object, const char* name, const char* signature) const {
  jclass type = env_->GetObjectClass(object);
  jmethodID found = env_->GetMethodID(type, name, signature);
  check(name);
  env_->DeleteLocalRef(type);
  return found;
}

Maker::Maker(const Jvm& jvm, const char* class_name) {
  JNIEnv* env = jvm.env();
  jclass type = env->FindClass(class_name);
  jvm.check(class_name);
  constructor_ = env->GetMethodID(type, "<init>", "()V");
  type_ = static_cast<jclass>(jvm.keep(type));
}

void require(int status, const char* call) {
  if (status == 0) return;
  throw std::runtime_error(std::string(call) + " gave status " + std::to_string(status));
}

}  // namespace bench
