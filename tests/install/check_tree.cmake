# Installs a build into an empty folder, moves the tree elsewhere and runs the demonstration there,
# in the C locale and with names that it cannot spell.
#   cmake -DBUILD=... -DVERSION=... -DJAVA="word|word" -DEMULATOR="word|word" -DDATA=... -DWORK=...
#         -P check_tree.cmake

file(REMOVE_RECURSE ${WORK})
set(tree ${WORK}/moved)
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/installed
  OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
file(RENAME ${WORK}/installed ${tree})

# A Java of the width of the build, as JAVA_HOME may name one.
string(REPLACE "|" "' '" words "${JAVA}")
file(WRITE ${WORK}/java/bin/java "#!/bin/sh\nexec '${words}' \"$@\"\n")
file(CHMOD ${WORK}/java/bin/java PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)

# Without a place to extract the packed libraries to, only the installed ones can be loaded.
set(store ${WORK}/städte-日本)
execute_process(
  COMMAND ${CMAKE_COMMAND} -E env LC_ALL=C JAVA_HOME=${WORK}/java
          JAVA_OPTS=-Dkepotl.tmpdir=${WORK}/nowhere
          ${tree}/bin/outline-demo --store ${store} --data ${DATA} --countries 2
  OUTPUT_VARIABLE output ERROR_VARIABLE messages RESULT_VARIABLE result)
if(NOT result EQUAL 0 OR NOT output MATCHES " 0 outstanding, 0 wrong releases")
  message(FATAL_ERROR "The installed demonstration failed (${result}):\n${output}\n${messages}")
endif()
if(NOT EXISTS ${store})
  message(FATAL_ERROR "A name outside ASCII was changed: ${store} is not there")
endif()

string(REPLACE "|" ";" outline "${EMULATOR};${tree}/bin/outline")
foreach(program "${outline}" ${tree}/bin/outline-demo ${tree}/bin/outline-editor)
  execute_process(
    COMMAND ${CMAKE_COMMAND} -E env JAVA_HOME=${WORK}/java JAVA_OPTS=-Djava.awt.headless=true
            ${program} --version
    OUTPUT_VARIABLE output ERROR_VARIABLE output RESULT_VARIABLE result)
  if(NOT result EQUAL 0 OR NOT output MATCHES " ${VERSION}[ \n]")
    message(SEND_ERROR "${program} --version (${result}): ${output}")
  endif()
endforeach()
foreach(file man/man1/outline.1 man/man1/outline-demo.1 man/man1/outline-editor.1
    applications/outline-editor.desktop icons/hicolor/scalable/apps/outline-editor.svg
    bash-completion/completions/outline
    zsh/site-functions/_outline)
  file(SIZE ${tree}/share/${file} size)
  if(size EQUAL 0)
    message(SEND_ERROR "${file} is empty")
  endif()
endforeach()

execute_process(COMMAND ${CMAKE_COMMAND} -E env JAVA_HOME=${WORK}/nowhere
  ${tree}/bin/outline-demo --version ERROR_VARIABLE messages RESULT_VARIABLE result)
if(result EQUAL 0 OR NOT messages MATCHES "no Java at '${WORK}/nowhere/bin/java'")
  message(FATAL_ERROR "A wrong JAVA_HOME is not named: ${messages}")
endif()

file(GLOB_RECURSE files ${tree}/*)
foreach(file IN LISTS files)
  file(STRINGS ${file} paths REGEX "${BUILD}")
  if(paths)
    message(SEND_ERROR "${file} names the folder of the build")
  endif()
endforeach()
file(REMOVE_RECURSE ${WORK})
