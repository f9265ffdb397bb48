"""Two users save one range at the same time: what one of them has saved stands there, and never an
invoice of both."""

import concurrent.futures
import threading
from collections.abc import Iterable

from alto import Alto, recorrer
from corte import Corte
from programa_en_servidor import Programa, filas_en
from negocio_a_grabar import Fallo, negocio
from servidores import ESPERA, Servidor

ESQUEMA = "dos"
MARCAR = [["celda MSFPagos 1 5", "celda MSFPagos 3 5"], ["celda MSFPagos 2 5", "celda MSFPagos 5 5"]]
GRABAR = "pulsar BotonAceptar"


class Parada(Corte):
    """A relay that waits once, before it hands on a message, until it is let go on."""

    def __init__(self, puerto: int) -> None:
        super().__init__(puerto)
        self.donde = 0
        #: Which message ended a unit, the last time.
        self.confirmado = 0
        self.llegado = threading.Event()
        self.seguir = threading.Event()

    def _hay_que_cortar(self, trozo: bytes, a: object) -> bool:
        with self._turno:
            self.mensajes += 1
            toca = self.mensajes == self.donde
            if b"COMMIT" in trozo:
                self.confirmado = self.mensajes
        if toca:
            self.llegado.set()
            self.seguir.wait(ESPERA)
        return False


class DosALaVez:
    """Each through a server of his, which may be the same."""

    def __init__(self, programa: Programa, textos: list[str], servidores: list[Servidor]) -> None:
        self.programa = programa
        self.textos = textos
        self.servidores = servidores
        self.cuantas = 0
        #: How often both stood still in the middle of what they save. Where one waits for the other
        #: to begin with, that is never.
        self.juntas = 0
        solos = [self.solo(quien) for quien in range(2)]
        self.filas = [filas for filas, _ in solos]
        self.mensajes = [mensajes for _, mensajes in solos]

    def preparar(self) -> None:
        self.programa.correr(self.textos[0], ["reloj 2005-03-15 10:00:00", *negocio()], "--esquema",
                             ESQUEMA)

    def correr(self, quien: int, parada: Parada, alto: Alto) -> str:
        puerto = self.servidores[quien].puerto
        texto = self.textos[quien].replace(f"Port={puerto}", f"Port={parada.puerto}")
        lineas = ["reloj 2005-03-15 10:00:00", f"usuario U{quien}", "cargar", *MARCAR[quien],
                  alto.orden, GRABAR]
        return self.programa.correr(texto, lineas, "--esquema", ESQUEMA)

    def solo(self, quien: int) -> tuple[list[str], int]:
        """What is stored when nobody else writes, and how many messages that takes to its COMMIT."""
        self.preparar()
        parada = Parada(self.servidores[quien].puerto)
        alto = Alto(self.servidores[quien], 1)
        [antes] = recorrer([alto], parada, lambda: self.correr(quien, parada, alto))
        if parada.confirmado <= antes:
            raise Fallo("no se ve ningún COMMIT")
        filas = filas_en(self.servidores[0], ESQUEMA)
        self.servidores[0].quitar(ESQUEMA)
        return filas, parada.confirmado - antes

    def a_la_vez(self, *partes: float) -> str:
        """Both have loaded before either goes on to save, and stand still after that part of it."""
        self.preparar()
        paradas = [Parada(servidor.puerto) for servidor in self.servidores]
        altos = [Alto(servidor, 1 + quien) for quien, servidor in enumerate(self.servidores)]
        with concurrent.futures.ThreadPoolExecutor(2) as juntos:
            dichos = [juntos.submit(self.correr, quien, paradas[quien], altos[quien])
                      for quien in range(2)]
            for alto, dicho in zip(altos, dichos):
                alto.esperar(dicho)
            for parada, parte, mensajes in zip(paradas, partes, self.mensajes):
                parada.donde = parada.mensajes + 1 + int((mensajes - 1) * parte)
            for alto in altos:
                alto.seguir()
            self.cuantas += 1
            # Who waits for his turn gives up after 5 s.
            self.juntas += all([parada.llegado.wait(1.5) for parada in paradas])
            for parada in paradas:
                parada.seguir.set()
            errores = ["error" in dicho.result() for dicho in dichos]
        for parada in paradas:
            parada.terminar()
        filas = [filas_en(servidor, ESQUEMA) for servidor in self.servidores]
        self.servidores[0].quitar(ESQUEMA)
        return self.juzgar(f"en {partes}", filas, errores)

    def juzgar(self, donde: str, filas: list[list[str]], errores: list[bool]) -> str:
        if filas[0] != filas[1]:
            raise Fallo(f"{donde}: los servidores no tienen lo mismo")
        quedo = next((quien for quien in range(2) if self.filas[quien] == filas[0]), None)
        if quedo is None or all(errores):
            raise Fallo(f"{donde}: errores {errores}, y queda\n" + "\n".join(filas[0]))
        if errores[quedo]:
            raise Fallo(f"{donde}: queda lo de quien no ha podido grabar")
        return f"{'ella' if quedo == 0 else 'él'}{', y el otro lo sabe' if any(errores) else ''}"

    def jugar(self, partes: Iterable[float]) -> dict[str, int]:
        """So often each result, and whether the other was told."""
        vistas: dict[str, int] = {}
        for parte_de_ella in partes:
            for parte_de_el in partes:
                visto = self.a_la_vez(parte_de_ella, parte_de_el)
                vistas[visto] = vistas.get(visto, 0) + 1
        return vistas
