#!/usr/bin/env python3
"""What docs/servidores.md says to do is done as it stands: a server with a certificate, its users,
the tables, the rights of who works with them, and the ODBC source. That user then loads, pays and
saves; what he must not do is refused, and a server with another certificate isn't talked to.

With --programas the folder of the suite and the runner, and --doc the page. The servers are its
own; without those of the environment, which tell that there are any to be had, it exits with 77."""

import argparse
import datetime
import os
import re
import subprocess
import sys
import tempfile
from pathlib import Path

from negocio_a_grabar import Fallo
from servidores import MariaDB, PostgreSQL, Servidor, programa

ADMIN = "la del administrador"
DUENA = "la de la dueña"
ANA = "la de ana"
# The suite shows this month.
HOY = datetime.date.today()
FILAS = ["INSERT INTO ProvConceptos VALUES ('400', 'Papelería Íñigo')"]
for numero, dia in (("Ñ1", "20050310"), ("Ñ2", f"{HOY:%Y%m%d}")):
    FILAS += ["INSERT INTO ProvFacturas (NConcepto, Factura, Año, Fecha, Total, forpago, NRecibos, "
              "Dias1Vto, BIRPF, TipoIRPF, IRPF, Cadencia) VALUES ('400', "
              f"'{numero}', '{dia[:4]}', '{dia}', 50, '2', 1, 0, 0, 0, 0, 0)",
              "INSERT INTO ProvVencimientos (NConcepto, NFactura, Año, FechaVto, Importe) VALUES "
              f"('400', '{numero}', '{dia[:4]}', '{dia}', 50)"]
PAGAR = ["reloj 2005-03-15 10:00:00", "cargar", "celda MSFPagos 1 5", "pulsar BotonAceptar",
         "espera consulta datos \"SELECT Pagado, ModificadoPor FROM ProvVencimientos WHERE "
         "FechaVto = '20050310'\" \"50|ANA\""]


class Autoridad:
    """One that signs a certificate for this machine."""

    def __init__(self, carpeta: Path) -> None:
        carpeta.mkdir()
        self.propio = carpeta / "autoridad.crt"
        self.clave = carpeta / "servidor.key"
        self.certificado = carpeta / "servidor.crt"
        clave, peticion, nombres = (carpeta / n for n in ("autoridad.key", "peticion", "nombres"))
        nombres.write_text("subjectAltName=DNS:localhost")
        self._openssl("req", "-x509", "-newkey", "rsa:2048", "-nodes", "-keyout", clave, "-out",
                      self.propio, "-subj", f"/CN=Empresa {carpeta.name}", "-days", "2")
        self._openssl("req", "-newkey", "rsa:2048", "-nodes", "-keyout", self.clave, "-out",
                      peticion, "-subj", "/CN=localhost")
        self._openssl("x509", "-req", "-in", peticion, "-CA", self.propio, "-CAkey", clave,
                      "-CAcreateserial", "-out", self.certificado, "-days", "2", "-extfile", nombres)

    def para(self, servidor: Servidor) -> None:
        """The server alone may read its key."""
        os.chmod(self.clave, 0o600)
        if servidor.usuario:
            os.chown(self.clave, servidor.usuario.pw_uid, servidor.usuario.pw_gid)

    @staticmethod
    def _openssl(*orden: object) -> None:
        subprocess.run(["openssl", *map(str, orden)], check=True, capture_output=True)


class ConCertificado:
    """A server of one of the classes below."""

    autoridad: Autoridad

    def correr_sql(self, quien: str, contrasena: str, sql: str, base: str = "gestion") -> str:
        raise NotImplementedError


class PostgreSQLSeguro(PostgreSQL, ConCertificado):
    esquema = "public"

    def crear(self) -> None:
        clave = self.carpeta / "clave"
        clave.write_text(ADMIN)
        clave.chmod(0o644)
        self.correr(programa("initdb"), "-D", str(self.datos), "-U", "tesvara", "-A",
                    "scram-sha-256", f"--pwfile={clave}", "-E", "UTF8", "--locale=C.UTF-8",
                    "--no-sync")

    def orden(self) -> list[str]:
        return [*super().orden(), "-c", "ssl=on", "-c",
                f"ssl_cert_file={self.autoridad.certificado}", "-c",
                f"ssl_key_file={self.autoridad.clave}"]

    def correr_sql(self, quien: str, contrasena: str, sql: str, base: str = "gestion") -> str:
        return subprocess.run(
            [programa("psql"), "-X", "-v", "ON_ERROR_STOP=1", "-h", "127.0.0.1", "-p",
             str(self.puerto), "-U", quien, "-d", base, "-At"], input=sql, text=True, check=True,
            capture_output=True, env={**os.environ, "PGPASSWORD": contrasena}).stdout

    def preparar(self, bloques: dict[str, str], tablas: str) -> None:
        self.correr_sql("tesvara", ADMIN, bloques["postgresql: administrador"], "postgres")
        self.correr_sql("duena", DUENA, tablas)
        self.correr_sql("duena", DUENA, bloques["postgresql: duena"])


class MariaDBSeguro(MariaDB, ConCertificado):
    esquema = "gestion"

    def orden(self) -> list[str]:
        return [*super().orden(), f"--ssl-cert={self.autoridad.certificado}",
                f"--ssl-key={self.autoridad.clave}", f"--ssl-ca={self.autoridad.propio}"]

    def correr_sql(self, quien: str, contrasena: str, sql: str, base: str = "gestion") -> str:
        return subprocess.run(
            [programa("mariadb"), "--no-defaults", f"-u{quien}", "-h127.0.0.1", f"-P{self.puerto}",
             "--ssl", "--default-character-set=utf8mb4", "-NB", base], input=sql, text=True,
            check=True, capture_output=True,
            env={**os.environ, "MYSQL_PWD": contrasena}).stdout

    def preparar(self, bloques: dict[str, str], tablas: str) -> None:
        self.correr_sql("root", "", bloques["mariadb: administrador"], "mysql")
        self.correr_sql("duena", DUENA, tablas)
        self.correr_sql("root", "", bloques["mariadb: derechos"], "mysql")


class Puesta:
    def __init__(self, opciones: argparse.Namespace, servidor: Servidor, carpeta: Path) -> None:
        self.programas = opciones.programas
        self.servidor = servidor
        self.carpeta = carpeta
        pagina = opciones.doc.read_text()
        self.bloques = dict(re.findall(r"```sql\n-- (.*)\n([^`]*)```", pagina))
        self.origenes = dict(re.findall(r"```ini\n; (.*)\n([^`]*)```", pagina))

    def origen(self, autoridad: Path) -> dict[str, str]:
        """The environment with the page's source, which leads to this server."""
        texto = self.origenes[self.servidor.motor].replace("/etc/ssl/certs/empresa.crt",
                                                           str(autoridad))
        texto = re.sub(r"Port = \d+", f"Port = {self.servidor.puerto}", texto)
        fichero = self.carpeta / "odbc.ini"
        fichero.write_text(texto)
        return {**os.environ, "ODBCINI": str(fichero), "QT_QPA_PLATFORM": "offscreen"}

    def guion(self, entorno: dict[str, str], lineas: list[str]) -> subprocess.CompletedProcess:
        return subprocess.run(
            [self.programas / "tesvara-guion", "--esquema", self.servidor.esquema, "--datos",
             "DSN=Gestion", "-"], input="\n".join(lineas) + "\n", capture_output=True, text=True,
            check=False, env=entorno, timeout=120)

    def suite(self, entorno: dict[str, str], *opciones: str) -> subprocess.CompletedProcess:
        return subprocess.run(
            [self.programas / "tesvara", "--carpeta", self.carpeta / "suite", "--captura",
             self.carpeta / "imagen", "--datos", "DSN=Gestion", *opciones], capture_output=True,
            text=True, check=False, env=entorno, timeout=120)

    def exigir(self, cierto: bool, que: str, hecho: subprocess.CompletedProcess) -> None:
        if not cierto:
            raise Fallo(f"{que}: estado {hecho.returncode}: {hecho.stdout}{hecho.stderr}")

    def rehusado(self, sql: str) -> None:
        try:
            self.servidor.correr_sql("ana", ANA, sql)
        except subprocess.CalledProcessError as fallo:
            if re.search("denied", fallo.stderr):
                return
            raise
        raise Fallo(f"ana puede: {sql}")

    def jugar(self, otra: Autoridad) -> None:
        tablas = subprocess.run([self.programas / "tesvara", "--tablas", self.servidor.motor],
                                capture_output=True, text=True, check=True).stdout
        self.servidor.preparar(self.bloques, tablas)
        for fila in FILAS:
            self.servidor.correr_sql("duena", DUENA, fila)
        entorno = self.origen(self.servidor.autoridad.propio)
        hecho = self.guion(entorno, PAGAR)
        self.exigir(hecho.returncode == 0 and "error" not in hecho.stdout, "ana no graba", hecho)
        hecho = self.suite(entorno)
        self.exigir(hecho.returncode == 0 and "Papelería Íñigo\tÑ2" in hecho.stdout,
                    "la suite no se abre", hecho)
        for sql in ("INSERT INTO ProvConceptos VALUES ('401', 'Otro')",
                    "UPDATE ProvConceptos SET Descripcion = ''", "DELETE FROM ProvConceptos",
                    "CREATE TABLE Otra (a integer)", "DELETE FROM SorvexBorrados",
                    "DELETE FROM SorvexTurno"):
            self.rehusado(sql)
        hecho = self.suite(self.origen(otra.propio))
        self.exigir(hecho.returncode != 0 and "certificate" in hecho.stderr,
                    "se habla con un servidor de otro certificado", hecho)


def probar(opciones: argparse.Namespace, clase: type[Servidor]) -> None:
    with tempfile.TemporaryDirectory(prefix="tesvara-puesta-") as carpeta:
        os.chmod(carpeta, 0o755)
        propia, otra = (Autoridad(Path(carpeta) / nombre) for nombre in ("propia", "otra"))
        servidor = clase()
        servidor.autoridad = propia
        propia.para(servidor)
        try:
            servidor.crear()
            servidor.empezar()
            Puesta(opciones, servidor, Path(carpeta)).jugar(otra)
        finally:
            servidor.terminar()


def main() -> int:
    partes = argparse.ArgumentParser(description=__doc__)
    partes.add_argument("--programas", required=True, type=Path)
    partes.add_argument("--doc", required=True, type=Path)
    opciones = partes.parse_args()
    if not os.environ.get("TESVARA_POSTGRESQL"):
        print("no hay servidor")
        return 77
    mal = 0
    for clase in (PostgreSQLSeguro, MariaDBSeguro):
        try:
            probar(opciones, clase)
            print(f"{clase.motor}: en marcha como dice la página")
        except Fallo as fallo:
            print(f"{clase.motor}: {fallo}")
            mal = 1
    return mal


if __name__ == "__main__":
    sys.exit(main())
