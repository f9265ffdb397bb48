"""The filters of a key typed in a field of a date or of an amount."""

import re

BORRAR, INTRO, ESCAPE, ESPACIO = 8, 13, 27, 32


def tecla_fecha(caja, tecla):
    if tecla in (BORRAR, INTRO, ESCAPE) or tecla == ord("/"):
        return tecla
    if not chr(tecla).isdigit():
        return 0
    if not caja.todo and re.fullmatch(r"(\d\d|[^/]*/\d\d)", caja.texto):
        caja.texto += "/"
    return tecla


def tecla_importe(caja, tecla, solo_enteros):
    """A second separator makes the first one the thousands' point where three figures follow it."""
    antes = "" if caja.todo else caja.texto
    if tecla in (BORRAR, INTRO, ESCAPE) or chr(tecla).isdigit():
        return tecla
    if tecla == ord(",") or tecla == ord(".") and not solo_enteros:
        if "," not in antes:
            return ord(",")
        if not solo_enteros and re.fullmatch(r"[^,]*,\d{3}", antes):
            caja.texto = antes.replace(",", ".")
            return ord(",")
        return 0
    return tecla if tecla == ord("-") and not solo_enteros and antes == "" else 0
