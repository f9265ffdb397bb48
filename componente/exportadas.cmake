# Fails unless BIBLIOTECA exports the four entry points of a server and nothing else.
execute_process(COMMAND ${NM} -D --defined-only --format=posix ${BIBLIOTECA}
  OUTPUT_VARIABLE salida COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "[^\n]+" lineas "${salida}")
set(nombres)
foreach(linea ${lineas})
  # Of its own though it is listed: a table of the standard library's headers that a library which
  # this one links has too.
  if(linea MATCHES "^[^ ]+ [abdrt] ")
    continue()
  endif()
  string(REGEX REPLACE " .*" "" nombre "${linea}")
  list(APPEND nombres ${nombre})
endforeach()
list(SORT nombres)
set(esperados DllCanUnloadNow DllGetClassObject DllRegisterServer DllUnregisterServer)
if(NOT nombres STREQUAL esperados)
  message(FATAL_ERROR "Exporta: ${nombres}")
endif()
