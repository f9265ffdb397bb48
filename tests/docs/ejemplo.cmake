# The example opens the screen on two new databases, and again on the same ones. Where the library
# is missing it says so and fails.
file(REMOVE_RECURSE ${CARPETA})
file(MAKE_DIRECTORY ${CARPETA})
set(ENV{XDG_DATA_HOME} ${CARPETA}/datos)
set(ENV{QT_QPA_PLATFORM} offscreen)
foreach(arranque primero segundo)
  execute_process(COMMAND ${PROGRAMA} ${BIBLIOTECA} ${CARPETA} --salir
    OUTPUT_VARIABLE salida COMMAND_ERROR_IS_FATAL ANY TIMEOUT 60)
  if(NOT salida STREQUAL "Abierto\n")
    message(FATAL_ERROR "El ${arranque} arranque ha dicho: ${salida}")
  endif()
endforeach()
execute_process(COMMAND ${PROGRAMA} /no/existe.so ${CARPETA} --salir
  RESULT_VARIABLE estado ERROR_VARIABLE error TIMEOUT 60)
if(estado EQUAL 0 OR NOT error MATCHES "No se puede cargar la biblioteca /no/existe.so: ")
  message(FATAL_ERROR "Sin biblioteca ha dicho: ${error}")
endif()
