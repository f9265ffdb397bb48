"""The node of a cluster that the program talks to is killed in the middle of a "Grabar": the other
two have all of it or nothing, and the same, and the program goes on with one of them."""

import concurrent.futures

from alto import Alto, recorrer
from cluster import Cluster, Nodo
from corte import Corte
from negocio_a_grabar import GRABAR, PAGAR, Fallo, Juicio
from programa_en_servidor import Programa, filas_en

ESQUEMA = "muertes"


class Muertes:
    """Of the node that the program talks to."""

    def __init__(self, programa: Programa, cluster: Cluster) -> None:
        self.programa = programa
        self.cluster = cluster
        self.juicio = Juicio(lambda lineas: programa.correr(cluster.texto(), lineas).splitlines(), PAGAR)
        self.enteras = [self.filas_tras(lineas) for lineas in (PAGAR, [*PAGAR, GRABAR])]
        corte = Corte(cluster.nodos[0].puerto)
        altos = [Alto(cluster.nodos[0], numero) for numero in (1, 2)]
        lineas = [*PAGAR, altos[0].orden, GRABAR, altos[1].orden]
        hasta, tras = recorrer(altos, corte, lambda: self.correr(self.texto(0, corte), lineas))
        cluster.nodos[0].quitar(ESQUEMA)
        #: What "Grabar" takes; the second stop's question is another.
        self.mensajes = tras - hasta - 1

    def correr(self, texto: str, lineas: list[str]) -> list[str]:
        return self.programa.correr(texto, lineas, "--esquema", ESQUEMA).splitlines()

    def filas_tras(self, lineas: list[str]) -> list[str]:
        self.correr(self.cluster.texto(), lineas)
        filas = filas_en(self.cluster.nodos[0], ESQUEMA)
        self.cluster.nodos[0].quitar(ESQUEMA)
        return filas

    def texto(self, primero: int, corte: Corte) -> str:
        """The relay before the node that is to die, and then the others."""
        texto = self.cluster.texto(primero, (primero + 1) % 3, (primero + 2) % 3)
        return texto.replace(f"Port={self.cluster.nodos[primero].puerto}", f"Port={corte.puerto}")

    def matar(self, i: int, cuantas: int) -> str:
        victima = self.cluster.nodos[i % 3]
        otros = [nodo for nodo in self.cluster.nodos if nodo is not victima]
        tras = 1 + self.mensajes * i // cuantas
        quedo, dicho = self.grabar(victima, tras, llega=i % 2 == 1)
        final = filas_en(otros[0], ESQUEMA)
        donde = f"muerte {i} del nodo {victima.numero} tras {tras}"
        if quedo == "fuera" and final not in self.enteras:
            raise Fallo(f"{donde}: ni como antes ni como después:\n" + "\n".join([*dicho, *final]))
        if filas_en(otros[1], ESQUEMA) != final:
            raise Fallo(f"{donde}: los otros dos nodos no tienen lo mismo")
        if not victima.proceso:
            self.cluster.esperar(2)
            victima.volver()
        self.cluster.esperar(3)
        if filas_en(victima, ESQUEMA) != final:
            raise Fallo(f"{donde}: el nodo que vuelve no tiene lo mismo")
        victima.quitar(ESQUEMA)
        return quedo

    def grabar(self, victima: Nodo, tras: int, llega: bool) -> tuple[str, list[str]]:
        """What "Grabar" has left when its node dies after so many messages of it, and what is
        said."""
        corte = Corte(victima.puerto, llega=llega)
        corte.al_cortar = victima.matar
        alto = Alto(victima, 1)
        lineas = [*PAGAR, alto.orden, *Juicio.GRABAR_Y_SEGUIR]
        try:
            with concurrent.futures.ThreadPoolExecutor(1) as aparte:
                dicho = aparte.submit(self.correr, self.texto(victima.numero, corte), lineas)
                alto.esperar(dicho)
                corte.cortar_tras(tras)
                alto.seguir()
                salida = dicho.result()
        except Fallo as fallo:
            # What a scenario asks by itself ends it.
            if not corte.cortado or "Se ha perdido la conexión" not in str(fallo):
                raise
            return "fuera", str(fallo).splitlines()
        finally:
            corte.terminar()
        try:
            if salida[:2] != ["1", "(1 filas)"]:
                raise Fallo("no se dice lo del alto")
            return self.juicio.juzgar(salida[2:], corte.cortado), salida
        except Fallo as fallo:
            raise Fallo(f"tras {tras}, nodo {victima.numero}: {fallo}:\n" + "\n".join(salida)) from fallo

    def jugar(self, cuantas: int) -> dict[str, int]:
        vistas = {"antes": 0, "después": 0, "fuera": 0}
        for i in range(cuantas):
            vistas[self.matar(i, cuantas)] += 1
            if i % 10 == 9:
                print(f"  {i + 1} muertes: {vistas}", flush=True)
        if not vistas["antes"] or not vistas["después"] or vistas["fuera"] > cuantas // 10:
            raise Fallo(f"no se reparten: {vistas}")
        return vistas
