#!/usr/bin/env python3
"""Plays random days against the scenario runner and tells the first difference.

    jugar.py --guion PATH [--alta | --caja | --papel] [--semilla N] [--dias M] [--sin editor,devolver,...] [--guardar FOLDER]

With --alta the days mix the work on the list with entries in the panel, with --caja also with the cash
entries that entries take and with automatic invoices. With --papel they print the list, on paper or in the preview.
Day k has seed N + k, whatever the number of days. Exit status: 0 no difference, 1 one at least.
"""

import argparse
import random
import re
import subprocess
import sys
from dataclasses import replace
from pathlib import Path

from alta_campos import MIRADOS
from alta_jornada import JornadaConPanel
from alta_negocio import InventorDeEntradas
from alta_reparos import RAREZAS_DE_ENTRADA
from alta_usuario import UsuarioConPanel
from caja_jornada import JornadaDeCaja
from caja_miradas import que_se_mira
from caja_negocio import InventorDeCaja
from caja_reparos import RAREZAS_DE_CAJA
from caja_usuario import UsuarioDeCaja
from jornada import Jornada
from negocio import Inventor
from papel_jornada import JornadaDePapel, que_se_mira_en_papel
from papel_negocio import RAREZAS_DE_PAPEL, InventorDePapel
from papel_usuario import UsuarioDePapel
from reparos import RAREZAS
from usuario import Usuario

POR_PROCESO = 10
DE_LISTA = (Inventor, Jornada, Usuario)
CON_ENTRADAS = (InventorDeEntradas, JornadaConPanel, UsuarioConPanel)
CON_CAJA = (InventorDeCaja, JornadaDeCaja, UsuarioDeCaja)
DE_PAPEL = (InventorDePapel, JornadaDePapel, UsuarioDePapel)


class Dia:
    """Seed, business and steps of one day: played again with less of them, it can be made smaller."""

    def __init__(self, semilla, con, clases=DE_LISTA):
        inventor, self.clase_de_jornada, usuario = clases
        azar = random.Random(semilla)
        self.semilla = semilla
        self.con = con = set(con)
        if azar.randrange(6):
            con.discard("comillas")
        self.negocio = inventor(azar, con).negocio()
        jornada = self.clase_de_jornada(self.negocio, con)
        usuario, self.pasos = usuario(azar, con, jornada), [("rejilla",), ("totales",)]
        for paso in self.pasos:
            jornada.dar(paso)
        for _ in range(azar.randint(*usuario.PASOS)):
            paso = usuario.paso()
            for otro in [paso, *usuario.miradas()]:
                self.pasos.append(otro)
                jornada.dar(otro)
        self.pasos.append(("fin",))
        jornada.dar(("fin",))
        self.jornada = jornada

    def con_menos(self, filas, pasos):
        """The same day with these rows and steps only."""
        otro = object.__new__(Dia)
        otro.semilla, otro.pasos, otro.con = self.semilla, pasos, self.con
        otro.negocio = replace(self.negocio, filas=filas)
        otro.clase_de_jornada = self.clase_de_jornada
        otro.jornada = self.clase_de_jornada(otro.negocio, self.con)
        for paso in pasos:
            otro.jornada.dar(paso)
        return otro


def comparable(linea):
    """What of a printed line is foretold: of an error its number, of a widget what is compared."""
    if linea.startswith("error "):
        return " ".join(linea.split(" ")[:2])
    visto = re.match(r'(LblPendiente|TxtTotal) (Caption|Text)="([^"]*)".* Visible=([01])', linea)
    if visto:
        return '{} {}="{}" Visible={}'.format(*visto.groups())
    nombre = linea.split(" ")[0]
    miradas = MIRADOS.get(nombre) or que_se_mira(nombre) or que_se_mira_en_papel(nombre)
    if not miradas:
        return linea
    propiedades = re.findall(r'([A-Z]\w+)=("(?:[^"\\]|\\.)*"|-?\d+)', linea)
    return " ".join([nombre] + [f"{p}={valor}" for p, valor in propiedades if p in miradas])


def correr(guion, lineas):
    hecho = subprocess.run([guion, "-"], input="\n".join(lineas) + "\n", capture_output=True, text=True, check=False)
    return [comparable(linea) for linea in hecho.stdout.splitlines()], hecho.stderr.strip(), hecho.returncode


def comparar(guion, dias):
    """The first difference of some days in one run, as (day, text), or None."""
    lineas, esperado = [], []
    for dia in dias:
        esperado += [(dia, n, texto) for n, texto in dia.jornada.esperado]
        lineas += dia.jornada.lineas
    obtenido, errores, estado = correr(guion, lineas)
    for n, (dia, linea, texto) in enumerate(esperado):
        dado = obtenido[n] if n < len(obtenido) else "nada " + errores
        if dado != texto and dado not in getattr(texto, "otras", ()):
            orden = dia.jornada.lineas[linea - 1]
            return dia, f"línea {linea}: {orden}\n  esperado {texto}\n  obtenido {dado}"
    if len(obtenido) > len(esperado):
        return dias[-1], "sobra " + obtenido[len(esperado)]
    return (dias[-1], f"estado {estado} {errores}") if estado else None


def clase_de(hallado):
    """What kind of difference it is: the words of the line that was looked at."""
    return re.findall(r"^línea \d+: (\S+ \S+)|^(\S+)", hallado[1])[0]


def reducir(guion, dia):
    """Takes away steps and rows one by one, largest runs first, while a difference remains."""
    def falla(filas, pasos):
        try:
            otro = dia.con_menos(filas, pasos)
        except Exception:  # A day that has lost its sense is no smaller day.
            return None
        hallado = comparar(guion, [otro])
        return otro if hallado and clase_de(hallado) == clase else None

    clase = clase_de(comparar(guion, [dia]))

    for cual in ("pasos", "filas", "pasos", "filas"):
        trozo = 16
        while trozo:
            lista = dia.pasos if cual == "pasos" else dia.negocio.filas
            n = 0
            while n < len(lista):
                menos = lista[:n] + lista[n + trozo:]
                otro = falla(dia.negocio.filas, menos) if cual == "pasos" else falla(menos, dia.pasos)
                if otro:
                    dia, lista = otro, menos
                else:
                    n += trozo
            trozo //= 2
    return dia


def main():
    argumentos = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    argumentos.add_argument("--guion", required=True, help="the scenario runner")
    argumentos.add_argument("--alta", action="store_true", help="days with entries in the panel")
    argumentos.add_argument("--caja", action="store_true", help="days with cash entries, settled in entries and by themselves")
    argumentos.add_argument("--papel", action="store_true", help="days with reports of the list, on paper and on the screen")
    argumentos.add_argument("--semilla", type=int, default=1)
    argumentos.add_argument("--dias", type=int, default=100)
    argumentos.add_argument("--sin", action="append", default=[], help="oddities left out of the days, of " + ", ".join(f"{r} ({t})" for r, t in (RAREZAS | RAREZAS_DE_ENTRADA | RAREZAS_DE_CAJA | RAREZAS_DE_PAPEL).items()))
    argumentos.add_argument("--guardar", default=".", help="where the scenario of a difference goes")
    argumentos.add_argument("--seguir", type=int, default=1, help="differences after which to stop")
    argumentos.add_argument("--reducir", action="store_true", help="make the scenario of a difference small")
    opciones = argumentos.parse_args()
    rarezas, clases = RAREZAS, DE_LISTA
    por_proceso = POR_PROCESO
    if opciones.papel:
        rarezas = RAREZAS | RAREZAS_DE_PAPEL
        clases, por_proceso = DE_PAPEL, 1  # Printers and session stay with a process.
    elif opciones.caja:
        rarezas, clases = RAREZAS | RAREZAS_DE_ENTRADA | RAREZAS_DE_CAJA, CON_CAJA
    elif opciones.alta:
        rarezas, clases = RAREZAS | RAREZAS_DE_ENTRADA, CON_ENTRADAS
    con = [rareza for rareza in rarezas if rareza not in ",".join(opciones.sin).split(",")]
    diferencias = 0
    for primera in range(opciones.semilla, opciones.semilla + opciones.dias, por_proceso):
        ultima = min(primera + por_proceso, opciones.semilla + opciones.dias)
        dias = [Dia(semilla, con, clases) for semilla in range(primera, ultima)]
        if not comparar(opciones.guion, dias):
            continue
        for dia in dias:
            hallado = comparar(opciones.guion, [dia])
            if not hallado:
                continue
            diferencias += 1
            if opciones.reducir:
                dia = reducir(opciones.guion, dia)
                hallado = comparar(opciones.guion, [dia])
            fichero = Path(opciones.guardar) / f"dia_{dia.semilla}.guion"
            fichero.parent.mkdir(parents=True, exist_ok=True)
            fichero.write_text("\n".join(dia.jornada.lineas) + "\n", encoding="utf-8")
            print(f"Día {dia.semilla} ({fichero}), {hallado[1]}", flush=True)
            if diferencias >= opciones.seguir:
                return 1
    print(f"{opciones.dias} días desde la semilla {opciones.semilla}, {diferencias} con diferencias")
    return 1 if diferencias else 0


if __name__ == "__main__":
    sys.exit(main())
