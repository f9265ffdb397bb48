#pragma once

#include <optional>
#include <string>

#include "esquema/esquema_de_servidor.h"
#include "guion/carpeta_temporal.h"
#include "guion/opciones_guion.h"

namespace guion {

/// Where the databases of a run are. A file that the options don't tell is in a folder made for the
/// run, which goes with it unless it is to be kept; files that they tell always stay.
class Ficheros {
 public:
  /// Opens and makes no file. Throws `services::ErrorEjecucion` when a server can't be reached.
  explicit Ficheros(const Opciones& opciones);

  [[nodiscard]] const std::string& Datos() const { return datos_; }
  /// Where the stored tables are instead, when they are on a server: a schema made for this run.
  [[nodiscard]] const esquema::EsquemaPropio* Esquema() const {
    return esquema_ ? &*esquema_ : nullptr;
  }
  /// Of the first session, the file itself; of another one, with its number before the extension.
  [[nodiscard]] std::string Local(int sesion) const;
  /// The folder made for this run; empty when there was no need of it.
  [[nodiscard]] std::string Carpeta() const { return carpeta_ ? carpeta_->Ruta().string() : ""; }

 private:
  [[nodiscard]] std::string Fichero(const std::string& dado, const char* nombre, bool conservar);

  std::optional<CarpetaTemporal> carpeta_;
  std::optional<esquema::EsquemaPropio> esquema_;
  std::string datos_;
  std::string local_;
};

}  // namespace guion
