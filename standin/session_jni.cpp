// The native methods of com.olvane.kep.olvane.standin.StandinSession.
#include <jni.h>

#include <array>
#include <string>

#include "api/olv.h"
#include "standin/guard.h"
#include "standin/session.h"

using namespace standin;

namespace {

// The characters of a Java string as the natives of OutlineJni see them; null for null.
class NameChars {
 public:
  NameChars(JNIEnv* env, jstring text)
      : env_(env),
        text_(text),
        chars_(text == nullptr ? nullptr : env->GetStringUTFChars(text, nullptr)) {}
  ~NameChars() {
    if (chars_ != nullptr) env_->ReleaseStringUTFChars(text_, chars_);
  }
  NameChars(const NameChars&) = delete;
  NameChars& operator=(const NameChars&) = delete;

  const char* get() const { return chars_; }

 private:
  JNIEnv* env_;
  jstring text_;
  const char* chars_;
};

// A text in UTF-8 proper, as file names are and names of users in the store, which
// GetStringUTFChars does not give for characters beyond the basic plane. Lone surrogates become
// question marks.
std::string utf8(JNIEnv* env, jstring text) {
  const jsize length = env->GetStringLength(text);
  std::u16string units(static_cast<size_t>(length), u'\0');
  env->GetStringRegion(text, 0, length, reinterpret_cast<jchar*>(units.data()));
  std::string bytes;
  for (size_t i = 0; i < units.size(); ++i) {
    uint32_t code = units[i];
    if (code >= 0xd800 && code < 0xe000) {
      const uint32_t low = code < 0xdc00 && i + 1 < units.size() ? units[i + 1] : 0;
      if (low >= 0xdc00 && low < 0xe000) {
        code = 0x10000 + ((code - 0xd800) << 10) + (low - 0xdc00);
        ++i;
      } else {
        code = '?';
      }
    }
    if (code < 0x80) {
      bytes += static_cast<char>(code);
      continue;
    }
    const int more = code < 0x800 ? 1 : code < 0x10000 ? 2 : 3;
    constexpr unsigned kLead[] = {0, 0xc0, 0xe0, 0xf0};
    bytes += static_cast<char>(kLead[more] | (code >> (6 * more)));
    for (int shift = 6 * (more - 1); shift >= 0; shift -= 6) {
      bytes += static_cast<char>(0x80 | ((code >> shift) & 0x3f));
    }
  }
  return bytes;
}

// Puts a handle into element 0 of the caller's array.
void put_handle(JNIEnv* env, jintArray out, uint32_t handle) {
  const jint value = static_cast<jint>(handle);
  env->SetIntArrayRegion(out, 0, 1, &value);
}

// Puts a text into an array of byte arrays; false when the virtual machine has no memory for it.
bool put_bytes(JNIEnv* env, jobjectArray out, jsize at, const std::string& text) {
  const auto size = static_cast<jsize>(text.size());
  jbyteArray bytes = env->NewByteArray(size);
  if (bytes == nullptr) return false;
  env->SetByteArrayRegion(bytes, 0, size, reinterpret_cast<const jbyte*>(text.data()));
  env->SetObjectArrayElement(out, at, bytes);
  env->DeleteLocalRef(bytes);
  return true;
}

bool has_room(JNIEnv* env, jintArray out) {
  return out != nullptr && env->GetArrayLength(out) > 0;
}

// Lists records with list(&records, &count), and turns each into the texts that texts(record)
// gives, all in one array of UTF-8 arrays. Null with the status set, or with an exception pending.
template <typename Record, typename List, typename Texts>
jobjectArray list_records(JNIEnv* env, jint instance, jintArray status_out, List list,
                          Texts texts) {
  jobjectArray out = nullptr;
  Record* records = nullptr;
  uint32_t count = 0;
  const int status = run_guarded([&] {
    const int listed = list(&records, &count);
    if (listed != kStatusOk) return listed;
    jclass bytes = env->FindClass("[B");
    if (bytes == nullptr) return kStatusOk;
    out = env->NewObjectArray(static_cast<jsize>(5 * count), bytes, nullptr);
    jsize at = 0;
    for (uint32_t i = 0; i < count && out != nullptr; ++i) {
      const std::array<std::string, 5> fields = texts(records[i]);
      for (const std::string& field : fields) {
        if (!put_bytes(env, out, at++, field)) return kStatusOk;
      }
    }
    return kStatusOk;
  });
  OlvFree(static_cast<INST>(instance), records);
  if (!env->ExceptionCheck()) {
    const jint value = status;
    env->SetIntArrayRegion(status_out, 0, 1, &value);
  }
  return out;
}

}  // namespace

extern "C" {

JNIEXPORT jint JNICALL Java_com_olvane_kep_olvane_standin_StandinSession_initialize(
    JNIEnv* env, jclass, jstring folder, jintArray instance_out) {
  return run_guarded([&] {
    if (folder == nullptr || !has_room(env, instance_out)) return static_cast<int>(kBadArgument);
    const std::string name = utf8(env, folder);
    if (name.find('\0') != std::string::npos) return static_cast<int>(kBadArgument);
    INST instance = 0;
    const int status = OlvStandinInitialize(name.c_str(), &instance);
    if (status == kStatusOk) put_handle(env, instance_out, instance);
    return status;
  });
}

JNIEXPORT jint JNICALL Java_com_olvane_kep_olvane_standin_StandinSession_terminate(JNIEnv*, jclass,
                                                                                   jint instance) {
  return OlvStandinTerminate(static_cast<INST>(instance));
}

JNIEXPORT jint JNICALL Java_com_olvane_kep_olvane_standin_StandinSession_login(
    JNIEnv* env, jclass, jint instance, jstring user, jintArray context_out) {
  return run_guarded([&] {
    if (user == nullptr || !has_room(env, context_out)) return static_cast<int>(kBadArgument);
    HCTX context = 0;
    const int status =
        OlvStandinLogin(static_cast<INST>(instance), utf8(env, user).c_str(), &context);
    if (status == kStatusOk) put_handle(env, context_out, context);
    return status;
  });
}

JNIEXPORT jint JNICALL Java_com_olvane_kep_olvane_standin_StandinSession_logout(JNIEnv*, jclass,
                                                                                jint context) {
  return OlvStandinLogout(static_cast<HCTX>(context));
}

JNIEXPORT jint JNICALL Java_com_olvane_kep_olvane_standin_StandinSession_createDatabase(
    JNIEnv* env, jclass, jint context, jstring application, jstring database) {
  const NameChars app(env, application);
  const NameChars db(env, database);
  return OlvStandinCreateDatabase(static_cast<HCTX>(context), app.get(), db.get());
}

JNIEXPORT jint JNICALL Java_com_olvane_kep_olvane_standin_StandinSession_setActive(
    JNIEnv* env, jclass, jint context, jstring application, jstring database) {
  const NameChars app(env, application);
  const NameChars db(env, database);
  uint16_t access = 0;
  return OlvSetActive(static_cast<HCTX>(context), app.get(), db.get(), &access);
}

JNIEXPORT jstring JNICALL
Java_com_olvane_kep_olvane_standin_StandinSession_statusText(JNIEnv* env, jclass, jint status) {
  std::string text = OlvStandinStatusText(status);
  const std::string detail = OlvStandinStatusDetail(status);
  if (!detail.empty()) text += " (" + detail + ")";
  // What a server says may be in any encoding.
  for (char& c : text) {
    if (static_cast<unsigned char>(c) >= 0x80) c = '?';
  }
  return env->NewStringUTF(text.c_str());
}

JNIEXPORT jint JNICALL Java_com_olvane_kep_olvane_standin_StandinSession_setDataLoaded(
    JNIEnv* env, jclass, jint context, jstring application, jstring database, jboolean loaded) {
  const NameChars app(env, application);
  const NameChars db(env, database);
  return OlvStandinSetDataLoaded(static_cast<HCTX>(context), app.get(), db.get(), loaded);
}

JNIEXPORT jboolean JNICALL Java_com_olvane_kep_olvane_standin_StandinSession_restructured(
    JNIEnv* env, jclass, jint context, jstring application, jstring database) {
  const NameChars app(env, application);
  const NameChars db(env, database);
  uint32_t times = 0;
  const int status =
      OlvStandinRestructured(static_cast<HCTX>(context), app.get(), db.get(), &times);
  return status == kStatusOk && times > 0 ? JNI_TRUE : JNI_FALSE;
}

// Five texts for each database, as list_records gives them.
JNIEXPORT jobjectArray JNICALL Java_com_olvane_kep_olvane_standin_StandinSession_databases(
    JNIEnv* env, jclass, jint instance, jint context, jintArray status_out) {
  return list_records<OlvStandinDatabase>(
      env, instance, status_out,
      [&](OlvStandinDatabase** databases, uint32_t* count) {
        return OlvStandinListDatabases(static_cast<HCTX>(context), count, databases);
      },
      [](const OlvStandinDatabase& one) {
        return std::array<std::string, 5>{one.application, one.database,
                                          std::to_string(one.members), std::to_string(one.size),
                                          std::to_string(one.saved)};
      });
}

JNIEXPORT jint JNICALL Java_com_olvane_kep_olvane_standin_StandinSession_deleteDatabase(
    JNIEnv* env, jclass, jint context, jstring application, jstring database) {
  const NameChars app(env, application);
  const NameChars db(env, database);
  return OlvStandinDeleteDatabase(static_cast<HCTX>(context), app.get(), db.get());
}

JNIEXPORT jint JNICALL Java_com_olvane_kep_olvane_standin_StandinSession_createLocalContext(
    JNIEnv* env, jclass, jint instance, jintArray context_out) {
  if (!has_room(env, context_out)) return kBadArgument;
  HCTX context = 0;
  const int status = OlvCreateLocalContext(static_cast<INST>(instance), 0, 0, &context);
  if (status == kStatusOk) put_handle(env, context_out, context);
  return status;
}

// Five texts for each holder, as list_records gives them.
JNIEXPORT jobjectArray JNICALL Java_com_olvane_kep_olvane_standin_StandinSession_locks(
    JNIEnv* env, jclass, jint instance, jintArray status_out) {
  return list_records<OlvStandinLock>(
      env, instance, status_out,
      [&](OlvStandinLock** locks, uint32_t* count) {
        return OlvStandinListLocks(static_cast<INST>(instance), locks, count);
      },
      [](const OlvStandinLock& one) {
        return std::array<std::string, 5>{one.object, one.user, one.host,
                                          std::to_string(one.process), std::to_string(one.since)};
      });
}

JNIEXPORT jint JNICALL Java_com_olvane_kep_olvane_standin_StandinSession_breakLock(
    JNIEnv* env, jclass, jint instance, jbyteArray object) {
  return run_guarded([&] {
    std::string name(static_cast<size_t>(env->GetArrayLength(object)), '\0');
    env->GetByteArrayRegion(object, 0, static_cast<jsize>(name.size()),
                            reinterpret_cast<jbyte*>(name.data()));
    return OlvStandinBreakLock(static_cast<INST>(instance), name.c_str());
  });
}

JNIEXPORT jlongArray JNICALL Java_com_olvane_kep_olvane_standin_StandinSession_ledger(JNIEnv* env,
                                                                                      jclass) {
  OlvStandinLedgerCounts counts{};
  OlvStandinLedger(&counts);
  const jlong values[] = {
      static_cast<jlong>(counts.handedOut), static_cast<jlong>(counts.givenBack),
      static_cast<jlong>(counts.wrongReleases), static_cast<jlong>(counts.outstanding)};
  jlongArray array = env->NewLongArray(4);
  if (array != nullptr) env->SetLongArrayRegion(array, 0, 4, values);
  return array;
}

}  // extern "C"
