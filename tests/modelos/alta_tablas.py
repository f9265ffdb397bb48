"""Rows written by the entry panel: texts become values of their columns, or don't fit."""

from alta_cuentas import llano
from valores import CLAVE_REPETIDA, ErrorEjecucion, redondear


def _numero_de(texto):
    try:
        return llano(texto)
    except ErrorEjecucion:
        raise ErrorEjecucion(CLAVE_REPETIDA) from None


def dinero_de(texto):
    """A column of amounts has two decimals."""
    return None if texto == "" else redondear(_numero_de(texto))


def entero_de(texto):
    if texto == "":
        return None
    valor = _numero_de(texto)
    if valor != int(valor) or abs(valor) > 2**31 - 1:
        raise ErrorEjecucion(CLAVE_REPETIDA)
    return int(valor)


def escribir(tabla, fila, valores):
    """Overwrites a row, or adds one; a key that another row has is refused and nothing changes."""
    if fila is None:
        return tabla.insertar(valores)
    nueva = fila | valores
    clave = tabla.clave_de(nueva)
    if any(otra is not fila and tabla.clave_de(otra) == clave for otra in tabla.filas):
        raise ErrorEjecucion(CLAVE_REPETIDA)
    fila.update(valores)
    tabla.rehacer_claves()
    return fila
