# Runs a scenario; fails with what it printed, or with the difference to what it should have. With
# SERVIDOR, its stored tables are on the server whose connection text is in that variable of the
# environment.
set(opciones)
if(SERVIDOR)
  if(NOT DEFINED ENV{${SERVIDOR}})
    message("no hay servidor")
    return()
  endif()
  string(REPLACE ";" "\\;" texto "$ENV{${SERVIDOR}}")
  set(opciones --datos "${texto}")
endif()
execute_process(COMMAND ${PROGRAMA} ${opciones} ${GUION}
  OUTPUT_FILE ${OBTENIDO} ERROR_VARIABLE errores RESULT_VARIABLE estado)
file(READ ${OBTENIDO} obtenido)
if(NOT estado EQUAL 0)
  message(FATAL_ERROR "estado ${estado}\n${errores}${obtenido}")
endif()
string(REGEX REPLACE "\\.guion$" ".salida" salida ${GUION})
if(EXISTS ${salida})
  execute_process(COMMAND diff -u ${salida} ${OBTENIDO}
    OUTPUT_VARIABLE diferencia RESULT_VARIABLE distintos)
  if(distintos)
    message(FATAL_ERROR "${diferencia}")
  endif()
elseif(obtenido)
  message(FATAL_ERROR "imprime sin tener .salida:\n${obtenido}")
endif()
