"""Judges what a "Grabar" did to the stored tables: each row that it changed was changed by this user, or told to him.

By the tables alone: what they held before the command and after it, what this user had loaded and what he made of it.
"""

import re

from dos_ordenes import FUERA
from dos_pagos import Pagos
from dos_traza import CARGA

PREGUNTA, DICHO, DE_LA_GUARDIA = 4, 48, "Sorvex"


class Usuario:
    """What a session knows: its rows as they were loaded, as they are, which it has taken away since, and what the
    guard has told it."""

    def __init__(self):
        self.cargado, self.trabajo, self.rejilla, self.foto, self.dicho = {}, {}, [], [], []
        self.quitado = set()


def juzgar(vistas, cuenta):
    """The findings, as (step, kind, text). Counts what is none, and the user may not expect all the same."""
    usuarios, antes, hallazgos = {}, vistas[0], []
    for n, vista in enumerate(vistas):
        if vista.sesion != FUERA:
            usuario = usuarios.setdefault(vista.sesion, Usuario())
            de_ahora = [aviso for aviso in vista.avisos if aviso[2] == DE_LA_GUARDIA]
            hallazgos += [(n, *hallazgo) for hallazgo in del_paso(usuario, antes, vista, de_ahora, cuenta)]
            seguir(usuario, vista, de_ahora)
        antes = vista
    return hallazgos


def seguir(usuario, vista, de_ahora):
    if CARGA in vista.sucesos:
        usuario.cargado, usuario.foto, usuario.dicho = vista.trabajo, vista.rejilla, []
        usuario.quitado = set()
        de_ahora = [aviso for aviso in de_ahora if aviso[0].startswith("No se ha")]
    else:
        usuario.quitado |= usuario.trabajo.keys() - vista.trabajo.keys()
    usuario.dicho += de_ahora
    usuario.trabajo, usuario.rejilla = vista.trabajo, vista.rejilla


def del_paso(usuario, antes, vista, de_ahora, cuenta):
    dijo_no = any(aviso[1] == PREGUNTA and aviso[3] == "no" for aviso in de_ahora)
    if sorted(antes.crudo, key=str) != sorted(vista.crudo, key=str) and (dijo_no or not vista.borra):
        yield "escribe", "ha cambiado lo almacenado con un no" if dijo_no else "ha cambiado lo almacenado sin grabar"
    if not vista.borra or dijo_no:
        return
    dicho = [texto for texto, *_ in usuario.dicho + de_ahora]
    if vista.sucesos[0] == CARGA:  # The dates just left were loaded without saving: nothing is this user's any more.
        usuario = Usuario()
    pagos = Pagos(usuario, vista.almacenado)
    final, fechados = pagos.final, pagos.fechados
    cuenta["pagos a otra de igual número"] += pagos.a_otra
    for clave in sorted(antes.almacenado.keys() | vista.almacenado.keys()):
        que = de_la_fila(antes.almacenado.get(clave), vista.almacenado.get(clave), usuario.cargado.get(clave),
                         final.get(clave), clave in fechados, clave in usuario.quitado)
        if que and not nombra(dicho, clave):
            yield que, f"{que}: {clave} {antes.almacenado.get(clave)} -> {vista.almacenado.get(clave)}"
    if not vista.errores:
        for clave in sorted(usuario.cargado.keys() | final.keys()):
            if perdido(clave, usuario.cargado.get(clave), final.get(clave), antes, vista) and not nombra(dicho, clave):
                yield "sin grabar", (f"sin grabar: {clave} {usuario.cargado.get(clave)} -> {final.get(clave)}, quedó "
                                     f"{vista.almacenado.get(clave)}")


def de_la_fila(era, es, cargada, final, fechada, quitada):
    """What happened to a stored row that this user didn't do himself; None for nothing. One that he took away and made
    anew is his."""
    if era == es:
        return None
    if es is None:
        return None if cargada and not final and era == cargada else "borrada"
    if era is None:
        return None if final and (not cargada or quitada) else "vuelta"
    for columna, valor in es.items():
        if valor == era[columna] or (columna == "Fechapago" and fechada):
            continue
        if not (cargada and final and era[columna] == cargada[columna] and valor == final[columna]):
            return "cambiada"
    return None


def perdido(clave, cargada, final, antes, vista):
    """Whether something that the user did isn't in the stored tables. An entry of the till that was gone can't be."""
    if cargada == final or (clave[0] == "CajaPagos" and clave not in antes.almacenado):
        return False
    queda = vista.almacenado.get(clave)
    if not final or not queda:
        return bool(final) != bool(queda)
    return any(queda[columna] != valor for columna, valor in final.items()
               if columna != "Fechapago" and (not cargada or cargada[columna] != valor))


def moment_iso(dia, mes, anio, hora):
    """A moment as messages tell it, as the tables hold it."""
    return f"{anio}-{mes}-{dia} {(hora or '0:00:00').rjust(8, '0')}"


def del_concepto(codigo):
    """How messages call a concept: by its description and its code, or by its code alone."""
    return rf"(?:de [^()\n]* \({codigo}\)|del concepto {codigo}(?!\w))"


def nombra(textos, clave):
    """Whether one of the messages names the invoice, forecast or cash entry that a row belongs to; a number is the same
    in small letters, as its rows are told by any of them."""
    tabla = clave[0]
    if tabla == "ProvPrevisionPagos":
        buscado = rf"previsión {del_concepto(clave[1])}"
    elif tabla == "CajaPagos":
        dicho = {moment_iso(*partes) for texto in textos
                 for partes in re.findall(rf"apunte de caja de (\d\d)/(\d\d)/(\d{{4}})(?: (\d+:\d\d:\d\d))? "
                                          + del_concepto(clave[3]), texto)}
        return clave[2] in dicho
    else:
        buscado = rf"factura {re.escape(clave[2].strip(' '))} de {clave[3]} {del_concepto(clave[1])}"
    return any(re.search(buscado, texto, re.I) for texto in textos)
