"""Measures of the report's letters, in centimetres."""

from pathlib import Path

MEDIDAS = Path(__file__).resolve().parent.parent / "vectores" / "medidas_de_letra.tsv"
ALTOS = 1324, 1399  # thousandths of the size of the letter, normal and bold
CM_POR_PUNTO = 2.54 / 72


def _leer():
    filas = (linea.split("\t") for linea in MEDIDAS.read_text(encoding="utf-8").splitlines() if linea[0] != "#")
    return {chr(int(signo, 16)): (int(normal), int(negrita)) for signo, normal, negrita in filas}


ANCHOS = _leer()


def sin_control(texto):
    """What is drawn: a blank for each control character."""
    return "".join(" " if letra < " " or letra == "\x7f" else letra for letra in texto)


def ancho(texto, puntos, negrita):
    """A sign that was not measured is as wide as a figure."""
    milesimas = sum(ANCHOS.get(letra, ANCHOS["0"])[negrita] for letra in sin_control(texto))
    return milesimas / 1000 * puntos * CM_POR_PUNTO


def alto(puntos, negrita):
    return ALTOS[negrita] / 1000 * puntos * CM_POR_PUNTO
