#pragma once

#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include "datos/conexion.h"
#include "salvaguarda/guardia.h"

namespace salvaguarda {

/// The connection to the stored tables that a component is given: the driver's own, and a guard
/// that sees what begins on it.
class ConexionGuardada final : public services::ObjetoContado<services::Conexion> {
 public:
  ConexionGuardada(services::Ref<sqlite::Conexion> dentro, std::shared_ptr<Guardia> guardia)
      : dentro_(std::move(dentro)), guardia_(std::move(guardia)) {}

  [[nodiscard]] std::unique_ptr<services::Cursor> Abrir(std::string_view sentencia,
                                                        services::ModoApertura modo) override {
    if (const auto comienzo = Reconocer(sentencia)) guardia_->AlComenzar(*comienzo);
    return dentro_->Abrir(sentencia, modo);
  }
  [[nodiscard]] std::vector<services::Columna> ColumnasDe(std::string_view tabla) override {
    return dentro_->ColumnasDe(tabla);
  }
  void TerminarUnidad() override {
    dentro_->TerminarUnidad();
    guardia_->AlTerminarUnidad();
  }
  void AbandonarUnidad() noexcept override {
    dentro_->AbandonarUnidad();
    guardia_->AlAbandonarUnidad();
  }

 private:
  services::Ref<sqlite::Conexion> dentro_;
  std::shared_ptr<Guardia> guardia_;
};

}  // namespace salvaguarda
