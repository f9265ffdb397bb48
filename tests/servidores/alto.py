"""Where a scenario on a server stands still until it is told to go on, and whoever else is connected
meanwhile."""

import concurrent.futures
import subprocess
import time
from collections.abc import Callable

from corte import Corte
from negocio_a_grabar import Fallo
from servidores import ESPERA, PostgreSQL, Servidor


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
    """A question of a scenario's own, which is answered when it may go on: with two lines."""

    def __init__(self, servidor: Servidor, numero: int) -> None:
        self.servidor = servidor
        self._guarda = Otro(servidor)
        if isinstance(servidor, PostgreSQL):
            tomar = f"pg_advisory_lock({numero}) IS NOT NULL"
            # In their order: a user waits for 5 s for any other lock.
            self.orden = (f"consulta datos SELECT set_config('lock_timeout', '{ESPERA}s', false), "
                          f"{tomar}, set_config('lock_timeout', '5s', false)")
            self._cuantos = (f"pg_locks WHERE locktype = 'advisory' AND NOT granted AND objid = "
                             f"{numero}")
        else:
            tomar = f"GET_LOCK('alto {numero}', {ESPERA - 10})"
            self.orden = f"consulta datos SELECT {tomar}"
            self._cuantos = ("information_schema.PROCESSLIST WHERE STATE = 'User lock' AND INFO LIKE "
                             f"'%alto {numero}%'")
        self._guarda.decir(f"SELECT {tomar}")

    def esperar(self, guion: concurrent.futures.Future | None = None) -> None:
        """Until the scenario is there; one that is over by then tells why."""
        limite = time.monotonic() + ESPERA
        while self.servidor.preguntar(f"SELECT count(*) FROM {self._cuantos}") != ["1"]:
            if guion and guion.done():
                raise Fallo(f"no se llega al alto: {guion.result()}")
            if time.monotonic() > limite:
                raise Fallo("no se llega al alto")
            time.sleep(0.05)

    def seguir(self) -> None:
        """What it held goes with its connection."""
        self._guarda.irse()


def recorrer(altos: list[Alto], corte: Corte, correr: Callable[[], object]) -> list[int]:
    """How many messages had gone by at each of them."""
    cuentas = []
    with concurrent.futures.ThreadPoolExecutor(1) as aparte:
        dicho = aparte.submit(correr)
        for alto in altos:
            alto.esperar(dicho)
            cuentas.append(corte.mensajes)
            alto.seguir()
        dicho.result()
    corte.terminar()
    return cuentas
