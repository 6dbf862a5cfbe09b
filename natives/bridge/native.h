// How a native method of OutlineJni is defined. The declarations come from the Java class itself,
// so that a definition whose parameters or result differ from what Java calls does not compile.
#pragma once

#include "com_olvane_kep_olvane_api_jni_OutlineJni.h"

// Spells the exported name and the calling convention.
#define KEPOTL_NATIVE(result, method) \
  extern "C" JNIEXPORT result JNICALL Java_com_olvane_kep_olvane_api_jni_OutlineJni_##method
