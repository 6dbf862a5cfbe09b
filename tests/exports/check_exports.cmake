# Compares what a library exports with the list of names, and what it needs with the few
# libraries that it may need.
#   cmake -DNM=... -DREADELF=... -DLIBRARY=... -DNAMES=... -DAPI_LIBRARIES=a,b -P check_exports.cmake

execute_process(COMMAND ${NM} -D --defined-only ${LIBRARY}
  OUTPUT_VARIABLE symbols COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "[^ \n]+\n" exported "${symbols}")
list(TRANSFORM exported STRIP)
file(STRINGS ${NAMES} names)

set(missing ${names})
list(REMOVE_ITEM missing ${exported})
set(extra ${exported})
list(REMOVE_ITEM extra ${names})
if(missing)
  list(JOIN missing "\n  " text)
  message(SEND_ERROR "Not exported though listed in ${NAMES}:\n  ${text}")
endif()
if(extra)
  list(JOIN extra "\n  " text)
  message(SEND_ERROR "Exported though not listed in ${NAMES}:\n  ${text}")
endif()

execute_process(COMMAND ${READELF} -d ${LIBRARY}
  OUTPUT_VARIABLE dynamic COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "lib[a-z_+]+[.]so[.0-9]*" needed "${dynamic}")
list(REMOVE_ITEM needed libkepotl.so)
set(allowed libc.so.6 libm.so.6 libstdc++.so.6 libgcc_s.so.1)
if(SANITIZED)
  list(APPEND allowed libasan.so.8 libubsan.so.1)
endif()
string(REPLACE "," ";" api_libraries "${API_LIBRARIES}")
set(unexpected ${needed})
list(REMOVE_ITEM unexpected ${allowed} ${api_libraries} ld-linux.so.2 ld-linux-x86-64.so.2)
if(unexpected)
  message(SEND_ERROR "${LIBRARY} needs libraries that it has no business with: ${unexpected}")
endif()
foreach(api_library IN LISTS api_libraries)
  list(FIND needed ${api_library} position)
  if(position EQUAL -1)
    message(SEND_ERROR "${LIBRARY} does not need ${api_library}")
  endif()
endforeach()
