#pragma once

#include <memory>
#include <string>
#include <vector>

#include "odbc/conexion_odbc.h"

namespace odbc {

/// An open SELECT on a server. A row is found again by its key.
class Cursor final : public services::Cursor {
 public:
  Cursor(Conexion& conexion, std::string texto, dialecto::Sentencia sentencia,
         services::ModoApertura modo);

  [[nodiscard]] const std::vector<services::Columna>& Columnas() const override {
    return sentencia_.Traducida->Columnas;
  }
  [[nodiscard]] services::Filas Leer() override;
  void Insertar(std::span<const services::Asignacion> valores) override;
  [[nodiscard]] services::Filas LeerInsertada() override;
  void Actualizar(const services::Filas& filas, std::size_t fila,
                  std::span<const services::Asignacion> valores) override;

 private:
  struct Insertado {
    std::size_t Posicion;
    services::Valor Nuevo;
  };

  [[nodiscard]] const std::string& Tabla() const { return sentencia_.Traducida->Unica; }
  [[nodiscard]] const std::vector<std::string>& Origenes() const {
    return sentencia_.Traducida->Origenes;
  }
  [[nodiscard]] services::TipoColumna TipoDe(std::size_t posicion) const {
    return Columnas()[posicion].Tipo;
  }
  void ExigirTabla(std::span<const services::Asignacion> valores) const;
  [[nodiscard]] std::vector<std::size_t> Clave() const;
  [[nodiscard]] std::string DondeLaClave(const std::vector<std::size_t>& clave) const;
  void AnadirCondicion(std::string& texto, std::size_t posicion) const;

  services::Ref<Conexion> conexion_;
  std::string texto_;
  dialecto::Sentencia sentencia_;
  services::ModoApertura modo_;
  /// Its columns, and what it is sorted by besides.
  std::vector<services::Columna> leidas_;
  /// What the row that was added last was given.
  std::vector<Insertado> insertada_;
};

}  // namespace odbc
