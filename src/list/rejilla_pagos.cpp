#include "list/rejilla_pagos.h"

#include "valores/formato.h"
#include "valores/numero.h"

namespace list {
namespace {

using services::MSFlexGrid;

constexpr int kAnchoColumna = 1600;
constexpr int kAnchoMarca = 340;
constexpr int kAnchoBarra = 300;
constexpr int kFilas = 22;
constexpr int kFilasPantallaMenor = 16;

}  // namespace

RejillaPagos::RejillaPagos(services::Form& form, services::PictureBox& panel,
                           services::Sesion& sesion)
    : MSFPagos(form, "MSFPagos", columna::Cuantas,
               {.Left = 180,
                .Top = 720,
                .Width = 15000,
                .Height = 7580,
                .TabIndex = 6,
                .Contenedor = &panel,
                .FontSize = 10,
                .FontBold = true}),
      MsfPagos2(form, "MsfPagos2", columna::Cuantas,
                {.Left = 180,
                 .Top = 720,
                 .Width = 15000,
                 .Height = 600,
                 .Contenedor = &panel,
                 .Visible = false}),
      ImgCheck(form, "ImgCheck", "check",
               {.Left = 120,
                .Top = 8400,
                .Width = 240,
                .Height = 240,
                .Contenedor = &panel,
                .Visible = false}),
      Label14(form, "Label14", "Total Pagos: ..............................",
              {.Left = 9300,
               .Top = 8460,
               .Width = 3700,
               .Height = 285,
               .Contenedor = &panel,
               .FontSize = 10,
               .FontBold = true}),
      TxtTotal(form, "TxtTotal",
               {.Left = 13080,
                .Top = 8420,
                .Width = 2100,
                .Height = 360,
                .Contenedor = &panel,
                .FontSize = 10,
                .FontBold = true}),
      LblPendiente(form, "LblPendiente", "Total Pendiente:",
                   {.Left = 480,
                    .Top = 8460,
                    .Width = 5000,
                    .Height = 285,
                    .Contenedor = &panel,
                    .FontSize = 10,
                    .FontBold = true}),
      sesion_(sesion) {}

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
  AjustarAnchos(PorFecha);
}

void RejillaPagos::PonerOrden(const Orden& orden) {
  MSFPagos.TextMatrix(0, orden.Fecha, "Fecha Vto");
  MSFPagos.TextMatrix(0, orden.Concepto, "Concepto");
  MSFPagos.ColWidth(orden.Fecha, kAnchoColumna);
}

void RejillaPagos::AjustarAnchos(const Orden& orden) {
  int resto = MSFPagos.Width;
  for (int c = 0; c <= columna::Marca; ++c) {
    if (c != orden.Concepto) resto -= MSFPagos.ColWidth(c);
  }
  if (MSFPagos.Rows > FilasVisibles()) resto -= kAnchoBarra;
  MSFPagos.ColWidth(orden.Concepto, resto);
}

void RejillaPagos::PintarFila(int fondo, int texto, std::string_view cuerpo,
                              std::string_view alineacion, bool mantenerFila) {
  if (!mantenerFila) MSFPagos.Row = MSFPagos.Rows - 1;
  for (int c = 0; c < MSFPagos.Cols(); ++c) {
    MSFPagos.Col = c;
    MSFPagos.CellBackColor = fondo;
    MSFPagos.CellForeColor = texto;
    if (!alineacion.empty()) {
      MSFPagos.CellAlignment = static_cast<int>(services::Numero(alineacion));
    }
    if (!cuerpo.empty()) MSFPagos.CellFontSize = services::Numero(cuerpo);
  }
}

void RejillaPagos::MostrarPendiente() {
  LblPendiente.Caption = "Total Pendiente: " + services::Mascara(TotalPendiente);
  LblPendiente.Visible = TotalPendiente >= 1.0;
}

bool RejillaPagos::EsPagable(int fila) const {
  return !MSFPagos.TextMatrix(fila, columna::NFactura).empty();
}

double RejillaPagos::ImporteDe(int fila, int columna) const {
  return services::Importe(MSFPagos.TextMatrix(fila, columna));
}

std::string RejillaPagos::FilaUnida(int fila) const {
  std::string unida = MSFPagos.TextMatrix(fila, 0);
  for (int c = 1; c < columna::Cuantas; ++c)
    unida.append("\t").append(MSFPagos.TextMatrix(fila, c));
  return unida;
}

void RejillaPagos::CopiarGrip() {
  MsfPagos2.Rows = 1;
  for (int fila = 1; fila < MSFPagos.Rows; ++fila) MsfPagos2.AddItem(FilaUnida(fila));
}

bool RejillaPagos::ComprobarCambios() const {
  bool cambios = false;
  for (int fila = 1; fila < MSFPagos.Rows; ++fila) {
    for (int c = 0; c < columna::Cuantas; ++c) {
      // An amount of "0,00" where the snapshot is empty is a change like any other: who cleared a
      // payment is asked before it is lost. The walk goes on after a change, so that a list longer
      // than its snapshot always fails.
      if (MSFPagos.TextMatrix(fila, c) == MsfPagos2.TextMatrix(fila, c)) continue;
      cambios = true;
      break;
    }
  }
  return cambios;
}

}  // namespace list
