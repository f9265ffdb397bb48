#include "list/lista_pagos.h"

#include "list/color_lista.h"
#include "list/prevision.h"
#include "valores/error.h"
#include "valores/formato.h"
#include "valores/texto.h"

namespace list {
namespace {

using services::Diseno;
using services::Mascara;
using services::ModoApertura;
using services::Recordset;
using services::Valor;

constexpr const char* kListaParaEscribir = "SELECT TempTesvara.* FROM TempTesvara";
constexpr const char* kPorFecha =
    "SELECT TempTesvara.* FROM TempTesvara Order by TempTesvara.FechaVto, TempTesvara.Concepto, "
    "TempTesvara.NConcepto";
constexpr const char* kPorConcepto =
    "SELECT TempTesvara.* FROM TempTesvara Order by TempTesvara.Concepto, TempTesvara.NConcepto, "
    "TempTesvara.FechaVto";

bool EsVerdadero(const Valor& valor) {
  return !valor.EsNulo() && valor.Logico();
}

using Acceso = Recordset::Campo::Acceso;

}  // namespace

/// The fields of the merged list's current row, looked up by their names once.
struct ListaPagos::Fila {
  explicit Fila(Recordset& lista)
      : Concepto(lista.Collect("Concepto")),
        FechaVto(lista.Collect("FechaVto")),
        NFactura(lista.Collect("NFactura")),
        Importe(lista.Collect("Importe")),
        Pagado(lista.Collect("Pagado")),
        NConcepto(lista.Collect("NConcepto")),
        Anio(lista.Collect("Año")),
        Prevision(lista.Collect("Prevision")) {}

  Acceso Concepto;
  Acceso FechaVto;
  Acceso NFactura;
  Acceso Importe;
  Acceso Pagado;
  Acceso NConcepto;
  Acceso Anio;
  Acceso Prevision;
};

ListaPagos::ListaPagos(services::PictureBox& panel, services::Sesion& sesion, RejillaPagos& rejilla,
                       EdicionPagado& edicion, const RangoFechas& rango,
                       const services::Widget& PicNuevo)
    : OptFecha(panel, "OptFecha", "Por Fecha Vencimiento", Diseno{6400, 200, 2300, 285}.Tab(2)),
      OptConcepto(panel, "OptConcepto", "Por Concepto", Diseno{8800, 200, 1600, 285}.Tab(3)),
      ChkPagados(panel, "ChkPagados", "Ver Pagados", Diseno{10700, 200, 1600, 285}.Tab(4)),
      ChkPrevisiones(panel, "ChkPrevisiones", "Ver Previsiones",
                     Diseno{12500, 200, 1900, 285}.Tab(5)),
      sesion_(sesion),
      rejilla_(rejilla),
      edicion_(edicion),
      rango_(rango),
      PicNuevo_(PicNuevo) {
  OptFecha.Click = [this] { OptFecha_Click(); };
  OptConcepto.Click = [this] { OptConcepto_Click(); };
  ChkPagados.Click = [this] { Chk_Click(ChkPagados); };
  ChkPrevisiones.Click = [this] { Chk_Click(ChkPrevisiones); };
}

void ListaPagos::VerTodo() {
  for (services::CheckBox* filtro : {&ChkPrevisiones, &ChkPagados}) {
    filtro->Tag = "1";
    filtro->Value = true;
    filtro->Tag = "";
  }
}

void ListaPagos::OptFecha_Click() {
  if (OptFecha.Value) ReordenarPor(PorFecha);
}

void ListaPagos::OptConcepto_Click() {
  // It stays in use while the entry panel is open, and does nothing: the current row of the list is
  // the key of the entry.
  if (PicNuevo_.Visible) return ReponerOrden();
  if (OptConcepto.Value) ReordenarPor(PorConcepto);
}

void ListaPagos::ReordenarPor(const Orden& orden) {
  // Payments are looked up by the date in its column, so the order that shows is that of the rows.
  CerrarEdicion([this] { ReponerOrden(); });
  rejilla_.MSFPagos.CellFontSize = 12;
  rejilla_.MSFPagos.CellFontBold = true;
  rejilla_.PonerOrden(orden);
  CargarGrip();
}

void ListaPagos::ReponerOrden() {
  const bool porFecha = rejilla_.OrdenActual() == PorFecha;
  OptFecha.Value.PonerEnSilencio(porFecha);
  OptConcepto.Value.PonerEnSilencio(!porFecha);
}

void ListaPagos::Chk_Click(services::CheckBox& filtro) {
  if (!filtro.Tag->empty()) return;
  CerrarEdicion([&filtro] { filtro.Value.PonerEnSilencio(!filtro.Value); });
  CargarGrip();
}

void ListaPagos::CerrarEdicion(const std::function<void()>& deshacer) {
  try {
    edicion_.CerrarEdicionPago();
  } catch (...) {
    deshacer();
    throw;
  }
}

void ListaPagos::CargarGrip() {
  // Its cell is about to go.
  edicion_.Ocultar();
  rejilla_.Vaciar();
  rejilla_.GridOcupado = true;
  {
    Recordset lista;
    lista.Open("DELETE TempTesvara.* FROM TempTesvara", sesion_.CnTemp(), ModoApertura::Optimista);
    lista.Open(kListaParaEscribir, sesion_.CnTemp(), ModoApertura::Optimista);
    if (!ReunirVencimientos(lista)) return;
    if (ChkPrevisiones.Value) ReunirPrevisiones();
  }
  MostrarLineas();
  Rellenar();
  rejilla_.MSFPagos.MoverA(rejilla_.MSFPagos.Rows - 1, rejilla_.MSFPagos.Cols() - 1);
  rejilla_.Totalizar();
  rejilla_.AjustarAnchos();
  rejilla_.GridOcupado = false;
}

bool ListaPagos::ReunirVencimientos(Recordset& lista) {
  Recordset vencimientos;
  vencimientos.Open(
      "SELECT TempProvVencimientos.* FROM TempProvVencimientos WHERE "
      "TempProvVencimientos.Visible = True",
      sesion_.CnTemp(), ModoApertura::Lectura);
  const Acceso Descripcion = vencimientos.Collect("Descripcion");
  const Acceso FechaVto = vencimientos.Collect("FechaVto");
  const Acceso NFactura = vencimientos.Collect("NFactura");
  const Acceso Importe = vencimientos.Collect("Importe");
  const Acceso Pagado = vencimientos.Collect("Pagado");
  const Acceso NConcepto = vencimientos.Collect("NConcepto");
  const Acceso Anio = vencimientos.Collect("Año");
  for (Fila fila(lista); !vencimientos.Eof(); vencimientos.MoveNext()) {
    lista.AddNew();
    fila.Concepto = Descripcion;
    fila.FechaVto = FechaVto;
    fila.NFactura = services::Trim(NFactura.Texto());
    fila.Importe = Importe;
    fila.Pagado = Pagado;
    fila.NConcepto = NConcepto;
    fila.Anio = Anio;
    if (!Escribir(lista, "Error al cargar Factura")) return false;
  }
  return true;
}

void ListaPagos::ReunirPrevisiones() {
  Recordset previsiones;
  previsiones.Open("SELECT TempProvPrevisionPagos.* FROM TempProvPrevisionPagos", sesion_.CnTemp(),
                   ModoApertura::Lectura);
  for (; !previsiones.Eof(); previsiones.MoveNext()) ExpandirPrevision(previsiones);
}

void ListaPagos::ExpandirPrevision(Recordset& prevision) {
  const Recurrencia recurrencia{
      .Fecha1Vto = prevision.Collect("Fecha1Vto").Texto(),
      .Cada = EnteroDe(prevision.Collect("Cada")),
      .Tipo = EnteroDe(prevision.Collect("Tipo")),
  };
  const std::string concepto = prevision.Collect("NConcepto").Texto();
  Recordset borradas;
  borradas.Open(
      "SELECT TempTesvaraBorrar.* FROM TempTesvaraBorrar WHERE TempTesvaraBorrar.NConcepto like '" +
          concepto + "'",
      sesion_.CnTemp(), ModoApertura::Lectura);
  Recordset lista;
  lista.Open(kListaParaEscribir, sesion_.CnTemp(), ModoApertura::Optimista);
  Fila fila(lista);

  RecorrerPrevision(
      recurrencia, rango_.Intervalo(), sesion_.Utiles(), [&](const std::string& fecha) {
        borradas.Filter("FechaVto = '" + fecha + "'");
        if (!borradas.Eof()) return true;
        lista.AddNew();
        fila.FechaVto = fecha;
        fila.NConcepto = concepto;
        fila.Concepto = prevision.Collect("Descripcion");
        fila.Importe = Mascara(prevision.Collect("Importe"), services::mascara::Prevision);
        fila.NFactura = "";
        fila.Prevision = true;
        return Escribir(lista, "Error al calcular vencimientos ");
      });
}

bool ListaPagos::Escribir(Recordset& lista, const char* siNoCabe) {
  try {
    lista.Update();
    return true;
  } catch (const services::ErrorEjecucion& fallo) {
    sesion_.Aviso().FalloAlEscribir(fallo, siNoCabe);
    lista.CancelUpdate();
    return false;
  }
}

void ListaPagos::MostrarLineas() {
  Recordset lista;
  lista.Open(rejilla_.OrdenActual() == PorFecha ? kPorFecha : kPorConcepto, sesion_.CnTemp(),
             ModoApertura::Lectura);
  FilaAlterna_ = true;
  for (const Fila fila(lista); !lista.Eof(); lista.MoveNext()) {
    const Valor importe = fila.Importe;
    const Valor pagado = fila.Pagado;
    if (SeMuestra(importe, pagado)) MostrarLinea(fila, importe, pagado);
  }
}

/// With paid ones left out, a line shows when something was entered as paid and it is not all: an
/// amount never touched is left out too, and that is meant.
bool ListaPagos::SeMuestra(const Valor& importe, const Valor& pagado) const {
  if (ChkPagados.Value) return true;
  return !pagado.Texto().empty() && Mascara(pagado) != Mascara(importe);
}

void ListaPagos::MostrarLinea(const Fila& fila, const Valor& importe, const Valor& pagado) {
  const bool prevision = EsVerdadero(fila.Prevision);

  std::vector<std::string> celdas(columna::Cuantas);
  const auto celda = [&](int c) -> std::string& { return celdas[static_cast<std::size_t>(c)]; };
  celda(rejilla_.OrdenActual().Fecha) = sesion_.Utiles().Mostrada(fila.FechaVto.Texto());
  celda(rejilla_.OrdenActual().Concepto) = fila.Concepto.Texto();
  celda(columna::NFactura) = fila.NFactura.Texto();
  celda(columna::Importe) = Mascara(importe);
  celda(columna::Pagado) = Mascara(pagado);
  celda(columna::NConcepto) = fila.NConcepto.Texto();
  celda(columna::Anio) = fila.Anio.Texto();
  AnadirFila(std::move(celdas), prevision ? color::TextoPrevision : color::Texto);
  if (services::Igual(importe, pagado).value_or(false) && !prevision) {
    rejilla_.MSFPagos.PonerImagen(rejilla_.MSFPagos.Rows - 1, columna::Marca,
                                  rejilla_.ImgCheck.Picture);
  }
}

void ListaPagos::AnadirFila(std::vector<std::string> celdas, int texto) {
  FilaAlterna_ = !FilaAlterna_;
  rejilla_.MSFPagos.AnadirFila(std::move(celdas), FilaAlterna_ ? color::FranjaB : color::FranjaA,
                               texto);
}

void ListaPagos::Rellenar() {
  while (rejilla_.MSFPagos.Rows < rejilla_.FilasVisibles()) AnadirFila({}, color::TextoPrevision);
}

}  // namespace list
