"""A random business with cash entries: free ones and taken ones, of several branches, at times at one moment."""

from datetime import datetime, time, timedelta
from decimal import Decimal

from alta_negocio import InventorDeEntradas
from negocio import Escueto

LARGO = "Compra de material de oficina y sellos"  # 38 characters


class InventorDeCaja(InventorDeEntradas):
    def negocio(self):
        obra = super().negocio()
        codigos = [fila["NConcepto"] for tabla, fila in obra.filas if tabla == "conceptos"]
        self.momentos = []
        for codigo in codigos + self.azar.choice([[], [], ["777"], ["777", "5"]]):
            for _ in range(self.azar.choice([0, 1, 2, 3, 3, 5, 5, 8, 18])):
                self._libre(int(codigo))
        facturas = [fila for tabla, fila in obra.filas if tabla == "facturas"]
        for factura in self.azar.sample(facturas, min(len(facturas), self.azar.randrange(4))):
            for _ in range(self.azar.randint(1, 2)):
                self._de_caja(int(factura["NConcepto"]), factura["Factura"], factura["Año"])
        if "momento_cero" in self.con and codigos and self.uno_de(8):
            self._de_caja(int(self.azar.choice(codigos)), None, None, datetime(1899, 12, 30))
        if "sin_cifras" in self.con and self.uno_de(6):
            obra.poner("conceptos", NConcepto="A1", Descripcion="Varios")
        obra.abrir()
        return obra

    def _libre(self, codigo):
        azar = self.azar
        self._de_caja(codigo, azar.choice([None, None, None, ""]),
                      azar.choice([None, None, None, "", str(self.dia.year)]) if self.uno_de(3) else None)

    def _momento(self):
        azar = self.azar
        if self.momentos and self.uno_de(4):
            return azar.choice(self.momentos)
        momento = datetime.combine(self.cerca(45), time.min)
        if not self.uno_de(6):
            momento += timedelta(seconds=azar.choice([azar.randrange(86400), 86399]))
        if "momentos" in self.con and self.uno_de(6):
            momento = Escueto(momento.year, momento.month, momento.day, momento.hour, momento.minute)
        self.momentos.append(momento)
        return momento

    def _de_caja(self, codigo, factura, anno, momento=None):
        azar = self.azar
        importe = None if self.uno_de(12) else self.importe()
        if importe and "devoluciones" in self.con and self.dia.day % 5 == 0 and self.uno_de(4):
            importe = -importe
        largo = azar.choice([0, 5, 34, 35, 36, 37])
        self.obra.poner("caja", idSucursal=azar.choice("123"), FechaHora=momento or self._momento(), Tipo=codigo,
                        Importe=importe, Observaciones=None if self.uno_de(4) else LARGO[:largo], Factura=factura,
                        Año=anno, Usuario="EVA", Actualizado="x")

    def importe(self):
        """Amounts of the till are small, and often round."""
        if self.uno_de(2):
            return min(super().importe(), Decimal("9999999.99"))
        return Decimal(self.azar.choice([1000, 11600, 10700, 10, 50, 99, 3333, 5000])) / 100
