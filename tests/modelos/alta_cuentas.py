"""Arithmetic of the entry panel, from texts and numbers to texts and numbers."""

import re
from datetime import timedelta

from valores import (TIPOS_DISTINTOS, ErrorEjecucion, a_guardada, a_vista, leer_fecha, mascara, numero, redondear,
                     sumar)

LLAMADA_NO_VALIDA = 5
TASAS = {16: 1.16, 7: 1.07, 4: 1.04}


def llano(texto):
    """The Double of a text that must hold a number, sign included."""
    texto = texto.strip(" \t")
    if not re.fullmatch(r"[+-]?(\d[\d.]*(,\d*)?|,\d+)", texto):
        raise ErrorEjecucion(TIPOS_DISTINTOS)
    return float(texto.replace(".", "").replace(",", "."))


def es_numero(texto):
    try:
        llano(texto)
    except ErrorEjecucion:
        return False
    return True


def enmascarar(texto):
    """A field's text under the mask; what is no number stays as it is."""
    return mascara(llano(texto)) if es_numero(texto) else texto


def redondo(valor):
    """A rounded amount: what is read back from a masked text."""
    return float(redondear(valor))


def val(texto):
    """The leading number of a text, with the point as its decimal mark."""
    hallado = re.match(r"[+-]?(\d+(\.\d*)?|\.\d+)", texto.replace(" ", ""))
    return float(hallado.group()) if hallado else 0.0


def dia_de(texto):
    """The day that a displayed text tells."""
    fecha = leer_fecha(a_guardada(texto))
    if fecha is None:
        raise ErrorEjecucion(TIPOS_DISTINTOS)
    return fecha


def anno_de(texto):
    """The year of a displayed date, empty where it is none."""
    fecha = leer_fecha(a_guardada(texto))
    return "" if fecha is None else str(fecha.year)


def mostrar(fecha):
    return a_vista(f"{fecha.year:04}{fecha:%m%d}")


def avanzar(texto, unidad, cuantos):
    """A displayed date some units later, as it is displayed."""
    fecha = sumar(dia_de(texto), unidad, cuantos)
    if fecha is None:
        raise ErrorEjecucion(LLAMADA_NO_VALIDA)
    return mostrar(fecha)


def mas_dias(texto, dias):
    try:
        return mostrar(dia_de(texto) + timedelta(days=int(dias)))
    except OverflowError:
        raise ErrorEjecucion(LLAMADA_NO_VALIDA) from None


def descuadra(calculado, total):
    """Whether a computed sum is more than a cent away from the total, by the mask."""
    return all(redondo(calculado + margen) != total for margen in (0, 0.01, -0.01))


def repartir(total, tasa):
    """Base and VAT of a total at one rate: they add up to it exactly."""
    base = mascara(total / TASAS[tasa])
    return base, mascara(total - llano(base))


def repartir_resto(resto, tasa):
    """Base and VAT of what the other rates leave."""
    base = mascara(resto / TASAS[tasa])
    return base, mascara(llano(base) * tasa / 100)


def limite_de_base(total, retenido, tasa):
    return numero(mascara((total + retenido) / TASAS[tasa]))


def limite_de_irpf(total, tipo):
    """The total and the withholding on it."""
    return numero(texto_de(total + numero(texto_de(redondo(total * tipo) / 100))))


def texto_de(valor):
    """A Double as text: 15 significant figures and a decimal comma."""
    return format(valor, ".15g").replace(".", ",")


def recibos(total, cuantos, primero, cadencia, fecha):
    """The receipts of a series as (date, amount): the last one takes the difference. Yields them one by
    one: what can't be worked out stops the series where it is."""
    parte = redondo(total / cuantos)
    n = 1
    while n <= cuantos:
        fecha = mas_dias(fecha, primero if n == 1 else cadencia)
        if n == cuantos:
            parte -= cuantos * parte - total
        yield fecha, mascara(parte)
        n += 1
