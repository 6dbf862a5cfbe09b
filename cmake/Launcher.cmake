# kepotl_launcher(NAME JAR [OPTIONS]): makes the command NAME that runs the program in JAR, with OPTIONS
# as the shell reads them: bin/NAME in the build, with this build's libraries and virtual machine,
# and one to install, which finds everything from where it lies itself, and Java by JAVA_HOME or on
# the path.
function(kepotl_launcher name jar)
  set(launcher_jar ${jar})
  set(launcher_options ${ARGN})
  set(modes FILE_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE
    WORLD_READ WORLD_EXECUTE)

  list(TRANSFORM KEPOTL_JAVA_COMMAND REPLACE "(.+)" "'\\1'" OUTPUT_VARIABLE words)
  list(JOIN words " " launcher_java)
  set(launcher_setup "")
  set(launcher_libraries "-Djava.library.path='${CMAKE_LIBRARY_OUTPUT_DIRECTORY}'")
  set(launcher_jars ${CMAKE_BINARY_DIR}/java)
  configure_file(${PROJECT_SOURCE_DIR}/cmake/launcher.in ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${name}
    @ONLY ${modes})

  set(launcher_java [["$java"]])
  string(CONCAT launcher_setup [[here=$(dirname "$(readlink -f "$0")")]] "\n"
    [[java=${JAVA_HOME:+$JAVA_HOME/bin/}java]] "\n"
    [[command -v "$java" >/dev/null || {]] "\n"
    [[  echo "${0##*/}: there is no Java at '$java'. Install default-jre-headless or set JAVA_HOME." >&2]]
    "\n  exit 1\n}\n")
  foreach(kind jni java)
    set(folder ${KEPOTL_INSTALL_${kind}})
    cmake_path(RELATIVE_PATH folder BASE_DIRECTORY ${CMAKE_INSTALL_BINDIR})
    set(from_${kind} "$here/${folder}")
  endforeach()
  set(launcher_libraries "-Djava.library.path=\"${from_jni}\"")
  if(CMAKE_INSTALL_PREFIX STREQUAL "/usr")
    # The system's Java looks there by itself, each for its own width.
    set(launcher_libraries "")
  endif()
  set(launcher_jars ${from_java})
  configure_file(${PROJECT_SOURCE_DIR}/cmake/launcher.in ${PROJECT_BINARY_DIR}/install/${name}
    @ONLY ${modes})
  install(PROGRAMS ${PROJECT_BINARY_DIR}/install/${name} DESTINATION ${CMAKE_INSTALL_BINDIR}
    COMPONENT java)
endfunction()
