#!/usr/bin/env python3
"""Plays random orders of two or three users over one stored database, each with the suite's guard, and judges each
"Grabar": what it changed of what others see was changed by that user, or told to him.

    dos_usuarios.py --guion PATH [--semilla N] [--ordenes M] [--guardar FOLDER] [--reducir] [--seguir K]
                    [--sin-guardia]

Order k has seed N + k, whatever the number of orders. Exit status: 0 all explained, 1 one finding at least.
"""

import argparse
import sys
import time
from collections import Counter
from pathlib import Path

from dos_juicio import juzgar
from dos_ordenes import Orden, inventar
from dos_traza import correr, lineas_de


def reducir(guion, orden, clase):
    """Takes away steps, largest runs first, while a finding of that kind remains; never one that puts the guard."""
    trozo = 16
    while trozo:
        n = 0
        while n < len(orden.pasos):
            quedan = [paso for paso in orden.pasos[n:n + trozo] if "guardia" in paso[1]]
            menos = Orden(orden.semilla, [(s, list(o)) for s, o in orden.pasos[:n] + quedan + orden.pasos[n + trozo:]])
            if len(menos.pasos) < len(orden.pasos) and halla(guion, menos, clase):
                orden = menos
            else:
                n += trozo
        trozo //= 2
    return orden


def halla(guion, orden, clase):
    try:
        return any(hallazgo[1] == clase for hallazgo in juzgar(correr(guion, orden), Counter()))
    except (RuntimeError, IndexError):  # An order that has lost its sense is no smaller order.
        return False


def contar(vistas, cuenta):
    cuenta["pasos"] += len(vistas)
    for vista in vistas:
        cuenta["grabaciones"] += vista.borra
        for _, flags, titulo, respuesta in vista.avisos:
            if titulo == "Sorvex":
                cuenta[f"preguntas con {respuesta}" if flags == 4 else "dichos"] += 1


def main():
    argumentos = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    argumentos.add_argument("--guion", required=True, help="the scenario runner")
    argumentos.add_argument("--semilla", type=int, default=1)
    argumentos.add_argument("--ordenes", type=int, default=100)
    argumentos.add_argument("--guardar", default=".", help="where the scenario of a finding goes")
    argumentos.add_argument("--seguir", type=int, default=1, help="orders with findings after which to stop")
    argumentos.add_argument("--sin-guardia", action="store_true", help="leave the guard out: there must be findings")
    argumentos.add_argument("--reducir", action="store_true", help="make the scenario of a finding small")
    opciones = argumentos.parse_args()
    comienzo, cuenta, malas = time.monotonic(), Counter(), 0
    for semilla in range(opciones.semilla, opciones.semilla + opciones.ordenes):
        orden = inventar(semilla)
        if opciones.sin_guardia:
            orden.pasos = [(s, [linea for linea in ordenes if linea != "guardia"]) for s, ordenes in orden.pasos]
        vistas = correr(opciones.guion, orden)
        contar(vistas, cuenta)
        hallazgos = juzgar(vistas, cuenta)
        if not hallazgos:
            continue
        malas += 1
        if opciones.reducir:
            orden = reducir(opciones.guion, orden, hallazgos[0][1])
            hallazgos = juzgar(correr(opciones.guion, orden), Counter())
        fichero = Path(opciones.guardar) / f"orden_{semilla}.guion"
        fichero.parent.mkdir(parents=True, exist_ok=True)
        fichero.write_text("\n".join(lineas_de(orden)[0]) + "\n", encoding="utf-8")
        for paso, _, texto in hallazgos:
            print(f"Orden {semilla} ({fichero}), paso {paso}: sesión {orden.pasos[paso][0]}, "
                  f"{orden.pasos[paso][1]}\n  {texto}", flush=True)
        if malas >= opciones.seguir:
            break
    print(f"{opciones.ordenes} órdenes desde la semilla {opciones.semilla}, {malas} con hallazgos; "
          + ", ".join(f"{cuantos} {que}" for que, cuantos in sorted(cuenta.items()))
          + f"; {time.monotonic() - comienzo:.0f} s")
    return 1 if malas else 0


if __name__ == "__main__":
    sys.exit(main())
