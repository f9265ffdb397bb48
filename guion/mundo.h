#pragma once

#include <functional>
#include <memory>
#include <string>

#include "guion/anfitrion_guion.h"
#include "guion/base.h"
#include "guion/conexion_vigilada.h"
#include "guion/peticiones.h"
#include "headless/entorno.h"
#include "services/anfitrion.h"

namespace guion {

/// Makes an object of the component's class; empty when that can't be done.
using Fabrica = std::function<services::Ref<services::IClassTesvara>()>;

/// All that stands around the component during a run: the platform, the two databases with their
/// connections watched, and the host.
class Mundo {
 public:
  Mundo(Base& datos, Base& local, Fabrica fabrica);
  Mundo(const Mundo&) = delete;
  Mundo& operator=(const Mundo&) = delete;

  [[nodiscard]] headless::Entorno& Entorno() { return *entorno_; }
  [[nodiscard]] guion::Anfitrion& Anfitrion() { return *anfitrion_; }
  [[nodiscard]] guion::Registro& Registro() { return *registro_; }
  /// By its name in a scenario, `datos` or `local`.
  [[nodiscard]] Base& De(const std::string& base) { return base == "datos" ? datos_ : local_; }
  [[nodiscard]] Vigia& VigiaDe(const std::string& base) {
    return base == "datos" ? *vigia_datos_ : *vigia_local_;
  }
  /// The platform for the component, with everything set.
  [[nodiscard]] services::Plataforma Plataforma() { return entorno_->Plataforma(); }
  /// The component's object, made at its first use. Throws `NoSeEntiende` when there is none.
  [[nodiscard]] services::IClassTesvara& Componente();
  [[nodiscard]] services::Ref<services::IDatosClase>& DatosClase() { return datos_clase_; }

 private:
  Base& datos_;
  Base& local_;
  Fabrica fabrica_;
  std::shared_ptr<guion::Registro> registro_;
  std::shared_ptr<Vigia> vigia_datos_;
  std::shared_ptr<Vigia> vigia_local_;
  std::shared_ptr<headless::Entorno> entorno_;
  services::Ref<guion::Anfitrion> anfitrion_;
  services::Ref<services::IDatosClase> datos_clase_;
  services::Ref<services::IClassTesvara> componente_;
};

}  // namespace guion
