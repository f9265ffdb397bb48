# What can't be opened or understood is told in words, and nothing is started.
set(ENV{XDG_DATA_HOME} ${CARPETA}/datos)
function(espera_rechazo texto)
  execute_process(COMMAND ${PROGRAMA} --captura ${CARPETA}/imagen ${ARGN}
    OUTPUT_VARIABLE salida ERROR_VARIABLE errores RESULT_VARIABLE resultado)
  if(resultado EQUAL 0 OR NOT errores MATCHES "${texto}")
    message(FATAL_ERROR "${ARGN}: ${resultado} ${salida} ${errores}")
  endif()
endfunction()
espera_rechazo("No se entiende --nada" --nada)
espera_rechazo("lleva dos números" --referencia 15360 alto)
espera_rechazo("Falta el valor de --datos" --datos)
espera_rechazo("parece la conexión a un servidor" --datos "Driver=Uno")
espera_rechazo("no-esta.sqlite" --datos ${CARPETA}/no-esta.sqlite)
