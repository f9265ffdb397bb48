"""A cluster of three MariaDB nodes to be tried on, each as private as any server here."""

import contextlib
import os
import re
import subprocess
import time

from servidores import ESPERA, MariaDB, puerto_libre

PROVEEDOR = "/usr/lib/galera/libgalera_smm.so"
# A node that was killed is missed at once, so that 200 of them don't take a day.
PRISA = ("evs.keepalive_period=PT0.5S;evs.inactive_check_period=PT0.5S;evs.suspect_timeout=PT2S;"
         "evs.inactive_timeout=PT6S;evs.install_timeout=PT6S;gcache.size=64M")


class Nodo(MariaDB):
    motor = "galera"

    def __init__(self, numero: int, puertos: list[int]) -> None:
        super().__init__(duradero=True)
        self.numero = numero
        self.puertos = puertos  # of the nodes among themselves
        self.primero = False
        self.posicion = ""

    @property
    def entre_nodos(self) -> int:
        return self.puertos[self.numero]

    def orden(self) -> list[str]:
        vecinos = ",".join(f"127.0.0.1:{puerto}" for puerto in self.puertos)
        orden = [*super().orden(), "--binlog-format=ROW", "--innodb-autoinc-lock-mode=2",
                 "--wsrep-on=ON", f"--wsrep-provider={PROVEEDOR}",
                 "--wsrep-cluster-name=tesvara", f"--wsrep-cluster-address=gcomm://{vecinos}",
                 f"--wsrep-node-name=nodo{self.numero}",
                 f"--wsrep-node-address=127.0.0.1:{self.entre_nodos}",
                 "--wsrep-sst-method=rsync",
                 f"--wsrep-sst-receive-address=127.0.0.1:{puerto_libre()}",
                 "--wsrep-provider-options=base_host=127.0.0.1;"
                 f"base_port={self.entre_nodos};gmcast.listen_addr=tcp://127.0.0.1:"
                 f"{self.entre_nodos};ist.recv_addr=127.0.0.1:{puerto_libre()};{PRISA}"]
        if self.primero:
            orden.append("--wsrep-new-cluster")
        if self.posicion:
            orden.append(f"--wsrep-start-position={self.posicion}")
        return orden

    def volver(self) -> None:
        """Starts again after it was killed, from where its own files say that it was."""
        self.primero = False
        sin_posicion = [uno for uno in self.orden() if "start-position" not in uno]
        dicho = subprocess.run([*sin_posicion, "--wsrep-recover", "--log-error="],
                               capture_output=True, text=True, check=False, **self.opciones())
        hallada = re.findall(r"Recovered position:? *(\S+)", dicho.stderr + dicho.stdout)
        self.posicion = hallada[-1] if hallada else ""
        self.empezar()

    def estado(self, nombre: str) -> str:
        dicho = self.preguntar(f"SHOW STATUS LIKE '{nombre}'")
        return dicho[0].split("\t")[1] if dicho else ""

    def responde(self) -> bool:
        if not super().responde():
            return False
        return self.estado("wsrep_local_state_comment") == "Synced"


class Cluster:
    """Three nodes; the text leads to all of them, in an order of one's own."""

    def __init__(self) -> None:
        self.nodos: list[Nodo] = []

    def empezar(self) -> None:
        puertos = [puerto_libre() for _ in range(3)]
        for numero in range(3):
            nodo = Nodo(numero, puertos)
            self.nodos.append(nodo)
            if numero == 0:
                nodo.crear()
                nodo.primero = True
            else:
                nodo.datos.mkdir()
                if nodo.usuario:
                    os.chown(nodo.datos, nodo.usuario.pw_uid, nodo.usuario.pw_gid)
            nodo.empezar()

    def texto(self, *orden: int) -> str:
        nodos = [self.nodos[i] for i in (orden or (0, 1, 2))]
        return ("Driver={MariaDB Unicode};Server=" + ",".join("127.0.0.1" for _ in nodos) +
                ";Port=" + ",".join(str(nodo.puerto) for nodo in nodos) + ";Database=mysql;User=root")

    def esperar(self, cuantos: int, limite: float = ESPERA) -> None:
        """Until every node that runs sees so many."""
        fin = time.monotonic() + limite
        while True:
            vivos = [nodo for nodo in self.nodos if nodo.proceso]
            if all(nodo.responde() and nodo.estado("wsrep_cluster_size") == str(cuantos)
                   for nodo in vivos):
                return
            if time.monotonic() > fin:
                raise RuntimeError(f"el cluster no llega a {cuantos} nodos")
            time.sleep(0.1)

    def terminar(self) -> None:
        for nodo in reversed(self.nodos):
            nodo.terminar()


@contextlib.contextmanager
def en_cluster():
    cluster = Cluster()
    try:
        cluster.empezar()
        yield cluster
    finally:
        cluster.terminar()
