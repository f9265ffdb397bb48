#!/usr/bin/env python3
"""Runs a command with a private PostgreSQL and a private MariaDB to be tried on: their connection
texts are in its environment, as TESVARA_POSTGRESQL and TESVARA_MARIADB."""

import os
import signal
import subprocess
import sys

from servidores import MariaDB, PostgreSQL, en_marcha


def main() -> int:
    if len(sys.argv) < 2:
        print("uso: con_servidores.py ORDEN...", file=sys.stderr)
        return 2
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(143))
    with en_marcha(PostgreSQL, MariaDB) as servidores:
        textos = {f"TESVARA_{servidor.motor.upper()}": servidor.texto for servidor in servidores}
        return subprocess.run(sys.argv[1:], env={**os.environ, **textos}, check=False).returncode


if __name__ == "__main__":
    sys.exit(main())
