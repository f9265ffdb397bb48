"""A business of which something is paid and saved, and what is said of a "Grabar" that was cut."""

import dataclasses
from collections.abc import Callable

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


class Fallo(Exception):
    pass


@dataclasses.dataclass
class Dicho:
    errores: list[str]
    filas: list[str]

    def se_dice(self, texto: str) -> bool:
        return any(texto in error for error in self.errores)


class Juicio:
    """What is stored when nothing, or all, was saved, and when one goes on from there."""

    GRABAR_Y_SEGUIR = [GRABAR, *mirar(), *SEGUIR]

    def __init__(self, correr: Callable[[list[str]], list[str]], pagar: list[str]) -> None:
        caminos = {"antes": pagar, "después": [*pagar, GRABAR]}
        self.lineas = [*pagar, *Juicio.GRABAR_Y_SEGUIR]
        self.queda = {nombre: correr([*lineas, *mirar()]) for nombre, lineas in caminos.items()}
        self.sigue = {nombre: correr([*lineas, *SEGUIR]) for nombre, lineas in caminos.items()}

    def juzgar(self, salida: list[str], cortado: bool) -> str:
        """Of what `lineas` have said; whether anything was cut."""
        primera, ultima = self._partir(salida)
        errores = primera.errores + ultima.errores
        # The other is that of a load that was cut: what is missing isn't saved over.
        dichos = [error for error in errores if "La copia de trabajo no está completa" not in error]
        quedo = next((nombre for nombre, filas in self.queda.items() if filas == primera.filas), None)
        if quedo is None:
            raise Fallo("ni como antes ni como después")
        if len(dichos) > 1 or not all(error.startswith("error -2147467259 ") for error in dichos):
            raise Fallo("se dice más de una vez, u otra cosa")
        if cortado and quedo == "antes" and not primera.errores:
            raise Fallo("no se dice nada")
        if quedo == "después" and primera.se_dice(COMO_ANTES):
            raise Fallo("se dice que no se ha guardado nada")
        # It may have been the second "Grabar", or the load before it.
        pueden = [self.sigue[quedo]] if not ultima.se_dice(COMO_ANTES) else []
        if ultima.errores:
            pueden.append(primera.filas)
        if ultima.filas not in pueden:
            raise Fallo("no sigue")
        return quedo

    def _partir(self, salida: list[str]) -> tuple[Dicho, Dicho]:
        """What was said until the first look at the rows was over, and from there on."""
        partes = (Dicho([], []), Dicho([], []))
        for linea in salida:
            parte = partes[len(partes[0].filas) == len(self.queda["antes"])]
            (parte.errores if linea.startswith("error") else parte.filas).append(linea)
        return partes
