# Toolchain of the i386 preset: the machine's own compiler with -m32, and headers, libraries and
# the Java virtual machine from the 32-bit Debian tree that tools/i386-tree.sh lays.

cmake_path(SET KEPOTL_I386_TREE NORMALIZE "${CMAKE_CURRENT_LIST_DIR}/../build/i386-tree")
if(NOT EXISTS "${KEPOTL_I386_TREE}/.laid-from")
  message(FATAL_ERROR
    "There is no 32-bit tree at ${KEPOTL_I386_TREE}, which the 32-bit build compiles against. "
    "Run './dev setup', which lays it.")
endif()

# While configuring: ccache lets the compiler name its own folders relative to another one, and CMake
# would take them for foreign.
set(ENV{CCACHE_DISABLE} 1)

set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR i686)
set(CMAKE_C_COMPILER gcc)
set(CMAKE_CXX_COMPILER g++)
set(CMAKE_C_FLAGS_INIT -m32)
set(CMAKE_ASM_FLAGS_INIT -m32)
set(CMAKE_CXX_FLAGS_INIT -m32)
set(CMAKE_SYSROOT "${KEPOTL_I386_TREE}")
set(CMAKE_LIBRARY_ARCHITECTURE i386-linux-gnu)

set(CMAKE_FIND_ROOT_PATH "${KEPOTL_I386_TREE}")
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Runs 32-bit programs: an emulator where the kernel can't, nothing but the search path where it
# can. The search path is given in both cases because the emulator does not show the tree's
# library folders to the loader's own search, only the files in them.
set(library_path "${KEPOTL_I386_TREE}/lib/i386-linux-gnu:${KEPOTL_I386_TREE}/usr/lib/i386-linux-gnu")
execute_process(
  COMMAND "${KEPOTL_I386_TREE}/lib/ld-linux.so.2" --version
  RESULT_VARIABLE kernel_runs_i386 OUTPUT_QUIET ERROR_QUIET)
if(kernel_runs_i386 EQUAL 0)
  set(CMAKE_CROSSCOMPILING_EMULATOR env "LD_LIBRARY_PATH=${library_path}")
else()
  set(CMAKE_CROSSCOMPILING_EMULATOR
    qemu-i386-static -L "${KEPOTL_I386_TREE}" -E "LD_LIBRARY_PATH=${library_path}")
endif()
