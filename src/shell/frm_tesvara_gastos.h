#pragma once

#include "cash/caja_del_panel.h"
#include "cash/frm_fra_automaticas.h"
#include "entry/campos.h"
#include "entry/entrada.h"
#include "forms/controles.h"
#include "forms/form.h"
#include "list/borrado.h"
#include "list/edicion_pagado.h"
#include "list/lista_pagos.h"
#include "list/rango_fechas.h"
#include "list/rejilla_pagos.h"
#include "print/impresion.h"
#include "shell/precaucion_de_pagos.h"
#include "shell/recuento.h"
#include "store/copia_de_trabajo.h"

namespace shell {

class DatosComunes;

/// The main screen, "Tesvara de Pagos": its blocks put together, and what crosses them.
class FrmTesvaraGastos final : public services::Form,
                               private list::AlCambiarRango,
                               private entry::BajoElPanel {
 public:
  explicit FrmTesvaraGastos(DatosComunes& datos);
  ~FrmTesvaraGastos() override;

 private:
  DatosComunes& datos_;
  store::CopiaDeTrabajo copia_;

 public:
  services::Cintilla Barra1;
  services::PictureBox PicPagos;
  entry::Campos Campos;
  services::PictureBox PicTexto;
  services::Label LblTitulo;
  services::ProgressBar ProgressBar;
  list::RangoFechas Rango;
  list::RejillaPagos Rejilla;
  services::Pulsador BotonNuevo;
  services::Pulsador BotonModificar;
  list::EdicionPagado Edicion;
  list::ListaPagos Lista;
  list::Borrado Borrado;
  services::Pulsador BotonAceptar;
  services::Pulsador BotonCancelar;
  services::Pulsador BtnAutCaja;
  print::Impresion Impresion;

 private:
  cash::CajaDelPanel caja_;
  services::Instancia<cash::FrmFraAutomaticas> facturasAutomaticas_;
  PrecaucionDePagos precaucion_;
  Recuento recuento_;

 public:
  entry::Entrada Entrada;

  /// True when the list differs from the snapshot; valid right after `ComprobarCambios`.
  bool Modificado = false;
  void ComprobarCambios();
  /// Working copy, list and snapshot anew from the stored tables.
  void Recargar();

  [[nodiscard]] services::Precaucion* Precaucion() override { return &precaucion_; }
  /// Why a "Grabar" couldn't save what is on the screen; empty when it could.
  [[nodiscard]] std::string MotivoParaNoCerrar() const;

  void Form_Resize() override;
  void Form_Paint() override;
  void AlAcabarEvento() override;

 private:
  void Form_Load() override;
  void Form_Unload() override;
  void RangoCambiado(services::TextBox& campo) override;
  void PonerEnUso(bool estado) override;

  void Barra1_Cerrar();
  void BotonAceptar_Click();
  void BotonCancelar_Click();
  void BtnAutCaja_Click();
  void Grabar();
  void PrepararCopia();

  void TomarMarco();
  void EscalarPantalla();
  void CentrarPaneles();
};

}  // namespace shell
