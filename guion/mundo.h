#pragma once

#include <functional>
#include <memory>
#include <string>

#include "guion/anfitrion_guion.h"
#include "guion/base.h"
#include "guion/conexion_vigilada.h"
#include "guion/guardada.h"
#include "guion/peticiones.h"
#include "headless/entorno.h"
#include "services/anfitrion.h"

namespace guion {

/// Makes an object of the component's class; empty when that can't be done.
using Fabrica = std::function<services::Ref<services::IClassTesvara>()>;

/// All that stands around the component during a run: the platform, the two databases with their
/// connections watched, the host, and the guard that it may have.
class Mundo {
 public:
  Mundo(Base& datos, Base& local, Fabrica fabrica, guion::Guardar guardar = {});
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

  /// From the next session handed over on, the suite's guard stands before the stored tables. It
  /// asks and tells by the messages. Throws `NoSeEntiende` where these databases have none.
  void Guardar();
  /// Shows what the guard has to tell.
  void Contar();

 private:
  Base& datos_;
  Base& local_;
  Fabrica fabrica_;
  guion::Guardar guardar_;
  std::shared_ptr<guion::Registro> registro_;
  std::shared_ptr<Vigia> vigia_datos_;
  std::shared_ptr<Vigia> vigia_local_;
  std::shared_ptr<headless::Entorno> entorno_;
  services::Ref<guion::Anfitrion> anfitrion_;
  services::Ref<services::IDatosClase> datos_clase_;
  std::shared_ptr<salvaguarda::Guardia> guardia_;
  bool hay_que_contar_ = false;
  services::Ref<services::IClassTesvara> componente_;
};

}  // namespace guion
