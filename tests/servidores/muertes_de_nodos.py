"""The node of a cluster that the program talks to is killed in the middle of a "Grabar": the other
two have all of it or nothing, and the same, and the program goes on with one of them."""

from alto import Alto, recorrer
from cluster import Cluster
from corte import Corte
from negocio_a_grabar import GRABAR, PAGAR, Fallo, Juicio
from programa_en_servidor import Programa, filas_en


class Muertes:
    """Of the node that the program talks to."""

    def __init__(self, programa: Programa, cluster: Cluster) -> None:
        self.programa = programa
        self.cluster = cluster
        self.juicio = Juicio(self.correr, PAGAR)
        corte = Corte(cluster.nodos[0].puerto)
        altos = [Alto(cluster.nodos[0], numero) for numero in (1, 2)]
        lineas = [*PAGAR, altos[0].orden, GRABAR, altos[1].orden]
        hasta, tras = recorrer(altos, corte, lambda: programa.correr(self.texto(0, corte), lineas))
        # What the load takes, and "Grabar": each with one question of the stops.
        self.hasta, self.mensajes = hasta - 1, tras - hasta - 1

    def correr(self, lineas: list[str]) -> list[str]:
        return self.programa.correr(self.cluster.texto(), lineas).splitlines()

    def texto(self, primero: int, corte: Corte) -> str:
        """The relay before the node that is to die, and then the others."""
        texto = self.cluster.texto(primero, (primero + 1) % 3, (primero + 2) % 3)
        return texto.replace(f"Port={self.cluster.nodos[primero].puerto}", f"Port={corte.puerto}")

    def matar(self, i: int, cuantas: int) -> str:
        victima = self.cluster.nodos[i % 3]
        otros = [nodo for nodo in self.cluster.nodos if nodo is not victima]
        tras = self.hasta + 1 + self.mensajes * i // cuantas
        corte = Corte(victima.puerto, tras, llega=i % 2 == 1)
        corte.al_cortar = victima.matar
        quedo = self.decir(f"muerte {i} del nodo {victima.numero} tras {tras}", i % 3, corte)
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
        victima.quitar("muertes")
        return quedo

    def decir(self, donde: str, primero: int, corte: Corte) -> str:
        try:
            dicho = self.programa.correr(self.texto(primero, corte), self.juicio.lineas, "--esquema",
                                         "muertes").splitlines()
        except Fallo as fallo:
            # What a scenario asks by itself ends it: "Grabar" was over, or it was the load.
            if not any(dicho in str(fallo) for dicho in ("Se ha perdido", "no está cargada")):
                raise
            return "fuera"
        try:
            return self.juicio.juzgar(dicho, corte.cortado)
        except Fallo as fallo:
            raise Fallo(f"{donde}: {fallo}:\n" + "\n".join(dicho)) from fallo

    def jugar(self, cuantas: int) -> dict[str, int]:
        vistas = {"antes": 0, "después": 0, "fuera": 0}
        for i in range(cuantas):
            vistas[self.matar(i, cuantas)] += 1
            if i % 10 == 9:
                print(f"  {i + 1} muertes: {vistas}", flush=True)
        if not vistas["antes"] or not vistas["después"] or vistas["fuera"] > cuantas // 10:
            raise Fallo(f"no se reparten: {vistas}")
        return vistas
