#!/usr/bin/env python3
"""Somebody else holds rows when the user presses "Grabar": it waits, says so and leaves all as it
was; once they are let go of it saves all.

With --guion the runner; without servers in the environment it exits with 77."""

import argparse
import subprocess
import sys
import time

from alto import Alto, Otro
from en_cada_servidor import en_cada_servidor
from negocio_a_grabar import PAGAR, Fallo, mirar
from servidores import ESPERA, Servidor

ESQUEMA = "cerrojos"
TOMAR = {"el turno": f"UPDATE {ESQUEMA}.SorvexTurno SET Vez = Vez",
         "un vencimiento": f"SELECT NFactura FROM {ESQUEMA}.ProvVencimientos WHERE NFactura = 'F3' "
                           "FOR UPDATE",
         "un apunte": f"UPDATE {ESQUEMA}.CajaPagos SET Importe = Importe WHERE Factura = 'F5'"}


DICHO = ("No se ha guardado ninguno de los últimos cambios", "está bloqueada por otro programa")


class Prueba:
    def __init__(self, guion: str, servidor: Servidor) -> None:
        self.guion = guion
        self.servidor = servidor
        self.sin_grabar = self.solo(PAGAR)
        self.grabado = self.solo([*PAGAR, "pulsar BotonAceptar"])

    def empezar(self, lineas: list[str]) -> subprocess.Popen:
        programa = subprocess.Popen(
            [self.guion, "--esquema", ESQUEMA, "--datos", self.servidor.texto, "-"],
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
        programa.stdin.write("\n".join(lineas) + "\n")
        programa.stdin.close()
        programa.stdin = None
        return programa

    def acabar(self, programa: subprocess.Popen) -> list[str]:
        dicho, errores = programa.communicate(timeout=ESPERA)
        if programa.returncode != 0:
            raise Fallo(f"estado {programa.returncode}: {errores}{dicho}")
        self.servidor.quitar(ESQUEMA)
        return dicho.splitlines()

    def solo(self, lineas: list[str]) -> list[str]:
        return self.acabar(self.empezar([*lineas, *mirar()]))

    def probar(self, que: str, tomar: str) -> None:
        altos = [Alto(self.servidor, numero) for numero in (1, 2)]
        programa = self.empezar([*PAGAR, altos[0].orden, "pulsar BotonAceptar", "avisos", *mirar(),
                                 altos[1].orden, "pulsar BotonAceptar", "avisos", *mirar()])
        otro = Otro(self.servidor)
        altos[0].esperar()
        otro.decir(f"BEGIN; {tomar}")
        pulsado = time.monotonic()
        altos[0].seguir()
        altos[1].esperar()
        espera = time.monotonic() - pulsado
        otro.irse()
        altos[1].seguir()
        self.juzgar(que, self.acabar(programa), espera)

    def juzgar(self, que: str, dicho: list[str], espera: float) -> None:
        avisos = [linea for linea in dicho if linea.startswith(("error", "aviso", "omitido"))]
        filas = [linea for linea in dicho if linea not in avisos]
        antes, despues = filas[2:2 + len(self.sin_grabar)], filas[-len(self.grabado):]
        if espera < 4:
            raise Fallo(f"{que}: no se espera, {espera:.1f} s")
        if len(avisos) != 1 or not all(texto in avisos[0] for texto in DICHO):
            raise Fallo(f"{que}: se ha dicho {avisos}")
        if antes != self.sin_grabar or despues != self.grabado:
            raise Fallo(f"{que}: ni se espera ni se sigue:\n" + "\n".join(dicho))


def probar(opciones: argparse.Namespace, servidor: Servidor) -> str:
    prueba = Prueba(opciones.guion, servidor)
    for que, tomar in TOMAR.items():
        prueba.probar(que, tomar)
    return f"se espera, se dice y se sigue, con {', '.join(TOMAR)}"


def main() -> int:
    partes = argparse.ArgumentParser(description=__doc__)
    partes.add_argument("--guion", required=True)
    return en_cada_servidor(partes, probar)


if __name__ == "__main__":
    sys.exit(main())
