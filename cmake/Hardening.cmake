# How everything is compiled and linked so that faults are caught early and two builds are alike,
# and what a library that is shipped carries besides its code.

option(KEPOTL_SPLIT_DEBUG "Keep the debug information of shipped libraries in files beside them" ON)

# The sanitizers bring their own checks, which FORTIFY would hide.
if(NOT KEPOTL_SANITIZE)
  add_compile_options(-fstack-protector-strong $<$<NOT:$<CONFIG:Debug>>:-D_FORTIFY_SOURCE=2>)
endif()
add_compile_options(-fcf-protection)
add_link_options(LINKER:-z,relro,-z,now)

# No path of the building machine gets into what is built. The last one that fits counts.
add_compile_options(
  -ffile-prefix-map=${PROJECT_SOURCE_DIR}=.
  -ffile-prefix-map=${PROJECT_BINARY_DIR}=build)
if(KEPOTL_I386_TREE)
  # The compiler tells where the tree really lies, also where it was reached by a link.
  file(REAL_PATH "${KEPOTL_I386_TREE}" i386_tree)
  add_compile_options("-ffile-prefix-map=${i386_tree}=")
endif()

# kepotl_shipped(TARGET): the project's version goes into a library as an ELF note, which
# 'readelf --notes' shows and the Java loader compares with its own, and the debug information
# into a file beside it. The global property KEPOTL_SHIPPED lists these libraries.
function(kepotl_shipped target)
  set_property(GLOBAL APPEND PROPERTY KEPOTL_SHIPPED ${target})
  set(note ${CMAKE_CURRENT_BINARY_DIR}/${target}_version.S)
  configure_file(${PROJECT_SOURCE_DIR}/cmake/version_note.S.in ${note} @ONLY)
  target_sources(${target} PRIVATE ${note})
  if(KEPOTL_SPLIT_DEBUG AND NOT KEPOTL_SANITIZE)
    set(debug $<TARGET_FILE_NAME:${target}>.debug)
    add_custom_command(TARGET ${target} POST_BUILD
      COMMAND ${CMAKE_OBJCOPY} --only-keep-debug $<TARGET_FILE_NAME:${target}> ${debug}
      COMMAND ${CMAKE_OBJCOPY} --strip-debug --add-gnu-debuglink=${debug}
              $<TARGET_FILE_NAME:${target}>
      WORKING_DIRECTORY $<TARGET_FILE_DIR:${target}>
      VERBATIM)
  endif()
endfunction()
