#pragma once

#include <array>

#include "entry/desglose.h"
#include "forms/controles.h"
#include "forms/msflexgrid.h"

namespace entry {

/// Columns of `MSFVencimientos` and of its hidden copy.
namespace columna {
inline constexpr int Fecha = 0;
inline constexpr int Importe = 1;
inline constexpr int Pagado = 2;
inline constexpr int Marca = 3;
inline constexpr int Cuantas = 4;
}  // namespace columna

/// The box and the fields of a VAT rate.
struct Tramo {
  const TipoIva& Tipo;
  services::CheckBox& Caja;
  services::TextBox& Base;
  services::TextBox& Iva;
};

/// The sheet of the entry panel: every widget of `PicNuevo`, and the state that its blocks share.
/// There is no object of an invoice behind them: what the fields say is what is entered.
struct Campos {
  explicit Campos(services::Form& pantalla);

  services::PictureBox PicNuevo;
  services::Label Label1;

  services::Label LblNombre;
  services::TextBox TxtConcepto;
  services::Pulsador CmdCon;
  /// Code of the concept; its `Tag` keeps the one before.
  services::TextBox TxtNConcepto;
  /// Where the concept chooser writes its answer.
  services::TextBox TxtBusco;

  services::Label Label2;
  services::TextBox TxtFFra;
  services::Label Label3;
  services::TextBox TxtNFra;
  services::Label Label5;
  services::TextBox TxtIFra;

  services::Label Label8;
  services::Label Label9;
  services::Label Label10;
  services::CheckBox Chk16;
  services::TextBox TxtB16;
  services::TextBox TxtI16;
  services::CheckBox Chk7;
  services::TextBox TxtB7;
  services::TextBox TxtI7;
  services::CheckBox Chk4;
  services::TextBox TxtB4;
  services::TextBox TxtI4;
  services::CheckBox Chk0;
  services::TextBox TxtB0;

  services::Label Label18;
  services::CheckBox Chk15;
  services::Label LblTipo;
  services::TextBox TxtTipoIRPF;
  services::TextBox TxtBIRPF;
  services::TextBox TxtIRPF;

  services::Label Label11;
  services::OptionButton OptVista;
  services::TextBox TxtFVista;
  services::OptionButton OptAplazado;
  services::Label Label4;
  services::TextBox TxtNRecibos;
  services::Label Label6;
  services::TextBox TxtDias;
  services::Label Label7;
  services::TextBox TxtCadencia;
  /// The terms as stored with the invoice, for who refuses to have its receipts made anew.
  services::TextBox TxtDias1;
  services::TextBox TxtCadencia1;

  services::Label Label12;
  services::MSFlexGrid MSFVencimientos;
  /// The last accepted set of receipts.
  services::MSFlexGrid MsfVencimientos2;
  services::TextBox TxtMsf2;

  services::CheckBox OptGenerar;
  services::TextBox TxtCada;
  services::ComboBox CboPlazo;
  services::Label Label13;
  services::TextBox TxtDesde;
  services::Label Label15;
  services::TextBox TxtIPrev;

  services::Pulsador BotonCaja;
  services::Pulsador BtnAceptar;
  /// Its `Tag` is "No" while the fields that are left must not complain.
  services::Pulsador BtnCancelar;

  /// Part of the invoice that was paid in cash, which the receipts' generation spreads over them.
  double ImporteCaja = 0;
  /// The user refused to have the receipts made anew.
  bool HayImporte = false;
  /// The next leaving of a checked field passes without a check, and clears this.
  bool SaltarValidacion = false;
  /// True while a stored exempt amount is being shown: its box doesn't take the total then.
  bool CargandoFactura = false;

  /// The rates in their order: 16, 7, 4.
  [[nodiscard]] std::array<Tramo, 3> Tramos();

  /// What the panel's title says it is doing: a new entry, or else a modification.
  [[nodiscard]] bool EsNueva() const;
  void TitularNueva();
  void TitularModificacion();

  /// Whether the fields that are left must not complain: a cancellation is running.
  [[nodiscard]] bool Cancelando() const { return BtnCancelar.Tag() == "No"; }
};

}  // namespace entry
