"""Plays an order by the scenario runner, and reads what was stored, worked on, shown and said after every step."""

import json
import re
import subprocess
from dataclasses import dataclass, field

from dos_ordenes import FUERA

# Table: its key, and what it says. The working table has the same columns.
TABLAS = {
    "ProvFacturas": ("NConcepto Factura Año", "Fecha Total forpago NRecibos Dias1Vto BIRPF TipoIRPF IRPF Cadencia"),
    "ProvBasesIva": ("NConcepto NFactura Año Tipo", "Base Importe Exento"),
    "ProvVencimientos": ("NConcepto NFactura Año FechaVto", "Importe Pagado Fechapago"),
    "ProvPrevisionPagos": ("NConcepto", "Fecha1Vto Cada Tipo Importe"),
    "CajaPagos": ("idSucursal FechaHora Tipo", "Importe Observaciones Factura Año"),
}
CARGA, GRABA = "SELECT DISTINCT ProvFacturas.*, ", "SELECT DISTINCT ProvFacturas.* FROM"
REPAROS_DE_LETRA = ("BIRPF", "TipoIRPF", "IRPF")


def consulta(prefijo, sello):
    partes = []
    for tabla, (clave, dice) in TABLAS.items():
        columnas = ",".join(f'"{columna}"' for columna in f"{clave} {dice}".split())
        detras = ',"Actualizado","ModificadoPor"' if sello else ""
        partes.append(f"SELECT json_array('{prefijo}{tabla}',{columnas}{detras}) FROM {prefijo}{tabla}")
    return " UNION ALL ".join(partes)


def llano(columna, valor):
    """A value as it counts: Null, nothing and zero say the same, money has cents, a moment all its parts."""
    if columna == "FechaHora":
        return (str(valor) + " 00:00:00"[len(str(valor)) - 10:])[:19]
    if columna in REPAROS_DE_LETRA and valor == 1:
        return 0  # what the load makes of it, whoever saves it
    if valor in (None, "", 0):
        return 0
    try:
        return round(float(valor), 2) if columna not in ("Factura", "NFactura") else valor
    except ValueError:
        return valor


@dataclass
class Vista:
    """What there is after a step; the tables as {(table, *key): {column: value}}."""

    sesion: int
    ordenes: list
    almacenado: dict = field(default_factory=dict)
    crudo: list = field(default_factory=list)  # the same with who wrote it when
    trabajo: dict = field(default_factory=dict)
    avisos: list = field(default_factory=list)  # (text, flags, title, answer)
    errores: list = field(default_factory=list)
    sucesos: list = field(default_factory=list)  # CARGA and GRABA as they began
    borra: bool = False  # a commit went on to its forecasts
    rejilla: list = field(default_factory=list)


def lineas_de(orden):
    """The scenario, and for each line the step and the command that it comes from; None for a look."""
    lineas, origen = [], []
    for n, (sesion, ordenes) in enumerate(orden.pasos):
        miradas = ["consulta datos " + consulta("", True)]
        if sesion != FUERA:
            miradas += ["avisos", "borrados", "sentencias", "consulta local " + consulta("Temp", False)]
            if any(paso[0] == sesion and "cargar" in paso[1] for paso in orden.pasos[:n + 1]):
                miradas += ["rejilla MSFPagos", "ver TxtMsf"]
        for cual, linea in [*enumerate(ordenes), *((None, mirada) for mirada in miradas), (None, "foco?")]:
            lineas.append(f"sesion {sesion} {linea}")
            origen.append((n, cual))
        lineas[-1] = f"sesion {sesion} consulta local SELECT '@@{n}'"
    return lineas, origen


def correr(guion, orden):
    """The views of an order. What a scenario can't do is left out of it: a screen that isn't there, SQL that a
    trigger refuses."""
    while True:
        lineas, origen = lineas_de(orden)
        hecho = subprocess.run([guion, "-"], input="\n".join(lineas) + "\n", capture_output=True, text=True, check=False)
        if hecho.returncode == 0:
            return leer(orden, hecho.stdout)
        roto = re.match(r"línea (\d+): (la pantalla Frm\w+ no está cargada|La tabla no admite el valor .*no cabe)", hecho.stderr)
        paso, cual = origen[int(roto[1]) - 1] if roto else (0, None)
        if cual is None:
            raise RuntimeError(f"semilla {orden.semilla}: estado {hecho.returncode} {hecho.stderr}")
        del orden.pasos[paso][1][cual]


def fila_leida(columnas, valores):
    return {columna: llano(columna, valor) for columna, valor in zip(columnas.split(), valores)}


def leer(orden, salida):
    vistas = [Vista(*orden.pasos[0])]
    for linea in salida.splitlines():
        linea, vista = re.sub(r"^\d> ", "", linea), vistas[-1]
        if linea.startswith("@@"):
            n = int(linea[2:]) + 1
            if n < len(orden.pasos):
                vistas.append(Vista(*orden.pasos[n]))
        elif linea.startswith("["):
            anotar_fila(vista, json.loads(linea))
        elif linea.startswith("aviso "):
            texto, flags, titulo, respuesta = re.match(r'aviso ("(?:[^"\\]|\\.)*") (\d+) ("[^"]*") -> (\w+)', linea).groups()
            vista.avisos.append((json.loads(texto), int(flags), json.loads(titulo), respuesta))
        elif linea.startswith("error "):
            vista.errores.append(linea)
        elif linea.startswith("borrado ") and "ProvPrevisionPagos" in linea:
            vista.borra = True
        elif linea.startswith("datos "):
            vista.sucesos += [suceso for suceso in (CARGA, GRABA) if suceso in linea]
        elif linea.startswith("MSFPagos "):
            actual = int(re.search(r" fila=(\d+)", linea)[1])
        elif linea.startswith("TxtMsf ") and linea.split(" ")[4] == "Visible=1":
            vista.rejilla[actual][4] = re.search('Text="([^"]*)"', linea)[1]  # an amount that is being typed
        elif re.match(r"\d+: ", linea):
            vista.rejilla.append(linea.split(": ", 1)[1].split("|"))
    return vistas


def anotar_fila(vista, valores):
    nombre = valores[0]
    tabla = nombre.removeprefix("Temp")
    clave, dice = TABLAS[tabla]
    n = len(clave.split())
    suya = (tabla, *(llano(c, v) if c == "FechaHora" else str(v) for c, v in zip(clave.split(), valores[1:n + 1])))
    destino = vista.trabajo if nombre != tabla else vista.almacenado
    if nombre == tabla:
        vista.crudo.append(valores)
    destino[suya] = fila_leida(dice, valores[n + 1:n + 1 + len(dice.split())])
