#pragma once

#include <string>
#include <string_view>

#include "odbc/conexion_odbc.h"
#include "salvaguarda/almacen.h"
#include "salvaguarda/tablas.h"

namespace salvaguarda {

/// Those on a server. What is looked for there is copied to a file of this program's own, the
/// mirror. That costs in proportion to what a load of the range reads, not to the tables.
class AlmacenEnServidor final : public Almacen {
 public:
  /// Makes the mirror anew, with the columns that the tables have there. Throws what either engine
  /// throws.
  AlmacenEnServidor(services::Ref<odbc::Conexion> servidor, std::string nombre,
                    const std::string& espejo);

  [[nodiscard]] bool EnteroEnSuFichero() const override { return false; }
  [[nodiscard]] services::Ref<services::Conexion> Conexion() const override { return servidor_; }
  void Traer(const std::optional<Rango>& rango, const ClavesDe& claves) override;
  void EmpezarUnidad() override { servidor_->EmpezarUnidad(); }
  void Cambiar(const std::string& sql) override;
  [[nodiscard]] sqlite::Conexion& Base() const override { return *espejo_; }

 private:
  void Vaciar();
  void TraerRango(const Rango& rango);
  void TraerLasQueFaltan(const Claves& claves);
  void TraerFacturas();
  void TraerPorClave(std::string_view tabla, const std::vector<std::string>& condiciones);
  void Copiar(std::string_view tabla, const std::string& sentencia);
  void Llevar(const Tabla& tabla, const services::Filas& antes);

  services::Ref<odbc::Conexion> servidor_;
  services::Ref<sqlite::Conexion> espejo_;
};

}  // namespace salvaguarda
