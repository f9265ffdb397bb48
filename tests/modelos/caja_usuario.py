"""The random user who knows the screens of cash entries."""

from alta_usuario import UsuarioConPanel
from auto_planes import PlanesAutomaticos
from caja_jornada import DE_OTRA
from caja_planes import PlanesDeCaja


class UsuarioDeCaja(PlanesDeCaja, PlanesAutomaticos, UsuarioConPanel):
    PASOS = 40, 120

    def paso(self):
        pantalla = self.jornada.pantalla
        if pantalla.modal is not None:
            return self._en_la_otra(pantalla)
        if not pantalla.panel_visible and not pantalla.editor_visible and not self.plan and self.azar.randrange(10) < 6:
            planes = [self.con_caja] * 4 + [self.caja_de_una_guardada] * 2 + [self.pagada_por_la_caja] * 2
            planes += [self.facturar_y_rehusar] * 3 + [self.otro_concepto]
            if "automaticas" in self.con:
                planes += [self.automaticas] * 4 + [self.repetida_automatica] * 2 + [self.hueca_automatica] * 2
            self.plan = self.azar.choice(planes)()
            return self._seguir()
        if pantalla.editor_visible and not pantalla.panel_visible and not self.plan and self.azar.randrange(12) == 0:
            return ("apretar", "BtnAutCaja")
        if pantalla.panel_visible and not self.plan and self.azar.randrange(8) == 0:
            return self.con_respuestas("apretar", "BotonCaja")
        return super().paso()

    def _en_la_otra(self, pantalla):
        """A plan goes on in the screen that is open; steps that were meant for another one are lost."""
        if self.plan and self.azar.randrange(20):
            sigue = self.plan[0] in (self.marcar, self.teclas_en_caja, self.recorrer, self.en_automaticas)
            if sigue or not callable(self.plan[0]) and self.plan[0][0] in (*DE_OTRA, "otras", "foco"):
                return self._seguir()
        return self.en_la_caja() if pantalla.modal is pantalla.caja else self.en_automaticas()

    def miradas(self):
        azar, pantalla = self.azar, self.jornada.pantalla
        yield from super().miradas()
        if pantalla.modal is not None and azar.randrange(2) or pantalla.caja is not None and azar.randrange(4) == 0:
            yield ("otras",)
        if pantalla.modal is not None:
            yield ("foco",)
        if azar.randrange(8) == 0:
            yield ("trabajo", "caja")
