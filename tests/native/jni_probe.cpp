// The function table of the watching JNIEnv.
#include "tests/native/jni_probe.h"

#include <cstdarg>
#include <type_traits>
#include <utility>

#include "tests/native/journal.h"
#include "tests/native/jvm.h"

namespace {

// A look at Java objects between two calls of the watched code: leaves its
// pending exception and its local references alone.
class Peek {
 public:
  explicit Peek(JNIEnv* env) : env_(env), pending_(env->ExceptionOccurred()) {
    if (pending_ != nullptr) env_->ExceptionClear();
    env_->PushLocalFrame(32);
  }
  ~Peek() {
    env_->ExceptionClear();
    env_->PopLocalFrame(nullptr);
    if (pending_ != nullptr) {
      env_->Throw(pending_);
      env_->DeleteLocalRef(pending_);
    }
  }
  Peek(const Peek&) = delete;
  Peek& operator=(const Peek&) = delete;

  std::string class_name(jobject object) {
    return call_text(env_->GetObjectClass(object), "getSimpleName");
  }

  // A string as its quoted text, a boxed number as class and value, any other
  // object as its class.
  std::string value(jobject object) {
    if (object == nullptr) return "null";
    const std::string name = class_name(object);
    if (name == "String") return '"' + call_text(object, "toString") + '"';
    if (name == "Short" || name == "Long") return name + ' ' + call_text(object, "toString");
    return name;
  }

  // What `toString` or another method without arguments says, unquoted.
  std::string call_text(jobject object, const char* method) {
    jclass type = env_->GetObjectClass(object);
    jmethodID id = env_->GetMethodID(type, method, "()Ljava/lang/String;");
    if (id == nullptr) return "?";
    auto string = static_cast<jstring>(env_->CallObjectMethod(object, id));
    if (env_->ExceptionCheck() || string == nullptr) return "?";
    const char* chars = env_->GetStringUTFChars(string, nullptr);
    std::string result = chars;
    env_->ReleaseStringUTFChars(string, chars);
    return result;
  }

 private:
  JNIEnv* env_;
  jthrowable pending_;
};

// The next argument of a call, by its type in the signature. The list is
// advanced.
std::string argument_text(Peek& peek, char type, va_list* arguments) {
  switch (type) {
    case 'Z': {
      const int value = va_arg(*arguments, int);
      return value == 0 ? "false" : value == 1 ? "true" : std::to_string(value);
    }
    case 'J':
      return std::to_string(va_arg(*arguments, jlong));
    case 'L':
      return peek.value(va_arg(*arguments, jobject));
    default:
      return std::to_string(va_arg(*arguments, int));
  }
}

}  // namespace

struct ProbeFunctions {
  static JniProbe* probe(JNIEnv* env) { return static_cast<JniProbe*>(env); }

  // The environment that does the work.
  static JNIEnv* real(JNIEnv* env) { return probe(env)->real_; }

  // Follows a local reference that a function gives.
  template <typename Reference>
  static Reference keep(JNIEnv* env, Reference reference) {
    constexpr bool kString = std::is_same_v<Reference, jstring>;
    if (reference != nullptr) probe(env)->references_[reference] = kString;
    return reference;
  }

  // The arguments of a call as "(a, b)", read from a copy of its list.
  static std::string arguments_text(Peek& peek, const std::string& signature, va_list arguments) {
    va_list copy;
    va_copy(copy, arguments);
    std::string result = "(";
    for (size_t i = 1; i < signature.size() && signature[i] != ')'; ++i) {
      if (result.size() > 1) result += ", ";
      result += argument_text(peek, signature[i], &copy);
      if (signature[i] == 'L') i = signature.find(';', i);
    }
    va_end(copy);
    return result + ')';
  }

  static void note_call(JNIEnv* env, jobject receiver, jmethodID method, va_list arguments) {
    if (!journal().recording) return;
    const auto found = probe(env)->methods_.find(method);
    if (found == probe(env)->methods_.end()) {
      journal().fault("A method is called whose identifier this call did not look up");
      return;
    }
    Peek peek(real(env));
    journal().add(Entry::kJava, peek.class_name(receiver) + '.' + found->second.name +
                                    arguments_text(peek, found->second.signature, arguments));
  }

  static jclass JNICALL find_class(JNIEnv* env, const char* name) {
    ++probe(env)->find_class_calls;
    return keep(env, real(env)->FindClass(name));
  }

  static jclass JNICALL get_object_class(JNIEnv* env, jobject object) {
    if (object == nullptr) {
      journal().fault("GetObjectClass of a null reference");
      return nullptr;
    }
    return keep(env, real(env)->GetObjectClass(object));
  }

  static jmethodID JNICALL get_method_id(JNIEnv* env, jclass type, const char* name,
                                         const char* signature) {
    ++probe(env)->get_method_id_calls;
    jmethodID method = real(env)->GetMethodID(type, name, signature);
    if (method != nullptr) probe(env)->methods_[method] = {name, signature};
    return method;
  }

  static jobject JNICALL new_object_v(JNIEnv* env, jclass type, jmethodID method,
                                      va_list arguments) {
    ++probe(env)->new_object_calls;
    if (journal().recording) {
      Peek peek(real(env));
      journal().add(Entry::kJava,
                    "new " + peek.call_text(type, "getSimpleName") +
                        arguments_text(peek, probe(env)->methods_[method].signature, arguments));
    }
    return keep(env, real(env)->NewObjectV(type, method, arguments));
  }

  // A call of a method with one of the functions for its type of result.
  template <typename Result, Result (JNIEnv_::*function)(jobject, jmethodID, va_list)>
  static Result JNICALL call_v(JNIEnv* env, jobject object, jmethodID method, va_list arguments) {
    note_call(env, object, method, arguments);
    return (real(env)->*function)(object, method, arguments);
  }

  static jobject JNICALL call_object_v(JNIEnv* env, jobject object, jmethodID method,
                                       va_list arguments) {
    return keep(env, call_v<jobject, &JNIEnv_::CallObjectMethodV>(env, object, method, arguments));
  }

  // The variants with a variable argument list, each through its va_list twin.
  template <typename Result, typename Receiver,
            Result(JNICALL* twin)(JNIEnv*, Receiver, jmethodID, va_list)>
  static Result JNICALL variadic(JNIEnv* env, Receiver receiver, jmethodID method, ...) {
    va_list arguments;
    va_start(arguments, method);
    if constexpr (std::is_void_v<Result>) {
      twin(env, receiver, method, arguments);
      va_end(arguments);
    } else {
      Result result = twin(env, receiver, method, arguments);
      va_end(arguments);
      return result;
    }
  }

  static jstring JNICALL new_string_utf(JNIEnv* env, const char* chars) {
    return keep(env, real(env)->NewStringUTF(chars));
  }

  static const char* JNICALL get_string_utf_chars(JNIEnv* env, jstring string, jboolean* is_copy) {
    if (string == nullptr) {
      journal().fault("GetStringUTFChars of a null reference");
      return nullptr;
    }
    if (!probe(env)->has_memory) {
      ++probe(env)->texts_lost;
      return nullptr;
    }
    const char* chars = real(env)->GetStringUTFChars(string, is_copy);
    if (chars != nullptr) probe(env)->chars_[chars] = string;
    journal().add(Entry::kText, "chars(" + quoted(chars) + ')');
    return chars;
  }

  static void JNICALL release_string_utf_chars(JNIEnv* env, jstring string, const char* chars) {
    const auto held = probe(env)->chars_.find(chars);
    if (held == probe(env)->chars_.end()) {
      journal().fault("String characters are released that are not held");
      return;
    }
    if (held->second != string) {
      journal().fault("String characters are released with another string: " + quoted(chars));
    }
    probe(env)->chars_.erase(held);
    journal().add(Entry::kText, "release(" + quoted(chars) + ')');
    real(env)->ReleaseStringUTFChars(string, chars);
  }

  static void JNICALL delete_local_ref(JNIEnv* env, jobject reference) {
    if (reference != nullptr && probe(env)->references_.erase(reference) == 0) {
      journal().fault("A local reference is deleted that this call did not make");
      return;
    }
    real(env)->DeleteLocalRef(reference);
  }

  // Stands in every entry that the library has no business with; `index` is the function's
  // number in the table of the JNI documentation.
  template <size_t index>
  static intptr_t JNICALL forbidden() {
    journal().fault("JNI function not allowed: table entry " + std::to_string(index));
    return 0;
  }

  template <size_t... indices>
  static JNINativeInterface_ make_table(std::index_sequence<indices...>) {
    JNINativeInterface_ table;
    using Function = intptr_t(JNICALL*)();
    auto* all = reinterpret_cast<Function*>(&table);
    ((all[indices] = &forbidden<indices>), ...);
    table.FindClass = find_class;
    table.GetObjectClass = get_object_class;
    table.GetMethodID = get_method_id;
    table.NewObject = variadic<jobject, jclass, new_object_v>;
    table.CallObjectMethod = variadic<jobject, jobject, call_object_v>;
    table.CallBooleanMethod =
        variadic<jboolean, jobject, call_v<jboolean, &JNIEnv_::CallBooleanMethodV>>;
    table.CallShortMethod = variadic<jshort, jobject, call_v<jshort, &JNIEnv_::CallShortMethodV>>;
    table.CallIntMethod = variadic<jint, jobject, call_v<jint, &JNIEnv_::CallIntMethodV>>;
    table.CallVoidMethod = variadic<void, jobject, call_v<void, &JNIEnv_::CallVoidMethodV>>;
    table.NewStringUTF = new_string_utf;
    table.GetStringUTFChars = get_string_utf_chars;
    table.ReleaseStringUTFChars = release_string_utf_chars;
    table.DeleteLocalRef = delete_local_ref;
    return table;
  }
};

JniProbe::JniProbe(JNIEnv* real) : real_(real) {
  static const JNINativeInterface_ kTable = ProbeFunctions::make_table(
      std::make_index_sequence<sizeof(JNINativeInterface_) / sizeof(void*)>());
  functions = &kTable;
  take_jni_warnings();
}

void JniProbe::finish() {
  for (const auto& [chars, string] : chars_) {
    journal().fault("String characters are not released: " + quoted(chars));
    real_->ReleaseStringUTFChars(string, chars);
  }
  chars_.clear();
  jthrowable pending = real_->ExceptionOccurred();
  if (pending != nullptr) {
    real_->ExceptionClear();
    exception_ = Peek(real_).call_text(pending, "toString");
    real_->DeleteLocalRef(pending);
  }
  for (const std::string& warning : take_jni_warnings()) {
    if (!is_accepted_warning(warning, pending != nullptr)) journal().fault(warning);
  }
}

int JniProbe::live_strings() const {
  int strings = 0;
  for (const auto& [reference, is_string] : references_) strings += is_string ? 1 : 0;
  return strings;
}
