# README shows the example as it is built.
file(READ ${README} readme)
file(READ ${EJEMPLO} ejemplo)
string(REPLACE "#pragma once\n\n" "" ejemplo "${ejemplo}")
string(FIND "${readme}" "```cpp\n${ejemplo}```\n" donde)
if(donde EQUAL -1)
  message(FATAL_ERROR "README no muestra ${EJEMPLO} tal como es")
endif()
