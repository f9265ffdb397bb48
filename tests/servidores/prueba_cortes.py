#!/usr/bin/env python3
"""The connection to a server is cut at each part of a "Grabar": the stored tables are wholly as
before or wholly as after, the user is told once, and the next "Grabar" goes on; with the suite's
guard before them too.

With --guion the runner; the servers are those of the environment. Exits with 77 without any."""

import argparse
import os
import re
import subprocess
import sys

from corte import Corte
from negocio_a_grabar import GRABAR, PAGAR, Fallo, Juicio

class Prueba:
    def __init__(self, guion: str, texto: str, pagar: list[str]) -> None:
        self.guion = guion
        self.texto = texto
        self.pagar = pagar
        self.puerto = int(re.search(r"Port=(\d+)", texto)[1])
        self.juicio = Juicio(lambda lineas: self.contar(lineas)[1], pagar)

    def correr(self, lineas: list[str], corte: Corte) -> list[str]:
        texto = self.texto.replace(f"Port={self.puerto}", f"Port={corte.puerto}")
        hecho = subprocess.run([self.guion, "--datos", texto, "-"], input="\n".join(lineas) + "\n",
                               capture_output=True, text=True, check=False, timeout=120)
        if hecho.returncode != 0:
            raise Fallo(f"estado {hecho.returncode}: {hecho.stderr}{hecho.stdout}")
        return hecho.stdout.splitlines()

    def contar(self, lineas: list[str]) -> tuple[int, list[str]]:
        corte = Corte(self.puerto)
        salida = self.correr(lineas, corte)
        corte.terminar()
        return corte.mensajes, salida

    def jugar(self) -> int:
        hasta, _ = self.contar(self.pagar)
        total, _ = self.contar([*self.pagar, GRABAR])
        vistas = []
        for llega in (False, True):
            for tras in range(hasta, total + 1, max(1, (total - hasta) // 14)):
                vistas.append(self.cortar(tras, llega))
        en_medio = [quedo for quedo in vistas if quedo != "fuera"]
        if set(en_medio) != {"antes", "después"} or len(en_medio) < 20:
            raise Fallo(f"ha quedado {vistas}")
        return len(en_medio)

    def cortar(self, tras: int, llega: bool) -> str:
        corte = Corte(self.puerto, tras, llega)
        try:
            salida = self.correr(self.juicio.lineas, corte)
        except Fallo as fallo:
            # What a scenario asks by itself ends it, and what it is asked after a load that was cut.
            if "Se ha perdido la conexión" in str(fallo) or "pregunta sin respuesta" in str(fallo):
                return "fuera"
            raise
        finally:
            corte.terminar()
        try:
            return self.juicio.juzgar(salida, corte.cortado)
        except Fallo as fallo:
            donde = f"corte en {tras}{' con respuesta perdida' if llega else ''}"
            raise Fallo(f"{donde}: {fallo}:\n" + "\n".join(salida)) from fallo


def main() -> int:
    partes = argparse.ArgumentParser(description=__doc__)
    partes.add_argument("--guion", required=True)
    opciones = partes.parse_args()
    textos = {motor: os.environ.get(f"TESVARA_{motor}") for motor in ("POSTGRESQL", "MARIADB")}
    if not any(textos.values()):
        print("no hay servidor")
        return 77
    mal = 0
    for motor, texto in textos.items():
        if not texto:
            continue
        try:
            cortes = [Prueba(opciones.guion, texto, [*antes, *PAGAR]).jugar()
                      for antes in ([], ["guardia"])]
            print(f"{motor}: {cortes[0]} cortes, y {cortes[1]} con guardia, siempre todo o nada")
        except Fallo as fallo:
            print(f"{motor}: {fallo}")
            mal = 1
    return mal


if __name__ == "__main__":
    sys.exit(main())
