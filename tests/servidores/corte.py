"""A relay before a server on loopback that cuts what goes through it at a given message."""

import socket
import threading


class Corte:
    """Hands all on to another port until a client has sent so many times; then all that goes through
    it is cut, once. What comes later goes through."""

    def __init__(self, puerto: int, tras: int = 0, llega: bool = False) -> None:
        self.destino = puerto
        self.tras = self._pedido = tras
        #: Whether the last one still reaches the server, and its answer alone is lost.
        self.llega = llega
        #: What is done besides, before anybody sees it.
        self.al_cortar = lambda: None
        self.mensajes = 0
        self._cerrojo = threading.Lock()
        self._turno = threading.Lock()
        self._abiertos: list[socket.socket] = []
        self._escucha = socket.create_server(("127.0.0.1", 0))
        self.puerto = self._escucha.getsockname()[1]
        threading.Thread(target=self._aceptar, daemon=True).start()

    @property
    def cortado(self) -> bool:
        return 0 < self._pedido <= self.mensajes

    def cortar_tras(self, cuantos: int) -> None:
        """From now on."""
        with self._turno:
            self.tras = self._pedido = self.mensajes + cuantos

    def terminar(self) -> None:
        """Nothing more is cut once this is over."""
        self._escucha.close()
        with self._turno:
            self.tras = 0
        self._cortar()

    def _aceptar(self) -> None:
        while True:
            try:
                cliente, _ = self._escucha.accept()
            except OSError:
                return
            try:
                servidor = socket.create_connection(("127.0.0.1", self.destino))
            except OSError:
                cliente.close()
                continue
            for enlace in (cliente, servidor):
                enlace.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
            with self._cerrojo:
                self._abiertos += [cliente, servidor]
            threading.Thread(target=self._pasar, args=(cliente, servidor, True), daemon=True).start()
            threading.Thread(target=self._pasar, args=(servidor, cliente, False),
                             daemon=True).start()

    def _pasar(self, de: socket.socket, a: socket.socket, cuenta: bool) -> None:
        try:
            while trozo := de.recv(1 << 20):
                if cuenta and self._hay_que_cortar(trozo, a):
                    return
                a.sendall(trozo)
        except OSError:
            pass
        for enlace in (de, a):
            self._cerrar(enlace)

    def _hay_que_cortar(self, trozo: bytes, a: socket.socket) -> bool:
        with self._turno:
            self.mensajes += 1
            if self.mensajes != self.tras:
                return False
            if self.llega:
                a.sendall(trozo)
            self.al_cortar()
            self._cortar()
            return True

    def _cortar(self) -> None:
        with self._cerrojo:
            abiertos, self._abiertos = self._abiertos, []
        for enlace in abiertos:
            self._cerrar(enlace)

    @staticmethod
    def _cerrar(enlace: socket.socket) -> None:
        try:
            enlace.shutdown(socket.SHUT_RDWR)
        except OSError:
            pass
        enlace.close()
