# Packs classes and native libraries into a jar whose bytes depend on nothing but its content:
# entries in sorted order, all with one date. Arguments: JAR_TOOL, OUTPUT, CLASSES (folder),
# CLASS_PATH (colon-separated jars), PLATFORM (folder name of the libraries), LIBRARIES (list),
# STRIP (the tool).

set(date 1980-01-01T00:00:02+00:00)
get_filename_component(work ${OUTPUT} DIRECTORY)
set(stage ${work}/stage)
file(REMOVE_RECURSE ${stage})
file(COPY ${CLASSES}/ DESTINATION ${stage})

# The loader extracts what this list names, and checks it against the hashes.
set(index "")
foreach(library IN LISTS LIBRARIES)
  get_filename_component(name ${library} NAME)
  file(COPY ${library} DESTINATION ${stage}/native/${PLATFORM} FOLLOW_SYMLINK_CHAIN)
  # Every start with the packed library checks its bytes: without debug information they are few.
  set(packed ${stage}/native/${PLATFORM}/${name})
  execute_process(COMMAND ${STRIP} --strip-debug ${packed} COMMAND_ERROR_IS_FATAL ANY)
  file(SHA256 ${packed} hash)
  string(APPEND index "${hash}  ${name}\n")
endforeach()
if(index)
  file(WRITE ${stage}/native/${PLATFORM}/libraries.txt "${index}")
endif()

string(REPLACE ":" " file://" class_path "${CLASS_PATH}")
file(WRITE ${work}/manifest.txt
  "Main-Class: com.olvane.kep.olvane.cli.Main\n"
  "Class-Path: file://${class_path}\n"
  "Enable-Native-Access: ALL-UNNAMED\n")

file(GLOB_RECURSE entries RELATIVE ${stage} ${stage}/*)
list(SORT entries)
set(arguments "")
foreach(entry IN LISTS entries)
  string(APPEND arguments "-C \"${stage}\" \"${entry}\"\n")
endforeach()
file(WRITE ${work}/entries.txt "${arguments}")

# The jar appears whole or not at all: others may be using the one that is there.
execute_process(
  COMMAND ${JAR_TOOL} --create --file ${OUTPUT}.new --manifest ${work}/manifest.txt
          --date=${date} @${work}/entries.txt
  COMMAND_ERROR_IS_FATAL ANY)
file(RENAME ${OUTPUT}.new ${OUTPUT})
file(REMOVE_RECURSE ${stage})
