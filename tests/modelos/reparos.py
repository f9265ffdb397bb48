"""What days leave alone: actions whose outcome nothing settles, and oddities that were left out."""

from fechas import DESDE, HASTA
from valores import a_guardada

# Oddities that a player can leave out of its days.
RAREZAS = {
    "editor": "filters, dates and closing over an open editor",
    "devolver": "a payment taken back in a row that the snapshot has elsewhere",
    "cierre": "closing that ends in an error: a list that has outgrown its snapshot, a quote",
    "comillas": "invoice numbers with a quote",
    "previsiones": "forecasts that can't be stepped",
    "momentos": "cash entries whose stored moment lacks its time or seconds",
    "anchos": "texts and amounts wider than their columns",
    "saltos": "tabs and line breaks in texts",
    "relleno": "a click on a filler row's paid cell with a zero in the editor",
}


def calla(paso, pantalla, con):
    """Whether a step is passed over."""
    clase = paso[0]
    if clase in ("celda", "doble"):
        return ("devolver" not in con and paso[2] == 5 and _movida(paso[1], pantalla)
                or "relleno" not in con and paso[2] == 4 and _cero_sobre_relleno(paso[1], pantalla))
    crecida = len(pantalla.rejilla.celdas) > len(pantalla.foto.celdas)
    if clase == "cerrar":
        return (_sin_vuelta(pantalla) or sobre_el_editor(pantalla, con)
                or "cierre" not in con and (crecida or "comillas" in con))
    if clase == "pulsar":
        return paso[1].startswith("Chk") and sobre_el_editor(pantalla, con)
    if clase == "fecha":
        return crecida or "comillas" in con or sobre_el_editor(pantalla, con) or _abierta(paso, pantalla)
    return False


def _sin_vuelta(pantalla):
    """A receipt below zero ends the next load in an error, and there is no screen to go on with."""
    return any((recibo["Importe"] or 0) < 0 for base in (pantalla.copia.almacen, pantalla.local)
               for recibo in base.vencimientos.filas)


def _movida(fila, pantalla):
    return (fila >= len(pantalla.foto.celdas) or fila >= len(pantalla.rejilla.celdas)
            or pantalla.foto.linea(fila) != pantalla.rejilla.linea(fila))


def _cero_sobre_relleno(fila, pantalla):
    """The editor passes through the filler row on its way to the first one."""
    celdas = pantalla.rejilla.celdas
    cero = pantalla.editor_visible and pantalla.editor.strip("0,") == ""
    return cero and fila < len(celdas) and celdas[fila][0] == ""


def sobre_el_editor(pantalla, con):
    """An editor with what is no amount in it leaves the road open to question."""
    return pantalla.editor_visible and ("editor" not in con or "-" in pantalla.editor)


def _abierta(paso, pantalla):
    """With the editor open, a date that is refused or changes nothing."""
    if not pantalla.editor_visible:
        return False
    _, campo, texto, _ = paso
    return (len(texto) != 10 or texto.startswith("31") or texto == pantalla.texto[campo]
            or campo == HASTA and a_guardada(texto) < pantalla.desde()
            or campo == DESDE and pantalla.foco in (DESDE, HASTA))
