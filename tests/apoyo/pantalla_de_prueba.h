#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "apoyo/sucesos.h"
#include "forms/entrada.h"

namespace apoyo {

/// A screen with a widget of each kind.
class PantallaDePrueba final : public services::Form {
 public:
  explicit PantallaDePrueba(services::Escritorio& e) : Form(e, "Pantalla", 6000, 4000) {
    BtnCancelar.TomaFoco = false;
    Msf.Rows = 5;
    Msf.MoverA(1, 0);
  }

  services::PictureBox Pic{*this, "Pic", {}};
  services::PictureBox PicDentro{Pic, "PicDentro", {}};
  services::TextBox TxtA{*this, "TxtA", {.TabIndex = 0}};
  services::TextBox TxtB{*this, "TxtB", {.TabIndex = 1}};
  services::TextBox TxtDentro{PicDentro, "TxtDentro", {.TabIndex = 2}};
  services::CheckBox Chk{*this, "Chk", "Ver", {.TabIndex = 3}};
  services::OptionButton OptUno{*this, "OptUno", "Uno", {.TabIndex = 4}};
  services::OptionButton OptDos{*this, "OptDos", "Dos", {.TabIndex = 5}};
  services::OptionButton OptDentro{Pic, "OptDentro", "Otro grupo", {}};
  services::ComboBox Cbo{*this, "Cbo", {"Días", "Meses", "Años"}, {.TabIndex = 6}};
  services::Pulsador Btn{*this, "Btn", "Aceptar", {.TabIndex = 7}};
  services::Pulsador BtnCancelar{*this, "BtnCancelar", "Cancelar", {.TabIndex = 8}};
  services::VScrollBar Barra{*this, "Barra", {.TabIndex = 9}};
  services::MSFlexGrid Msf{*this, "Msf", 4, {.TabIndex = 10}};
  services::Cintilla Barra1{*this, "Barra1", "Título", {}};
  services::Label Lbl{*this, "Lbl", "Total", {}};
  services::Image Img{*this, "Img", "", {}};
  services::Shape Marca{*this, "Marca", {}};
};

/// The screen on sight, no widget with the focus, and all that its widgets raise written down.
class ConPantalla : public testing::Test {
 protected:
  ConPantalla() {
    f.Show();
    for (services::Widget* w : f.Widgets()) Apuntar(*w, sucesos);
    ApuntarCeldas(f.Msf, sucesos);
  }

  /// Puts the focus there and forgets what that raised.
  void PonerFoco(services::Widget& widget) {
    widget.SetFocus();
    (void)sucesos.Tomar();
  }
  [[nodiscard]] services::Widget* Foco() const { return p.escritorio.Foco(); }

  PlataformaDePrueba p;
  Registro sucesos;
  services::Ref<PantallaDePrueba> form = services::Crear<PantallaDePrueba>(p.escritorio);
  PantallaDePrueba& f = *form;
};

}  // namespace apoyo
