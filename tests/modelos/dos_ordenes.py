"""Random orders of users over one stored database: who does what after whom."""

import random

from dos_negocio import CONCEPTOS, NUMEROS, VENCEN, Azares

FUERA = 9
QUIEN = {1: "ANA", 2: "EVA", 3: "INES"}
RELOJES = ["2005-03-15 10:00:00", "2005-03-15 10:00:00", "2005-04-15 11:30:00"]


class Orden:
    """What is played: steps of one session each, as (session, commands)."""

    def __init__(self, semilla, pasos):
        self.semilla, self.pasos = semilla, pasos


def inventar(semilla):
    return Inventor(semilla).orden()


class Inventor(Azares):
    def __init__(self, semilla):
        super().__init__(random.Random(semilla))
        self.semilla = semilla
        self.sesiones = [1, 2, 3] if self.uno_de(5) else [1, 2]
        self.relojes = {sesion: self.azar.choice(RELOJES) for sesion in self.sesiones}

    def orden(self):
        azar = self.azar
        pasos = [(FUERA, ["datos " + linea]) for linea in self.negocio()]
        if self.uno_de(5):
            pasos.append(self.de_traba())
        pasos += [(sesion, self.entrada(sesion)) for sesion in self.sesiones]
        for _ in range(azar.randint(6, 24)):
            pasos += azar.choices(
                [self.pagar, self.pagar_en_parte, self.borrar, self.entrar, self.de_caja, self.automatica, self.grabar,
                 self.cancelar, self.rango, self.cerrar, self.matar, self.fuera, self.trabar],
                [14, 6, 6, 9, 5, 4, 22, 4, 8, 5, 3, 12, 1])[0](azar.choice(self.sesiones))
        return Orden(self.semilla, pasos + [paso for sesion in self.sesiones for paso in self.grabar(sesion)])

    def entrada(self, sesion):
        """A fresh program: its values, answers for a day, the guard, the load."""
        respuestas = " ".join(self.azar.choices(["si", "no"], [2, 1], k=150))
        return ["reloj " + self.relojes[sesion], "usuario " + QUIEN[sesion], "responder " + respuestas, "guardia",
                "cargar"]

    def fila(self):
        return self.azar.choice([1, 1, 2, 2, 3, 4, 5, 6])

    def pagar(self, sesion):
        return [(sesion, [f"celda MSFPagos {self.fila()} 5"])]

    def pagar_en_parte(self, sesion):
        importe = self.azar.choice(["5", "7,50", "10", "0"])
        return [(sesion, [f"doble MSFPagos {self.fila()} 4", f'teclear TxtMsf "{importe}"', "tecla Intro"])]

    def borrar(self, sesion):
        return [(sesion, [f"celda MSFPagos {self.fila()} 1", "pulsar BotonBorrar"])]

    @staticmethod
    def _tras(sesion, boton, ordenes):
        """A button, which the focus may reach from a date whose range is then loaded, and what is done after it."""
        return [(sesion, ["pulsar " + boton]), (sesion, ordenes)]

    def _cabeza(self):
        fecha = "20041230" if self.uno_de(8) else self.azar.choice(VENCEN)
        return [f'teclear TxtConcepto "{self.azar.choice(list(CONCEPTOS))}"',
                f'teclear TxtFFra "{fecha[6:]}/{fecha[4:6]}/{fecha[:4]}"']

    def _numero(self):
        return f'teclear TxtNFra "{self.azar.choice(NUMEROS + ["N1", "N2"])}"'

    def entrar(self, sesion):
        """An invoice at sight; what the panel refuses is cancelled."""
        return self._tras(sesion, "BotonNuevo", self._cabeza() + [
            self._numero(), 'teclear TxtIFra "116"', "foco TxtNFra", "pulsar BtnAceptar", "pulsar BtnCancelar"])

    def de_caja(self, sesion):
        return self._tras(sesion, "BotonNuevo", self._cabeza() + [
            "foco TxtNFra", "pulsar BotonCaja", "pulsar FrmPagosCaja.LblSeleccion(0)",
            "pulsar FrmPagosCaja.BtnFacturar", self._numero(), "pulsar BtnAceptar", "pulsar BtnCancelar"])

    def automatica(self, sesion):
        numero = self.azar.choice(NUMEROS + ["AUTO"])
        return self._tras(sesion, "BtnAutCaja", [
            f'teclear FrmFraAutomaticas.TxtNFra "{numero}"', "pulsar FrmFraAutomaticas.BtnAceptar",
            "barra FrmFraAutomaticas"])

    def grabar(self, sesion):
        return [(sesion, ["pulsar BotonAceptar"])]

    def cancelar(self, sesion):
        return [(sesion, ["pulsar BotonCancelar"])]

    def rango(self, sesion):
        desde, hasta = self.azar.choice([("01/03/2005", "31/03/2005"), ("16/03/2005", "15/04/2005"),
                                         ("01/04/2005", "30/04/2005"), ("28/02/2005", "10/03/2005")])
        cambios = [f'teclear TxtFPrevisionD "{desde}"', f'teclear TxtFPrevision "{hasta}"']
        return [(sesion, [cambio]) for cambio in (cambios if self.uno_de(2) else cambios[1:])]

    def cerrar(self, sesion):
        return [(sesion, ["cerrar", "cargar"])]

    def matar(self, sesion):
        return [(sesion, ["matar", *self.entrada(sesion)])]

    def fuera(self, _):
        return [(FUERA, ["datos " + linea for linea in self.ajena()])]

    def de_traba(self):
        base, sentencia = self.traba()
        return (FUERA if base == "datos" else self.azar.choice(self.sesiones), [f"{base} {sentencia}"])

    def trabar(self, _):
        return [self.de_traba(), *([] if self.uno_de(2) else [(FUERA, ["datos DROP TRIGGER IF EXISTS Traba"])])]
