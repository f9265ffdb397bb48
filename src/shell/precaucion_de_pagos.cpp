#include "shell/precaucion_de_pagos.h"

#include <algorithm>
#include <array>

#include "shell/datos_comunes.h"
#include "shell/frm_tesvara_gastos.h"

namespace shell {

using services::Gesto;
using services::Widget;

std::string PrecaucionDePagos::PreguntaAntesDe(const Widget& widget, Gesto gesto) const {
  const int cuantos = pantalla_.Edicion.PagosSinGrabar();
  if (cuantos == 0 || !LosPierde(widget, gesto)) return "";
  if (cuantos == 1) return "Hay 1 pago sin grabar, que se perdería. ¿Grabarlo antes?";
  return "Hay " + std::to_string(cuantos) +
         " pagos sin grabar, que se perderían. ¿Grabarlos antes?";
}

bool PrecaucionDePagos::PreguntaAlDejar() const {
  return pantalla_.Rango.PorDejar();
}

/// The order that the list is in already makes it anew as well.
bool PrecaucionDePagos::LosPierde(const Widget& widget, Gesto gesto) const {
  const FrmTesvaraGastos& p = pantalla_;
  if (p.Campos.PicNuevo.Visible) return false;
  if (gesto == Gesto::DoblePulsar) {
    return &widget == &p.Rejilla.MSFPagos && p.Edicion.AbreElPanel();
  }
  if (&widget == &p.Borrado.BotonBorrar) return p.Borrado.HayLinea();
  const std::array<const Widget*, 7> rehacen = {
      &p.Lista.OptFecha,   &p.Lista.OptConcepto, &p.Lista.ChkPrevisiones,
      &p.Lista.ChkPagados, &p.BotonNuevo,        &p.BotonModificar,
      &p.BtnAutCaja};
  return std::find(rehacen.begin(), rehacen.end(), &widget) != rehacen.end();
}

bool PrecaucionDePagos::EsDeLaLinea(const Widget& widget, Gesto gesto) const {
  return gesto == Gesto::DoblePulsar || &widget == &pantalla_.Borrado.BotonBorrar ||
         &widget == &pantalla_.BotonModificar;
}

bool PrecaucionDePagos::Prevenir(const Widget& widget, Gesto gesto) {
  list::RejillaPagos& rejilla = pantalla_.Rejilla;
  const list::Linea linea = rejilla.LineaDe(rejilla.MSFPagos.Row);
  const int columna = rejilla.MSFPagos.Col;
  if (!Grabar()) return false;
  if (!EsDeLaLinea(widget, gesto) || rejilla.Elegir(linea, columna)) return true;
  DecirQueNoEsta();
  return false;
}

/// What was refused leaves its progress on the screen, and so tells that nothing was saved.
bool PrecaucionDePagos::Grabar() {
  Widget::Disparar(pantalla_.BotonAceptar.Click);
  return !pantalla_.PicTexto.Visible;
}

void PrecaucionDePagos::DecirQueNoEsta() {
  std::string motivo =
      "Se ha grabado, pero la línea elegida ya no está en la lista y no se ha hecho nada con ella.";
  if (!pantalla_.Lista.ChkPagados.Value) motivo += "\nPuede verla con \"Ver Pagados\".";
  datos_.Aviso().Mostrar(motivo, services::mensaje::Simple, "Atención");
}

}  // namespace shell
