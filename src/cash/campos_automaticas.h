#pragma once

#include "entry/desglose.h"
#include "forms/controles.h"
#include "forms/matriz_controles.h"

namespace cash {

/// The sheet of `FrmFraAutomaticas`: its widgets, which are all its state.
struct CamposAutomaticas {
  explicit CamposAutomaticas(services::Form& pantalla);

  services::Label LblFacturar;
  services::OptionButton OptTodo;
  services::OptionButton OptConcepto;
  services::Label LblNombre;
  services::TextBox TxtConcepto;
  services::Pulsador CmdCon;
  /// The concept that decides.
  services::TextBox TxtNConcepto;
  /// Where the concept chooser writes its answer.
  services::TextBox TxtBusco;

  /// The block of the dates, and in element 1 whether they count.
  services::MatrizControles<services::Shape> DivFecha;
  services::Label LblFecha2;
  services::MatrizControles<services::Label> Lbl;
  services::TextBox CbxFDesde;
  services::TextBox CbxFHasta;
  /// Lies over the block: clicking it turns the dates on and off.
  services::Label lblFecha;

  services::Label LblDatos;
  services::TextBox TxtFFra;
  services::TextBox TxtNFra;
  services::ComboBox CboIVA;

  services::Pulsador BtnAceptar;
  services::Pulsador BtnCancelar;

  services::PictureBox PicTexto;
  services::Label LblTitulo;
  services::ProgressBar ProgressBar;

  /// The rate chosen; null for exempt.
  [[nodiscard]] const entry::TipoIva* Tipo() const;
};

}  // namespace cash
