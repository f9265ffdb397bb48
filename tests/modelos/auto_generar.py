"""Automatic invoices: of each group of free cash entries an invoice, its base and its paid receipt."""

import re
from datetime import datetime, time
from decimal import Decimal

from alta_cuentas import dia_de, redondo
from alta_mensajes import (FACTURA_SIN_CONCEPTO, FACTURA_SIN_FECHA, FACTURA_SIN_NUMERO, YA_EXISTE)
from copia import sin_comilla
from valores import CLAVE_REPETIDA, TIPOS_DISTINTOS, ErrorEjecucion, a_guardada, recortar, redondear

# Code, divisor and rate of each item of the list of VAT; the first one is exempt.
TIPOS = [("0", None, None), ("1", 1.16, 0.16), ("2", 1.07, 0.07), ("3", 1.04, 0.04)]


def base_e_iva(total, divisor, tasa):
    """Each is rounded for itself: they may miss the total by a cent."""
    base = redondo(total / divisor)
    return base, redondo(base * tasa)


def fecha_exacta(texto):
    """The date that a text tells; here a day past the month's end is none."""
    fecha = dia_de(texto)
    if fecha.day != int(re.match(r"\d+", texto).group()):
        raise ErrorEjecucion(TIPOS_DISTINTOS)
    return fecha


class Parada(Exception):
    """The run ends, and with it the screen."""


class Generacion:
    """Part of the screen of automatic invoices."""

    def _exigir_fecha(self, nombre):
        """The field that is to be mended has the focus then."""
        try:
            return fecha_exacta(self.hoja[nombre].texto)
        except ErrorEjecucion:
            self.poner_foco(nombre)
            raise

    def generar_facturas(self):
        if self._falta_algo():
            return
        madre, numero = self.madre, self.TxtNFra.texto.strip(" ")
        anno = str(self._exigir_fecha("TxtFFra").year)
        sin_comilla(numero, self.TxtNConcepto.texto)
        clave = self.TxtNConcepto.texto, numero, anno
        halladas = madre.de_clave(madre.local.facturas, "Factura", clave)
        if halladas or madre.de_clave(madre.copia.almacen.facturas, "Factura", clave):
            self.puesto.avisar(YA_EXISTE, 16, "Error")
            self.poner_foco("TxtNFra")
            return
        apuntes = self._apuntes()
        try:
            self._facturar(self._grupos(apuntes), numero, anno)
            for apunte in apuntes:
                apunte.update(Factura=self.TxtNFra.texto, Año=anno)
        except Parada:
            pass
        self.pic_texto.visible = False
        madre.cargar_grip()
        self.descargar()

    def _falta_algo(self):
        for falta, aviso, campo in (
                (self.OptConcepto.valor and self.TxtNConcepto.texto == "", FACTURA_SIN_CONCEPTO, "TxtConcepto"),
                (self.TxtFFra.texto == "", FACTURA_SIN_FECHA, "TxtFFra"),
                (self.TxtNFra.texto.strip(" ") == "", FACTURA_SIN_NUMERO, "TxtFFra")):
            if falta:
                self.puesto.avisar(aviso)
                self.poner_foco(campo)
                return True
        return False

    # Entries and their groups.

    def _apuntes(self):
        """The free ones of the concept, if one was chosen, and of the period, if it counts."""
        libres = [a for a in self.madre.local.caja.filas if not a["Factura"]]
        if self.div_fecha.visible:
            desde = datetime.combine(self._exigir_fecha("CbxFDesde"), time.min)
            hasta = datetime.combine(self._exigir_fecha("CbxFHasta"), time(23, 59, 59))
            libres = [a for a in libres if desde <= a["FechaHora"] <= hasta]
        if self.OptTodo.valor:
            return libres
        codigo = self.TxtNConcepto.texto
        return [a for a in libres if codigo.isdecimal() and a["Tipo"] == int(codigo)]

    @staticmethod
    def _grupos(apuntes):
        """Sum and concept of each, by concept; Null comes before the empty text."""
        sumas = {}
        for apunte in apuntes:
            clave = (apunte["Tipo"], apunte["Factura"] is not None, apunte["Año"] is not None, apunte["Año"] or "")
            sumas[clave] = sumas.get(clave, Decimal(0)) + (apunte["Importe"] or 0)
        return [(str(clave[0]), sumas[clave]) for clave in sorted(sumas)]

    # What is written.

    def _facturar(self, grupos, numero, anno):
        """One chosen concept has one invoice: its later groups overwrite it."""
        codigo = nombre = ""
        escrita = None
        for tipo, suma in grupos:
            concepto = self.madre.concepto(tipo)
            if concepto:
                codigo, nombre = recortar(concepto["NConcepto"]), recortar(concepto["Descripcion"])
            total = redondo(suma)
            clave = {"NConcepto": codigo, "Año": anno}
            factura = clave | {
                "Descripcion": nombre, "Fecha": a_guardada(self.TxtFFra.texto), "Factura": numero, "forpago": "1",
                "Total": redondear(suma), "NRecibos": 1, "Dias1Vto": 0, "Cadencia": 0, "BIRPF": Decimal(0),
                "IRPF": Decimal(0), "TipoIRPF": 0}
            escrita = self._escribir_factura(escrita, factura)
            self._escribir_base(clave | {"NFactura": numero}, total)
            self._escribir_recibo(tipo, numero, anno, total)

    def _escribir_factura(self, escrita, factura):
        tabla = self.madre.local.facturas
        if escrita is not None and self.OptConcepto.valor:
            escrita.update(factura)
            tabla.rehacer_claves()
            return escrita
        try:
            return tabla.insertar(factura)
        except ErrorEjecucion as error:
            if error.numero != CLAVE_REPETIDA:
                raise
            self.puesto.avisar(YA_EXISTE, 16, "Error")
            self.poner_foco("TxtNFra")
            raise Parada from None

    def _escribir_base(self, clave, total):
        bases = self.madre.local.bases
        if self.madre.de_clave(bases, "NFactura", (clave["NConcepto"], clave["NFactura"], clave["Año"])):
            return
        tipo, divisor, tasa = TIPOS[self.CboIVA.elegido]
        if tasa is None:
            bases.insertar(clave | {"Tipo": tipo, "Exento": redondear(total)})
        else:
            base, iva = base_e_iva(total, divisor, tasa)
            bases.insertar(clave | {"Tipo": tipo, "Base": redondear(base), "Importe": redondear(iva)})

    def _escribir_recibo(self, tipo, numero, anno, total):
        """It takes the place of those of the same concept, number and year."""
        recibos = self.madre.local.vencimientos
        viejos = self.madre.de_clave(recibos, "NFactura", (tipo, numero, anno))
        recibos.borrar(lambda r: r in viejos)
        concepto = self.madre.concepto(tipo)
        descripcion = {"Descripcion": recortar(concepto["Descripcion"])} if concepto else {}
        recibos.insertar(descripcion | {
            "FechaVto": a_guardada(self.TxtFFra.texto), "NConcepto": tipo, "NFactura": numero, "Año": anno,
            "Importe": redondear(total), "Pagado": redondear(total), "Visible": True})
