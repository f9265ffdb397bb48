"""The random user who prints."""

from fechas import DESDE, HASTA
from listados import PORCENTAJES
from papel_jornada import fecha_a_medias
from papel_negocio import DE_PANTALLA, IMPRESORAS, PAGINAS, InventorDePapel
from usuario import Usuario

DETRAS = ["pulsar ImgImpresora", "celda MSFPagos 1 5", "celda MSFPagos 2 1", "pulsar BotonBorrar", "pulsar OptConcepto",
          "barra FrmTesvaraGastos", "foco TxtFPrevisionD", "foco OptConcepto", "pulsar BotonNuevo", "pulsar ChkPagados", "doble MSFPagos 1 4", "pulsar BotonAceptar"]


class UsuarioDePapel(Usuario):
    PASOS = 10, 40

    def __init__(self, azar, con, jornada):
        super().__init__(azar, con, jornada)
        self.inventor = InventorDePapel(azar, con)
        self.inventor.dia = jornada.reloj.date()
        self.visto = jornada.informe

    def paso(self):
        pantalla, azar = self.jornada.pantalla, self.azar
        if pantalla.modal:
            suyo = self.en_busco if pantalla.modal.nombre == "frmBuscoImpresora" else self.en_listado
            return suyo() if azar.randrange(12) else self.del_anfitrion()
        if pantalla.panel_visible:
            return azar.choice([("imprimir",), ("otras",), ("apretar", "BtnCancelar"), ("apretar", "BtnCancelar")])
        if fecha_a_medias(pantalla) and azar.randrange(3) == 0:
            return self.fecha_entera(pantalla.foco)
        suerte = azar.randrange(100)
        if suerte < 30 or fecha_a_medias(pantalla):
            return ("imprimir",)
        if suerte < 34:
            return ("apretar", azar.choice(["BotonNuevo", "BotonModificar"]))
        if suerte < 37:
            return self.del_anfitrion()
        return super().paso()

    def fecha(self):
        """Some are left in the middle, and the list is printed so."""
        if self.azar.randrange(4):
            return super().fecha()
        return ("fecha", self.azar.choice([DESDE, HASTA]), self.azar.choice(["", "1", "12/0", "15/03/20"]), "no")

    def fecha_entera(self, campo):
        return ("fecha", campo, "31/12/2029" if campo == HASTA else "01/01/2004", self.respuesta())

    def del_anfitrion(self):
        azar = self.azar
        return azar.choice([
            ("texto", "Pagina", azar.choice(PAGINAS)), ("texto", "Pantalla", azar.choice(DE_PANTALLA)),
            ("impresora", azar.choice(IMPRESORAS)), self.ocultar(), self.reloj(), self.cerrar(),
            ("detras", azar.choice(DETRAS)), ("detras", azar.choice(DETRAS)), ("detras", azar.choice(DETRAS))])

    def en_busco(self):
        azar, cuantos = self.azar, len(self.jornada.pantalla.modal.nombres)
        suerte = azar.randrange(20)
        if suerte < 8:
            return ("en_busco", azar.choice(["Img({})", "LblImpre({})"]).format(azar.randrange(cuantos)))
        if suerte < 12:
            return ("en_busco", azar.choice(["ImgDer", "ImgDer", "ImgIzq"]))
        if suerte < 18:
            return azar.choice([("en_busco", "Boton1")] * 4 + [("tecla_busco", "Intro")])
        return azar.choice([("en_busco", "Boton2"), ("barra_otra",), ("tecla_busco", "Escape")])

    def en_listado(self):
        azar, modal = self.azar, self.jornada.pantalla.modal
        suerte = azar.randrange(10)
        if suerte < 3:
            return ("zoom", azar.choice(PORCENTAJES))
        if suerte < 7:
            return ("mover", azar.choice([0, 1, modal.maximo, modal.maximo - 1, azar.randrange(60), -3]))
        return ("barra_otra",)

    def en_el_editor(self):
        veces = 2 if "-" in self.jornada.pantalla.editor else 5
        return ("imprimir",) if self.azar.randrange(veces) == 0 else super().en_el_editor()

    def miradas(self):
        azar, jornada = self.azar, self.jornada
        yield from super().miradas()
        if jornada.informe is not self.visto or azar.randrange(20) == 0:
            self.visto = jornada.informe
            yield ("informe",)
            yield ("rejilla",)
            yield ("colores", len(jornada.pantalla.rejilla.celdas) - 1)
        yield ("foco",)
        if jornada.pantalla.modal and azar.randrange(3) or azar.randrange(15) == 0:
            yield ("otras",)
