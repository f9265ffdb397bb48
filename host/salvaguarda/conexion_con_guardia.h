#pragma once

#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include "datos/conexion.h"
#include "salvaguarda/guardia.h"

namespace salvaguarda {

/// A connection that a component is given: the driver's own, and a guard that sees what is done
/// through it.
class ConexionConGuardia : public services::ObjetoContado<services::Conexion> {
 public:
  ConexionConGuardia(services::Ref<services::Conexion> dentro, std::shared_ptr<Guardia> guardia)
      : dentro_(std::move(dentro)), guardia_(std::move(guardia)) {}

  [[nodiscard]] std::unique_ptr<services::Cursor> Abrir(std::string_view sentencia,
                                                        services::ModoApertura modo) final {
    AntesDe(sentencia);
    return dentro_->Abrir(sentencia, modo);
  }
  [[nodiscard]] std::vector<services::Columna> ColumnasDe(std::string_view tabla) final {
    return dentro_->ColumnasDe(tabla);
  }
  void TerminarUnidad() final {
    dentro_->TerminarUnidad();
    TrasTerminar();
  }
  void AbandonarUnidad() noexcept final {
    dentro_->AbandonarUnidad();
    TrasAbandonar();
  }
  void EscribirPendientes() final { dentro_->EscribirPendientes(); }
  void JuntarBorrados(bool juntar) final { dentro_->JuntarBorrados(juntar); }
  void Anticipar(const std::function<std::vector<std::string>()>& sentencias,
                 services::ModoApertura modo) final {
    dentro_->Anticipar(sentencias, modo);
  }
  bool EmpezarLectura() noexcept final { return dentro_->EmpezarLectura(); }
  void TerminarLectura() noexcept final { dentro_->TerminarLectura(); }

 protected:
  [[nodiscard]] Guardia& LaGuardia() const { return *guardia_; }

 private:
  virtual void AntesDe(std::string_view sentencia) = 0;
  virtual void TrasTerminar() = 0;
  virtual void TrasAbandonar() noexcept {}

  services::Ref<services::Conexion> dentro_;
  std::shared_ptr<Guardia> guardia_;
};

/// To the stored tables: its guard sees loads and commits begin, and commits end.
class ConexionGuardada final : public ConexionConGuardia {
  using ConexionConGuardia::ConexionConGuardia;
  void AntesDe(std::string_view sentencia) override {
    if (const auto comienzo = Reconocer(sentencia)) LaGuardia().AlComenzar(*comienzo);
  }
  void TrasTerminar() override { LaGuardia().AlTerminarUnidad(); }
  void TrasAbandonar() noexcept override { LaGuardia().AlAbandonarUnidad(); }
};

/// To the working tables: its guard sees them emptied and loaded.
class ConexionDeTrabajo final : public ConexionConGuardia {
  using ConexionConGuardia::ConexionConGuardia;
  void AntesDe(std::string_view sentencia) override {
    if (EsVaciado(sentencia)) LaGuardia().AlVaciar();
  }
  void TrasTerminar() override { LaGuardia().AlTerminarUnidadDeTrabajo(); }
};

}  // namespace salvaguarda
