#!/usr/bin/env python3
"""Two users save one range at the same time on one server: who comes second waits, and what stands
there in the end is what one of them has saved.

With --guion the runner. The servers are its own; without those of the environment, which tell that
there are any to be had, it exits with 77."""

import argparse
import os
import sys

from dos_a_la_vez import DosALaVez
from programa_en_servidor import Programa
from negocio_a_grabar import Fallo
from servidores import MariaDB, PostgreSQL, en_marcha


def main() -> int:
    partes = argparse.ArgumentParser(description=__doc__)
    partes.add_argument("--guion", required=True)
    opciones = partes.parse_args()
    if not os.environ.get("TESVARA_POSTGRESQL"):
        print("no hay servidor")
        return 77
    mal = 0
    with en_marcha(PostgreSQL, MariaDB) as servidores:
        for servidor in servidores:
            try:
                dos = DosALaVez(Programa(opciones.guion), [servidor.texto] * 2, [servidor] * 2)
                vistas = dos.jugar((0, 0.5, 1))
                if dos.juntas == dos.cuantas:
                    raise Fallo("nadie espera a nadie")
                print(f"{servidor.motor}: {vistas}")
            except Fallo as fallo:
                print(f"{servidor.motor}: {fallo}")
                mal = 1
    return mal


if __name__ == "__main__":
    sys.exit(main())
