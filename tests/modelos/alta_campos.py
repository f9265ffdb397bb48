"""The sheet of the entry panel: its widgets, chains of Enter, and what of each is looked at."""

CAJAS = {
    "TxtConcepto": 60, "TxtNConcepto": 0, "TxtBusco": 0, "TxtFFra": 10, "TxtNFra": 20, "TxtIFra": 15,
    "TxtB16": 15, "TxtI16": 15, "TxtB7": 15, "TxtI7": 15, "TxtB4": 15, "TxtI4": 15, "TxtB0": 15,
    "TxtBIRPF": 15, "TxtTipoIRPF": 5, "TxtIRPF": 15, "TxtFVista": 10, "TxtNRecibos": 3, "TxtDias": 4,
    "TxtCadencia": 4, "TxtDias1": 0, "TxtCadencia1": 0, "TxtIPrev": 15, "TxtCada": 4, "TxtDesde": 10,
    "TxtMsf2": 15}
CASILLAS = {"Chk16": "16%", "Chk7": "  7%", "Chk4": "  4%", "Chk0": "Exento de IVA:", "Chk15": None,
            "OptGenerar": "Generar Previsión cada:"}
OPCIONES = {"OptVista": "A la Vista: ", "OptAplazado": "Aplazado:"}
BOTONES = {"BtnAceptar": "Aceptar", "BtnCancelar": "Cancelar", "BotonCaja": "De Caja", "CmdCon": None}
ROTULOS = {
    "LblNombre": " Concepto: ", "Label2": "Fecha Fra:", "Label3": "NºFra:", "Label5": "Importe:",
    "Label8": "  Importes de Iva  ", "Label9": "Base", "Label10": " Iva", "Label18": "  Importe de I.R.P.F:",
    "Label11": "  Formas de Pago  ", "Label4": "NºRecibos:", "Label6": "Días 1º Vto:", "Label7": "Cadencia:",
    "Label12": "   Vencimientos Pago Aplazado  ", "Label13": "desde",
    "Label15": "  Crear Previsión por un Importe de:"}
PLAZOS = ["Días", "Meses", "Años"]

# The first enabled one of its chain gets the focus on Enter.
CADENAS = {
    "TxtIFra": "TxtB16 TxtB7 TxtB4 TxtFVista TxtCada TxtNRecibos",
    "TxtI16": "TxtB7 TxtB4 TxtB0 TxtFVista TxtCada TxtNRecibos",
    "TxtI7": "TxtB4 TxtB0 TxtFVista TxtCada TxtNRecibos",
    "TxtI4": "TxtB0 TxtFVista TxtCada TxtNRecibos",
    "TxtB0": "TxtFVista TxtNRecibos",
    "TxtB16": "TxtI16", "TxtB7": "TxtI7", "TxtB4": "TxtI4",
    "TxtTipoIRPF": "TxtBIRPF", "TxtBIRPF": "TxtIRPF",
    "TxtIRPF": "TxtB16 TxtB7 TxtB4 TxtFVista TxtCada TxtNRecibos",
    "TxtConcepto": "TxtFFra", "TxtFFra": "TxtNFra TxtIFra", "TxtNFra": "TxtIFra",
    "TxtNRecibos": "TxtDias", "TxtDias": "TxtCadencia",
    "TxtIPrev": "TxtCada", "TxtCada": "CboPlazo", "CboPlazo": "TxtDesde"}

# The order of the Tab key while the panel is open.
ORDEN = ("TxtConcepto CmdCon TxtFFra TxtNFra TxtIFra Chk16 TxtB16 TxtI16 Chk7 TxtB7 TxtI7 Chk4 TxtB4 TxtI4 "
         "Chk0 TxtB0 Chk15 TxtTipoIRPF TxtBIRPF TxtIRPF OptVista TxtFVista OptAplazado TxtNRecibos TxtDias "
         "TxtCadencia MSFVencimientos "
         "OptGenerar TxtCada CboPlazo TxtDesde TxtIPrev BotonCaja BtnAceptar").split()

# The filter of each field's keys.
DE_FECHA = {"TxtFFra", "TxtFVista", "TxtDesde"}
DE_ENTEROS = {"TxtTipoIRPF", "TxtNRecibos", "TxtDias", "TxtCadencia", "TxtCada"}
DE_IMPORTE = {"TxtIFra", "TxtB16", "TxtI16", "TxtB7", "TxtI7", "TxtB4", "TxtI4", "TxtB0", "TxtBIRPF", "TxtIRPF",
              "TxtIPrev", "TxtMsf2"}
# Fields whose Tag takes the text that they had when they got the focus.
CON_TAG = {"TxtFVista", "TxtNRecibos", "TxtDias", "TxtCadencia"}
# Fields that are disabled without a word about their colour.
SIN_COLOR = {"TxtConcepto", "TxtNFra", "TxtFFra", "TxtMsf2", "TxtNConcepto", "TxtBusco", "TxtDias1", "TxtCadencia1"}


def mirados():
    """Which properties of a widget are compared, as the runner names them and in its order."""
    visto = {}
    for nombre in CAJAS:
        visto[nombre] = ["Text"]
        if nombre in CON_TAG | {"TxtIFra", "TxtDesde", "TxtNConcepto"}:
            visto[nombre].append("Tag")
        if nombre == "TxtMsf2":
            visto[nombre].append("Visible")
        elif nombre not in ("TxtNConcepto", "TxtBusco", "TxtDias1", "TxtCadencia1"):
            visto[nombre].append("Enabled")
        if nombre not in SIN_COLOR:
            visto[nombre].append("BackColor")
    visto |= {nombre: ["Value"] for nombre in [*CASILLAS, *OPCIONES]}
    visto |= {"CboPlazo": ["Text", "ListIndex", "Enabled", "BackColor"], "LblTipo": ["Enabled"],
              "Label1": ["Caption"], "BotonCaja": ["Enabled"], "CmdCon": ["Enabled"], "BtnAceptar": ["Tag"],
              "BtnCancelar": ["Tag"], "PicNuevo": ["Visible"]}
    visto |= {nombre: ["Enabled"] for nombre in DE_LA_LISTA}
    visto |= {nombre: ["Caption"] for nombre in ROTULOS}
    return visto


# What an open panel turns off in the list.
DE_LA_LISTA = ["ChkPrevisiones", "OptFecha", "ChkPagados", "TxtFPrevision", "TxtFPrevisionD", "BotonNuevo",
               "BotonAceptar", "BotonBorrar", "BotonModificar", "BotonCancelar"]
MIRADOS = mirados()
