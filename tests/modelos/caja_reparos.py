"""What the days with cash entries leave alone, and the oddities that may be left out of them."""

from reparos import sobre_el_editor

RAREZAS_DE_CAJA = {
    "automaticas": "automatic invoices",
    "devoluciones": "cash entries below zero; there are no automatic invoices on their days",
    "momento_cero": "a cash entry at the moment zero",
    "sin_cifras": "a concept whose code is no number",
    "comilla_tras_elegir": "a quote in the concept of automatic invoices after one was chosen",
}


def calla_con_caja(paso, pantalla, con):
    """Whether a step is passed over."""
    if paso[:2] == ("apretar", "BtnAutCaja"):
        return ("automaticas" not in con or pantalla.panel_visible or sobre_el_editor(pantalla, con)
                or any((a["Importe"] or 0) < 0 for a in pantalla.local.caja.filas))
    if paso[:2] == ("teclear_otra", "TxtConcepto") and "'" in paso[2]:
        return "comilla_tras_elegir" not in con and pantalla.modal.TxtBusco.texto != ""
    return False
