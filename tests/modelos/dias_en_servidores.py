#!/usr/bin/env python3
"""Plays random days of users over awkward stored rows, with the tables on the embedded engine and on the servers that
the environment tells of (TESVARA_POSTGRESQL, TESVARA_MARIADB), and tells what is different: seen, said, worked on or
stored.

    dias_en_servidores.py --guion PATH [--semilla N] [--semillas M] [--sin letras,...] [--guardar FOLDER] [--seguir K]
                          [--reducir] [--modelos lista,alta,caja]

With --modelos the days are those of jugar.py, each server held to what the model foretells. Day k has seed N + k.
Exit status: 0 no difference, 1 one at least, 77 no server.
"""

import argparse
import os
import random
import re
import subprocess
import sys
import time
from collections import Counter
from pathlib import Path

import jugar
from dos_ordenes import FUERA, Inventor
from servidores_filas import CLAVES, RAREZAS, VENCEN, Filas

MOTORES = ("POSTGRESQL", "MARIADB")
# Left out of the model's days: what a column of a server can't hold, or holds otherwise; the panel's known differences.
FUERA_DE_MODELOS = "anchos momentos saltos relleno comilla_tras_elegir"
DIAS_DE_MODELOS = {"lista": (jugar.RAREZAS, jugar.DE_LISTA),
                   "alta": (jugar.RAREZAS | jugar.RAREZAS_DE_ENTRADA, jugar.CON_ENTRADAS),
                   "caja": (jugar.RAREZAS | jugar.RAREZAS_DE_ENTRADA | jugar.RAREZAS_DE_CAJA, jugar.CON_CAJA)}
DESDE_DIAS = ["01/03/2005", "16/03/2005", "01/04/2005", "28/02/2005", "01/01/2005", "31/12/2004", "31/03/2005"]
HASTA_DIAS = ["31/03/2005", "15/04/2005", "30/04/2005", "10/03/2005", "31/12/2005", "01/01/2006", "28/02/2005"]
DE_TRABAJO = ["TempProvFacturas", "TempProvBasesIva", "TempProvVencimientos", "TempProvPrevisionPagos", "TempCajaPagos"]
DEL_MOTOR = re.compile(r" \((SQLite|PostgreSQL|MariaDB) [\w-]+: .*\)")  # an engine's own words about a failure


class Dia(Inventor):
    """What is played of one seed, as (session, command) in `lineas`; what is looked at comes with it."""

    def __init__(self, semilla, sin):
        super().__init__(semilla)
        azar = self.azar = random.Random(semilla)
        self.sesiones = [1, 2]
        self.con = [r for r, (veces, _) in RAREZAS.items() if (azar.randrange(100) < veces) and r not in sin]
        self.filas = Filas(azar, self.con)
        self.guardia = azar.randrange(2) == 0
        self.lineas = []
        self._dar([(FUERA, ["datos " + linea for linea in self.filas.negocio()])])
        self._dar([(sesion, self.entrada(sesion)) for sesion in self.sesiones])
        pasos = [(self.pagar, 14), (self.pagar_en_parte, 6), (self.borrar, 7), (self.entrar, 7), (self.de_caja, 4),
                 (self.automatica, 3), (self.grabar, 20), (self.cancelar, 6), (self.rango, 14), (self.cerrar, 4),
                 (self.fuera, 6), (self.ordenar, 4)]
        for _ in range(azar.randint(5, 22)):
            self._dar(azar.choices([p for p, _ in pasos], [v for _, v in pasos])[0](azar.choice(self.sesiones)))
        for sesion in self.sesiones:
            self._dar(self.grabar(sesion))

    def _dar(self, pasos):
        for sesion, ordenes in pasos:
            self.lineas += [(sesion, orden) for orden in ordenes if orden != "guardia" or self.guardia]
            if sesion != FUERA:
                self.lineas += [(sesion, mirada) for mirada in ("avisos", "rejilla MSFPagos", "ver LblPendiente",
                                                                "ver TxtTotal", "omitidos", "borrados")]
                self.lineas += [(sesion, f"consulta local SELECT * FROM {tabla} ORDER BY rowid") for tabla in DE_TRABAJO]
            # No order of texts is one to all engines: that of the key, and then, when they are compared, of the lines.
            self.lineas += [(sesion, f"consulta datos SELECT * FROM {tabla} ORDER BY {clave.replace(' ', ', ')}")
                            for tabla, clave in CLAVES.items()]

    # What the orders of two users have, with other numbers and ranges.

    def _cabeza(self):
        fecha = self.azar.choice(VENCEN)
        return [f'teclear TxtConcepto "{self.azar.choice(["400", "401", "402", "7"])}"',
                f'teclear TxtFFra "{fecha[6:]}/{fecha[4:6]}/{fecha[:4]}"']

    def _numero(self):
        return f'teclear TxtNFra "{self.filas.como(self.filas.numero())}"'

    def fila(self):
        return self.azar.choice([1, 1, 2, 2, 3, 4, 5, 6, 8, 11])

    def rango(self, sesion):
        cambios = [f'teclear TxtFPrevisionD "{self.azar.choice(DESDE_DIAS)}"',
                   f'teclear TxtFPrevision "{self.azar.choice(HASTA_DIAS)}"']
        return [(sesion, [cambio]) for cambio in self.azar.choice([cambios, cambios, cambios[:1], cambios[1:]])]

    def ordenar(self, sesion):
        return [(sesion, ["pulsar " + self.azar.choice(["OptFecha", "OptConcepto"])])]

    def fuera(self, _):
        return [(FUERA, ["datos " + linea for linea in self.filas.ajena()])]


def textos():
    """The connection texts by engine, the embedded one first."""
    return {"SQLITE": None} | {motor: os.environ[f"TESVARA_{motor}"] for motor in MOTORES
                               if os.environ.get(f"TESVARA_{motor}")}


def correr(guion, datos, lineas):
    orden = [guion, *(["--datos", datos] if datos else []), "-"]
    return subprocess.run(orden, input="\n".join(lineas) + "\n", capture_output=True, text=True, check=False)


def guion_de(lineas):
    """The scenario, each line after a mark by which what it prints is found."""
    escrito = []
    for n, (sesion, orden) in enumerate(lineas):
        escrito += [f"consulta local SELECT '@@{n}'", f"sesion {sesion} {orden}"]
    return escrito


def jugar_dia(guion, datos, lineas):
    """What each command printed, as lists by its place; the last one with how the run ended."""
    hecho = correr(guion, datos, guion_de(lineas))
    trozos, marcada = [[]], False
    for linea in hecho.stdout.splitlines():
        if linea.startswith("@@"):
            trozos.append([])
            marcada = True
        elif marcada:  # The count of rows of the mark.
            marcada = False
        else:
            trozos[-1].append(DEL_MOTOR.sub("", re.sub(r"^\d> ", "", linea)))
    roto = None
    if hecho.returncode:
        hallado = re.match(r"línea (\d+): (.*)", hecho.stderr, re.S)
        roto = ((int(hallado[1]) - 1) // 2, hallado[2].strip()) if hallado else (len(trozos) - 2, hecho.stderr.strip())
    return trozos[1:], roto


def jugable(guion, lineas):
    """The lines without those that the day can't have: on screens that aren't there."""
    lineas = list(lineas)
    for _ in range(200):
        trozos, roto = jugar_dia(guion, None, lineas)
        if not roto:
            return lineas, trozos
        lugar, dicho = roto
        if not re.search(r"no está cargada", dicho):
            raise RuntimeError(f"{lineas[lugar]}: {dicho}")
        del lineas[lugar]
    return None, None


def comparar(lineas, unos, otros, roto):
    """The first difference in what is printed as (place, kind, text), or None; that of an order alone counts last."""
    solo_orden = None
    for n, (sesion, orden) in enumerate(lineas):
        uno, otro = unos[n], otros[n] if n < len(otros) else []
        if roto and roto[0] == n:
            otro = [*otro, "estado 2: " + roto[1]]
        if uno == otro or orden.startswith("consulta") and sorted(uno) == sorted(otro):
            continue
        dicho = f"línea {2 * n + 2}, sesión {sesion}: {orden}" + "".join(
            f"\n  SQLite {a}\n  otro   {b}" for a, b in parejas(uno, otro)[:4])
        clase = " ".join(orden.split(" ")[:2]) if not orden.startswith("consulta") else orden.split(" FROM ")[1].split(" ")[0]
        if desordenado(uno) != desordenado(otro):
            return n, clase, dicho
        solo_orden = solo_orden or (n, "orden " + clase, dicho)
    return solo_orden


def desordenado(dicho):
    """What is printed, rid of the order of its lines and of what a message enumerates."""
    return sorted(parte for linea in dicho for parte in re.split(r"; |[():·]|\\n", re.sub(r"^\d+: ", "", linea)))


def parejas(unos, otros):
    largo = max(len(unos), len(otros))
    unos, otros = (lado + ["(nada)"] * (largo - len(lado)) for lado in (unos, otros))
    return [(a, b) for a, b in zip(unos, otros) if a != b]


def reducir(guion, datos, lineas, clase):
    """Takes away commands, largest runs first, while a difference of that kind remains."""
    def falla(menos):
        try:
            menos, unos = jugable(guion, menos)
        except (RuntimeError, IndexError):
            return None
        hallado = menos and comparar(menos, unos, *jugar_dia(guion, datos, menos))
        return menos if hallado and hallado[1] == clase else None

    trozo = 64
    while trozo:
        n = 0
        while n < len(lineas):
            menos = falla(lineas[:n] + lineas[n + trozo:])
            if menos and len(menos) < len(lineas):
                lineas = menos
            else:
                n += trozo
        trozo //= 2
    return lineas


def dia_propio(opciones, semilla, cuenta):
    """The differences of one seed, as texts."""
    dia, dichos = Dia(semilla, opciones.sin), []
    lineas, unos = jugable(opciones.guion, dia.lineas)
    if lineas is None:
        cuenta["días sin pantalla"] += 1
        return []
    cuenta["órdenes"] += sum(not orden.startswith(("consulta", "rejilla", "ver")) for _, orden in lineas)
    cuenta["grabaciones"] += sum(orden == "pulsar BotonAceptar" for _, orden in lineas)
    cuenta["errores"] += sum(trozo[-1:] != [] and trozo[-1].startswith("error ") for trozo in unos)
    cuenta["avisos"] += sum(linea.startswith("aviso ") for trozo in unos for linea in trozo)
    for motor, datos in textos().items():
        hallado = datos and comparar(lineas, unos, *jugar_dia(opciones.guion, datos, lineas))
        if not hallado or opciones.sin_orden and hallado[1].startswith("orden "):
            continue
        suyas = lineas
        if opciones.reducir:
            suyas = reducir(opciones.guion, datos, lineas, hallado[1])
            suyas, suyos = jugable(opciones.guion, suyas)
            hallado = comparar(suyas, suyos, *jugar_dia(opciones.guion, datos, suyas))
        fichero = guardar(opciones, f"dia_{semilla}_{motor.lower()}.guion", guion_de(suyas))
        cuenta[f"{motor} {hallado[1]}"] += 1
        dichos.append(f"Día {semilla} en {motor} ({fichero}; {' '.join(dia.con)}"
                      f"{', guardia' if dia.guardia else ''}), {hallado[2]}")
    return dichos


def guardar(opciones, nombre, lineas):
    fichero = Path(opciones.guardar) / nombre
    fichero.parent.mkdir(parents=True, exist_ok=True)
    fichero.write_text("\n".join(lineas) + "\n", encoding="utf-8")
    return fichero


def para_todos(linea):
    """A line of the model's days without what only the embedded engine knows."""
    return re.sub(r"datetime\((\w+)\)", r"\1", linea.replace(" COLLATE BINARY", "")) if linea.startswith(
        ("datos ", "consulta datos ")) else linea


def dia_de_modelo(opciones, clase, semilla, cuenta):
    """The differences between a model's day and each engine."""
    rarezas, clases = DIAS_DE_MODELOS[clase]
    fuera = set(FUERA_DE_MODELOS.split()) | opciones.sin
    dia, dichos = jugar.Dia(semilla, [r for r in rarezas if r not in fuera], clases), []
    lineas = [para_todos(linea) for linea in dia.jornada.lineas]
    esperado = [[] for _ in lineas]
    for n, texto in dia.jornada.esperado:
        esperado[n - 1].append(texto)
    marcadas = [(1, linea) for linea in lineas]
    for motor, datos in textos().items():
        trozos, roto = jugar_dia(opciones.guion, datos, marcadas)
        trozos = [[jugar.comparable(linea) for linea in trozo] for trozo in trozos]
        for trozo, previsto in zip(trozos, esperado):
            trozo[:] = [previsto[n] if n < len(previsto) and linea in getattr(previsto[n], "otras", ()) else linea
                        for n, linea in enumerate(trozo)]
        hallado = comparar(marcadas, esperado, trozos, roto)
        cuenta["órdenes"] += len(lineas)
        if hallado and not (opciones.sin_orden and hallado[1].startswith("orden ")):
            fichero = guardar(opciones, f"modelo_{clase}_{semilla}_{motor.lower()}.guion", guion_de(marcadas))
            cuenta[f"{motor} {clase} {hallado[1]}"] += 1
            dichos.append(f"Día {semilla} de {clase} en {motor} ({fichero}), " + hallado[2].replace("SQLite", "modelo"))
    return dichos


def main():
    argumentos = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    argumentos.add_argument("--guion", required=True, help="the scenario runner")
    argumentos.add_argument("--semilla", type=int, default=1)
    argumentos.add_argument("--semillas", type=int, default=100, help="how many days")
    argumentos.add_argument("--sin", default="", help="oddities left out of the days, of "
                            + ", ".join(f"{r} ({que})" for r, (_, que) in RAREZAS.items()).replace("%", "%%"))
    argumentos.add_argument("--sin-orden", action="store_true", help="pass over what differs by its order alone")
    argumentos.add_argument("--modelos", default="", help="play the model's days instead: " + ", ".join(DIAS_DE_MODELOS))
    argumentos.add_argument("--guardar", default=".", help="where the scenario of a difference goes")
    argumentos.add_argument("--seguir", type=int, default=1, help="days with differences after which to stop")
    argumentos.add_argument("--reducir", action="store_true", help="make the scenario of a difference small")
    opciones = argumentos.parse_args()
    opciones.sin = set(opciones.sin.split(","))
    if len(textos()) == 1:
        print("Sin servidores: TESVARA_POSTGRESQL y TESVARA_MARIADB no dicen ninguno")
        return 77
    comienzo, cuenta, malos, jugados = time.monotonic(), Counter(), 0, 0
    clases = [clase for clase in opciones.modelos.split(",") if clase]
    for semilla in range(opciones.semilla, opciones.semilla + opciones.semillas):
        if clases:
            dichos = [dicho for clase in clases for dicho in dia_de_modelo(opciones, clase, semilla, cuenta)]
        else:
            dichos = dia_propio(opciones, semilla, cuenta)
        for dicho in dichos:
            print(dicho, flush=True)
        jugados, malos = jugados + 1, malos + bool(dichos)
        if malos >= opciones.seguir:
            break
    print(f"{jugados} días desde la semilla {opciones.semilla} en {', '.join(textos())}, {malos} con diferencias; "
          + ", ".join(f"{cuantos} {que}" for que, cuantos in sorted(cuenta.items()))
          + f"; {time.monotonic() - comienzo:.0f} s")
    return 1 if malos else 0


if __name__ == "__main__":
    sys.exit(main())
