"""The random user: chooses the next step by what is on the screen."""

from datetime import timedelta

from fechas import DESDE, HASTA
from jornada import DE_TRABAJO, TABLAS
from negocio import Inventor
from pagos import EDITOR
from tablas import FACTURA
from valores import a_guardada, a_vista, mascara, numero

BOTONES = ["BotonAceptar"] * 5 + ["BotonBorrar"] * 4 + ["BotonCancelar"] * 2
FILTROS = ["ChkPagados", "ChkPrevisiones"]


class Usuario:
    PASOS = 5, 40

    def __init__(self, azar, con, jornada):
        self.azar, self.con, self.jornada = azar, con, jornada
        self.inventor = Inventor(azar, con)
        self.inventor.dia = jornada.reloj.date()

    def paso(self):
        pantalla = self.jornada.pantalla
        if pantalla.foco in (DESDE, HASTA) and self.azar.randrange(3) == 0:
            return self.fecha()
        if pantalla.editor_visible and self.azar.randrange(10) < 8:
            return self.en_el_editor()
        elegir = self.azar.choices(
            [self.celda, self.doble, self.flecha, self.boton, self.filtro, self.orden, self.fecha, self.cerrar,
             self.ocultar, self.reloj, self.ajeno], [30, 20, 4, 18, 5, 7, 7, 3, 1, 2, 3])[0]
        return elegir()

    def miradas(self):
        """Looks after a step: the list and the totals often, the tables now and then."""
        yield ("avisos",)
        if self.azar.randrange(10) < 6:
            yield ("rejilla",)
        if self.azar.randrange(10) < 6:
            yield ("totales",)
        if self.azar.randrange(3) == 0:
            rejilla = self.jornada.pantalla.rejilla
            yield ("colores", max(1, rejilla.fila))
            yield ("colores", self.azar.randrange(1, len(rejilla.celdas)))
        if self.azar.randrange(12) == 0:
            yield ("trabajo", self.azar.choice(list(DE_TRABAJO)))
        if self.azar.randrange(12) == 0:
            yield ("guardado", self.azar.choice(list(TABLAS)))

    def respuesta(self):
        return self.azar.choice(["si", "si", "no", "no", "no", "cancelar"])

    def fila(self):
        """A row: most often one that can be paid."""
        celdas = self.jornada.pantalla.rejilla.celdas
        pagables = [n for n in range(1, len(celdas)) if celdas[n][2] != ""]
        if pagables and self.azar.randrange(10) < 7:
            return self.azar.choice(pagables)
        llenas = sum(1 for fila in celdas[1:] if fila[0] != "")
        return self.azar.randint(1, min(len(celdas) - 1, llenas + 3))

    def celda(self):
        return ("celda", self.fila(), self.azar.choice([0, 1, 2, 3, 4, 4, 5, 5, 5, 5, 5]))

    def doble(self):
        return ("doble", self.fila(), self.azar.choice([4, 4, 4, 4, 4, 5, 3]))

    def flecha(self):
        return ("tecla", self.azar.choice(["Arriba", "Abajo"]))

    def boton(self):
        boton = self.azar.choice(BOTONES)
        if boton == "BotonBorrar" and self.azar.randrange(3):
            celdas = self.jornada.pantalla.rejilla.celdas
            if celdas[self.jornada.pantalla.rejilla.fila][0] == "":
                return ("celda", self.fila(), self.azar.choice([0, 1, 3]))
        return ("pulsar", boton, self.respuesta())

    def filtro(self):
        return ("pulsar", self.azar.choice(FILTROS))

    def orden(self):
        return ("pulsar", "OptConcepto" if self.jornada.pantalla.por_fecha else "OptFecha")

    def cerrar(self):
        return ("cerrar", self.azar.choice(["cerrar", "barra FrmTesvaraGastos"]), self.respuesta())

    def ocultar(self):
        return ("ocultar",)

    def reloj(self):
        momento = self.jornada.reloj + timedelta(seconds=self.azar.choice([1, 60, 86400, 86400 * 7]))
        return ("reloj", str(momento))

    def fecha(self):
        """A date field gets a date: now and then of 8 characters, or past the month's end."""
        azar, campo = self.azar, self.azar.choice([DESDE, HASTA])
        texto = a_vista(f"{self.inventor.cerca(60):%Y%m%d}")
        if campo == HASTA and a_guardada(texto) < self.jornada.pantalla.desde() and azar.randrange(4):
            texto = "15/12/2007"
        suerte = azar.randrange(8)
        if suerte == 0:
            texto = texto[:6] + texto[8:]
        elif suerte == 1:
            texto = "31" + texto[2:]
        return ("fecha", campo, texto, self.respuesta())

    def ajeno(self):
        azar = self.azar
        cual = azar.choice(["ajeno_pago", "ajeno_borra", "ajeno_nueva"])
        if cual != "ajeno_nueva":
            return (cual, azar.randrange(8))
        codigo, numero_suyo = azar.choice(["400", "401", "12", "7"]), azar.choice(["AJ1", "F1", "1001"])
        fecha = self.inventor.cerca(40)
        clave = {"NConcepto": codigo, "Año": str(fecha.year)}
        importe = self.inventor.importe()
        factura = dict.fromkeys(FACTURA.split()) | clave | {
            "Factura": numero_suyo, "Fecha": f"{fecha:%Y%m%d}", "Total": importe}
        recibo = clave | {"NFactura": numero_suyo, "FechaVto": f"{self.inventor.cerca(30):%Y%m%d}",
                          "Importe": importe, "Pagado": self.inventor.pagado(importe), "Fechapago": ""}
        return ("ajeno_nueva", factura, [recibo])

    def en_el_editor(self):
        azar, pantalla = self.azar, self.jornada.pantalla
        if pantalla.foco != EDITOR or azar.randrange(10) < 5:
            return ("importe", self.importe())
        return azar.choice([("tecla", "Intro"), ("tecla", "Intro"), ("tecla", "Abajo"), ("tecla", "Arriba"),
                            ("tecla", "Escape"), self.celda(), self.celda(), self.boton(), self.fecha(),
                            self.cerrar(), self.filtro()])

    def importe(self):
        azar, rejilla = self.azar, self.jornada.pantalla.rejilla
        debido = numero(rejilla.celdas[rejilla.fila][3].lstrip("-"))
        suerte = azar.randrange(24)
        if suerte == 0:
            return ""
        if suerte == 1:
            return ","
        if suerte == 2:
            return "-5"
        if suerte == 3:
            return f"{debido + azar.random() * 10:.2f}"
        if suerte < 9:
            return mascara(debido).replace(".", "")
        if suerte < 12:
            return f"{debido * azar.random():.3f}".replace(".", azar.choice(".,"))
        if suerte < 15:
            return "0"
        return f"{debido * azar.random():.2f}".replace(".", azar.choice(".,"))
