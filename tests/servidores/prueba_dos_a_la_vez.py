#!/usr/bin/env python3
"""Two users save one range at the same time on one server: who comes second waits, and what stands
there in the end is what one of them has saved.

With --guion the runner; without servers in the environment it exits with 77."""

import argparse
import sys

from dos_a_la_vez import DosALaVez
from programa_en_servidor import Programa
from en_cada_servidor import en_cada_servidor
from negocio_a_grabar import Fallo
from servidores import Servidor


def probar(opciones: argparse.Namespace, servidor: Servidor) -> str:
    dos = DosALaVez(Programa(opciones.guion), [servidor.texto] * 2, [servidor] * 2)
    vistas = dos.jugar((0, 0.5, 1))
    if dos.juntas == dos.cuantas:
        raise Fallo("nadie espera a nadie")
    return str(vistas)


def main() -> int:
    partes = argparse.ArgumentParser(description=__doc__)
    partes.add_argument("--guion", required=True)
    return en_cada_servidor(partes, probar)


if __name__ == "__main__":
    sys.exit(main())
