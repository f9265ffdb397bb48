"""A random small business: what the stored tables hold before the day begins."""

from dataclasses import dataclass, field
from datetime import date, datetime, timedelta
from decimal import Decimal

from tablas import Almacen, Local
from valores import ErrorEjecucion, sumar

NOMBRES = ["Luz", "Agua", "Ñandú, S.L.", "Nómina", "nomina", "Alquiler", "ÁREA", "Área", "Teléfono", "Gestoría",
           "Nata", "Ñoras", "Oca", "agua", "Cía. del Sur", "Zapatería"]
NUMEROS = ["F1", "F2", "A-12", "2005/3", "1001", "ñ7", "F 9", "X_1", "50%", "b3", "É1"]


class Escueto(datetime):
    """A moment that the suite stored without seconds, or without its time at midnight."""

    def guardado(self):
        return f"{self:%Y-%m-%d %H:%M}" if self.hour or self.minute else f"{self:%Y-%m-%d}"


@dataclass
class Negocio:
    """The rows to begin with, as (table name, row) in the order in which they go in."""

    reloj: datetime
    reposo: int
    filas: list = field(default_factory=list)

    def poner(self, tabla, **valores):
        self.filas.append((tabla, valores))

    def abrir(self):
        """Both databases with the rows in them; a row whose key is taken is taken off the list."""
        bases = {"almacen": Almacen(), "local": Local()}
        buenas = []
        for tabla, valores in self.filas:
            try:
                destino = bases["local"] if tabla == "lapidas" else bases["almacen"]
                getattr(destino, tabla).insertar(valores)
                buenas.append((tabla, valores))
            except ErrorEjecucion:
                pass
        self.filas = buenas
        return bases["almacen"], bases["local"]


class Inventor:
    """Makes businesses. `con` says which of the odd rows may come in."""

    def __init__(self, azar, con):
        self.azar, self.con = azar, con

    def uno_de(self, n):
        return self.azar.randrange(n) == 0

    def negocio(self):
        azar = self.azar
        dia = date(2004, 1, 1) + timedelta(days=azar.randrange(1100))
        reloj = datetime(dia.year, dia.month, dia.day, azar.randrange(24), azar.randrange(60), azar.randrange(60))
        self.obra = Negocio(reloj, 16 if self.uno_de(5) else 22)
        self.dia, self.numeros = dia, {}
        codigos = azar.sample(["400", "401", "12", "7", "1000", "99", "402", "403"], azar.randint(1, 6))
        for codigo in codigos:
            if not self.uno_de(40):  # Else a concept that its own table lacks.
                self.obra.poner("conceptos", NConcepto=codigo, Descripcion=self.nombre())
        for codigo in codigos:
            for _ in range(azar.choice([0, 1, 1, 2, 3, 6])):
                self._factura(codigo)
            if self.uno_de(2):
                self._prevision(codigo)
        for _ in range(azar.choice([0, 1, 3])):
            self._apunte(azar.choice(codigos), azar.choice([None, ""]), azar.choice([None, ""]))
        self.obra.abrir()
        return self.obra

    def cerca(self, dias):
        """A date some days around today; the ends of months come often."""
        fecha = self.dia + timedelta(days=self.azar.randint(-dias, dias))
        if self.uno_de(4):
            fecha = fecha.replace(day=1) - timedelta(days=self.azar.randrange(2))
        return fecha

    def nombre(self):
        if "saltos" in self.con and self.uno_de(12):
            return self.azar.choice(["Luz\ty gas", "Dos\nlíneas"])
        return self.azar.choice(NOMBRES)

    def importe(self):
        azar = self.azar
        if "anchos" in self.con and self.uno_de(40):
            return Decimal("12345678901234.5")
        return Decimal(azar.choice([azar.randrange(1, 120), azar.randrange(100, 50000),
                                    azar.randrange(100, 3000) * 100, azar.randrange(10**7, 10**9)])) / 100

    def pagado(self, importe):
        azar, suerte = self.azar, self.azar.randrange(20)
        if suerte < 9:
            return None
        if suerte < 13:
            return importe
        if suerte < 15:
            return Decimal(0)
        if suerte == 19 and self.uno_de(3):
            return importe + Decimal(azar.randrange(1, 500)) / 100
        return (importe * azar.randrange(1, 100) / 100).quantize(Decimal("0.01"))

    def _factura(self, codigo):
        azar = self.azar
        numero = azar.choice(NUMEROS)
        if "comillas" in self.con and self.uno_de(12):
            numero = "O'1"
        if "anchos" in self.con and self.uno_de(15):
            numero = "N-" + "7" * 24
        if self.uno_de(8):
            numero = azar.choice([" {}", "{} ", " {} "]).format(numero)
        # Two numbers that differ in blanks alone would be one and the same to the statements.
        numero = self.numeros.setdefault((codigo, numero.strip(" ")), numero)
        fecha = self.cerca(70)
        anno, total = str(fecha.year), self.importe()
        tipo = azar.choice([None, 0, 1, 15])
        base = None if tipo is None else azar.choice([Decimal(0), Decimal(1), Decimal("80.5")])
        retenido = None if base is None else azar.choice([Decimal(1), Decimal("12.07")])
        veces = azar.choice([1, 1, 2, 3, 4])
        self.obra.poner("facturas", NConcepto=codigo, Factura=numero, Año=anno, Fecha=f"{fecha:%Y%m%d}", Total=total,
                        forpago="1" if veces == 1 else "2", NRecibos=veces, Dias1Vto=30, BIRPF=base, TipoIRPF=tipo,
                        IRPF=retenido, Cadencia=30, Actualizado="x", ModificadoPor="OTRO")
        for tipo_iva in azar.sample("0123", azar.choice([0, 1, 2])):
            suyo = numero.strip(" ") if self.uno_de(10) else numero
            self.obra.poner("bases", NConcepto=codigo, NFactura=suyo, Año=anno, Tipo=tipo_iva, Base=total,
                            Importe=azar.choice([None, Decimal("1.38")]), Exento=Decimal(0))
        vence = self.cerca(40)
        for _ in range(veces):
            importe = self.importe()
            pagado = self.pagado(importe)
            importe = None if self.uno_de(40) else importe
            cuando = f"{self.cerca(30):%Y%m%d}" if pagado else azar.choice([None, ""])
            self.obra.poner("vencimientos", NConcepto=codigo, NFactura=numero, Año=anno, FechaVto=f"{vence:%Y%m%d}",
                            Importe=importe, Pagado=pagado, Fechapago=cuando)
            vence = sumar(vence, azar.choice("dm"), azar.choice([1, 1, 1, 2, 7, 30] if azar.randrange(2) else [1]))
        for _ in range(azar.choice([0, 0, 1, 2])):
            self._apunte(codigo, azar.choice([numero, numero.strip(" ")]), anno)

    def _apunte(self, codigo, factura, anno):
        azar = self.azar
        momento = datetime.combine(self.cerca(30), datetime.min.time())
        if not self.uno_de(6):
            momento += timedelta(seconds=azar.randrange(86400))
        if "momentos" in self.con and self.uno_de(4):
            momento = Escueto(momento.year, momento.month, momento.day, momento.hour, momento.minute)
        self.obra.poner("caja", idSucursal=azar.choice("12"), FechaHora=momento, Tipo=int(codigo),
                        Importe=self.importe(), Observaciones=azar.choice([None, "", "café"]), Factura=factura,
                        Año=anno, Usuario="EVA", Actualizado="x")

    def _prevision(self, codigo):
        azar = self.azar
        tipo = azar.choice([1, 1, 2, 2, 3])
        cada = azar.choice({1: [1, 2, 7, 15, 30], 2: [1, 1, 2, 3], 3: [1]}[tipo])
        primera = self.cerca(60)
        if tipo == 3 or self.uno_de(5):
            primera = sumar(primera, "m", -12 * azar.randint(1, 3))
        texto = f"{primera:%Y%m%d}"
        if "previsiones" in self.con and self.uno_de(6):
            cada, tipo, texto = azar.choice([(0, tipo, texto), (None, tipo, texto), (-1, tipo, texto),
                                             (cada, None, texto), (cada, 3, "99981231"), (cada, tipo, "")])
        importe = None if self.uno_de(30) else self.importe()
        self.obra.poner("previsiones", NConcepto=codigo, Fecha1Vto=texto, Cada=cada, Tipo=tipo, Importe=importe)
        for _ in range(azar.choice([0, 0, 1, 3])):
            fecha = sumar(primera, {1: "d", 2: "m"}.get(tipo, "yyyy"), (cada or 1) * azar.randrange(12))
            self.obra.poner("lapidas", NConcepto=codigo, FechaVto=f"{fecha:%Y%m%d}", Importe=importe)
