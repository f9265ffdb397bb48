#pragma once

#include <memory>
#include <optional>
#include <string>

#include "guion/base.h"
#include "guion/carpeta_temporal.h"
#include "guion/opciones_guion.h"

namespace guion {

/// The two databases of a run, with their tables. What was made for the run goes with it, unless it
/// is to be kept; files that were there before always stay.
class Bases {
 public:
  /// Throws `services::ErrorEjecucion` when a file can't be opened or its tables can't be made.
  explicit Bases(const Opciones& opciones);

  [[nodiscard]] Base& Datos() { return *datos_; }
  [[nodiscard]] Base& Local() { return *local_; }
  /// Where the files made for this run are; empty when none was.
  [[nodiscard]] std::string Carpeta() const { return carpeta_ ? carpeta_->Ruta().string() : ""; }

 private:
  [[nodiscard]] std::string Fichero(const std::string& dado, const char* nombre, bool conservar);

  std::optional<CarpetaTemporal> carpeta_;
  std::unique_ptr<Base> datos_;
  std::unique_ptr<Base> local_;
};

}  // namespace guion
