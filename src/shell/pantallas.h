#pragma once

#include <string>

#include "forms/form.h"
#include "shell/frm_tesvara_gastos.h"

namespace shell {

class DatosComunes;

/// The screens of the component, one shared instance each: made and loaded at their first use, and
/// dropped when they are unloaded.
class Pantallas {
 public:
  explicit Pantallas(DatosComunes& datos) : datos_(datos) {}

  /// The main screen, made and loaded when it isn't.
  FrmTesvaraGastos& Principal();
  /// Brings it to sight in the host's frame.
  void MostrarPrincipal();
  /// Why the main screen should stay; empty when it isn't loaded.
  [[nodiscard]] std::string MotivoParaNoCerrar();

 private:
  DatosComunes& datos_;
  services::Instancia<FrmTesvaraGastos> principal_;
};

}  // namespace shell
