#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "headless/informe_grabado.h"
#include "headless/mensajes.h"
#include "services/imprenta.h"
#include "services/omision.h"
#include "services/plataforma.h"
#include "valores/fecha.h"

namespace services {
class Escritorio;
class Form;
class Widget;
}  // namespace services

namespace headless {

/// The platform without a window: screens that show nothing, messages answered from a queue, a
/// clock that can be stopped, printers that only have a name. Nothing here is global; what it makes
/// shares it and may outlive whoever made it.
class Entorno : public std::enable_shared_from_this<Entorno> {
 public:
  [[nodiscard]] static std::shared_ptr<Entorno> Crear();
  Entorno(const Entorno&) = delete;
  Entorno& operator=(const Entorno&) = delete;

  /// What is to be installed.
  [[nodiscard]] services::Plataforma Plataforma();

  /// What a modal screen waits with: it lets the user work, and returns when the screen is hidden
  /// or unloaded. A screen still on sight after it, or without it, is hidden.
  std::function<void(services::Form&)> AlEsperarModal;
  std::function<void(const services::ErrorEjecucion&)> AlFallar;
  std::function<std::unique_ptr<services::Utiles>(services::Sesion&)> CrearUtiles;
  /// Hears of each failure that a load or a commit passes over, as it happens. May be left out.
  std::function<void(const services::Omision&)> AlPasarPorAlto;

  headless::Mensajes Mensajes;
  /// What loads and commits passed over.
  std::vector<services::Omision> Omisiones;
  /// Names of the printers, none at first.
  std::vector<std::string> Printers;
  /// What was last sent to one of them.
  std::optional<services::TrabajoDeImpresion> UltimoTrabajo;
  /// Asked as a report goes on; false gives it up. May be left out.
  std::function<bool(int hechos, int total)> AlAvanzar;
  services::MedidaPantalla Pantalla{15360, 11520};
  /// What the concept chooser answers the next time, once; none for a cancelled choice.
  std::optional<std::string> Concepto;

  /// Stops the clock at a moment; until then it is the local time.
  void PararReloj(services::FechaHora momento) { parado_ = momento; }
  [[nodiscard]] services::FechaHora Ahora() const;

  /// Loaded screens in the order of their loading. They are known once one of them was shown.
  [[nodiscard]] std::vector<services::Form*> Pantallas() const;
  /// A loaded screen by its name, null when there is none.
  [[nodiscard]] services::Form* Buscar(std::string_view nombre) const;
  /// The widget with the focus, null for none.
  [[nodiscard]] services::Widget* Foco() const;
  /// Whether the user can work in a screen: on sight, and behind no modal one.
  [[nodiscard]] bool AlAlcance(const services::Form& form) const;

  /// What the report last begun drew, on a printer or on the screen; null when there was none.
  [[nodiscard]] const Grabacion* UltimoInforme() const { return informe_.get(); }
  [[nodiscard]] const std::vector<services::ClaseRegistrada>& Registradas() const {
    return registradas_;
  }

 private:
  friend class VentanaHeadless;

  Entorno() = default;
  void EsperarModal(services::Form& form);

  services::Escritorio* escritorio_ = nullptr;
  std::optional<services::FechaHora> parado_;
  std::shared_ptr<Grabacion> informe_;
  std::vector<services::ClaseRegistrada> registradas_;
};

}  // namespace headless
