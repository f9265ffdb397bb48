#!/usr/bin/env python3
"""The connection is cut at each part of the making of the tables, with the sample in them: they are
all there then, or they are made when one tries again.

With --programas the folder of the suite. The servers are its own; without those of the environment,
which tell that there are any to be had, it exits with 77."""

import argparse
import os
import subprocess
import sys
import tempfile
from pathlib import Path

from corte import Corte
from en_cada_servidor import en_cada_servidor
from negocio_a_grabar import TABLAS, Fallo
from servidores import MariaDB, Servidor

CORTES = 8
BASE = "creada"


class Prueba:
    def __init__(self, programas: Path, servidor: Servidor, carpeta: Path) -> None:
        self.programas = programas
        self.servidor = servidor
        self.carpeta = carpeta

    def abrir(self, puerto: int) -> subprocess.CompletedProcess:
        texto = self.servidor.texto.replace(f"Port={self.servidor.puerto}", f"Port={puerto}")
        base = "mysql" if isinstance(self.servidor, MariaDB) else "postgres"
        texto = texto.replace(f"Database={base}", f"Database={BASE}")
        return subprocess.run(
            [self.programas / "tesvara", "--carpeta", self.carpeta / "suite", "--captura",
             self.carpeta / "imagen", "--datos", texto, "--muestra"], capture_output=True, text=True,
            check=False, env={**os.environ, "QT_QPA_PLATFORM": "offscreen"}, timeout=120)

    def exigir(self, hecho: subprocess.CompletedProcess) -> None:
        if hecho.returncode != 0:
            raise Fallo(f"estado {hecho.returncode}: {hecho.stdout}{hecho.stderr}")

    def filas(self) -> list[str]:
        """How many there are in each table, and of the turn."""
        cliente = [BASE if parte == "postgres" else parte for parte in self.servidor.cliente()]
        if isinstance(self.servidor, MariaDB):
            cliente.append(BASE)
        sql = "".join(f"SELECT count(*) FROM {tabla};\n" for tabla in [*TABLAS, "SorvexTurno"])
        return subprocess.run(cliente, input=sql, capture_output=True, text=True,
                              check=True).stdout.split()

    def creada(self) -> tuple[list[str], int]:
        """All rows, and how many messages their making takes: the second opening only reads."""
        cuentas = []
        self.servidor.preguntar(f"CREATE DATABASE {BASE}")
        for _ in range(2):
            corte = Corte(self.servidor.puerto)
            self.exigir(self.abrir(corte.puerto))
            corte.terminar()
            cuentas.append(corte.mensajes)
        filas = self.filas()
        self.servidor.preguntar(f"DROP DATABASE {BASE}")
        return filas, cuentas[0] - cuentas[1]

    def cortar(self, tras: int, llega: bool, filas: list[str]) -> bool:
        self.servidor.preguntar(f"CREATE DATABASE {BASE}")
        corte = Corte(self.servidor.puerto, tras, llega)
        hecho = self.abrir(corte.puerto)
        corte.terminar()
        self.exigir(self.abrir(self.servidor.puerto))
        quedan = self.filas()
        self.servidor.preguntar(f"DROP DATABASE {BASE}")
        if quedan != filas:
            raise Fallo(f"corte en {tras}: {quedan} en lugar de {filas}")
        return hecho.returncode != 0

    def jugar(self) -> int:
        filas, mensajes = self.creada()
        fallidas = sum(self.cortar(10 + mensajes * i // CORTES, i % 2 == 1, filas)
                       for i in range(CORTES))
        if fallidas < CORTES // 2:
            raise Fallo(f"solo {fallidas} creaciones se cortan")
        return fallidas


def probar(opciones: argparse.Namespace, servidor: Servidor) -> str:
    with tempfile.TemporaryDirectory(prefix="tesvara-creacion-") as carpeta:
        fallidas = Prueba(opciones.programas, servidor, Path(carpeta)).jugar()
    return f"{fallidas} de {CORTES} creaciones se cortan, y se repiten"


def main() -> int:
    partes = argparse.ArgumentParser(description=__doc__)
    partes.add_argument("--programas", required=True, type=Path)
    return en_cada_servidor(partes, probar)


if __name__ == "__main__":
    sys.exit(main())
