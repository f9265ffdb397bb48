"""The random user of list and panel: most entries are typed with sense, some steps have none."""

from datetime import timedelta

from alta_caminos import Caminos
from alta_planes import Planes
from alta_campos import DE_ENTEROS, DE_FECHA, DE_IMPORTE
from usuario import Usuario

CAMPOS = ["TxtConcepto", "TxtFFra", "TxtNFra", "TxtIFra", "TxtB16", "TxtI16", "TxtB7", "TxtI7", "TxtB4", "TxtI4",
          "TxtB0", "TxtBIRPF", "TxtTipoIRPF", "TxtIRPF", "TxtFVista", "TxtNRecibos", "TxtDias", "TxtCadencia", "TxtIPrev",
          "TxtCada", "TxtDesde", "CboPlazo"]
DE_TECLAS = ["Chk16", "Chk7", "Chk4", "Chk0", "Chk15", "OptGenerar", "OptVista", "OptAplazado", "CboPlazo",
             "MSFVencimientos", "CmdCon", "BtnAceptar"]
MARCAS = ["Chk16", "Chk7", "Chk4", "Chk0", "Chk15", "OptGenerar", "OptVista", "OptAplazado"]


class UsuarioConPanel(Planes, Caminos, Usuario):
    PASOS = 40, 140

    def __init__(self, azar, con, jornada):
        super().__init__(azar, con, jornada)
        self.plan = []

    def paso(self):
        pantalla = self.jornada.pantalla
        if not pantalla.panel_visible:
            if self.plan:
                return self._seguir()
            if pantalla.editor_visible or self.azar.randrange(100) >= 45:
                return super().paso()
            self.plan = self.azar.choice([self.nueva] * 4 + [self.modificar] * 4 + [self.prevista] * 3
                                         + [self.repetida] + [self.rodeo] * 6)()
            return self._seguir()
        if self.plan and self.azar.randrange(100) < 95:
            return self._seguir()
        if pantalla.TxtMsf2.visible and self.azar.randrange(10) < 6:
            return self.en_editor_vto()
        if not self.plan and self.azar.randrange(10) < 5:
            return self.con_respuestas("apretar", self.azar.choice(["BtnAceptar"] * 3 + ["BtnCancelar"]))
        return self.en_el_panel()

    def _seguir(self):
        paso = self.plan.pop(0)
        return paso() if callable(paso) else paso

    def miradas(self):
        yield ("avisos",)
        azar, abierto = self.azar, self.jornada.pantalla.panel_visible
        if abierto:
            if azar.randrange(10) < 6:
                yield ("panel",)
            if azar.randrange(10) < 6:
                yield ("vtos",)
            if azar.randrange(10) < 4:
                yield ("foco",)
            if azar.randrange(40) == 0:
                yield ("rotulos",)
            if azar.randrange(12) == 0:
                yield ("trabajo", azar.choice(["facturas", "bases", "vencimientos", "previsiones"]))
        else:
            if azar.randrange(10) < 3:
                for tabla in ("facturas", "bases", "vencimientos", "previsiones"):
                    yield ("trabajo", tabla)
            yield from list(super().miradas())[1:]

    def doble(self):
        paso = super().doble()
        celdas = self.jornada.pantalla.rejilla.celdas
        if paso[1] < len(celdas) and celdas[paso[1]][2] == "" and self.azar.randrange(3):
            return ("celda", paso[1], 1)
        return paso

    def con_respuestas(self, *paso):
        """A step with the answers that it may need, and what the chooser will give."""
        azar = self.azar
        respuestas = azar.choice([("si",), ("si",), ("no",), ("si", "no"), ("no", "si")])
        return (*paso, respuestas, self.codigo() if azar.randrange(4) else None)

    def codigo(self):
        if "conceptos" in self.con and self.azar.randrange(25) == 0:
            return "9999"
        codigos = [fila["NConcepto"] for fila in self.jornada.almacen.conceptos.filas]
        return self.azar.choice(codigos) if codigos else None

    # Steps without a plan.

    def en_el_panel(self):
        azar = self.azar
        suerte = azar.randrange(100)
        if suerte < 12:
            return self.con_respuestas("enfocar", azar.choice(CAMPOS))
        if suerte < 24:
            return self.con_respuestas("tecla_panel", "Intro")
        if suerte < 50:
            campo = azar.choice(CAMPOS[:-1])
            return self.con_respuestas("teclear", campo, self.texto_de(campo))
        if suerte < 54:
            return ("anadir", azar.choice(["5", "0", ",5", "12", "/05"]))
        if suerte < 68:
            return self.con_respuestas("apretar", azar.choice(MARCAS))
        if suerte < 80:
            return self.en_vtos()
        if suerte < 85:
            return self.con_respuestas("elegir", azar.randrange(3))
        if suerte < 88:
            return self.tecla()
        if suerte < 91:
            return self.con_respuestas("apretar", "CmdCon")
        if suerte < 94:
            return azar.choice([("reloj", str(self.jornada.reloj + timedelta(days=1))), ("ajeno_pago", 1), ("ocultar",),
                                ("cerrar", "barra FrmTesvaraGastos", "no"), ("cerrar", "cerrar", self.respuesta())])
        if suerte < 97:
            return ("apretar", azar.choice(["BotonAceptar", "BotonBorrar", "BotonNuevo", "BotonModificar", "ChkPagados",
                                            "OptFecha", "OptConcepto"]))
        return self.con_respuestas("apretar", azar.choice(["BtnAceptar", "BtnCancelar"]))

    def tecla(self):
        """A key where it finds itself, or in a widget that does more with keys than with text."""
        azar = self.azar
        tecla = self.con_respuestas("tecla_panel", azar.choice(["Arriba", "Abajo", "Espacio", "Borrar"] + ["Tab"] * 4))
        if azar.randrange(12) == 0:
            return self.con_respuestas("tecla_panel", "Escape")
        if azar.randrange(2):
            self.plan.insert(0, tecla)
            return self.con_respuestas("enfocar", azar.choice(DE_TECLAS))
        return tecla

    def en_vtos(self):
        fila, columna = self.azar.randrange(1, 5), self.azar.choice([0, 1, 1, 2, 2, 3, 3])
        return self.con_respuestas("vto" if self.azar.randrange(3) else "vto_doble", fila, columna)

    def en_editor_vto(self):
        azar, pantalla = self.azar, self.jornada.pantalla
        suerte = azar.randrange(10)
        if suerte < 5:
            if azar.randrange(2):
                self.plan.insert(0, self.con_respuestas("tecla_panel", "Intro"))
            return ("teclear", "TxtMsf2", self._importe_de_vto(pantalla))
        if suerte < 8:
            return self.con_respuestas("tecla_panel", azar.choice(["Intro", "Intro", "Arriba", "Abajo", "Escape"]))
        return self.en_vtos() if suerte == 8 else self.con_respuestas("enfocar", azar.choice(CAMPOS))

    def _importe_de_vto(self, pantalla):
        azar = self.azar
        if azar.randrange(8) == 0:
            return azar.choice(["", "", "-5", ",", "-"])
        importe = pantalla.vtos.celdas[pantalla.vtos.fila][1]
        return azar.choice([importe, importe, self.dinero(), "0", "10", "12,345"])

    def texto_de(self, campo):
        azar = self.azar
        if campo in DE_FECHA:
            return self.dia()
        if campo in DE_ENTEROS:
            if azar.randrange(12) == 0 and (campo == "TxtTipoIRPF" or campo == "TxtNRecibos" and "muchos" in self.con):
                return azar.choice(["7,5", "2,5", "345", "22,"])[:5]
            return azar.choice(["1", "2", "3", "4", "5", "6", "7", "15", "30", "60", "", "0", "90"])
        if campo in DE_IMPORTE:
            return self.dinero()
        if campo == "TxtNFra":
            if "comillas" in self.con and azar.randrange(3) == 0:
                return "O'1"
            return azar.choice(["F1", "F2", "A-12", "1001", "", f"N{azar.randrange(1000)}", "ñ7 b", "f1", " ", " F1 "])
        if "comillas" in self.con and azar.randrange(8) == 0:
            return "d'Or"
        return azar.choice([self.codigo() or "", self.codigo() or "", "luz", "", "Agua", "x"])

    def dinero(self):
        azar = self.azar
        suerte = azar.randrange(30)
        if suerte == 0:
            return ""
        if suerte == 1:
            return azar.choice(["-5", "-", ",", "-1.234,50", ",5"]) if "raros" in self.con else "0"
        if suerte == 2:
            return f"{azar.randrange(10**6)},{azar.randrange(1000):03}"
        if suerte == 3:
            return "999999999999999" if "anchos" in self.con and azar.randrange(4) == 0 else "0"
        if suerte < 7:
            return f"{azar.randrange(1, 999)}.{azar.randrange(1000):03},{azar.randrange(100):02}"
        return f"{azar.choice([azar.randrange(1, 30) * 100, azar.randrange(1, 5000)])}" + azar.choice(
            ["", "", ",5", f",{azar.randrange(100):02}", f".{azar.randrange(100):02}"])

    def dia(self):
        azar = self.azar
        fecha = self.inventor.cerca(45) if azar.randrange(3) else self.jornada.reloj.date()
        texto = f"{fecha:%d/%m/%Y}"
        suerte = azar.randrange(20)
        if suerte == 0:
            return f"{fecha:%d/%m/%y}"
        if suerte == 1:
            return azar.choice(["31" + texto[2:], texto.replace("/", ""), texto[:5]])
        if suerte in (2, 3) and "fechas" in self.con:
            return azar.choice(["", "", "99/99/2005", "1/1", "31/02/2005", "00/00/00", "31/12/9999", "01/01/0100"])
        return texto
