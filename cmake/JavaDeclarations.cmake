# kepotl_java_declarations(TARGET CLASS): makes the C declarations of the native methods of a Java
# class of this project, and of its constants, from the class itself. TARGET is an interface library
# that brings their folder and that of jni.h.
function(kepotl_java_declarations target class)
  set(java_root ${PROJECT_SOURCE_DIR}/java/src/main/java)
  string(REPLACE . / path ${class})
  string(REPLACE . _ name ${class})
  set(headers ${CMAKE_CURRENT_BINARY_DIR}/jni)
  set(header ${headers}/${name}.h)
  add_custom_command(
    OUTPUT ${header}
    COMMAND ${Java_JAVAC_EXECUTABLE} --release 8 -encoding UTF-8 -Xlint:-options -proc:none
            -implicit:none -sourcepath ${java_root} -d ${headers}/classes -h ${headers}
            ${java_root}/${path}.java
    DEPENDS ${java_root}/${path}.java
    COMMENT "Making the declarations of the native methods"
    VERBATIM)
  add_library(${target} INTERFACE)
  target_sources(${target} INTERFACE ${header})
  target_include_directories(${target} SYSTEM INTERFACE ${headers} ${JNI_INCLUDE_DIRS})
  add_custom_target(${target}_made DEPENDS ${header})
  add_dependencies(${target} ${target}_made)
endfunction()
