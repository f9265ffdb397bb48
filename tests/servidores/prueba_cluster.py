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
import threading
import time
from pathlib import Path

from cluster import Cluster, Nodo, en_cluster
from corte import Corte
from prueba_cortes import PAGAR, TABLAS, Fallo, mirar, negocio
from prueba_muertes import preguntar
from servidores import ESPERA, PostgreSQL, Servidor

CONSULTAS = [f"SELECT {columnas} FROM {{}}.{tabla} ORDER BY {columnas}"
             for tabla, columnas in TABLAS.items()]


def filas_en(servidor: Servidor, esquema: str) -> list[str]:
    """What is stored, as this node has it once it has all that the others have ended."""
    antes = "SET SESSION wsrep_sync_wait = 1; " if isinstance(servidor, Nodo) else ""
    return [fila for consulta in CONSULTAS
            for fila in preguntar(servidor, antes + consulta.format(esquema))]


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


class Muertes:
    """Of the node that the program talks to."""

    GRABAR = [*PAGAR, "pulsar BotonAceptar"]
    SEGUIR = [*mirar(), "pulsar BotonCancelar", "celda MSFPagos 2 5", "pulsar BotonAceptar",
              *mirar()]

    def __init__(self, programa: Programa, cluster: Cluster) -> None:
        self.programa = programa
        self.cluster = cluster
        self.sin_grabar, self.grabado = self.filas(PAGAR), self.filas(self.GRABAR)
        self.hasta, self.total = self.contar(PAGAR), self.contar(self.GRABAR)

    def contar(self, lineas: list[str]) -> int:
        corte = Corte(self.cluster.nodos[0].puerto)
        self.programa.correr(self.texto(0, corte), lineas)
        corte.terminar()
        return corte.mensajes

    def filas(self, lineas: list[str]) -> list[str]:
        return self.programa.correr(self.cluster.texto(), [*lineas, *mirar()]).splitlines()

    def texto(self, primero: int, corte: Corte) -> str:
        """The relay before the node that is to die, and then the others."""
        texto = self.cluster.texto(primero, (primero + 1) % 3, (primero + 2) % 3)
        return texto.replace(f"Port={self.cluster.nodos[primero].puerto}", f"Port={corte.puerto}")

    def matar(self, i: int, cuantas: int) -> str:
        victima = self.cluster.nodos[i % 3]
        otros = [nodo for nodo in self.cluster.nodos if nodo is not victima]
        tras = self.hasta + 3 + (self.total - self.hasta - 3) * i // cuantas
        corte = Corte(victima.puerto, tras, llega=i % 2 == 1)
        corte.al_cortar = victima.matar
        donde = f"muerte {i} del nodo {victima.numero} tras {tras}"
        try:
            dicho = self.programa.correr(self.texto(i % 3, corte), [*self.GRABAR, *self.SEGUIR],
                                         "--esquema", "muertes").splitlines()
            quedo = self.juzgar(donde, dicho, corte.cortado)
        except Fallo as fallo:
            # What a scenario asks by itself ends it: "Grabar" was over, or it was the load.
            if not any(dicho in str(fallo) for dicho in ("Se ha perdido", "no está cargada")):
                raise
            quedo = "fuera"
        corte.terminar()
        final = filas_en(otros[0], "muertes")
        if filas_en(otros[1], "muertes") != final:
            raise Fallo(f"muerte {i}: los otros dos nodos no tienen lo mismo")
        if not victima.proceso:
            self.cluster.esperar(2)
            victima.volver()
        self.cluster.esperar(3)
        if filas_en(victima, "muertes") != final:
            raise Fallo(f"muerte {i}: el nodo que vuelve no tiene lo mismo")
        preguntar(victima, "DROP SCHEMA muertes")
        return quedo

    def juzgar(self, donde: str, dicho: list[str], cortado: bool) -> str:
        errores = [linea for linea in dicho if linea.startswith("error")]
        filas = [linea for linea in dicho if not linea.startswith("error")]
        mitad = len(self.sin_grabar)
        quedo = {tuple(self.sin_grabar): "antes",
                 tuple(self.grabado): "después"}.get(tuple(filas[:mitad]))
        if quedo is None:
            raise Fallo(f"{donde}: ni como antes ni como después:\n" + "\n".join(dicho))
        # The other is that of a load that was cut: what is missing isn't saved over.
        suyos = [error for error in errores if "La copia de trabajo no está completa" not in error]
        if len(suyos) > 1 or any("-2147467259" not in error for error in suyos):
            raise Fallo(f"{donde}: más de un mensaje, u otro:\n" + "\n".join(errores))
        if cortado and not errores and quedo == "antes":
            raise Fallo(f"{donde}: no se ha dicho nada")
        if len(filas) != 2 * mitad:
            raise Fallo(f"{donde}: no sigue:\n" + "\n".join(dicho))
        return quedo

    def jugar(self, cuantas: int) -> dict[str, int]:
        vistas = {"antes": 0, "después": 0, "fuera": 0}
        for i in range(cuantas):
            vistas[self.matar(i, cuantas)] += 1
            if i % 10 == 9:
                print(f"  {i + 1} muertes: {vistas}", flush=True)
        if not vistas["antes"] or not vistas["después"] or vistas["fuera"] > cuantas // 10:
            raise Fallo(f"no se reparten: {vistas}")
        return vistas


class Parada(Corte):
    """A relay that waits once, before it hands on a message, until it is let go on."""

    def __init__(self, puerto: int, tras: int) -> None:
        super().__init__(puerto)
        self.donde = tras
        self.llegado = threading.Event()
        self.seguir = threading.Event()

    def _hay_que_cortar(self, trozo: bytes, a: object) -> bool:
        with self._turno:
            self.mensajes += 1
            toca = self.mensajes == self.donde
        if toca:
            self.llegado.set()
            self.seguir.wait(10)
        return False


class DosALaVez:
    """Two users save one range at the same time, each through a server of his."""

    ELLA = ["cargar", "celda MSFPagos 1 5", "celda MSFPagos 3 5", "pulsar BotonAceptar"]
    EL = ["cargar", "celda MSFPagos 2 5", "celda MSFPagos 5 5", "pulsar BotonAceptar"]

    def __init__(self, programa: Programa, textos: list[str], servidores: list[Servidor]) -> None:
        self.programa = programa
        self.textos = textos
        self.servidores = servidores
        self.ella, mensajes_de_ella = self.sola(self.ELLA)
        self.el, mensajes_de_el = self.sola(self.EL)
        self.mensajes = [mensajes_de_ella, mensajes_de_el]
        #: How often both stood still in the middle of what they save. Where one waits for the other
        #: to begin with, that is seldom.
        self.juntas = 0

    def con_reloj(self, quien: int, lineas: list[str]) -> list[str]:
        return ["reloj 2005-03-15 10:00:00", f"usuario U{quien}", *lineas]

    def preparar(self) -> None:
        self.programa.correr(self.textos[0], ["reloj 2005-03-15 10:00:00", *negocio()], "--esquema",
                             "dos")

    def quitar(self) -> None:
        todo = " CASCADE" if isinstance(self.servidores[0], PostgreSQL) else ""
        preguntar(self.servidores[0], f"DROP SCHEMA dos{todo}")

    def correr(self, quien: int, lineas: list[str], parada: Parada, texto: str) -> str:
        puerto = str(self.servidores[quien].puerto)
        return self.programa.correr(texto.replace(f"Port={puerto}", f"Port={parada.puerto}"),
                                    self.con_reloj(quien, lineas), "--esquema", "dos")

    def sola(self, lineas: list[str]) -> tuple[list[str], tuple[int, int]]:
        """What is stored when nobody else writes, and how many messages the load and all of it
        take."""
        quien = 0 if lineas is self.ELLA else 1
        cuentas = []
        for partes in (lineas[:-1], lineas):
            self.preparar()
            parada = Parada(self.servidores[quien].puerto, 0)
            self.correr(quien, partes, parada, self.textos[quien])
            parada.terminar()
            cuentas.append(parada.mensajes)
            filas = filas_en(self.servidores[0], "dos")
            self.quitar()
        return filas, (cuentas[0], cuentas[1])

    def a_la_vez(self, parte_de_ella: float, parte_de_el: float) -> str:
        self.preparar()
        paradas = []
        for quien, parte in enumerate((parte_de_ella, parte_de_el)):
            hasta, total = self.mensajes[quien]
            paradas.append(Parada(self.servidores[quien].puerto,
                                  hasta + 1 + int((total - hasta - 2) * parte)))
        with concurrent.futures.ThreadPoolExecutor(2) as juntos:
            dichos = [juntos.submit(self.correr, quien, lineas, paradas[quien], self.textos[quien])
                      for quien, lineas in enumerate((self.ELLA, self.EL))]
            self.juntas += all([parada.llegado.wait(3) for parada in paradas])
            for parada in paradas:
                parada.seguir.set()
            dichos = [dicho.result() for dicho in dichos]
        for parada in paradas:
            parada.terminar()
        filas = [filas_en(servidor, "dos") for servidor in self.servidores]
        self.quitar()
        if any(unas != filas[0] for unas in filas):
            raise Fallo("los nodos no tienen lo mismo")
        fallidos = ["error" in dicho for dicho in dichos]
        quedo = {tuple(self.ella): 0, tuple(self.el): 1}.get(tuple(filas[0]))
        if quedo is None or all(fallidos):
            raise Fallo(f"en {parte_de_ella} y {parte_de_el}: {dichos}\n" + "\n".join(filas[0]))
        if fallidos[quedo]:
            raise Fallo(f"queda lo de quien no ha podido grabar: {dichos}")
        return f"{'ella' if quedo == 0 else 'él'}{', y el otro lo sabe' if any(fallidos) else ''}"

    def jugar(self) -> dict[str, int]:
        """So often each result, and whether the other was told."""
        vistas: dict[str, int] = {}
        for parte_de_ella in (0, 0.3, 0.6, 0.9, 1):
            for parte_de_el in (0, 0.3, 0.6, 0.9, 1):
                visto = self.a_la_vez(parte_de_ella, parte_de_el)
                vistas[visto] = vistas.get(visto, 0) + 1
        if not self.juntas:
            raise Fallo(f"nunca han grabado a la vez: {vistas}")
        return vistas


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
        print(f"serializable: dos a la vez: {dos.jugar()}", flush=True)
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
        vistas = dos.jugar()
        if not any("lo sabe" in visto for visto in vistas) or dos.juntas <= 25 // 2:
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
