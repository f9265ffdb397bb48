"""The runner on a server, and what it has stored there."""

import subprocess

from cluster import Nodo
from negocio_a_grabar import TABLAS, Fallo
from servidores import Servidor

CONSULTAS = [f"SELECT {columnas} FROM {{}}.{tabla} ORDER BY {columnas}"
             for tabla, columnas in TABLAS.items()]


def filas_en(servidor: Servidor, esquema: str) -> list[str]:
    """What is stored, as this node has it once it has all that the others have ended."""
    antes = "SET SESSION wsrep_sync_wait = 1; " if isinstance(servidor, Nodo) else ""
    return [fila for consulta in CONSULTAS
            for fila in servidor.preguntar(antes + consulta.format(esquema))]


class Programa:
    """The runner."""

    def __init__(self, guion: str) -> None:
        self.guion = guion

    def correr(self, texto: str, lineas: list[str], *opciones: str) -> str:
        hecho = subprocess.run([self.guion, *opciones, "--datos", texto, "-"],
                               input="\n".join(lineas) + "\n", capture_output=True, text=True,
                               check=False, timeout=180)
        if hecho.returncode != 0:
            raise Fallo(f"estado {hecho.returncode}: {hecho.stderr}{hecho.stdout}")
        return hecho.stdout
