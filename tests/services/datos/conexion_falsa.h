#pragma once

#include <memory>
#include <span>
#include <string>
#include <vector>

#include "datos/conexion.h"
#include "valores/error.h"

namespace pruebas {

/// One table in memory, shared by a connection and its cursors, and what was asked of them.
struct TablaFalsa {
  std::vector<services::Columna> Columnas;
  std::vector<std::vector<services::Valor>> FilasGuardadas;
  int Lecturas = 0;
  int LecturasDeInsertada = 0;
  int Borrados = 0;
  std::int32_t FalloAlEscribir = 0;  ///< number that the next write fails with; 0 for none
};

class CursorFalso final : public services::Cursor {
 public:
  explicit CursorFalso(std::shared_ptr<TablaFalsa> tabla) : tabla_(std::move(tabla)) {}

  [[nodiscard]] const std::vector<services::Columna>& Columnas() const override {
    return tabla_->Columnas;
  }

  // The hidden cell behind each row is its index.
  [[nodiscard]] services::Filas Leer() override {
    ++tabla_->Lecturas;
    services::Filas filas(tabla_->Columnas.size() + 1);
    for (std::size_t i = 0; i < tabla_->FilasGuardadas.size(); ++i) Anadir(filas, i);
    return filas;
  }

  void Insertar(std::span<const services::Asignacion> valores) override {
    FallarSiToca();
    tabla_->FilasGuardadas.emplace_back(tabla_->Columnas.size());
    insertada_ = tabla_->FilasGuardadas.size() - 1;
    Escribir(insertada_, valores);
  }

  [[nodiscard]] services::Filas LeerInsertada() override {
    ++tabla_->LecturasDeInsertada;
    services::Filas filas(tabla_->Columnas.size() + 1);
    Anadir(filas, insertada_);
    return filas;
  }

  void Actualizar(const services::Filas& filas, std::size_t fila,
                  std::span<const services::Asignacion> valores) override {
    FallarSiToca();
    const auto indice = static_cast<std::size_t>(filas.Entero(fila, tabla_->Columnas.size()));
    for (const auto& valor : valores) {
      if (tabla_->FilasGuardadas[indice][valor.Posicion] != filas.En(fila, valor.Posicion)) {
        throw services::ErrorEjecucion(services::error::FilaCambiada, "cambiada");
      }
    }
    Escribir(indice, valores);
  }

 private:
  void Anadir(services::Filas& filas, std::size_t indice) const {
    for (const auto& valor : tabla_->FilasGuardadas[indice]) filas.Anadir(valor);
    filas.AnadirEntero(static_cast<std::int64_t>(indice));
  }
  void Escribir(std::size_t indice, std::span<const services::Asignacion> valores) {
    for (const auto& valor : valores) {
      tabla_->FilasGuardadas[indice][valor.Posicion] = *valor.Nuevo;
    }
  }
  void FallarSiToca() {
    if (const auto numero = std::exchange(tabla_->FalloAlEscribir, 0)) {
      throw services::ErrorEjecucion(numero, "fallo pedido");
    }
  }

  std::shared_ptr<TablaFalsa> tabla_;
  std::size_t insertada_ = 0;
};

/// Understands "SELECT" and "DELETE", of its one table.
class ConexionFalsa final : public services::ObjetoContado<services::Conexion> {
 public:
  explicit ConexionFalsa(std::shared_ptr<TablaFalsa> tabla) : tabla_(std::move(tabla)) {}

  [[nodiscard]] std::unique_ptr<services::Cursor> Abrir(std::string_view sentencia,
                                                        services::ModoApertura) override {
    if (sentencia == "SELECT") return std::make_unique<CursorFalso>(tabla_);
    if (sentencia != "DELETE") {
      throw services::ErrorEjecucion(services::error::SentenciaRechazada, "rechazada");
    }
    ++tabla_->Borrados;
    tabla_->FilasGuardadas.clear();
    return nullptr;
  }
  void TerminarUnidad() override {}
  void AbandonarUnidad() noexcept override {}

 private:
  std::shared_ptr<TablaFalsa> tabla_;
};

}  // namespace pruebas
