"""How the runner tells widgets of other screens, and what of each is compared."""

import re

DE_CAJA = {
    "DivFondo": ["Visible"], "DivSel": ["Tag", "Visible"], "LblSeleccion": ["Visible"],
    "LblTxt": ["Caption", "Tag", "Visible"], "LblTxt2": ["Caption", "Visible"], "VScroll1": ["Value", "Min", "Max"],
    "BtnFacturar": ["Caption", "Enabled"], "BtnAceptar": ["Caption", "Enabled"], "Barra1": ["Caption"]}
DE_AUTOMATICAS = {
    "TxtConcepto": ["Text", "Enabled", "BackColor"], "TxtNConcepto": ["Text", "Tag"], "TxtBusco": ["Text"],
    "CbxFDesde": ["Text", "Enabled", "BackColor"], "CbxFHasta": ["Text", "Enabled", "BackColor"],
    "TxtFFra": ["Text", "BackColor"], "TxtNFra": ["Text", "BackColor"], "CboIVA": ["Text", "ListIndex", "BackColor"],
    "OptTodo": ["Caption", "Value"], "OptConcepto": ["Caption", "Value"], "CmdCon": ["Caption", "Enabled"],
    "LblNombre": ["Caption", "Enabled"], "LblFecha2": ["Caption", "Enabled"], "Lbl": ["Caption", "Enabled"],
    "lblFecha": ["Caption"], "DivFecha": ["Visible"], "PicTexto": ["Visible"], "BtnAceptar": ["Caption", "Enabled"],
    "BtnCancelar": ["Caption", "Enabled"]}
MIRADOS_FUERA = {"FrmPagosCaja": DE_CAJA, "FrmFraAutomaticas": DE_AUTOMATICAS}


def en_comillas(texto):
    escapado = texto.replace("\\", "\\\\").replace('"', '\\"').replace("\n", "\\n")
    return f'"{escapado}"'


def que_se_mira(nombre):
    """The properties that count of a widget of another screen, None of what is none."""
    hecho = re.fullmatch(r"(\w+)\.(\w+)(\(\d+\))?", nombre)
    return hecho and MIRADOS_FUERA.get(hecho[1], {}).get(hecho[2])
