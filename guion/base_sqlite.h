#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "guion/base.h"
#include "sqlite/conexion_sqlite.h"

namespace guion {

/// A file of the embedded engine.
class BaseSqlite final : public Base {
 public:
  /// Opens the file and has its tables created unless it has `una` of them. Throws
  /// `services::ErrorEjecucion`.
  BaseSqlite(const std::string& fichero, const sqlite::Opciones& opciones, std::string_view una,
             const std::function<void(sqlite::Conexion&)>& crear);

  [[nodiscard]] services::Ref<services::Conexion> Conexion() override { return conexion_; }
  [[nodiscard]] const services::Ref<sqlite::Conexion>& Motor() const { return conexion_; }
  void Agrupar(bool porEvento) override { conexion_->AgruparEnUnidades(porEvento); }
  void Ejecutar(const std::string& sql) override;
  [[nodiscard]] std::vector<Fila> Consultar(const std::string& sql) override;

 private:
  services::Ref<sqlite::Conexion> conexion_;
};

}  // namespace guion
