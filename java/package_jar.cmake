# Makes a jar whose bytes depend on nothing but its content: entries in sorted order, all with one
# date. Arguments: JAR_TOOL, OUTPUT, MANIFEST (file), FOLDERS (list; what they hold is merged),
# WITHOUT (expression of names that stay out, or empty).

set(date 1980-01-01T00:00:02+00:00)
set(stage ${OUTPUT}.stage)
file(REMOVE_RECURSE ${stage})
file(MAKE_DIRECTORY ${stage})
foreach(folder IN LISTS FOLDERS)
  file(COPY ${folder}/ DESTINATION ${stage})
endforeach()

file(GLOB_RECURSE entries RELATIVE ${stage} ${stage}/*)
list(SORT entries)
if(WITHOUT)
  list(FILTER entries EXCLUDE REGEX "${WITHOUT}")
endif()
set(arguments "")
foreach(entry IN LISTS entries)
  string(APPEND arguments "-C \"${stage}\" \"${entry}\"\n")
endforeach()
file(WRITE ${stage}.entries "${arguments}")

# The jar appears whole or not at all: others may be using the one that is there.
execute_process(
  COMMAND ${JAR_TOOL} --create --file ${OUTPUT}.new --manifest ${MANIFEST} --date=${date}
          @${stage}.entries
  COMMAND_ERROR_IS_FATAL ANY)
file(RENAME ${OUTPUT}.new ${OUTPUT})
file(REMOVE_RECURSE ${stage} ${stage}.entries)
