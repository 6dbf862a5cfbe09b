# The programs on kepotl.jar, each a jar of its own. It names the libraries that it needs by where they
# lie beside it: copies in a build and in an installed tree, Debian's own files in a package.

option(KEPOTL_INSTALL_JAVA_LIBRARIES "Install copies of the libraries that the programs need" ON)

# kepotl_program(NAME MAIN_CLASS SOURCES LIBRARIES): makes NAME.jar of lists of sources and of the
# names of libraries in Debian's folder of jars. Sets NAME_class_path to what runs it.
function(kepotl_program name main_class sources libraries)
  set(beside kepotl.jar)
  set(files)
  foreach(library IN LISTS libraries)
    string(MAKE_C_IDENTIFIER ${library} variable)
    string(TOUPPER KEPOTL_${variable}_JAR variable)
    find_file(${variable} ${library}.jar PATHS /usr/share/java NO_CMAKE_FIND_ROOT_PATH)
    if(NOT ${variable})
      message(FATAL_ERROR "There is no ${library}.jar in /usr/share/java, which ${name} needs. "
        "Run './dev setup', or install the package that has it.")
    endif()
    list(APPEND files ${${variable}})
    string(APPEND beside " ${library}.jar")
    file(REAL_PATH ${${variable}} file)  # what lies at the name is a link
    file(COPY_FILE ${file} ${build_root}/${library}.jar ONLY_IF_DIFFERENT)
    if(KEPOTL_INSTALL_JAVA_LIBRARIES)
      install(FILES ${build_root}/${library}.jar DESTINATION ${KEPOTL_INSTALL_java} COMPONENT java)
    endif()
  endforeach()
  list(JOIN files ":" class_path)
  kepotl_classes(${name} "kepotl:${class_path}" ${sources})
  kepotl_make_jar(${name}
    "Main-Class: ${main_class}\nClass-Path: ${beside}\n${common_manifest}"
    "${build_root}/${name}" "" ${build_root}/${name}.stamp)
  install(FILES ${build_root}/${name}.jar DESTINATION ${KEPOTL_INSTALL_java} COMPONENT java)
  set(${name}_class_path "${build_root}/${name}.jar:${build_root}/kepotl.jar:${class_path}"
    PARENT_SCOPE)
endfunction()

kepotl_program(kepotl-demo com.olvane.kep.olvane.cli.Main "${demo_sources}" "picocli;gson")
add_custom_target(demo_jar ALL DEPENDS ${build_root}/kepotl-demo.jar)
add_dependencies(demo_jar kepotl_jar)
install(FILES ${PROJECT_SOURCE_DIR}/docs/outline-demo.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1
  COMPONENT java)

kepotl_program(outline-editor com.olvane.kep.olvane.editor.EditorMain "${editor_sources}"
  "picocli;miglayout-core;miglayout-swing;rsyntaxtextarea;autocomplete")
add_custom_target(editor_jar ALL DEPENDS ${build_root}/outline-editor.jar)
add_dependencies(editor_jar kepotl_jar)
install(FILES ${PROJECT_SOURCE_DIR}/docs/outline-editor.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1
  COMPONENT java)
install(FILES ${PROJECT_SOURCE_DIR}/desktop/outline-editor.desktop
  DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/applications COMPONENT java)
install(FILES ${PROJECT_SOURCE_DIR}/desktop/outline-editor.svg
  DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/icons/hicolor/scalable/apps COMPONENT java)

# What tests and benchmarks put on their class paths.
set(KEPOTL_CLASS_PATH ${kepotl-demo_class_path} PARENT_SCOPE)
set(KEPOTL_EDITOR_CLASS_PATH ${outline-editor_class_path} PARENT_SCOPE)
