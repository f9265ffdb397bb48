"""Private servers for what is tried on every engine.

Each is on loopback, on a free port, in a folder of its own, never as root, and gone with whoever
started it, however that ends.
"""

import contextlib
import ctypes
import glob
import os
import pwd
import shutil
import signal
import socket
import subprocess
import tempfile
import time
from pathlib import Path

ESPERA = 60  # seconds until a server has to answer
_PR_SET_PDEATHSIG = 1


def puerto_libre() -> int:
    with socket.socket() as prueba:
        prueba.bind(("127.0.0.1", 0))
        return prueba.getsockname()[1]


def programa(nombre: str) -> str:
    """Where a server's program is; those of PostgreSQL aren't on the path."""
    hallado = shutil.which(nombre)
    if hallado and os.path.realpath(hallado).startswith("/usr/lib/postgresql"):
        return os.path.realpath(hallado)
    versiones = sorted(glob.glob(f"/usr/lib/postgresql/*/bin/{nombre}"))
    if versiones:
        return versiones[-1]
    for carpeta in ("/usr/sbin", "/usr/bin", "/usr/libexec"):
        if os.access(f"{carpeta}/{nombre}", os.X_OK):
            return f"{carpeta}/{nombre}"
    raise FileNotFoundError(f"falta el programa {nombre}")


class Servidor:
    """A server's process and its folder."""

    motor = ""
    senal_de_fin = signal.SIGTERM

    def __init__(self, duradero: bool = False) -> None:
        self.duradero = duradero
        self.puerto = puerto_libre()
        self.carpeta = Path(tempfile.mkdtemp(prefix=f"tesvara-{self.motor}-"))
        self.datos = self.carpeta / "datos"
        self.registro = self.carpeta / "registro.txt"
        self.proceso: subprocess.Popen | None = None
        # None of these servers runs as root, nor lets one.
        self.usuario = pwd.getpwnam("nobody") if os.geteuid() == 0 else None
        if self.usuario:
            os.chown(self.carpeta, self.usuario.pw_uid, self.usuario.pw_gid)
            os.chmod(self.carpeta, 0o755)

    def opciones(self) -> dict:
        """How its programs are started: as whom, and that they end with this one."""

        def con_el_padre() -> None:
            ctypes.CDLL(None).prctl(_PR_SET_PDEATHSIG, signal.SIGKILL)

        # One that starts takes the temporary files that it finds for those of a former run.
        suyas: dict = {"cwd": self.carpeta, "preexec_fn": con_el_padre,
                       "env": {**os.environ, "HOME": str(self.carpeta), "LC_ALL": "C.UTF-8",
                               "TMPDIR": str(self.carpeta)}}
        if self.usuario:
            suyas |= {"user": self.usuario.pw_uid, "group": self.usuario.pw_gid, "extra_groups": []}
        return suyas

    def correr(self, *orden: str) -> None:
        hecho = subprocess.run(orden, capture_output=True, text=True, check=False, **self.opciones())
        if hecho.returncode != 0:
            raise RuntimeError(f"{orden[0]}: {hecho.stdout}{hecho.stderr}")

    def empezar(self) -> None:
        limite = time.monotonic() + ESPERA
        self._lanzar()
        while not self.responde():
            if time.monotonic() > limite:
                raise RuntimeError(f"{self.motor} no empieza: {self.registro.read_text()[-2000:]}")
            if self.proceso.poll() is not None:
                # What a killed one left running ends by itself, and keeps this one out until then.
                self._lanzar()
            time.sleep(0.1)

    def _lanzar(self) -> None:
        with open(self.registro, "ab") as registro:
            self.proceso = subprocess.Popen(self.orden(), stdout=registro, stderr=registro,
                                            stdin=subprocess.DEVNULL, **self.opciones())

    def matar(self) -> None:
        """As a power cut would."""
        if self.proceso:
            self.proceso.kill()
            self.proceso.wait()
            self.proceso = None

    def terminar(self) -> None:
        if self.proceso:
            self.proceso.send_signal(self.senal_de_fin)
            try:
                self.proceso.wait(30)
            except subprocess.TimeoutExpired:
                self.proceso.kill()
                self.proceso.wait()
            self.proceso = None
        shutil.rmtree(self.carpeta, ignore_errors=True)

    # What each engine tells.

    def crear(self) -> None:
        raise NotImplementedError

    def orden(self) -> list[str]:
        raise NotImplementedError

    def responde(self) -> bool:
        raise NotImplementedError

    def cliente(self) -> list[str]:
        """Its own client, as its owner; it reads statements, and writes values and nothing else."""
        raise NotImplementedError

    @property
    def texto(self) -> str:
        """The connection text of its owner."""
        raise NotImplementedError

    def quitar(self, esquema: str) -> None:
        """With all that is in it."""
        self.preguntar(f"DROP SCHEMA {esquema}")

    def preguntar(self, sql: str) -> list[str]:
        """What its own client says."""
        hecho = subprocess.run(self.cliente(), input=sql + ";\n", capture_output=True, text=True,
                               check=False, timeout=ESPERA)
        if hecho.returncode != 0:
            raise RuntimeError(f"{self.motor}: {hecho.stderr}")
        return hecho.stdout.splitlines()


class PostgreSQL(Servidor):
    motor = "postgresql"
    senal_de_fin = signal.SIGINT  # doesn't wait for whoever is connected

    def crear(self) -> None:
        self.correr(programa("initdb"), "-D", str(self.datos), "-U", "tesvara", "-A", "trust",
                    "-E", "UTF8", "--locale=C.UTF-8", "--no-sync")
        (self.datos / "pg_hba.conf").write_text(
            "host all tesvara 127.0.0.1/32 trust\nhost all all 127.0.0.1/32 scram-sha-256\n")

    def orden(self) -> list[str]:
        return [programa("postgres"), "-D", str(self.datos), "-p", str(self.puerto),
                "-c", "listen_addresses=127.0.0.1", "-c", "unix_socket_directories=",
                "-c", f"fsync={'on' if self.duradero else 'off'}", "-c", "max_connections=200"]

    def responde(self) -> bool:
        return subprocess.run([programa("pg_isready"), "-h", "127.0.0.1", "-p", str(self.puerto)],
                              capture_output=True, check=False).returncode == 0

    def cliente(self) -> list[str]:
        return [programa("psql"), "-X", "-h", "127.0.0.1", "-p", str(self.puerto), "-U", "tesvara",
                "-d", "postgres", "-Atq", "-v", "ON_ERROR_STOP=1"]

    def quitar(self, esquema: str) -> None:
        self.preguntar(f"DROP SCHEMA {esquema} CASCADE")

    @property
    def texto(self) -> str:
        return ("Driver={PostgreSQL Unicode};Servername=127.0.0.1;"
                f"Port={self.puerto};Database=postgres;Username=tesvara")


class MariaDB(Servidor):
    motor = "mariadb"

    def crear(self) -> None:
        self.correr(programa("mariadb-install-db"), "--no-defaults", f"--datadir={self.datos}",
                    "--auth-root-authentication-method=normal", "--skip-test-db",
                    "--skip-name-resolve")

    def orden(self) -> list[str]:
        return [programa("mariadbd"), "--no-defaults", f"--datadir={self.datos}",
                f"--port={self.puerto}", "--bind-address=127.0.0.1", "--skip-name-resolve",
                f"--socket={self.carpeta}/s", f"--pid-file={self.carpeta}/pid",
                f"--innodb-flush-log-at-trx-commit={1 if self.duradero else 2}"]

    def responde(self) -> bool:
        return subprocess.run([*self.cliente(), "-e", "SELECT 1"],
                              capture_output=True, check=False).returncode == 0

    def cliente(self) -> list[str]:
        return [programa("mariadb"), "--no-defaults", "-uroot", "-h127.0.0.1", f"-P{self.puerto}",
                "-nNB"]

    @property
    def texto(self) -> str:
        return (f"Driver={{MariaDB Unicode}};Server=127.0.0.1;Port={self.puerto};"
                "Database=mysql;User=root")


@contextlib.contextmanager
def en_marcha(*clases: type[Servidor], duraderos: bool = False):
    """The servers of these classes, for as long as they are wanted; with `duraderos`, what they are
    told survives a power cut."""
    servidores = []
    try:
        for clase in clases:
            servidores.append(clase(duraderos))
            servidores[-1].crear()
            servidores[-1].empezar()
        yield servidores
    finally:
        for servidor in servidores:
            servidor.terminar()
