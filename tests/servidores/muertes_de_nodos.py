"""The node of a cluster that the program talks to is killed in the middle of a "Grabar": the other
two have all of it or nothing, and the same, and the program goes on with one of them."""

from cluster import Cluster
from corte import Corte
from programa_en_servidor import Programa, filas_en
from prueba_cortes import PAGAR, Fallo, mirar


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
        victima.quitar("muertes")
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
