"""What the days with cash entries leave alone, and the oddities that may be left out of them."""

from reparos import sobre_el_editor
from valores import es_fecha, normalizar

RAREZAS_DE_CAJA = {
    "automaticas": "automatic invoices",
    "devoluciones": "cash entries below zero; there are no automatic invoices on their days",
    "momento_cero": "a cash entry at the moment zero",
    "sin_cifras": "a concept whose code is no number",
    "periodo_sin_fecha": "automatic invoices of a period whose ends are no dates",
    "comilla_tras_elegir": "a quote in the concept of automatic invoices after one was chosen",
}


def _genera_sin_fecha(paso, modal):
    pulsa = paso[:3] == ("en_otra", "pulsar", "BtnAceptar") or (
        paso[0] == "tecla_otra" and paso[1] in ("Intro", "Espacio") and modal.foco == "BtnAceptar")
    return pulsa and modal.nombre == "FrmFraAutomaticas" and modal.div_fecha.visible and not all(
        es_fecha(normalizar(modal.hoja[campo].texto)) for campo in ("CbxFDesde", "CbxFHasta"))


def calla_con_caja(paso, pantalla, con):
    """Whether a step is passed over."""
    if paso[:2] == ("apretar", "BtnAutCaja"):
        return ("automaticas" not in con or pantalla.panel_visible or sobre_el_editor(pantalla, con)
                or any((a["Importe"] or 0) < 0 for a in pantalla.local.caja.filas))
    if paso[:2] == ("teclear_otra", "TxtConcepto") and "'" in paso[2]:
        return "comilla_tras_elegir" not in con and pantalla.modal.TxtBusco.texto != ""
    return "periodo_sin_fecha" not in con and pantalla.modal is not None and _genera_sin_fecha(paso, pantalla.modal)
