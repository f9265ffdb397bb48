"""Tables of plain rows with a unique key, and the two databases made of them."""

from dataclasses import dataclass, field

from valores import CLAVE_REPETIDA, ErrorEjecucion, plegar


class Tabla:
    """Rows are dictionaries, kept in the order in which they came."""

    def __init__(self, columnas, clave=()):
        self.columnas = columnas.split()
        self.clave = clave.split() if isinstance(clave, str) else list(clave)
        self.filas = []
        self._claves = set()

    def clave_de(self, fila):
        return tuple(plegar(fila[columna]) for columna in self.clave)

    def insertar(self, valores):
        """Adds a row; one whose key is taken is refused with the error of a repeated key."""
        fila = {columna: valores.get(columna) for columna in self.columnas}
        if self.clave:
            clave = self.clave_de(fila)
            if clave in self._claves:
                raise ErrorEjecucion(CLAVE_REPETIDA)
            self._claves.add(clave)
        self.filas.append(fila)
        return fila

    def copiar(self, valores):
        """Adds a row as load and commit do: a refused one is dropped without a word."""
        try:
            self.insertar(valores)
        except ErrorEjecucion:
            pass

    def borrar(self, condicion):
        self.filas = [fila for fila in self.filas if not condicion(fila)]
        self.rehacer_claves()

    def rehacer_claves(self):
        self._claves = {self.clave_de(fila) for fila in self.filas} if self.clave else set()

    def vaciar(self):
        self.filas, self._claves = [], set()

    def primera(self, condicion):
        return next((fila for fila in self.filas if condicion(fila)), None)


FACTURA = "NConcepto Factura Año Fecha Total forpago NRecibos Dias1Vto BIRPF TipoIRPF IRPF Cadencia"
BASE = "NConcepto NFactura Año Tipo Base Importe Exento"
VENCIMIENTO = "NConcepto NFactura Año FechaVto Importe Pagado Fechapago"
PREVISION = "NConcepto Fecha1Vto Cada Tipo Importe"
CAJA = "idSucursal FechaHora Tipo Importe Observaciones Factura Año Usuario Actualizado ModificadoPor"
SELLO = " Actualizado ModificadoPor"


def tabla_de(columnas, clave):
    return field(default_factory=lambda: Tabla(columnas, clave))


@dataclass
class Almacen:
    """The stored tables, shared with the rest of the suite."""

    conceptos: Tabla = tabla_de("NConcepto Descripcion", "NConcepto")
    facturas: Tabla = tabla_de(FACTURA + SELLO, "NConcepto Factura Año")
    bases: Tabla = tabla_de(BASE + SELLO, "NConcepto NFactura Año Tipo")
    vencimientos: Tabla = tabla_de(VENCIMIENTO + SELLO, "NConcepto NFactura Año FechaVto")
    previsiones: Tabla = tabla_de(PREVISION + SELLO, "NConcepto")
    caja: Tabla = tabla_de(CAJA, "idSucursal FechaHora Tipo")


@dataclass
class Local:
    """The working tables. `lapidas` outlives the screen; nothing but a deletion empties it."""

    facturas: Tabla = tabla_de(FACTURA + " Actualizado Descripcion", "NConcepto Factura Año")
    bases: Tabla = tabla_de(BASE, "NConcepto NFactura Año Tipo")
    vencimientos: Tabla = tabla_de(VENCIMIENTO + " Actualizado Descripcion Visible",
                                   "NConcepto NFactura Año FechaVto")
    previsiones: Tabla = tabla_de(PREVISION + " Descripcion", "NConcepto")
    caja: Tabla = tabla_de(CAJA, "idSucursal FechaHora Tipo")
    lapidas: Tabla = tabla_de("NConcepto FechaVto Importe", "")

    def vaciar(self):
        for tabla in (self.facturas, self.vencimientos, self.bases, self.previsiones, self.caja):
            tabla.vaciar()
