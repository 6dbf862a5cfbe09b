// The function table of the watching JNIEnv.
#include "tests/native/jni_probe.h"

#include <cstdarg>
#include <type_traits>
#include <utility>

#include "tests/native/jni_slots.h"
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

  std::string text(jstring string) {
    if (string == nullptr) return "null";
    const char* chars = env_->GetStringUTFChars(string, nullptr);
    std::string result = quoted(chars);
    env_->ReleaseStringUTFChars(string, chars);
    return result;
  }

  // A string as its quoted text, a boxed number as class and value, any other
  // object as its class.
  std::string value(jobject object) {
    if (object == nullptr) return "null";
    const std::string name = class_name(object);
    if (name == "String") return text(static_cast<jstring>(object));
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

  // Counts a call and gives the environment that does it.
  static JNIEnv* pass(JNIEnv* env, const char* function) {
    ++probe(env)->counts_[function];
    return probe(env)->real_;
  }

  static void keep(JNIEnv* env, jobject reference, bool is_string) {
    if (reference != nullptr) probe(env)->references_[reference] = is_string;
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
    Peek peek(probe(env)->real_);
    journal().add(Entry::kJava, peek.class_name(receiver) + '.' + found->second.name +
                                    arguments_text(peek, found->second.signature, arguments));
  }

  static jclass JNICALL find_class(JNIEnv* env, const char* name) {
    JNIEnv* real = pass(env, "FindClass");
    jclass type = real->FindClass(name);
    keep(env, type, false);
    return type;
  }

  static jclass JNICALL get_object_class(JNIEnv* env, jobject object) {
    JNIEnv* real = pass(env, "GetObjectClass");
    if (object == nullptr) {
      journal().fault("GetObjectClass of a null reference");
      return nullptr;
    }
    jclass type = real->GetObjectClass(object);
    keep(env, type, false);
    return type;
  }

  static jmethodID JNICALL get_method_id(JNIEnv* env, jclass type, const char* name,
                                         const char* signature) {
    JNIEnv* real = pass(env, "GetMethodID");
    jmethodID method = real->GetMethodID(type, name, signature);
    if (method != nullptr) probe(env)->methods_[method] = {name, signature};
    return method;
  }

  static jobject JNICALL new_object_v(JNIEnv* env, jclass type, jmethodID method,
                                      va_list arguments) {
    JNIEnv* real = pass(env, "NewObject");
    if (journal().recording) {
      Peek peek(real);
      journal().add(Entry::kJava,
                    "new " + peek.call_text(type, "getSimpleName") +
                        arguments_text(peek, probe(env)->methods_[method].signature, arguments));
    }
    jobject object = real->NewObjectV(type, method, arguments);
    keep(env, object, false);
    return object;
  }

  static jobject JNICALL call_object_v(JNIEnv* env, jobject object, jmethodID method,
                                       va_list arguments) {
    JNIEnv* real = pass(env, "CallObjectMethod");
    note_call(env, object, method, arguments);
    jobject result = real->CallObjectMethodV(object, method, arguments);
    keep(env, result, false);
    return result;
  }

  static jboolean JNICALL call_boolean_v(JNIEnv* env, jobject object, jmethodID method,
                                         va_list arguments) {
    JNIEnv* real = pass(env, "CallBooleanMethod");
    note_call(env, object, method, arguments);
    return real->CallBooleanMethodV(object, method, arguments);
  }

  static jshort JNICALL call_short_v(JNIEnv* env, jobject object, jmethodID method,
                                     va_list arguments) {
    JNIEnv* real = pass(env, "CallShortMethod");
    note_call(env, object, method, arguments);
    return real->CallShortMethodV(object, method, arguments);
  }

  static jint JNICALL call_int_v(JNIEnv* env, jobject object, jmethodID method, va_list arguments) {
    JNIEnv* real = pass(env, "CallIntMethod");
    note_call(env, object, method, arguments);
    return real->CallIntMethodV(object, method, arguments);
  }

  static void JNICALL call_void_v(JNIEnv* env, jobject object, jmethodID method,
                                  va_list arguments) {
    JNIEnv* real = pass(env, "CallVoidMethod");
    note_call(env, object, method, arguments);
    real->CallVoidMethodV(object, method, arguments);
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
    JNIEnv* real = pass(env, "NewStringUTF");
    jstring string = real->NewStringUTF(chars);
    keep(env, string, true);
    return string;
  }

  static const char* JNICALL get_string_utf_chars(JNIEnv* env, jstring string, jboolean* is_copy) {
    JNIEnv* real = pass(env, "GetStringUTFChars");
    if (string == nullptr) {
      journal().fault("GetStringUTFChars of a null reference");
      return nullptr;
    }
    if (!probe(env)->has_memory) return nullptr;
    const char* chars = real->GetStringUTFChars(string, is_copy);
    if (chars != nullptr) probe(env)->chars_.push_back({chars, string});
    journal().add(Entry::kText, "chars(" + quoted(chars) + ')');
    return chars;
  }

  static void JNICALL release_string_utf_chars(JNIEnv* env, jstring string, const char* chars) {
    JNIEnv* real = pass(env, "ReleaseStringUTFChars");
    std::vector<JniProbe::Chars>& held = probe(env)->chars_;
    for (auto it = held.begin(); it != held.end(); ++it) {
      if (it->chars != chars) continue;
      if (it->string != string) {
        journal().fault("String characters are released with another string: " + quoted(chars));
      }
      held.erase(it);
      journal().add(Entry::kText, "release(" + quoted(chars) + ')');
      real->ReleaseStringUTFChars(string, chars);
      return;
    }
    journal().fault("String characters are released that are not held");
  }

  static void JNICALL delete_local_ref(JNIEnv* env, jobject reference) {
    JNIEnv* real = pass(env, "DeleteLocalRef");
    if (reference != nullptr && probe(env)->references_.erase(reference) == 0) {
      journal().fault("A local reference is deleted that this call did not make");
      return;
    }
    real->DeleteLocalRef(reference);
  }

  // Stands in every slot that the library has no business with.
  template <size_t slot>
  static intptr_t JNICALL forbidden() {
    journal().fault(std::string("JNI function not allowed: ") + kJniSlotNames[slot]);
    return 0;
  }

  template <size_t... slots>
  static JNINativeInterface_ make_table(std::index_sequence<slots...>) {
    JNINativeInterface_ table;
    using Slot = intptr_t(JNICALL*)();
    auto* all = reinterpret_cast<Slot*>(&table);
    ((all[slots] = &forbidden<slots>), ...);
    table.FindClass = find_class;
    table.GetObjectClass = get_object_class;
    table.GetMethodID = get_method_id;
    table.NewObject = variadic<jobject, jclass, new_object_v>;
    table.NewObjectV = new_object_v;
    table.CallObjectMethod = variadic<jobject, jobject, call_object_v>;
    table.CallObjectMethodV = call_object_v;
    table.CallBooleanMethod = variadic<jboolean, jobject, call_boolean_v>;
    table.CallBooleanMethodV = call_boolean_v;
    table.CallShortMethod = variadic<jshort, jobject, call_short_v>;
    table.CallShortMethodV = call_short_v;
    table.CallIntMethod = variadic<jint, jobject, call_int_v>;
    table.CallIntMethodV = call_int_v;
    table.CallVoidMethod = variadic<void, jobject, call_void_v>;
    table.CallVoidMethodV = call_void_v;
    table.NewStringUTF = new_string_utf;
    table.GetStringUTFChars = get_string_utf_chars;
    table.ReleaseStringUTFChars = release_string_utf_chars;
    table.DeleteLocalRef = delete_local_ref;
    return table;
  }
};

JniProbe::JniProbe(JNIEnv* real) : real_(real) {
  static const JNINativeInterface_ table =
      ProbeFunctions::make_table(std::make_index_sequence<kJniSlots>());
  functions = &table;
  take_jni_warnings();
}

void JniProbe::finish() {
  for (const Chars& held : chars_) {
    journal().fault("String characters are not released: " + quoted(held.chars));
    real_->ReleaseStringUTFChars(held.string, held.chars);
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

int JniProbe::count(const std::string& function) const {
  const auto found = counts_.find(function);
  return found == counts_.end() ? 0 : found->second;
}

int JniProbe::live_strings() const {
  int strings = 0;
  for (const auto& [reference, is_string] : references_) strings += is_string ? 1 : 0;
  return strings;
}
