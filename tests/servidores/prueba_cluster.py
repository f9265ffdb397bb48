#!/usr/bin/env python3
"""The stored tables on a cluster of three nodes, and on PostgreSQL at `serializable`: the scenarios
go through both; the node talked to is killed in the middle of a "Grabar", so many times, and the
program goes on with another; two users write one range at the same time through two nodes.

With --guion the runner, --guiones the folder of the scenarios and --muertes how many. The servers
are its own."""

import argparse
import concurrent.futures
import subprocess
import sys
import time
from pathlib import Path

from cluster import Cluster, en_cluster
from dos_a_la_vez import DosALaVez
from muertes_de_nodos import Muertes
from negocio_a_grabar import Fallo
from programa_en_servidor import Programa
from servidores import ESPERA, PostgreSQL

PARTES = (0, 0.3, 0.6, 0.9, 1)  # of what each of two who save at once has to do


def probar_guiones(guion: str, carpeta: Path, textos: list[str]) -> int:
    """Each through another of the texts, so that all nodes are talked to."""
    guiones = [uno for uno in sorted(carpeta.glob("*.guion"))
               if not any(linea.startswith("# motor: sqlite") for linea in uno.open())]

    def jugar(i: int) -> str | None:
        salida = guiones[i].with_suffix(".salida")
        hecho = subprocess.run([guion, "--datos", textos[i % len(textos)], str(guiones[i])],
                               capture_output=True, text=True, check=False, timeout=300)
        espera = salida.read_text() if salida.exists() else hecho.stdout
        if hecho.returncode != 0 or hecho.stdout != espera:
            return f"{guiones[i].name}: {hecho.stderr}{hecho.stdout}"
        return None

    with concurrent.futures.ThreadPoolExecutor(2) as juntos:
        malos = [malo for malo in juntos.map(jugar, range(len(guiones))) if malo]
    if malos:
        raise Fallo(f"{len(malos)} guiones:\n" + "\n".join(malos))
    return len(guiones)


def probar_lista(programa: Programa, cluster: Cluster) -> None:
    """A node that can't be written to, or that the others have lost, is passed over."""
    nodo, texto = cluster.nodos[0], cluster.texto(0, 1, 2)

    def exigir(numero: int, que: str) -> None:
        dicho = programa.correr(texto, ["consulta datos SELECT @@port"]).split()[0]
        if dicho != str(cluster.nodos[numero].puerto):
            raise Fallo(f"{que}: se entra por {dicho}")

    exigir(0, "todos sirven")
    nodo.preguntar("SET GLOBAL read_only = 1")
    exigir(1, "el primero es de solo lectura")
    nodo.preguntar("SET GLOBAL read_only = 0")
    nodo.preguntar("SET GLOBAL wsrep_provider_options = 'gmcast.isolate=1'")
    limite = time.monotonic() + ESPERA
    while cluster.nodos[1].estado("wsrep_cluster_size") != "2" and time.monotonic() < limite:
        time.sleep(0.2)
    exigir(1, "el primero está solo")
    nodo.preguntar("SET GLOBAL wsrep_provider_options = 'gmcast.isolate=0'")
    cluster.esperar(3)
    exigir(0, "el primero ha vuelto")


class Serializable(PostgreSQL):
    """As a distributed engine is that speaks as PostgreSQL does."""

    def orden(self) -> list[str]:
        return [*super().orden(), "-c", "default_transaction_isolation=serializable"]


def probar_serializable(opciones: argparse.Namespace) -> None:
    servidor = Serializable()
    try:
        servidor.crear()
        servidor.empezar()
        jugados = probar_guiones(opciones.guion, opciones.guiones, [servidor.texto])
        print(f"serializable: {jugados} guiones", flush=True)
        dos = DosALaVez(Programa(opciones.guion), [servidor.texto] * 2, [servidor] * 2)
        print(f"serializable: dos a la vez: {dos.jugar(PARTES)}", flush=True)
    finally:
        servidor.terminar()


def probar_cluster(opciones: argparse.Namespace) -> None:
    with en_cluster() as cluster:
        cluster.esperar(3)
        textos = [cluster.texto(i, (i + 1) % 3, (i + 2) % 3) for i in range(3)]
        jugados = probar_guiones(opciones.guion, opciones.guiones, textos)
        print(f"cluster: {jugados} guiones", flush=True)
        programa = Programa(opciones.guion)
        probar_lista(programa, cluster)
        print("cluster: se pasa de largo del nodo que no sirve", flush=True)
        dos = DosALaVez(programa, [cluster.texto(0), cluster.texto(1)], cluster.nodos[:2])
        vistas = dos.jugar(PARTES)
        if not any("lo sabe" in visto for visto in vistas) or dos.juntas < 20:
            raise Fallo(f"dos nodos sin que ninguno estorbe al otro: {dos.juntas}, {vistas}")
        print(f"cluster: dos a la vez por dos nodos: {vistas}", flush=True)
        vistas = Muertes(programa, cluster).jugar(opciones.muertes)
        print(f"cluster: {opciones.muertes} muertes del nodo con el que se habla: {vistas}")


def main() -> int:
    partes = argparse.ArgumentParser(description=__doc__)
    partes.add_argument("--guion", required=True)
    partes.add_argument("--guiones", required=True, type=Path)
    partes.add_argument("--muertes", type=int, default=200)
    opciones = partes.parse_args()
    try:
        probar_serializable(opciones)
        probar_cluster(opciones)
    except Fallo as fallo:
        print(fallo)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
