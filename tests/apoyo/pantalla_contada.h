#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "apoyo/plataforma_de_prueba.h"
#include "forms/controles.h"
#include "forms/entrada.h"
#include "forms/matriz_controles.h"
#include "valores/error.h"

namespace apoyo {

/// A screen whose load and unload are written down, and do what the test tells them to.
class PantallaContada final : public services::Form {
 public:
  PantallaContada(services::Escritorio& e, apoyo::Registro& sucesos)
      : Form(e, "Pantalla", 6000, 4000), sucesos_(sucesos) {}
  ~PantallaContada() override { sucesos_("destruida"); }

  std::function<void()> AlCargar;
  std::function<void()> AlDescargar;
  services::TextBox Txt{*this, "Txt", {.TabIndex = 0}};
  services::Pulsador Btn{*this, "Btn", "Cerrar", {.TabIndex = 1}};
  services::MatrizControles<services::Image> DivSel{*this, "DivSel", "",
                                                    services::Diseno{.Left = 15}};

 protected:
  void Form_Load() override {
    sucesos_("Form_Load");
    Correr(AlCargar);
  }
  void Form_Unload() override {
    sucesos_("Form_Unload");
    Correr(AlDescargar);
  }

 private:
  static void Correr(const std::function<void()>& accion) {
    if (accion) accion();
  }
  apoyo::Registro& sucesos_;
};

class ConPantallaContada : public testing::Test {
 protected:
  [[noreturn]] static void Fallar() {
    throw services::ErrorEjecucion(13, "No coinciden los tipos");
  }

  apoyo::Registro sucesos;
  apoyo::PlataformaDePrueba p;
  services::Ref<PantallaContada> form = services::Crear<PantallaContada>(p.escritorio, sucesos);
};

}  // namespace apoyo
