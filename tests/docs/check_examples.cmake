# Compiles the Java examples of documents, so that they show what works. Each block is a method of a
# class that has an open store, outline and member at hand.
#   cmake -DJAVAC=... -DCLASS_PATH=... -DWORK=... -DDOCUMENTS=a.md,b.md -P check_examples.cmake

file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK})
set(count 0)
string(REPLACE "," ";" documents "${DOCUMENTS}")
foreach(document IN LISTS documents)
  file(READ ${document} text)
  # Semicolons and brackets mean something in lists.
  string(REPLACE ";" "@semicolon@" text "${text}")
  string(REPLACE "[" "@open@" text "${text}")
  string(REPLACE "]" "@close@" text "${text}")
  string(REGEX MATCHALL "```java\n[^`]*```" blocks "${text}")
  foreach(block IN LISTS blocks)
    string(REGEX REPLACE "^```java\n(.*)```$" "\\1" block "${block}")
    string(REPLACE "@semicolon@" ";" block "${block}")
    string(REPLACE "@open@" "[" block "${block}")
    string(REPLACE "@close@" "]" block "${block}")
    math(EXPR count "${count} + 1")
    file(WRITE ${WORK}/Example${count}.java
      "import com.olvane.kep.olvane.api.*;\nimport com.olvane.kep.olvane.api.jni.*;\n"
      "import com.olvane.kep.olvane.outline.*;\nimport com.olvane.kep.olvane.standin.*;\n"
      "import java.nio.file.*;\nimport java.util.*;\nimport java.util.stream.*;\n"
      "abstract class Example${count} {\n  Store store;\n  Outline outline;\n  Member product;\n"
      "  void example() throws Exception {\n${block}  }\n}\n")
  endforeach()
endforeach()
if(count EQUAL 0)
  message(FATAL_ERROR "No example was found in ${DOCUMENTS}")
endif()
file(GLOB sources ${WORK}/*.java)
execute_process(
  COMMAND ${JAVAC} --release 8 -encoding UTF-8 -Xlint:-options -cp ${CLASS_PATH} -d ${WORK} ${sources}
  RESULT_VARIABLE failed)
if(failed)
  message(FATAL_ERROR "An example does not compile; its lines are shown above")
endif()
message(STATUS "${count} examples compile")
