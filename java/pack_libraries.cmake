# Lays native libraries out as the loader looks for them in the jar. Arguments: FOLDER (made anew),
# PLATFORM (such as linux-amd64), LIBRARIES (list), STRIP (the tool).

file(REMOVE_RECURSE ${FOLDER})
set(target ${FOLDER}/native/${PLATFORM})
file(MAKE_DIRECTORY ${target})
# The loader extracts what this list names, and checks it against the hashes.
set(index "")
foreach(library IN LISTS LIBRARIES)
  cmake_path(GET library FILENAME name)
  file(COPY_FILE ${library} ${target}/${name})
  # Every start with the packed library checks its bytes: without debug information they are few.
  execute_process(COMMAND ${STRIP} --strip-debug --remove-section=.gnu_debuglink ${target}/${name}
    COMMAND_ERROR_IS_FATAL ANY)
  file(SHA256 ${target}/${name} hash)
  string(APPEND index "${hash}  ${name}\n")
endforeach()
if(index)
  file(WRITE ${target}/libraries.txt "${index}")
endif()
