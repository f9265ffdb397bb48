#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "datos/conexion.h"
#include "guion/peticiones.h"

namespace guion {

/// Counts the driver calls of one connection, and makes those fail that it was told to. A driver
/// call is one of `Abrir`, `Leer`, `Insertar`, `Actualizar` and `TerminarUnidad`.
class Vigia {
 public:
  Vigia(std::string base, std::shared_ptr<Registro> registro)
      : base_(std::move(base)), registro_(std::move(registro)) {}

  /// Makes the call fail that comes `cuantas` calls from now, the next one being the first; once.
  void Provocar(int cuantas, std::int32_t numero) { fallos_.push_back({cuantas, numero}); }
  /// One call begins. Throws the failure that was meant for it.
  void Llamada();
  void Anotar(std::string_view sentencia, services::ModoApertura modo);

 private:
  struct Fallo {
    int faltan;
    std::int32_t numero;
  };
  std::string base_;
  std::shared_ptr<Registro> registro_;
  std::vector<Fallo> fallos_;
};

/// A connection that behaves as the one behind it, watched.
class ConexionVigilada final : public services::ObjetoContado<services::Conexion> {
 public:
  ConexionVigilada(services::Ref<services::Conexion> dentro, std::shared_ptr<Vigia> vigia)
      : dentro_(std::move(dentro)), vigia_(std::move(vigia)) {}

  [[nodiscard]] std::unique_ptr<services::Cursor> Abrir(std::string_view sentencia,
                                                        services::ModoApertura modo) override;
  /// No driver call: nothing is opened and nothing read.
  [[nodiscard]] std::vector<services::Columna> ColumnasDe(std::string_view tabla) override {
    return dentro_->ColumnasDe(tabla);
  }
  /// A failure that was meant for this call leaves the unit as a real one does: its writes are
  /// gone.
  void TerminarUnidad() override;
  void AbandonarUnidad() noexcept override { dentro_->AbandonarUnidad(); }
  void EscribirPendientes() override { dentro_->EscribirPendientes(); }
  void JuntarBorrados(bool juntar) override { dentro_->JuntarBorrados(juntar); }
  void Anticipar(const std::function<std::vector<std::string>()>& sentencias,
                 services::ModoApertura modo) override {
    dentro_->Anticipar(sentencias, modo);
  }
  bool EmpezarLectura() noexcept override { return dentro_->EmpezarLectura(); }
  void TerminarLectura() noexcept override { dentro_->TerminarLectura(); }

  [[nodiscard]] const services::Ref<services::Conexion>& Dentro() const { return dentro_; }

 private:
  services::Ref<services::Conexion> dentro_;
  std::shared_ptr<Vigia> vigia_;
};

}  // namespace guion
