#pragma once

#include <memory>
#include <utility>

#include "forms/ventana.h"

namespace services {
class Form;
}

namespace headless {

class Entorno;

/// The window of a screen that is never seen. The first time that it is shown the screen gets its
/// resize and its repaint, as from a toolkit; an error in them is one that no handler caught.
class VentanaHeadless final : public services::Ventana {
 public:
  VentanaHeadless(std::shared_ptr<Entorno> entorno, services::Form& form)
      : entorno_(std::move(entorno)), form_(form) {}

  void Mostrar(bool modal) override;
  void Ocultar() override {}
  void EsperarModal() override;
  void Refrescar() override {}
  void* Nativa() override { return nullptr; }
  void Cambiada(services::Widget&, services::Aspecto) override {}
  void Anadido(services::Widget&) override {}
  void Quitado(services::Widget&) override {}
  void CeldaCambiada(services::MSFlexGrid&, int, int) override {}
  void FilasCambiadas(services::MSFlexGrid&) override {}
  void CeldaActual(services::MSFlexGrid&) override {}
  void Foco(services::Widget*) override {}
  bool Consiente(services::Widget&, services::Gesto) override { return true; }
  void FinDeEvento() override {}
  void AntesDePreguntar() override {}

 private:
  std::shared_ptr<Entorno> entorno_;
  services::Form& form_;
  bool mostrada_ = false;
};

}  // namespace headless
