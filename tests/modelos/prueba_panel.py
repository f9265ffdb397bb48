"""A small business and a user for stories of the panel: each step gives the bench back."""

from datetime import datetime
from decimal import Decimal

from alta_pantalla import PantallaConPanel
from tablas import Almacen, Local

UNA_BASE = [("1", Decimal(100), Decimal(16), None)]


class Banco:
    """One invoice F1 of 116 in March 2005 with that many receipts, if any, and these forecasts and cash
    entries, each as (moment, concept, amount), with remark, number, year and branch if they are told."""

    reloj, usuario, reposo = datetime(2005, 3, 15, 10), "ANA", 22
    clase_de_pantalla = PantallaConPanel

    def __init__(self, receipts=0, pagado=None, bases=None, previsiones=(), caja=()):
        self.almacen, self.local = Almacen(), Local()
        self.dichos, self.respuestas, self.elegible = [], [], None
        for codigo, nombre in (("400", "Luz"), ("401", "Agua")):
            self.almacen.conceptos.insertar({"NConcepto": codigo, "Descripcion": nombre})
        if receipts:
            self._factura(receipts, pagado, UNA_BASE if bases is None else bases)
        for fila in previsiones:
            self.almacen.previsiones.insertar(dict(zip(("NConcepto", "Fecha1Vto", "Cada", "Tipo", "Importe"), fila)))
        for fila in caja:
            momento, *resto = fila
            columnas = dict(zip(("Tipo", "Importe", "Observaciones", "Factura", "Año", "idSucursal"), resto))
            self.almacen.caja.insertar({"FechaHora": datetime.fromisoformat(momento), "idSucursal": "1"} | columnas)
        self.p = self.clase_de_pantalla(self, self.almacen, self.local)

    def _factura(self, cuantos, pagado, bases):
        clave = {"NConcepto": "400", "Año": "2005"}
        self.almacen.facturas.insertar(clave | {
            "Factura": "F1", "Fecha": "20050310", "Total": Decimal(116), "forpago": "1" if cuantos == 1 else "2",
            "NRecibos": cuantos, "Dias1Vto": 10, "Cadencia": 5})
        for tipo, base, iva, exento in bases:
            self.almacen.bases.insertar(clave | {"NFactura": "F1", "Tipo": tipo, "Base": base, "Importe": iva,
                                                 "Exento": exento})
        for n in range(cuantos):
            self.almacen.vencimientos.insertar(clave | {
                "NFactura": "F1", "FechaVto": f"200503{20 + 5 * n}", "Importe": Decimal(116) / cuantos,
                "Pagado": pagado})

    # What the screen asks of its post.

    def avisar(self, texto, flags=16, titulo="Atención"):
        self.dichos.append(texto)

    def preguntar(self, texto, flags):
        self.dichos.append(texto)
        return self.respuestas.pop(0)

    def elegir_concepto(self):
        return self.elegible

    @staticmethod
    def suceso(accion):
        accion()

    # The user.

    def avisos(self):
        dichos, self.dichos = self.dichos, []
        return dichos

    def si(self, *respuestas):
        self.respuestas += respuestas
        return self

    def nueva(self):
        # It opens on its concept, which may not be left empty.
        return self.pulsar("BotonNuevo").campo("TxtConcepto", "400")

    def modificar(self, fila=1):
        self.p.celda(fila, 1)
        return self.pulsar("BotonModificar")

    def pulsar(self, widget):
        self.p.pulsar(widget)
        return self

    def campo(self, nombre, texto):
        """Types a text and Enter, and goes on to the next field."""
        self.p.teclear(nombre, texto)
        if self.p.foco == nombre:
            self.p.tecla_en_panel("Intro")
        if self.p.foco == nombre and not self.dichos:
            self.p.enfocar("OptGenerar")
        return self

    def de_caja(self, *filas, facturar=True):
        """Opens the screen of cash entries, clicks on these rows, and goes out by one of its buttons."""
        self.p.pulsar("BotonCaja")
        for fila in filas:
            self.p.modal.pulsar(f"LblSeleccion({fila})")
        self.p.modal.pulsar("BtnFacturar" if facturar else "BtnAceptar")
        return self

    def plazo(self, cual):
        """Chooses a unit and leaves the list."""
        self.p.elegir(cual)
        self.p.enfocar("TxtDesde")
        return self

    def textos(self, *nombres):
        return [self.p.hoja[nombre].texto for nombre in nombres]
