#pragma once

#include <memory>

#include "forms/controles.h"
#include "forms/form.h"
#include "forms/matriz_controles.h"
#include "services/imprenta.h"
#include "services/sesion.h"

namespace print {

/// A page of the report, and what it was drawn on.
class PicHoja final : public services::PictureBox {
 public:
  PicHoja(services::Sitio sitio, const services::Diseno& diseno,
          std::unique_ptr<services::HojaInforme> hoja)
      : PictureBox(sitio, "PicList", diseno), hoja_(std::move(hoja)) {}

  [[nodiscard]] services::HojaInforme& Hoja() { return *hoja_; }

 private:
  std::unique_ptr<services::HojaInforme> hoja_;
};

/// "Listados": a drawn report on the screen, its pages one under the other at a chosen zoom. The
/// page images are the store: nothing is drawn again when the zoom changes.
class frmListados final : public services::Form {
 public:
  frmListados(services::Escritorio& escritorio, services::Sesion& sesion);

  /// Background of the whole screen; what is shown of the pages slides on it, under `PicTapa`.
  services::PictureBox PicFondo;
  services::PictureBox Listado;
  services::Cintilla Barra1;
  services::PictureBox PicOpc;
  services::Label Label1;
  services::ComboBox CbxPor;
  services::PictureBox PicTapa;
  services::Shape DivScroll;
  services::VScrollBar Scroll;
  /// The page store. Never on sight.
  services::MatrizControles<PicHoja> PicList;

  // Designed into the screen, and idle.
  services::PictureBox PicCamPag;
  services::Line LineArriba;
  services::Line LineAbajo;

  /// Adds a page to the store, as large as the first one.
  services::HojaInforme& NuevaHoja();
  /// Shows the pages at "100 %" and waits until the user closes the screen.
  void ShowP();

  void Form_Resize() override;
  void Form_Zoom(int pasos) override;

 private:
  void Form_Load() override;
  void Form_Unload() override;
  void EscalarPantalla();
  void Colocar();

  void CbxPor_Click();
  void Scroll_Change();

  [[nodiscard]] int Vista() const;
  [[nodiscard]] int Arriba() const { return PicTapa.Top + PicTapa.Height; }

  services::Sesion& sesion_;
};

}  // namespace print
