#!/usr/bin/env python3
"""The connection to a server is cut at each part of a "Grabar": the stored tables are wholly as
before or wholly as after, the user is told once, and the next "Grabar" goes on; with the suite's
guard before them too.

With --guion the runner; the servers are those of the environment. Exits with 77 without any."""

import argparse
import os
import re
import subprocess
import sys

from corte import Corte

FACTURAS = 12
TABLAS = {
    "ProvFacturas": "NConcepto, Factura, Año, Total, ModificadoPor",
    "ProvBasesIva": "NConcepto, NFactura, Año, Tipo, Base, ModificadoPor",
    "ProvVencimientos": "NConcepto, NFactura, Año, FechaVto, Importe, Pagado, ModificadoPor",
    "ProvPrevisionPagos": "NConcepto, Fecha1Vto, Importe",
    "CajaPagos": "idSucursal, Tipo, Importe, Factura, ModificadoPor",
}


def negocio() -> list[str]:
    numeros = range(FACTURAS)
    filas = {
        "ProvConceptos VALUES": [f"('{400 + i}','Proveedor {i}')" for i in numeros],
        "ProvFacturas (NConcepto,Factura,Año,Fecha,Total,forpago,NRecibos,Dias1Vto,BIRPF,TipoIRPF,"
        "IRPF,Cadencia) VALUES":
            [f"('{400 + i}','F{i}','2005','20050110',100,'2',2,30,0,0,0,30)" for i in numeros],
        "ProvBasesIva (NConcepto,NFactura,Año,Tipo,Base,Importe) VALUES":
            [f"('{400 + i}','F{i}','2005','1',86.2,13.8)" for i in numeros],
        "ProvVencimientos (NConcepto,NFactura,Año,FechaVto,Importe) VALUES":
            [f"('{400 + i}','F{i}','2005','200503{d}',50)" for i in numeros for d in (10, 20)],
        "ProvPrevisionPagos (NConcepto,Fecha1Vto,Cada,Tipo,Importe) VALUES":
            ["('400','20050320',1,2,70)"],
        "CajaPagos (idSucursal,FechaHora,Tipo,Importe,Factura,Año) VALUES":
            [f"('1','2005-02-01 10:{i:02}:00',{400 + i},5,'F{i}','2005')" for i in numeros],
    }
    return [f"datos INSERT INTO {tabla} {','.join(valores)}" for tabla, valores in filas.items()]


PAGAR = ["reloj 2005-03-15 10:00:00", *negocio(), "cargar", "celda MSFPagos 1 5", "celda MSFPagos 3 5"]


def mirar() -> list[str]:
    return [f"consulta datos SELECT {columnas} FROM {tabla} ORDER BY {columnas}"
            for tabla, columnas in TABLAS.items()]


GRABAR = "pulsar BotonAceptar"
SEGUIR = ["pulsar BotonCancelar", "celda MSFPagos 2 5", GRABAR, *mirar()]
COMO_ANTES = "No se ha guardado ninguno de los últimos cambios"
NO_SE_SABE = "no se sabe si los ha guardado"


class Fallo(Exception):
    pass


class Prueba:
    def __init__(self, guion: str, texto: str, pagar: list[str]) -> None:
        self.guion = guion
        self.texto = texto
        self.pagar = pagar
        self.puerto = int(re.search(r"Port=(\d+)", texto)[1])
        self.queda: dict[str, tuple[str, ...]] = {}
        self.sigue: dict[str, tuple[str, ...]] = {}

    def correr(self, lineas: list[str], corte: Corte) -> list[str]:
        texto = self.texto.replace(f"Port={self.puerto}", f"Port={corte.puerto}")
        hecho = subprocess.run([self.guion, "--datos", texto, "-"], input="\n".join(lineas) + "\n",
                               capture_output=True, text=True, check=False, timeout=120)
        if hecho.returncode != 0:
            raise Fallo(f"estado {hecho.returncode}: {hecho.stderr}{hecho.stdout}")
        return hecho.stdout.splitlines()

    def contar(self, lineas: list[str]) -> tuple[int, list[str]]:
        corte = Corte(self.puerto)
        salida = self.correr(lineas, corte)
        corte.terminar()
        return corte.mensajes, salida

    def jugar(self) -> int:
        hasta, _ = self.contar(self.pagar)
        total, _ = self.contar([*self.pagar, GRABAR])
        # What is stored then, and what is when one goes on.
        for nombre, lineas in (("antes", self.pagar), ("después", [*self.pagar, GRABAR])):
            self.queda[nombre] = tuple(self.contar([*lineas, *mirar()])[1])
            self.sigue[nombre] = tuple(self.contar([*lineas, *SEGUIR])[1])
        vistas = []
        for llega in (False, True):
            for tras in range(hasta, total + 1, max(1, (total - hasta) // 14)):
                vistas.append(self.cortar(tras, llega))
        en_medio = [quedo for quedo in vistas if quedo != "fuera"]
        if set(en_medio) != {"antes", "después"} or len(en_medio) < 20:
            raise Fallo(f"ha quedado {vistas}")
        return len(en_medio)

    def cortar(self, tras: int, llega: bool) -> str:
        corte = Corte(self.puerto, tras, llega)
        try:
            salida = self.correr([*self.pagar, GRABAR, *mirar(), *SEGUIR], corte)
        except Fallo as fallo:
            # What a scenario asks by itself ends it, and what it is asked after a load that was cut.
            if "Se ha perdido la conexión" in str(fallo) or "pregunta sin respuesta" in str(fallo):
                return "fuera"
            raise
        finally:
            corte.terminar()
        try:
            return self.juzgar(salida, corte.cortado)
        except Fallo as fallo:
            donde = f"corte en {tras}{' con respuesta perdida' if llega else ''}"
            raise Fallo(f"{donde}: {fallo}:\n" + "\n".join(salida)) from fallo

    def juzgar(self, salida: list[str], cortado: bool) -> str:
        errores = [linea for linea in salida if linea.startswith("error")]
        filas = [linea for linea in salida if not linea.startswith("error")]
        mitad = len(self.queda["antes"])
        primeras, ultimas = tuple(filas[:mitad]), tuple(filas[mitad:])
        quedo = next((nombre for nombre, suyas in self.queda.items() if suyas == primeras), None)
        if quedo is None:
            raise Fallo("ni como antes ni como después")
        # The other is that of a load that was cut: what is missing isn't saved over.
        sin_cargar = [error for error in errores if "La copia de trabajo no está completa" in error]
        dichos = [error for error in errores if error not in sin_cargar]
        if len(dichos) > 1 or not all(error.startswith("error -2147467259 ") for error in dichos):
            raise Fallo("se dice más de una vez, u otra cosa")
        if cortado and quedo == "antes" and not any(COMO_ANTES in e or NO_SE_SABE in e for e in dichos):
            raise Fallo("no se dice que no se ha guardado nada")
        if quedo == "después" and any(COMO_ANTES in error for error in dichos):
            raise Fallo("se dice que no se ha guardado nada")
        if ultimas != (primeras if sin_cargar else self.sigue[quedo]):
            raise Fallo("no sigue")
        return quedo


def main() -> int:
    partes = argparse.ArgumentParser(description=__doc__)
    partes.add_argument("--guion", required=True)
    opciones = partes.parse_args()
    textos = {motor: os.environ.get(f"TESVARA_{motor}") for motor in ("POSTGRESQL", "MARIADB")}
    if not any(textos.values()):
        print("no hay servidor")
        return 77
    mal = 0
    for motor, texto in textos.items():
        if not texto:
            continue
        try:
            cortes = [Prueba(opciones.guion, texto, [*antes, *PAGAR]).jugar()
                      for antes in ([], ["guardia"])]
            print(f"{motor}: {cortes[0]} cortes, y {cortes[1]} con guardia, siempre todo o nada")
        except Fallo as fallo:
            print(f"{motor}: {fallo}")
            mal = 1
    return mal


if __name__ == "__main__":
    sys.exit(main())
