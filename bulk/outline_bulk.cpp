// The native method of OutlineBulk: the way from a Java buffer to the operations and back.
#include <new>

#include "api/olvotl.h"
#include "bulk/operations.h"

namespace bulk {
namespace {

// False when the request is not well-formed. May throw std::bad_alloc.
bool carry_out(uint8_t* buffer, size_t size) {
  Request request;
  if (!take_request(buffer, size, &request)) return false;
  Answer answer;
  switch (request.operation) {
    case KEPOTL_FORMAT(READ_CHILDREN):
    case KEPOTL_FORMAT(READ_SUBTREE):
    case KEPOTL_FORMAT(READ_MEMBERS):
    case KEPOTL_FORMAT(FIND):
      if (!read_members(request, &answer)) return false;
      break;
    case KEPOTL_FORMAT(CREATE):
    case KEPOTL_FORMAT(UPDATE):
      if (!make_members(request, &answer)) return false;
      break;
    case KEPOTL_FORMAT(POSITION):
      find_position(request, &answer);
      break;
    default:
      return false;
  }
  give_answer(answer, buffer);
  return true;
}

}  // namespace
}  // namespace bulk

using namespace bulk;

JNIEXPORT jboolean JNICALL Java_com_olvane_kep_olvane_api_jni_OutlineBulk_execute(JNIEnv* env,
                                                                                  jclass,
                                                                                  jobject jbuffer) {
  if (jbuffer == nullptr) return JNI_FALSE;
  uint8_t* const buffer = static_cast<uint8_t*>(env->GetDirectBufferAddress(jbuffer));
  const jlong size = env->GetDirectBufferCapacity(jbuffer);
  if (buffer == nullptr || size < KEPOTL_FORMAT(REQUEST)) return JNI_FALSE;
  try {
    return carry_out(buffer, static_cast<size_t>(size)) ? JNI_TRUE : JNI_FALSE;
  } catch (const std::bad_alloc&) {
    // Memory is taken before the first member is read or made.
    Answer answer;
    answer.outcome.status = kStatusRefused;
    give_answer(answer, buffer);
    return JNI_TRUE;
  }
}
