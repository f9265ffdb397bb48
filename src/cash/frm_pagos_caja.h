#pragma once

#include <string>
#include <vector>

#include "entry/apunte_de_caja.h"
#include "entry/campos.h"
#include "entry/terminos.h"
#include "forms/controles.h"
#include "forms/form.h"
#include "forms/matriz_controles.h"
#include "services/sesion.h"

namespace services {
class Recordset;
}  // namespace services

namespace cash {

/// "Apuntes de Caja": the cash entries of the panel's concept that its invoice may pay. The user
/// marks some of them, and "Facturar" makes their sum the panel's invoice. They are stamped when
/// that is accepted, by what is marked here then.
class FrmPagosCaja final : public services::Form {
 public:
  FrmPagosCaja(services::Escritorio& escritorio, services::Sesion& sesion, entry::Campos& campos,
               entry::Terminos& terminos);

  services::Cintilla Barra1;
  /// Holds the rows, and moves under a window of the screen that is as high as it was designed.
  services::PictureBox PicScroll;

  // A row is one element of each; their lists of rows grow together.
  services::MatrizControles<services::Shape> DivFondo;
  /// The mark; its `Tag` is the entry's `Tipo`.
  services::MatrizControles<services::Shape> DivSel;
  /// Its `Tag` is the entry's `FechaHora`.
  services::MatrizControles<services::Label> LblTxt;
  services::MatrizControles<services::Label> LblTxt2;
  /// Lies over the row: clicking it turns the mark on and off.
  services::MatrizControles<services::Label> LblSeleccion;

  services::VScrollBar VScroll1;
  services::Pulsador BtnFacturar;
  services::Pulsador BtnAceptar;

  /// What "Facturar" has added up since the load; a second click adds the marked amounts again.
  double TotalMarcado = 0;

  /// The concept whose entries these are.
  [[nodiscard]] const std::string& Concepto() const { return concepto_; }
  /// The rows, the one of an empty list among them, whose `Tipo` is empty.
  [[nodiscard]] std::vector<entry::ApunteDeCaja> Apuntes() const;

 private:
  void Form_Load() override;
  void VaciarLista();
  void CargarApuntes(services::Recordset& apuntes);
  void AnadirFila();
  void UnirFila(int fila);
  void Rellenar(int fila, services::Recordset& apunte);
  void PrepararBarra();

  void VScroll1_Change();
  void LblSeleccion_Click(int fila);
  void LblSeleccion_KeyDown(int fila, int tecla);
  void LblSeleccion_GotFocus(int fila);

  void BtnFacturar_Click();
  void Salir();
  [[nodiscard]] double SumaDeMarcados();

  services::Sesion& sesion_;
  entry::Campos& c_;
  entry::Terminos& terminos_;
  std::string concepto_;
  /// The one row that the Tab key stops at.
  int filaActual_ = 0;
};

}  // namespace cash
