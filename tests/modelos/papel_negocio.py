"""A random business whose list is worth printing, with the host's screen, printers and texts."""

from calendar import monthrange
from dataclasses import dataclass, fields

from negocio import Inventor, Negocio

PANTALLAS = [(15360, 11520), (12800, 9600), (19200, 14400), (24000, 15360), (15360, 8640), (19200, 10800),
             (20480, 11520), (19200, 17280), (13660, 7680), (38400, 21600), (9600, 7200)]
IMPRESORAS = ["HP LaserJet", "HP LaserJet", "Epson ñ", "Guardar como PDF", "Pantalla", "pantalla", "Null Impresora",
              "\\\\servidor\\cola 2", 'La "buena"', "Matricial de la oficina de administración, segunda planta", ""]
PAGINAS = ["Página", "Página", "Página", "Page", "Pàgina nº", "Hoja «Ü»", 'P"g\\', "", "Страница", "—"]
DE_PANTALLA = ["Pantalla"] * 12 + ["Screen", "PANTALLA", "Null Impresora", "", "HP LaserJet"]
CONCEPTOS = ["Suministros de energía eléctrica del almacén de la calle Ñúñez", "W" * 60, "i" * 60, 'El "Álamo", S.A.',
             "ÁÉÍÓÚ áéíóú üÜ ñÑ çÇ", "C:\\fotos", "Σ y π", "uno\x01dos\x07tres", " sangrado", "100 % lana – “fina”…"]
CIFRAS = ["F-{}", "{}/05", "Ñ{}", "W{}W", "i{}", "A  {}", "º{}ª", "É{}€", "Σ{}", "2005/000{}/RECTIFICAT"]

RAREZAS_DE_PAPEL = {"control": "invoice numbers with a control character"}


@dataclass
class NegocioDePapel(Negocio):
    pantalla_fisica: tuple = PANTALLAS[0]
    referencia: tuple = PANTALLAS[0]
    impresoras: tuple = ()
    pagina: str = "Página"
    pantalla: str = "Pantalla"


class InventorDePapel(Inventor):
    def negocio(self):
        azar = self.azar
        obra = super().negocio()
        de_la_lista = {campo.name: getattr(obra, campo.name) for campo in fields(obra)}
        self.obra = NegocioDePapel(**de_la_lista)
        if self.uno_de(12):
            self.obra.filas = []
        else:
            self._alargar(azar.choice([0, 0, 10, 30, 45, 60, 100, 150]))
        referencia = azar.choice(PANTALLAS[:3]) if self.uno_de(3) else PANTALLAS[0]
        # On low ones the bar tells the gap between two pages.
        cualquiera = azar.randrange(5000, 40000), int(1300 * 20 ** azar.random())
        fisica = azar.choice([referencia, referencia, referencia, azar.choice(PANTALLAS), cualquiera, cualquiera])
        self.obra.pantalla_fisica, self.obra.referencia = fisica, referencia
        self.obra.reposo = 22 if fisica[0] == referencia[0] else 16
        self.obra.impresoras = tuple(azar.sample(IMPRESORAS, azar.choice([0, 1, 2, 3, 4, 5, 6, 9])))
        self.obra.pagina, self.obra.pantalla = azar.choice(PAGINAS), azar.choice(DE_PANTALLA)
        self.obra.abrir()
        return self.obra

    def nombre(self):
        return self.azar.choice(CONCEPTOS) if self.uno_de(2) else super().nombre()

    def _alargar(self, recibos):
        """More receipts, most of them due in the month."""
        azar = self.azar
        codigos = [fila["NConcepto"] for tabla, fila in self.obra.filas if tabla == "conceptos"]
        for n in range(recibos // 3 if codigos else 0):
            numero = azar.choice(CIFRAS).format(n)[:20]
            if "control" in self.con and self.uno_de(12):
                numero = f"{n}\x01"
            clave = {"NConcepto": azar.choice(codigos), "Año": str(self.dia.year)}
            total = self.importe()
            self.obra.poner("facturas", **clave, Factura=numero, Fecha=f"{self.dia:%Y%m%d}", Total=total, forpago="2",
                            NRecibos=3, Dias1Vto=30, Cadencia=30, Actualizado="x", ModificadoPor="OTRO")
            for dia in azar.sample(range(1, monthrange(self.dia.year, self.dia.month)[1] + 1), 3):
                importe = self.importe()
                self.obra.poner("vencimientos", **clave, NFactura=numero, Importe=importe, Pagado=self.pagado(importe),
                                FechaVto=f"{self.dia:%Y%m}{dia:02}", Fechapago=None)
