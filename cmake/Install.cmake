# Where things are installed; what is installed is said where it is built. Components: runtime (the
# libraries and the command), java (jars and the launchers of Java programs), doc, development.

include(GNUInstallDirs)

# Debian's Java looks for native libraries here.
set(KEPOTL_INSTALL_jni ${CMAKE_INSTALL_LIBDIR}/jni)
set(KEPOTL_INSTALL_java ${CMAKE_INSTALL_DATAROOTDIR}/java)

# kepotl_java_library(TARGET): a library that Java loads. It finds the API libraries beside itself,
# as in the build and in the jar, or one folder up, where they are installed.
function(kepotl_java_library target)
  target_link_options(${target} PRIVATE LINKER:--no-undefined)
  set_target_properties(${target} PROPERTIES
    BUILD_WITH_INSTALL_RPATH ON INSTALL_RPATH "$ORIGIN:$ORIGIN/..")
  kepotl_shipped(${target})
  install(TARGETS ${target} LIBRARY DESTINATION ${KEPOTL_INSTALL_jni} COMPONENT runtime)
endfunction()
