#pragma once

#include <optional>
#include <string>

#include "salvaguarda/rescate.h"
#include "sqlite/conexion_sqlite.h"

namespace salvaguarda {

/// What a working copy has that isn't stored, looked at before the working tables are emptied.
class LoSinGrabar {
 public:
  LoSinGrabar(services::Ref<sqlite::Conexion> deTrabajo, Almacen& almacen, std::string foto)
      : deTrabajo_(std::move(deTrabajo)), almacen_(almacen), foto_(std::move(foto)) {}

  /// What is there now has been loaded, or is kept elsewhere.
  void DarPorVisto();
  /// Whether anything was written since.
  [[nodiscard]] bool Escrito() { return vistas_ != Escrituras(); }
  /// None where all of it is stored. No unit is under way. Throws what the engine throws.
  [[nodiscard]] std::optional<Rescate> Mirar() {
    return BuscarRescate(*deTrabajo_, almacen_, foto_);
  }

 private:
  [[nodiscard]] double Escrituras();

  services::Ref<sqlite::Conexion> deTrabajo_;
  Almacen& almacen_;
  std::string foto_;
  std::optional<double> vistas_;
};

}  // namespace salvaguarda
