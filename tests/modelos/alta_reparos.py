"""What the days with entries leave alone, and the oddities that may be left out of them."""

from alta_campos import DE_ENTEROS, DE_FECHA
from alta_cuentas import es_numero, llano
from valores import a_guardada

RAREZAS_DE_ENTRADA = {
    "fechas": "an invoice date that is erased, or none",
    "raros": "amounts in the panel that are no number, or negative",
    "total_vacio": "fields of the panel left while the total is empty",
    "intro_importe": "Enter in the amount column of the receipts' editor",
    "vto_raro": "an empty, negative or meaningless amount in the receipts' editor",
    "cierre_panel": "Cerrar with the panel open",
    "conceptos": "a chooser that answers with a code that there isn't",
    "muchos": "receipts by the hundred, terms with a comma",
    "ida_y_vuelta": "the click on OptConcepto while the panel is open",
}
BASES = ("TxtB16", "TxtB7", "TxtB4", "TxtB0", "TxtBIRPF")
DE_LISTA = ("celda", "doble", "importe", "tecla", "fecha")


def calla_entrada(paso, pantalla, con):
    """Whether a step is passed over."""
    clase = paso[0]
    if not pantalla.panel_visible:
        return clase in ("teclear", "anadir", "enfocar", "tecla_panel", "vto", "vto_doble", "elegir") or (
            clase == "apretar" and paso[1] not in ("BotonNuevo", "BotonModificar", "BtnAutCaja"))
    if clase in DE_LISTA:
        return True
    if clase == "cerrar":
        return "cierre_panel" not in con and paso[1] == "cerrar"
    if clase == "apretar" and paso[1] == "OptConcepto":
        return "ida_y_vuelta" not in con
    return _queda_abierto(paso, pantalla, con)


def _queda_abierto(paso, pantalla, con):
    clase = paso[0]
    if pantalla.foco == "TxtMsf2" and "vto_raro" not in con and not _numero(pantalla.TxtMsf2.texto):
        return clase not in ("teclear", "anadir") or paso[1] != "TxtMsf2"
    if "total_vacio" not in con and _sin_total(pantalla, pantalla.foco):
        return paso[:3] != ("teclear", pantalla.foco, "")
    if clase == "teclear":
        sin_total = paso[1] in BASES and paso[2] != "" and pantalla.TxtIFra.texto == ""
        return "total_vacio" not in con and sin_total or _texto_callado(paso[1], paso[2], con)
    if clase == "anadir":
        return _anadido_callado(pantalla.foco, paso[1], con)
    if clase == "tecla_panel" and paso[1] == "Borrar" and pantalla.foco == "TxtFVista":
        return True  # Enter may have made the date over, and nothing tells where the caret is then.
    if clase == "tecla_panel" and pantalla.foco == "TxtMsf2" and paso[1] == "Intro" and pantalla.vtos.columna == 1:
        return "intro_importe" not in con
    return "total_vacio" not in con and clase == "enfocar" and _sin_total(pantalla, paso[1])


def _sin_total(pantalla, campo):
    return campo in BASES and pantalla.hoja[campo].texto != "" and pantalla.TxtIFra.texto == ""


def _texto_callado(campo, texto, con):
    if campo == "TxtFFra":
        return "fechas" not in con and a_guardada(texto) == ""
    if campo == "TxtMsf2":
        return "vto_raro" not in con and not _numero(texto)
    return "raros" not in con and (texto in ("-", ",") or texto.startswith("-"))


def _anadido_callado(campo, texto, con):
    """A comma in whole numbers, and dates made of two."""
    if campo in DE_ENTEROS:
        return "," in texto and campo != "TxtTipoIRPF" and not (campo == "TxtNRecibos" and "muchos" in con)
    return campo in DE_FECHA and "fechas" not in con


def _numero(texto):
    return es_numero(texto) and llano(texto) >= 0
