"""The amounts of the entry: its total, bases, VAT and withholding, and the checks when a field is left."""

from alta_controles import BLANCO, INACTIVO
from alta_cuentas import (descuadra, enmascarar, limite_de_base, limite_de_irpf, llano, redondo, repartir, repartir_resto,
                          val)
from alta_mensajes import (BASE_INCORRECTA, BASE_IRPF_INCORRECTA, BASES_MAYORES, EXENTO_INCORRECTO, IMPORTE_CAMBIADO,
                           IRPF_INCORRECTO)
from valores import mascara, numero

TASAS = (16, 7, 4)
# The boxes whose being off makes a base's sum binding; the one of 7 asks for its own.
OTRAS = {16: ("Chk7", "Chk4", "Chk0"), 7: ("Chk7", "Chk16", "Chk0"), 4: ("Chk7", "Chk16", "Chk0")}


class Importes:
    """Part of the screen. `saltar` lets the next leaving of a base field through."""

    def chk(self, tipo, estado):
        nombres = {0: ["TxtB0"], 15: ["TxtBIRPF", "TxtIRPF", "TxtTipoIRPF"]}.get(tipo) or [f"TxtB{tipo}", f"TxtI{tipo}"]
        campos = [self.hoja[nombre] for nombre in nombres]
        for campo in campos:
            campo.activo = estado
            campo.color = BLANCO
        if tipo == 15:
            self.LblTipo.activo = estado
        if not estado:
            for campo in campos:
                campo.texto = ""
                campo.color = INACTIVO
        elif tipo == 15:
            self.TxtTipoIRPF.texto = "15"
        elif tipo == 0 and not self.cargando_factura and not self.alguna("Chk16", "Chk7", "Chk4"):
            self.TxtB0.texto = enmascarar(self.TxtIFra.texto)

    def alguna(self, *casillas):
        return any(self.hoja[casilla].valor for casilla in casillas)

    def sumar_bases(self, con_irpf=True):
        """What bases and VAT add up to, less the withholding."""
        total = 0.0
        for nombre in ("TxtB16", "TxtB7", "TxtB4", "TxtB0", "TxtI16", "TxtI7", "TxtI4"):
            total += numero(self.hoja[nombre].texto)
        return total - numero(self.TxtIRPF.texto) if con_irpf else total

    def _rechazar(self, aviso, campo):
        self.puesto.avisar(aviso)
        self.poner_foco(campo.nombre)

    def dejar_base(self, tasa):
        base, iva = self.hoja[f"TxtB{tasa}"], self.hoja[f"TxtI{tasa}"]
        if self.saltar:
            self.saltar = False
            if base.texto == "":
                iva.texto = ""
            return
        self.saltar = True
        if self.BtnCancelar.tag != "No":
            if base.texto == "":
                iva.texto = ""
            elif not self._vale_base(tasa, base, iva):
                self._rechazar(BASE_INCORRECTA.format(tasa), base)
                return
        self.saltar = False

    def _vale_base(self, tasa, base, iva):
        limite = limite_de_base(llano(self.TxtIFra.texto), numero(self.TxtIRPF.texto), tasa)
        if limite < numero(base.texto):
            return False
        iva.texto = mascara(llano(base.texto) * tasa / 100)
        base.texto = enmascarar(base.texto)
        suma = self.sumar_bases()
        return self.alguna(*OTRAS[tasa]) or not descuadra(suma, llano(self.TxtIFra.texto))

    def dejar_exento(self):
        if self.saltar:
            self.saltar = False
            return
        self.saltar = True
        if self.BtnCancelar.tag != "No" and self.TxtB0.texto != "" and not self._vale_exento():
            self._rechazar(EXENTO_INCORRECTO, self.TxtB0)
            return
        self.saltar = False

    def _vale_exento(self):
        if numero(enmascarar(self.TxtIFra.texto)) < numero(self.TxtB0.texto):
            return False
        self.TxtB0.texto = enmascarar(self.TxtB0.texto)
        suma = self.sumar_bases(con_irpf=False)
        return self.alguna("Chk7", "Chk4", "Chk16") or not descuadra(suma, llano(self.TxtIFra.texto))

    def dejar_irpf(self):
        if self.saltar:
            self.saltar = False
            if self.TxtBIRPF.texto == "":
                self.TxtIRPF.texto = ""
            return
        self.saltar = True
        if self.BtnCancelar.tag != "No":
            if self.TxtBIRPF.texto == "":
                self.TxtIRPF.texto = ""
            elif not self._vale_irpf():
                return
        self.saltar = False

    def _vale_irpf(self):
        tipo, base = val(self.TxtTipoIRPF.texto), self.TxtBIRPF
        if limite_de_irpf(llano(self.TxtIFra.texto), tipo) < numero(base.texto):
            if not self.Chk0.valor:
                self._rechazar(BASE_IRPF_INCORRECTA, base)
                return False
            self.TxtIRPF.texto = mascara(llano(base.texto) * tipo / 100)
            return True
        base.texto = enmascarar(base.texto)
        self.TxtIRPF.texto = mascara(llano(base.texto) * tipo / 100)
        suma = self.sumar_bases()
        if descuadra(suma, llano(self.TxtIFra.texto)) and not self.alguna("Chk16", "Chk7", "Chk4", "Chk0"):
            self._rechazar(IRPF_INCORRECTO, self.TxtIRPF)
            return False
        return True

    def tipo_ha_cambiado(self):
        if val(self.TxtBIRPF.texto) > 0:
            self.TxtIRPF.texto = mascara(llano(self.TxtBIRPF.texto) * val(self.TxtTipoIRPF.texto) / 100)

    def enmascarar_campo(self, nombre):
        self.hoja[nombre].texto = enmascarar(self.hoja[nombre].texto)

    # The total.

    def de_prevision_a_factura(self):
        """Enter in the total: a forecast row that has got a number is becoming an invoice."""
        if self.fila_actual()[2] == "" and self.TxtNFra.texto != "":
            self.Chk16.valor = True
            self.OptVista.valor = True

    def dejar_total(self):
        total = self.TxtIFra
        total.texto = enmascarar(total.texto)
        if total.tag in ("", "0,00"):
            if self.OptVista.valor:
                if self.TxtFVista.texto == "":
                    self.opt("Vista", True, False)
                self.generar_vista()
            else:
                self.generar_aplazado()
        elif total.texto != enmascarar(total.tag):
            self._cambiar_total(total)
        self._repartir_total(total)
        total.tag = enmascarar(total.texto)

    def _cambiar_total(self, total):
        self.hay_importe = self.puesto.preguntar(IMPORTE_CAMBIADO, 4) != "si"
        if self.hay_importe:
            total.texto = enmascarar(total.tag)
        elif self.OptVista.valor:
            self.generar_vista()
        elif self.OptAplazado.valor:
            self.generar_aplazado()

    def _repartir_total(self, total):
        tasas = [tasa for tasa in TASAS if self.hoja[f"TxtB{tasa}"].activo]
        if total.texto == "" or not total.texto > "0" or not tasas and not self.TxtB0.activo:
            return
        if not tasas:
            self.TxtB0.texto = enmascarar(total.texto)
            return
        base, iva = self.hoja[f"TxtB{tasas[0]}"], self.hoja[f"TxtI{tasas[0]}"]
        if len(tasas) == 1 and not self.TxtB0.activo:
            base.texto, iva.texto = repartir(llano(total.texto), tasas[0])
            return
        resto = llano(total.texto)
        for menor in TASAS[TASAS.index(tasas[0]) + 1:]:
            if self.hoja[f"TxtB{menor}"].texto != "":
                resto -= llano(self.hoja[f"TxtB{menor}"].texto) + llano(self.hoja[f"TxtI{menor}"].texto)
        if self.TxtB0.texto != "":
            resto -= llano(self.TxtB0.texto)
        if redondo(resto) >= 0:
            base.texto, iva.texto = repartir_resto(resto, tasas[0])
        else:
            self._rechazar(BASES_MAYORES, base)
            base.texto = iva.texto = "0,00"
