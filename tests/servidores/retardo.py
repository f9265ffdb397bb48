"""A relay before a server on loopback: each answer waits as if it came from farther away."""

import asyncio
import contextlib
import threading

ESPERA = 0.005  # seconds


class Retardo:
    """Listens on a port of its own, and hands all on to another."""

    def __init__(self, puerto: int, espera: float = ESPERA) -> None:
        self.destino = puerto
        self.espera = espera
        self.puerto = 0
        self._bucle = asyncio.new_event_loop()
        self._lista = threading.Event()
        self._hilo = threading.Thread(target=self._correr, daemon=True)

    def empezar(self) -> None:
        self._hilo.start()
        self._lista.wait()

    def terminar(self) -> None:
        self._bucle.call_soon_threadsafe(self._bucle.stop)
        self._hilo.join()

    def _correr(self) -> None:
        asyncio.set_event_loop(self._bucle)
        servidor = self._bucle.run_until_complete(
            asyncio.start_server(self._atender, "127.0.0.1", 0))
        self.puerto = servidor.sockets[0].getsockname()[1]
        self._lista.set()
        self._bucle.run_forever()

    async def _atender(self, lector: asyncio.StreamReader, escritor: asyncio.StreamWriter) -> None:
        de, a = await asyncio.open_connection("127.0.0.1", self.destino)
        await asyncio.gather(self._pasar(lector, a, 0), self._pasar(de, escritor, self.espera))

    @staticmethod
    async def _pasar(lector: asyncio.StreamReader, escritor: asyncio.StreamWriter,
                     espera: float) -> None:
        """What comes in one go waits once, as a round trip does."""
        cola: asyncio.Queue = asyncio.Queue()

        async def escribir() -> None:
            bucle = asyncio.get_running_loop()
            while (siguiente := await cola.get()) is not None:
                cuando, trozo = siguiente
                await asyncio.sleep(max(0.0, cuando - bucle.time()))
                escritor.write(trozo)
                await escritor.drain()

        tarea = asyncio.create_task(escribir())
        with contextlib.suppress(ConnectionError):
            while trozo := await lector.read(65536):
                await cola.put((asyncio.get_running_loop().time() + espera, trozo))
        await cola.put(None)
        with contextlib.suppress(ConnectionError):
            await tarea
        escritor.close()
