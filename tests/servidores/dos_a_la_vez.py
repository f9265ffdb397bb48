"""Two users save one range at the same time: what one of them has saved stands there, and never an
invoice of both."""

import concurrent.futures
import threading

from corte import Corte
from programa_en_servidor import Programa, filas_en
from prueba_cortes import Fallo, negocio
from servidores import ESPERA, PostgreSQL, Servidor


class Parada(Corte):
    """A relay that waits once, before it hands on a message, until it is let go on. It tells when
    so many have gone by that the load must be over, too."""

    def __init__(self, puerto: int, carga: int, tras: int) -> None:
        super().__init__(puerto)
        self.carga = carga
        self.donde = tras
        self.cargado = threading.Event()
        self.llegado = threading.Event()
        self.seguir = threading.Event()

    def _hay_que_cortar(self, trozo: bytes, a: object) -> bool:
        with self._turno:
            self.mensajes += 1
            toca = self.mensajes == self.donde
            if self.mensajes > self.carga:
                self.cargado.set()
        if toca:
            self.llegado.set()
            self.seguir.wait(ESPERA)
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
        self.servidores[0].preguntar(f"DROP SCHEMA dos{todo}")

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
            parada = Parada(self.servidores[quien].puerto, 0, 0)
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
            paradas.append(Parada(self.servidores[quien].puerto, hasta,
                                  hasta + 1 + int((total - hasta - 2) * parte)))
        with concurrent.futures.ThreadPoolExecutor(2) as juntos:
            dichos = [juntos.submit(self.correr, quien, lineas, paradas[quien], self.textos[quien])
                      for quien, lineas in enumerate((self.ELLA, self.EL))]
            for parada in paradas:
                parada.cargado.wait(ESPERA)
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
