"""A day of the user: plain steps that move the model, are told as scenario and foretell its output."""

from datetime import datetime
from decimal import Decimal

from fechas import DESDE, HASTA
from lista import COLUMNAS
from negocio import Escueto
from pagos import EDITOR, REJILLA
from pantalla import Pantalla
from reparos import calla
from valores import ErrorEjecucion, plegar

TABLAS = {
    "conceptos": ("datos", "ProvConceptos"), "facturas": ("datos", "ProvFacturas"),
    "bases": ("datos", "ProvBasesIva"), "vencimientos": ("datos", "ProvVencimientos"),
    "previsiones": ("datos", "ProvPrevisionPagos"), "caja": ("datos", "CajaPagos"),
    "lapidas": ("local", "TempTesvaraBorrar")}
DE_TRABAJO = {"facturas": "TempProvFacturas", "bases": "TempProvBasesIva", "vencimientos": "TempProvVencimientos",
              "previsiones": "TempProvPrevisionPagos", "caja": "TempCajaPagos"}


def literal(valor):
    if valor is None:
        return "NULL"
    if isinstance(valor, (int, Decimal)):
        return str(valor)
    if isinstance(valor, Escueto):
        valor = valor.guardado()
    texto = "'" + str(valor).replace("'", "''") + "'"
    return texto.replace("\t", "'||char(9)||'").replace("\n", "'||char(10)||'")


def impreso(valor):
    """A value as `consulta` prints it."""
    if valor is None:
        return "NULL"
    if isinstance(valor, Decimal):
        return format(Decimal(format(float(valor), ".15g")).normalize(), "f")
    return str(int(valor)) if isinstance(valor, bool) else str(valor)


class Jornada:
    """Plays steps. `lineas` is the scenario; `esperado` has (line number, text) of its output."""

    usuario = "ANA"
    clase_de_pantalla = Pantalla

    def __init__(self, negocio, con):
        self.con = con
        self.reloj, self.reposo = negocio.reloj, negocio.reposo
        self.almacen, self.local = negocio.abrir()
        self.lineas, self.esperado = [], []
        self.avisos, self.respuesta, self.dadas = [], "no", []
        self.decir(f"reloj {self.reloj}")
        self._preparar(negocio)
        for base, tabla in TABLAS.values():
            self.decir(f"{base} DELETE FROM {tabla}")
        for tabla, fila in negocio.filas:
            self._insertar(tabla, fila)
        self.cargar()
        self.pantalla = self.clase_de_pantalla(self, self.almacen, self.local)

    def _preparar(self, _):
        self.decir("pantalla 15360 11520" if self.reposo == 22 else "pantalla 12800 9600")

    def cargar(self):
        self.decir("cargar")

    # What the screen asks of its post.

    def avisar(self, texto, flags=16, titulo="Atención"):
        self._mensaje(texto, flags, titulo, "aceptar")

    def preguntar(self, texto, flags):
        respuesta = "no" if flags == 4 and self.respuesta == "cancelar" else self.respuesta
        self.dadas.append(respuesta)
        self._mensaje(texto, flags, "Atención", respuesta)
        return respuesta

    def _mensaje(self, texto, flags, titulo, respuesta):
        texto = texto.replace("\n", "\\n")
        self.avisos.append(f'aviso "{texto}" {flags} "{titulo}" -> {respuesta}')

    # Scenario and what it prints.

    def decir(self, orden, salida=()):
        self.lineas.append(orden)
        self.esperado += [(len(self.lineas), linea) for texto in salida for linea in texto.split("\n")]

    def _insertar(self, tabla, fila):
        base, nombre = TABLAS[tabla]
        self.decir(f"{base} INSERT INTO {nombre} ({','.join(fila)}) "
                   f"VALUES ({','.join(literal(v) for v in fila.values())})")

    def _hacer(self, linea, accion, *argumentos):
        """One event of the user: its answers go before it, its error after it."""
        self.dadas, self.errores = [], []
        self.suceso(lambda: accion(*argumentos))
        self._decir_respuestas()
        self.decir(linea, self.errores)
        return not self.errores

    def suceso(self, accion):
        """An event, or one of several of the same line; what comes out of it is printed."""
        try:
            accion()
        except ErrorEjecucion as error:
            self.errores.append(f"error {error.numero}")

    def _decir_respuestas(self):
        if self.dadas:
            self.decir("responder " + " ".join(self.dadas))

    # Steps: dar(("celda", 3, 5)). One that has no sense now is passed over.

    def dar(self, paso):
        self.respuesta = "no"
        if not calla(paso, self.pantalla, self.con):
            getattr(self, "paso_" + paso[0])(*paso[1:])

    def paso_celda(self, fila, columna):
        if fila < len(self.pantalla.rejilla.celdas):
            self._hacer(f"celda {REJILLA} {fila} {columna}", self.pantalla.celda, fila, columna)

    def paso_doble(self, fila, columna):
        """Of a payable row: one of a forecast opens the panel, which these days don't know. A date field
        that is left may put another row in its place."""
        if self.pantalla.foco in (DESDE, HASTA):
            return
        if fila < len(self.pantalla.rejilla.celdas) and self.pantalla.rejilla.pagable(fila):
            self._hacer(f"doble {REJILLA} {fila} {columna}", self.pantalla.doble, fila, columna)

    def paso_importe(self, texto):
        if self.pantalla.editor_visible and self.pantalla.foco not in (DESDE, HASTA):
            self.pantalla.enfocar(EDITOR)
            self._hacer(f'teclear {EDITOR} "{texto}"', self.pantalla.teclear_importe, texto)

    def paso_tecla(self, nombre):
        pantalla = self.pantalla
        if pantalla.foco == EDITOR:
            acciones = {"Intro": (pantalla.intro,), "Escape": (pantalla.escape,),
                        "Arriba": (pantalla.flecha, -1), "Abajo": (pantalla.flecha, 1)}
        elif pantalla.foco == REJILLA:
            acciones = {"Arriba": (pantalla.flecha_en_rejilla, -1), "Abajo": (pantalla.flecha_en_rejilla, 1)}
        else:
            return
        if nombre in acciones:
            self._hacer(f"tecla {nombre}", *acciones[nombre])

    def paso_pulsar(self, widget, respuesta="no"):
        if widget == ("OptFecha" if self.pantalla.por_fecha else "OptConcepto"):
            return
        self.respuesta = respuesta
        self._hacer(f"pulsar {widget}", self.pantalla.pulsar, widget)

    def paso_fecha(self, campo, texto, respuesta):
        self.respuesta = respuesta
        self._hacer(f'teclear {campo} "{texto}"', self.pantalla.teclear_fecha, campo, texto)

    def paso_cerrar(self, orden, respuesta):
        """Closes, and opens again when it did close."""
        self.respuesta = respuesta
        if self._hacer(orden, self.pantalla.cerrar):
            self.paso_avisos()
            self.cargar()
            self.pantalla = self.clase_de_pantalla(self, self.almacen, self.local)

    def paso_ocultar(self):
        self.decir("ocultar")
        self.cargar()

    def paso_reloj(self, momento):
        self.reloj = datetime.fromisoformat(momento)
        self.decir(f"reloj {self.reloj}")

    def paso_ajeno_nueva(self, factura, recibos):
        """Someone else stores an invoice."""
        for tabla, fila in [("facturas", factura)] + [("vencimientos", recibo) for recibo in recibos]:
            try:
                getattr(self.almacen, tabla).insertar(fila)
            except ErrorEjecucion:
                return
            self._insertar(tabla, fila)

    def paso_ajeno_pago(self, indice):
        """Someone else pays a receipt."""
        if indice < len(self.almacen.vencimientos.filas):
            fila = self.almacen.vencimientos.filas[indice]
            fila["Pagado"] = fila["Importe"]
            self.decir(f"datos UPDATE ProvVencimientos SET Pagado = Importe WHERE {self._clave_sql(fila, 'NFactura')} "
                       f"AND FechaVto = {literal(fila['FechaVto'])}")

    def paso_ajeno_borra(self, indice):
        """Someone else deletes an invoice and what is its own."""
        if indice >= len(self.almacen.facturas.filas):
            return
        factura = self.almacen.facturas.filas[indice]
        clave = [plegar(factura[c]) for c in ("NConcepto", "Factura", "Año")]
        for nombre, columna in (("facturas", "Factura"), ("bases", "NFactura"), ("vencimientos", "NFactura")):
            tabla = getattr(self.almacen, nombre)
            tabla.borrar(lambda f: [plegar(f[c]) for c in ("NConcepto", columna, "Año")] == clave)
            suya = {"NConcepto": factura["NConcepto"], columna: factura["Factura"], "Año": factura["Año"]}
            self.decir(f"datos DELETE FROM {TABLAS[nombre][1]} WHERE {self._clave_sql(suya, columna)}")

    @staticmethod
    def _clave_sql(fila, columna):
        return " AND ".join(f"{c} = {literal(fila[c])}" for c in ("NConcepto", columna, "Año"))

    # Looks.

    def paso_rejilla(self):
        self.decir(f"rejilla {REJILLA}", self.pantalla.rejilla.texto())

    def paso_colores(self, fila):
        if fila < len(self.pantalla.rejilla.celdas):
            fondo, letra = self.pantalla.rejilla.colores[fila]
            self.decir(f"colores {REJILLA} {fila}", ["|".join([f"{fondo}/{letra}"] * COLUMNAS)])

    def paso_totales(self):
        pendiente, total = self.pantalla.mirar()
        self.decir("ver LblPendiente", [pendiente])
        self.decir("ver TxtTotal", [total])

    def paso_avisos(self):
        self.decir("avisos", self.avisos)
        self.avisos = []

    def paso_guardado(self, tabla):
        self._consultar(TABLAS[tabla][0], TABLAS[tabla][1],
                        self.local.lapidas if tabla == "lapidas" else getattr(self.almacen, tabla))

    def paso_trabajo(self, tabla):
        self._consultar("local", DE_TRABAJO[tabla], getattr(self.local, tabla))

    def _consultar(self, base, nombre, tabla):
        clave = tabla.clave or tabla.columnas
        # A moment may be stored in more than one way.
        orden = ", ".join("datetime(FechaHora)" if c == "FechaHora" else c + (" COLLATE BINARY" if c not in ("Tipo", "Importe") or nombre[-3:] == "Iva"
                               else "") for c in clave)
        filas = sorted(tabla.filas, key=lambda f: [f[c] for c in clave])
        self.decir(f"consulta {base} SELECT {', '.join(tabla.columnas)} FROM {nombre} ORDER BY {orden}",
                   ["|".join(impreso(f[c]) for c in tabla.columnas) for f in filas] + [f"({len(filas)} filas)"])

    def paso_fin(self):
        """Leaves no screen, no question and no message behind, and shows all that is stored."""
        pantalla = self.pantalla
        if pantalla.foco in (DESDE, HASTA):
            self.paso_fecha(HASTA, "31/12/2029", "no")
        self.paso_importe("0")
        self.paso_pulsar("BotonCancelar")
        self.respuesta = "no"
        self._hacer("cerrar", pantalla.cerrar)
        self.paso_avisos()
        for tabla in TABLAS:
            self.paso_guardado(tabla)
