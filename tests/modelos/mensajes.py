"""What the screen says and asks."""

EXCESO_AL_TECLEAR = "El Importe Pagado no Puede ser mayor que el importe del recibo"
EXCESO_AL_GRABAR = "El Importe Pagado no puede ser mayor que el Importe del Recibo"
FECHA_INCORRECTA = "Fecha incorrecta"
RANGO_AL_REVES = "Hasta Fecha no puede ser mayor que Desde Fecha"
GRABAR_ANTES = "Si Modifica las fechas debe grabar los cambios antes. ¿Quiere Grabarlos?"
GUARDAR = "¿Desea guardar los cambios?"
BORRAR_FACTURA = "Pulsar 'Si' para borrar la Factura\nPulsar 'No' para borrar solo la línea Marcada"
BORRAR_PREVISION = ("Pulsar 'Si' para borrar toda la Previsión correspondiente al Concepto\n"
                    "Pulsar 'No' para borrar solo la línea Marcada")
