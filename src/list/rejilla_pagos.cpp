#include "list/rejilla_pagos.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "list/color_lista.h"
#include "list/guarda.h"
#include "valores/formato.h"
#include "valores/numero.h"

namespace list {
namespace {

using services::Diseno;
using services::MSFlexGrid;

constexpr int kAnchoColumna = 1600;
constexpr int kAnchoMarca = 340;
constexpr int kAnchoBarra = 300;
constexpr int kFilas = 22;
constexpr int kFilasPantallaMenor = 16;

}  // namespace

RejillaPagos::RejillaPagos(services::PictureBox& panel, services::Sesion& sesion)
    : MSFPagos(panel, "MSFPagos", columna::Cuantas,
               Diseno{180, 720, 15000, 7580}.Tab(6).Cuerpo(10).Negrita()),
      MsfPagos2(panel, "MsfPagos2", columna::Cuantas, Diseno{180, 720, 15000, 600}.Oculto()),
      ImgCheck(panel, "ImgCheck", "check", Diseno{120, 8400, 240, 240}.Oculto()),
      Label14(panel, "Label14", "Total Pagos: ..............................",
              Diseno{9300, 8460, 3700, 285}.Cuerpo(10).Negrita()),
      TxtTotal(panel, "TxtTotal", Diseno{13080, 8420, 2100, 360}.Cuerpo(10).Negrita()),
      LblPendiente(panel, "LblPendiente",
                   "Total Pendiente:", Diseno{480, 8460, 5000, 285}.Cuerpo(10).Negrita()),
      sesion_(sesion) {
  TxtTotal.Locked = true;
}

int RejillaPagos::FilasVisibles() const {
  return sesion_.PantallaDeReferencia() ? kFilas : kFilasPantallaMenor;
}

void RejillaPagos::Preparar() {
  MSFPagos.RowHeightMin = 340;
  MSFPagos.CellFontSize = 12;
  MSFPagos.CellFontBold = true;
  MSFPagos.TextMatrix(0, columna::NFactura, "NºFactura");
  MSFPagos.TextMatrix(0, columna::Importe, "Importe");
  MSFPagos.TextMatrix(0, columna::Pagado, "Pagado");
  MSFPagos.TextMatrix(0, columna::Marca, "*");
  for (int c = 0; c <= columna::Marca; ++c) {
    MSFPagos.FixedAlignment(c, MSFlexGrid::alineacion::CentroCentro);
    MSFPagos.ColWidth(c, kAnchoColumna);
  }
  MSFPagos.ColAlignment(columna::NFactura, MSFlexGrid::alineacion::IzquierdaAbajo);
  MSFPagos.ColWidth(columna::Marca, kAnchoMarca);
  MSFPagos.ColWidth(columna::NConcepto, 0);
  MSFPagos.ColWidth(columna::Anio, 0);
  MSFPagos.Rows = FilasVisibles();
  PonerOrden(PorFecha);
  AjustarAnchos();
}

void RejillaPagos::PonerOrden(const Orden& orden) {
  orden_ = orden;
  MSFPagos.TextMatrix(0, orden.Fecha, "Fecha Vto");
  MSFPagos.TextMatrix(0, orden.Concepto, "Concepto");
  MSFPagos.ColWidth(orden.Fecha, kAnchoColumna);
}

void RejillaPagos::AjustarAnchos() {
  int resto = MSFPagos.Width;
  for (int c = 0; c <= columna::Marca; ++c) {
    if (c != orden_.Concepto) resto -= MSFPagos.ColWidth(c);
  }
  if (MSFPagos.Rows > FilasVisibles()) resto -= kAnchoBarra;
  MSFPagos.ColWidth(orden_.Concepto, resto);
}

void RejillaPagos::Vaciar() {
  MSFPagos.Rows = 1;
  TotalPendiente_ = 0;
  sinGrabar_.Olvidar();
}

void RejillaPagos::Totalizar() {
  if (MSFPagos.Rows < 2) {
    LblPendiente.Caption = "0.00";
    LblPendiente.Visible = false;
    TxtTotal.Text = "0,00";
    return;
  }
  double total = 0;
  for (int fila = 1; fila < MSFPagos.Rows; ++fila) {
    const double importe = ImporteDe(fila, columna::Importe);
    total += importe;
    TotalPendiente_ += importe - ImporteDe(fila, columna::Pagado);
  }
  if (TotalPendiente_ > 0) {
    MostrarPendiente();
  } else {
    LblPendiente.Visible = false;
  }
  TxtTotal.Text = services::Mascara(total);
}

/// The caption always changes, and the label itself shows from 1.0 on.
void RejillaPagos::MostrarPendiente() {
  LblPendiente.Caption = "Total Pendiente: " + services::Mascara(TotalPendiente_);
  LblPendiente.Visible = TotalPendiente_ >= 1.0;
}

void RejillaPagos::SumarAlPendiente(double importe) {
  TotalPendiente_ += importe;
  MostrarPendiente();
}

void RejillaPagos::Anotar(int fila, const Pago& pago) {
  MSFPagos.PonerImagen(fila, columna::Marca, pago.Marca ? ImgCheck.Picture() : "");
  sinGrabar_.Anotar(fila, MSFPagos.TextMatrix(fila, columna::Pagado), pago.Pagado);
  MSFPagos.TextMatrix(fila, columna::Pagado, pago.Pagado);
  SumarAlPendiente(pago.Pendiente);
}

bool RejillaPagos::Elegir(const Linea& linea, int columna) {
  for (int fila = 1; fila < MSFPagos.Rows; ++fila) {
    if (LineaDe(fila) != linea) continue;
    MSFPagos.MoverA(fila, columna);
    return true;
  }
  return false;
}

void RejillaPagos::QuitarFila(int fila) {
  const double importe = ImporteDe(fila, columna::Importe);
  SumarAlPendiente(ImporteDe(fila, columna::Pagado) - importe);
  TxtTotal.Text = services::Mascara(services::Numero(TxtTotal.Text) - importe);

  MSFPagos.RemoveItem(fila);
  sinGrabar_.QuitarFila(fila);
  const int ultima = MSFPagos.FondoDe(MSFPagos.Rows - 1, 0);
  const bool seIntercambia = fila < MSFPagos.Rows;
  const Mientras ocupado(GridOcupado);
  // The new row takes the colour that the swap below turns into the stripe after the last one.
  MSFPagos.AnadirFila({}, seIntercambia ? color::OtraFranja(ultima) : ultima,
                      color::TextoPrevision);
  IntercambiarFranjas(fila);
  MSFPagos.MoverA(MSFPagos.Rows - 1, MSFPagos.Cols() - 1);
}

void RejillaPagos::IntercambiarFranjas(int desde) {
  for (int fila = desde; fila < MSFPagos.Rows; ++fila) {
    MSFPagos.PintarFila(fila, color::OtraFranja(MSFPagos.FondoDe(fila, 0)),
                        EsPagable(fila) ? color::Texto : color::TextoPrevision);
  }
}

void RejillaPagos::PintarElegida(int fila) {
  MSFPagos.PintarFila(fila, color::FondoElegida, color::TextoElegida);
}

void RejillaPagos::PintarFranja(int fila) {
  const int fondo =
      fila > 1 ? color::OtraFranja(MSFPagos.FondoDe(fila - 1, MSFPagos.Col)) : color::FranjaA;
  MSFPagos.PintarFila(fila, fondo, EsPagable(fila) ? color::Texto : color::TextoPrevision);
}

bool RejillaPagos::EsPagable(int fila) const {
  return !MSFPagos.TextMatrix(fila, columna::NFactura).empty();
}

Recibo RejillaPagos::ReciboDe(int fila) const {
  return {MSFPagos.TextMatrix(fila, columna::Importe), MSFPagos.TextMatrix(fila, columna::Pagado)};
}

double RejillaPagos::ImporteDe(int fila, int columna) const {
  return services::Importe(MSFPagos.TextMatrix(fila, columna));
}

void RejillaPagos::CopiarGrip() {
  MsfPagos2.Rows = 1;
  for (int fila = 1; fila < MSFPagos.Rows; ++fila) {
    std::vector<std::string> celdas;
    celdas.reserve(columna::Cuantas);
    for (int c = 0; c < columna::Cuantas; ++c) celdas.push_back(MSFPagos.TextMatrix(fila, c));
    MsfPagos2.AnadirFila(std::move(celdas));
  }
  ordenDeLaCopia_ = orden_;
  CopiaAlDia = true;
}

bool RejillaPagos::ComprobarCambios() const {
  // The cells that the snapshot lacks would say no more than where they are.
  if (HayLineasNuevas())
    throw services::ErrorEjecucion(services::error::CeldaNoValida, kLineasNuevas);
  bool cambios = false;
  for (int fila = 1; fila < MSFPagos.Rows; ++fila) {
    for (int c = 0; c < columna::Cuantas; ++c) {
      // An amount of "0,00" where the snapshot is empty is a change like any other: who cleared a
      // payment is asked before it is lost.
      if (MSFPagos.TextMatrix(fila, c) == MsfPagos2.TextMatrix(fila, c)) continue;
      cambios = true;
      break;
    }
  }
  return cambios;
}

bool RejillaPagos::EsLaMismaLinea(int fila) const {
  return LineaDe(fila) == list::LineaDe(MsfPagos2, fila, ordenDeLaCopia_);
}

Recibo RejillaPagos::ReciboAntes(int fila) const {
  const Linea linea = LineaDe(fila);
  for (int otra = 1; otra < MsfPagos2.Rows; ++otra) {
    if (list::LineaDe(MsfPagos2, otra, ordenDeLaCopia_) != linea) continue;
    return {MsfPagos2.TextMatrix(otra, columna::Importe),
            MsfPagos2.TextMatrix(otra, columna::Pagado)};
  }
  return {};
}

}  // namespace list
