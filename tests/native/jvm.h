// The Java virtual machine of a test program, started once with -Xcheck:jni,
// and what that check has to say.
#pragma once

#include <jni.h>

#include <string>
#include <vector>

// Starts the virtual machine with kepotl.jar on its class path. Ends the
// program with a message when that fails.
void start_jvm();

// The running virtual machine, and the calling (attached) thread's environment.
JavaVM* jvm();
JNIEnv* real_env();

// The warnings of -Xcheck:jni since the last call, one line each, without stack
// traces.
std::vector<std::string> take_jni_warnings();

// Whether a warning follows from the JNI functions that the library confines
// itself to: it never asks for pending exceptions and never makes room for
// local references. Calls made while an exception is pending are accepted where
// the case leaves one pending.
bool is_accepted_warning(const std::string& warning, bool exception_pending);
