# Runs a Java command and judges it:
#   cmake -DWORK=FOLDER -DCOMMAND_FILE=FILE -P run_junit.cmake
# COMMAND_FILE holds the command, one word a line.
# The tests report to standard error; standard output is the virtual machine's, whose warnings
# about JNI calls fail the run. Two kinds follow from the small set of JNI functions that the
# library keeps to: missing exception checks, and many local references. WORK is the folder that
# the tests work in; it is made empty before and removed after.

file(STRINGS "${COMMAND_FILE}" command)
file(REMOVE_RECURSE "${WORK}")
file(MAKE_DIRECTORY "${WORK}")
set(output "${WORK}.output")
execute_process(COMMAND ${command}
  WORKING_DIRECTORY "${WORK}" OUTPUT_FILE "${output}" RESULT_VARIABLE result)

set(allowed "^WARNING: JNI local refs: |^WARNING in native method: JNI call made without checking exceptions when required to from ")
file(STRINGS "${output}" warnings REGEX "^(WARNING|Warning|FATAL ERROR)")
list(FILTER warnings EXCLUDE REGEX "${allowed}")
list(REMOVE_DUPLICATES warnings)
file(REMOVE_RECURSE "${WORK}")
if(warnings)
  list(JOIN warnings "\n  " text)
  message(FATAL_ERROR "The virtual machine warned:\n  ${text}\nAll of its output: ${output}")
endif()
if(NOT result EQUAL 0)
  message(FATAL_ERROR "The tests ended with ${result}. Output of the virtual machine: ${output}")
endif()
file(REMOVE "${output}")
