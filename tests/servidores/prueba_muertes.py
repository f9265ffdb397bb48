#!/usr/bin/env python3
"""A server is killed at each part of a "Grabar", and comes back: the stored tables are wholly as
before or wholly as after.

With --guion the runner; without servers in the environment it exits with 77."""

import argparse
import subprocess
import sys

from corte import Corte
from en_cada_servidor import en_cada_servidor
from negocio_a_grabar import PAGAR, TABLAS, Fallo
from servidores import Servidor

MUERTES = 8
ESQUEMA = "muertes"


class Prueba:
    def __init__(self, guion: str, servidor: Servidor) -> None:
        self.guion = guion
        self.servidor = servidor

    def correr(self, lineas: list[str], corte: Corte) -> str:
        texto = self.servidor.texto.replace(f"Port={self.servidor.puerto}", f"Port={corte.puerto}")
        hecho = subprocess.run([self.guion, "--esquema", ESQUEMA, "--datos", texto, "-"],
                               input="\n".join(lineas) + "\n", capture_output=True, text=True,
                               check=False, timeout=180)
        if hecho.returncode != 0:
            raise Fallo(f"estado {hecho.returncode}: {hecho.stderr}{hecho.stdout}")
        return hecho.stdout

    def filas(self) -> list[str]:
        """Those of the schema, which is dropped."""
        filas = []
        for tabla, columnas in TABLAS.items():
            filas += self.servidor.preguntar(f"SELECT {columnas} FROM {ESQUEMA}.{tabla} ORDER BY "
                                             f"{columnas}")
        self.servidor.quitar(ESQUEMA)
        return filas

    def contar(self, lineas: list[str]) -> tuple[int, list[str]]:
        corte = Corte(self.servidor.puerto)
        self.correr(lineas, corte)
        corte.terminar()
        return corte.mensajes, self.filas()

    def jugar(self) -> int:
        hasta, antes = self.contar(PAGAR)
        total, despues = self.contar([*PAGAR, "pulsar BotonAceptar"])
        if antes == despues:
            raise Fallo("grabar no cambia nada")
        vistas = []
        for i in range(MUERTES):
            # A load doesn't always take the same number of messages.
            tras = hasta + 5 + (total - hasta - 5) * i // MUERTES
            corte = Corte(self.servidor.puerto, tras, llega=i % 2 == 1)
            corte.al_cortar = self.servidor.matar
            try:
                dicho = self.correr([*PAGAR, "pulsar BotonAceptar"], corte)
            except Fallo as fallo:
                # The load took more messages than before, and it was that which was cut.
                if "no está cargada" not in str(fallo):
                    raise
                dicho = str(fallo)
            corte.terminar()
            self.servidor.matar()  # where it did with fewer messages
            self.servidor.empezar()
            filas = self.filas()
            if filas not in (antes, despues):
                raise Fallo(f"muerte en {tras}: ni como antes ni como después:\n" + "\n".join(filas))
            if "error -2147467259" not in dicho and filas == antes:
                raise Fallo(f"muerte en {tras}: no se ha dicho nada: {dicho}")
            vistas.append("antes" if filas == antes else "después")
        if "antes" not in vistas:
            raise Fallo(f"ha quedado {vistas}")
        return len(vistas)


def probar(opciones: argparse.Namespace, servidor: Servidor) -> str:
    return f"{Prueba(opciones.guion, servidor).jugar()} muertes, siempre todo o nada"


def main() -> int:
    partes = argparse.ArgumentParser(description=__doc__)
    partes.add_argument("--guion", required=True)
    return en_cada_servidor(partes, probar, duraderos=True)


if __name__ == "__main__":
    sys.exit(main())
