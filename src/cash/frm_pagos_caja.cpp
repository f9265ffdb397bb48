#include "cash/frm_pagos_caja.h"

#include <algorithm>

#include "cash/recorrido.h"
#include "datos/recordset.h"
#include "forms/entrada.h"
#include "valores/formato.h"
#include "valores/numero.h"
#include "valores/texto.h"

namespace cash {

using entry::ApunteDeCaja;
using services::Diseno;
using services::Mascara;
using services::ModoApertura;
using services::Recordset;
namespace tecla = services::tecla;

namespace {

using recorrido::kArriba;
using recorrido::kLinea;
using recorrido::kPaso;
using recorrido::kSeparacion;
using recorrido::kVentana;

constexpr int kFila = 2 * kLinea + kSeparacion;
constexpr std::size_t kLargoObservaciones = 35;

// The parts of a row, by where they begin.
constexpr Diseno Fondo(int arriba) {
  return {90, arriba, 5340, kFila};
}
constexpr Diseno Marca(int arriba) {
  return Diseno{180, arriba, 270, 270}.Oculto();
}
constexpr Diseno Linea(int arriba) {
  return {600, arriba, 4740, kLinea};
}
constexpr Diseno Seleccion(int arriba) {
  return Fondo(arriba).Tab(0).ConTeclado();
}

/// A missing amount counts 0, as it does in a sum of the database.
double ImporteDe(Recordset& apunte) {
  const services::Valor importe = apunte.Collect("Importe");
  return importe.EsNulo() ? 0 : importe.Numero();
}

}  // namespace

FrmPagosCaja::FrmPagosCaja(services::Escritorio& escritorio, services::Sesion& sesion,
                           entry::Campos& campos, entry::Terminos& terminos)
    : Form(escritorio, "FrmPagosCaja", 6000, 7800),
      Barra1(*this, "Barra1", "Apuntes de Caja", {0, 0, 6000, 420}),
      PicScroll(*this, "PicScroll", {60, kArriba, 5520, kVentana}),
      DivFondo(PicScroll, "DivFondo", Fondo(kSeparacion)),
      DivSel(PicScroll, "DivSel", Marca(2 * kSeparacion)),
      LblTxt(PicScroll, "LblTxt", "", Linea(kSeparacion)),
      LblTxt2(PicScroll, "LblTxt2", "", Linea(2 * kSeparacion + kLinea)),
      LblSeleccion(PicScroll, "LblSeleccion", "", Seleccion(kSeparacion)),
      VScroll1(*this, "VScroll1", {5640, kArriba, 255, kVentana}),
      BtnFacturar(*this, "BtnFacturar", "Facturar", Diseno{2400, 7140, 1560, 480}.Tab(1)),
      BtnAceptar(*this, "BtnAceptar", "Salir", Diseno{4140, 7140, 1560, 480}.Tab(2)),
      sesion_(sesion),
      c_(campos),
      terminos_(terminos) {
  UnirFila(0);
  VScroll1.Change = [this] { VScroll1_Change(); };
  BtnFacturar.Click = [this] { BtnFacturar_Click(); };
  BtnAceptar.Click = [this] { Salir(); };
  BtnAceptar.Cancela = true;
}

void FrmPagosCaja::Form_Load() {
  concepto_ = c_.TxtNConcepto.Text();
  c_.ImporteCaja = 0;
  Recordset apuntes;
  if (entry::PuedeTenerApuntes(concepto_)) {
    apuntes.Open(
        "SELECT TempCajaPagos.FechaHora, TempCajaPagos.Tipo, TempCajaPagos.Importe, "
        "TempCajaPagos.Observaciones, TempCajaPagos.Factura, TempCajaPagos.Año From TempCajaPagos "
        "WHERE TempCajaPagos.Tipo = " +
            concepto_ + " AND " + entry::ApuntesAlAlcance(c_),
        sesion_.CnTemp(), ModoApertura::Lectura);
  }
  if (!apuntes.State() || apuntes.Eof()) return VaciarLista();
  CargarApuntes(apuntes);
  PrepararBarra();
}

void FrmPagosCaja::VaciarLista() {
  for (services::Widget* parte : std::initializer_list<services::Widget*>{
           &DivFondo(0), &DivSel(0), &LblSeleccion(0), &LblTxt(0), &LblTxt2(0)}) {
    parte->Visible = false;
  }
  VScroll1.Max = 0;
}

/// Entries are told apart by their moment: those stamped alike are one row. One of the zero moment
/// that comes first is none, and leaves the first row without an entry.
void FrmPagosCaja::CargarApuntes(Recordset& apuntes) {
  std::string anterior = "0:00:00";
  for (bool primera = true; !apuntes.Eof(); apuntes.MoveNext(), primera = false) {
    const std::string momento = apuntes.Collect("FechaHora").Texto();
    if (momento == anterior) continue;
    if (!primera) AnadirFila();
    Rellenar(DivSel.UBound(), apuntes);
    anterior = momento;
  }
}

void FrmPagosCaja::AnadirFila() {
  const int anterior = DivSel.UBound();
  const int arriba = LblTxt2(anterior).Top + LblTxt2(anterior).Height + kSeparacion;
  DivFondo.Anadir(PicScroll, "DivFondo", Fondo(arriba));
  DivSel.Anadir(PicScroll, "DivSel", Marca(arriba + kSeparacion));
  const auto& fecha = LblTxt.Anadir(PicScroll, "LblTxt", "", Linea(arriba));
  LblTxt2.Anadir(PicScroll, "LblTxt2", "", Linea(fecha.Top + fecha.Height + kSeparacion));
  LblSeleccion.Anadir(PicScroll, "LblSeleccion", "", Seleccion(arriba));
  UnirFila(anterior + 1);
}

/// All rows are one stop of the Tab key, at the last one that had the focus; the arrows go from row
/// to row.
void FrmPagosCaja::UnirFila(int fila) {
  services::Label& seleccion = LblSeleccion(fila);
  seleccion.TabStop = fila == filaActual_;
  seleccion.Click = [this, fila] { DivSel(fila).Visible = !DivSel(fila).Visible; };
  seleccion.GotFocus = [this, fila] { LblSeleccion_GotFocus(fila); };
  seleccion.KeyDown = [this, fila](int& codigo) { LblSeleccion_KeyDown(fila, codigo); };
}

void FrmPagosCaja::Rellenar(int fila, Recordset& apunte) {
  const std::string momento = apunte.Collect("FechaHora").Texto();
  DivSel(fila).Visible = !c_.EsNueva() && !apunte.Collect("Factura").Texto().empty();
  DivSel(fila).Tag = apunte.Collect("Tipo").Texto();
  LblTxt(fila).Caption = "Fecha:" + momento;
  LblTxt(fila).Tag = momento;
  LblTxt2(fila).Caption =
      services::Izquierda(apunte.Collect("Observaciones").Texto(), kLargoObservaciones);
}

void FrmPagosCaja::PrepararBarra() {
  const int ultima = DivSel.UBound();
  VScroll1.Max = 0;
  int alto = ultima * LblTxt(0).Height + (ultima + ultima + 2) * kSeparacion + kPaso;
  for (int fila = 0; fila <= ultima; ++fila) alto += LblTxt2(fila).Height;
  if (alto <= PicScroll.Height) return;
  VScroll1.Max = recorrido::Pasos(DivFondo.Count());
  PicScroll.Height = alto;
}

void FrmPagosCaja::VScroll1_Change() {
  PicScroll.Top = recorrido::ArribaDelPanel(VScroll1.Value, VScroll1.Max, PicScroll.Height);
}

void FrmPagosCaja::LblSeleccion_GotFocus(int fila) {
  LblSeleccion(filaActual_).TabStop = false;
  LblSeleccion(fila).TabStop = true;
  filaActual_ = fila;
  const int valor = recorrido::ValorQueEnsena(fila, PicScroll.Top, VScroll1.Value);
  VScroll1.Value = std::min(valor, VScroll1.Max());
}

void FrmPagosCaja::LblSeleccion_KeyDown(int fila, int codigo) {
  const int ultima = LblSeleccion.UBound();
  const auto irA = [&](int otra) { LblSeleccion(std::clamp(otra, 0, ultima)).SetFocus(); };
  switch (codigo) {
    case tecla::Arriba:
      return irA(fila - 1);
    case tecla::Abajo:
      return irA(fila + 1);
    case tecla::PaginaArriba:
      return irA(fila - recorrido::kFilasPorPagina);
    case tecla::PaginaAbajo:
      return irA(fila + recorrido::kFilasPorPagina);
    case tecla::Inicio:
      return irA(0);
    case tecla::Fin:
      return irA(ultima);
    default:
      return;
  }
}

/// The terms may bring this screen's list back to what is stored, by a load that leaves this one
/// behind: what it has added up counts all the same.
void FrmPagosCaja::BtnFacturar_Click() {
  const double total = TotalMarcado + SumaDeMarcados();
  terminos_.Opt("Vista", true, true);
  const std::string& tecleado = c_.TxtIFra.Text();
  // Below one this is 0: a comma is no decimal mark here.
  const double antes = services::Val(tecleado) != 0 ? services::Numero(tecleado) : 0;
  if (!c_.HayImporte) c_.TxtIFra.Text = Mascara(total);
  c_.ImporteCaja = total;
  if (c_.HayImporte) {
    c_.TxtIFra.Text = Mascara(antes);
  } else {
    terminos_.GenerarVista();
    c_.Chk0.Value = true;
    for (services::CheckBox* caja : {&c_.Chk16, &c_.Chk7, &c_.Chk4}) caja->Value = false;
    c_.TxtB0.Text = Mascara(total);
  }
  // Only now: a click that failed on the way is not counted by the next one.
  TotalMarcado = total;
  Salir();
}

/// Shown again it begins in its list: on "Facturar" the key that marks would add it all once more.
void FrmPagosCaja::Salir() {
  LblSeleccion(filaActual_).SetFocus();
  Hide();
}

double FrmPagosCaja::SumaDeMarcados() {
  double suma = 0;
  for (const ApunteDeCaja& apunte : Apuntes()) {
    if (apunte.Tipo.empty()) continue;
    Recordset rs;
    rs.Open(entry::SentenciaDeApunte(c_, apunte), sesion_.CnTemp(), ModoApertura::Optimista);
    if (apunte.Marcado && !rs.Eof()) suma += ImporteDe(rs);
  }
  return suma;
}

std::vector<ApunteDeCaja> FrmPagosCaja::Apuntes() const {
  std::vector<ApunteDeCaja> apuntes;
  apuntes.reserve(static_cast<std::size_t>(DivFondo.Count()));
  for (int fila = 0; fila < DivFondo.Count(); ++fila) {
    apuntes.push_back({DivSel(fila).Tag, LblTxt(fila).Tag, DivSel(fila).Visible});
  }
  return apuntes;
}

}  // namespace cash
