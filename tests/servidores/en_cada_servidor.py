"""What is tried on a PostgreSQL and a MariaDB of its own each."""

import argparse
import os
from collections.abc import Callable

from negocio_a_grabar import Fallo
from servidores import MariaDB, PostgreSQL, Servidor, en_marcha


def en_cada_servidor(partes: argparse.ArgumentParser,
                     probar: Callable[[argparse.Namespace, Servidor], str],
                     duraderos: bool = False) -> int:
    """Says what `probar` says of each, and exits with 1 where one failed; with 77 without servers in
    the environment, which tell that there are any to be had."""
    opciones = partes.parse_args()
    if not os.environ.get("TESVARA_POSTGRESQL"):
        print("no hay servidor")
        return 77
    mal = 0
    with en_marcha(PostgreSQL, MariaDB, duraderos=duraderos) as servidores:
        for servidor in servidores:
            try:
                print(f"{servidor.motor}: {probar(opciones, servidor)}")
            except Fallo as fallo:
                print(f"{servidor.motor}: {fallo}")
                mal = 1
    return mal
