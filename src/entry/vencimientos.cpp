#include "entry/vencimientos.h"

#include <algorithm>
#include <utility>

#include "datos/recordset.h"
#include "entry/avisos.h"
#include "entry/descripcion.h"
#include "entry/desglose.h"
#include "list/editor_en_celda.h"
#include "valores/formato.h"
#include "valores/numero.h"
#include "valores/texto.h"

namespace entry {
namespace {

using list::Recibo;
using services::Mascara;
using services::ModoApertura;
using services::MSFlexGrid;
using services::Recordset;

constexpr int kAltoFila = 340;
constexpr int kFilas = 5;
constexpr int kAnchoMarca = 350;
constexpr int kAnchoMarcaConBarra = 340;

/// An empty cell counts 0, and a negative amount is one.
double NumeroDe(const std::string& texto) {
  return texto.empty() ? 0 : services::Numero(texto);
}

std::string CondicionDe(const Clave& clave) {
  return "FROM TempProvVencimientos WHERE TempProvVencimientos.NConcepto like '" + clave.NConcepto +
         "' And Trim(TempProvVencimientos.NFactura) like '" + clave.Factura;
}

}  // namespace

std::string RecibosDe(const Clave& clave) {
  return CondicionDe(clave) + "' And TempProvVencimientos.Año like '" + clave.Anio + "'";
}

Vencimientos::Vencimientos(Campos& campos, services::Sesion& sesion,
                           const list::RejillaPagos& lista)
    : c_(campos), rejilla_(campos.MSFVencimientos), sesion_(sesion), lista_(lista) {}

void Vencimientos::Preparar() {
  rejilla_.RowHeightMin = kAltoFila;
  rejilla_.TextMatrix(0, columna::Fecha, "Fecha");
  rejilla_.TextMatrix(0, columna::Importe, "Importe");
  rejilla_.TextMatrix(0, columna::Pagado, "Pagado");
  rejilla_.TextMatrix(0, columna::Marca, "*");
  for (int c = 0; c < columna::Cuantas; ++c) {
    rejilla_.FixedAlignment(c, MSFlexGrid::alineacion::CentroCentro);
  }
  Reiniciar();
  AjustarAnchos();
}

void Vencimientos::Vaciar() {
  list::Cerrar(c_.TxtMsf2);
  rejilla_.Rows = 1;
  rejilla_.Rows = kFilas;
}

void Vencimientos::Reiniciar() {
  Vaciar();
  cargadas_ = Filas();
}

void Vencimientos::AjustarAnchos() {
  const int marca = rejilla_.Rows > kFilas ? kAnchoMarcaConBarra : kAnchoMarca;
  const int tercio = (rejilla_.Width - marca) / 3;
  rejilla_.ColWidth(columna::Importe, tercio);
  rejilla_.ColWidth(columna::Pagado, tercio - 100);
  rejilla_.ColWidth(columna::Marca, marca);
  rejilla_.ColWidth(columna::Fecha, rejilla_.Width - tercio - (tercio - 100) - marca);
}

void Vencimientos::Poner(int fila, const std::string& fecha, const Recibo& recibo) {
  if (fila >= rejilla_.Rows) rejilla_.Rows = fila + 1;
  rejilla_.TextMatrix(fila, columna::Fecha, fecha);
  rejilla_.TextMatrix(fila, columna::Importe, recibo.Importe);
  rejilla_.TextMatrix(fila, columna::Pagado, recibo.Pagado);
}

void Vencimientos::Anotar(int fila, const list::Pago& pago) {
  rejilla_.PonerImagen(fila, columna::Marca, pago.Marca ? lista_.ImgCheck.Picture() : "");
  rejilla_.TextMatrix(fila, columna::Pagado, pago.Pagado);
}

Recibo Vencimientos::ReciboDe(int fila) const {
  return {rejilla_.TextMatrix(fila, columna::Importe), rejilla_.TextMatrix(fila, columna::Pagado)};
}

bool Vencimientos::TieneFecha(int fila) const {
  return !rejilla_.TextMatrix(fila, columna::Fecha).empty();
}

std::string Vencimientos::PrimeraFecha() const {
  return rejilla_.Rows > 1 ? rejilla_.TextMatrix(1, columna::Fecha) : "";
}

double Vencimientos::SumaDeImportes() const {
  double suma = 0;
  for (int fila = 1; fila < rejilla_.Rows && TieneFecha(fila); ++fila) {
    suma += services::Numero(rejilla_.TextMatrix(fila, columna::Importe));
  }
  return suma;
}

bool Vencimientos::SinImporte() const {
  return rejilla_.Rows < 2 || rejilla_.TextMatrix(1, columna::Importe).empty();
}

bool Vencimientos::SePuedenSumar() const {
  const int ultima = std::min(LineasQueSeGraban(), rejilla_.Rows - 1);
  for (int fila = 1; fila <= ultima; ++fila) {
    const Recibo recibo = ReciboDe(fila);
    if (!SePuedeSumar(NumeroDe(recibo.Importe)) || !SePuedeSumar(NumeroDe(recibo.Pagado))) {
      return false;
    }
  }
  return true;
}

bool Vencimientos::DejaRecibosFuera() const {
  return c_.OptVista.Value && rejilla_.Rows > 2 && TieneFecha(2) && HanCambiado();
}

bool Vencimientos::HanCambiado() const {
  return c_.EsNueva() || Filas() != cargadas_;
}

bool Vencimientos::EstaMarcada(int fila) const {
  return !rejilla_.ImagenDe(fila, columna::Marca).empty();
}

Recibo Vencimientos::ReciboAceptado(int fila) const {
  const MSFlexGrid& aceptados = c_.MsfVencimientos2;
  if (fila >= aceptados.Rows) return {};
  return {aceptados.TextMatrix(fila, columna::Importe),
          aceptados.TextMatrix(fila, columna::Pagado)};
}

/// An occurrence of a forecast that becomes an invoice has no key in the list yet.
Clave Vencimientos::ClaveDeLinea() const {
  const Clave clave = ClaveDeLaEntrada(c_, lista_);
  return clave.Factura.empty() ? ClaveDelPanel(c_) : clave;
}

std::vector<Vencimientos::Fila> Vencimientos::Filas() const {
  std::vector<Fila> filas;
  for (int fila = 1; fila < rejilla_.Rows; ++fila) {
    Fila& celdas = filas.emplace_back();
    for (int c = 0; c < columna::Cuantas; ++c) celdas.push_back(rejilla_.TextMatrix(fila, c));
  }
  return filas;
}

void Vencimientos::CargarVencimientos() {
  Vaciar();
  const Clave clave = ClaveDeLaEntrada(c_, lista_);
  Recordset rs;
  // Only what is modified has receipts to load; a new entry's would be read by these words.
  const bool nueva = c_.EsNueva();
  rs.Open("SELECT TempProvVencimientos.* " + CondicionDe(clave) +
              (nueva ? "'And TempProvVencimientos.Año like '"
                     : "' And TempProvVencimientos.Año like '") +
              clave.Anio +
              (nueva ? "' Order By TempProvVencimientos.FechaVto"
                     : "' Order by TempProvVencimientos.FechaVto "),
          sesion_.CnTemp(), ModoApertura::Lectura);
  for (int fila = 1; !rs.Eof(); rs.MoveNext(), ++fila) {
    const std::string fecha = sesion_.Utiles().Mostrada(rs.Collect("FechaVto").Texto());
    Recibo recibo{Mascara(rs.Collect("Importe").Leer()), Mascara(rs.Collect("Pagado").Leer())};
    recibo.Pagado = PagadoEnLista(fila, clave, fecha, recibo.Pagado);
    Poner(fila, fecha, recibo);
    const bool marca = recibo.Importe == recibo.Pagado && recibo.Pagado != "0,00";
    rejilla_.PonerImagen(fila, columna::Marca, marca ? lista_.ImgCheck.Picture() : "");
  }
  AjustarAnchos();
  cargadas_ = Filas();
}

/// What the list shows as paid of a receipt. For the first one that is the current row of the list,
/// whichever receipt of the invoice it is: users open the invoice there and know it so.
std::string Vencimientos::PagadoEnLista(int fila, const Clave& clave, const std::string& fecha,
                                        const std::string& pagado) const {
  const MSFlexGrid& pagos = lista_.MSFPagos;
  if (fila == 1) return pagos.TextMatrix(pagos.Row, list::columna::Pagado);
  for (int otra = 1; otra < pagos.Rows; ++otra) {
    const list::Linea linea = lista_.LineaDe(otra);
    if (services::Trim(linea.NFactura) != clave.Factura || linea.NConcepto != clave.NConcepto ||
        linea.Anio != clave.Anio || linea.FechaVto != fecha) {
      continue;
    }
    return pagos.TextMatrix(otra, list::columna::Pagado);
  }
  return pagado;
}

void Vencimientos::GrabarVencimientos() {
  if (!HanCambiado()) return;
  const Clave clave = ClaveDeLinea();
  const std::string abrir = "SELECT TempProvVencimientos.* " + RecibosDe(clave);
  Recordset rs;
  rs.Open(abrir, sesion_.CnTemp(), ModoApertura::Optimista);
  if (!rs.Eof()) {
    rs.Close();
    rs.Open("DELETE TempProvVencimientos.* " + RecibosDe(clave), sesion_.CnTemp(),
            ModoApertura::Optimista);
    rs.Open(abrir, sesion_.CnTemp(), ModoApertura::Optimista);
  }
  const int lineas = LineasQueSeGraban();
  for (int fila = 1; fila <= lineas; ++fila) {
    if (!GrabarLinea(rs, fila, clave)) return;
  }
}

int Vencimientos::LineasQueSeGraban() const {
  if (c_.OptVista.Value) return 1;
  int ultima = rejilla_.Rows - 1;
  while (ultima > 0 && !TieneFecha(ultima)) --ultima;
  return ultima;
}

bool Vencimientos::GrabarLinea(Recordset& rs, int fila, const Clave& clave) {
  const std::string& fecha = rejilla_.TextMatrix(fila, columna::Fecha);
  const Recibo recibo = ReciboDe(fila);
  const std::string almacenada = sesion_.Utiles().Almacenada(fecha);
  rs.AddNew();
  rs.Collect("FechaVto") = almacenada;
  rs.Collect("NConcepto") = c_.TxtNConcepto.Text();
  rs.Collect("Descripcion") = DescripcionDe(sesion_, c_.TxtNConcepto.Text).value_or("");
  rs.Collect("Importe") = recibo.Importe;
  rs.Collect("Pagado") = recibo.Pagado;
  rs.Collect("NFactura") = clave.Factura;
  rs.Collect("Año") = clave.Anio;
  // The stored form against the one shown: what was entered here shows in the list even where it
  // lies outside of the loaded range.
  if (almacenada != fecha || Mascara(services::Valor(recibo.Pagado)) != recibo.Pagado ||
      Mascara(services::Valor(recibo.Importe)) != recibo.Importe) {
    rs.Collect("Visible") = true;
  }
  if (NumeroDe(recibo.Pagado) > NumeroDe(recibo.Importe)) {
    sesion_.Aviso().Rechazar("El Importe Pagado no puede ser mayor que el Importe del Recibo");
  }
  try {
    rs.Update();
    return true;
  } catch (const services::ErrorEjecucion& fallo) {
    sesion_.Aviso().FalloAlEscribir(fallo, kRecibosSinGenerar);
    rs.CancelUpdate();
    return false;
  }
}

void Vencimientos::GuardarVencimientos() {
  c_.MsfVencimientos2.Rows = 1;
  for (Fila& celdas : Filas()) c_.MsfVencimientos2.AnadirFila(std::move(celdas));
}

void Vencimientos::RestaurarVencimientos() {
  const MSFlexGrid& aceptados = c_.MsfVencimientos2;
  rejilla_.Rows = 1;
  for (int fila = 1; fila < aceptados.Rows; ++fila) {
    if (aceptados.TextMatrix(fila, columna::Fecha).empty()) break;
    Fila celdas;
    for (int c = 0; c < columna::Cuantas; ++c) celdas.push_back(aceptados.TextMatrix(fila, c));
    rejilla_.AnadirFila(std::move(celdas));
    const Recibo recibo = ReciboAceptado(fila);
    if (NumeroDe(recibo.Importe) != NumeroDe(recibo.Pagado)) continue;
    // The mark falls on the grid's current row, which need not be the one just added.
    rejilla_.Col = columna::Marca;
    rejilla_.CellPicture = lista_.ImgCheck.Picture();
  }
  rejilla_.Rows = aceptados.Rows();
}

}  // namespace entry
