# Fails if FILE is no JSON object with packages, files and relationships.
file(READ "${FILE}" text)
foreach(member packages files relationships)
  string(JSON count LENGTH "${text}" ${member})
  if(count EQUAL 0)
    message(FATAL_ERROR "${FILE} lists no ${member}")
  endif()
endforeach()
