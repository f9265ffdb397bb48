"""A business of which something is paid and saved, and what is said of a "Grabar" that was cut."""

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


class Juicio:
    """What is stored when nothing, or all, was saved, and when one goes on from there."""

    def __init__(self, correr: Callable[[list[str]], list[str]], pagar: list[str]) -> None:
        caminos = {"antes": pagar, "después": [*pagar, GRABAR]}
        self.lineas = [*pagar, GRABAR, *mirar(), *SEGUIR]
        self.queda = {nombre: correr([*lineas, *mirar()]) for nombre, lineas in caminos.items()}
        self.sigue = {nombre: correr([*lineas, *SEGUIR]) for nombre, lineas in caminos.items()}

    def juzgar(self, salida: list[str], cortado: bool) -> str:
        """Of what `lineas` have said; whether it was cut before the end of "Grabar"."""
        errores = [linea for linea in salida if linea.startswith("error")]
        filas = [linea for linea in salida if not linea.startswith("error")]
        mitad = len(self.queda["antes"])
        primeras, ultimas = filas[:mitad], filas[mitad:]
        quedo = next((nombre for nombre, suyas in self.queda.items() if suyas == primeras), None)
        if quedo is None:
            raise Fallo("ni como antes ni como después")
        # The other is that of a load that was cut: what is missing isn't saved over.
        sin_cargar = [error for error in errores if "La copia de trabajo no está completa" in error]
        dichos = [error for error in errores if error not in sin_cargar]
        if len(dichos) > 1 or not all(error.startswith("error -2147467259 ") for error in dichos):
            raise Fallo("se dice más de una vez, u otra cosa")
        # Where it went before anything was written there is nothing to be said of that.
        if cortado and quedo == "antes" and not dichos:
            raise Fallo("no se dice nada")
        if quedo == "después" and any(COMO_ANTES in error for error in dichos):
            raise Fallo("se dice que no se ha guardado nada")
        if ultimas != (primeras if sin_cargar else self.sigue[quedo]):
            raise Fallo("no sigue")
        return quedo
