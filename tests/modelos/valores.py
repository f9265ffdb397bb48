"""Numbers, masks, dates and texts under the Spanish rules that the screen assumes."""

import re
import unicodedata
from calendar import monthrange
from datetime import date
from decimal import ROUND_HALF_UP, Decimal

TIPOS_DISTINTOS = 13
NO_HAY_CELDA = 381
ERROR_DE_IMPRESORA = 482
CLAVE_REPETIDA = -2147217887
SENTENCIA_MAL_HECHA = -2147217900
COLUMNA_DESCONOCIDA = -2147217904


class ErrorEjecucion(Exception):
    """A run-time error, told by its number alone: texts are the program's own."""

    def __init__(self, numero):
        super().__init__(numero)
        self.numero = numero


def redondear(valor):
    """A number with two decimals, ties away from zero on its 15 significant figures."""
    return Decimal(format(float(valor), ".15g")).quantize(Decimal("0.01"), ROUND_HALF_UP) + 0


def mascara(valor):
    """#,###,##0.00; what is Null or the empty text stays empty."""
    if valor is None or valor == "":
        return ""
    texto = f"{redondear(valor):,.2f}"
    if texto == "-0.00":
        texto = "0.00"
    return texto.translate(str.maketrans(",.", ".,"))


def numero(texto):
    """The Double of a text that may be empty: it is read with a "0" before it."""
    texto = "0" + texto.strip(" ")
    if not re.fullmatch(r"\d[\d.]*(,\d*)?", texto):
        raise ErrorEjecucion(TIPOS_DISTINTOS)
    return float(texto.replace(".", "").replace(",", "."))


def numero_exacto(texto):
    """The Double of a text that has no "0" before it: the empty one is no number."""
    if texto.strip(" ") == "":
        raise ErrorEjecucion(TIPOS_DISTINTOS)
    return numero(texto)


def dinero(texto):
    """What a money column keeps of a masked text: Null of the empty one."""
    return None if texto == "" else redondear(numero(texto))


def a_guardada(texto):
    """The stored form yyyymmdd of a displayed date; a day past the month's end is its last one."""
    hecho = re.fullmatch(r"(\d\d?)[/.-](\d\d?)[/.-](\d{4}|\d\d)", texto)
    if not hecho:
        return ""
    dia, mes, anno = (int(parte) for parte in hecho.groups())
    if len(hecho.group(3)) == 2:
        anno += 2000 if anno < 30 else 1900
    if not (1 <= mes <= 12 and 1 <= dia <= 31 and anno >= 100):
        return ""
    return f"{anno:04}{mes:02}{min(dia, monthrange(anno, mes)[1]):02}"


def a_vista(guardada):
    """The display form dd/mm/yyyy of a stored date; empty when it is none."""
    fecha = leer_fecha(guardada)
    return f"{fecha:%d/%m}/{fecha.year:04}" if fecha else ""


def normalizar(texto):
    """What leaving a date field makes of its text; what is no date stays as it is."""
    guardada = a_guardada(texto)
    return a_vista(guardada) if guardada else texto


def es_fecha(texto):
    """Whether a displayed text is a date of the calendar, the month's end counted."""
    guardada = a_guardada(texto)
    return guardada != "" and int(guardada[6:]) == int(texto[:2])


def leer_fecha(guardada):
    if not guardada or not re.fullmatch(r"\d{8}", guardada):
        return None
    try:
        return date(int(guardada[:4]), int(guardada[4:6]), int(guardada[6:]))
    except ValueError:
        return None


def sumar(fecha, unidad, cuantos):
    """Calendar addition of days, months or years; None past the year 9999."""
    if unidad == "d":
        dia = fecha.toordinal() + cuantos
        return date.fromordinal(dia) if dia <= date.max.toordinal() else None
    meses = fecha.year * 12 + fecha.month - 1 + cuantos * (1 if unidad == "m" else 12)
    anno, mes = divmod(meses, 12)
    if anno > 9999:
        return None
    return date(anno, mes + 1, min(fecha.day, monthrange(anno, mes + 1)[1]))


def igual(uno, otro):
    """Text equality without regard to case; Null equals nothing."""
    return uno is not None and otro is not None and plegar(uno) == plegar(otro)


def plegar(texto):
    return texto.lower() if isinstance(texto, str) else texto


def recortar(texto):
    return (texto or "").strip(" ")


def orden(texto):
    """Sort key of a text the Spanish way: Null first, ñ after n, accents second, case never."""
    if texto is None:
        return (0,)
    letras, acentos = [], []
    for letra in texto.lower():
        base = unicodedata.normalize("NFD", letra)
        if letra == "ñ":
            letras.append("n\uffff")
            acentos.append("")
        else:
            letras.append(base[0])
            acentos.append(base[1:])
    return (1, letras, acentos)


def en_linea(texto):
    """A text of a cell as it is printed: tabs, line breaks and their like as blanks."""
    return re.sub(r"[\x00-\x1f]", " ", texto)
