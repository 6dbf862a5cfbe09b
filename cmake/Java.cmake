# Finds the Java tools and the virtual machine that tests embed, for the width being built. Sets
#   JNI_INCLUDE_DIRS     folders of jni.h
#   KEPOTL_JAVA_COMMAND  the command, a list, that runs Java of this width
# and defines the target JNI::JVM, which links a program with the virtual machine.

find_package(Java 17 REQUIRED COMPONENTS Development Runtime)
file(REAL_PATH "${Java_JAVAC_EXECUTABLE}" javac)
cmake_path(GET javac PARENT_PATH jdk)
cmake_path(GET jdk PARENT_PATH jdk)

# The headers are the same for both widths; only the compiling machine's kit has them.
set(JAVA_INCLUDE_PATH "${jdk}/include")
set(JAVA_INCLUDE_PATH2 "${jdk}/include/linux")

if(KEPOTL_I386_TREE)
  set(jre "${KEPOTL_I386_TREE}/usr/lib/jvm/default-java")
else()
  set(jre "${jdk}")
endif()
set(JAVA_JVM_LIBRARY "${jre}/lib/server/libjvm.so")
find_package(JNI REQUIRED COMPONENTS JVM)

set(KEPOTL_JAVA_COMMAND ${CMAKE_CROSSCOMPILING_EMULATOR})
if(KEPOTL_I386_TREE)
  # Debian's 32-bit virtual machine refers to a function that it neither defines nor calls. The
  # path is given here because CMake leaves the tree's part out of the paths that it records.
  set_property(TARGET JNI::JVM APPEND PROPERTY INTERFACE_LINK_OPTIONS
    LINKER:--allow-shlib-undefined "LINKER:-rpath,${jre}/lib/server")
elseif(KEPOTL_SANITIZE)
  # A library with AddressSanitizer needs its run-time in the process from the start. Faulting
  # reads are the virtual machine's to handle, and what it keeps until the end is no leak.
  execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=libasan.so
    OUTPUT_VARIABLE asan OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  file(REAL_PATH "${asan}" asan)
  set(KEPOTL_JAVA_COMMAND env "LD_PRELOAD=${asan}:libstdc++.so.6" ASAN_OPTIONS=handle_segv=0:detect_leaks=0)
endif()
list(APPEND KEPOTL_JAVA_COMMAND "${jre}/bin/java")
if(CMAKE_CROSSCOMPILING_EMULATOR MATCHES qemu)
  # Optimising compilation costs more under an emulator than it saves.
  list(APPEND KEPOTL_JAVA_COMMAND -XX:TieredStopAtLevel=1)
endif()
