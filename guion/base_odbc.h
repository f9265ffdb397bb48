#pragma once

#include <string>
#include <vector>

#include "esquema/esquema_de_servidor.h"
#include "guion/base.h"
#include "odbc/conexion_odbc.h"

namespace guion {

/// The stored tables, in a schema on a server.
class BaseOdbc final : public Base {
 public:
  /// Connects, and has the tables created unless they are there. Throws
  /// `services::ErrorEjecucion`.
  explicit BaseOdbc(const esquema::EsquemaPropio& esquema);

  [[nodiscard]] services::Ref<services::Conexion> Conexion() override { return conexion_; }
  [[nodiscard]] const services::Ref<odbc::Conexion>& Motor() const { return conexion_; }
  void Agrupar(bool porEvento) override { conexion_->AgruparEnUnidades(porEvento); }
  void Ejecutar(const std::string& sql) override;
  [[nodiscard]] std::vector<Fila> Consultar(const std::string& sql) override;

 private:
  services::Ref<odbc::Conexion> conexion_;
};

}  // namespace guion
