#!/usr/bin/env python3
"""Runs a command with a private PostgreSQL and a private MariaDB to be tried on: their connection
texts are in its environment, as TESVARA_POSTGRESQL and TESVARA_MARIADB. With --lentos before it,
those of a relay that adds 5 ms to each answer as well, as TESVARA_POSTGRESQL_LENTO and so on; the
servers then also keep what they are told to, as they would for somebody's business."""

import os
import signal
import subprocess
import sys

from retardo import Retardo
from servidores import MariaDB, PostgreSQL, en_marcha


def main() -> int:
    orden = sys.argv[1:]
    lentos = orden[:1] == ["--lentos"]
    if lentos:
        orden = orden[1:]
    if not orden:
        print("uso: con_servidores.py [--lentos] ORDEN...", file=sys.stderr)
        return 2
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(143))
    with en_marcha(PostgreSQL, MariaDB, duraderos=lentos) as servidores:
        textos = {}
        for servidor in servidores:
            nombre = f"TESVARA_{servidor.motor.upper()}"
            textos[nombre] = servidor.texto
            if lentos:
                retardo = Retardo(servidor.puerto)
                retardo.empezar()
                textos[nombre + "_LENTO"] = servidor.texto.replace(str(servidor.puerto),
                                                                   str(retardo.puerto))
        return subprocess.run(orden, env={**os.environ, **textos}, check=False).returncode


if __name__ == "__main__":
    sys.exit(main())
