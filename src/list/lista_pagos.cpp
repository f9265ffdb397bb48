#include "list/lista_pagos.h"

#include "list/color_lista.h"
#include "list/prevision.h"
#include "valores/error.h"
#include "valores/formato.h"
#include "valores/texto.h"

namespace list {
namespace {

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

}  // namespace

ListaPagos::ListaPagos(services::Form& form, services::PictureBox& panel, services::Sesion& sesion,
                       RejillaPagos& rejilla, EdicionPagado& edicion,
                       const store::RangoFechas& rango)
    : OptFecha(form, "OptFecha", "Por Fecha Vencimiento",
               {.Left = 6400,
                .Top = 200,
                .Width = 2300,
                .Height = 285,
                .TabIndex = 2,
                .Contenedor = &panel}),
      OptConcepto(form, "OptConcepto", "Por Concepto",
                  {.Left = 8800,
                   .Top = 200,
                   .Width = 1600,
                   .Height = 285,
                   .TabIndex = 3,
                   .Contenedor = &panel}),
      ChkPagados(form, "ChkPagados", "Ver Pagados",
                 {.Left = 10700,
                  .Top = 200,
                  .Width = 1600,
                  .Height = 285,
                  .TabIndex = 4,
                  .Contenedor = &panel}),
      ChkPrevisiones(form, "ChkPrevisiones", "Ver Previsiones",
                     {.Left = 12500,
                      .Top = 200,
                      .Width = 1900,
                      .Height = 285,
                      .TabIndex = 5,
                      .Contenedor = &panel}),
      sesion_(sesion),
      rejilla_(rejilla),
      edicion_(edicion),
      rango_(rango) {
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
  if (OptFecha.Value) ReordenarPor(PorFecha, OptFecha);
}

void ListaPagos::OptConcepto_Click() {
  if (OptConcepto.Value) ReordenarPor(PorConcepto, OptConcepto);
}

void ListaPagos::ReordenarPor(const Orden& orden, services::OptionButton& elegido) {
  try {
    edicion_.CerrarEdicionPago();
  } catch (...) {
    // A typed amount that is none keeps the list as it is, and so the chosen order too: payments
    // are looked up by the date in its column.
    if (enUso_ && enUso_ != &elegido) {
      elegido.Value = false;
      enUso_->Value.PonerEnSilencio(true);
      enUso_->Widget::Cambiada(services::Aspecto::Value);
    }
    throw;
  }
  enUso_ = &elegido;
  rejilla_.MSFPagos.CellFontSize = 12;
  rejilla_.MSFPagos.CellFontBold = true;
  rejilla_.PonerOrden(orden);
  CargarGrip();
}

void ListaPagos::Chk_Click(const services::CheckBox& filtro) {
  if (filtro.Tag->empty()) CargarGrip();
}

void ListaPagos::CargarGrip() {
  // Its cell is about to go.
  edicion_.Ocultar();
  rejilla_.MSFPagos.Rows = 1;
  rejilla_.GridOcupado = true;
  rejilla_.TotalPendiente = 0;
  {
    Recordset lista;
    lista.Open("DELETE TempTesvara.* FROM TempTesvara", sesion_.CnTemp(), ModoApertura::Optimista);
    lista.Open(kListaParaEscribir, sesion_.CnTemp(), ModoApertura::Optimista);
    if (!ReunirVencimientos(lista)) return;
    if (ChkPrevisiones.Value) ReunirPrevisiones();
  }
  MostrarLineas();
  Rellenar();
  Totalizar();
  rejilla_.AjustarAnchos(OrdenElegido());
  rejilla_.GridOcupado = false;
}

bool ListaPagos::ReunirVencimientos(Recordset& lista) {
  Recordset vencimientos;
  vencimientos.Open(
      "SELECT TempProvVencimientos.* FROM TempProvVencimientos WHERE "
      "TempProvVencimientos.Visible = True",
      sesion_.CnTemp(), ModoApertura::Lectura);
  for (; !vencimientos.Eof(); vencimientos.MoveNext()) {
    lista.AddNew();
    lista.Collect("Concepto") = vencimientos.Collect("Descripcion");
    lista.Collect("FechaVto") = vencimientos.Collect("FechaVto");
    lista.Collect("NFactura") = services::Trim(vencimientos.Collect("NFactura").Texto());
    lista.Collect("Importe") = vencimientos.Collect("Importe");
    lista.Collect("Pagado") = vencimientos.Collect("Pagado");
    lista.Collect("NConcepto") = vencimientos.Collect("NConcepto");
    lista.Collect("Año") = vencimientos.Collect("Año");
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
      .Cada = static_cast<int>(prevision.Collect("Cada").Numero()),
      .Tipo = static_cast<int>(prevision.Collect("Tipo").Numero()),
  };
  const std::string concepto = prevision.Collect("NConcepto").Texto();
  Recordset borradas;
  borradas.Open(
      "SELECT TempTesvaraBorrar.* FROM TempTesvaraBorrar WHERE TempTesvaraBorrar.NConcepto like '" +
          concepto + "'",
      sesion_.CnTemp(), ModoApertura::Lectura);
  Recordset lista;
  lista.Open(kListaParaEscribir, sesion_.CnTemp(), ModoApertura::Optimista);

  RecorrerPrevision(recurrencia, rango_.Desde(), rango_.Hasta(), sesion_.Utiles(),
                    [&](const std::string& fecha) {
                      borradas.Filter("FechaVto = '" + fecha + "'");
                      if (!borradas.Eof()) return true;
                      lista.AddNew();
                      lista.Collect("FechaVto") = fecha;
                      lista.Collect("NConcepto") = concepto;
                      lista.Collect("Concepto") = prevision.Collect("Descripcion");
                      lista.Collect("Importe") =
                          Mascara(prevision.Collect("Importe"), services::mascara::Prevision);
                      lista.Collect("NFactura") = "";
                      lista.Collect("Prevision") = true;
                      return Escribir(lista, "Error al calcular vencimientos ");
                    });
}

bool ListaPagos::Escribir(Recordset& lista, const char* siNoCabe) {
  try {
    lista.Update();
    return true;
  } catch (const services::ErrorEjecucion& fallo) {
    if (fallo.Numero() == services::error::RepetidoONoCabe) {
      sesion_.Aviso().Mostrar(siNoCabe, services::mensaje::Alto, "Error");
    } else {
      sesion_.Aviso().Mostrar(
          "Nº Error:" + std::to_string(fallo.Numero()) + "\n" + fallo.Descripcion(),
          services::mensaje::Alto, "");
    }
    lista.CancelUpdate();
    return false;
  }
}

void ListaPagos::MostrarLineas() {
  Recordset linea;
  linea.Open(OptFecha.Value ? kPorFecha : kPorConcepto, sesion_.CnTemp(), ModoApertura::Lectura);
  FilaAlterna_ = true;
  int fila = 1;
  for (; !linea.Eof(); linea.MoveNext()) {
    if (!SeMuestra(linea.Collect("Importe"), linea.Collect("Pagado"))) continue;
    MostrarLinea(linea, fila++);
  }
}

/// With paid ones left out, a line shows when something was entered as paid and it is not all: an
/// amount never touched is left out too, and that is meant.
bool ListaPagos::SeMuestra(const Valor& importe, const Valor& pagado) const {
  if (ChkPagados.Value) return true;
  return !pagado.Texto().empty() && Mascara(pagado) != Mascara(importe);
}

void ListaPagos::MostrarLinea(Recordset& linea, int fila) {
  const std::string fecha =
      sesion_.Utiles().ConvertirFecha(linea.Collect("FechaVto").Texto(), 1, "R", "D");
  const std::string concepto = linea.Collect("Concepto").Texto();
  const Valor importe = linea.Collect("Importe");
  const Valor pagado = linea.Collect("Pagado");
  const bool prevision = EsVerdadero(linea.Collect("Prevision"));

  const bool porFecha = OptFecha.Value;
  services::MSFlexGrid& grid = rejilla_.MSFPagos;
  grid.AddItem((porFecha ? fecha : concepto) + "\t" + (porFecha ? concepto : fecha) + "\t" +
               linea.Collect("NFactura").Texto() + "\t" + Mascara(importe) + "\t" +
               Mascara(pagado) + "\t\t\t" + linea.Collect("Año").Texto());
  if (services::Igual(importe, pagado).value_or(false) && !prevision) {
    grid.Row = fila;
    grid.Col = columna::Marca;
    grid.CellPicture = rejilla_.ImgCheck.Picture();
  }
  grid.TextMatrix(fila, columna::NConcepto, linea.Collect("NConcepto").Texto());
  PintarSiguiente(prevision ? color::TextoPrevision : color::Texto);
}

void ListaPagos::PintarSiguiente(int texto) {
  FilaAlterna_ = !FilaAlterna_;
  rejilla_.PintarFila(FilaAlterna_ ? color::FranjaB : color::FranjaA, texto);
}

void ListaPagos::Rellenar() {
  while (rejilla_.MSFPagos.Rows < rejilla_.FilasVisibles()) {
    rejilla_.MSFPagos.AddItem("");
    PintarSiguiente(color::TextoPrevision);
  }
}

void ListaPagos::Totalizar() {
  const services::MSFlexGrid& grid = rejilla_.MSFPagos;
  services::Label& LblPendiente = rejilla_.LblPendiente;
  if (grid.Rows < 2) {
    LblPendiente.Caption = "0.00";
    LblPendiente.Visible = false;
    rejilla_.TxtTotal.Text = "0,00";
    return;
  }
  double total = 0;
  for (int fila = 1; fila < grid.Rows; ++fila) {
    const double importe = rejilla_.ImporteDe(fila, columna::Importe);
    total += importe;
    rejilla_.TotalPendiente += importe - rejilla_.ImporteDe(fila, columna::Pagado);
  }
  if (rejilla_.TotalPendiente > 0) {
    LblPendiente.Caption = "Total Pendiente: " + Mascara(rejilla_.TotalPendiente);
    LblPendiente.Visible = true;
  }
  rejilla_.TxtTotal.Text = Mascara(total);
  if (rejilla_.TotalPendiente < 1.0) LblPendiente.Visible = false;
}

}  // namespace list
