# Compiles and runs the example program that embeds kepotl.jar and nothing else: with Maven (where
# MAVEN names it), on the class path, and on the module path; the libraries come out of the jar.
#   cmake -DJAR=... -DPOM=... -DVERSION=... -DEXAMPLE=... -DJAVAC=... -DJAVA="word|word"
#         -DMAVEN=... -DMAVEN_REPOSITORY=... -DNATIVE_ACCESS=... -DWORK=... -P check_embedding.cmake
# With NATIVE_ACCESS the programs are allowed native code, as Java 22 and later ask; then, too, Java
# has nothing to warn of.

file(REMOVE_RECURSE ${WORK})
file(COPY ${EXAMPLE}/ DESTINATION ${WORK})
file(GLOB_RECURSE sources ${WORK}/src/main/java/*.java)
string(REPLACE "|" ";" java "${JAVA}")

# expect_output(NAME JAVA_ARGUMENT...): runs the program with a store and a folder of its own.
function(expect_output name)
  file(MAKE_DIRECTORY ${WORK}/${name}-libraries)
  execute_process(
    COMMAND ${java} -Djava.library.path= -Dkepotl.tmpdir=${WORK}/${name}-libraries ${ARGN}
            ${WORK}/${name}-store
    OUTPUT_VARIABLE output ERROR_VARIABLE messages RESULT_VARIABLE result)
  if(NOT result EQUAL 0 OR NOT messages STREQUAL ""
      OR NOT output MATCHES "^Year\n  Q1\n  Q2\n  Q3\n  Q4\nwith ${WORK}/${name}-libraries/")
    message(SEND_ERROR "The example failed on the ${name} (${result}):\n${output}\n${messages}")
  endif()
endfunction()

if(MAVEN)
  set(place ${WORK}/repository/com/olvane/kep/kepotl/${VERSION})
  file(MAKE_DIRECTORY ${place})
  file(COPY_FILE ${JAR} ${place}/kepotl-${VERSION}.jar)
  file(COPY_FILE ${POM} ${place}/kepotl-${VERSION}.pom)
  file(WRITE ${WORK}/settings.xml "<settings><mirrors><mirror><id>debian</id>"
    "<mirrorOf>*</mirrorOf><url>file://${MAVEN_REPOSITORY}</url></mirror></mirrors></settings>\n")
  execute_process(COMMAND ${MAVEN} --batch-mode --quiet --settings ${WORK}/settings.xml
    -Dmaven.repo.local=${WORK}/repository -Dkepotl.version=${VERSION} compile
    WORKING_DIRECTORY ${WORK} COMMAND_ERROR_IS_FATAL ANY)
else()
  execute_process(COMMAND ${JAVAC} --release 8 -Xlint:all,-options -Werror -cp ${JAR}
    -d ${WORK}/target/classes ${sources} COMMAND_ERROR_IS_FATAL ANY)
endif()
if(NATIVE_ACCESS)
  list(APPEND java --enable-native-access=ALL-UNNAMED)
endif()
expect_output(class-path -cp ${JAR}:${WORK}/target/classes example.Embed)

file(WRITE ${WORK}/module-info.java "module example.embed {\n  requires com.olvane.kep;\n}\n")
execute_process(COMMAND ${JAVAC} --release 11 -p ${JAR} -d ${WORK}/module
  ${WORK}/module-info.java ${sources} COMMAND_ERROR_IS_FATAL ANY)
if(NATIVE_ACCESS)
  list(TRANSFORM java REPLACE "ALL-UNNAMED" "com.olvane.kep")
endif()
expect_output(module-path -p ${JAR}:${WORK}/module -m example.embed/example.Embed)
file(REMOVE_RECURSE ${WORK})
