#!/usr/bin/env python3
"""Somebody else holds rows when the user presses "Grabar": it waits, says so and leaves all as it
was; once they are let go of it saves all.

With --guion the runner. The servers are its own; without those of the environment, which tell that
there are any to be had, it exits with 77."""

import argparse
import os
import subprocess
import sys
import time

from prueba_cortes import PAGAR, Fallo, mirar
from servidores import ESPERA, MariaDB, PostgreSQL, Servidor, en_marcha

ESQUEMA = "cerrojos"
TOMAR = {"el turno": f"UPDATE {ESQUEMA}.SorvexTurno SET Vez = Vez",
         "un vencimiento": f"SELECT NFactura FROM {ESQUEMA}.ProvVencimientos WHERE NFactura = 'F3' "
                           "FOR UPDATE",
         "un apunte": f"UPDATE {ESQUEMA}.CajaPagos SET Importe = Importe WHERE Factura = 'F5'"}


class Otro:
    """Another who is connected: what he says he goes on with until the next."""

    def __init__(self, servidor: Servidor) -> None:
        self.cliente = subprocess.Popen(servidor.cliente(), stdin=subprocess.PIPE,
                                        stdout=subprocess.PIPE, text=True)

    def decir(self, sql: str) -> None:
        self.cliente.stdin.write(f"{sql};\nSELECT 'hecho';\n")
        self.cliente.stdin.flush()
        while (dicho := self.cliente.stdout.readline()) != "hecho\n":
            if not dicho:
                raise Fallo(f"el otro no puede: {sql}")

    def irse(self) -> None:
        self.cliente.stdin.close()
        self.cliente.stdout.close()
        self.cliente.wait(ESPERA)


class Alto:
    """Where a scenario stands still, in a question of its own, until it may go on."""

    def __init__(self, servidor: Servidor, numero: int) -> None:
        self.servidor = servidor
        postgres = isinstance(servidor, PostgreSQL)
        tomar = f"pg_advisory_lock({numero})" if postgres else f"GET_LOCK('alto {numero}', 60)"
        self.orden = f"consulta datos SELECT {tomar} IS NOT NULL"
        self._soltar = "pg_advisory_unlock_all()" if postgres else "RELEASE_ALL_LOCKS()"
        self._cuantos = (
            f"pg_locks WHERE locktype = 'advisory' AND NOT granted AND objid = {numero}"
            if postgres else
            f"information_schema.PROCESSLIST WHERE STATE = 'User lock' AND INFO LIKE '%alto {numero}%'")
        self._guarda = Otro(servidor)
        self._guarda.decir(f"SELECT {tomar}")

    def esperar(self) -> None:
        limite = time.monotonic() + ESPERA
        while self.servidor.preguntar(f"SELECT count(*) FROM {self._cuantos}") != ["1"]:
            if time.monotonic() > limite:
                raise Fallo("no se llega al alto")
            time.sleep(0.05)

    def seguir(self) -> None:
        self._guarda.decir(f"SELECT {self._soltar}")
        self._guarda.irse()


class Prueba:
    def __init__(self, guion: str, servidor: Servidor) -> None:
        self.guion = guion
        self.servidor = servidor

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
        todo = " CASCADE" if isinstance(self.servidor, PostgreSQL) else ""
        self.servidor.preguntar(f"DROP SCHEMA {ESQUEMA}{todo}")
        return dicho.splitlines()

    def solo(self, lineas: list[str]) -> list[str]:
        return self.acabar(self.empezar([*lineas, *mirar()]))

    def probar(self, que: str, tomar: str) -> None:
        sin_grabar = self.solo(PAGAR)
        grabado = self.solo([*PAGAR, "pulsar BotonAceptar"])
        altos = [Alto(self.servidor, numero) for numero in (1, 2)]
        programa = self.empezar([*PAGAR, altos[0].orden, "pulsar BotonAceptar", "avisos", *mirar(),
                                 altos[1].orden, "pulsar BotonAceptar", "avisos", *mirar()])
        otro = Otro(self.servidor)
        altos[0].esperar()
        otro.decir(f"BEGIN; {tomar}")
        altos[0].seguir()
        altos[1].esperar()
        otro.decir("ROLLBACK")
        otro.irse()
        altos[1].seguir()
        dicho = self.acabar(programa)
        avisos = [linea for linea in dicho if linea.startswith(("error", "aviso", "omitido"))]
        filas = [linea for linea in dicho if linea not in avisos]
        antes, despues = filas[2:2 + len(sin_grabar)], filas[-len(grabado):]  # what an Alto says: 2
        if len(avisos) != 1 or "está bloqueada por otro programa" not in avisos[0]:
            raise Fallo(f"{que}: se ha dicho {avisos}")
        if antes != sin_grabar or despues != grabado:
            raise Fallo(f"{que}: ni se espera ni se sigue:\n" + "\n".join(dicho))


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
                for que, tomar in TOMAR.items():
                    Prueba(opciones.guion, servidor).probar(que, tomar)
                print(f"{servidor.motor}: se espera, se dice y se sigue, con {', '.join(TOMAR)}")
            except Fallo as fallo:
                print(f"{servidor.motor}: {fallo}")
                mal = 1
    return mal


if __name__ == "__main__":
    sys.exit(main())
