#pragma once

#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include "datos/conexion.h"
#include "salvaguarda/guardia.h"

namespace salvaguarda {

/// The connection to the working tables that a component is given: the driver's own, and a guard
/// that sees them emptied and loaded.
class ConexionDeTrabajo final : public services::ObjetoContado<services::Conexion> {
 public:
  ConexionDeTrabajo(services::Ref<sqlite::Conexion> dentro, std::shared_ptr<Guardia> guardia)
      : dentro_(std::move(dentro)), guardia_(std::move(guardia)) {}

  [[nodiscard]] std::unique_ptr<services::Cursor> Abrir(std::string_view sentencia,
                                                        services::ModoApertura modo) override {
    if (EsVaciado(sentencia)) guardia_->AlVaciar();
    return dentro_->Abrir(sentencia, modo);
  }
  [[nodiscard]] std::vector<services::Columna> ColumnasDe(std::string_view tabla) override {
    return dentro_->ColumnasDe(tabla);
  }
  void TerminarUnidad() override {
    dentro_->TerminarUnidad();
    guardia_->AlTerminarUnidadDeTrabajo();
  }
  void AbandonarUnidad() noexcept override { dentro_->AbandonarUnidad(); }

 private:
  services::Ref<sqlite::Conexion> dentro_;
  std::shared_ptr<Guardia> guardia_;
};

}  // namespace salvaguarda
