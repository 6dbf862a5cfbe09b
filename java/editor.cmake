# outline-editor.jar: the outline editor's window, on kepotl.jar and the libraries that Debian has.
# Target editor_jar makes it.

foreach(library miglayout-core miglayout-swing rsyntaxtextarea autocomplete)
  string(TOUPPER KEPOTL_${library}_JAR variable)
  string(REPLACE - _ variable ${variable})
  find_file(${variable} ${library}.jar PATHS /usr/share/java NO_CMAKE_FIND_ROOT_PATH)
  if(NOT ${variable})
    message(FATAL_ERROR "There is no ${library}.jar in /usr/share/java, which the outline editor needs. "
      "Run './dev setup', or install libmiglayout-java librsyntaxtextarea-java libautocomplete-java.")
  endif()
  list(APPEND editor_libraries ${${variable}})
endforeach()
list(JOIN editor_libraries ":" editor_libraries)

set(editor_class_path "${kepotl_jar}:${KEPOTL_CLASS_PATH}:${editor_libraries}")
set(editor_jar ${CMAKE_CURRENT_BINARY_DIR}/outline-editor.jar)
file(GLOB editor_sources CONFIGURE_DEPENDS ${source_root}/com/olvane/kep/olvane/editor/*.java)
set(editor_list ${CMAKE_CURRENT_BINARY_DIR}/editor_sources.txt)
string(REPLACE ";" "\n" editor_text "${editor_sources}")
file(GENERATE OUTPUT ${editor_list} CONTENT "${editor_text}\n")
string(REPLACE ":" " file://" manifest_path "${editor_class_path}")
set(editor_manifest ${CMAKE_CURRENT_BINARY_DIR}/editor_manifest.txt)
file(GENERATE OUTPUT ${editor_manifest} CONTENT
  "Main-Class: com.olvane.kep.olvane.editor.EditorMain\nClass-Path: file://${manifest_path}\nEnable-Native-Access: ALL-UNNAMED\n")
add_custom_command(
  OUTPUT ${editor_jar}
  COMMAND ${CMAKE_COMMAND} -E rm -rf editor_classes
  COMMAND ${Java_JAVAC_EXECUTABLE} --release 8 -encoding UTF-8 -Xlint:all,-options -Werror
          -cp "${editor_class_path}" -proc:none -d editor_classes @${editor_list}
  COMMAND ${Java_JAR_EXECUTABLE} --create --file ${editor_jar}.new --manifest ${editor_manifest}
          --date=1980-01-01T00:00:02+00:00 -C editor_classes .
  COMMAND ${CMAKE_COMMAND} -E rename ${editor_jar}.new ${editor_jar}
  WORKING_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}
  DEPENDS ${editor_sources} ${editor_list} ${kepotl_jar}
  COMMENT "Making outline-editor.jar"
  VERBATIM)
add_custom_target(editor_jar ALL DEPENDS ${editor_jar})
set(KEPOTL_EDITOR_CLASS_PATH "${editor_jar}:${editor_class_path}" PARENT_SCOPE)
